// Restates grids and frames.

#include "nas2zdt/restate/GridRules.h"

#include <limits>

namespace {

enum E_RULE { GRID_BASIC, GRID_AXES, GRID_DEFAULTS, GRID_SUPPORTS, GRID_FRAME, GRID_CD, FRAME_BASIC, FRAME_BAD };

constexpr std::int32_t BLANK = std::numeric_limits<std::int32_t>::min(); // until GRDSET is known
constexpr std::uint8_t BLANK_PS = 0x80;

constexpr const char* FRAME_WORDS[] = {"CORD2R", "CORD2C", "CORD2S"};

} // namespace

const std::vector<T_RULE_D> CGridRules::RULES = {
    {"grid-basic", CLASS_NOTE, "GRID", "CP", "restated: at its basic position"},
    {"grid-axes", CLASS_NOTE, "GRID", "CD", "restated: local axes by a frame that has them at the grid",
     "grid-cd-origin grid-cd-polar"},
    {"grid-defaults", CLASS_NOTE, "GRDSET", "defaults of grids", "restated: defaults of GRDSET filled in", "skipped"},
    {"grid-supports", CLASS_NOTE, "GRID", "PS", "restated: supports of PS in the set of supports", "support-ps"},
    {"grid-frame", CLASS_MODEL, "GRID", "a CP that is no frame", "a position that isn't known: CP is no frame"},
    {"grid-cd", CLASS_MODEL, "GRID", "a CD that is no frame", "local axes that aren't known: CD is no frame"},
    {"frame-basic", CLASS_NOTE, "CORD1R CORD1C CORD1S CORD2R CORD2C CORD2S", "frames of grids or in frames",
     "restated: frames by basic points", "frame-parent-kind frame-parent-polar frame-sphere-copied frame-grid-cp"},
    {"frame-bad", CLASS_MODEL, "CORD1R CORD1C CORD1S CORD2R CORD2C CORD2S",
     "a frame of points on a line, of missing grids or frames, or in itself", "a frame that can't be worked out"},
};

std::vector<T_CARDRULES_D> CGridRules::GetCards() {
    std::vector<T_CARDRULES_D> aCards = {
        {"GRID", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherGRID(rCard, iCard); },
         [this](CRestateCard& rCard) { RestateGRID(rCard); }},
        {"GRDSET", [this](const CCardFields& rCard, std::uint32_t) { return GatherGRDSET(rCard); },
         [](CRestateCard& rCard) { rCard.Drop(); }},
    };
    for (const E_FRAME eKind : {FRAME_RECTANGULAR, FRAME_CYLINDRICAL, FRAME_SPHERICAL}) {
        const std::string sLetter(1, FRAME_WORDS[eKind][5]);
        aCards.push_back(
            {"CORD1" + sLetter,
             [this, eKind](const CCardFields& rCard, std::uint32_t) { return GatherByGrids(rCard, eKind); },
             [this](CRestateCard& rCard) { RestateByGrids(rCard); }});
        aCards.push_back(
            {"CORD2" + sLetter,
             [this, eKind](const CCardFields& rCard, std::uint32_t) { return GatherByPoints(rCard, eKind); },
             [this](CRestateCard& rCard) { RestateByPoints(rCard); }});
    }
    return aCards;
}

std::uint8_t CGridRules::GatherGRID(const CCardFields& rCard, std::uint32_t iCard) {
    T_POINT_D grid;
    grid.iCARD = iCard;
    grid.iCP = rCard.Int(1, BLANK);
    for (std::size_t i = 0; i < 3; ++i) grid.dX[i] = rCard.Real(2 + i);
    grid.iCD = rCard.Int(5, BLANK);
    grid.nPS = rCard.IsBlank(6) ? BLANK_PS : rCard.Components(6);
    const bool bBasic = (grid.iCP == BLANK || grid.iCP == 0) && (grid.iCD == BLANK || grid.iCD == 0);
    m_rModel.m_grids.Put(rCard.Int(0), grid);
    return bBasic && (grid.nPS == BLANK_PS || grid.nPS == 0) ? NEED_GRDSET : NEED_ALWAYS;
}

std::uint8_t CGridRules::GatherGRDSET(const CCardFields& rCard) {
    m_defaults = {true, rCard.Int(1), rCard.Int(5), rCard.Components(6)};
    m_rTold.Tell(RULES[GRID_DEFAULTS], rCard.GetKeyword(), rCard.GetOrigin());
    return NEED_ALWAYS;
}

std::uint8_t CGridRules::GatherByGrids(const CCardFields& rCard, E_FRAME eKind) {
    for (std::size_t i = 0; i <= 4; i += 4) {
        if (rCard.IsBlank(i)) continue;
        T_FRAMECARD_D frame;
        frame.eKIND = eKind;
        frame.bGRIDS = true;
        for (std::size_t k = 0; k < 3; ++k) frame.iG[k] = rCard.Int(i + 1 + k);
        m_rModel.m_frames.Put(rCard.Int(i), frame);
    }
    return NEED_ALWAYS;
}

std::uint8_t CGridRules::GatherByPoints(const CCardFields& rCard, E_FRAME eKind) {
    T_FRAMECARD_D frame;
    frame.eKIND = eKind;
    frame.iRID = rCard.Int(1);
    for (std::size_t i = 0; i < 9; ++i) frame.dPOINTS[i / 3][i % 3] = rCard.Real(2 + i);
    m_rModel.m_frames.Put(rCard.Int(0), frame);
    return NEED_ALWAYS;
}

