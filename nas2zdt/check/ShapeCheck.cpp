// Tells what is wrong with shapes.

#include "nas2zdt/check/ShapeCheck.h"

#include "nas2zdt/check/Shape.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <string>

namespace {

bool IsCollapsible(E_BODY eBody) {
    return eBody == BODY_WEDGE || eBody == BODY_HEXA || eBody == BODY_PYRAMID;
}

/// "GRID 3, GRID 7".
std::string ShowGrids(const std::vector<std::int32_t>& rGrids) {
    std::string sShown;
    for (const std::int32_t iGrid : rGrids) sShown += (sShown.empty() ? "GRID " : ", GRID ") + std::to_string(iGrid);
    return sShown;
}

std::string ShowRepeated(std::span<const std::int32_t> aNodes) {
    std::vector<std::int32_t> aRepeated;
    for (const std::int32_t iNode : aNodes) {
        if (iNode != 0 && std::ranges::count(aNodes, iNode) > 1 && std::ranges::count(aRepeated, iNode) == 0) {
            aRepeated.push_back(iNode);
        }
    }
    return ShowGrids(aRepeated) + (aRepeated.size() == 1 ? " comes" : " come") + " more than once";
}

} // namespace

/// The bits of a double above 0 are its logarithm to base 2 but for a tenth, times 2^52 and from -1023 on.
void CShapeCheck::AddEdge(double dSquare) {
    if (!(dSquare > 0.0)) return;
    m_nLogarithms += std::bit_cast<std::uint64_t>(dSquare) >> 32;
    ++m_nEdges;
}

double CShapeCheck::GetMeanEdge() const {
    if (m_nEdges == 0) return 0.0;
    const double dMean = static_cast<double>(m_nLogarithms) / static_cast<double>(m_nEdges);
    return std::exp2((std::ldexp(dMean, -20) - 1023.0) / 2);
}

void CShapeCheck::TellRepeated(const T_DECKELEMENT_D& rElement, E_BODY eBody) {
    m_rTold.Tell(IsCollapsible(eBody) ? GEOMETRY_COLLAPSED : GEOMETRY_REPEATED, rElement,
                 [&] { return ShowRepeated(m_rDeck.GetNodes(rElement)); });
}

bool CShapeCheck::CheckShape(const T_DECKELEMENT_D& rElement, E_BODY eBody, const T_VECTOR* const* pCorners,
                             bool bRepeated) {
    if (eBody == BODY_LINK || (bRepeated && !IsCollapsible(eBody))) return true;
    switch (eBody) {
    case BODY_LINE:
        return CheckLine(rElement, pCorners);
    case BODY_TRIANGLE:
        CheckTriangle(rElement, pCorners);
        break;
    case BODY_QUAD:
        CheckQuad(rElement, pCorners);
        break;
    default:
        CheckSolid(rElement, pCorners, bRepeated);
    }
    return true;
}

/// Ends are at one place if they are as close as positions of their size that are worked out in two ways.
bool CShapeCheck::CheckLine(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners) {
    const T_VECTOR axis = Subtract(*pCorners[1], *pCorners[0]);
    if (Largest(axis) <= SLIGHT * Largest(*pCorners[0])) {
        m_rTold.Tell(GEOMETRY_NO_LENGTH, rElement, [&] {
            const std::span<const std::int32_t> aNodes = m_rDeck.GetCorners(rElement);
            return ShowGrids({aNodes.begin(), aNodes.end()}) + " are at the same place";
        });
        return false;
    }
    AddEdge(Dot(axis, axis));
    CheckOrientation(rElement, axis);
    return true;
}

/// Offsets of the ends aren't looked at.
void CShapeCheck::CheckOrientation(const T_DECKELEMENT_D& rElement, const T_VECTOR& rAxis) {
    constexpr double PARALLEL = 1e-4; // sine of the angle: a fifth digit of the vector is all that makes it
    const std::string_view sKeyword = rElement.GetKind().sKEYWORD;
    if (sKeyword != "CBAR" && sKeyword != "CBEAM") return;
    const T_ORIENTATION_D* pOrientation = m_rDeck.FindOrientation(rElement);
    if (!pOrientation || (!pOrientation->iG0 && !pOrientation->vector)) {
        m_rTold.Tell(GEOMETRY_NO_ORIENTATION, rElement, [] { return "no orientation is given"; });
        return;
    }
    T_VECTOR vector;
    if (!m_rDeck.FindVector(rElement, vector) || !IsFinite(vector)) return;
    const auto showVector = [&] {
        if (pOrientation->iG0) return "GRID " + std::to_string(*pOrientation->iG0);
        return "vector " + ShowNumber(vector[0]) + " " + ShowNumber(vector[1]) + " " + ShowNumber(vector[2]);
    };
    if (IsZero(vector)) {
        m_rTold.Tell(GEOMETRY_ZERO_ORIENTATION, rElement,
                     [&] { return "the orientation by " + showVector() + " has no length"; });
        return;
    }
    const T_VECTOR across = Cross(rAxis, vector);
    if (Dot(across, across) <= PARALLEL * PARALLEL * Dot(rAxis, rAxis) * Dot(vector, vector)) {
        m_rTold.Tell(GEOMETRY_PARALLEL_ORIENTATION, rElement,
                     [&] { return "the orientation by " + showVector() + " is along the axis"; });
    }
}

