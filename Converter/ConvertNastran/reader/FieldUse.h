#pragma once
// What became of the fields of a card, as the cursor that read them knows it.

#include <cstddef>
#include <initializer_list>
#include <vector>

/// Kept of a card of an observed run, while its handler reads it. Places count from 0.
struct T_FIELDUSE_D {
    struct T_SKIP_D {
        std::size_t iFIELD;
        const char* sNAME; // as the handler gives it; null for the one that the format gives to the place
    };
    std::vector<T_SKIP_D> aSKIPPED;  // fields that were passed over, in card order
    std::vector<std::size_t> aWORDS; // fields that were understood as words, a THRU for one
    std::size_t nREACHED = 0;        // fields from this one on were never reached

    void Clear() {
        aSKIPPED.clear();
        aWORDS.clear();
        nREACHED = 0;
    }

    /// Fields from iFirst up to iEnd were passed over; aNames may have more.
    void AddSkipped(std::size_t iFirst, std::size_t iEnd, std::initializer_list<const char*> aNames);
};
