#pragma once
// Values that the file has otherwise than their card means them.

#include "nas2zdt/account/Losses.h"
#include "reader/Card.h"

#include <cstdint>
#include <span>
#include <string_view>

class CFieldNames;

/// A rule of one keyword.
struct T_MEANING_D {
    std::string_view sKEYWORDS; // between blanks
    E_LOSS_CLASS eCLASS;
    std::uint32_t nFIELDS; // a bit for each field of which one must be there for it to apply; all of them for none
    std::string_view sTEXT;
    bool (*pfnAPPLIES)(const T_DATA_D& rCard, const CFieldNames& rNames);
};

/// All rules.
std::span<const T_MEANING_D> GetMeanings();
