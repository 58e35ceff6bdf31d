#pragma once
// What the command watches of a run: the account, the progress, and the names of lines.

#include "nas2zdt/account/Account.h"
#include "nas2zdt/command/Terminal.h"
#include "nas2zdt/flatten/LineMap.h"
#include "reader/DeckObserver.h"

#include <string>

/// Hands on what a run tells to those who asked for it.
class CRunWatch : public CDeckObserver {
  public:
    /// pAccount and pLines are null if nobody asked for them; sDeck is the main deck as the user named it.
    CRunWatch(CAccount* pAccount, const CLineMap* pLines, std::string sDeck, CProgressLine& rProgress)
        : m_pAccount(pAccount), m_pLines(pLines), m_sDeck(std::move(sDeck)), m_rProgress(rProgress) {}

    /// Whether there is anything to watch.
    bool IsNeeded() const { return m_pAccount || m_pLines || m_rProgress.IsShown(); }

    void OnDeckBegin(const std::string& sPath) override;
    void OnDeckEnd(bool bBulk) override {
        if (m_pAccount) m_pAccount->EndDeck(bBulk);
    }
    void OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) override {
        if (m_pAccount) m_pAccount->AddCard(rCard, rUse, iFirst, iLast);
    }
    void OnLoss(const T_LOSS_D& rLoss) override {
        if (m_pAccount) m_pAccount->AddLoss(rLoss);
    }
    void OnFieldsDeleted(std::size_t nFields, std::int32_t iLine) override {
        if (m_pAccount) m_pAccount->AddDeletedFields(nFields, iLine);
    }
    void OnLeft(const T_LEFT_D& rLeft) override {
        if (m_pAccount) m_pAccount->AddLeft(rLeft);
    }
    void OnBytesRead(std::uint64_t nBytes) override { m_rProgress.Update(nBytes); }
    std::string LineText(std::int32_t iLine) const override;

  private:
    CAccount* m_pAccount;
    const CLineMap* m_pLines;
    std::string m_sDeck;
    CProgressLine& m_rProgress;
    bool m_bMain = true; // whether the main deck is still to come
};
