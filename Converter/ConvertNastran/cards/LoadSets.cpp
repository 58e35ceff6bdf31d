// How a load set comes into being.

#include "driver/CConvertNastran.h"
#include "store/DataPool.h"

#include <cstdint>

/// The load set that a card names, made on first mention. It becomes the current one; runs of cards of one set take it
/// without a search. A table's records keep their addresses, so the place stays good while other sets come.
T_LOAD_D& CConvertNastran::EnsureLoadSet(std::int32_t iSID) {
    if (!m_pCurLoadSet || iSID != m_iCurLoadSet) {
        m_pCurLoadSet = &m_pDataPool->LOAD[iSID];
        m_iCurLoadSet = iSID;
    }
    return *m_pCurLoadSet;
}
