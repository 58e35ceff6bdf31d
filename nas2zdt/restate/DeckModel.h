#pragma once
// What a deck means, as far as several families of rules need it.

#include "messages/RunError.h"
#include "nas2zdt/restate/DeckFrames.h"
#include "nas2zdt/restate/IdTable.h"
#include "nas2zdt/restate/Rule.h"
#include "nas2zdt/text/CaseRequests.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

/// A grid. Defaults of GRDSET are filled in.
struct T_POINT_D {
    std::int32_t iCP = 0;
    std::int32_t iCD = 0;
    T_VECTOR dX = {};     // as on the card; the basic position once the model is resolved
    std::uint8_t nPS = 0; // bit 0 for component 1
    bool bPLACED = true;  // whether the position is known
    std::uint32_t iCARD = 0;
};

/// Why a card is looked at again when the deck is written. Families set these bits of their cards, and of m_nActive
/// once there is reason.
enum E_NEED : std::uint8_t {
    NEED_NOTHING = 0,
    NEED_ALWAYS = 1, // the card alone is reason enough
    NEED_GRDSET = 2, // if there is a GRDSET
    NEED_BAROR = 4,  // likewise
    NEED_BEAMOR = 8, // likewise
    NEED_CD = 16,    // if a grid has a CD
};

/// Positions and axes of a deck.
class CDeckModel {
  public:
    /// sDeck is the main deck; ranges stand for at most nMostRanges ids.
    explicit CDeckModel(const std::string& sDeck = {}, std::int64_t nMostRanges = T_LIMITS_D().nRANGES)
        : m_sDeck(sDeck), m_nMostRanges(nMostRanges) {}

    CIdTable<T_POINT_D> m_grids;
    CDeckFrames m_frames;
    CIdTable<std::uint32_t> m_elements;   // places of their cards in the deck
    CIdTable<std::uint32_t> m_properties; // likewise
    CIdTable<std::uint32_t> m_materials;  // likewise; of structural ones
    std::vector<T_CASE_D> m_aCases;       // what subcases ask for; empty if nothing does
    T_CASE_D m_case;                      // the chosen one
    std::int32_t m_iAskedSPC = 0;         // set that all subcases of the restated deck ask for, 0 for none
    std::int32_t m_iAskedMPC = 0;         // likewise; the same set if there are supports and equations
    std::uint8_t m_nActive = NEED_ALWAYS; // needs of cards that there is reason for

    /// Works out all frames, then the basic positions of all grids. What can't be worked out stays as it is.
    void Resolve();

    /// The frame of an id, the basic one for 0. Null if there is none or it isn't one.
    const T_FRAME_D* FindFrame(std::int32_t iCID) const { return m_frames.Find(iCID); }

    /// The basic position of a grid, null if it isn't known.
    const T_VECTOR* FindPosition(std::int32_t iGrid) const {
        const T_POINT_D* pGrid = m_grids.Find(iGrid);
        return pGrid && pGrid->bPLACED ? &pGrid->dX : nullptr;
    }

    /// Ids that no card of the deck has or, of frames and properties, refers to: a card that names something that isn't
    /// there mustn't find it then.
    std::int32_t NewFrameId();
    std::int32_t NewElementId();
    std::int32_t NewPropertyId();

    /// Finds the largest id of a frame or property that a card refers to; asked for at most once each.
    std::function<std::int32_t()> m_findLastFrame, m_findLastProperty;

    /// Counts the ids that ranges stand for. Throws CFileException if they are more than may be.
    void CountRange(std::size_t nIDs);

    /// Elements of cards that have no row in m_elements, such as RBE2; called while the deck is gathered.
    void UseElementId(std::int32_t iID) { m_iLastElement = std::max(m_iLastElement, iID); }

  private:
    std::set<std::int32_t> m_newIds; // below the largest
    std::int32_t m_iLastFrame = 0;
    std::int32_t m_iLastElement = 0;
    std::int32_t m_iLastProperty = 0;
    std::string m_sDeck;
    std::int64_t m_nMostRanges;
    std::int64_t m_nRanges = 0;
};
