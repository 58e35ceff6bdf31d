// Restates loads on grids, gravity and combinations.

#include "nas2zdt/restate/NodeLoadRules.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

enum E_RULE {
    FORCE_BASIC,
    FORCE_BY_GRIDS,
    FORCE_DIRECTION,
    FORCE_GRID,
    GRAVITY_BASIC,
    GRAVITY_SUM,
    GRAVITY_DIRECTION,
    COMBINATION_FACTORS,
    COMBINATION_SCALE,
};

/// Grids of a cross product whose sine is smaller are on a line.
constexpr double SMALL_SINE = 1e-12;

/// The converter reads so many sets of a LOAD; cards of one id add up.
constexpr std::size_t SETS_A_CARD = 4;

/// Gravity is the same everywhere: a frame of any kind stands for its own axes.
T_VECTOR GravityToBasic(T_FRAME_D frame, const T_VECTOR& rComponents) {
    frame.eKIND = FRAME_RECTANGULAR;
    return frame.VectorToBasic(rComponents, {});
}

} // namespace

const std::vector<T_RULE_D> CNodeLoadRules::RULES = {
    {"force-basic", CLASS_NOTE, "FORCE MOMENT", "CID", "restated: components in basic axes", "fields"},
    {"force-by-grids", CLASS_NOTE, "FORCE1 FORCE2 MOMENT1 MOMENT2", "a direction by grids",
     "restated: components by the positions of the grids"},
    {"force-direction", CLASS_MODEL, "FORCE FORCE1 FORCE2 MOMENT MOMENT1 MOMENT2",
     "a direction by grids at one place or on a line, by missing grids, or in a CID that is no frame",
     "left out: loads whose direction isn't known"},
    {"force-grid", CLASS_MODEL, "FORCE FORCE1 FORCE2 MOMENT MOMENT1 MOMENT2", "a grid that the deck lacks",
     "left out: loads on grids that the deck lacks"},
    {"gravity-basic", CLASS_NOTE, "GRAV", "CID, MB", "restated: in basic axes", "fields"},
    {"gravity-sum", CLASS_NOTE, "GRAV", "several cards of one set", "restated: the sum of the cards of one set",
     "replaced"},
    {"gravity-direction", CLASS_MODEL, "GRAV", "a CID that is no frame",
     "left out: gravity whose direction isn't known"},
    {"combination-factors", CLASS_NOTE, "LOAD", "S other than 1., more than four sets, blank pairs, a set twice",
     "restated: S in the factors, four sets a card", "fields fields-past-read"},
    {"combination-scale", CLASS_MODEL, "LOAD", "a blank S, or one that makes a factor too large",
     "S isn't in the factors: it is blank, or they would be too large"},
};

std::vector<T_CARDRULES_D> CNodeLoadRules::GetCards() {
    std::vector<T_CARDRULES_D> aCards = {
        {"GRAV", [this](const CCardFields& rCard, std::uint32_t) { return GatherGRAV(rCard); },
         [this](CRestateCard& rCard) { RestateGRAV(rCard); }},
        {"LOAD", [this](const CCardFields& rCard, std::uint32_t) { return GatherLOAD(rCard); },
         [this](CRestateCard& rCard) { RestateLOAD(rCard); }},
    };
    for (const std::string_view sWord : {"FORCE", "MOMENT"}) {
        const std::string sKeyword(sWord);
        aCards.push_back({sKeyword,
                          [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherForce(rCard, iCard); },
                          [this](CRestateCard& rCard) { RestateForce(rCard); }});
        aCards.push_back({sKeyword + "1", {}, [this](CRestateCard& rCard) { RestateByGrids(rCard, false); }});
        aCards.push_back({sKeyword + "2", {}, [this](CRestateCard& rCard) { RestateByGrids(rCard, true); }});
    }
    return aCards;
}

std::uint8_t CNodeLoadRules::GatherForce(const CCardFields& rCard, std::uint32_t iCard) {
    if (!rCard.IsBlank(2) && !rCard.Is(2, "0")) return NEED_ALWAYS;
    m_aLoaded.emplace_back(iCard, rCard.Int(1));
    return NEED_NOTHING;
}

