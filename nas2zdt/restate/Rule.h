#pragma once
// What restating does, and where it did it.

#include "store/Left.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

/// A rule of restating. Each family of rules has its own in a table.
struct T_RULE_D {
    const char* sNAME;       // stays: --allow and other programs know it
    E_LOSS_CLASS eCLASS;     // CLASS_NOTE for what the restated deck says whole, else of what is left behind
    const char* sKEYWORDS;   // of the cards that it takes
    const char* sTAKES;      // what of them
    const char* sGIVES;      // what becomes of it, as the account tells it
    const char* sMENDS = ""; // kinds of loss of these cards that it does away with, all of them, between blanks
};

/// Where something was told: file by its number, and line.
struct T_ORIGINLINE_D {
    std::uint32_t iFILE = 0;
    std::int32_t iLINE = 0;
};

/// What a rule did to the cards of one keyword.
struct T_TOLD_D {
    static constexpr std::size_t MOST_PLACES = 100;

    const T_RULE_D* pRULE;
    std::string sKEYWORD;
    std::string sDETAIL; // what the rule doesn't say itself
    std::uint64_t nCOUNT = 0;
    std::vector<T_ORIGINLINE_D> aPLACES; // the first ones
};

/// Collects what the rules tell, in the order of the first time.
class CTold {
  public:
    void Tell(const T_RULE_D& rRule, std::string_view sKeyword, const T_ORIGINLINE_D& rPlace,
              std::string_view sDetail = {}, std::uint64_t nCount = 1);
    const std::vector<T_TOLD_D>& GetAll() const { return m_aTold; }

  private:
    static constexpr std::size_t MOST_DETAILS = 50; // of a rule and keyword, past which they share an entry

    using T_KEY = std::tuple<const T_RULE_D*, std::string, std::string>;

    std::size_t Find(const T_RULE_D& rRule, std::string_view sKeyword, std::string_view sDetail);

    std::vector<T_TOLD_D> m_aTold;
    std::map<T_KEY, std::size_t> m_mapTold;                                      // places
    std::map<std::pair<const T_RULE_D*, std::string>, std::size_t> m_mapDetails; // how many
    std::size_t m_iLast = 0;
};
