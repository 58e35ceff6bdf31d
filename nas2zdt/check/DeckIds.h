#pragma once
// The ids that cards of a deck can refer to.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/IdSet.h"
#include "nas2zdt/check/ReferenceKinds.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Properties that serve the same elements. No two of a family share an id.
struct T_FAMILY_D {
    std::string_view sNAME;     // "PSHELL/PCOMP"
    std::string_view sKEYWORDS; // between blanks
    std::string_view sELEMENTS; // between blanks; empty for what isn't checked
};
std::span<const T_FAMILY_D> GetFamilies();
constexpr std::size_t FAMILY_COUNT = 17;
constexpr std::size_t NO_FAMILY = FAMILY_COUNT;

/// The family for an element, or of a property; NO_FAMILY if there is none.
std::size_t FindFamilyOfElement(std::string_view sKeyword);
std::size_t FindFamilyOfProperty(std::string_view sKeyword);

struct T_PROPERTY_D {
    std::string_view sKEYWORD;
    T_ORIGINLINE_D origin;
    bool bTHICK = true; // false for a PSHELL without a thickness, which its elements must have then
};

enum E_SETKIND : std::uint8_t {
    SETS_SUPPORTS,
    SETS_EQUATIONS,
    SETS_LOADS,
    SETS_TEMPERATURES,
    SETS_METHODS,
    SETS_COUNT
};

/// A set of supports, loads and so on.
struct T_SET_D {
    std::string_view sKEYWORD; // of its first card
    T_ORIGINLINE_D origin;
    bool bSUM = false;  // of other sets
    bool bOWN = false;  // has cards that aren't sums
    bool bACTS = false; // whether a card of it holds or loads anything
};

/// Collects ids. An id of a card whose keyword isn't known, or that can't be read whole, counts as whatever it may be.
class CDeckIds : public CCardTaker {
  public:
    /// Findings are of ids that come twice.
    CDeckIds(const CCheckDeck& rDeck, CFindings& rFindings);

    /// Takes the cards that make what others refer to.
    void TakeCard(const CCardFields& rCard) override;

    /// Call it behind the last card.
    void Finish();

    bool HasGrid(std::int32_t iID) const { return m_grids.Has(iID) || m_rDeck.HasGrid(iID) || IsOther('G', iID); }
    bool HasPoint(std::int32_t iID) const { return HasGrid(iID) || IsScalar(iID); }
    bool HasFrame(std::int32_t iID) const { return m_rDeck.GetFrames().GetCards().Has(iID) || IsOther('F', iID); }
    bool HasMaterial(std::int32_t iID) const;
    bool HasSet(E_SETKIND eKind, std::int32_t iID) const { return FindSet(eKind, iID) || IsOtherSet(iID); }
    bool IsSurface(std::int32_t iEID) const { return m_surfaces.Has(iEID); } // an element
    bool IsOtherElement(std::int32_t iID) const { return IsOther('C', iID); }
    bool IsOtherSet(std::int32_t iSet) const { return IsOther('S', iSet); }
    bool IsOtherProperty(std::int32_t iID) const { return IsOther('P', iID); }

    /// Whether there is any from iFirst to iLast.
    bool HasPointIn(std::int32_t iFirst, std::int32_t iLast) const;
    bool HasElementIn(std::int32_t iFirst, std::int32_t iLast) const;
    bool HasSetIn(E_SETKIND eKind, std::int32_t iFirst, std::int32_t iLast) const;

    const T_PROPERTY_D* FindProperty(std::size_t iFamily, std::int32_t iPID) const {
        return m_properties[iFamily].Find(iPID);
    }
    const T_SET_D* FindSet(E_SETKIND eKind, std::int32_t iID) const;
    std::map<std::int32_t, T_SET_D>& GetSets(E_SETKIND eKind) { return m_aSets[eKind]; }

  private:
    struct T_ROLE_D {
        std::string sKEYWORD;
        const T_CARDFORMAT_D* pFORMAT;
        std::size_t iFAMILY;
        std::array<bool, SETS_COUNT> bSETS;
        char cOTHER; // what its id may be: the initial letter of such cards, "F" for frames; "-" for nothing
    };
    const T_ROLE_D& FindRole(std::string_view sKeyword);
    void Put(CIdTable<T_PROPERTY_D>& rTable, std::int32_t iID, const T_PROPERTY_D& rProperty);
    void AddPoints(const CCardFields& rCard);
    void AddProperties(const CCardFields& rCard, std::size_t iFamily);
    void AddMaterial(const CCardFields& rCard);
    void AddSets(const CCardFields& rCard, const T_ROLE_D& rRole);
    void AddOther(const CCardFields& rCard, char cKind);
    bool IsScalar(std::int32_t iID) const { return IsScalarIn(iID, iID); }
    bool IsScalarIn(std::int32_t iFirst, std::int32_t iLast) const;
    bool IsOther(char cKind, std::int32_t iID) const;

    const CCheckDeck& m_rDeck;
    CFindings& m_rFindings;
    T_ROLE_D m_role{{}, nullptr, NO_FAMILY, {}, '-'}; // of the card in hand
    std::int32_t m_iLastSet = 0;                      // that the role's card before made
    CIdSet m_grids, m_surfaces;
    std::array<CIdTable<T_PROPERTY_D>, FAMILY_COUNT> m_properties;
    CIdTable<T_PROPERTY_D> m_materials, m_thermal;
    std::array<std::map<std::int32_t, T_SET_D>, SETS_COUNT> m_aSets;
    std::vector<std::pair<std::int32_t, std::int32_t>> m_aScalars; // from, to; sorted and apart in the end
    std::map<char, std::vector<std::int32_t>> m_mapOthers;         // sorted in the end
    mutable std::vector<std::int32_t> m_aSortedGrids, m_aSortedElements;
};
