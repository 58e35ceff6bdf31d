// Restates bushes.

#include "nas2zdt/restate/BushRules.h"

#include "nas2zdt/restate/FieldText.h"

#include <algorithm>
#include <cmath>

namespace {

enum E_RULE { BUSH_PID, BUSH_AXES, BUSH_TURNED };

enum E_FIELD : std::size_t { FIELD_EID, FIELD_PID, FIELD_GA, FIELD_GB, FIELD_X1, FIELD_X2, FIELD_X3, FIELD_CID };

constexpr double COINCIDENT = 1e-4; // grids that are nearer have no line between them
constexpr double PARALLEL = 1e-6;   // directions that differ by less, as a sine, are the same
constexpr double NEARLY = 1e-4;     // a vector nearer to the element, as a sine, says nothing of its axes

/// The part of a vector across another, of unit length; zero if there is none.
T_VECTOR Across(const T_VECTOR& rVector, const T_VECTOR& rAlong) {
    const double dLength = Length(rVector), dAlong = Length(rAlong);
    if (!(dLength > 0.0) || !(dAlong > 0.0)) return {};
    const T_VECTOR unit = Scale(rVector, 1.0 / dLength), along = Scale(rAlong, 1.0 / dAlong);
    const T_VECTOR across = Subtract(unit, Scale(along, Dot(unit, along)));
    const double dAcross = Length(across);
    return dAcross > PARALLEL ? Scale(across, 1.0 / dAcross) : T_VECTOR{};
}

bool AreOnALine(const T_VECTOR& rA, const T_VECTOR& rB) {
    return Length(Cross(rA, rB)) <= PARALLEL * Length(rA) * Length(rB);
}

/// The vector or its opposite: the one towards rSide or, where that is across it, towards rOther. Which one it is must
/// not hang on rounding.
T_VECTOR Towards(const T_VECTOR& rVector, const T_VECTOR& rSide, const T_VECTOR& rOther) {
    const double dSide = Dot(rVector, rSide);
    const bool bAcross = std::fabs(dSide) <= PARALLEL * Length(rVector) * Length(rSide);
    return (bAcross ? Dot(rVector, rOther) : dSide) < 0.0 ? Scale(rVector, -1.0) : rVector;
}

/// The vector whose angle in the file turns a link's Y axis to rY, or half a turn from it, which is the same for
/// stiffnesses along axes. The file counts from where Y is level; its angle is that of the Y axis itself for links that
/// are level (from 0 to 180) or upright (from 90 to 270), and for others 90 degrees less (from -90 to 90).
T_VECTOR VectorForFile(const T_VECTOR& rY, const T_VECTOR& rAlong) {
    constexpr double LEVEL = 0.0001; // the converter's
    if (std::fabs(rAlong[0]) < LEVEL && std::fabs(rAlong[1]) < LEVEL) {
        return Towards(rY, {0.0, rAlong[2], 0.0}, {1.0, 0.0, 0.0}); // not along the global X axis cross the link
    }
    const T_VECTOR vector = std::fabs(rAlong[2]) < LEVEL ? rY : Cross(rAlong, rY);
    const T_VECTOR level = {-rAlong[1], rAlong[0], 0.0};
    return Towards(vector, Cross(rAlong, level), level);
}

bool HaveEqualAxes(const T_BUSHLINE_D* pLine) {
    return !pLine || (pLine->sVALUES[1] == pLine->sVALUES[2] && pLine->sVALUES[4] == pLine->sVALUES[5]);
}

} // namespace

const std::vector<T_RULE_D> CBushRules::RULES = {
    {"bush-pid", CLASS_NOTE, "CBUSH", "a blank PID", "restated: PID is EID", "element-property-blank"},
    {"bush-axes", CLASS_NOTE, "CBUSH", "CID, G0 or a vector whose angle the file has otherwise",
     "restated: a vector whose angle in the file gives the meant axes", "link-grid-cp"},
    {"bush-turned", CLASS_NOTE, "CBUSH", "a CID whose second or third axis is along the element",
     "restated: a PBUSH with the axes in the file's order"},
};

std::vector<T_CARDRULES_D> CBushRules::GetCards() {
    return {{"CBUSH", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherCBUSH(rCard, iCard); },
             [this](CRestateCard& rCard) { RestateCBUSH(rCard); }}};
}

std::uint8_t CBushRules::GatherCBUSH(const CCardFields& rCard, std::uint32_t iCard) {
    m_rModel.m_elements.Put(rCard.Int(FIELD_EID), iCard);
    return NEED_ALWAYS;
}

