// Processes of Windows.

#include "platform/Process.h"

#include "platform/win32/Text.h"

#include <algorithm>

#include <windows.h>

namespace {

constexpr std::size_t LARGEST_PIECE = std::size_t{1} << 20;

HANDLE ToHandle(std::intptr_t iHandle) {
    return reinterpret_cast<HANDLE>(iHandle);
}

std::intptr_t ToNumber(HANDLE hHandle) {
    return reinterpret_cast<std::intptr_t>(hHandle);
}

/// A pipe whose end rTheirs a program that is started may be given.
int MakePipe(CPipe& rReads, CPipe& rWrites, HANDLE& rTheirs, bool bTheyRead) {
    HANDLE hReads = nullptr, hWrites = nullptr;
    if (!::CreatePipe(&hReads, &hWrites, nullptr, 0)) return 0;
    rReads = CPipe(ToNumber(hReads));
    rWrites = CPipe(ToNumber(hWrites));
    rTheirs = bTheyRead ? hReads : hWrites;
    return ::SetHandleInformation(rTheirs, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) ? 1 : 0;
}

std::wstring OwnPath() {
    std::wstring sPath(MAX_PATH, L'\0');
    for (;;) {
        const DWORD nLength = ::GetModuleFileNameW(nullptr, sPath.data(), static_cast<DWORD>(sPath.size()));
        if (nLength < sPath.size()) return sPath.substr(0, nLength);
        sPath.resize(sPath.size() * 2);
    }
}

/// The handles that a program which is started gets, and no others: pipes to its siblings would never end.
class CHandleList {
  public:
    explicit CHandleList(HANDLE (&aHandles)[3]) {
        SIZE_T nSize = 0;
        ::InitializeProcThreadAttributeList(nullptr, 1, 0, &nSize);
        m_sBytes.resize(nSize);
        if (!::InitializeProcThreadAttributeList(Get(), 1, 0, &nSize)) return;
        m_bMade = true;
        // one that isn't there, or a terminal's, can't be in the list
        std::size_t nHandles = 2;
        DWORD nFlags = 0;
        if (::GetHandleInformation(aHandles[2], &nFlags) && (nFlags & HANDLE_FLAG_INHERIT) != 0) nHandles = 3;
        ::UpdateProcThreadAttribute(Get(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, aHandles, nHandles * sizeof(HANDLE),
                                    nullptr, nullptr);
    }
    ~CHandleList() {
        if (m_bMade) ::DeleteProcThreadAttributeList(Get());
    }
    CHandleList(const CHandleList&) = delete;
    CHandleList& operator=(const CHandleList&) = delete;

    LPPROC_THREAD_ATTRIBUTE_LIST Get() { return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(m_sBytes.data()); }

  private:
    std::string m_sBytes;
    bool m_bMade = false;
};

std::intptr_t Take(DWORD nStandard) {
    const HANDLE hStream = ::GetStdHandle(nStandard);
    ::SetStdHandle(nStandard, nullptr);
    return ToNumber(hStream);
}

} // namespace

int CPipe::Write(std::string_view sBytes) {
    while (!sBytes.empty()) {
        DWORD nWritten = 0;
        const auto nPiece = static_cast<DWORD>(std::min(sBytes.size(), LARGEST_PIECE));
        if (!::WriteFile(ToHandle(m_iHandle), sBytes.data(), nPiece, &nWritten, nullptr)) return 0;
        sBytes.remove_prefix(nWritten);
    }
    return 1;
}

std::size_t CPipe::Read(char* pBuffer, std::size_t nSize) {
    std::size_t nAll = 0;
    while (nAll < nSize) {
        DWORD nRead = 0;
        const auto nPiece = static_cast<DWORD>(std::min(nSize - nAll, LARGEST_PIECE));
        if (!::ReadFile(ToHandle(m_iHandle), pBuffer + nAll, nPiece, &nRead, nullptr) || nRead == 0) break;
        nAll += nRead;
    }
    return nAll;
}

void CPipe::Close() {
    if (m_iHandle != NONE) ::CloseHandle(ToHandle(m_iHandle));
    m_iHandle = NONE;
}

CPipe CPipe::TakeInput() {
    return CPipe(Take(STD_INPUT_HANDLE));
}

CPipe CPipe::TakeOutput() {
    return CPipe(Take(STD_OUTPUT_HANDLE));
}

int CChildProcess::Start(const std::string& sArgument, std::string& rCause) {
    Wait();
    CPipe input, output;
    HANDLE aHandles[3] = {nullptr, nullptr, ::GetStdHandle(STD_ERROR_HANDLE)};
    PROCESS_INFORMATION process{};
    BOOL bStarted = FALSE;
    if (MakePipe(input, m_input, aHandles[0], true) && MakePipe(m_output, output, aHandles[1], false)) {
        CHandleList handles(aHandles);
        STARTUPINFOEXW start{};
        start.StartupInfo.cb = sizeof start;
        start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
        start.StartupInfo.hStdInput = aHandles[0];
        start.StartupInfo.hStdOutput = aHandles[1];
        start.StartupInfo.hStdError = aHandles[2];
        start.lpAttributeList = handles.Get();
        std::wstring sLine = L"nas2zdt " + Widen(sArgument);
        bStarted = ::CreateProcessW(OwnPath().c_str(), sLine.data(), nullptr, nullptr, TRUE,
                                    EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr, &start.StartupInfo, &process);
    }
    if (bStarted) {
        ::CloseHandle(process.hThread);
        m_entry.iPROCESS = ToNumber(process.hProcess);
        return 1;
    }
    rCause = CauseText(::GetLastError());
    m_input.Close();
    m_output.Close();
    return 0;
}

std::string CChildProcess::Reap() {
    const HANDLE hProcess = ToHandle(m_entry.iPROCESS);
    DWORD nStatus = 0;
    ::WaitForSingleObject(hProcess, INFINITE);
    ::GetExitCodeProcess(hProcess, &nStatus);
    ::CloseHandle(hProcess);
    m_entry = {};
    return "ended with exit status " + std::to_string(nStatus);
}

void EndChildProcesses() noexcept {} // the system tells them of Ctrl-C itself
