// The deck whose turn it is never waits, so the others don't wait for ever.

#include "nas2zdt/command/OrderedOutput.h"

/// Returns whether it is the deck's turn; else there is room.
bool COrderedOutput::WaitForRoom(std::unique_lock<std::mutex>& rLock, std::size_t iDeck, std::size_t nSize) {
    m_changed.wait(rLock, [&] { return iDeck == m_iTurn || m_nWaiting + nSize <= m_nMost; });
    if (iDeck == m_iTurn) return true;
    m_nWaiting += nSize;
    m_mapWaiting[iDeck].nSIZE += nSize;
    return false;
}

void COrderedOutput::Put(std::size_t iDeck, E_STREAM eStream, const std::string& sText) {
    std::unique_lock lock(m_mutex);
    if (WaitForRoom(lock, iDeck, sText.size())) {
        m_fnWrite(eStream, sText);
    } else {
        m_mapWaiting[iDeck].aTEXTS.emplace_back(eStream, sText);
    }
}

void COrderedOutput::End(std::size_t iDeck, std::function<void()> fnEnded, std::size_t nSize) {
    std::unique_lock lock(m_mutex);
    if (!WaitForRoom(lock, iDeck, nSize)) {
        m_mapWaiting[iDeck].fnENDED = std::move(fnEnded);
        return;
    }
    fnEnded();
    NextTurn();
}

/// Writes what waited for a turn that has come.
void COrderedOutput::NextTurn() {
    for (bool bEnded = true; bEnded;) {
        ++m_iTurn;
        const auto pWaiting = m_mapWaiting.find(m_iTurn);
        if (pWaiting == m_mapWaiting.end()) break;
        for (const auto& [eStream, sText] : pWaiting->second.aTEXTS) m_fnWrite(eStream, sText);
        bEnded = pWaiting->second.fnENDED != nullptr;
        if (bEnded) pWaiting->second.fnENDED();
        m_nWaiting -= pWaiting->second.nSIZE;
        m_mapWaiting.erase(pWaiting);
    }
    m_changed.notify_all();
}

void COrderedOutput::WaitForTurn(std::size_t iDeck) {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return iDeck == m_iTurn; });
}
