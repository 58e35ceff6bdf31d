#pragma once
// What colours a picture.

#include <cstdint>

enum E_COLOUR_BY : std::uint8_t { BY_KIND, BY_PROPERTY, BY_MATERIAL, BY_LOSS };
