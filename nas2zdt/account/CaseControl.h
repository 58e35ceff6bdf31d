#pragma once
// What the case control asks for, against what the file has.

#include "nas2zdt/account/Losses.h"
#include "nas2zdt/text/CaseRequests.h"
#include "reader/Card.h"

#include <cstdint>
#include <map>
#include <set>
#include <string_view>
#include <vector>

class CDataPool;

/// Sets or subcases with one fault.
struct T_CASELOSS_D {
    E_NOTE eNOTE;
    const char* sKEYWORD; // of the cards that make such sets
    std::set<std::int32_t> aIDS;
};

/// Reads the control lines of a deck, then compares. A file has one set of supports, one of equations and one of
/// eigenvalues, whatever subcases ask for, and a load case for each load set.
class CCaseControl {
  public:
    /// A deck begins: its case control is behind its CEND.
    void BeginDeck() { m_bReading = false; }
    void AddLine(std::string_view sText);

    /// Sets that are made of others: of the cards, SPCADD and MPCADD count.
    void AddCard(const T_DATA_D& rCard);

    /// After the run. A deck without case control asks for nothing and loses nothing.
    std::vector<T_CASELOSS_D> Find(const CDataPool& rPool) const;

  private:
    using T_SUMS = std::map<std::int32_t, std::set<std::int32_t>>;

    template <class HAS>
    static void FindSets(const std::vector<T_CASE_D>& rCases, std::int32_t T_CASE_D::*pAsked, const T_SUMS& rSums,
                         std::int32_t iInFile, bool bInFile, HAS has, const char* sKeyword,
                         std::vector<T_CASELOSS_D>& rLosses);
    void FindLoads(const std::vector<T_CASE_D>& rCases, const CDataPool& rPool,
                   std::vector<T_CASELOSS_D>& rLosses) const;

    bool m_bReading = false;
    bool m_bControlled = false; // whether there was a CEND
    CCaseRequests m_requests;
    T_SUMS m_mapSpcSums, m_mapMpcSums;
};
