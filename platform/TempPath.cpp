// The list of temporary paths: the part that all platforms share.

#include "platform/TempPath.h"

#include "platform/Paths.h"
#include "platform/TempSystem.h"

#include <array>
#include <cstdio>
#include <random>
#include <system_error>
#include <utility>

namespace {

constexpr int TRIES = 100;

T_TEMP_D* g_pFirst = nullptr; // changes while nothing interrupts

} // namespace

std::string RandomText() {
    std::random_device random;
    std::array<char, 32> aText{};
    std::snprintf(aText.data(), aText.size(), "%08x%08x", random(), random());
    return aText.data();
}

void RemoveTempPaths() noexcept {
    for (const T_TEMP_D* p = g_pFirst; p; p = p->pNEXT) RemoveNow(p->pNAME, p->bFOLDER);
}

void CTempPath::Link(bool bFolder) noexcept {
    m_entry = {m_name.c_str(), bFolder, g_pFirst};
    g_pFirst = &m_entry;
}

void CTempPath::Unlink() noexcept {
    T_TEMP_D** ppEntry = &g_pFirst;
    while (*ppEntry != &m_entry) ppEntry = &(*ppEntry)->pNEXT;
    *ppEntry = m_entry.pNEXT;
    m_entry = {};
    m_sPath.clear();
}

void CTempPath::MakeFile(CFile& rFile, const T_TARGET_D& rTarget, const std::string& sShown) {
    Remove();
    for (int i = 0; i < TRIES; ++i) {
        std::string sPath = ToText(ToPath(rTarget.sPATH).replace_filename(".nas2zdt-" + RandomText()));
        m_name = SystemName(sPath);
        const CUninterrupted uninterrupted;
        if (!rFile.CreateFor(rTarget, sPath, sShown)) continue;
        m_sPath = std::move(sPath);
        return Link(false);
    }
    throw CFileException(sShown, "no name is free for a temporary file");
}

void CTempPath::MakeFolder() {
    Remove();
    std::error_code error;
    const std::string sParent = ToText(std::filesystem::temp_directory_path(error));
    if (error) throw CFileException("folder for temporary files", error.message());
    std::string sCause;
    const CUninterrupted uninterrupted;
    if (!MakePrivateFolder(sParent + "/nas2zdt-", m_sPath, sCause)) throw CFileException(sParent, sCause);
    m_name = SystemName(m_sPath);
    Link(true);
}

void CTempPath::Rename(const std::string& sPath, const std::string& sShown) {
    const std::filesystem::path name = SystemName(sPath);
    std::string sCause;
    const CUninterrupted uninterrupted;
    if (!MoveOver(m_name, name, sCause)) throw CFileException(sShown, sCause);
    Unlink();
}

void CTempPath::Remove() noexcept {
    if (!m_entry.pNAME) return;
    const CUninterrupted uninterrupted;
    RemoveNow(m_entry.pNAME, m_entry.bFOLDER);
    Unlink();
}
