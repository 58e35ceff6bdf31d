// What was read is kept by the first deck of the list that did.

#include "nas2zdt/command/ReadFiles.h"

void CReadFiles::Add(std::size_t iDeck, const T_INPUTS& rInputs) {
    const std::lock_guard lock(m_mutex);
    for (const auto& [rId, sWhat] : rInputs) {
        const auto [pFile, bNew] = m_mapFiles.try_emplace(rId, iDeck, sWhat);
        if (!bNew && iDeck < pFile->second.first) pFile->second = {iDeck, sWhat};
    }
}

void CReadFiles::End(std::size_t iDeck) {
    const std::lock_guard lock(m_mutex);
    m_aRead[iDeck] = true;
    while (m_nRead < m_aRead.size() && m_aRead[m_nRead]) ++m_nRead;
    m_changed.notify_all();
}

T_INPUTS CReadFiles::Find(std::size_t iDeck, const T_INPUTS& rFiles) {
    T_INPUTS found;
    std::unique_lock lock(m_mutex);
    if (!rFiles.empty()) m_changed.wait(lock, [&] { return m_nRead >= iDeck; });
    for (const auto& [rId, sWhat] : rFiles) {
        if (const auto pDeck = m_rDecks.find(rId); pDeck != m_rDecks.end()) found.insert(*pDeck);
        const auto pFile = m_mapFiles.find(rId);
        if (pFile != m_mapFiles.end() && pFile->second.first < iDeck) found.emplace(rId, pFile->second.second);
    }
    return found;
}
