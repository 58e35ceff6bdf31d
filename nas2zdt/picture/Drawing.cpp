// Lays a scene out on the sheet.

#include "nas2zdt/picture/Drawing.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

constexpr T_FRAM_D MODEL = {90, 100, 790, 660}; // within the box

bool IsInBox(double dX, double dY) {
    return BOX_LEFT < dX && dX < BOX_RIGHT && BOX_TOP < dY && dY < BOX_BOTTOM;
}

/// The points that the picture is scaled for: nodes of parts, since grids far away may only give directions.
std::vector<T_VECTOR> FindVisible(const T_SCEN_D& rScene, const std::vector<bool>& aUsed) {
    std::vector<T_VECTOR> aVisible;
    for (std::size_t i = 0; i < aUsed.size(); ++i) {
        if (aUsed[i] && IsFinite(rScene.aPOINTS[i])) aVisible.push_back(rScene.aPOINTS[i]);
    }
    if (aVisible.empty()) {
        std::copy_if(rScene.aPOINTS.begin(), rScene.aPOINTS.end(), std::back_inserter(aVisible), IsFinite);
    }
    return aVisible;
}

void AddFreeNodes(T_DRAW_D& rDrawing, const std::vector<bool>& aUsed) {
    for (std::uint32_t i = 0; i < aUsed.size(); ++i) {
        if (aUsed[i]) continue;
        const T_VECTOR& rPlace = rDrawing.aPLACES[i];
        if (IsInBox(rPlace[0], rPlace[1]) && std::abs(rPlace[2]) < 1e5) {
            rDrawing.aSHAPES.push_back({KIND_NODE, 1, {i}, PAINT_NEUTRAL});
        } else {
            ++rDrawing.nOUTSIDE;
        }
    }
}

/// A face counts by its middle, a line by its nearer end and a little more: most lines run along edges of faces, half
/// of which would hide them.
double DepthOf(const T_SHAP_D& rShape, const std::vector<T_VECTOR>& aPlaces) {
    constexpr double IN_FRONT = 6.0; // pixels
    double dSum = 0.0, dNearest = aPlaces[rShape.aCORNERS[0]][2];
    for (std::size_t i = 0; i < rShape.nCORNERS; ++i) {
        dSum += aPlaces[rShape.aCORNERS[i]][2];
        dNearest = std::max(dNearest, aPlaces[rShape.aCORNERS[i]][2]);
    }
    return rShape.nCORNERS > 2 ? dSum / rShape.nCORNERS : dNearest + IN_FRONT;
}

void SortByDepth(T_DRAW_D& rDrawing) {
    std::vector<std::pair<double, std::size_t>> aOrder;
    for (std::size_t i = 0; i < rDrawing.aSHAPES.size(); ++i) {
        aOrder.emplace_back(DepthOf(rDrawing.aSHAPES[i], rDrawing.aPLACES), i);
    }
    std::sort(aOrder.begin(), aOrder.end());
    std::vector<T_SHAP_D> aSorted;
    aSorted.reserve(aOrder.size());
    for (const auto& [dDepth, iShape] : aOrder) aSorted.push_back(rDrawing.aSHAPES[iShape]);
    rDrawing.aSHAPES = std::move(aSorted);
}

} // namespace

bool T_DRAW_D::HasMark(E_KIND iKind) const {
    return std::any_of(aMARKS.begin(), aMARKS.end(), [=](const T_SYMB_D& r) { return r.iKIND == iKind; });
}

T_DRAW_D LayOut(const T_SCEN_D& rScene, const T_COLOURS_D& rColours) {
    T_DRAW_D drawing;
    const std::vector<bool> aUsed = rScene.FindUsed();
    drawing.aVISIBLE = FindVisible(rScene, aUsed);
    const CIsometricView view(drawing.aVISIBLE, MODEL);
    drawing.aPLACES.reserve(rScene.aPOINTS.size());
    for (const T_VECTOR& rPoint : rScene.aPOINTS) drawing.aPLACES.push_back(view.Project(rPoint));

    drawing.aSHAPES = MakeShapes(rScene, rColours, drawing.aPLACES, drawing.nNOWHERE);
    AddFreeNodes(drawing, aUsed);
    drawing.dJOINED = Simplify(drawing.aSHAPES, drawing.aPLACES);
    SortByDepth(drawing);
    return drawing;
}

void SetMarks(const T_SCEN_D& rScene, const T_COLOURS_D& rColours, T_DRAW_D& rDrawing) {
    const CIsometricView view(rDrawing.aVISIBLE, MODEL);
    rDrawing.aMARKS = MakeSymbols(rScene, rColours, view, rDrawing.aPLACES);
    std::erase_if(rDrawing.aMARKS, [](const T_SYMB_D& r) { return !IsInBox(r.dX, r.dY); }); // on a node far away
    rDrawing.bTHINNED = ThinOut(rDrawing.aMARKS);
}
