// What is the same on every system.

#include "platform/Worker.h"

#include <utility>

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