void CShapeCheck::CheckTriangle(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners) {
    const T_TRIANGLESHAPE_D shape = MeasureTriangle(pCorners);
    AddEdge(shape.dSHORTEST);
    if (shape.bFLAT) {
        m_rTold.Tell(GEOMETRY_NO_AREA, rElement, [] { return "its corners are on one line"; });
        return;
    }
    m_qualities.Take(QUALITY_TRIANGLE_ANGLE, shape.dANGLE, rElement);
    m_qualities.Take(QUALITY_TRIANGLE_ASPECT, shape.dASPECT, rElement);
}

void CShapeCheck::CheckQuad(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners) {
    const T_QUADSHAPE_D shape = MeasureQuad(pCorners);
    AddEdge(shape.dSHORTEST);
    if (shape.bFLAT) {
        m_rTold.Tell(GEOMETRY_NO_AREA, rElement, [] { return "it has no area"; });
        return;
    }
    if (shape.dLEAST <= SLIGHT) {
        m_rTold.Tell(GEOMETRY_CORNER, rElement, [&] {
            std::array<double, 4> aJacobians;
            for (std::size_t i = 0; i < 4; ++i) aJacobians[i] = QuadCorner(shape, pCorners, i);
            const double dMost = std::max(SLIGHT, std::ranges::min(aJacobians)); // names one, however they are rounded
            std::vector<std::int32_t> aGrids;
            for (std::size_t i = 0; i < 4; ++i) {
                if (aJacobians[i] <= dMost) aGrids.push_back(m_rDeck.GetCorners(rElement)[i]);
            }
            return "the Jacobian isn't positive at " + ShowGrids(aGrids);
        });
        return;
    }
    m_qualities.Take(QUALITY_QUAD_WARP, shape.dWARP, rElement);
    m_qualities.Take(QUALITY_QUAD_SKEW, shape.dSKEW, rElement);
    m_qualities.Take(QUALITY_QUAD_ASPECT, shape.dASPECT, rElement);
    m_qualities.Take(QUALITY_QUAD_TAPER, shape.dTAPER, rElement);
}

/// A Jacobian of zero is no fault of a collapsed solid.
void CShapeCheck::CheckSolid(const T_DECKELEMENT_D& rElement, const T_VECTOR* const* pCorners, bool bCollapsed) {
    const E_BODY eBody = rElement.GetKind().eBODY;
    const T_SOLIDSHAPE_D shape = MeasureSolid(eBody, pCorners);
    AddEdge(shape.dSHORTEST);
    const std::size_t nCorners = CountSolidCorners(eBody);
    std::size_t nPositive = 0, nNegative = 0;
    for (std::size_t i = 0; i < nCorners; ++i) {
        nPositive += shape.dCORNERS[i] > shape.dSLIGHT;
        nNegative += shape.dCORNERS[i] < -shape.dSLIGHT;
    }
    if (nPositive == 0 && nNegative == 0) {
        m_rTold.Tell(GEOMETRY_NO_VOLUME, rElement, [] { return "it has no volume"; });
    } else if (nPositive == 0) {
        m_rTold.Tell(GEOMETRY_INSIDE_OUT, rElement, [] { return "its corners go round in the wrong sense"; });
    } else if (nNegative > 0 || (nPositive < nCorners && !bCollapsed)) {
        m_rTold.Tell(GEOMETRY_CORNER, rElement, [&] {
            std::vector<std::int32_t> aGrids;
            const double dLeast = bCollapsed ? -shape.dSLIGHT : shape.dSLIGHT;
            for (std::size_t i = 0; i < nCorners; ++i) {
                if (shape.dCORNERS[i] <= dLeast) aGrids.push_back(m_rDeck.GetCorners(rElement)[i]);
            }
            return "the Jacobian isn't positive at " + ShowGrids(aGrids);
        });
    } else if (eBody == BODY_TETRA) {
        m_qualities.Take(QUALITY_TETRA_ASPECT, MeasureTetraAspect(pCorners), rElement);
    } else if (!bCollapsed) {
        m_qualities.Take(eBody == BODY_WEDGE  ? QUALITY_WEDGE_SKEW
                         : eBody == BODY_HEXA ? QUALITY_HEXA_SKEW
                                              : QUALITY_PYRAMID_SKEW,
                         shape.dSKEW, rElement);
    }
}
