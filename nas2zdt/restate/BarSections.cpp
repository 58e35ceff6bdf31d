// Sections as sums of rectangles.

#include "nas2zdt/restate/BarSections.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double PI = 3.141592653589793;

/// A rectangle by its sides; Z counts to the right here.
struct T_RECTANGLE_D {
    double dLEFT, dBOTTOM, dWIDTH, dHEIGHT;
};
using T_RECTANGLES = std::vector<T_RECTANGLE_D>;
using T_DIM = std::span<const double>;

T_RECTANGLES I(T_DIM d) { // height, bottom and top width, web, bottom and top thickness
    const double dWeb = d[0] - d[4] - d[5];
    return {{-d[1] / 2, 0.0, d[1], d[4]}, {-d[3] / 2, d[4], d[3], dWeb}, {-d[2] / 2, d[4] + dWeb, d[2], d[5]}};
}
T_RECTANGLES I1(T_DIM d) { // both overhangs, web, height between flanges, height
    const double dWidth = d[0] + d[1], dFlange = (d[3] - d[2]) / 2;
    const std::array<double, 6> dI = {d[3], dWidth, dWidth, d[1], dFlange, dFlange};
    return I(dI);
}
T_RECTANGLES Chan(T_DIM d) { // width, height, web, flange
    return {{0.0, 0.0, d[2], d[1]}, {d[2], 0.0, d[0] - d[2], d[3]}, {d[2], d[1] - d[3], d[0] - d[2], d[3]}};
}
T_RECTANGLES Chan1(T_DIM d) { // overhang, web, height between flanges, height
    const std::array<double, 4> dChan = {d[0] + d[1], d[3], d[1], (d[3] - d[2]) / 2};
    return Chan(dChan);
}
T_RECTANGLES Chan2(T_DIM d) { // legs, base, height, width
    return {{0.0, 0.0, d[3], d[1]}, {0.0, d[1], d[0], d[2] - d[1]}, {d[3] - d[0], d[1], d[0], d[2] - d[1]}};
}
T_RECTANGLES T(T_DIM d) { // width, height, flange, stem
    return {{-d[0] / 2, d[1] - d[2], d[0], d[2]}, {-d[3] / 2, 0.0, d[3], d[1] - d[2]}};
}
T_RECTANGLES T1(T_DIM d) { // height of the upright flange, length of the level stem, flange, stem
    return {{0.0, -d[0] / 2, d[2], d[0]}, {-d[1], -d[3] / 2, d[1], d[3]}};
}
T_RECTANGLES T2(T_DIM d) { // width, height, flange at the bottom, stem
    return {{-d[0] / 2, 0.0, d[0], d[2]}, {-d[3] / 2, d[2], d[3], d[1] - d[2]}};
}
T_RECTANGLES Box1(T_DIM d) { // width, height, top, bottom, left, right
    const double dBetween = d[0] - d[4] - d[5];
    return {{0.0, 0.0, d[4], d[1]},
            {d[0] - d[5], 0.0, d[5], d[1]},
            {d[4], 0.0, dBetween, d[3]},
            {d[4], d[1] - d[2], dBetween, d[2]}};
}
T_RECTANGLES Box(T_DIM d) { // width, height, top and bottom, sides
    const std::array<double, 6> dBox1 = {d[0], d[1], d[2], d[2], d[3], d[3]};
    return Box1(dBox1);
}
T_RECTANGLES Bar(T_DIM d) { // width, height
    return {{0.0, 0.0, d[0], d[1]}};
}
T_RECTANGLES Cross(T_DIM d) { // both arms, web, height, thickness of the arms
    return {{-d[1] / 2, -d[2] / 2, d[1], d[2]},
            {-(d[0] + d[1]) / 2, -d[3] / 2, d[0] / 2, d[3]},
            {d[1] / 2, -d[3] / 2, d[0] / 2, d[3]}};
}
T_RECTANGLES H(T_DIM d) { // width between the legs, both legs, height, thickness between
    return {{-d[0] / 2, -d[3] / 2, d[0], d[3]},
            {-(d[0] + d[1]) / 2, -d[2] / 2, d[1] / 2, d[2]},
            {d[0] / 2, -d[2] / 2, d[1] / 2, d[2]}};
}
T_RECTANGLES Z(T_DIM d) { // overhang, web, height between flanges, height; the top flange is on the left
    const double dFlange = (d[3] - d[2]) / 2;
    return {{0.0, 0.0, d[1], d[3]}, {d[1], 0.0, d[0], dFlange}, {-d[0], d[3] - dFlange, d[0], dFlange}};
}
T_RECTANGLES L(T_DIM d) { // width, height, thickness of the level leg, of the upright one on the left
    return {{0.0, 0.0, d[0], d[2]}, {0.0, d[2], d[3], d[1] - d[2]}};
}
T_RECTANGLES Hat(T_DIM d) { // height, thickness, width of the top, brims
    const double dHalf = d[2] / 2, dWall = d[0] - d[1];
    return {{-dHalf, dWall, d[2], d[1]},
            {-dHalf, 0.0, d[1], dWall},
            {dHalf - d[1], 0.0, d[1], dWall},
            {-dHalf - d[3], 0.0, d[3], d[1]},
            {dHalf, 0.0, d[3], d[1]}};
}
T_RECTANGLES Hat1(T_DIM d) { // width, width of the top, height, thickness, thickness of the plate below
    const double dBrim = (d[0] - d[1]) / 2;
    const std::array<double, 4> dHat = {d[2] - d[4], d[3], d[1], dBrim};
    T_RECTANGLES aRectangles = Hat(dHat);
    aRectangles.push_back({-d[0] / 2, -d[4], d[0], d[4]});
    return aRectangles;
}
/// Width, height, place of the middle of the web; left wall, web, right wall; left top and bottom, right top and
/// bottom.
T_RECTANGLES Dbox(T_DIM d) {
    const double dWeb = d[2] - d[4] / 2, dRight = d[2] + d[4] / 2;
    return {{0.0, 0.0, d[3], d[1]},
            {dWeb, 0.0, d[4], d[1]},
            {d[0] - d[5], 0.0, d[5], d[1]},
            {d[3], 0.0, dWeb - d[3], d[7]},
            {d[3], d[1] - d[6], dWeb - d[3], d[6]},
            {dRight, 0.0, d[0] - d[5] - dRight, d[9]},
            {dRight, d[1] - d[8], d[0] - d[5] - dRight, d[8]}};
}