std::uint8_t CNodeLoadRules::GatherGRAV(const CCardFields& rCard) {
    const double dScale = rCard.Real(2);
    const T_VECTOR direction = {rCard.Real(3), rCard.Real(4), rCard.Real(5)};
    const T_GRAVITY_D gravity = {rCard.Int(0), rCard.Int(1), Scale(direction, dScale)};
    if (rCard.GetBroken() == CCardFields::NOWHERE) m_aGravity.push_back(gravity);
    return NEED_ALWAYS;
}

std::uint8_t CNodeLoadRules::GatherLOAD(const CCardFields& rCard) {
    const bool bNew = !m_mapCombinations.contains(rCard.Int(0));
    T_COMBINATION_D& rCombination = m_mapCombinations[rCard.Int(0)];
    const double dScale = rCard.Real(1, 1.0);
    std::size_t nSets = 0;
    bool bPlain = rCard.IsBlank(1) || dScale == 1.0;
    for (std::size_t i = 2; i < rCard.GetCount(); i += 2) {
        const std::int32_t iSet = rCard.Int(i + 1);
        const double dShare = rCard.Real(i);
        if (iSet == 0) {
            bPlain = false;
            continue;
        }
        ++nSets;
        double dFactor = dScale * dShare;
        if (!std::isfinite(dFactor)) dFactor = dShare;
        const auto [pPlace, bFirst] = rCombination.mapPlaces.try_emplace(iSet, rCombination.aSHARES.size());
        bPlain = bPlain && bFirst;
        const double dSum = bFirst ? dFactor : rCombination.aSHARES[pPlace->second].dFACTOR + dFactor;
        if (bFirst || !std::isfinite(dSum)) {
            rCombination.aSHARES.push_back({iSet, dFactor});
        } else {
            rCombination.aSHARES[pPlace->second].dFACTOR = dSum;
        }
    }
    bPlain = bPlain && nSets <= SETS_A_CARD && (bNew || rCombination.nInLast == SETS_A_CARD);
    rCombination.bPLAIN = rCombination.bPLAIN && bPlain;
    rCombination.bBROKEN = rCombination.bBROKEN || rCard.GetBroken() != CCardFields::NOWHERE;
    rCombination.nInLast = nSets;
    return NEED_ALWAYS;
}

/// Loads on grids that the deck lacks are seen now that all grids are known.
void CNodeLoadRules::Close() {
    for (const auto& [iCard, iGrid] : m_aLoaded) {
        if (!m_rModel.m_grids.Has(iGrid)) m_rCards[iCard].nNEEDS = NEED_ALWAYS;
    }
}

void CNodeLoadRules::Begin() {
    for (const T_GRAVITY_D& rGravity : m_aGravity) {
        const T_FRAME_D* pFrame = m_rModel.FindFrame(rGravity.iCID);
        if (!pFrame) continue;
        T_GRAVITYSUM_D& rSum = m_mapGravity[rGravity.iSID];
        ++rSum.nCARDS;
        rSum.dA = Add(rSum.dA, GravityToBasic(*pFrame, rGravity.dA));
    }
}

bool CNodeLoadRules::DropWithoutGrid(CRestateCard& rCard) {
    if (m_rModel.m_grids.Has(rCard.Int(1))) return false;
    rCard.Drop();
    rCard.Tell(RULES[FORCE_GRID]);
    return true;
}

void CNodeLoadRules::RestateForce(CRestateCard& rCard) {
    if (DropWithoutGrid(rCard)) return;
    rCard.Real(3);
    const T_VECTOR components = {rCard.Real(4), rCard.Real(5), rCard.Real(6)};
    const T_FRAME_D* pFrame = m_rModel.FindFrame(rCard.Int(2));
    const T_VECTOR* pPosition = m_rModel.FindPosition(rCard.Int(1));
    const bool bKnown = pFrame && (pPosition || pFrame->eKIND == FRAME_RECTANGULAR);
    const T_VECTOR basic = bKnown ? pFrame->VectorToBasic(components, pPosition ? *pPosition : T_VECTOR()) : T_VECTOR();
    if (!bKnown || !IsFinite(basic)) {
        rCard.Drop();
        return rCard.Tell(RULES[FORCE_DIRECTION]);
    }
    rCard.Set(2, {});
    for (std::size_t i = 0; i < 3; ++i) rCard.Set(4 + i, basic[i]);
    rCard.Tell(RULES[FORCE_BASIC]);
}

