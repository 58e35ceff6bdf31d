#pragma once
// Sets that case control asks for, and what acts in them.

#include "nas2zdt/check/DeckIds.h"

/// Finds out which sets hold or load anything.
class CSetCheck : public CCardTaker {
  public:
    CSetCheck(const CCheckDeck& rDeck, CDeckIds& rIds) : m_rDeck(rDeck), m_rIds(rIds) {}

    void TakeCard(const CCardFields& rCard) override;

    /// Behind the last card: tells of sets that are asked for and aren't there, or don't act.
    void TellSets(CFindings& rFindings) const;

  private:
    bool Acts(const CCardFields& rCard) const;
    bool Holds(const CCardFields& rCard) const;
    bool HoldsAnything(std::int32_t iSet) const;

    const CCheckDeck& m_rDeck;
    CDeckIds& m_rIds;
    std::string m_sKeyword;                        // of the card before
    bool m_bSupports = false, m_bMakesSet = false; // what its card is for
    std::int32_t m_iSet = 0;
    T_SET_D* m_pSet = nullptr; // of m_iSet, null before the first card of the keyword
    std::map<std::int32_t, std::vector<std::pair<std::int32_t, std::int32_t>>> m_mapSums; // ranges of sets of supports
};
