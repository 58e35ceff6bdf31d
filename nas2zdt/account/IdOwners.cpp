// Which keyword stored the record of an id.

#include "nas2zdt/account/IdOwners.h"

#include <algorithm>
#include <utility>

/// For an id that isn't behind all others.
std::int32_t CIdOwners::TakeEarlier(std::int32_t iID, std::uint8_t iKeyword) {
    if (const std::uint32_t iPlace = m_index.Find(iID); iPlace != CKeyIndex::NONE) {
        return std::exchange(m_aKeywords[iPlace], iKeyword);
    }
    auto pStretch = std::lower_bound(m_aStretches.begin(), m_aStretches.end(), iID,
                                     [](const T_STRETCH_D& rStretch, std::int32_t i) { return rStretch.iLAST < i; });
    const std::int32_t iOwner = pStretch->iFIRST <= iID ? pStretch->iKEYWORD : NONE;
    if (iOwner == iKeyword) return iOwner;
    m_index.Add(iID, static_cast<std::uint32_t>(m_aKeywords.size()));
    m_aKeywords.push_back(iKeyword);
    return iOwner;
}
