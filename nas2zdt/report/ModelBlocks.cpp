// The nodes, parts and supports of the file as blocks of a page.

#include "nas2zdt/report/ModelBlocks.h"

#include "nas2zdt/report/Block.h"
#include "writer/rows/RowVisitor.h"

#include <algorithm>
#include <limits>
#include <string>

namespace {

constexpr const char* AXES[] = {"x", "y", "z"};

void WriteParts(CFile& rFile, const T_SCEN_D& rScene) {
    const auto& rParts = rScene.aPARTS;
    WriteBytes(rFile, "part-kind", rParts, [](const T_PART_D& r) { return r.iKIND; });
    WriteBytes(rFile, "part-cell", rParts, [](const T_PART_D& r) { return r.iCELL; });
    WriteWords<std::int32_t>(rFile, "part-id", rParts, [](const T_PART_D& r) { return r.iID; });
    WriteWords<std::int32_t>(rFile, "part-property", rParts, [](const T_PART_D& r) { return r.iPID; });
    WriteWords<std::int32_t>(rFile, "part-material", rParts, [](const T_PART_D& r) { return r.iMID; });
    constexpr std::size_t MOST_CORNERS = std::tuple_size_v<decltype(T_PART_D::aNODES)>;
    for (std::size_t i = 0; i < MOST_CORNERS; ++i) {
        CWordBlock block(rFile, "corner-" + std::to_string(i), BlockType<std::uint32_t>());
        for (const T_PART_D& rPart : rParts) {
            if (i < CELL_CORNERS[rPart.iCELL]) block.Add(rPart.aNODES[i]);
        }
        block.Finish();
    }
}

/// The reference point of a beam, not-a-number for one without.
T_VECTOR FindReference(const CDataPool& rPool, const T_PART_D& rBeam) {
    constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
    T_VECTOR reference = {NONE, NONE, NONE};
    const CRowVisitor visitor{
        [&](const T_BEAM_ROW& r) {
            reference = {r.dX, r.dY, r.dZ};
        },
        [](const auto&) {},
    };
    if (const auto pElement = rPool.ELEM.Find(rBeam.iID)) VisitElement(rPool, rBeam.iID, *pElement, visitor);
    return reference;
}

void WriteBeams(CFile& rFile, const CDataPool& rPool, const T_SCEN_D& rScene, const T_VECTOR& rCentre) {
    std::vector<T_VECTOR> aReferences;
    for (const T_PART_D& rPart : rScene.aPARTS) {
        if (rPart.iKIND == KIND_BEAM) aReferences.push_back(FindReference(rPool, rPart));
    }
    for (std::size_t i = 0; i < 3; ++i) {
        WriteWords<float>(rFile, std::string("beam-") + AXES[i], aReferences,
                          [&](const T_VECTOR& r) { return PagePlace(r[i], rCentre[i]); });
    }
}

} // namespace

T_VECTOR FindCentre(const T_SCEN_D& rScene) {
    constexpr double MOST = std::numeric_limits<double>::max();
    T_VECTOR low = {MOST, MOST, MOST}, high = {-MOST, -MOST, -MOST};
    for (const T_VECTOR& rPoint : rScene.aPOINTS) {
        if (!IsFinite(rPoint)) continue;
        for (std::size_t i = 0; i < 3; ++i) {
            low[i] = std::min(low[i], rPoint[i]);
            high[i] = std::max(high[i], rPoint[i]);
        }
    }
    if (low[0] > high[0]) return {};
    return {low[0] / 2 + high[0] / 2, low[1] / 2 + high[1] / 2, low[2] / 2 + high[2] / 2};
}

float PagePlace(double dValue, double dCentre) {
    constexpr double MOST = std::numeric_limits<float>::max();
    const double dFrom = dValue - dCentre;
    return dFrom >= -MOST && dFrom <= MOST ? static_cast<float>(dFrom) : std::numeric_limits<float>::quiet_NaN();
}

void WriteModelBlocks(CFile& rFile, const CDataPool& rPool, const T_SCEN_D& rScene, const T_VECTOR& rCentre) {
    WriteWords<std::int32_t>(rFile, "node-id", rScene.aIDS, [](std::int32_t iID) { return iID; });
    for (std::size_t i = 0; i < 3; ++i) {
        WriteWords<float>(rFile, std::string("node-") + AXES[i], rScene.aPOINTS,
                          [&](const T_VECTOR& r) { return PagePlace(r[i], rCentre[i]); });
    }
    WriteBytes(rFile, "node-held", rScene.aHELD, [](std::uint8_t nHeld) { return nHeld; });
    WriteParts(rFile, rScene);
    WriteBeams(rFile, rPool, rScene, rCentre);
}
