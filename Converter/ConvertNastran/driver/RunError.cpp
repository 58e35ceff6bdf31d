// The reason of a failed run in words.

#include "driver/RunError.h"

#include <new>
#include <stdexcept>

std::string T_FAIL_D::GetText() const {
    std::string sPlace = sFILE; // none once the decks are read
    if (iLINE > 0 && !sFILE.empty()) sPlace += ":" + std::to_string(iLINE);
    if (!sPlace.empty()) sPlace += ": ";
    switch (eFAILURE) {
    case FAILURE_NONE:
        return {};
    case FAILURE_DECK_NOT_OPENED:
        return sPlace + "can't be opened: " + sCAUSE;
    case FAILURE_INCLUDE_NOT_OPENED:
        return sPlace + "included deck can't be opened: " + sCAUSE;
    case FAILURE_DECK_NOT_READ:
        return sPlace + "can't be read to its end";
    case FAILURE_LINE_TOO_LONG:
        return sPlace + "line is longer than " + std::to_string(nLIMIT) + " characters";
    case FAILURE_INCLUDE_CYCLE:
        return sPlace + "this deck includes itself, directly or through others";
    case FAILURE_RANGE_TOO_LONG:
        return sPlace + "THRU range holds more than " + std::to_string(nLIMIT) + " ids";
    case FAILURE_TOO_MANY_LINES:
        return sPlace + "deck has more than " + std::to_string(nLIMIT) + " lines";
    case FAILURE_LIMIT_RANGES:
        return sPlace + "limit on ranges: THRU ranges make more than " + std::to_string(nLIMIT) + " entries in all";
    case FAILURE_LIMIT_DECKS:
        return sPlace + "limit on decks: more than " + std::to_string(nLIMIT) + " decks are opened";
    case FAILURE_LIMIT_OUTPUT:
        return sPlace + "limit on output: the target file has more than " + std::to_string(nLIMIT) + " bytes";
    case FAILURE_LIMIT_FRAMES:
        return sPlace + "limit on frames: grids go through more than " + std::to_string(nLIMIT) +
               " coordinate systems in all";
    case FAILURE_NOT_WRITTEN:
        return "the target file can't be written whole";
    case FAILURE_EXHAUSTED:
        return sPlace + "not enough memory";
    case FAILURE_INTERNAL:
        break;
    }
    return sPlace + "internal error: " + sCAUSE;
}

bool IsOutOfMemory(const std::exception& rError) noexcept {
    return dynamic_cast<const std::bad_alloc*>(&rError) || dynamic_cast<const std::length_error*>(&rError);
}
