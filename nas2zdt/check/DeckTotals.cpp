// Grids, frames, elements and masses of a deck.

#include "nas2zdt/check/DeckTotals.h"

#include <algorithm>
#include <cmath>
#include <string_view>

const std::vector<CDeckTotals::T_ROW_D> CDeckTotals::ROWS = {
    {"GRDSET", PHASE_DEFAULTS, &CDeckTotals::TakeGRDSET},
    {"BAROR", PHASE_DEFAULTS, &CDeckTotals::TakeBAROR},
    {"BEAMOR", PHASE_DEFAULTS, &CDeckTotals::TakeBEAMOR},
    {"GRID", PHASE_MODEL, &CDeckTotals::TakeGRID},
    {"CORD1R", PHASE_MODEL, &CDeckTotals::TakeByGrids},
    {"CORD1C", PHASE_MODEL, &CDeckTotals::TakeByGrids},
    {"CORD1S", PHASE_MODEL, &CDeckTotals::TakeByGrids},
    {"CORD2R", PHASE_MODEL, &CDeckTotals::TakeByPoints},
    {"CORD2C", PHASE_MODEL, &CDeckTotals::TakeByPoints},
    {"CORD2S", PHASE_MODEL, &CDeckTotals::TakeByPoints},
    {"CBAR", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINE, 2>},
    {"CBEAM", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINE, 2>},
    {"CBEND", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINE, 2>},
    {"CROD", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINE, 2>},
    {"CTUBE", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINE, 2>},
    {"CONROD", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINE, 1>},
    {"CTRIA3", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_TRIANGLE, 2>},
    {"CTRIA6", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_TRIANGLE, 2>},
    {"CTRIAR", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_TRIANGLE, 2>},
    {"CQUAD4", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_QUAD, 2>},
    {"CQUAD8", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_QUAD, 2>},
    {"CQUADR", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_QUAD, 2>},
    {"CSHEAR", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_QUAD, 2>},
    {"CTETRA", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_TETRA, 2>},
    {"CPENTA", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_WEDGE, 2>},
    {"CHEXA", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_HEXA, 2>},
    {"CBUSH", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINK, 2>},
    {"CGAP", PHASE_MODEL, &CDeckTotals::TakeElement<BODY_LINK, 2>},
    {"CELAS1", PHASE_MODEL, &CDeckTotals::TakeSpring},
    {"CELAS2", PHASE_MODEL, &CDeckTotals::TakeSpring},
    {"CONM2", PHASE_MODEL, &CDeckTotals::TakeMass},
    {"CONM1", PHASE_MODEL, &CDeckTotals::TakePointMatrix},
    {"SPC", PHASE_REST, &CDeckTotals::TakeSPC},
    {"SPC1", PHASE_REST, &CDeckTotals::TakeSPC1},
    {"SPCADD", PHASE_REST, &CDeckTotals::TakeSum},
    {"MPC", PHASE_REST, &CDeckTotals::TakeMPC},
    {"MPCADD", PHASE_REST, &CDeckTotals::TakeSum},
    {"RBE2", PHASE_REST, &CDeckTotals::TakeRBE2},
    {"RBE1", PHASE_REST, &CDeckTotals::TakeRBE1},
    {"RBAR", PHASE_REST, &CDeckTotals::TakeRBAR},
    {"FORCE", PHASE_REST, &CDeckTotals::TakeForce},
    {"MOMENT", PHASE_REST, &CDeckTotals::TakeForce},
    {"FORCE1", PHASE_REST, &CDeckTotals::TakeForceAlong},
    {"MOMENT1", PHASE_REST, &CDeckTotals::TakeForceAlong},
    {"FORCE2", PHASE_REST, &CDeckTotals::TakeForceAcross},
    {"MOMENT2", PHASE_REST, &CDeckTotals::TakeForceAcross},
    {"GRAV", PHASE_REST, &CDeckTotals::TakeGRAV},
    {"LOAD", PHASE_REST, &CDeckTotals::TakeLOAD},
    {"PLOAD", PHASE_REST, &CDeckTotals::TakePLOAD},
    {"PLOAD1", PHASE_REST, &CDeckTotals::TakePLOAD1},
    {"PLOAD2", PHASE_REST, &CDeckTotals::TakePLOAD2},
    {"PLOAD4", PHASE_REST, &CDeckTotals::TakePLOAD4},
    {"TEMP", PHASE_REST, &CDeckTotals::TakeTEMP},
    {"TEMPD", PHASE_REST, &CDeckTotals::TakeTEMPD},
    {"TEMPP1", PHASE_REST, &CDeckTotals::TakeElementTemperatures},
    {"TEMPRB", PHASE_REST, &CDeckTotals::TakeElementTemperatures},
    {"SPCD", PHASE_REST, &CDeckTotals::TakeSPCD},
};

