// Temporary paths on POSIX systems.

#include "platform/TempPath.h"
#include "platform/TempSystem.h"
#include "platform/posix/Calls.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
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

sigset_t g_before; // signals that were held before CUninterrupted held all

extern "C" void RemoveAndEnd(int iSignal) {
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

int CatchSignals() {
    for (const int iSignal : ENDING_SIGNALS) CatchIfDefault(iSignal);
#ifdef SIGRTMIN
    for (int iSignal = SIGRTMIN; iSignal <= SIGRTMAX; ++iSignal) CatchIfDefault(iSignal);
#endif
    return 1;
}

} // namespace

CUninterrupted::CUninterrupted() {
    [[maybe_unused]] static const int iCaught = CatchSignals();
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &g_before);
}

CUninterrupted::~CUninterrupted() {
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
