// Batches of cards between two threads.

#include "nas2zdt/check/CardRelay.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::size_t BATCH = std::size_t{1} << 18; // bytes of text

} // namespace

CCardRelay::CCardRelay(CCardSink& rTarget, bool bBeside) : m_rTarget(rTarget) {
    m_worker.emplace([this] { Work(); }, bBeside);
}

CCardRelay::~CCardRelay() {
    const std::lock_guard lock(m_mutex);
    m_bEnd = m_bFailed = true; // nobody wants what is left
    m_changed.notify_all();
}

bool CCardRelay::OnCard(const T_SOURCECARD_D& rCard) {
    Put(rCard, false);
    return false; // the batch has its text
}

bool CCardRelay::OnLine(std::string_view sLine, const T_ORIGINLINE_D& rOrigin) {
    Put({sLine.data(), static_cast<std::uint32_t>(sLine.size()), rOrigin, 0, 0, true, true}, true);
    return true;
}

void CCardRelay::Put(T_SOURCECARD_D card, bool bLine) {
    if (Open().nTEXT > 0 && Open().nTEXT + card.nTEXT > Open().nROOM) HandOver();
    T_BATCH_D& rBatch = Open();
    if (card.nTEXT > rBatch.nROOM) {
        rBatch.nROOM = std::max<std::size_t>(BATCH, card.nTEXT);
        rBatch.pTEXT = std::make_unique<char[]>(rBatch.nROOM + CTextStore::SLACK);
    }
    char* const pText = rBatch.pTEXT.get() + rBatch.nTEXT;
    std::memcpy(pText, card.pTEXT, card.nTEXT);
    rBatch.nTEXT += card.nTEXT;
    card.pTEXT = pText;
    rBatch.aITEMS.push_back({card, bLine});
}

/// Lets the target have the batch that was filled, and begins another one.
void CCardRelay::HandOver() {
    if (!m_worker->IsBeside()) return Give(Open());
    std::unique_lock lock(m_mutex);
    ++m_nOpened;
    m_changed.notify_all();
    m_changed.wait(lock, [this] { return m_bFailed || m_nOpened - m_nTaken < BATCHES; });
    if (!m_bFailed) return;
    lock.unlock();
    m_worker->Wait();
}

void CCardRelay::Finish() {
    if (!m_worker->IsBeside()) return Give(Open());
    {
        const std::lock_guard lock(m_mutex);
        ++m_nOpened;
        m_bEnd = true;
        m_changed.notify_all();
    }
    m_worker->Wait();
}

/// What the thread does: takes batches until the last.
void CCardRelay::Work() {
    std::unique_lock lock(m_mutex);
    try {
        while (true) {
            m_changed.wait(lock, [this] { return m_bEnd || m_nTaken < m_nOpened; });
            if (m_bFailed || m_nTaken == m_nOpened) return;
            T_BATCH_D& rBatch = m_aBatches[m_nTaken % BATCHES];
            lock.unlock();
            Give(rBatch);
            lock.lock();
            ++m_nTaken;
            m_changed.notify_all();
        }
    } catch (...) {
        lock.lock();
        m_bFailed = true;
        m_changed.notify_all();
        throw;
    }
}

void CCardRelay::Give(T_BATCH_D& rBatch) {
    for (const T_ITEM_D& rItem : rBatch.aITEMS) {
        const bool bTaken = rItem.bLINE && m_rTarget.OnLine(rItem.card.Text(), rItem.card.origin);
        if (!bTaken) GiveCard(rItem);
    }
    rBatch.aITEMS.clear();
    rBatch.nTEXT = 0;
}

/// The text of a card stays where it is if the target wants it.
void CCardRelay::GiveCard(const T_ITEM_D& rItem) {
    T_SOURCECARD_D card = rItem.card;
    m_texts.Begin();
    if (rItem.bLINE) {
        m_texts.AppendLine(card.Text());
    } else {
        m_texts.Append(card.Text());
    }
    card.pTEXT = m_texts.GetOpen().data();
    card.nTEXT = static_cast<std::uint32_t>(m_texts.GetOpen().size());
    if (!m_rTarget.OnCard(card)) m_texts.Drop(card.Text());
}
