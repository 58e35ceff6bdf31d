// *EIGEN-CTRL: the first EIGRL. Nothing comes of EIGB.

#include "driver/CConvertNastran.h"

int CConvertNastran::WriteEigenControl(CFile& rFile) {
    if (m_pDataPool->EIRL.IsEmpty()) return 1;
    const auto modes = std::as_const(m_pDataPool->EIRL).Walk();
    WriteLine(rFile, "*EIGEN-CTRL    ; Eigenvalue Analysis Control\n");
    WriteLine(rFile, "; TYPE, iFREQ, iITER, iDIM, TOL          ; TYPE=EIGEN\n");
    WriteLine(rFile, "; TYPE, bINCNL, iGNUM                    ; TYPE=RITZ(line 1)\n");
    WriteLine(rFile, ";       KIND1, CASE1/GROUND1, iNOG1, ... ; TYPE=RITZ(from line2)\n");
    WriteLine(rFile, "  EIGEN, %d, 20, 0, 1e-010\n", (*modes.begin()).second.iND);
    return WriteLine(rFile, "\n");
}
