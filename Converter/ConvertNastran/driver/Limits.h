#pragma once
// What a run may come to, whatever its decks ask for.

#include <algorithm>
#include <cstdint>
#include <limits>

/// Small decks can ask for much: a run that passes one of these limits fails. They are far above what a model needs.
struct T_LIMITS_D {
    static constexpr std::int64_t NONE = std::numeric_limits<std::int64_t>::max();

    std::int64_t nRANGES = 50'000'000;            // entries made by THRU ranges
    std::int64_t nDECKS = 1'000'000;              // decks opened, the main deck among them
    std::int64_t nOUTPUT = std::int64_t(1) << 30; // bytes of the target file, besides some for each byte of the decks
    std::int64_t nFRAMES = 10'000'000'000;        // frames that points are carried through, each for each point

    /// Most bytes of the target file of decks with nRead bytes.
    std::int64_t MostOutput(std::int64_t nRead) const {
        constexpr std::int64_t FOR_EACH_BYTE = 64;
        return nOUTPUT + std::min(NONE - nOUTPUT, std::min(nRead, NONE / FOR_EACH_BYTE) * FOR_EACH_BYTE);
    }
};
