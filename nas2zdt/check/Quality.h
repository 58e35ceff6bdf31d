#pragma once
// Measures of the shapes of elements, their worst values and limits.

#include "nas2zdt/check/Geometry.h"
#include "nas2zdt/check/GeometryTold.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

/// Shapes are measured by their corners. The formulas are in Shape.h.
enum E_QUALITY : std::uint8_t {
    QUALITY_QUAD_WARP,
    QUALITY_QUAD_SKEW,
    QUALITY_QUAD_ASPECT,
    QUALITY_QUAD_TAPER,
    QUALITY_TRIANGLE_ANGLE,
    QUALITY_TRIANGLE_ASPECT,
    QUALITY_TETRA_ASPECT,
    QUALITY_WEDGE_SKEW,
    QUALITY_HEXA_SKEW,
    QUALITY_PYRAMID_SKEW,
    QUALITY_COUNT
};

/// Values are taken in a form that costs less than the one that is shown, such as the square of a sine for an angle,
/// and grows with it.
class CQualities {
  public:
    explicit CQualities(CGeometryTold& rTold);

    void Take(E_QUALITY eQuality, double dRaw, const T_DECKELEMENT_D& rElement) {
        if (std::isnan(dRaw)) return; // of sides whose squares are nothing
        T_STATE_D& rState = m_aStates[eQuality];
        ++rState.nMEASURED;
        if (dRaw > rState.dWORST) {
            rState.dWORST = dRaw;
            rState.iWORST = rElement.iEID;
        }
        if (dRaw > rState.dLIMIT) TellPast(eQuality, dRaw, rElement);
    }

    /// Those of bodies that there were.
    std::vector<T_QUALITY_D> Get() const;

  private:
    struct T_STATE_D {
        double dLIMIT, dWORST; // raw
        std::int32_t iWORST = 0;
        std::uint64_t nMEASURED = 0, nPAST = 0;
    };

    void TellPast(E_QUALITY eQuality, double dRaw, const T_DECKELEMENT_D& rElement);

    CGeometryTold& m_rTold;
    std::array<T_STATE_D, QUALITY_COUNT> m_aStates;
};