/// A cell of a closed section between the middles of its walls. dWALLS is the sum of length by thickness around it.
struct T_CELL_D {
    double dWIDTH, dHEIGHT, dWALLS;
};

/// Bredt: J = 4 Am^2 / sum of s/t for one cell; for two that share a wall, from equal twists of both.
double ClosedJ(const T_CELL_D& rLeft, const T_CELL_D* pRight = nullptr, double dShared = 0.0) {
    const double dLeft = 2.0 * rLeft.dWIDTH * rLeft.dHEIGHT;
    if (!pRight) return dLeft * dLeft / rLeft.dWALLS;
    const double dRight = 2.0 * pRight->dWIDTH * pRight->dHEIGHT;
    const double dDeterminant = rLeft.dWALLS * pRight->dWALLS - dShared * dShared;
    return (dLeft * dLeft * pRight->dWALLS + 2.0 * dLeft * dRight * dShared + dRight * dRight * rLeft.dWALLS) /
           dDeterminant;
}

double Box1J(T_DIM d) {
    const double dWidth = d[0] - (d[4] + d[5]) / 2, dHeight = d[1] - (d[2] + d[3]) / 2;
    return ClosedJ({dWidth, dHeight, dWidth / d[2] + dWidth / d[3] + dHeight / d[4] + dHeight / d[5]});
}
double BoxJ(T_DIM d) {
    const std::array<double, 6> dBox1 = {d[0], d[1], d[2], d[2], d[3], d[3]};
    return Box1J(dBox1);
}
double Hat1J(T_DIM d) {
    const double dWidth = d[1] - d[3], dHeight = d[2] - (d[3] + d[4]) / 2;
    return ClosedJ({dWidth, dHeight, dWidth / d[3] + dWidth / d[4] + 2.0 * dHeight / d[3]});
}
double DboxJ(T_DIM d) {
    const double dLeft = d[2] - d[3] / 2, dRight = d[0] - d[2] - d[5] / 2;
    const double dLeftHeight = d[1] - (d[6] + d[7]) / 2, dRightHeight = d[1] - (d[8] + d[9]) / 2;
    const double dShared = (dLeftHeight + dRightHeight) / 2 / d[4];
    const T_CELL_D right{dRight, dRightHeight, dRight / d[8] + dRight / d[9] + dRightHeight / d[5] + dShared};
    return ClosedJ({dLeft, dLeftHeight, dLeft / d[6] + dLeft / d[7] + dLeftHeight / d[3] + dShared}, &right, dShared);
}