CDeckTotals::CDeckTotals(const std::string& sDeck, const T_CHOICE_D& rChoice) : m_sDeck(sDeck) {
    CTold told;
    CSourceDeck source(told, rChoice.iPART);
    source.Read(sDeck, rChoice.join);
    ChooseCase(source, rChoice);
    std::map<std::string_view, const T_ROW_D*> mapRows;
    for (const T_ROW_D& rRow : ROWS) mapRows[rRow.sKEYWORD] = &rRow;
    using PLAN = std::vector<std::pair<const T_SOURCECARD_D*, const T_ROW_D*>>;
    std::array<PLAN, PHASE_COUNT> aPlans;
    for (const T_SOURCECARD_D& rCard : source.GetCards()) {
        m_card.Read(rCard);
        const auto pRow = mapRows.find(m_card.GetKeyword());
        if (pRow != mapRows.end()) aPlans[pRow->second->ePHASE].emplace_back(&rCard, pRow->second);
    }
    for (const PLAN& rPlan : aPlans) {
        if (&rPlan == &aPlans[PHASE_REST]) AddModel();
        for (const auto& [pCard, pRow] : rPlan) {
            m_card.Read(*pCard);
            (this->*pRow->TAKE)();
        }
    }
    AddSupports();
    AddEquations();
    AddTemperatures();
    AddCombinations();
}

void CDeckTotals::ChooseCase(const CSourceDeck& rSource, const T_CHOICE_D& rChoice) {
    CCaseRequests requests;
    bool bCase = false;
    for (const T_CONTROL_D& rLine : rSource.GetControl()) {
        if (StartsWithoutCase(rLine.sTEXT, "CEND")) {
            bCase = true;
        } else if (bCase) {
            const T_CASELINE_D line = ReadCaseLine(rLine.sTEXT);
            m_bAsked = m_bAsked || line.pASKED;
            requests.Add(line);
        }
    }
    const std::vector<T_CASE_D> aCases = requests.GetCases();
    m_case = aCases.front();
    for (const T_CASE_D& rCase : aCases) {
        if (rCase.iID == rChoice.iSUBCASE) {
            m_case = rCase;
            break;
        }
    }
}

void CDeckTotals::TakeGRDSET() {
    const T_GRIDDEFAULTS_D defaults = {m_card.Int(1), m_card.Int(5), m_card.Components(6)};
    if (IsSound()) m_gridDefaults = defaults;
}

void CDeckTotals::TakeGRID() {
    T_POINT_D grid;
    const std::int32_t iGrid = m_card.Int(0);
    grid.iCP = m_card.Int(1, m_gridDefaults.iCP);
    grid.dX = {m_card.Real(2), m_card.Real(3), m_card.Real(4)};
    grid.iCD = m_card.Int(5, m_gridDefaults.iCD);
    grid.nPS = m_card.IsBlank(6) ? m_gridDefaults.nPS : m_card.Components(6);
    if (IsSound()) m_model.m_grids.Put(iGrid, grid);
}

namespace {

E_FRAME FrameKind(std::string_view sKeyword) {
    return sKeyword.back() == 'R' ? FRAME_RECTANGULAR : sKeyword.back() == 'C' ? FRAME_CYLINDRICAL : FRAME_SPHERICAL;
}

} // namespace

