// Makes the titles of a picture.

#include "nas2zdt/picture/Titles.h"

#include "nas2zdt/picture/Svg.h"
#include "writer/rows/PropertyRows.h"
#include "writer/rows/SpringRows.h"

#include <algorithm>

namespace {

/// "1, 0, -2.5".
template <class VALUES>
std::string Join(const VALUES& rValues, std::size_t nValues) {
    std::string sText;
    for (std::size_t i = 0; i < nValues; ++i) sText += (i > 0 ? ", " : "") + NumberText(rValues[i]);
    return sText;
}

constexpr std::size_t DimensionsOf(E_SECTION_SHAPE eShape) {
    switch (eShape) {
    case SECTION_ROUND:
        return 1;
    case SECTION_RECTANGLE:
    case SECTION_PIPE:
        return 2;
    case SECTION_I:
        return 6;
    default:
        return 4;
    }
}

std::string Area(const T_STIFFNESS_D& rStiffness) {
    return NumberText(rStiffness.dA);
}

/// The components of a spring that have a stiffness.
std::string Stiffnesses(const T_SIXVALUES& rK) {
    std::string sText;
    for (std::size_t i = 0; i < rK.size(); ++i) {
        if (rK[i] != 0.0) sText += ", K" + std::to_string(i + 1) + " " + NumberText(rK[i]);
    }
    return sText;
}

std::string MassText(const T_SIXVALUES& rMass) {
    const bool bInertia = rMass[3] != 0.0 || rMass[4] != 0.0 || rMass[5] != 0.0;
    return ", mass " + NumberText(rMass[0]) +
           (bInertia ? ", inertia " + Join(std::array{rMass[3], rMass[4], rMass[5]}, 3) : "");
}

std::string HeldText(std::uint8_t nHeld) {
    std::string sText;
    for (unsigned i = 0; i < 6; ++i) {
        if (unsigned{nHeld} >> i & 1u) sText += static_cast<char>('1' + i);
    }
    return sText;
}

} // namespace

CTitles::CTitles(const CDataPool& rDataPool, const T_SCEN_D& rScene, const T_COLOURS_D& rColours)
    : m_rScene(rScene), m_rColours(rColours) {
    auto& rTexts = m_mapProperties;
    const CRowVisitor sections{
        [&](const T_VALUESECTION_ROW& r) { rTexts[r.iPID] = ", area " + Area(r.stiffness); },
        [&](const T_TAPEREDSECTION_ROW& r) { rTexts[r.iPID] = ", areas " + Area(r.endA) + ", " + Area(r.endB); },
        [&](const T_SHAPESECTION_ROW& r) { rTexts[r.iPID] = ", dimensions " + Join(r.dDIM, DimensionsOf(r.eSHAPE)); },
        IGNORE_LEFT,
    };
    ForEachSection(rDataPool, sections);
    const CRowVisitor thicknesses{
        [&](const T_THICKNESS_ROW& r) { rTexts[r.iPID] = ", thickness " + NumberText(r.bOUT ? r.dOUT : r.dIN); },
        IGNORE_LEFT,
    };
    ForEachThickness(rDataPool, thicknesses);
    ForEachLinkProperty(rDataPool, [&](const auto& r) { rTexts[r.iGPROP] = Stiffnesses(r.dK); });
}

std::string CTitles::OfShape(const T_SHAP_D& rShape) const {
    return rShape.iPART == CKeyIndex::NONE ? OfNode(rShape.aCORNERS[0]) : OfPart(rShape.iPART);
}

std::string CTitles::OfMark(const T_SYMB_D& rMark) const {
    switch (rMark.iKIND) {
    case KIND_FIXED:
    case KIND_SUPPORT:
    case KIND_LOST:
        return OfNode(rMark.iOF);
    case KIND_FORCE:
    case KIND_MOMENT:
    case KIND_PRESSURE:
    case KIND_REFERENCE:
        return OfArrow(m_rScene.aARROWS[rMark.iOF]);
    default:
        return OfPart(rMark.iOF);
    }
}

std::string CTitles::OfArrow(const T_ARRW_D& rArrow) const {
    const std::string sID = std::to_string(rArrow.iID);
    if (rArrow.iKIND == KIND_REFERENCE) return "beam " + sID + ", towards its reference";
    std::string sText = LOOKS[rArrow.iKIND].sNAME;
    if (rArrow.iKIND == KIND_FORCE || rArrow.iKIND == KIND_MOMENT) sText += " on node " + sID;
    if (rArrow.iKIND == KIND_PRESSURE) sText += " on element " + sID;
    const auto& d = rArrow.aVALUES;
    const bool bCorners = rArrow.iKIND == KIND_PRESSURE;
    const bool bEqual = bCorners && std::all_of(d.begin(), d.end(), [&](double dValue) { return dValue == d[0]; });
    return sText + ": " + Join(d, bEqual ? 1 : bCorners ? 4 : 3) + ", load case " + std::to_string(rArrow.iCASE);
}

std::string CTitles::OfPart(std::uint32_t iPart) const {
    const T_PART_D& rPart = m_rScene.aPARTS[iPart];
    std::string sText = LOOKS[rPart.iKIND].sNAME;
    sText += rPart.iID != 0 ? " " + std::to_string(rPart.iID) : " of an equation";
    if (rPart.iPID != 0) sText += ", property " + std::to_string(rPart.iPID);
    if (rPart.iMID != 0) sText += ", material " + std::to_string(rPart.iMID);
    if (rPart.iVALUES != CKeyIndex::NONE) {
        const T_SIXVALUES& rValues = m_rScene.aVALUES[rPart.iVALUES];
        sText += rPart.iKIND == KIND_MASS ? MassText(rValues) : Stiffnesses(rValues);
    } else if (const auto pFound = m_mapProperties.find(rPart.iPID); pFound != m_mapProperties.end()) {
        sText += pFound->second;
    }
    if (rPart.iKIND == KIND_MASS) sText += ", node " + std::to_string(m_rScene.aIDS[rPart.aNODES[0]]);
    return sText + Losses(m_rColours.aPARTLOSSES, iPart);
}

std::string CTitles::OfNode(std::uint32_t iNode) const {
    std::string sText = "node " + std::to_string(m_rScene.aIDS[iNode]) + " at " + Join(m_rScene.aPOINTS[iNode], 3);
    if (m_rScene.aHELD[iNode] != 0) sText += ", held " + HeldText(m_rScene.aHELD[iNode]);
    return sText + Losses(m_rColours.aNODELOSSES, iNode);
}

/// The first few, cut short: a large picture has a title for each of 30,000 shapes.
std::string CTitles::Losses(const T_LOSSES& rLosses, std::uint32_t iPlace) const {
    constexpr std::size_t MOST = 3, LONGEST = 60;
    std::string sText;
    auto p = std::lower_bound(rLosses.begin(), rLosses.end(), std::pair(iPlace, std::uint32_t{0}));
    for (std::size_t n = 0; p != rLosses.end() && p->first == iPlace; ++p, ++n) {
        if (n == MOST) return sText + "; ...";
        const std::string& sLoss = m_rColours.aLOSSES[p->second].sTEXT;
        sText += "; " + (sLoss.size() <= LONGEST ? sLoss : sLoss.substr(0, LONGEST) + "...");
    }
    return sText;
}