/// Roark's formulas for stress and strain, solid rectangular section: half sides a >= b.
double BarJ(T_DIM d) {
    const double a = std::max(d[0], d[1]) / 2, b = std::min(d[0], d[1]) / 2;
    return a * std::pow(b, 3) * (16.0 / 3 - 3.36 * b / a * (1.0 - std::pow(b, 4) / (12.0 * std::pow(a, 4))));
}

/// Open thin walls: the sum of b t^3 / 3.
double OpenJ(const T_RECTANGLES& rRectangles) {
    double dJ = 0.0;
    for (const T_RECTANGLE_D& r : rRectangles) {
        dJ += std::max(r.dWIDTH, r.dHEIGHT) * std::pow(std::min(r.dWIDTH, r.dHEIGHT), 3) / 3.0;
    }
    return dJ;
}

/// Area, centre, then moments about it by the parallel axis theorem. Nothing if a rectangle has a side below zero.
bool AddUp(const T_RECTANGLES& rRectangles, T_SECTIONVALUES_D& rValues) {
    double dY = 0.0, dZ = 0.0;
    for (const T_RECTANGLE_D& r : rRectangles) {
        if (!(r.dWIDTH >= 0.0) || !(r.dHEIGHT >= 0.0)) return false;
        const double dA = r.dWIDTH * r.dHEIGHT;
        rValues.dA += dA;
        dY += dA * (r.dBOTTOM + r.dHEIGHT / 2);
        dZ += dA * (r.dLEFT + r.dWIDTH / 2);
    }
    dY /= rValues.dA;
    dZ /= rValues.dA;
    for (const T_RECTANGLE_D& r : rRectangles) {
        const double dA = r.dWIDTH * r.dHEIGHT;
        const double y = r.dBOTTOM + r.dHEIGHT / 2 - dY, z = r.dLEFT + r.dWIDTH / 2 - dZ;
        rValues.dI1 += dA * (r.dHEIGHT * r.dHEIGHT / 12.0 + y * y);
        rValues.dI2 += dA * (r.dWIDTH * r.dWIDTH / 12.0 + z * z);
        rValues.dI12 -= dA * y * z; // Z to the left
    }
    constexpr double ROUNDING = 1e-12; // of the centre of shapes that are symmetric
    if (std::fabs(rValues.dI12) <= ROUNDING * (rValues.dI1 + rValues.dI2)) rValues.dI12 = 0.0;
    return true;
}

/// Outer and inner radius.
T_SECTIONVALUES_D Ring(double dOuter, double dInner) {
    const double dI = PI * (std::pow(dOuter, 4) - std::pow(dInner, 4)) / 4.0;
    return {PI * (dOuter * dOuter - dInner * dInner), dI, dI, 0.0, 2.0 * dI};
}

/// Width of the slant on either side, width, height. J by Saint-Venant's approximation A^4 / (40 Ip).
T_SECTIONVALUES_D Hexa(T_DIM d) {
    const double s = d[0], w = d[1], h = d[2], dMiddle = w - 2.0 * s;
    T_SECTIONVALUES_D values;
    values.dA = h * (w - s);
    values.dI1 = dMiddle * h * h * h / 12.0 + s * h * h * h / 24.0;
    const double dCorner = dMiddle / 2 + s / 3; // centre of the triangle of a side
    values.dI2 = h * std::pow(dMiddle, 3) / 12.0 + 2.0 * (h * s * s * s / 36.0 + h * s / 2 * dCorner * dCorner);
    values.dJ = std::pow(values.dA, 4) / (40.0 * (values.dI1 + values.dI2));
    return values;
}

