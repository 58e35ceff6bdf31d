// GRID, the coordinate systems CORD1R to CORD2S, and the constraints SPC, SPC1 and MPC.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace {

/// A coordinate system by three grids, the next fields of the card.
template <class RECORD>
int StoreByNextGrids(CFieldCursor& rFields, std::int32_t iCID, CDataPool& rPool, CMap<RECORD>& rTable) {
    RECORD system;
    system.iG1 = rFields.Int();
    system.iG2 = rFields.Int();
    system.iG3 = rFields.Int();
    return rPool.Set(rTable, iCID, system);
}

/// One or two coordinate systems by three grids each. The cards of a family differ in their table alone.
template <class RECORD>
int StoreByGrids(const T_DATA_D& rCard, CDataPool& rPool, CMap<RECORD>& rTable) {
    CFieldCursor fields(rCard);
    const std::int32_t iCIDA = fields.Int();
    StoreByNextGrids(fields, iCIDA, rPool, rTable); // under any id, 0 too
    const std::int32_t iCIDB = fields.Int();
    return iCIDB != 0 ? StoreByNextGrids(fields, iCIDB, rPool, rTable) : 1;
}

/// One coordinate system by three points.
template <class RECORD>
int StoreByPoints(const T_DATA_D& rCard, CDataPool& rPool, CMap<RECORD>& rTable) {
    CFieldCursor fields(rCard);
    const std::int32_t iCID = fields.Int();
    RECORD system;
    system.iRID = fields.Int();
    for (double& rValue : system.dA) rValue = fields.Real();
    for (double& rValue : system.dB) rValue = fields.Real();
    for (double& rValue : system.dC) rValue = fields.Real();
    return rPool.Set(rTable, iCID, system);
}

void SetComponents(T_CNND_D& rGrid, std::string_view sComponents) {
    rGrid.bDOF = ComponentsOrAll(sComponents);
    rGrid.bZERO = sComponents == "0";
}

/// G, C and D, whose name is sD; an enforced value isn't kept.
T_CNND_D ReadConstrainedGrid(CFieldCursor& rFields, const char* sD) {
    T_CNND_D grid;
    grid.iNODE = rFields.Int();
    SetComponents(grid, rFields.Text());
    rFields.Skip(sD);
    return grid;
}

void ReadTerm(CFieldCursor& rFields, T_CNEQ_D& rEquation) {
    T_EQNCN_D term;
    term.iNODE = rFields.Int();
    term.iCOMP = rFields.Int();
    term.dCOEF = rFields.Real();
    if (term.iNODE > 0) {
        rEquation.aTERMS.Add(term);
    } else if (term.dCOEF != 0.0) {
        rEquation.bLOST = true;
    }
}

} // namespace

int CConvertNastran::ParseGRID(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iID = fields.Int();
    T_NODS_D node;
    node.iCP = fields.Int();
    node.dX1 = node.dGX = fields.Real(); // two copies: the passes move dG*, and frames still need the card's values
    node.dX2 = node.dGY = fields.Real();
    node.dX3 = node.dGZ = fields.Real();
    node.iCD = fields.Int();
    node.bPS = Components(fields.Text());
    fields.Skip("SEID");
    return m_pDataPool->SetNODS(iID, node);
}

int CConvertNastran::ParseCORD1R(const T_DATA_D& rCard) {
    return StoreByGrids(rCard, *m_pDataPool, m_pDataPool->CD1R);
}

int CConvertNastran::ParseCORD1C(const T_DATA_D& rCard) {
    return StoreByGrids(rCard, *m_pDataPool, m_pDataPool->CD1C);
}

int CConvertNastran::ParseCORD1S(const T_DATA_D& rCard) {
    return StoreByGrids(rCard, *m_pDataPool, m_pDataPool->CD1S);
}

int CConvertNastran::ParseCORD2R(const T_DATA_D& rCard) {
    return StoreByPoints(rCard, *m_pDataPool, m_pDataPool->CD2R);
}

int CConvertNastran::ParseCORD2C(const T_DATA_D& rCard) {
    return StoreByPoints(rCard, *m_pDataPool, m_pDataPool->CD2C);
}

int CConvertNastran::ParseCORD2S(const T_DATA_D& rCard) {
    return StoreByPoints(rCard, *m_pDataPool, m_pDataPool->CD2S);
}

int CConvertNastran::ParseSPC(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    std::array<T_CNND_D, 2> aGrids = {ReadConstrainedGrid(fields, "D1")}; // with any grid
    if (fields.Peek().empty()) {
        fields.Skip("G2", "C2", "D2");
    } else {
        aGrids[1] = ReadConstrainedGrid(fields, "D2");
    }
    return m_pDataPool->AddSupports(iSID, std::span(aGrids).first(aGrids[1].iNODE != 0 ? 2 : 1), true);
}

int CConvertNastran::ParseSPC1(const T_DATA_D& rCard) {
    constexpr std::size_t GRIDS = 9; // those of later continuations aren't read
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    T_CNND_D grid;
    grid.bSPC1 = true;
    SetComponents(grid, fields.Text());
    std::array<T_CNND_D, GRIDS> aGrids;
    std::size_t nGrids = 0;
    for (std::size_t i = 0; i < GRIDS; ++i) {
        grid.iNODE = fields.Int(); // THRU reads as 0
        if (grid.iNODE != 0) aGrids[nGrids++] = grid;
    }
    return m_pDataPool->AddSupports(iSID, std::span(aGrids).first(nGrids), false);
}

int CConvertNastran::ParseMPC(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    m_pDataPool->m_iLastCNST = iSID;
    T_CNEQ_D equation;
    ReadTerm(fields, equation);
    ReadTerm(fields, equation);
    fields.Skip("-", "-");      // the empty end of the first line and start of the second
    ReadTerm(fields, equation); // further terms aren't read
    T_CNST_D& rSet = m_pDataPool->CNST[iSID];
    equation.iEQ = static_cast<std::int32_t>(rSet.aCNEQ.GetSize()) + 1;
    rSet.aCNEQ.Add(equation);
    return 1;
}
