#pragma once
// What a stored card loses by the rules of its keyword.

#include "reader/Card.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Tables in which a later record replaces an earlier one of its id.
enum E_OWNED {
    OWNED_NODES,
    OWNED_ELEMENTS,
    OWNED_CONRODS,
    OWNED_CELAS1,
    OWNED_CELAS2,
    OWNED_RBE2,
    OWNED_PROPERTIES,
    OWNED_MATERIALS,
    OWNED_CORD1R,
    OWNED_CORD1C,
    OWNED_CORD1S,
    OWNED_CORD2R,
    OWNED_CORD2C,
    OWNED_CORD2S,
    OWNED_GRAVITY,      // one vector a load set
    OWNED_TEMPERATURES, // one default a load set
    OWNED_EIGB,
    OWNED_EIGRL,
    OWNED_COUNT, // also: none
};

/// Where the ids of a card stand: in field 0 and, if nSTEP isn't 0, in each field that is nSTEP further on, as far as
/// it is one of the first nFIELDS and isn't 0.
struct T_OWNS_D {
    E_OWNED eTABLE = OWNED_COUNT;
    std::size_t nSTEP = 0;
    std::size_t nFIELDS = 1;
};

/// What isn't kept of a card. A field that is blank or zero is no loss.
struct T_DROPS_D {
    std::size_t nREAD;                 // fields behind these aren't read
    std::uint32_t nDROPPED;            // bit i: field i is read, and kept nowhere or not written
    const char* sDROPPED;              // what these fields are
    std::uint32_t nNOTHRU;             // bit i: a THRU in field i isn't understood
    bool (*pfnLoses)(const T_DATA_D&); // a rule of its own, which sOWN tells; null for none
    const char* sOWN;
};

/// A keyword's rules. A keyword that isn't stored has none.
struct T_CARDRULES_D {
    T_OWNS_D owns;
    const T_DROPS_D* pDROPS = nullptr;
};

/// The rules of a keyword.
T_CARDRULES_D FindCardRules(std::string_view sKeyword);

/// Bits of what FindDrops tells.
enum E_DROP : std::uint32_t {
    DROP_PAST_READ = 1, // fields behind those that are read
    DROP_FIELDS = 2,    // some of nDROPPED
    DROP_THRU = 4,      // a THRU that isn't understood
    DROP_OWN = 8,       // by the rule of its own
};

/// What a card loses by its rules.
std::uint32_t FindDrops(const T_DROPS_D& rDrops, const T_DATA_D& rCard);
