// Limits of the measures of shapes.

#include "nas2zdt/check/Quality.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double DEGREE = std::numbers::pi / 180.0;

/// The square of a sine, and its angle in degrees. Squares of short sides may be nothing, and sines more than 1 then.
double SineToRaw(double dDegrees) {
    const double dSine = std::sin(dDegrees * DEGREE);
    return dSine * dSine;
}
double SineToShown(double dRaw) {
    return std::asin(std::min(std::sqrt(dRaw), 1.0)) / DEGREE;
}

/// The square of a cosine with the sign of an obtuse angle as positive.
double AngleToRaw(double dDegrees) {
    const double dCosine = -std::cos(dDegrees * DEGREE);
    return dCosine * std::abs(dCosine);
}
double AngleToShown(double dRaw) {
    return std::acos(-std::copysign(std::min(std::sqrt(std::abs(dRaw)), 1.0), dRaw)) / DEGREE;
}

double RatioToRaw(double dRatio) {
    return dRatio * dRatio;
}
double RatioToShown(double dRaw) {
    return std::sqrt(dRaw);
}

double Same(double dValue) {
    return dValue;
}

struct T_LIMIT_D {
    const char *sNAME, *sWORD, *sUNIT;
    E_GEOMETRY eKIND;
    double dLIMIT;
    double (*TO_RAW)(double);
    double (*TO_SHOWN)(double);
};
constexpr std::array<T_LIMIT_D, QUALITY_COUNT> LIMITS = {{
    {"warp of quads", "warp", " degrees", GEOMETRY_WARP, 5.0, SineToRaw, SineToShown},
    {"skew of quads", "skew", " degrees", GEOMETRY_SKEW, 45.0, SineToRaw, SineToShown},
    {"aspect of quads", "aspect", "", GEOMETRY_ASPECT, 10.0, RatioToRaw, RatioToShown},
    {"taper of quads", "taper", "", GEOMETRY_TAPER, 0.5, Same, Same},
    {"largest angle of triangles", "largest angle", " degrees", GEOMETRY_ANGLE, 150.0, AngleToRaw, AngleToShown},
    {"aspect of triangles", "aspect", "", GEOMETRY_ASPECT, 10.0, Same, Same},
    {"aspect of tetrahedra", "aspect", "", GEOMETRY_ASPECT, 10.0, Same, Same},
    {"skew of wedges", "skew", "", GEOMETRY_SKEW, 5.0, RatioToRaw, RatioToShown},
    {"skew of hexahedra", "skew", "", GEOMETRY_SKEW, 5.0, RatioToRaw, RatioToShown},
    {"skew of pyramids", "skew", "", GEOMETRY_SKEW, 5.0, RatioToRaw, RatioToShown},
}};
static_assert(LIMITS[QUALITY_PYRAMID_SKEW].sNAME);

} // namespace

CQualities::CQualities(CGeometryTold& rTold) : m_rTold(rTold) {
    for (std::size_t i = 0; i < QUALITY_COUNT; ++i) {
        m_aStates[i].dLIMIT = LIMITS[i].TO_RAW(LIMITS[i].dLIMIT);
        m_aStates[i].dWORST = -std::numeric_limits<double>::infinity();
    }
}

void CQualities::TellPast(E_QUALITY eQuality, double dRaw, const T_DECKELEMENT_D& rElement) {
    ++m_aStates[eQuality].nPAST;
    const T_LIMIT_D& rLimit = LIMITS[eQuality];
    m_rTold.Tell(rLimit.eKIND, rElement, [&] {
        return std::string(rLimit.sWORD) + " is " + ShowNumber(rLimit.TO_SHOWN(dRaw)) + rLimit.sUNIT + ", past " +
               ShowNumber(rLimit.dLIMIT);
    });
}

std::vector<T_QUALITY_D> CQualities::Get() const {
    std::vector<T_QUALITY_D> aQualities;
    for (std::size_t i = 0; i < QUALITY_COUNT; ++i) {
        const T_STATE_D& rState = m_aStates[i];
        if (rState.nMEASURED == 0) continue;
        aQualities.push_back({LIMITS[i].sNAME, LIMITS[i].dLIMIT, LIMITS[i].TO_SHOWN(rState.dWORST), rState.iWORST,
                              rState.nMEASURED, rState.nPAST});
    }
    return aQualities;
}
