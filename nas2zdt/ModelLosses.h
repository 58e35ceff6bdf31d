#pragma once
// What the store holds and the file doesn't.

#include "store/DataPool.h"

#include <cstdint>
#include <string>
#include <vector>

/// Records or entries of a kind that come to no line of the file.
struct T_MODELLOSS_D {
    static constexpr std::size_t MOST_IDS = 100;

    const char* sKEYWORD; // of the cards that they came from; the commonest where several make them
    const char* sTEXT;
    std::uint64_t nCOUNT = 0;
    std::vector<std::int32_t> aIDS; // the first ones, ascending unless they are entries of a set
};

/// What may be in the store: a large table isn't searched for what can't be in it.
struct T_MODELHINTS_D {
    bool bHELDGRIDS = true; // grids with constraints of their own
    bool bBENDS = true;
    bool bBENDSECTIONS = true;
    bool bLAMINATES = true;
};

/// All kinds that there are, after a run.
std::vector<T_MODELLOSS_D> FindModelLosses(const CDataPool& rPool, const T_MODELHINTS_D& rHints = {});
