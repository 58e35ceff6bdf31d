// Makes the faces and lines of a picture, as few as show the model.

#include "nas2zdt/picture/Drawing.h"

#include <algorithm>
#include <cmath>

namespace {

/// A face of a solid, which a neighbour shares if its sorted corners are equal.
struct T_SIDE_D {
    std::array<std::uint32_t, 4> aSORTED;
    std::uint32_t iPART;
    std::uint8_t iFACE;
};

bool HasPlace(const T_PART_D& rPart, const std::vector<T_VECTOR>& aPlaces) {
    const std::size_t nCorners = CELL_CORNERS[rPart.iCELL];
    return std::all_of(rPart.aNODES.begin(), rPart.aNODES.begin() + static_cast<std::ptrdiff_t>(nCorners),
                       [&](std::uint32_t iNode) { return IsFinite(aPlaces[iNode]); });
}

/// Whether a face of a solid is turned to the eye. The solid's middle tells its outside, since corners may go round
/// either way.
bool LooksAtEye(const T_SHAP_D& rFace, const T_PART_D& rPart, const std::vector<T_VECTOR>& aPlaces) {
    const T_VECTOR normal = FaceNormal(rFace, aPlaces);
    const T_VECTOR outward = Subtract(Middle(rFace.aCORNERS, rFace.nCORNERS, aPlaces),
                                      Middle(rPart.aNODES, CELL_CORNERS[rPart.iCELL], aPlaces));
    const double dOutward = Dot(normal, outward);
    return dOutward == 0.0 || (dOutward > 0.0) == (normal[2] > 0.0);
}

void AddOuterFaces(const T_SCEN_D& rScene, const std::vector<T_VECTOR>& aPlaces, std::vector<T_SIDE_D>& rSides,
                   std::vector<T_SHAP_D>& rShapes) {
    std::sort(rSides.begin(), rSides.end(), [](const T_SIDE_D& a, const T_SIDE_D& b) { return a.aSORTED < b.aSORTED; });
    for (std::size_t i = 0, iNext = 0; i < rSides.size(); i = iNext) {
        for (iNext = i + 1; iNext < rSides.size() && rSides[iNext].aSORTED == rSides[i].aSORTED;) ++iNext;
        if (iNext - i > 1) continue;
        const T_PART_D& rPart = rScene.aPARTS[rSides[i].iPART];
        T_SHAP_D face = FaceOfPart(rPart, rSides[i].iFACE);
        face.iPART = rSides[i].iPART;
        if (LooksAtEye(face, rPart, aPlaces)) rShapes.push_back(face);
    }
}

/// Makes shapes of the same corners equal, however they go round, and removes repeated corners.
void Normalize(T_SHAP_D& rShape) {
    const auto pBegin = rShape.aCORNERS.begin();
    const auto pEnd = std::unique(pBegin, pBegin + rShape.nCORNERS);
    rShape.nCORNERS = static_cast<std::uint8_t>(pEnd - pBegin);
    auto& rCorners = rShape.aCORNERS;
    while (rShape.nCORNERS > 1 && rCorners[rShape.nCORNERS - 1u] == rCorners[0]) --rShape.nCORNERS;
    if (rShape.nCORNERS == 4 && (rCorners[0] == rCorners[2] || rCorners[1] == rCorners[3])) { // folded into a line
        if (rCorners[0] == rCorners[2] && rCorners[1] != rCorners[3]) rCorners[0] = rCorners[3];
        if (rCorners[1] == rCorners[3] && rCorners[0] != rCorners[2]) rCorners[1] = rCorners[2];
        rShape.nCORNERS = 2;
    }
    const auto pLast = pBegin + rShape.nCORNERS;
    std::rotate(pBegin, std::min_element(pBegin, pLast), pLast);
    if (rShape.nCORNERS > 2 && *(pLast - 1) < *(pBegin + 1)) std::reverse(pBegin + 1, pLast);
    std::fill(pLast, rShape.aCORNERS.end(), 0u);
}

/// How well a corner represents its neighbours, lowest first: corners of lines, so that these stay straight, then those
/// with the fewest faces, which make the outline.
std::vector<std::uint8_t> RankCorners(const std::vector<T_SHAP_D>& aShapes, std::size_t nPlaces) {
    constexpr std::uint8_t WORST = 0xFF; // a free node
    std::vector<std::uint8_t> aRanks(nPlaces);
    for (const T_SHAP_D& rShape : aShapes) {
        for (std::size_t i = 0; i < rShape.nCORNERS && rShape.nCORNERS > 2; ++i) {
            std::uint8_t& rRank = aRanks[rShape.aCORNERS[i]];
            if (rRank < WORST) ++rRank;
        }
    }
    std::replace(aRanks.begin(), aRanks.end(), std::uint8_t{0}, WORST);
    for (const T_SHAP_D& rShape : aShapes) {
        for (std::size_t i = 0; i < rShape.nCORNERS && rShape.nCORNERS == 2; ++i) aRanks[rShape.aCORNERS[i]] = 0;
    }
    return aRanks;
}

/// A corner of a grid cell; the least one represents it.
struct T_CRNR_D {
    std::uint64_t nCELL;
    std::uint8_t nRANK;
    std::uint32_t iCORNER;
    auto operator<=>(const T_CRNR_D&) const = default;
};

/// Replaces each corner by the best one of its cell in a grid of dCell pixels.
class CCells {
  public:
    CCells(const std::vector<T_SHAP_D>& aShapes, const std::vector<T_VECTOR>& aPlaces,
           const std::vector<std::uint8_t>& aRanks, double dCell)
        : m_aBest(aPlaces.size()) {
        std::vector<bool> aSeen(aPlaces.size());
        std::vector<T_CRNR_D> aCorners;
        for (const T_SHAP_D& rShape : aShapes) {
            for (std::size_t i = 0; i < rShape.nCORNERS; ++i) {
                const std::uint32_t iCorner = rShape.aCORNERS[i];
                if (aSeen[iCorner]) continue;
                aSeen[iCorner] = true;
                aCorners.push_back({Key(aPlaces[iCorner], dCell), aRanks[iCorner], iCorner});
            }
        }
        std::sort(aCorners.begin(), aCorners.end());
        for (std::size_t i = 0, iBest = 0; i < aCorners.size(); ++i) {
            if (aCorners[i].nCELL != aCorners[iBest].nCELL) iBest = i;
            m_aBest[aCorners[i].iCORNER] = aCorners[iBest].iCORNER;
        }
    }

