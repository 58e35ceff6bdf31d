// Kinds of findings of the geometry.

#include "nas2zdt/check/GeometryTold.h"

#include "nas2zdt/check/Geometry.h"
#include "writer/Numbers.h"

#include <array>
#include <utility>

namespace {

constexpr std::array<T_FINDINGKIND_D, GEOMETRY_COUNT> KINDS = {{
    {"repeated-node", SEVERITY_ERROR, "a grid comes more than once in a line, a plate or a tetrahedron"},
    {"collapsed-solid", SEVERITY_WARNING, "a grid comes more than once in another solid"},
    {"no-length", SEVERITY_ERROR, "both ends of a line are at the same place"},
    {"no-area", SEVERITY_ERROR, "the corners of a plate are on one line, or its sides cross so that nothing is left"},
    {"no-volume", SEVERITY_ERROR, "the corners of a solid are in one plane"},
    {"inside-out", SEVERITY_ERROR, "the corners of a solid go round in the wrong sense"},
    {"bad-corner", SEVERITY_ERROR, "a quad is concave or its sides cross, or a solid is folded, at a corner"},
    {"no-orientation", SEVERITY_ERROR, "a CBAR or CBEAM has no orientation, from its card or from defaults"},
    {"zero-orientation", SEVERITY_ERROR, "the orientation of a CBAR or CBEAM is of no length"},
    {"parallel-orientation", SEVERITY_ERROR, "the orientation of a CBAR or CBEAM is along its axis"},
    {"same-id", SEVERITY_ERROR, "several different elements have one id"},
    {"same-card", SEVERITY_WARNING, "an element comes again with the same id, grids and property"},
    {"same-element", SEVERITY_WARNING, "plates or solids have the same corners and the same property"},
    {"same-corners", SEVERITY_WARNING, "lines have the same ends, or plates or solids the same corners"},
    {"free-grid", SEVERITY_WARNING, "a grid that no element or link uses, no bar or frame names, and that isn't held"},
    {"parts", SEVERITY_WARNING, "the model is in parts that no element or link joins"},
    {"coincident-grids", SEVERITY_WARNING, "grids are at the same place, and nothing links them"},
    {"poor-warp", SEVERITY_WARNING, "a quad isn't plane"},
    {"poor-skew", SEVERITY_WARNING, "a quad or the corner of a solid is sheared"},
    {"poor-aspect", SEVERITY_WARNING, "a plate or a tetrahedron is long for its width or height"},
    {"poor-taper", SEVERITY_WARNING, "a quad is much narrower at one side"},
    {"poor-angle", SEVERITY_WARNING, "a triangle has a very large angle"},
}};
static_assert(KINDS[GEOMETRY_ANGLE].sMEANING);

} // namespace

std::span<const T_FINDINGKIND_D> GetGeometryKinds() {
    return KINDS;
}

CGeometryTold::CGeometryTold(const CCheckDeck& rDeck, CFindings& rFindings)
    : m_rDeck(rDeck), m_rFindings(rFindings), m_iGrid(GetElementKinds().size()),
      m_aCounts(GEOMETRY_COUNT * (m_iGrid + 1)) {}

std::string_view CGeometryTold::GetKeyword(std::size_t iKeyword) const {
    return iKeyword == m_iGrid ? "GRID" : GetElementKinds()[iKeyword].sKEYWORD;
}

void CGeometryTold::Add(E_GEOMETRY eKind, std::size_t iKeyword, T_PLACED_D place) {
    m_rFindings.Add(KINDS[eKind], GetKeyword(iKeyword), std::move(place));
}

void CGeometryTold::TellDeck(E_GEOMETRY eKind, std::string sText) {
    m_rFindings.Add(KINDS[eKind], {}, {0, {}, std::move(sText)});
}

void CGeometryTold::Finish() {
    for (std::size_t i = 0; i < m_aCounts.size(); ++i) {
        if (m_aCounts[i] <= T_FINDING_D::MOST_PLACES) continue;
        m_rFindings.Count(KINDS[i / (m_iGrid + 1)], GetKeyword(i % (m_iGrid + 1)),
                          m_aCounts[i] - T_FINDING_D::MOST_PLACES);
    }
    m_aCounts.assign(m_aCounts.size(), 0);
}

std::string CGeometryTold::Name(const T_DECKELEMENT_D& rElement) const {
    return std::string(rElement.GetKind().sKEYWORD) + " " + std::to_string(rElement.iEID) + " (" +
           m_rDeck.GetPlace(rElement.origin) + ")";
}

std::string CGeometryTold::NameGrid(std::size_t iRow) const {
    return "GRID " + std::to_string(m_rDeck.GetGrids().GetIds()[iRow]) + " (" +
           m_rDeck.GetPlace(m_rDeck.GetGrids().GetOrigin(iRow)) + ")";
}

std::string ShowNumber(double dValue) {
    std::array<char, LONGEST_REAL> aText;
    return {aText.data(), PutReal(aText.data(), dValue)};
}
