#pragma once
// Which things of a model a loss is of, for those who show them.

#include "store/Left.h"

#include <cstdint>
#include <string_view>

/// What the ids of a loss are of.
enum E_MARKED : std::uint8_t { MARKED_NONE, MARKED_NODES, MARKED_ELEMENTS, MARKED_PROPERTIES };

struct T_MARK_D {
    E_MARKED eMARKED = MARKED_NONE;
    std::int32_t iID = 0;
};

/// What T_LEFT_D::iID is of; MARKED_NONE for what has no place of its own, such as a set.
E_MARKED MarkedByReason(const T_REASON_D& rReason);

/// What the first field of a card of this keyword is the id of.
E_MARKED MarkedByCard(std::string_view sKeyword);