void CDeckTotals::TakeByGrids() {
    for (std::size_t i = 0; i <= 4; i += 4) {
        if (m_card.IsBlank(i)) continue;
        T_FRAMECARD_D frame;
        frame.eKIND = FrameKind(m_card.GetKeyword());
        frame.bGRIDS = true;
        const std::int32_t iCID = m_card.Int(i);
        frame.iG = {m_card.Int(i + 1), m_card.Int(i + 2), m_card.Int(i + 3)};
        if (IsSound()) m_model.m_frameCards.Put(iCID, frame);
    }
}

void CDeckTotals::TakeByPoints() {
    T_FRAMECARD_D frame;
    frame.eKIND = FrameKind(m_card.GetKeyword());
    const std::int32_t iCID = m_card.Int(0);
    frame.iRID = m_card.Int(1);
    for (std::size_t i = 0; i < 9; ++i) frame.dPOINTS[i / 3][i % 3] = m_card.Real(2 + i);
    if (IsSound()) m_model.m_frameCards.Put(iCID, frame);
}

/// The orientation of a bar or of BAROR: a vector or grid from field iFirst on, then OFFT, whose "B" stands for a basic
/// vector.
CDeckTotals::T_ORIENTATION_D CDeckTotals::ReadOrientation(std::size_t iFirst) const {
    T_ORIENTATION_D read;
    read.bBASIC = !m_card.IsBlank(iFirst + 3) && ToUpper(m_card.Text(iFirst + 3)[0]) == 'B';
    if (m_card.HasInt(iFirst) && m_card.IsBlank(iFirst + 1) && m_card.IsBlank(iFirst + 2)) {
        read.iG0 = m_card.Int(iFirst);
    } else if (!m_card.IsBlank(iFirst) || !m_card.IsBlank(iFirst + 1) || !m_card.IsBlank(iFirst + 2)) {
        read.vector = {m_card.Real(iFirst), m_card.Real(iFirst + 1), m_card.Real(iFirst + 2)};
    }
    return read;
}

void CDeckTotals::TakeBody(E_BODY eBody, std::size_t iFirst) {
    T_DECKBODY_D body{eBody, {}};
    const std::int32_t iEID = m_card.Int(0);
    for (std::size_t i = 0; i < BODY_CORNERS[eBody]; ++i) body.aNODES[i] = m_card.Int(iFirst + i);
    const bool bBeam = m_card.GetKeyword() == "CBEAM";
    body.bBAR = bBeam || m_card.GetKeyword() == "CBAR";
    if (body.bBAR) {
        const T_ORIENTATION_D& rDefaults = bBeam ? m_beamDefaults : m_barDefaults;
        body.orientation = ReadOrientation(4);
        if (!body.orientation.iG0 && !body.orientation.vector) {
            body.orientation.iG0 = rDefaults.iG0;
            body.orientation.vector = rDefaults.vector;
        }
        if (m_card.IsBlank(7)) body.orientation.bBASIC = rDefaults.bBASIC;
    }
    if (IsSound()) m_bodies.Put(iEID, body);
}

/// An end without a grid or without a component is ground.
void CDeckTotals::TakeSpring() {
    std::array<std::int32_t, 8> nodes = {};
    std::size_t nEnds = 0;
    const std::int32_t iEID = m_card.Int(0);
    for (std::size_t i = 2; i <= 4; i += 2) {
        const std::int32_t iGrid = m_card.Int(i), iComponent = m_card.Int(i + 1);
        if (iGrid != 0 && iComponent != 0) nodes[nEnds++] = iGrid;
    }
    if (nEnds > 0 && IsSound()) m_bodies.Put(iEID, {BODY_LINK, nodes});
}