struct T_SHAPE_D {
    std::string_view sTYPE;
    std::size_t nDIMENSIONS;
    bool bFILE; // whether the converter writes it as it is meant
    T_RECTANGLES (*pRectangles)(T_DIM);
    double (*pJ)(T_DIM); // null for open thin walls
};

constexpr T_SHAPE_D SHAPES[] = {
    {"ROD", 1, true, nullptr, nullptr},   {"TUBE", 2, true, nullptr, nullptr}, {"TUBE2", 2, false, nullptr, nullptr},
    {"HEXA", 3, false, nullptr, nullptr}, {"I", 6, true, &I, nullptr},         {"CHAN", 4, true, &Chan, nullptr},
    {"T", 4, true, &T, nullptr},          {"BOX", 4, true, &Box, &BoxJ},       {"BAR", 2, true, &Bar, &BarJ},
    {"CROSS", 4, false, &Cross, nullptr}, {"H", 4, false, &H, nullptr},        {"T1", 4, false, &T1, nullptr},
    {"I1", 4, false, &I1, nullptr},       {"CHAN1", 4, true, &Chan1, nullptr}, {"Z", 4, false, &Z, nullptr},
    {"CHAN2", 4, false, &Chan2, nullptr}, {"T2", 4, true, &T2, nullptr},       {"BOX1", 6, false, &Box1, &Box1J},
    {"HAT", 4, false, &Hat, nullptr},     {"HAT1", 5, false, &Hat1, &Hat1J},   {"DBOX", 10, false, &Dbox, &DboxJ},
    {"L", 4, false, &L, nullptr},
};

const T_SHAPE_D* FindShape(std::string_view sType) {
    const auto pFound =
        std::find_if(std::begin(SHAPES), std::end(SHAPES), [&](const T_SHAPE_D& r) { return r.sTYPE == sType; });
    return pFound == std::end(SHAPES) ? nullptr : &*pFound;
}

} // namespace

std::size_t CountDimensions(std::string_view sType) {
    const T_SHAPE_D* pShape = FindShape(sType);
    return pShape ? pShape->nDIMENSIONS : 0;
}

std::optional<T_SECTIONSHAPE_D> ShapeOfFile(const T_SECTIONSHAPE_D& rShape) {
    const T_SHAPE_D* pShape = FindShape(rShape.sTYPE);
    if (!pShape) return {};
    const std::vector<double>& d = rShape.aDIM;
    if (pShape->bFILE) return rShape;
    if (rShape.sTYPE == "TUBE2") return T_SECTIONSHAPE_D{"TUBE", {d[0], d[0] - d[1]}};
    if (rShape.sTYPE == "I1") {
        const double dWidth = d[0] + d[1], dFlange = (d[3] - d[2]) / 2;
        return T_SECTIONSHAPE_D{"I", {d[3], dWidth, dWidth, d[1], dFlange, dFlange}};
    }
    if (rShape.sTYPE == "BOX1" && d[2] == d[3] && d[4] == d[5])
        return T_SECTIONSHAPE_D{"BOX", {d[0], d[1], d[2], d[4]}};
    return {};
}

std::optional<T_SECTIONVALUES_D> ValuesOf(const T_SECTIONSHAPE_D& rShape) {
    const T_SHAPE_D* pShape = FindShape(rShape.sTYPE);
    const std::vector<double>& d = rShape.aDIM;
    if (!pShape || std::any_of(d.begin(), d.end(), [](double dDim) { return !(dDim >= 0.0); })) return {};
    T_SECTIONVALUES_D values;
    if (pShape->pRectangles) {
        const T_RECTANGLES aRectangles = pShape->pRectangles(d);
        if (!AddUp(aRectangles, values)) return {};
        values.dJ = pShape->pJ ? pShape->pJ(d) : OpenJ(aRectangles);
    } else if (rShape.sTYPE == "HEXA") {
        values = Hexa(d);
    } else {
        values = Ring(d[0], rShape.sTYPE == "ROD" ? 0.0 : rShape.sTYPE == "TUBE" ? d[1] : d[0] - d[1]);
    }
    for (const double dValue : {values.dA, values.dI1, values.dI2, values.dI12, values.dJ}) {
        if (!std::isfinite(dValue)) return {};
    }
    if (!(values.dA > 0.0)) return {};
    return values;
}
