// Decks and output files on Windows.

#include "platform/File.h"

#include "platform/Paths.h"
#include "platform/win32/Text.h"

#include <algorithm>
#include <windows.h>

namespace {

constexpr std::intptr_t NO_FILE = -1; // INVALID_HANDLE_VALUE
constexpr std::size_t LARGEST_PIECE = 1 << 30;
constexpr std::size_t SHORT_PATH = MAX_PATH - 12; // for folders, in which a short name must fit

HANDLE ToHandle(std::intptr_t iHandle) {
    return reinterpret_cast<HANDLE>(iHandle);
}

std::wstring FullWidePath(const std::wstring& sPath) {
    std::wstring sFull(::GetFullPathNameW(sPath.c_str(), 0, nullptr, nullptr), L'\0');
    sFull.resize(::GetFullPathNameW(sPath.c_str(), static_cast<DWORD>(sFull.size()), sFull.data(), nullptr));
    return sFull;
}

/// Identity of an open file. Returns 1, or 0 with the last error set.
int ReadId(HANDLE hFile, T_FILEID_D& rId) {
    BY_HANDLE_FILE_INFORMATION info{};
    if (!::GetFileInformationByHandle(hFile, &info)) return 0;
    rId.nVOLUME = info.dwVolumeSerialNumber;
    rId.nNUMBER = (static_cast<std::uint64_t>(info.nFileIndexHigh) << 32) | info.nFileIndexLow;
    return 1;
}

bool HasAttribute(const std::wstring& sPath, DWORD nAttribute) {
    const DWORD nAttributes = ::GetFileAttributesW(sPath.c_str());
    return nAttributes != INVALID_FILE_ATTRIBUTES && (nAttributes & nAttribute) != 0;
}

/// Opens a file or folder for its attributes alone.
HANDLE OpenToLook(const std::string& sPath) {
    return ::CreateFileW(SystemPath(sPath).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

/// The path of an open file, behind all links; empty if the system doesn't tell.
std::string PathBehind(HANDLE hFile) {
    std::wstring sPath(::GetFinalPathNameByHandleW(hFile, nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    sPath.resize(
        ::GetFinalPathNameByHandleW(hFile, sPath.data(), static_cast<DWORD>(sPath.size()), FILE_NAME_NORMALIZED));
    return Narrow(sPath);
}

/// Upper case as file names have it, in every language of the user.
std::string ToUpper(const std::string& sName) {
    std::wstring sWide = Widen(sName);
    const int nWide = static_cast<int>(sWide.size());
    if (nWide > 0) ::LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, sWide.c_str(), nWide, sWide.data(), nWide);
    return Narrow(sWide);
}

std::int64_t ToNanoseconds(const FILETIME& rTime) {
    constexpr std::int64_t STEP = 100; // of a file's time
    return ((std::int64_t{rTime.dwHighDateTime} << 32) | rTime.dwLowDateTime) * STEP;
}

} // namespace

std::int64_t FileTimeNow() {
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    return ToNanoseconds(now);
}

std::wstring SystemPath(const std::string& sPath) {
    std::wstring sWide = Widen(sPath);
    const std::wstring sFull = FullWidePath(sWide);
    if (sFull.size() < SHORT_PATH || sFull.starts_with(L"\\\\?\\") || sFull.starts_with(L"\\\\.\\")) return sWide;
    return sFull.starts_with(L"\\\\") ? L"\\\\?\\UNC" + sFull.substr(1) : L"\\\\?\\" + sFull;
}

std::filesystem::path ToPath(const std::string& sPath) {
    return Widen(sPath);
}

bool IsFolder(const std::string& sPath) {
    return HasAttribute(SystemPath(sPath), FILE_ATTRIBUTE_DIRECTORY);
}

std::string FullPath(const std::string& sPath) {
    return Narrow(FullWidePath(Widen(sPath)));
}

T_TARGET_D FindTarget(const std::string& sPath) {
    T_TARGET_D target;
    target.sPATH = sPath;
    if (const HANDLE hFile = OpenToLook(sPath); hFile != INVALID_HANDLE_VALUE) {
        const std::wstring sWide = SystemPath(sPath);
        const bool bFile = ::GetFileType(hFile) == FILE_TYPE_DISK && !HasAttribute(sWide, FILE_ATTRIBUTE_DIRECTORY);
        target.eTARGET = bFile && ReadId(hFile, target.id) ? TARGET_FILE : TARGET_STREAM;
        if (bFile && HasAttribute(sWide, FILE_ATTRIBUTE_REPARSE_POINT)) {
            if (const std::string sBehind = PathBehind(hFile); !sBehind.empty()) target.sPATH = sBehind;
        }
        ::CloseHandle(hFile);
    }
    const std::filesystem::path path = ToPath(FullPath(target.sPATH));
    target.sNAME = ToUpper(ToText(path.filename()));
    if (const HANDLE hFolder = OpenToLook(ToText(path.parent_path())); hFolder != INVALID_HANDLE_VALUE) {
        ReadId(hFolder, target.folder);
        ::CloseHandle(hFolder);
    }
    return target;
}

int CDeckFile::Open(const std::string& sPath, std::string& rCause) {
    Close();
    const std::wstring sWide = SystemPath(sPath);
    // Whoever has the deck open may go on with it: it is only read.
    const HANDLE hFile =
        ::CreateFileW(sWide.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) {
        const DWORD nError = ::GetLastError();
        rCause = HasAttribute(sWide, FILE_ATTRIBUTE_DIRECTORY) ? "Is a folder" : CauseText(nError);
        return 0;
    }
    m_iHandle = reinterpret_cast<std::intptr_t>(hFile);
    LARGE_INTEGER size{};
    if (::GetFileType(hFile) != FILE_TYPE_DISK) {
        rCause = "Not a regular file";
    } else if (!ReadId(hFile, m_id) || !::GetFileSizeEx(hFile, &size)) {
        rCause = CauseText(::GetLastError());
    } else {
        m_nUnread = static_cast<std::uint64_t>(size.QuadPart);
        FILETIME changed{};
        ::GetFileTime(hFile, nullptr, nullptr, &changed);
        m_stamp = {m_nUnread, ToNanoseconds(changed)};
        return 1;
    }
    Close();
    return 0;
}

std::ptrdiff_t CDeckFile::Read(char* pBuffer, std::size_t nSize) {
    DWORD nRead = 0;
    const auto nPiece = static_cast<DWORD>(std::min(nSize, LARGEST_PIECE));
    if (!::ReadFile(ToHandle(m_iHandle), pBuffer, nPiece, &nRead, nullptr)) return -1;
    if (nRead == 0 && m_nUnread > 0) return -1;
    m_nUnread -= std::min(m_nUnread, static_cast<std::uint64_t>(nRead));
    return static_cast<std::ptrdiff_t>(nRead);
}

void CDeckFile::Close() {
    if (m_iHandle != NO_FILE) ::CloseHandle(ToHandle(m_iHandle));
    m_iHandle = NO_FILE;
}

void CFile::Create(const std::string& sPath, const std::vector<T_FILEID_D>& aKeep) {
    Abort();
    m_sPath = sPath;
    m_nFlushed = 0;
    // Not cut on opening: a deck that is its own output file must be recognised first.
    const HANDLE hFile = ::CreateFileW(SystemPath(sPath).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                                       FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) throw CFileException(sPath, CauseText(::GetLastError()));
    m_iHandle = reinterpret_cast<std::intptr_t>(hFile);
    if (::GetFileType(hFile) != FILE_TYPE_DISK) return; // a device has neither an identity nor a length
    T_FILEID_D id;
    if (!ReadId(hFile, id)) throw CFileException(sPath, CauseText(::GetLastError()));
    if (std::find(aKeep.begin(), aKeep.end(), id) != aKeep.end()) {
        throw CFileException(sPath, "The output file is a deck of this run");
    }
    if (!::SetEndOfFile(hFile)) throw CFileException(sPath, CauseText(::GetLastError()));
}

int CFile::CreateFor(const T_TARGET_D& rTarget, const std::string& sPath, const std::string& sShown) {
    Abort();
    m_sPath = sShown;
    if (rTarget.eTARGET == TARGET_FILE && HasAttribute(SystemPath(rTarget.sPATH), FILE_ATTRIBUTE_READONLY)) {
        throw CFileException(sShown, CauseText(ERROR_ACCESS_DENIED));
    }
    // shared for removal too: an interrupted program can't close it first
    const HANDLE hFile = ::CreateFileW(SystemPath(sPath).c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                       nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile != INVALID_HANDLE_VALUE) {
        m_iHandle = reinterpret_cast<std::intptr_t>(hFile);
        return 1;
    }
    const DWORD nError = ::GetLastError();
    if (nError == ERROR_FILE_EXISTS) return 0;
    throw CFileException(sShown, CauseText(nError));
}

int CFile::JoinStandardStream(const T_TARGET_D&, const std::string&) {
    return 0; // no path leads to a standard stream that is a file
}

void CFile::Flush() {
    CountFlush();
    const char* pData = m_pBuffer.get();
    std::size_t nLeft = m_nUsed;
    m_nUsed = 0; // whatever fails below, these bytes are not written twice
    while (nLeft > 0) {
        DWORD nDone = 0;
        const auto nPiece = static_cast<DWORD>(std::min(nLeft, LARGEST_PIECE));
        const BOOL bDone = ::WriteFile(ToHandle(m_iHandle), pData, nPiece, &nDone, nullptr);
        if (!bDone || nDone == 0) throw CFileException(m_sPath, CauseText(bDone ? ERROR_DISK_FULL : ::GetLastError()));
        pData += nDone;
        nLeft -= nDone;
    }
}

void CFile::Close() {
    if (m_iHandle == NO_FILE) return;
    Flush();
    const HANDLE hFile = ToHandle(m_iHandle);
    m_iHandle = NO_FILE;
    if (!::CloseHandle(hFile)) throw CFileException(m_sPath, CauseText(::GetLastError()));
}

void CFile::Abort() noexcept {
    if (m_iHandle != NO_FILE) ::CloseHandle(ToHandle(m_iHandle));
    m_iHandle = NO_FILE;
    m_nUsed = 0;
}