/// The vector between two grids; zero if one isn't known.
T_VECTOR CNodeLoadRules::DirectionOf(std::int32_t iFrom, std::int32_t iTo) const {
    const T_VECTOR *pFrom = m_rModel.FindPosition(iFrom), *pTo = m_rModel.FindPosition(iTo);
    return pFrom && pTo ? Subtract(*pTo, *pFrom) : T_VECTOR();
}

/// From G1 to G2; or that cross from G3 to G4.
void CNodeLoadRules::RestateByGrids(CRestateCard& rCard, bool bCross) {
    if (DropWithoutGrid(rCard)) return;
    T_VECTOR direction = Unit(DirectionOf(rCard.Int(3), rCard.Int(4)));
    if (bCross) {
        const T_VECTOR cross = Cross(direction, Unit(DirectionOf(rCard.Int(5), rCard.Int(6))));
        direction = Length(cross) > SMALL_SINE ? Unit(cross) : T_VECTOR();
    }
    if (IsZero(direction)) {
        rCard.Drop();
        return rCard.Tell(RULES[FORCE_DIRECTION]);
    }
    const std::string_view sKeyword = rCard.GetKeyword();
    rCard.Write(sKeyword.substr(0, sKeyword.size() - 1),
                {rCard.Int(0), rCard.Int(1), {}, rCard.Real(2), direction[0], direction[1], direction[2]});
    rCard.Tell(RULES[FORCE_BY_GRIDS]);
}

void CNodeLoadRules::RestateGRAV(CRestateCard& rCard) {
    const std::int32_t iSID = rCard.Int(0), iCID = rCard.Int(1);
    rCard.Real(2);
    const T_VECTOR direction = {rCard.Real(3), rCard.Real(4), rCard.Real(5)};
    if (rCard.GetBroken() != CCardFields::NOWHERE) return;
    const T_FRAME_D* pFrame = m_rModel.FindFrame(iCID);
    T_GRAVITYSUM_D& rSum = m_mapGravity[iSID];
    const bool bOne = rSum.nCARDS == 1;
    if (bOne && iCID == 0 && rCard.IsBlank(6)) return;
    const T_VECTOR basic = bOne && pFrame ? GravityToBasic(*pFrame, direction) : rSum.dA;
    if (!pFrame || !IsFinite(basic)) {
        rCard.Drop();
        return rCard.Tell(RULES[GRAVITY_DIRECTION]);
    }
    rCard.Tell(RULES[bOne ? GRAVITY_BASIC : GRAVITY_SUM]);
    if (bOne) {
        rCard.Set(1, {});
        for (std::size_t i = 0; i < 3; ++i) rCard.Set(3 + i, basic[i]);
        rCard.Set(6, {}); // it says where the frame is
    } else if (rSum.bWRITTEN) {
        rCard.Drop();
    } else {
        rCard.Write("GRAV", {iSID, {}, 1.0, basic[0], basic[1], basic[2]});
        rSum.bWRITTEN = true;
    }
}

void CNodeLoadRules::RestateLOAD(CRestateCard& rCard) {
    const double dScale = rCard.Real(1, 1.0);
    bool bScaled = !rCard.IsBlank(1);
    for (std::size_t i = 2; i < rCard.GetCount(); i += 2) {
        bScaled = bScaled && std::isfinite(dScale * rCard.Real(i));
        rCard.Int(i + 1);
    }
    if (!bScaled) rCard.Tell(RULES[COMBINATION_SCALE]);
    T_COMBINATION_D& rCombination = m_mapCombinations[rCard.Int(0)];
    if (rCombination.bPLAIN || rCombination.bBROKEN) return;
    rCard.Drop();
    rCard.Tell(RULES[COMBINATION_FACTORS]);
    if (rCombination.bWRITTEN) return;
    rCombination.bWRITTEN = true;
    const std::vector<T_SHARE_D>& rShares = rCombination.aSHARES;
    for (std::size_t i = 0; i < rShares.size(); i += SETS_A_CARD) {
        std::vector<CFieldValue> aFields = {rCard.Int(0), 1.0};
        for (std::size_t k = i; k < std::min(i + SETS_A_CARD, rShares.size()); ++k) {
            aFields.insert(aFields.end(), {rShares[k].dFACTOR, rShares[k].iSET});
        }
        rCard.Write("LOAD", std::move(aFields));
    }
}
