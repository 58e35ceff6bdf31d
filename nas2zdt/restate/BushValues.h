#pragma once
// The values of a PBUSH.

#include "nas2zdt/restate/CardFields.h"
#include "nas2zdt/restate/CardWriter.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// A keyword of a PBUSH with what stands behind it: K and six values.
struct T_BUSHLINE_D {
    std::string sWORD;
    std::array<std::string, 6> sVALUES; // as on the card
};

/// The keywords of a PBUSH in the order of the card. A keyword is the second field of a line, or its first.
std::vector<T_BUSHLINE_D> ReadBushLines(const CCardFields& rCard);

/// The line of a keyword, null if there is none. Of two the later one counts.
const T_BUSHLINE_D* FindBushLine(const std::vector<T_BUSHLINE_D>& rLines, std::string_view sWord);

/// The fields of a PBUSH, in the places where the converter finds K and B: one behind the id, the other in the first
/// field of the next line. What it doesn't read follows in the lines of the format.
std::vector<CFieldValue> BushFields(std::int32_t iPID, const std::vector<T_BUSHLINE_D>& rLines);
