// SPCD.

#include "cards/Components.h"
#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <array>
#include <cstddef>

/// A load, not a constraint. The first pair stands whatever its grid is.
int CConvertNastran::ParseSPCD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    CLoadEntries& rEntries = EnsureLoadSet(fields.Int()).aMBLD;
    for (int iPair = 0; iPair < 2; ++iPair) {
        T_MBLD_D entry;
        entry.iKIND = LOAD_DISPLACEMENT;
        entry.iID = fields.Int();
        const std::array<bool, 6> bDOF = ParseComponents(fields.Text());
        const double dD = fields.Real();
        for (std::size_t i = 0; i < 6; ++i) entry.dV[i] = bDOF[i] ? dD : 0.0;
        if (iPair == 0 || entry.iID != 0) rEntries.Add(entry);
    }
    return 1;
}
