// Nodes, elements and masses of a deck.

#include "nas2zdt/check/DeckTotals.h"

#include <algorithm>
#include <cmath>

const std::vector<CDeckTotals::T_ROW_D> CDeckTotals::ROWS = {
    {"CONM2", &CDeckTotals::TakeMass},
    {"CONM1", &CDeckTotals::TakePointMatrix},
    {"SPC", &CDeckTotals::TakeSPC},
    {"SPC1", &CDeckTotals::TakeSPC1},
    {"SPCADD", &CDeckTotals::TakeSum},
    {"MPC", &CDeckTotals::TakeMPC},
    {"MPCADD", &CDeckTotals::TakeSum},
    {"RBE2", &CDeckTotals::TakeRBE2},
    {"RBE1", &CDeckTotals::TakeRBE1},
    {"RBAR", &CDeckTotals::TakeRBAR},
    {"FORCE", &CDeckTotals::TakeForce},
    {"MOMENT", &CDeckTotals::TakeForce},
    {"FORCE1", &CDeckTotals::TakeForceAlong},
    {"MOMENT1", &CDeckTotals::TakeForceAlong},
    {"FORCE2", &CDeckTotals::TakeForceAcross},
    {"MOMENT2", &CDeckTotals::TakeForceAcross},
    {"GRAV", &CDeckTotals::TakeGRAV},
    {"LOAD", &CDeckTotals::TakeLOAD},
    {"PLOAD", &CDeckTotals::TakePLOAD},
    {"PLOAD1", &CDeckTotals::TakePLOAD1},
    {"PLOAD2", &CDeckTotals::TakePLOAD2},
    {"PLOAD4", &CDeckTotals::TakePLOAD4},
    {"TEMP", &CDeckTotals::TakeTEMP},
    {"TEMPD", &CDeckTotals::TakeTEMPD},
    {"TEMPP1", &CDeckTotals::TakeElementTemperatures},
    {"TEMPRB", &CDeckTotals::TakeElementTemperatures},
    {"SPCD", &CDeckTotals::TakeSPCD},
};

CDeckTotals::CDeckTotals(const CCheckDeck& rDeck) : m_rDeck(rDeck), m_rGrids(rDeck.GetGrids()) {
    for (const T_ROW_D& rRow : ROWS) m_mapRows[rRow.sKEYWORD] = &rRow;
}

/// Cards of a kind mostly follow each other.
void CDeckTotals::TakeCard(const CCardFields& rCard) {
    m_pCard = &rCard;
    if (!m_pRow || m_pRow->sKEYWORD != rCard.GetKeyword()) {
        const auto pRow = m_mapRows.find(rCard.GetKeyword());
        m_pRow = pRow == m_mapRows.end() ? nullptr : pRow->second;
    }
    if (m_pRow) {
        (this->*m_pRow->TAKE)();
    } else {
        m_elementMasses.TakeCard(rCard);
    }
}

void CDeckTotals::Finish() {
    AddPressures();
    m_elementMasses.Finish();
    AddNodes();
    AddElements();
    AddMasses();
    AddSupports();
    AddEquations();
    AddTemperatures();
    AddCombinations();
}

T_SETTOTALS_D& CDeckTotals::Set() {
    const std::int32_t iSet = m_pCard->Int(0);
    if (!m_pSet || iSet != m_iSet) {
        m_iSet = iSet;
        m_pSet = &m_totals.mapSETS[iSet];
    }
    return *m_pSet;
}

void CDeckTotals::TakeMass() {
    const std::int32_t iEID = m_pCard->Int(0);
    T_DECKMASS_D mass = {
        m_pCard->Int(1), m_pCard->Int(2), m_pCard->Real(3), {m_pCard->Real(4), m_pCard->Real(5), m_pCard->Real(6)}, {}};
    for (std::size_t i = 0; i < mass.dINERTIA.size(); ++i) mass.dINERTIA[i] = m_pCard->Real(8 + i);
    if (IsSound()) m_masses.Put(iEID, mass);
}

/// The lower triangle of a matrix, row by row, is a mass in a point if there is nothing beside the diagonal and its
/// first three values are equal.
void CDeckTotals::TakePointMatrix() {
    constexpr std::array<std::size_t, 6> DIAGONAL = {0, 2, 5, 9, 14, 20};
    bool bPoint = true;
    std::array<double, 6> dDiagonal = {};
    const std::int32_t iEID = m_pCard->Int(0), iGrid = m_pCard->Int(1);
    m_pCard->Int(2);
    for (std::size_t i = 0; i < 21; ++i) {
        const double dValue = m_pCard->Real(3 + i);
        const auto pPlace = std::find(DIAGONAL.begin(), DIAGONAL.end(), i);
        if (pPlace != DIAGONAL.end()) {
            dDiagonal[static_cast<std::size_t>(pPlace - DIAGONAL.begin())] = dValue;
        } else {
            bPoint = bPoint && dValue == 0.0;
        }
    }
    bPoint = bPoint && dDiagonal[0] == dDiagonal[1] && dDiagonal[1] == dDiagonal[2];
    if (!bPoint || !IsSound()) return;
    m_masses.Put(iEID, {iGrid, 0, dDiagonal[0], {}, {dDiagonal[3], 0.0, dDiagonal[4], 0.0, 0.0, dDiagonal[5]}});
}

