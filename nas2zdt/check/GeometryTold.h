#pragma once
// Findings of the geometry, of which there may be millions.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/Findings.h"

#include <cstdint>
#include <string>
#include <vector>

/// In the order of GetGeometryKinds().
enum E_GEOMETRY : std::uint8_t {
    GEOMETRY_REPEATED,
    GEOMETRY_COLLAPSED,
    GEOMETRY_NO_LENGTH,
    GEOMETRY_NO_AREA,
    GEOMETRY_NO_VOLUME,
    GEOMETRY_INSIDE_OUT,
    GEOMETRY_CORNER,
    GEOMETRY_NO_ORIENTATION,
    GEOMETRY_ZERO_ORIENTATION,
    GEOMETRY_PARALLEL_ORIENTATION,
    GEOMETRY_SAME_ID,
    GEOMETRY_SAME_CARD,
    GEOMETRY_SAME_ELEMENT,
    GEOMETRY_SAME_CORNERS,
    GEOMETRY_FREE_GRID,
    GEOMETRY_PARTS,
    GEOMETRY_COINCIDENT,
    GEOMETRY_WARP,
    GEOMETRY_SKEW,
    GEOMETRY_ASPECT,
    GEOMETRY_TAPER,
    GEOMETRY_ANGLE,
    GEOMETRY_COUNT
};

/// Hands findings on, as texts only as long as those are kept.
class CGeometryTold {
  public:
    CGeometryTold(const CCheckDeck& rDeck, CFindings& rFindings);

    /// makeText() gives the text of a finding.
    template <class TEXT>
    void Tell(E_GEOMETRY eKind, const T_DECKELEMENT_D& rElement, TEXT makeText) {
        if (IsKept(eKind, rElement.iKIND)) Add(eKind, rElement.iKIND, {rElement.iEID, rElement.origin, makeText()});
    }
    template <class TEXT>
    void TellGrid(E_GEOMETRY eKind, std::size_t iRow, TEXT makeText) {
        if (!IsKept(eKind, m_iGrid)) return;
        const std::int32_t iGrid = m_rDeck.GetGrids().GetIds()[iRow];
        Add(eKind, m_iGrid, {iGrid, m_rDeck.GetGrids().GetOrigin(iRow), makeText()});
    }
    void TellDeck(E_GEOMETRY eKind, std::string sText);

    /// Counts the findings that came without a text. Comes last.
    void Finish();

    /// "CBAR 7 (deck.bdf:13)".
    std::string Name(const T_DECKELEMENT_D& rElement) const;
    std::string NameGrid(std::size_t iRow) const;

  private:
    bool IsKept(E_GEOMETRY eKind, std::size_t iKeyword) {
        return m_aCounts[eKind * (m_iGrid + 1) + iKeyword]++ < T_FINDING_D::MOST_PLACES;
    }
    void Add(E_GEOMETRY eKind, std::size_t iKeyword, T_PLACED_D place);
    std::string_view GetKeyword(std::size_t iKeyword) const;

    const CCheckDeck& m_rDeck;
    CFindings& m_rFindings;
    std::size_t m_iGrid;                  // behind the keywords of elements
    std::vector<std::uint64_t> m_aCounts; // by kind and keyword
};

/// In six digits.
std::string ShowNumber(double dValue);
