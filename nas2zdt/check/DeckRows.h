#pragma once
// Grids and elements of a deck, a row each.

#include "nas2zdt/check/CardFormats.h"
#include "nas2zdt/check/DeckGrids.h"
#include "nas2zdt/check/ElementKinds.h"
#include "nas2zdt/geometry/Vector.h"
#include "nas2zdt/restate/Rule.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// An element. Of several with one id the last counts.
struct T_DECKELEMENT_D {
    std::int32_t iEID = 0;
    std::int32_t iPID = 0;    // the default if the card leaves it out, 0 if the kind has none
    std::uint32_t iFIRST = 0; // place of its first grid
    std::uint8_t nNODES = 0;  // up to the last that isn't blank, at least the corners; 0 for a blank one
    std::uint8_t iKIND = 0;   // in GetElementKinds()
    std::uint8_t nENDS = 0;   // of a scalar element: a bit for each end that has a component
    bool bMORE = false;       // whether there are fields behind its grids
    T_ORIGINLINE_D origin;

    const T_ELEMENTKIND_D& GetKind() const { return GetElementKinds()[iKIND]; }
};

/// The orientation of a bar, with the defaults of BAROR or BEAMOR filled in.
struct T_ORIENTATION_D {
    std::optional<std::int32_t> iG0;
    std::optional<T_VECTOR> vector;
    bool bBASIC = false; // the vector, else in the axes of the first grid
};

/// A CBAR, CBEAM or CBEND.
struct T_BAR_D {
    std::int32_t iEID = 0;
    std::uint32_t iROW = 0; // of the element
    T_ORIENTATION_D orientation;
    std::uint8_t nBLANKS = 0; // what its card leaves to those defaults
};

/// What is left to BAROR, or to BEAMOR.
enum E_BARBLANK : std::uint8_t { BLANK_VECTOR = 1, BLANK_OFFT = 2, BLANK_PID = 4, OF_BEAM = 8 };

/// What an element refers to beside its grids and property: frames, materials, points.
struct T_ELEMENTUSE_D {
    E_REFERRED eTARGET;
    std::int32_t iID;
    std::uint32_t iROW; // of the element
};

/// Numbers of rows, or places behind the last.
struct T_ROWCOUNTS_D {
    std::size_t nGRIDS = 0, nELEMENTS = 0, nNODES = 0, nBARS = 0, nUSES = 0;
};

/// In the order of the deck.
struct T_DECKROWS_D {
    CDeckGrids grids;
    std::vector<T_DECKELEMENT_D> aELEMENTS;
    std::vector<std::int32_t> aNODES; // of elements
    std::vector<T_BAR_D> aBARS;
    std::vector<T_ELEMENTUSE_D> aUSES; // of elements one behind the other that use the same, only the first

    void Clear();
    T_ROWCOUNTS_D Count() const {
        return {grids.GetCount(), aELEMENTS.size(), aNODES.size(), aBARS.size(), aUSES.size()};
    }

    /// Adds a part of other rows, whose lines count from that of origin.
    void Append(const T_DECKROWS_D& rOther, const T_ROWCOUNTS_D& rBegin, const T_ROWCOUNTS_D& rEnd,
                const T_ORIGINLINE_D& rOrigin);

    /// Adds what the next element uses, unless the one before uses the same.
    void AddUse(E_REFERRED eTarget, std::int32_t iID, std::uint32_t iRow) {
        if (aUSES.empty() || aUSES.back().eTARGET != eTarget || aUSES.back().iID != iID)
            aUSES.push_back({eTarget, iID, iRow});
    }
};
