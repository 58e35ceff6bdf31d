#pragma once
// What is wrong with a deck.

#include "nas2zdt/restate/Rule.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum E_SEVERITY : std::uint8_t {
    SEVERITY_ERROR,   // NASTRAN stops, or results are wrong
    SEVERITY_WARNING, // to be looked at
    SEVERITY_COUNT
};

/// A kind of finding. Each check has its own in a table.
struct T_FINDINGKIND_D {
    const char* sCODE; // stays: other programs know it
    E_SEVERITY eSEVERITY;
    const char* sMEANING; // for the documentation
};

/// One place where something is wrong.
struct T_PLACED_D {
    std::int32_t iID = 0;  // 0 for none
    T_ORIGINLINE_D origin; // line 0 for none
    std::string sTEXT;     // "GRID 99 doesn't exist"
};

/// What is wrong in one way with the cards of one keyword.
struct T_FINDING_D {
    static constexpr std::size_t MOST_PLACES = 20;

    const T_FINDINGKIND_D* pKIND;
    std::string sKEYWORD; // empty for what concerns the whole deck
    std::uint64_t nCOUNT = 0;
    std::vector<T_PLACED_D> aPLACES; // the first ones
};

/// Collects findings, in the order of the first time.
class CFindings {
  public:
    /// Whether the text of a further place is wanted: past the first ones it is only counted.
    bool WantsText(const T_FINDINGKIND_D& rKind, std::string_view sKeyword);

    void Add(const T_FINDINGKIND_D& rKind, std::string_view sKeyword, T_PLACED_D place);

    /// Counts nCount places without a text.
    void Count(const T_FINDINGKIND_D& rKind, std::string_view sKeyword, std::uint64_t nCount = 1);

    const std::vector<T_FINDING_D>& GetAll() const { return m_aFindings; }
    std::uint64_t GetCount(E_SEVERITY eSeverity) const;

  private:
    T_FINDING_D& Find(const T_FINDINGKIND_D& rKind, std::string_view sKeyword);

    std::vector<T_FINDING_D> m_aFindings;
    std::map<std::pair<const T_FINDINGKIND_D*, std::string>, std::size_t, std::less<>> m_mapFindings;
};
