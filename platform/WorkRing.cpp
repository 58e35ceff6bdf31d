// Who makes what, and when.

#include "platform/WorkRing.h"

#include <utility>

CWorkRing::CWorkRing(std::size_t nThreads, std::function<bool(std::size_t)> begin,
                     std::function<void(std::size_t)> make)
    : m_nSlots(SlotsFor(nThreads)), m_begin(std::move(begin)), m_make(std::move(make)), m_aMade(m_nSlots) {
    m_aWorkers.reserve(nThreads); // a thread that has begun must have its place
    try {
        for (std::size_t i = 1; i < nThreads; ++i) {
            m_aWorkers.push_back(std::make_unique<CWorker>([this] { Work(); }));
            if (!m_aWorkers.back()->IsBeside()) break; // there are no more to be had
        }
    } catch (...) {
        Stop();
        throw;
    }
}

CWorkRing::~CWorkRing() {
    Stop();
}

void CWorkRing::Stop() noexcept {
    const std::lock_guard lock(m_mutex);
    m_bStopped = true;
    m_changed.notify_all();
}

/// What the threads do: make items until there are no more.
void CWorkRing::Work() {
    std::unique_lock lock(m_mutex);
    try {
        while (!m_bStopped && !m_bEnd) {
            if (!MakeOne(lock)) m_changed.wait(lock);
        }
    } catch (...) {
        if (!lock.owns_lock()) lock.lock();
        m_bStopped = true;
        m_changed.notify_all();
        throw;
    }
}

/// Makes the next item. False if none may be begun now.
bool CWorkRing::MakeOne(std::unique_lock<std::mutex>& rLock) {
    if (m_bEnd || m_iNext == m_nTaken + m_nSlots) return false;
    const std::size_t iSlot = m_iNext % m_nSlots;
    if (!m_begin(iSlot)) {
        m_bEnd = true;
        m_changed.notify_all();
        return true;
    }
    ++m_iNext;
    rLock.unlock();
    m_make(iSlot);
    rLock.lock();
    m_aMade[iSlot] = 1;
    m_changed.notify_all();
    return true;
}

std::size_t CWorkRing::Take() {
    std::unique_lock lock(m_mutex);
    if (std::exchange(m_bHolding, false)) {
        m_aMade[m_nTaken % m_nSlots] = 0;
        ++m_nTaken;
        m_changed.notify_all();
    }
    const std::size_t iSlot = m_nTaken % m_nSlots;
    while (!m_aMade[iSlot] && !m_bStopped) {
        if (m_bEnd && m_nTaken == m_iNext) return NONE;
        if (!MakeOne(lock)) m_changed.wait(lock);
    }
    if (m_aMade[iSlot]) {
        m_bHolding = true;
        return iSlot;
    }
    lock.unlock(); // a thread failed
    for (const auto& pWorker : m_aWorkers) {
        if (pWorker->IsBeside()) pWorker->Wait();
    }
    return NONE;
}
