// TEMP, TEMPD, TEMPP1 and TEMPRB.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "store/DataPool.h"

#include <algorithm>
#include <cstdint>

namespace {

/// Reads three pairs of id and temperature. The first stands whatever its id is, the others with an id above 0.
template <class RECORD>
void AddTemperaturePairs(CFieldCursor& rFields, CArray<RECORD>& rEntries) {
    for (int iPair = 0; iPair < 3; ++iPair) {
        const std::int32_t iID = rFields.Int();
        const double dTemperature = rFields.Real();
        if (iPair == 0 || iID > 0) rEntries.Add({iID, dTemperature});
    }
}

} // namespace

int CConvertNastran::ParseTEMP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    AddTemperaturePairs(fields, EnsureLoadSet(fields.Int()).aNTLD);
    return 1;
}

/// Four pairs of set and default temperature. A blank set is set 0, which comes into being by its mention, and it takes
/// no temperature field: the pairs behind it are read one field early.
int CConvertNastran::ParseTEMPD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    for (int iPair = 0; iPair < 4; ++iPair) {
        const std::int32_t iSID = fields.Int();
        T_LOAD_D& rSet = EnsureLoadSet(iSID);
        if (iPair > 0 && iSID == 0) continue;
        rSet.bTEMPD = 1;
        rSet.dTEMPD = fields.Real();
    }
    return 1;
}

/// The words THRU are looked for at two places, counted on a card whose fields are closed up. On small field cards the
/// blank end of line 1 shifts them, so that only the ids that are written get an entry.
int CConvertNastran::ParseTEMPP1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    CArray<T_ETLD_D>& rEntries = EnsureLoadSet(fields.Int()).aETLD;
    T_ETLD_D entry;
    entry.iELEM = fields.Int();
    entry.dTBAR = fields.Real();
    fields.Skip("TPRIME"); // the gradient comes from T1 and T2
    entry.dT1 = fields.Real();
    entry.dT2 = fields.Real();
    rEntries.Add(entry);
    const auto AddCopy = [&](std::int32_t iEID) {
        entry.iELEM = iEID;
        rEntries.Add(entry);
    };
    const auto TakeId = [&] {
        const std::int32_t iEID = fields.Int();
        if (iEID > 0) AddCopy(iEID);
        return iEID;
    };
    const auto AddRange = [&](std::int32_t iBefore) {
        const std::int32_t iLast = fields.Int();
        WalkRange(TakeRange(rCard, iBefore, iLast), AddCopy);
        return std::max(iBefore, iLast);
    };

    std::int32_t iLast = TakeId();
    if (fields.TakeWord("THRU")) {
        iLast = AddRange(iLast);
    } else {
        for (int iField = 0; iField < 3; ++iField) iLast = TakeId();
    }
    if (fields.TakeWord("THRU")) {
        AddRange(iLast);
    } else {
        for (int iField = 0; iField < 2; ++iField) TakeId();
    }
    return 1;
}

/// Read as three pairs like TEMP, whatever the card means by its later fields.
int CConvertNastran::ParseTEMPRB(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    AddTemperaturePairs(fields, EnsureLoadSet(fields.Int()).aETLD);
    return 1;
}
