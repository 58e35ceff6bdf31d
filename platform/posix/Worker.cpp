// Threads of POSIX systems.

#include "platform/Worker.h"

#include <new>

#include <pthread.h>
#include <sched.h>
#include <signal.h>
#include <unistd.h>

namespace {

constexpr std::size_t STACK = std::size_t{1} << 18;

} // namespace

std::size_t CountCores() noexcept {
#ifdef CPU_COUNT
    cpu_set_t cores;
    if (sched_getaffinity(0, sizeof cores, &cores) == 0 && CPU_COUNT(&cores) > 0) {
        return static_cast<std::size_t>(CPU_COUNT(&cores));
    }
#endif
    const long nCores = sysconf(_SC_NPROCESSORS_ONLN);
    return nCores > 0 ? static_cast<std::size_t>(nCores) : 1;
}

struct CWorker::T_THREAD_D {
    pthread_t id;
};

void CWorker::T_THREADENDS_D::operator()(T_THREAD_D* pThread) const {
    pthread_join(pThread->id, nullptr);
    delete pThread;
}

/// Signals stay with the threads of the host.
CWorker::T_THREAD_D* CWorker::Begin(CWorker& rWorker) noexcept {
    std::unique_ptr<T_THREAD_D> pThread(new (std::nothrow) T_THREAD_D);
    pthread_attr_t attributes;
    if (!pThread || pthread_attr_init(&attributes) != 0) return nullptr;
    pthread_attr_setstacksize(&attributes, STACK);
    sigset_t all, before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const auto run = [](void* pWorker) -> void* {
        static_cast<CWorker*>(pWorker)->Run();
        return nullptr;
    };
    const bool bBegun = pthread_create(&pThread->id, &attributes, run, &rWorker) == 0;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    pthread_attr_destroy(&attributes);
    return bBegun ? pThread.release() : nullptr;
}
