// Threads of Windows.

#include "platform/Worker.h"

#include <bit>
#include <new>

#include <windows.h>

#include <process.h>

namespace {

constexpr unsigned STACK = 1u << 18;

} // namespace

std::size_t CountCores() noexcept {
    DWORD_PTR nOwn = 0, nAll = 0;
    if (!GetProcessAffinityMask(GetCurrentProcess(), &nOwn, &nAll) || nOwn == 0) return 1;
    return static_cast<std::size_t>(std::popcount(nOwn));
}

struct CWorker::T_THREAD_D {
    HANDLE hTHREAD;
};

void CWorker::T_THREADENDS_D::operator()(T_THREAD_D* pThread) const {
    WaitForSingleObject(pThread->hTHREAD, INFINITE);
    CloseHandle(pThread->hTHREAD);
    delete pThread;
}

CWorker::T_THREAD_D* CWorker::Begin(CWorker& rWorker) noexcept {
    std::unique_ptr<T_THREAD_D> pThread(new (std::nothrow) T_THREAD_D);
    if (!pThread) return nullptr;
    const auto run = [](void* pWorker) -> unsigned {
        static_cast<CWorker*>(pWorker)->Run();
        return 0;
    };
    const std::uintptr_t nThread =
        _beginthreadex(nullptr, STACK, run, &rWorker, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    if (nThread == 0) return nullptr;
    pThread->hTHREAD = reinterpret_cast<HANDLE>(nThread); // NOLINT: it is one
    return pThread.release();
}
