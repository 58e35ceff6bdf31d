// Temporary paths on Windows.

#include "platform/TempPath.h"

#include "platform/TempSystem.h"
#include "platform/win32/Text.h"

#include <windows.h>

namespace {

constexpr int TRIES = 100;

SRWLOCK g_lock = SRWLOCK_INIT; // the system reports Ctrl-C on another thread

/// Keeps the lock, so that the program, which ends next, makes no more files.
BOOL WINAPI RemoveAndEnd(DWORD) {
    ::AcquireSRWLockExclusive(&g_lock);
    RemoveTempPaths();
    return FALSE;
}

} // namespace

void CatchInterruptions() {
    ::SetConsoleCtrlHandler(&RemoveAndEnd, TRUE);
}

CUninterrupted::CUninterrupted() {
    ::AcquireSRWLockExclusive(&g_lock);
}

CUninterrupted::~CUninterrupted() {
    ::ReleaseSRWLockExclusive(&g_lock);
}

std::filesystem::path SystemName(const std::string& sPath) {
    return SystemPath(sPath);
}

int MakePrivateFolder(const std::string& sStart, std::string& rPath, std::string& rCause) {
    for (int i = 0; i < TRIES; ++i) {
        rPath = sStart + RandomText();
        // The system's folder for temporary files is the user's own, and what is made in it is too.
        if (::CreateDirectoryW(SystemPath(rPath).c_str(), nullptr)) return 1;
        const DWORD nError = ::GetLastError();
        rCause = CauseText(nError);
        if (nError != ERROR_ALREADY_EXISTS) break;
    }
    return 0;
}

int MoveOver(const std::filesystem::path& rFrom, const std::filesystem::path& rTo, std::string& rCause) {
    if (::MoveFileExW(rFrom.c_str(), rTo.c_str(), MOVEFILE_REPLACE_EXISTING)) return 1;
    rCause = CauseText(::GetLastError());
    return 0;
}

void RemoveNow(const wchar_t* pName, bool bFolder) noexcept {
    if (bFolder) {
        ::RemoveDirectoryW(pName);
    } else {
        ::DeleteFileW(pName);
    }
}
