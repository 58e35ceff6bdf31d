// Under a temporary name until it is whole.

#include "nas2zdt/WholeFile.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace {

std::filesystem::path ToPath(const std::string& sPath) {
    return std::filesystem::path(std::u8string(sPath.begin(), sPath.end()));
}

std::string ToText(const std::filesystem::path& rPath) {
    const std::u8string sPath = rPath.u8string();
    return {sPath.begin(), sPath.end()};
}

} // namespace

CWholeFile::CWholeFile(const std::string& sPath, const std::vector<T_FILEID_D>& aKeep)
    : m_sShown(sPath), m_sPath(sPath) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(ToPath(sPath), error);
    const bool bThere = std::filesystem::exists(status);
    if (bThere && !std::filesystem::is_regular_file(status)) {
        Guarded([&] { m_file.Create(sPath, aKeep); });
        return;
    }
    if (bThere) {
        // a link goes on leading to the file
        const std::filesystem::path path = std::filesystem::canonical(ToPath(sPath), error);
        if (!error) m_sPath = ToText(path);
        CDeckFile existing;
        std::string sIgnored;
        if (existing.Open(m_sPath, sIgnored) && std::find(aKeep.begin(), aKeep.end(), existing.GetId()) != aKeep.end())
            throw CFileException(sPath, "The output file is a deck of this run");
    }
    Guarded([&] { m_file.Create(m_sPath + ".part", aKeep); });
    m_sTemporary = m_sPath + ".part";
}

CWholeFile::~CWholeFile() {
    m_file.Abort();
    std::error_code ignored;
    if (!m_sTemporary.empty()) std::filesystem::remove(ToPath(m_sTemporary), ignored);
}

void CWholeFile::Finish() {
    Guarded([&] { m_file.Close(); });
    if (m_sTemporary.empty()) return;
    std::error_code error;
    std::filesystem::rename(ToPath(m_sTemporary), ToPath(m_sPath), error);
    if (error) throw CFileException(m_sShown, error.message());
    m_sTemporary.clear();
}
