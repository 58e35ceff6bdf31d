// Makes the marks of a picture: masses, supports, loads.

#include "nas2zdt/picture/Drawing.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace {

/// Symbols of one kind with the same key are near to each other and point alike.
struct T_NEAR_D {
    E_KIND iKIND;
    std::int64_t iX, iY;
    std::array<long, 3> aDIRECTION;
    double dSIZE; // descending
    std::size_t iSYMBOL;

    auto Key() const { return std::tie(iKIND, iX, iY, aDIRECTION); }
    bool operator<(const T_NEAR_D& r) const {
        return std::tie(iKIND, iX, iY, aDIRECTION, r.dSIZE, iSYMBOL) <
               std::tie(r.iKIND, r.iX, r.iY, r.aDIRECTION, dSIZE, r.iSYMBOL);
    }
};

bool HasTooMany(const std::vector<T_SYMB_D>& aSymbols) {
    std::array<std::size_t, KINDS> aCounts = {};
    for (const T_SYMB_D& rSymbol : aSymbols) ++aCounts[rSymbol.iKIND];
    return *std::max_element(aCounts.begin(), aCounts.end()) > MOST_MARKS;
}

void ThinOutCells(std::vector<T_SYMB_D>& rSymbols, double dCell) {
    std::vector<T_NEAR_D> aNear;
    aNear.reserve(rSymbols.size());
    for (std::size_t i = 0; i < rSymbols.size(); ++i) {
        const T_SYMB_D& r = rSymbols[i];
        const std::array<long, 3> aDirection = {std::lround(r.direction[0]), std::lround(r.direction[1]),
                                                std::lround(r.direction[2])};
        aNear.push_back({r.iKIND, std::llround(r.dX / dCell), std::llround(r.dY / dCell), aDirection, r.dSIZE, i});
    }
    std::sort(aNear.begin(), aNear.end());
    const auto pEnd = std::unique(aNear.begin(), aNear.end(),
                                  [](const T_NEAR_D& a, const T_NEAR_D& b) { return a.Key() == b.Key(); });
    std::vector<T_SYMB_D> aKept;
    for (auto p = aNear.begin(); p != pEnd; ++p) aKept.push_back(rSymbols[p->iSYMBOL]);
    rSymbols = std::move(aKept);
}

} // namespace

std::vector<T_SYMB_D> MakeSymbols(const T_SCEN_D& rScene, const T_COLOURS_D& rColours, const CIsometricView& rView,
                                  const std::vector<T_VECTOR>& aPlaces) {
    constexpr double SHORT = 3.0; // pixels: a shorter link can't be seen
    std::vector<T_SYMB_D> aSymbols;
    for (std::uint32_t i = 0; i < rScene.aARROWS.size(); ++i) {
        const T_ARRW_D& rArrow = rScene.aARROWS[i];
        const T_VECTOR place = rView.Project(rArrow.at);
        aSymbols.push_back({rArrow.iKIND, place[0], place[1], CIsometricView::Turn(rArrow.direction), rArrow.dSIZE, i});
    }
    for (std::uint32_t i = 0; i < rScene.aPARTS.size(); ++i) {
        const T_PART_D& rPart = rScene.aPARTS[i];
        const T_VECTOR& rPlace = aPlaces[rPart.aNODES[0]];
        bool bMark = rPart.iCELL == CELL_POINT;
        if (rPart.iKIND == KIND_RIGID || rPart.iKIND == KIND_ELASTIC || rPart.iKIND == KIND_GENERAL) {
            const T_VECTOR apart = Subtract(aPlaces[rPart.aNODES[1]], rPlace);
            bMark = std::hypot(apart[0], apart[1]) < SHORT;
        }
        if (bMark && IsFinite(rPlace)) aSymbols.push_back({rPart.iKIND, rPlace[0], rPlace[1], {}, 0.0, i});
    }
    const auto AddNode = [&](E_KIND iKind, std::uint32_t i) {
        if (IsFinite(aPlaces[i])) aSymbols.push_back({iKind, aPlaces[i][0], aPlaces[i][1], {}, 0.0, i});
    };
    for (std::uint32_t i = 0; i < rScene.aHELD.size(); ++i) {
        if (rScene.aHELD[i] != 0) AddNode(rScene.aHELD[i] == ALL_HELD ? KIND_FIXED : KIND_SUPPORT, i);
    }
    std::uint32_t iLast = CKeyIndex::NONE;
    for (const auto& [iNode, iLoss] : rColours.aNODELOSSES) {
        if (iNode != std::exchange(iLast, iNode)) AddNode(KIND_LOST, iNode);
    }

    std::array<double, KINDS> aLargest = {};
    for (const T_SYMB_D& rSymbol : aSymbols) {
        if (std::isfinite(rSymbol.dSIZE)) aLargest[rSymbol.iKIND] = std::max(aLargest[rSymbol.iKIND], rSymbol.dSIZE);
    }
    for (T_SYMB_D& rSymbol : aSymbols) {
        const double dLargest = aLargest[rSymbol.iKIND];
        rSymbol.dSIZE = std::isfinite(rSymbol.dSIZE) && dLargest > 0.0 ? rSymbol.dSIZE / dLargest : 1.0;
    }
    return aSymbols;
}

bool ThinOut(std::vector<T_SYMB_D>& rSymbols) {
    const std::size_t nBefore = rSymbols.size();
    double dCell = 4.0; // pixels
    while (HasTooMany(rSymbols)) {
        ThinOutCells(rSymbols, dCell);
        dCell *= 1.5;
    }
    return rSymbols.size() < nBefore;
}
