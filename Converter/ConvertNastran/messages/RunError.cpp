// The reason of a failed run.

#include "messages/RunError.h"

#include <new>
#include <stdexcept>

namespace {

void Keep(std::string& rText, std::string_view sText) noexcept {
    try {
        rText = sText;
    } catch (const std::bad_alloc&) { // the kind of the failure says enough
        rText.clear();
    }
}

} // namespace

void T_FAIL_D::TakeException(std::string_view sFile, std::int32_t iLine) noexcept {
    try {
        throw;
    } catch (const CRunError& rError) {
        eFAILURE = rError.m_eFailure;
        iLINE = rError.m_iLine;
        nLIMIT = rError.m_nLimit;
    } catch (const std::exception& rError) {
        const bool bExhausted = IsOutOfMemory(rError);
        eFAILURE = bExhausted ? FAILURE_EXHAUSTED : FAILURE_INTERNAL;
        if (bExhausted && !sFile.empty()) iLINE = iLine;
        if (!bExhausted) Keep(sCAUSE, rError.what());
    } catch (...) { // what a host's dialogs may throw
        eFAILURE = FAILURE_INTERNAL;
    }
    SetFile(sFile);
}

void T_FAIL_D::SetFile(std::string_view sFile) noexcept {
    Keep(sFILE, sFile);
}

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