void CBushRules::RestateCBUSH(CRestateCard& rCard) {
    if (rCard.IsBlank(FIELD_PID)) {
        rCard.Set(FIELD_PID, rCard.Int(FIELD_EID));
        rCard.Tell(RULES[BUSH_PID]);
    }
    const T_VECTOR* pFrom = m_rModel.FindPosition(rCard.Int(FIELD_GA));
    const T_VECTOR* pTo = rCard.IsBlank(FIELD_GB) ? nullptr : m_rModel.FindPosition(rCard.Int(FIELD_GB));
    if (!pFrom || !pTo) return;
    const T_VECTOR along = Subtract(*pTo, *pFrom);
    if (Length(along) > COINCIDENT) RestateAxes(rCard, *pFrom, along);
}

/// What NASTRAN takes the axes from: CID, else G0, else the vector in the CD axes of the first grid. False if they
/// aren't known, or if no axis of CID is along the element.
bool CBushRules::FindMeant(const CCardFields& rCard, const T_VECTOR& rFrom, const T_VECTOR& rAlong,
                           T_MEANT_D& rMeant) const {
    if (!rCard.IsBlank(FIELD_CID)) {
        const T_FRAME_D* pFrame = m_rModel.FindFrame(rCard.Int(FIELD_CID));
        if (!pFrame) return false;
        const std::array<T_VECTOR, 3> axes = pFrame->AxesAt(rFrom);
        const auto pAlong =
            std::find_if(axes.begin(), axes.end(), [&](const T_VECTOR& rAxis) { return AreOnALine(rAxis, rAlong); });
        if (pAlong == axes.end()) return false;
        rMeant.iTURN = static_cast<std::size_t>(pAlong - axes.begin());
        rMeant.dY = axes[(rMeant.iTURN + 1) % 3];
    } else if (rCard.HasInt(FIELD_X1) && rCard.IsBlank(FIELD_X2) && rCard.IsBlank(FIELD_X3)) {
        const T_VECTOR* pGrid = m_rModel.FindPosition(rCard.Int(FIELD_X1));
        if (!pGrid) return false;
        rMeant.dY = Subtract(*pGrid, rFrom);
    } else {
        const T_POINT_D* pFirst = m_rModel.m_grids.Find(rCard.Int(FIELD_GA));
        const T_FRAME_D* pFrame = m_rModel.FindFrame(pFirst->iCD);
        if (!pFrame) return false;
        const T_VECTOR vector = {rCard.Real(FIELD_X1), rCard.Real(FIELD_X2), rCard.Real(FIELD_X3)};
        rMeant.dY = pFrame->VectorToBasic(vector, rFrom);
    }
    return Length(Cross(rMeant.dY, rAlong)) > NEARLY * Length(rMeant.dY) * Length(rAlong);
}

/// The vector that the converter makes the angle of.
T_VECTOR CBushRules::ReadByConverter(const CCardFields& rCard, const T_VECTOR& rFrom) const {
    if (rCard.Text(FIELD_X1).find('.') != std::string_view::npos) {
        return {rCard.Real(FIELD_X1), rCard.Real(FIELD_X2), rCard.Real(FIELD_X3)};
    }
    const T_VECTOR* pGrid = rCard.HasInt(FIELD_X1) ? m_rModel.FindPosition(rCard.Int(FIELD_X1)) : nullptr;
    return pGrid ? Subtract(*pGrid, rFrom) : T_VECTOR{};
}

