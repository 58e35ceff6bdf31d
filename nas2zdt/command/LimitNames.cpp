// The limits of a run by their names on the command line.

#include "nas2zdt/command/LimitNames.h"

#include <charconv>
#include <system_error>

namespace {

struct T_LIMITNAME_D {
    std::string_view sNAME;
    std::int64_t T_LIMITS_D::*pLIMIT;
    E_FAILURE eFAILURE; // of a run that passes it
};

constexpr T_LIMITNAME_D NAMES[] = {
    {"ranges", &T_LIMITS_D::nRANGES, FAILURE_LIMIT_RANGES},
    {"decks", &T_LIMITS_D::nDECKS, FAILURE_LIMIT_DECKS},
    {"output", &T_LIMITS_D::nOUTPUT, FAILURE_LIMIT_OUTPUT},
    {"frames", &T_LIMITS_D::nFRAMES, FAILURE_LIMIT_FRAMES},
};

constexpr std::string_view LIFTED = "none";

int ReadNumber(std::string_view sText, std::int64_t& rNumber) {
    const char* const pEnd = sText.data() + sText.size();
    const auto [pRead, error] = std::from_chars(sText.data(), pEnd, rNumber);
    return error == std::errc() && pRead == pEnd && rNumber > 0 ? 1 : 0;
}

} // namespace

int SetLimit(T_LIMITS_D& rLimits, std::string_view sText) {
    if (sText == LIFTED) {
        for (const T_LIMITNAME_D& rName : NAMES) rLimits.*rName.pLIMIT = T_LIMITS_D::NONE;
        return 1;
    }
    const std::size_t iEquals = sText.find('=');
    if (iEquals == std::string_view::npos) return 0;
    const std::string_view sValue = sText.substr(iEquals + 1);
    std::int64_t nLimit = T_LIMITS_D::NONE;
    if (sValue != LIFTED && !ReadNumber(sValue, nLimit)) return 0;
    for (const T_LIMITNAME_D& rName : NAMES) {
        if (rName.sNAME != sText.substr(0, iEquals)) continue;
        rLimits.*rName.pLIMIT = nLimit;
        return 1;
    }
    return 0;
}

std::string_view NameOfLimit(E_FAILURE eFailure) {
    for (const T_LIMITNAME_D& rName : NAMES) {
        if (rName.eFAILURE == eFailure) return rName.sNAME;
    }
    return {};
}
