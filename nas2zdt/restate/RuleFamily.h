#pragma once
// Rules that belong together.

#include "nas2zdt/restate/DeckModel.h"
#include "nas2zdt/restate/RestateCard.h"
#include "nas2zdt/restate/Rule.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// What is done with the cards of a keyword.
struct T_CARDRULES_D {
    std::string sKEYWORD;

    /// Keeps what the card means; called for each card in the order of the deck, before anything is written. iCard is
    /// its place in the deck. Returns a sum of E_NEED. Null for needs of NEED_ALWAYS.
    std::function<std::uint8_t(const CCardFields& rCard, std::uint32_t iCard)> gather;

    /// Restates the card; called in the order of the deck for cards whose needs are there. Null if cards always go
    /// through as they stand.
    std::function<void(CRestateCard& rCard)> restate;
};

/// What a family works with.
struct T_RULEBENCH_D {
    CDeckModel& rMODEL;
    CTold& rTOLD;
    std::vector<T_SOURCECARD_D>& rCARDS;
};

/// Each family keeps what it alone has to know of the deck.
class CRuleFamily {
  public:
    explicit CRuleFamily(const T_RULEBENCH_D& rBench)
        : m_rModel(rBench.rMODEL), m_rTold(rBench.rTOLD), m_rCards(rBench.rCARDS) {}
    virtual ~CRuleFamily() = default;

    virtual std::vector<T_CARDRULES_D> GetCards() = 0;

    /// All cards are gathered: defaults can be filled in, and needs become active.
    virtual void Close() {}

    /// Frames and positions are known.
    virtual void Begin() {}

    /// Writes cards that come of many cards together. Each has the origin of one of them.
    virtual void Finish(CCardWriter&) {}

  protected:
    CDeckModel& m_rModel;
    CTold& m_rTold;
    std::vector<T_SOURCECARD_D>& m_rCards; // for a second look at a card by its place
};