void CBushRules::RestateAxes(CRestateCard& rCard, const T_VECTOR& rFrom, const T_VECTOR& rAlong) {
    T_MEANT_D meant;
    if (!FindMeant(rCard, rFrom, rAlong, meant)) return;
    std::int32_t iPID = rCard.Int(FIELD_PID, rCard.Int(FIELD_EID));
    const std::vector<T_BUSHLINE_D>& rLines = FindLines(iPID);
    const bool bAnyAxes = !rLines.empty() && meant.iTURN == 0 && HaveEqualAxes(FindBushLine(rLines, "K")) &&
                          HaveEqualAxes(FindBushLine(rLines, "B"));
    const T_VECTOR vector = bAnyAxes ? meant.dY : VectorForFile(meant.dY, rAlong);

    const T_FRAME_D* pFrame = m_rModel.FindFrame(m_rModel.m_grids.Find(rCard.Int(FIELD_GA))->iCD);
    // The converter takes the vector as a basic one and passes CID over, while NASTRAN takes CID first: where the
    // vector doesn't mean the axes by itself, both are given.
    const bool bFrame =
        !pFrame || !AreOnALine(Across(pFrame->VectorToBasic(vector, rFrom), rAlong), Across(meant.dY, rAlong));
    const bool bTurned = meant.iTURN != 0 && !rLines.empty();
    if (meant.iTURN != 0 && !bTurned) return;
    const T_VECTOR difference = Subtract(Across(ReadByConverter(rCard, rFrom), rAlong), Across(vector, rAlong));
    const bool bVector = Length(difference) > PARALLEL;
    const bool bCID = bTurned || bFrame == rCard.IsBlank(FIELD_CID);
    if (!bVector && !bCID) return;
    if (rCard.GetBroken() != CCardFields::NOWHERE) return; // goes through as it stands, and needs no frame
    if (bTurned) {
        rCard.Set(FIELD_PID, TurnedProperty(iPID, meant.iTURN, rCard.GetOrigin()));
        rCard.Tell(RULES[BUSH_TURNED]);
    }
    for (std::size_t i = 0; bVector && i < 3; ++i) rCard.Set(FIELD_X1 + i, vector[i] + 0.0); // no -0.
    if (bCID) {
        rCard.Set(FIELD_CID, bFrame ? CFieldValue(AxesFrame(rAlong, meant.dY, rCard.GetOrigin())) : CFieldValue());
    }
    rCard.Tell(RULES[BUSH_AXES]);
}

const std::vector<T_BUSHLINE_D>& CBushRules::FindLines(std::int32_t iPID) {
    const auto [pLines, bNew] = m_mapLines.try_emplace(iPID);
    const std::uint32_t* pCard = bNew ? m_rModel.m_properties.Find(iPID) : nullptr;
    if (pCard) {
        CCardFields card;
        card.Read(m_rCards[*pCard]);
        if (card.GetKeyword() == "PBUSH") pLines->second = ReadBushLines(card);
    }
    return pLines->second;
}

/// A PBUSH whose first axis is axis iTurn of the given one, and so on in order.
std::int32_t CBushRules::TurnedProperty(std::int32_t iPID, std::size_t iTurn, const T_ORIGINLINE_D& rOrigin) {
    const auto [pTurned, bNew] = m_mapTurned.try_emplace({iPID, iTurn}, 0);
    if (!bNew) return pTurned->second;
    pTurned->second = m_rModel.NewPropertyId();
    std::vector<T_BUSHLINE_D> aLines = FindLines(iPID);
    for (T_BUSHLINE_D& rLine : aLines) {
        if (rLine.sWORD != "K" && rLine.sWORD != "B" && rLine.sWORD != "GE") continue;
        for (std::size_t i = 0; i < 6; i += 3) {
            const auto pFirst = rLine.sVALUES.begin() + static_cast<std::ptrdiff_t>(i);
            std::rotate(pFirst, pFirst + static_cast<std::ptrdiff_t>(iTurn), pFirst + 3);
        }
    }
    m_aTurned.push_back({pTurned->second, std::move(aLines), rOrigin});
    return pTurned->second;
}

/// A frame with X along the element and Y towards rY.
std::int32_t CBushRules::AxesFrame(const T_VECTOR& rAlong, const T_VECTOR& rY, const T_ORIGINLINE_D& rOrigin) {
    const T_VECTOR x = Scale(rAlong, 1.0 / Length(rAlong));
    const std::array<T_VECTOR, 2> axes = {Cross(x, Across(rY, rAlong)), x};
    const auto [pAxes, bNew] = m_mapAxes.try_emplace(axes, 0);
    if (bNew) {
        pAxes->second = m_rModel.NewFrameId();
        m_aAxes.push_back({pAxes->second, axes, rOrigin});
    }
    return pAxes->second;
}

void CBushRules::Finish(CCardWriter& rWriter) {
    for (const auto& rTurned : m_aTurned) {
        rWriter.SetOrigin(rTurned.origin);
        rWriter.Write("PBUSH", BushFields(rTurned.iID, rTurned.value));
    }
    for (const auto& rAxes : m_aAxes) {
        const auto& [z, x] = rAxes.value;
        rWriter.SetOrigin(rAxes.origin);
        rWriter.Write("CORD2R", {rAxes.iID, {}, 0.0, 0.0, 0.0, z[0], z[1], z[2], x[0], x[1], x[2]});
    }
}
