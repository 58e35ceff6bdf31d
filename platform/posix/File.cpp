// Decks and output files on POSIX systems.

#include "platform/File.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <signal.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

std::string CauseText(int iError) {
    return std::generic_category().message(iError);
}

// Never blocks: a pipe without a partner must not hang the host.
int OpenToRead(const std::string& sPath) {
    return ::open(sPath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

/// While it lives, a write past the limit of a file's size or to a pipe without a reader fails by its result alone: the
/// signals that would end the host wait, and go.
class CHeldSignals {
  public:
    CHeldSignals() {
        ::sigpending(&m_pending);
        ::sigemptyset(&m_held);
        for (const int iSignal : {SIGPIPE, SIGXFSZ}) {
            if (::sigismember(&m_pending, iSignal) == 0) ::sigaddset(&m_held, iSignal); // others are the host's own
        }
        ::pthread_sigmask(SIG_BLOCK, &m_held, &m_before);
    }
    ~CHeldSignals() {
        const timespec none{};
        while (::sigtimedwait(&m_held, nullptr, &none) > 0) {
        }
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }
    CHeldSignals(const CHeldSignals&) = delete;
    CHeldSignals& operator=(const CHeldSignals&) = delete;

  private:
    sigset_t m_pending{};
    sigset_t m_held{};
    sigset_t m_before{};
};

char ToLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Order without regard to case, whatever letters are to the locale of the host.
bool IsBefore(const std::string& sA, const std::string& sB) {
    return std::lexicographical_compare(sA.begin(), sA.end(), sB.begin(), sB.end(),
                                        [](char cA, char cB) { return ToLower(cA) < ToLower(cB); });
}

/// The names in sFolder, those that differ in case alone next to each other in byte order.
std::vector<std::string> ListFolder(const std::string& sFolder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> pDir(::opendir(sFolder.c_str()), &::closedir);
    std::vector<std::string> aNames;
    if (!pDir) return aNames;
    while (const dirent* pEntry = ::readdir(pDir.get())) aNames.emplace_back(pEntry->d_name);
    std::sort(aNames.begin(), aNames.end());
    std::stable_sort(aNames.begin(), aNames.end(), &IsBefore);
    return aNames;
}

} // namespace

std::string FullPath(const std::string& sPath) {
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(sPath, error);
    return error ? sPath : full.string();
}

/// The entry of sFolder that equals sName without regard to case, the first in byte order; empty if there is none.
std::string CDeckFile::FindWithoutCase(const std::string& sFolder, const std::string& sName) {
    std::vector<std::string>& rNames = m_mapFolders[sFolder];
    if (rNames.empty()) rNames = ListFolder(sFolder);
    const auto pName = std::lower_bound(rNames.begin(), rNames.end(), sName, &IsBefore);
    return pName != rNames.end() && !IsBefore(sName, *pName) ? *pName : std::string();
}

/// Walks sPath folder by folder, taking each name as it stands where it exists and without regard to case where not.
/// Both separators part names. Empty if a name isn't found.
std::string CDeckFile::ResolveWithoutCase(std::string sPath) {
    std::replace(sPath.begin(), sPath.end(), '\\', '/');
    std::string sResolved = sPath.starts_with('/') ? "/" : "";
    std::size_t iPos = 0;
    while (iPos < sPath.size()) {
        const std::size_t iEnd = std::min(sPath.find('/', iPos), sPath.size());
        std::string sName = sPath.substr(iPos, iEnd - iPos);
        iPos = iEnd + 1;
        if (sName.empty()) continue;
        struct stat status {};
        if (::stat((sResolved + sName).c_str(), &status) != 0) {
            sName = FindWithoutCase(sResolved.empty() ? "." : sResolved, sName);
            if (sName.empty()) return {};
        }
        sResolved += sName;
        if (iEnd < sPath.size()) sResolved += '/';
    }
    return sResolved;
}

int CDeckFile::Open(const std::string& sPath, std::string& rCause) {
    Close();
    int iFile = OpenToRead(sPath);
    int iError = iFile < 0 ? errno : 0;
    if (iFile < 0 && (iError == ENOENT || iError == ENOTDIR) && !sPath.empty()) {
        if (const std::string sFound = ResolveWithoutCase(sPath); !sFound.empty()) {
            iFile = OpenToRead(sFound);
            iError = iFile < 0 ? errno : 0;
        }
    }
    struct stat status {};
    if (iFile >= 0 && ::fstat(iFile, &status) != 0) iError = errno;
    if (iFile >= 0 && iError == 0 && !S_ISREG(status.st_mode)) {
        ::close(iFile);
        rCause = S_ISDIR(status.st_mode) ? CauseText(EISDIR) : "Not a regular file";
        return 0;
    }
    if (iError != 0) {
        if (iFile >= 0) ::close(iFile);
        rCause = CauseText(iError);
        return 0;
    }
    m_iHandle = iFile;
    m_nUnread = static_cast<std::uint64_t>(status.st_size);
    m_id = {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
    return 1;
}

std::ptrdiff_t CDeckFile::Read(char* pBuffer, std::size_t nSize) {
    for (;;) {
        const ssize_t nRead = ::read(static_cast<int>(m_iHandle), pBuffer, nSize);
        if (nRead < 0 && errno == EINTR) continue;
        if (nRead == 0 && m_nUnread > 0) return -1;
        m_nUnread -= std::min(m_nUnread, static_cast<std::uint64_t>(std::max<ssize_t>(nRead, 0)));
        return nRead;
    }
}

void CDeckFile::Close() {
    if (m_iHandle >= 0) ::close(static_cast<int>(m_iHandle));
    m_iHandle = -1;
}

void CFile::Create(const std::string& sPath, const std::vector<T_FILEID_D>& aKeep) {
    Abort();
    m_sPath = sPath;
    m_nFlushed = 0;
    // Not cut on opening: a deck that is its own output file must be recognised first.
    const int iFile = ::open(sPath.c_str(), O_WRONLY | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666);
    if (iFile < 0) throw CFileException(sPath, CauseText(errno));
    m_iHandle = iFile;
    struct stat status {};
    if (::fstat(iFile, &status) != 0) throw CFileException(sPath, CauseText(errno));
    const T_FILEID_D id{static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
    if (std::find(aKeep.begin(), aKeep.end(), id) != aKeep.end()) {
        throw CFileException(sPath, "The output file is a deck of this run");
    }
    if (S_ISREG(status.st_mode) && ::ftruncate(iFile, 0) != 0) throw CFileException(sPath, CauseText(errno));
    if (const int iFlags = ::fcntl(iFile, F_GETFL); iFlags >= 0) ::fcntl(iFile, F_SETFL, iFlags & ~O_NONBLOCK);
}

void CFile::Flush() {
    CountFlush();
    const CHeldSignals held;
    const char* pData = m_pBuffer.get();
    std::size_t nLeft = m_nUsed;
    m_nUsed = 0; // whatever fails below, these bytes are not written twice
    while (nLeft > 0) {
        const ssize_t nDone = ::write(static_cast<int>(m_iHandle), pData, nLeft);
        if (nDone < 0 && errno == EINTR) continue;
        if (nDone <= 0) throw CFileException(m_sPath, CauseText(nDone < 0 ? errno : EIO));
        pData += nDone;
        nLeft -= static_cast<std::size_t>(nDone);
    }
}

void CFile::Close() {
    if (m_iHandle < 0) return;
    Flush();
    const int iFile = static_cast<int>(m_iHandle);
    m_iHandle = -1;
    if (::close(iFile) != 0 && errno != EINTR) throw CFileException(m_sPath, CauseText(errno));
}

void CFile::Abort() noexcept {
    if (m_iHandle >= 0) ::close(static_cast<int>(m_iHandle));
    m_iHandle = -1;
    m_nUsed = 0;
}
