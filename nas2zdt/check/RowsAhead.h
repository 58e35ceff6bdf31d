#pragma once
// Cards of a deck that are read ahead.

#include "nas2zdt/check/DeckRows.h"
#include "nas2zdt/check/RowReader.h"
#include "nas2zdt/restate/CardLines.h"
#include "nas2zdt/text/LinesAhead.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Makes rows of the cards of grids and elements that nothing more is to be said of. Their runs are apart from those of
/// cards that go into no table.
class CRowsAhead : public CLinesAhead {
  public:
    using CLinesAhead::CLinesAhead;

    void Begin(std::size_t nSlots) override;
    void Look(std::size_t iSlot, std::string_view sText, std::vector<T_LINERUN_D>& rRuns) override;

    /// What was made of a run.
    struct T_RUNROWS_D {
        bool bROWS = false;       // else the cards are in no table
        T_ROWCOUNTS_D begin, end; // of rows
        std::size_t nCARDS = 0;
        T_WHOLECARD_D first; // the others of cards that are in no table are like it

        bool TakesMore(const T_WHOLECARD_D& rCard) const;
    };
    const T_RUNROWS_D& GetRun(const T_LINERUN_D& rRun) const { return m_aSlots[rRun.iSLOT]->aRUNS[rRun.iROW]; }

    /// Rows of the slot of a run. Lines count from that with which the run begins.
    const T_DECKROWS_D& GetRows(const T_LINERUN_D& rRun) const { return m_aSlots[rRun.iSLOT]->rows; }

  private:
    struct T_SLOT_D {
        T_DECKROWS_D rows;
        CRowReader reader{rows};
        std::vector<T_RUNROWS_D> aRUNS;
        std::string sCARD; // without carriage returns

        T_READCARD_D Read(std::string_view sLines, const T_WHOLECARD_D& rWhole, std::int32_t iLine);
    };
    std::vector<std::unique_ptr<T_SLOT_D>> m_aSlots;
};

/// Takes carriage returns from the ends of lines.
void AppendWithoutReturns(std::string& rText, std::string_view sLines);
