// Decks and output files on POSIX systems.

#include "platform/File.h"

#include "platform/Paths.h"
#include "platform/posix/Calls.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace {

// Never blocks: a pipe without a partner must not hang the host.
int OpenToRead(const std::string& sPath) {
    return ::open(sPath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
}

T_FILEID_D IdOf(const struct stat& rStatus) {
    return {static_cast<std::uint64_t>(rStatus.st_dev), static_cast<std::uint64_t>(rStatus.st_ino)};
}

/// The descriptor of standard output or standard error, whichever goes to the file; -1 if none does.
int FindStandardStream(const T_FILEID_D& rId) {
    for (const int iStream : {STDOUT_FILENO, STDERR_FILENO}) {
        struct stat status {};
        if (::fstat(iStream, &status) == 0 && IdOf(status) == rId) return iStream;
    }
    return -1;
}

char ToLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Order without regard to the case of a to z; the host's locale doesn't matter.
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

std::int64_t ToNanoseconds(const timespec& rTime) {
    return std::int64_t{rTime.tv_sec} * 1'000'000'000 + rTime.tv_nsec;
}

} // namespace

std::int64_t FileTimeNow() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return ToNanoseconds(now);
}

std::filesystem::path ToPath(const std::string& sPath) {
    return sPath;
}

bool IsFolder(const std::string& sPath) {
    std::error_code error;
    return std::filesystem::is_directory(sPath, error);
}

std::string FullPath(const std::string& sPath) {
    std::error_code error;
    std::filesystem::path full;
    for (const std::filesystem::path& rName : std::filesystem::absolute(sPath, error)) {
        if (rName == ".") continue;
        if (rName != "..") {
            full /= rName;
            continue;
        }
        if (std::filesystem::is_symlink(full, error)) { // its ".." isn't the folder that holds it
            const std::filesystem::path real = std::filesystem::canonical(full, error);
            if (!error) full = real;
        }
        full = full.parent_path();
    }
    return full.empty() ? sPath : full.string();
}

T_TARGET_D FindTarget(const std::string& sPath) {
    T_TARGET_D target;
    std::filesystem::path path = sPath;
    std::error_code error;
    struct stat status {};
    if (::stat(sPath.c_str(), &status) == 0) {
        target.id = IdOf(status);
        target.eTARGET = S_ISREG(status.st_mode) && FindStandardStream(target.id) < 0 ? TARGET_FILE : TARGET_STREAM;
        const std::filesystem::path real = std::filesystem::canonical(path, error);
        if (!error) path = real;
    } else if (errno != ENOENT) { // opening it tells why
        target.eTARGET = TARGET_STREAM;
    } else {
        while (
            std::filesystem::is_symlink(path, error)) { // ends: the target doesn't exist, so the links aren't a circle
            path = path.parent_path() / std::filesystem::read_symlink(path, error);
        }
    }
    target.sPATH = path.string();
    target.sNAME = path.filename().string();
    const std::string sFolder = path.has_parent_path() ? path.parent_path().string() : ".";
    if (::stat(sFolder.c_str(), &status) == 0) target.folder = IdOf(status);
    return target;
}

/// The entry of sFolder that equals sName without regard to case, the first in byte order; empty if there is none.
std::string CDeckFile::FindWithoutCase(const std::string& sFolder, const std::string& sName) {
    std::vector<std::string>& rNames = m_mapFolders[sFolder];
    if (rNames.empty()) rNames = ListFolder(sFolder);
    const auto pName = std::lower_bound(rNames.begin(), rNames.end(), sName, &IsBefore);
    return pName != rNames.end() && !IsBefore(sName, *pName) ? *pName : std::string();
}

/// Walks sPath folder by folder, taking each name exactly where it exists and without regard to case where not.
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
    m_id = IdOf(status);
    m_stamp = {m_nUnread, ToNanoseconds(status.st_mtim)};
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
    if (std::find(aKeep.begin(), aKeep.end(), IdOf(status)) != aKeep.end()) {
        throw CFileException(sPath, "The output file is a deck of this run");
    }
    if (S_ISREG(status.st_mode) && ::ftruncate(iFile, 0) != 0) throw CFileException(sPath, CauseText(errno));
    if (const int iFlags = ::fcntl(iFile, F_GETFL); iFlags >= 0) ::fcntl(iFile, F_SETFL, iFlags & ~O_NONBLOCK);
}

int CFile::CreateFor(const T_TARGET_D& rTarget, const std::string& sPath, const std::string& sShown) {
    Abort();
    m_sPath = sShown;
    struct stat replaced {};
    const bool bReplaces = rTarget.eTARGET == TARGET_FILE;
    if (bReplaces) {
        const char* sReplaced = rTarget.sPATH.c_str(); // a file that may not be written isn't replaced either
        const bool bMay = ::stat(sReplaced, &replaced) == 0 && ::faccessat(AT_FDCWD, sReplaced, W_OK, AT_EACCESS) == 0;
        if (!bMay) throw CFileException(sShown, CauseText(errno));
    }
    const int iFlags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    const int iFile = ::open(sPath.c_str(), iFlags, bReplaces ? 0600 : 0666);
    if (iFile < 0 && errno == EEXIST) return 0;
    if (iFile < 0) throw CFileException(sShown, CauseText(errno));
    m_iHandle = iFile;
    if (!bReplaces) return 1;
    // as far as possible: only root gives files away, but a user may give them a group that he is in
    const bool bOwned = ::fchown(iFile, replaced.st_uid, replaced.st_gid) == 0;
    [[maybe_unused]] const bool bShared = bOwned || ::fchown(iFile, static_cast<uid_t>(-1), replaced.st_gid) == 0;
    ::fchmod(iFile, replaced.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO));
    return 1;
}

int CFile::JoinStandardStream(const T_TARGET_D& rTarget, const std::string& sShown) {
    Abort();
    m_sPath = sShown;
    const int iStream = rTarget.eTARGET == TARGET_STREAM ? FindStandardStream(rTarget.id) : -1;
    if (iStream < 0) return 0;
    m_iHandle = ::fcntl(iStream, F_DUPFD_CLOEXEC, 0);
    if (m_iHandle < 0) throw CFileException(sShown, CauseText(errno));
    return 1;
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
