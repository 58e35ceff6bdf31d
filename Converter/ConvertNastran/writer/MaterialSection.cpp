// *MATERIAL: one line a material, in store order and without blanks.

#include "driver/CConvertNastran.h"

namespace {
constexpr double ALPHA = 0.00001; // in the lines of MAT8 and MAT4 whatever the card says
constexpr const char* USER = "USER";
} // namespace

int CConvertNastran::WriteMaterialSection(CFile& rFile) {
    if (m_pDataPool->MATL.IsEmpty()) return 1;
    WriteLine(rFile, "*MATERIAL\n");
    for (const auto& [iMID, rMaterial] : m_pDataPool->MATL.Walk()) {
        const std::string sName = "MAT" + std::to_string(iMID);
        switch (rMaterial.iMATTYPE) {
        case MAT_ISOTROPIC:
            WriteLine(rFile, "%d,%s,%s,0,0,%d,%g,%g,%g,%g\n", iMID, USER, sName, 2, rMaterial.dE, rMaterial.dNU,
                      rMaterial.dALPHA, 0.0);
            break;
        case MAT_ORTHOTROPIC:
            WriteLine(rFile, "%d,%s,%s,0,0,%d,%g,%g,%g,%g,%g,%g,%g,%g,%g,%g,%g,%g,%g\n", iMID, USER, sName, 3,
                      rMaterial.dE, rMaterial.dE2, ALPHA, rMaterial.dALPHA, rMaterial.dALPHA2, 0.0, rMaterial.dG,
                      rMaterial.dG1Z, rMaterial.dG2Z, rMaterial.dNU, 0.0, 0.0, 0.0);
            break;
        case MAT_THERMAL:
            WriteLine(rFile, "%d,%s,%s,%g,%g,%d,%g,%g,%g,%g\n", iMID, USER, sName, rMaterial.dCP, rMaterial.dK, 2,
                      ALPHA, 0.0, 0.0, 0.0);
            break;
        }
    }
    return WriteLine(rFile, "\n");
}
