// Tracks which keyword's card stored the record of an id.

#include "nas2zdt/account/IdOwners.h"

#include "cards/FieldNames.h"

#include <algorithm>
#include <utility>

namespace {

struct T_ROW_D {
    std::string_view sKEYWORDS; // separated by blanks
    T_OWNS_D owns;
};

constexpr T_ROW_D ROWS[] = {
    {"GRID", {OWNED_NODES}},
    {"CORD1R", {OWNED_CORD1R, 4, 8}},
    {"CORD1C", {OWNED_CORD1C, 4, 8}},
    {"CORD1S", {OWNED_CORD1S, 4, 8}},
    {"CORD2R", {OWNED_CORD2R}},
    {"CORD2C", {OWNED_CORD2C}},
    {"CORD2S", {OWNED_CORD2S}},
    {"CBAR CBEAM CBEND CROD CTUBE CBUSH CGAP CONM2", {OWNED_ELEMENTS}},
    {"CTRIA3 CTRIAR CTRIA6 CQUAD4 CQUADR CQUAD8 CSHEAR CTETRA CPENTA CHEXA", {OWNED_ELEMENTS}},
    {"CONROD", {OWNED_CONRODS}},
    {"CELAS1", {OWNED_CELAS1}},
    {"CELAS2", {OWNED_CELAS2}},
    {"RBE2", {OWNED_RBE2}},
    {"PBAR PBARL PBEAM PBEND PROD PTUBE PSHELL PCOMP PSHEAR PSOLID PBUSH PGAP", {OWNED_PROPERTIES}},
    {"PELAS", {OWNED_PROPERTIES, 4, 8}},
    {"MAT1 MAT4 MAT8", {OWNED_MATERIALS}},
    {"GRAV", {OWNED_GRAVITY}},
    {"TEMPD", {OWNED_TEMPERATURES, 2, 8}},
    {"EIGB", {OWNED_EIGB}},
    {"EIGRL", {OWNED_EIGRL}},
};

} // namespace

T_OWNS_D FindOwnedIds(std::string_view sKeyword) {
    for (const T_ROW_D& rRow : ROWS) {
        const std::vector<std::string_view> aKeywords = SplitNames(rRow.sKEYWORDS);
        if (std::find(aKeywords.begin(), aKeywords.end(), sKeyword) != aKeywords.end()) return rRow.owns;
    }
    return {};
}

/// For an id that isn't greater than all before.
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
