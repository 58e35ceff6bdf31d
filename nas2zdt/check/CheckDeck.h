#pragma once
// A deck as NASTRAN means it, kept as small as a review of it needs.

#include "nas2zdt/check/DeckRows.h"
#include "nas2zdt/check/DenseRows.h"
#include "nas2zdt/check/RowReader.h"
#include "nas2zdt/check/RowsAhead.h"
#include "nas2zdt/restate/CardFields.h"
#include "nas2zdt/restate/DeckFrames.h"
#include "nas2zdt/restate/Restate.h"
#include "nas2zdt/restate/SourceDeck.h"
#include "nas2zdt/text/CaseRequests.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Takes the cards that aren't in tables.
class CCardTaker {
  public:
    virtual ~CCardTaker() = default;

    /// rCard is valid during the call.
    virtual void TakeCard(const CCardFields& rCard) = 0;

    /// Whether cards of a keyword may mean anything to it; others needn't come.
    virtual bool Wants(std::string_view sKeyword) const {
        static_cast<void>(sKeyword);
        return true;
    }
};

/// Grids, frames and elements in tables, everything else as cards.
class CCheckDeck : private CCardSink {
  public:
    /// Throws CFileException if the deck can't be joined, or if replication makes more cards than may be.
    CCheckDeck(const std::string& sDeck, const T_CHOICE_D& rChoice);

    /// Grids with their basic positions.
    const CDeckGrids& GetGrids() const { return m_rows.grids; }
    /// Of a frame with an id twice the last counts.
    const CDeckFrames& GetFrames() const { return m_frames; }
    bool HasGrid(std::int32_t iGrid) const { return m_rows.grids.Has(iGrid); }
    const T_VECTOR* FindPosition(std::int32_t iGrid) const { return m_rows.grids.FindPosition(iGrid); }
    const T_FRAME_D* FindFrame(std::int32_t iCID) const { return m_frames.Find(iCID); }

    /// In the order of the deck, those with an id that comes again, too.
    const std::vector<T_DECKELEMENT_D>& GetElements() const { return m_rows.aELEMENTS; }
    std::span<const std::int32_t> GetNodes(const T_DECKELEMENT_D& r) const {
        return {m_rows.aNODES.data() + r.iFIRST, r.nNODES};
    }
    std::span<const std::int32_t> GetCorners(const T_DECKELEMENT_D& r) const {
        return GetNodes(r).first(r.GetKind().nCORNERS);
    }

    /// The last element with this id, null if there is none.
    const T_DECKELEMENT_D* FindElement(std::int32_t iEID) const {
        const std::uint32_t iRow = m_elementRows.Find(iEID);
        return iRow == CKeyIndex::NONE ? nullptr : &m_rows.aELEMENTS[iRow];
    }

    /// Ids of elements from iFirst to iLast that there are, ascending.
    std::vector<std::int32_t> GetElementRange(std::int32_t iFirst, std::int32_t iLast) const;

    /// The orientation of a CBAR, CBEAM or CBEND, null for another element.
    const T_ORIENTATION_D* FindOrientation(const T_DECKELEMENT_D& rElement) const;

    /// The orientation of such a bar as a basic vector. False if its grids or frame don't exist.
    bool FindVector(const T_DECKELEMENT_D& rBar, T_VECTOR& rVector) const;

    /// Of elements one behind the other that use the same, only the first is there.
    const std::vector<T_ELEMENTUSE_D>& GetUses() const { return m_rows.aUSES; }

    /// Gives the cards of GRID, elements and frames with a field that isn't what it should be, in the order of the
    /// deck. Those whose grids, numbers or ids can't be read are in no table and count for nothing else.
    void WalkOdd(CCardTaker& rTaker) const;

    /// Gives the cards of elements with an area or thicknesses of their own: CONROD, and plates with T1 to T4.
    void WalkSized(CCardTaker& rTaker) const;

    /// Gives the cards that aren't in tables to all takers, in the order of the deck: all but GRID, elements and
    /// frames.
    void Walk(std::span<CCardTaker* const> aTakers) const;

    const std::vector<T_CONTROL_D>& GetControl() const { return m_source.GetControl(); }

    /// Subcases, and the one that is chosen.
    const std::vector<T_CASE_D>& GetCases() const { return m_aCases; }
    const T_CASE_D& GetCase() const { return m_case; }
    bool AsksForSets() const { return m_bAsked; } // whether case control asks for any set

    /// What was wrong with the text, by the rules of CSourceDeck.
    const CTold& GetTold() const { return m_told; }

    const std::vector<T_BEHINDEND_D>& GetBehindEnd() const { return m_source.GetBehindEnd(); }

    /// "deck.bdf:13".
    std::string GetPlace(const T_ORIGINLINE_D& rOrigin) const;
    const std::vector<std::string>& GetFiles() const { return m_source.GetFiles(); }

  private:
    /// Cards that are in no table: one, or several of a line each, one behind the other, of one keyword if they are of
    /// columns.
    struct T_CARDS_D {
        T_SOURCECARD_D first; // with the text of all
        std::uint32_t nCARDS = 1;
    };

    static void WalkCards(const std::vector<T_CARDS_D>& rCards, std::span<CCardTaker* const> aTakers);

    void Reserve(const std::string& sDeck);
    bool OnCard(const T_SOURCECARD_D& rCard) override;
    std::unique_ptr<CLinesAhead> MakeAhead() override { return std::make_unique<CRowsAhead>(m_nThreads); }
    void OnRun(std::string_view sText, const T_ORIGINLINE_D& rOrigin, const T_LINERUN_D& rRun,
               CLinesAhead& rAhead) override;
    void ChooseCase(const T_CHOICE_D& rChoice);
    void TakeDefaults();
    void FillBars();
    bool TakeFrameByGrids();
    bool TakeFrameByPoints();
    bool TakeFrame(std::int32_t iCID, const T_FRAMECARD_D& rFrame, bool bFits);

    CTold m_told;
    CSourceDeck m_source;
    std::size_t m_nThreads;
    T_DECKROWS_D m_rows;
    CRowReader m_reader{m_rows};
    CDeckFrames m_frames;
    CTextStore m_texts; // of cards that were read ahead
    std::string m_sText;
    CDenseRows m_elementRows, m_barRows;
    mutable CSortedIds m_elementIds;
    std::vector<T_CARDS_D> m_aRest;  // cards that aren't in tables
    std::vector<T_CARDS_D> m_aOdd;   // cards of tables with a field that isn't right
    std::vector<T_CARDS_D> m_aSized; // cards of elements with a size of their own
    T_GRIDKIND_D m_gridDefaults;
    T_ORIENTATION_D m_barDefaults, m_beamDefaults;
    std::int32_t m_iBarProperty = 0, m_iBeamProperty = 0; // by default, 0 for the id of the element
    std::vector<T_CASE_D> m_aCases;
    T_CASE_D m_case;
    bool m_bAsked = false;
};