void CDeckTotals::TakeMass() {
    const std::int32_t iEID = m_card.Int(0);
    T_DECKMASS_D mass = {
        m_card.Int(1), m_card.Int(2), m_card.Real(3), {m_card.Real(4), m_card.Real(5), m_card.Real(6)}, {}};
    for (std::size_t i = 8; i <= 13; ++i) {
        const double dValue = m_card.Real(i);
        mass.inertia.Add(i == 8 || i == 10 || i == 13 ? dValue : 0.0, std::fabs(dValue));
    }
    if (IsSound()) m_masses.Put(iEID, mass);
}

/// The lower triangle of a matrix, row by row, is a mass in a point if there is nothing beside the diagonal and its
/// first three values are equal.
void CDeckTotals::TakePointMatrix() {
    constexpr std::array<std::size_t, 6> DIAGONAL = {0, 2, 5, 9, 14, 20};
    bool bPoint = true;
    std::array<double, 6> dDiagonal = {};
    const std::int32_t iEID = m_card.Int(0), iGrid = m_card.Int(1);
    m_card.Int(2);
    for (std::size_t i = 0; i < 21; ++i) {
        const double dValue = m_card.Real(3 + i);
        const auto pPlace = std::find(DIAGONAL.begin(), DIAGONAL.end(), i);
        if (pPlace != DIAGONAL.end()) {
            dDiagonal[static_cast<std::size_t>(pPlace - DIAGONAL.begin())] = dValue;
        } else {
            bPoint = bPoint && dValue == 0.0;
        }
    }
    bPoint = bPoint && dDiagonal[0] == dDiagonal[1] && dDiagonal[1] == dDiagonal[2];
    if (!bPoint || !IsSound()) return;
    T_SUM_D inertia;
    for (std::size_t i = 3; i < 6; ++i) inertia.Add(dDiagonal[i]);
    m_masses.Put(iEID, {iGrid, 0, dDiagonal[0], {}, inertia});
}

void CDeckTotals::AddModel() {
    m_model.Resolve();
    for (const auto& rRow : m_model.m_grids.GetRows()) {
        const auto& [iGrid, grid] = rRow;
        if (m_model.m_grids.Find(iGrid) != &grid) continue; // a later one has its id
        m_totals.AddNode(iGrid, grid.dX);
        const T_FRAME_D* pFrame = grid.iCD == 0 ? nullptr : m_model.FindFrame(grid.iCD);
        if (pFrame) m_totals.AddAxes(iGrid, pFrame->AxesAt(grid.dX));
    }
    AddElements();
    AddMasses();
}

void CDeckTotals::AddElements() {
    for (const auto& [iEID, body] : m_bodies.GetRows()) {
        if (m_bodies.Find(iEID) != &body) continue;
        m_totals.AddElement(body.eBODY, iEID, body.aNODES.data(),
                            [&](std::int32_t iGrid) { return m_model.FindPosition(iGrid); });
    }
}

/// An offset is in the axes of a frame at the grid, or with frame -1 the position itself.
void CDeckTotals::AddMasses() {
    for (const auto& [iEID, mass] : m_masses.GetRows()) {
        const T_VECTOR* pGrid = m_model.FindPosition(mass.iGRID);
        const T_FRAME_D* pFrame = mass.iCID == -1 ? nullptr : m_model.FindFrame(mass.iCID);
        if (m_masses.Find(iEID) != &mass || !pGrid || (!pFrame && mass.iCID != -1)) continue;
        const T_VECTOR at = pFrame ? Add(*pGrid, pFrame->VectorToBasic(mass.offset, *pGrid)) : mass.offset;
        m_totals.AddMass(mass.dMASS, at, mass.inertia);
    }
}

bool CDeckTotals::FindCorners(const T_DECKBODY_D& rBody, std::array<T_VECTOR, 8>& rCorners) const {
    for (std::size_t i = 0; i < BODY_CORNERS[rBody.eBODY]; ++i) {
        const T_VECTOR* pPosition = m_model.FindPosition(rBody.aNODES[i]);
        if (!pPosition) return false;
        rCorners[i] = *pPosition;
    }
    return true;
}