    void Apply(T_SHAP_D& rShape) const {
        for (std::size_t i = 0; i < rShape.nCORNERS; ++i) rShape.aCORNERS[i] = m_aBest[rShape.aCORNERS[i]];
        Normalize(rShape);
    }

  private:
    static std::uint64_t Key(const T_VECTOR& place, double dCell) {
        constexpr double OFFSET = 1 << 20; // places lie within a few thousand pixels
        std::uint64_t nKey = 0;
        for (const double d : place) nKey = nKey << 21 | static_cast<std::uint64_t>(std::floor(d / dCell) + OFFSET);
        return nKey;
    }

    std::vector<std::uint32_t> m_aBest;
};

/// A shape of a kind with fewer corners is collapsed.
std::uint8_t LeastCorners(E_KIND iKind) {
    if (iKind == KIND_PLANE_STRESS || iKind == KIND_PLATE || iKind == KIND_SOLID) return 3;
    return iKind == KIND_NODE ? 1 : 2;
}

/// Drops collapsed shapes, except where no other shape of their kind, with a loss or without, is seen at one of their
/// corners.
void DropCollapsed(std::vector<T_SHAP_D>& rShapes, std::size_t nPlaces) {
    constexpr unsigned WITHOUT_LOSS = 16;       // kinds of shapes are fewer
    std::vector<std::uint32_t> aKinds(nPlaces); // a bit for each kind that is seen at a corner
    std::vector<T_SHAP_D> aKept;
    for (int nCorners = 4; nCorners > 0; --nCorners) {
        for (const T_SHAP_D& rShape : rShapes) {
            if (rShape.nCORNERS != nCorners) continue;
            const std::uint32_t nKind = 1u << (rShape.iKIND + (rShape.iPAINT == PAINT_LOST ? 0 : WITHOUT_LOSS));
            bool bNew = rShape.nCORNERS >= LeastCorners(rShape.iKIND);
            for (std::size_t k = 0; k < rShape.nCORNERS; ++k) bNew |= !(aKinds[rShape.aCORNERS[k]] & nKind);
            if (!bNew) continue;
            for (std::size_t k = 0; k < rShape.nCORNERS; ++k) aKinds[rShape.aCORNERS[k]] |= nKind;
            aKept.push_back(rShape);
        }
    }
    rShapes = std::move(aKept);
}

} // namespace

std::vector<T_SHAP_D> MakeShapes(const T_SCEN_D& rScene, const T_COLOURS_D& rColours,
                                 const std::vector<T_VECTOR>& aPlaces, std::size_t& rNowhere) {
    std::vector<T_SHAP_D> aShapes;
    std::vector<T_SIDE_D> aSides;
    for (std::size_t i = 0; i < rScene.aPARTS.size(); ++i) {
        const T_PART_D& rPart = rScene.aPARTS[i];
        if (!HasPlace(rPart, aPlaces)) {
            ++rNowhere;
            continue;
        }
        for (std::uint8_t iFace = 0; iFace < FACES[rPart.iCELL].nFACES; ++iFace) {
            T_SHAP_D face = FaceOfPart(rPart, iFace);
            face.iPART = static_cast<std::uint32_t>(i);
            if (rPart.iCELL < CELL_TETRA) {
                aShapes.push_back(face);
                continue;
            }
            T_SIDE_D side{face.aCORNERS, static_cast<std::uint32_t>(i), iFace};
            if (face.nCORNERS == 3) side.aSORTED[3] = CKeyIndex::NONE;
            std::sort(side.aSORTED.begin(), side.aSORTED.end());
            aSides.push_back(side);
        }
    }
    AddOuterFaces(rScene, aPlaces, aSides, aShapes);
    for (T_SHAP_D& rShape : aShapes) rShape.iPAINT = rColours.PaintOf(rShape.iPART);
    return aShapes;
}

double Simplify(std::vector<T_SHAP_D>& rShapes, const std::vector<T_VECTOR>& aPlaces) {
    constexpr std::size_t MOST = 30000;
    double dCell = 0.0;
    std::vector<std::uint8_t> aRanks;
    if (rShapes.size() > MOST) aRanks = RankCorners(rShapes, aPlaces.size());
    double dNext = 1.0;
    while (rShapes.size() > MOST && dNext < 256.0) { // a few hundred cells
        dCell = dNext;
        dNext *= 1.25;
        const CCells cells(rShapes, aPlaces, aRanks, dCell);
        for (T_SHAP_D& rShape : rShapes) cells.Apply(rShape);
        std::sort(rShapes.begin(), rShapes.end());
        const auto covers = [](const T_SHAP_D& a, const T_SHAP_D& b) { return a.Covers(b); };
        rShapes.erase(std::unique(rShapes.begin(), rShapes.end(), covers), rShapes.end());
        DropCollapsed(rShapes, aPlaces.size());
    }
    return dCell;
}
