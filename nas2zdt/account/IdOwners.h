#pragma once
// Which keyword's card stored the record of an id: a later card of the same id replaces it.

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
    OWNED_GRAVITY,      // one vector a load set
    OWNED_TEMPERATURES, // one default a load set
    OWNED_EIGB,
    OWNED_EIGRL,
    OWNED_COUNT, // also: none
};

/// The ids of a card are field 0 and, if nSTEP isn't 0, each field nSTEP further on among the first nFIELDS, up to one
/// that is 0.
struct T_OWNS_D {
    E_OWNED eTABLE = OWNED_COUNT;
    std::size_t nSTEP = 0;
    std::size_t nFIELDS = 1;
};

/// The ids of a keyword's cards; none for most that aren't elements, properties or materials.
T_OWNS_D FindOwnedIds(std::string_view sKeyword);

/// Ids of a deck mostly ascend, so those that do are kept as stretches of neighbours with one keyword; the others, and
/// ids whose keyword changes, are kept in an index.
class CIdOwners {
  public:
    static constexpr std::int32_t NONE = -1;

    /// Makes iKeyword the owner of iID. Returns the owner before, NONE if there was none.
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
    CKeyIndex m_index;                     // overrides them
    std::vector<std::uint8_t> m_aKeywords; // by the index
};
