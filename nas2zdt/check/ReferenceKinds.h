#pragma once
// The kinds of findings of references and values.

#include "nas2zdt/check/Findings.h"

#include <cstddef>
#include <string>
#include <string_view>

enum E_REFERENCE : std::size_t {
    REFERENCE_GRID,
    REFERENCE_PROPERTY,
    REFERENCE_PROPERTYKIND,
    REFERENCE_MATERIAL,
    REFERENCE_FRAME,
    REFERENCE_ELEMENT,
    REFERENCE_ELEMENTKIND,
    REFERENCE_FACE,
    REFERENCE_SET,
    REFERENCE_SETOFSETS,
    SET_SUPPORTS,
    SET_LOADS,
    FRAME_RING,
    FRAME_LINE,
    FIELD_BLANK,
    FIELD_NUMBER,
    FIELD_REAL,
    FIELD_INTEGER,
    FIELD_LARGE,
    FIELD_ID,
    FIELD_COMPONENTS,
    VALUE_ZERO,
    VALUE_NEGATIVE,
    VALUE_SECTION,
    TWICE,
    TWICE_SAME,
    TEXT_BEHIND,
    TEXT_NOKEYWORD,
    TEXT_INCLUDE,
    REFERENCE_COUNT
};

const T_FINDINGKIND_D& GetKind(E_REFERENCE eKind);

/// Where a finding is.
struct T_CARDPLACE_D {
    std::string_view sKEYWORD;
    std::int32_t iID;
    T_ORIGINLINE_D origin;
};

/// Adds a finding whose text write() makes, if anybody wants that.
template <class WRITE>
void Tell(CFindings& rFindings, E_REFERENCE eKind, const T_CARDPLACE_D& rPlace, WRITE write) {
    const T_FINDINGKIND_D& rKind = GetKind(eKind);
    if (rFindings.WantsText(rKind, rPlace.sKEYWORD)) {
        rFindings.Add(rKind, rPlace.sKEYWORD, {rPlace.iID, rPlace.origin, write()});
    } else {
        rFindings.Count(rKind, rPlace.sKEYWORD);
    }
}