void CGridRules::Close() {
    if (m_defaults.bGIVEN) m_rModel.m_nActive |= NEED_GRDSET;
    for (auto& [iID, rGrid] : m_rModel.m_grids.GetRows()) {
        if (rGrid.iCP == BLANK) rGrid.iCP = m_defaults.iCP;
        if (rGrid.iCD == BLANK) rGrid.iCD = m_defaults.iCD;
        if (rGrid.nPS == BLANK_PS) rGrid.nPS = m_defaults.nPS;
        if (rGrid.iCD != 0) m_rModel.m_nActive |= NEED_CD;
    }
}

void CGridRules::RestateGRID(CRestateCard& rCard) {
    const std::int32_t iCP = rCard.Int(1, m_defaults.iCP), iCD = rCard.Int(5, m_defaults.iCD);
    const std::uint8_t nPS = rCard.IsBlank(6) ? m_defaults.nPS : rCard.Components(6);
    T_VECTOR position;
    for (std::size_t i = 0; i < 3; ++i) position[i] = rCard.Real(2 + i);
    if (rCard.GetBroken() != CCardFields::NOWHERE) return; // before a frame is made for it
    const T_FRAME_D* pFrame = m_rModel.FindFrame(iCP);
    if (!pFrame) {
        rCard.Set(1, iCP);
        rCard.Tell(RULES[GRID_FRAME]);
    } else if (iCP != 0) {
        position = pFrame->ToBasic(position);
        rCard.Set(1, {});
        for (std::size_t i = 0; i < 3; ++i) rCard.Set(2 + i, position[i]);
        rCard.Tell(RULES[GRID_BASIC]);
    }
    if (iCD != 0) {
        const std::int32_t iAxes = AxesFrame(iCD, position, rCard.GetOrigin());
        if (iAxes == 0) rCard.Tell(RULES[GRID_CD]);
        if (iAxes != 0 && iAxes != iCD) rCard.Tell(RULES[GRID_AXES]);
        const std::int32_t iNew = iAxes == 0 ? iCD : iAxes;
        if (iNew != rCard.Int(5)) rCard.Set(5, iNew);
    }
    if (nPS == 0) return;
    if (!rCard.IsBlank(6)) rCard.Set(6, {});
    rCard.Tell(RULES[GRID_SUPPORTS]);
}

/// A rectangular frame at the basic origin with the axes of frame iCD at a position; 0 if there is no such frame. The
/// file takes axes from such a frame alone.
std::int32_t CGridRules::AxesFrame(std::int32_t iCD, const T_VECTOR& rPosition, const T_ORIGINLINE_D& rOrigin) {
    const T_FRAME_D* pFrame = m_rModel.FindFrame(iCD);
    if (!pFrame) return 0;
    if (pFrame->eKIND == FRAME_RECTANGULAR && IsZero(pFrame->dORIGIN)) return iCD;
    const std::array<T_VECTOR, 3> axes = pFrame->AxesAt(rPosition);
    const auto [pAxes, bNew] = m_mapAxes.try_emplace(axes, 0);
    if (bNew) {
        pAxes->second = m_rModel.NewFrameId();
        m_aAxes.push_back({pAxes->second, axes, rOrigin});
    }
    return pAxes->second;
}

/// Writes a frame by basic points. False if it isn't known.
bool CGridRules::WriteFrame(CRestateCard& rCard, std::int32_t iCID) {
    const T_FRAME_D* pFrame = m_rModel.FindFrame(iCID);
    if (!pFrame) return false;
    std::vector<CFieldValue> aFields = {iCID, {}};
    for (const T_VECTOR& rPoint :
         {pFrame->dORIGIN, Add(pFrame->dORIGIN, pFrame->dAXES[2]), Add(pFrame->dORIGIN, pFrame->dAXES[0])}) {
        aFields.insert(aFields.end(), {rPoint[0], rPoint[1], rPoint[2]});
    }
    rCard.Write(FRAME_WORDS[pFrame->eKIND], std::move(aFields));
    return true;
}

void CGridRules::RestateByGrids(CRestateCard& rCard) {
    bool bKnown = true;
    for (std::size_t i = 0; i <= 4; i += 4) {
        if (!rCard.IsBlank(i) && !WriteFrame(rCard, rCard.Int(i))) bKnown = false;
    }
    rCard.Tell(RULES[bKnown ? FRAME_BASIC : FRAME_BAD]);
}

void CGridRules::RestateByPoints(CRestateCard& rCard) {
    if (rCard.Int(1) == 0 && m_rModel.FindFrame(rCard.Int(0))) return;
    rCard.Tell(RULES[WriteFrame(rCard, rCard.Int(0)) ? FRAME_BASIC : FRAME_BAD]);
}

void CGridRules::Finish(CCardWriter& rWriter) {
    for (const T_AXES_D& rAxes : m_aAxes) {
        const T_VECTOR &z = rAxes.dAXES[2], &x = rAxes.dAXES[0];
        rWriter.SetOrigin(rAxes.origin);
        rWriter.Write("CORD2R", {rAxes.iCID, {}, 0.0, 0.0, 0.0, z[0], z[1], z[2], x[0], x[1], x[2]});
    }
}
