#pragma once
// Whether the text of a field is what its type asks for.

#include "nas2zdt/check/CardFormats.h"
#include "nas2zdt/restate/CardFields.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

enum E_VERDICT : std::uint8_t {
    VERDICT_FINE,
    VERDICT_BLANK,      // that mustn't be
    VERDICT_TEXT,       // no number or no word
    VERDICT_REAL,       // where an integer belongs
    VERDICT_INTEGER,    // where a real number belongs
    VERDICT_LARGE,      // infinite
    VERDICT_ID,         // no id: too low, or of too many digits
    VERDICT_COMPONENTS, // other digits than 1 to 6
    VERDICT_ZERO,
    VERDICT_NEGATIVE,
    VERDICT_COUNT
};

/// rID is the id of what the field refers to, 0 for nothing.
E_VERDICT JudgeField(std::string_view sField, const T_FIELD_D& rField, std::int32_t& rID);

/// "T is negative: -1.".
std::string TellVerdict(E_VERDICT eVerdict, const T_FIELD_D& rField, std::string_view sField);

/// Whether all fields of a card from field iFirst on are what they should be. take(target, id) gets what they refer to.
bool FitsFormat(const CCardFields& rCard, const T_CARDFORMAT_D& rFormat, std::size_t iFirst,
                const std::function<void(E_REFERRED, std::int32_t)>& take);
