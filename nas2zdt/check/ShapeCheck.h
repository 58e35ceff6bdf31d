#pragma once
// Elements without a length, area or volume, folded or badly shaped ones, and orientations of bars.

#include "nas2zdt/check/CheckDeck.h"
#include "nas2zdt/check/GeometryTold.h"
#include "nas2zdt/check/Quality.h"

#include <cstdint>
#include <span>
#include <vector>

/// Looks at one element after the other.
class CShapeCheck {
  public:
    CShapeCheck(const CCheckDeck& rDeck, CGeometryTold& rTold) : m_rDeck(rDeck), m_rTold(rTold), m_qualities(rTold) {}

    /// Whether a grid comes more than once among the element's, which is told. Grids that are left out are 0.
    bool CheckNodes(const T_DECKELEMENT_D& rElement, E_BODY eBody, std::span<const std::int32_t> aNodes) {
        if (eBody == BODY_LINK) return false;
        bool bRepeated = false; // looking at all costs less than stopping
        for (std::size_t i = 1; i < aNodes.size(); ++i) {
            for (std::size_t k = 0; k < i; ++k) bRepeated |= aNodes[i] == aNodes[k] && aNodes[i] != 0;
        }
        if (bRepeated) TellRepeated(rElement, eBody);
        return bRepeated;
    }

    /// pCorners are the places of the element's corners. Nothing is said of one whose grid comes more than once but
    /// for a collapsed solid. False if it is a line of no length.
    bool CheckShape(const T_DECKELEMENT_D& rElement, E_BODY eBody, const T_VECTOR* const* pCorners, bool bRepeated);

    std::vector<T_QUALITY_D> GetQualities() const { return m_qualities.Get(); }

    /// About the geometric mean of the shortest edges of elements, which a few odd ones hardly move; 0 without any.
    double GetMeanEdge() const;

  private:
    void TellRepeated(const T_DECKELEMENT_D& rElement, E_BODY eBody);
    bool CheckLine(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners);
    void CheckOrientation(const T_DECKELEMENT_D& rElement, const T_VECTOR& rAxis);
    void CheckQuad(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners);
    void CheckTriangle(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners);
    void CheckSolid(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners, bool bCollapsed);
    void AddEdge(double dSquare);

    const CCheckDeck& m_rDeck;
    CGeometryTold& m_rTold;
    CQualities m_qualities;
    std::uint64_t m_nLogarithms = 0, m_nEdges = 0;
};
