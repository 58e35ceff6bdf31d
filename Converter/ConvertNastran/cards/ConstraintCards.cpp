// SPC, SPC1, MPC. A set grows card by card in its table.

#include "cards/Components.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"

#include <cstdint>
#include <string_view>

namespace {

void SetComponents(T_CNND_D& rGrid, std::string_view sComponents) {
    rGrid.bDOF = ParseComponents(sComponents);
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

int CConvertNastran::ParseSPC(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iSID = fields.Int();
    m_pDataPool->m_iLastCNST = iSID;
    T_CNST_D& rSet = m_pDataPool->CNST[iSID];
    rSet.aCNND.Add(ReadConstrainedGrid(fields, "D1")); // whatever its grid is
    const T_CNND_D second = ReadConstrainedGrid(fields, "D2");
    if (second.iNODE != 0) rSet.aCNND.Add(second);
    return 1;
}

int CConvertNastran::ParseSPC1(const T_DATA_D& rCard) {
    constexpr int GRIDS = 9; // those of later continuations aren't read
    CFieldCursor fields(rCard);
    T_CNST_D& rSet = m_pDataPool->CNST[fields.Int()]; // m_iLastCNST doesn't follow this card
    T_CNND_D grid;
    grid.bSPC1 = true;
    SetComponents(grid, fields.Text());
    for (int i = 0; i < GRIDS; ++i) {
        grid.iNODE = fields.Int(); // THRU reads as 0
        if (grid.iNODE != 0) rSet.aCNND.Add(grid);
    }
    return 1;
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
