// What is the same on every system.

#include "platform/Worker.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

std::size_t ChooseThreads(std::size_t nWanted) noexcept {
    constexpr unsigned long MOST = 1024;
    if (nWanted > 0) return nWanted;
    const char* const sNumber = std::getenv("CONVERTNASTRAN_THREADS");
    char* pEnd = nullptr;
    const unsigned long nNumber = sNumber ? std::strtoul(sNumber, &pEnd, 10) : 0;
    const bool bNumber = nNumber > 0 && *pEnd == '\0';
    return bNumber ? std::min(nNumber, MOST) : CountCores();
}

CWorker::CWorker(std::function<void()> function, bool bBeside) : m_function(std::move(function)) {
    if (bBeside) m_pThread.reset(Begin(*this));
}

CWorker::~CWorker() = default;

void CWorker::Wait() {
    m_pThread.reset();
    Run(); // what has no thread
    if (m_pError) std::rethrow_exception(std::exchange(m_pError, nullptr));
}

void CWorker::Run() noexcept {
    if (!m_function) return;
    try {
        m_function();
    } catch (...) {
        m_pError = std::current_exception();
    }
    m_function = nullptr;
}
