#pragma once
// The frames of a deck.

#include "nas2zdt/restate/Frame.h"
#include "nas2zdt/restate/IdTable.h"
#include "nas2zdt/restate/Rule.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>

/// A frame as its card says it.
struct T_FRAMECARD_D {
    E_FRAME eKIND = FRAME_RECTANGULAR;
    bool bGRIDS = false;   // by three grids, or by three points
    std::int32_t iRID = 0; // of the points
    std::array<std::int32_t, 3> iG = {};
    std::array<T_VECTOR, 3> dPOINTS = {}; // A, B, C
    T_ORIGINLINE_D origin;
};

/// CP and coordinates of a grid as they are on its card.
struct T_CARDPOSITION_D {
    std::int32_t iCP = 0;
    T_VECTOR dX = {};
};

/// Works out frames in frames. Of two cards with one id the later counts.
class CDeckFrames {
  public:
    /// Finds a grid; gives nothing if there is none.
    using FIND_GRID = std::function<std::optional<T_CARDPOSITION_D>(std::int32_t)>;

    void Put(std::int32_t iCID, const T_FRAMECARD_D& rCard) { m_cards.Put(iCID, rCard); }
    const CIdTable<T_FRAMECARD_D>& GetCards() const { return m_cards; }

    /// Works out all frames.
    void Resolve(const FIND_GRID& findGrid);

    /// The frame of an id, the basic one for 0. Null if there is none or it isn't one.
    const T_FRAME_D* Find(std::int32_t iCID) const;

    /// Makes coordinates basic that are as on a card. False if their frame isn't known.
    bool Place(std::int32_t iCP, T_VECTOR& rX) const;

  private:
    void ResolveFrame(std::int32_t iCID, const FIND_GRID& findGrid);
    std::int32_t FindMissing(const T_FRAMECARD_D& rCard, const FIND_GRID& findGrid) const;
    bool MakeFrame(std::int32_t iCID, const T_FRAMECARD_D& rCard, const FIND_GRID& findGrid);

    CIdTable<T_FRAMECARD_D> m_cards;
    std::map<std::int32_t, T_FRAME_D> m_mapFrames;
    std::set<std::int32_t> m_badFrames;
};
