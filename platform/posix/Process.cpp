// Processes of POSIX systems.

#include "platform/Process.h"

#include "platform/TempSystem.h"
#include "platform/posix/Calls.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

T_CHILD_D* g_pFirst = nullptr; // changes while nothing interrupts

/// Closed in every program that is started, unless that is told otherwise.
int MakePipe(CPipe& rReads, CPipe& rWrites, std::array<int, 2>& rEnds) {
    if (::pipe2(rEnds.data(), O_CLOEXEC) != 0) return 0;
    rReads = CPipe(rEnds[0]);
    rWrites = CPipe(rEnds[1]);
    return 1;
}

/// A copy of a standard stream, which itself leads nowhere from now on.
std::intptr_t Take(int iStream) {
    const int iCopy = ::fcntl(iStream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int iNowhere = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    if (iNowhere >= 0) ::dup2(iNowhere, iStream);
    if (iNowhere > STDERR_FILENO) ::close(iNowhere);
    return iCopy;
}

std::string EndText(int iStatus) {
    if (!WIFSIGNALED(iStatus)) return "ended with exit status " + std::to_string(WEXITSTATUS(iStatus));
    const int iSignal = WTERMSIG(iStatus);
    const char* const sName = ::strsignal(iSignal);
    return "ended by signal " + std::to_string(iSignal) + (sName ? " (" + std::string(sName) + ")" : "");
}

/// Starts the program with these streams. Returns an errno.
int Spawn(const std::string& sArgument, int iInput, int iOutput, pid_t& rProcess) {
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawn_file_actions_adddup2(&actions, iInput, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, iOutput, STDOUT_FILENO);
    sigset_t none; // threads of this process hold signals that are for the whole of it
    ::sigemptyset(&none);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    std::string sName = "nas2zdt", sCopy = sArgument;
    const std::array<char*, 3> aArguments{sName.data(), sCopy.data(), nullptr};
    const int iError = ::posix_spawn(&rProcess, "/proc/self/exe", &actions, &attributes, aArguments.data(), ::environ);
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    return iError;
}

} // namespace

int CPipe::Write(std::string_view sBytes) {
    const CHeldSignals held;
    while (!sBytes.empty()) {
        const ssize_t nWritten = ::write(static_cast<int>(m_iHandle), sBytes.data(), sBytes.size());
        if (nWritten < 0 && errno == EINTR) continue;
        if (nWritten < 0) return 0;
        sBytes.remove_prefix(static_cast<std::size_t>(nWritten));
    }
    return 1;
}

std::size_t CPipe::Read(char* pBuffer, std::size_t nSize) {
    std::size_t nAll = 0;
    while (nAll < nSize) {
        const ssize_t nRead = ::read(static_cast<int>(m_iHandle), pBuffer + nAll, nSize - nAll);
        if (nRead < 0 && errno == EINTR) continue;
        if (nRead <= 0) break;
        nAll += static_cast<std::size_t>(nRead);
    }
    return nAll;
}

void CPipe::Close() {
    if (m_iHandle != NONE) ::close(static_cast<int>(m_iHandle));
    m_iHandle = NONE;
}

CPipe CPipe::TakeInput() {
    return CPipe(Take(STDIN_FILENO));
}

CPipe CPipe::TakeOutput() {
    return CPipe(Take(STDOUT_FILENO));
}

int CChildProcess::Start(const std::string& sArgument, std::string& rCause) {
    Wait();
    CPipe input, output;
    std::array<int, 2> aIn{}, aOut{};
    int iError = 0;
    if (!MakePipe(input, m_input, aIn) || !MakePipe(m_output, output, aOut)) {
        iError = errno;
    } else {
        const CUninterrupted uninterrupted;
        pid_t iProcess = 0;
        iError = Spawn(sArgument, aIn[0], aOut[1], iProcess);
        if (iError == 0) {
            m_entry = {iProcess, g_pFirst};
            g_pFirst = &m_entry;
            return 1;
        }
    }
    m_input.Close();
    m_output.Close();
    rCause = CauseText(iError);
    return 0;
}

/// Its number may be another's as soon as the system has told its end: only then may it be off the list.
std::string CChildProcess::Reap() {
    const auto iProcess = static_cast<pid_t>(m_entry.iPROCESS);
    siginfo_t info{};
    while (::waitid(P_PID, static_cast<id_t>(iProcess), &info, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
    }
    const CUninterrupted uninterrupted;
    int iStatus = 0;
    ::waitpid(iProcess, &iStatus, 0);
    T_CHILD_D** ppEntry = &g_pFirst;
    while (*ppEntry != &m_entry) ppEntry = &(*ppEntry)->pNEXT;
    *ppEntry = m_entry.pNEXT;
    m_entry = {};
    return EndText(iStatus);
}

void EndChildProcesses() noexcept {
    constexpr int MOST_MILLISECONDS = 1500;
    for (const T_CHILD_D* p = g_pFirst; p; p = p->pNEXT) ::kill(static_cast<pid_t>(p->iPROCESS), SIGTERM);
    int nLeft = MOST_MILLISECONDS;
    for (const T_CHILD_D* p = g_pFirst; p; p = p->pNEXT) {
        const auto iProcess = static_cast<pid_t>(p->iPROCESS);
        while (::waitpid(iProcess, nullptr, WNOHANG) == 0 && nLeft-- > 0) ::poll(nullptr, 0, 1);
        if (nLeft <= 0) ::kill(iProcess, SIGKILL); // it holds the gentle signal
    }
}
