// Temporary paths on POSIX systems.

#include "platform/TempPath.h"

#include "platform/Process.h"
#include "platform/TempSystem.h"
#include "platform/posix/Calls.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <poll.h>
#include <sched.h>
#include <signal.h>
#include <unistd.h>
#include <utility>

namespace {

/// Those that end a program by default and can be caught.
constexpr int ENDING_SIGNALS[] = {
    SIGHUP,    SIGINT,  SIGQUIT, SIGILL,  SIGTRAP, SIGABRT, SIGBUS,    SIGFPE,  SIGUSR1, SIGSEGV,
    SIGUSR2,   SIGPIPE, SIGALRM, SIGTERM, SIGXCPU, SIGXFSZ, SIGVTALRM, SIGPROF, SIGSYS,
#ifdef SIGSTKFLT
    SIGSTKFLT,
#endif
#ifdef SIGPOLL
    SIGPOLL,
#endif
#ifdef SIGPWR
    SIGPWR,
#endif
};

std::atomic_flag g_locked;      // unlike a mutex, it may be tried in the handler of a signal
thread_local sigset_t g_before; // signals that were held before CUninterrupted held all

/// Keeps the lock, so that the program, which ends next, makes no more files. Whoever has it is on another thread and
/// soon done, unless the program aborts in between: nobody waits for that.
extern "C" void RemoveAndEnd(int iSignal) {
    constexpr int MOST_MILLISECONDS = 1000;
    for (int i = 0; i < MOST_MILLISECONDS && g_locked.test_and_set(std::memory_order_acquire); ++i) {
        ::poll(nullptr, 0, 1);
    }
    EndChildProcesses();
    RemoveTempPaths();
    // the signal does what it did before; it is held until this function returns
    std::signal(iSignal, SIG_DFL);
    ::raise(iSignal);
}

/// What the program ignores, or meets in its own way, stays so.
void CatchIfDefault(int iSignal) {
    struct sigaction action {};
    if (::sigaction(iSignal, nullptr, &action) != 0 || action.sa_handler != SIG_DFL) return;
    action = {};
    action.sa_handler = &RemoveAndEnd;
    ::sigfillset(&action.sa_mask);
    ::sigaction(iSignal, &action, nullptr);
}

} // namespace

void CatchInterruptions() {
    for (const int iSignal : ENDING_SIGNALS) CatchIfDefault(iSignal);
#ifdef SIGRTMIN
    for (int iSignal = SIGRTMIN; iSignal <= SIGRTMAX; ++iSignal) CatchIfDefault(iSignal);
#endif
}

CUninterrupted::CUninterrupted() {
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &g_before);
    while (g_locked.test_and_set(std::memory_order_acquire)) ::sched_yield();
}

CUninterrupted::~CUninterrupted() {
    g_locked.clear(std::memory_order_release);
    ::pthread_sigmask(SIG_SETMASK, &g_before, nullptr);
}

std::filesystem::path SystemName(const std::string& sPath) {
    return sPath;
}

int MakePrivateFolder(const std::string& sStart, std::string& rPath, std::string& rCause) {
    std::string sPath = sStart + "XXXXXX";
    if (!::mkdtemp(sPath.data())) {
        rCause = CauseText(errno);
        return 0;
    }
    rPath = std::move(sPath);
    return 1;
}

int MoveOver(const std::filesystem::path& rFrom, const std::filesystem::path& rTo, std::string& rCause) {
    if (::rename(rFrom.c_str(), rTo.c_str()) == 0) return 1;
    rCause = CauseText(errno);
    return 0;
}

void RemoveNow(const char* pName, bool bFolder) noexcept {
    if (bFolder) {
        ::rmdir(pName);
    } else {
        ::unlink(pName);
    }
}