void CDeckTotals::AddNodes() {
    for (std::size_t i = 0; i < m_rGrids.GetCount(); ++i) {
        const std::int32_t iGrid = m_rGrids.GetIds()[i], iCD = m_rGrids.GetKind(i).iCD;
        if (m_rGrids.FindRow(iGrid) != i) continue; // a later one has its id
        m_totals.AddNode(iGrid, m_rGrids.GetPosition(i));
        const T_FRAME_D* pFrame = iCD == 0 ? nullptr : m_rDeck.FindFrame(iCD);
        if (pFrame) m_totals.AddAxes(iGrid, pFrame->AxesAt(m_rGrids.GetPosition(i)));
    }
}

/// Of a spring an end without a grid or component is ground, and an element in a blank property's place its own.
void CDeckTotals::AddElements() {
    CElementSum sum(m_totals);
    for (const T_DECKELEMENT_D& rElement : m_rDeck.GetElements()) {
        if (m_rDeck.FindElement(rElement.iEID) != &rElement) continue;
        const T_ELEMENTKIND_D& rKind = rElement.GetKind();
        const std::span<const std::int32_t> aCorners = m_rDeck.GetCorners(rElement);
        const std::int32_t* pNodes = aCorners.data();
        std::array<std::int32_t, 2> aEnds = {};
        if (rKind.eFORM == FORM_SPRING) {
            std::size_t nEnds = 0;
            for (std::size_t i = 0; i < aCorners.size(); ++i) {
                if (aCorners[i] != 0 && (rElement.nENDS & (1u << i))) aEnds[nEnds++] = aCorners[i];
            }
            if (nEnds == 0) continue;
            pNodes = aEnds.data();
        }
        if (rKind.eFORM == FORM_DAMPER || rKind.eFORM == FORM_SCALARMASS) {
            ++m_totals.aFORMS[rKind.eFORM];
            continue;
        }
        T_SUMMEDELEMENT_D element = {rKind.eFORM, rKind.eBODY, rElement.iEID};
        if (rKind.eBODY != BODY_LINK) Weigh(rElement, element);
        sum.Add(element, pNodes, [&](std::int32_t iGrid, T_VECTOR& rPosition) {
            const T_VECTOR* pPosition = m_rDeck.FindPosition(iGrid);
            if (pPosition) rPosition = *pPosition;
            return pPosition != nullptr;
        });
    }
    sum.Finish();
}

/// Solids have no property in the file, which is why they are in no group of one. A plate's own thickness takes the
/// place of the property's.
void CDeckTotals::Weigh(const T_DECKELEMENT_D& rElement, T_SUMMEDELEMENT_D& rSummed) {
    if (rElement.iPID == 0) {
        const T_PROPERTYMASS_D* pOwn = m_elementMasses.FindRod(rElement.iEID);
        if (!pOwn) return;
        rSummed.iMID = pOwn->iMID;
        rSummed.dMASS = pOwn->dMASS;
        rSummed.dADDED = pOwn->dADDED;
        return;
    }
    if (rSummed.eFORM < FORM_TETRA) rSummed.iPID = rElement.iPID;
    const auto find = [&](std::int32_t iPID) { return m_elementMasses.Find(iPID); };
    const T_PROPERTYMASS_D* pProperty = m_properties.Get(rElement.iPID, find);
    if (!pProperty) return;
    rSummed.iMID = pProperty->iMID;
    rSummed.dADDED = pProperty->dADDED;
    rSummed.dMASS = m_elementMasses.FindPlate(rElement.iEID, *pProperty);
}

/// An offset is in the axes of a frame at the grid, or with frame -1 the position itself.
void CDeckTotals::AddMasses() {
    for (const auto& [iEID, mass] : m_masses.GetRows()) {
        const T_VECTOR* pGrid = m_rDeck.FindPosition(mass.iGRID);
        const T_FRAME_D* pFrame = mass.iCID == -1 ? nullptr : m_rDeck.FindFrame(mass.iCID);
        if (m_masses.Find(iEID) != &mass || !pGrid || (!pFrame && mass.iCID != -1)) continue;
        const T_VECTOR at = pFrame ? Add(*pGrid, pFrame->VectorToBasic(mass.offset, *pGrid)) : mass.offset;
        m_totals.AddMass(mass.dMASS, at, mass.dINERTIA, pFrame ? pFrame->AxesAt(*pGrid) : T_FRAME_D().dAXES);
    }
}

bool CDeckTotals::FindCorners(const T_DECKELEMENT_D& rElement, std::array<T_VECTOR, 8>& rCorners) const {
    const std::span<const std::int32_t> aCorners = m_rDeck.GetCorners(rElement);
    for (std::size_t i = 0; i < aCorners.size(); ++i) {
        const T_VECTOR* pPosition = m_rDeck.FindPosition(aCorners[i]);
        if (!pPosition) return false;
        rCorners[i] = *pPosition;
    }
    return true;
}

T_TOTALS_D TotalDeck(const CCheckDeck& rDeck) {
    CDeckTotals totals(rDeck);
    CCardTaker* const pTaker = &totals;
    rDeck.WalkSized(totals);
    rDeck.Walk({&pTaker, 1});
    totals.Finish();
    return totals.TakeTotals();
}

T_TOTALS_D TotalDeck(const std::string& sDeck, const T_CHOICE_D& rChoice) {
    const CCheckDeck deck(sDeck, rChoice);
    return TotalDeck(deck);
}
