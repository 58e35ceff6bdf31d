#pragma once
// Tracks which keyword's card stored the record of an id, which a later card with the same id replaces.

#include "store/KeyIndex.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

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
    OWNED_GRAVITY,      // one vector per load set
    OWNED_TEMPERATURES, // one default per load set
    OWNED_EIGB,
    OWNED_EIGRL,
    OWNED_COUNT, // also stands for no table
};

/// The ids of a card are field 0 and, if nSTEP isn't 0, each field nSTEP further on among the first nFIELDS, up to one
/// that is 0.
struct T_OWNS_D {
    E_OWNED eTABLE = OWNED_COUNT;
    std::size_t nSTEP = 0;
    std::size_t nFIELDS = 1;
};

/// The ids on a keyword's cards; OWNED_COUNT for keywords whose records aren't replaced by id.
T_OWNS_D FindOwnedIds(std::string_view sKeyword);

/// Ids mostly ascend in a deck. Those that do are kept as ranges with one keyword; the others, and ids whose keyword
/// changes, go into an index.
class CIdOwners {
  public:
    static constexpr std::int32_t NONE = -1;

    /// Makes iKeyword the owner of iID. Returns the previous owner or NONE.
    std::int32_t Take(std::int32_t iID, std::uint8_t iKeyword) {
        if (!m_aStretches.empty()) {
            T_STRETCH_D& rLast = m_aStretches.back();
            if (iID <= rLast.iLAST) return TakeEarlier(iID, iKeyword);
            if (iID - 1 == rLast.iLAST && iKeyword == rLast.iKEYWORD) {
                rLast.iLAST = iID;
                return NONE;
            }
        }
        m_aStretches.push_back({iID, iID, iKeyword});
        return NONE;
    }

  private:
    std::int32_t TakeEarlier(std::int32_t iID, std::uint8_t iKeyword);

    struct T_STRETCH_D {
        std::int32_t iFIRST;
        std::int32_t iLAST;
        std::uint8_t iKEYWORD;
    };
    std::vector<T_STRETCH_D> m_aStretches; // ascending
    CKeyIndex m_index;                     // takes precedence over them
    std::vector<std::uint8_t> m_aKeywords; // by place in the index
};
