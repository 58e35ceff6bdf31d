#pragma once
// A deck as NASTRAN means it, kept as small as a review of it needs.

#include "nas2zdt/check/CardFormats.h"
#include "nas2zdt/check/CardRelay.h"
#include "nas2zdt/check/DenseRows.h"
#include "nas2zdt/check/ElementKinds.h"
#include "nas2zdt/restate/CardFields.h"
#include "nas2zdt/restate/ColumnFields.h"
#include "nas2zdt/restate/DeckModel.h"
#include "nas2zdt/restate/Restate.h"
#include "nas2zdt/restate/SourceDeck.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
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

/// What an element refers to beside its grids and property: frames, materials, points.
struct T_ELEMENTUSE_D {
    E_REFERRED eTARGET;
    std::int32_t iID;
    std::uint32_t iROW; // of the element
};

/// Takes the cards that aren't in tables.
class CCardTaker {
  public:
    virtual ~CCardTaker() = default;

    /// rCard is valid during the call.
    virtual void TakeCard(const CCardFields& rCard) = 0;
};

/// Grids, frames and elements in tables, everything else as cards.
class CCheckDeck : private CCardSink {
  public:
    /// Throws CFileException if the deck can't be joined, or if replication makes more cards than may be.
    CCheckDeck(const std::string& sDeck, const T_CHOICE_D& rChoice);

    /// Grids with their basic positions, and frames. Of a grid or frame with an id twice the last counts.
    const CDeckModel& GetModel() const { return m_model; }
    /// Place of a grid in the table, CKeyIndex::NONE if there is none.
    std::uint32_t FindGridRow(std::int32_t iGrid) const { return m_gridRows.Find(iGrid); }
    bool HasGrid(std::int32_t iGrid) const { return FindGridRow(iGrid) != CKeyIndex::NONE; }
    /// As CDeckModel does, with less work.
    const T_VECTOR* FindPosition(std::int32_t iGrid) const {
        const std::uint32_t iRow = FindGridRow(iGrid);
        if (iRow == CKeyIndex::NONE) return nullptr;
        const T_POINT_D& rGrid = m_model.m_grids.GetRows()[iRow].second;
        return rGrid.bPLACED ? &rGrid.dX : nullptr;
    }
    /// Of the grid in this row of the table.
    const T_ORIGINLINE_D& GetGridOrigin(std::size_t iRow) const { return m_aGridOrigins[iRow]; }

    /// In the order of the deck, those with an id that comes again, too.
    const std::vector<T_DECKELEMENT_D>& GetElements() const { return m_aElements; }
    std::span<const std::int32_t> GetNodes(const T_DECKELEMENT_D& r) const { return {&m_aNodes[r.iFIRST], r.nNODES}; }
    std::span<const std::int32_t> GetCorners(const T_DECKELEMENT_D& r) const {
        return GetNodes(r).first(r.GetKind().nCORNERS);
    }

    /// The last element with this id, null if there is none.
    const T_DECKELEMENT_D* FindElement(std::int32_t iEID) const {
        const std::uint32_t iRow = m_elementRows.Find(iEID);
        return iRow == CKeyIndex::NONE ? nullptr : &m_aElements[iRow];
    }

    /// Ids of elements from iFirst to iLast that there are, ascending.
    std::vector<std::int32_t> GetElementRange(std::int32_t iFirst, std::int32_t iLast) const;

    /// The orientation of a CBAR, CBEAM or CBEND, null for another element.
    const T_ORIENTATION_D* FindOrientation(const T_DECKELEMENT_D& rElement) const;

    /// The orientation of such a bar as a basic vector. False if its grids or frame don't exist.
    bool FindVector(const T_DECKELEMENT_D& rBar, T_VECTOR& rVector) const;

    /// Of elements one behind the other that use the same, only the first is there.
    const std::vector<T_ELEMENTUSE_D>& GetUses() const { return m_aUses; }

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
    void WalkCards(const std::vector<T_SOURCECARD_D>& rCards, std::span<CCardTaker* const> aTakers) const;

    struct T_GRIDDEFAULTS_D {
        std::int32_t iCP = 0, iCD = 0;
        std::uint8_t nPS = 0;
    };

    enum E_TABLE : std::uint8_t {
        TABLE_GRIDS,
        TABLE_ELEMENTS,
        TABLE_FRAMES_BY_GRIDS,
        TABLE_FRAMES_BY_POINTS,
        TABLE_DEFAULTS, // kept as well
        TABLE_NONE
    };

    /// What is done with cards of a keyword.
    struct T_TABLE_D {
        E_TABLE eTABLE = TABLE_NONE;
        const T_ELEMENTKIND_D* pKIND = nullptr;
    };

    /// A card as it is read, with what it leaves to defaults.
    struct T_GRIDCARD_D {
        std::int32_t iID = 0;
        T_POINT_D grid;
        std::uint8_t nBLANKS = 0;
    };
    struct T_ELEMENTCARD_D {
        T_DECKELEMENT_D element;
        std::array<std::int32_t, MOST_ELEMENT_NODES> aNODES = {};
        bool bORIENTED = false;
        T_ORIENTATION_D orientation;
        std::uint8_t nBLANKS = 0;
    };

    std::uintmax_t Reserve(const std::string& sDeck);
    bool OnCard(const T_SOURCECARD_D& rCard) override;
    bool OnLine(std::string_view sLine, const T_ORIGINLINE_D& rOrigin) override;
    static T_TABLE_D FindTable(std::string_view sKeyword);
    void ChooseCase(const T_CHOICE_D& rChoice);
    void TakeDefaults();
    void FillGrids();
    void FillOrientations();
    template <class FIELDS>
    static T_GRIDCARD_D ReadGRID(const FIELDS& rCard);
    template <class FIELDS>
    void ReadElement(const FIELDS& rCard, const T_ELEMENTKIND_D& rKind);
    template <class FIELDS>
    static T_ORIENTATION_D ReadOrientation(const FIELDS& rCard, std::size_t iFirst);
    void TakeGRID();
    void AddGRID(const T_GRIDCARD_D& rRead, const T_ORIGINLINE_D& rOrigin);
    void TakeElement(const T_ELEMENTKIND_D& rKind);
    void AddElement(const T_ORIGINLINE_D& rOrigin);
    void TakeFrameByGrids();
    void TakeFrameByPoints();
    bool IsSound(bool bFits = true);
    bool ReadMore(const T_DECKELEMENT_D& rElement);
    bool FitsIds(const T_ELEMENTKIND_D& rKind) const;
    static bool FitsIds(const T_GRIDCARD_D& rRead);
    void Keep(std::vector<T_SOURCECARD_D>& rCards);

    CTold m_told;
    CSourceDeck m_source;
    std::optional<CCardRelay> m_relay; // if there is one, it has the texts of cards
    CCardFields m_card;                // the card in hand
    CColumnFields m_columns;           // likewise, if it came as a line
    TEXTWORD m_nKeyword = 0;           // of the last line
    T_TABLE_D m_table;                 // of that keyword
    T_ELEMENTCARD_D m_element;
    CDeckModel m_model;
    std::vector<T_ORIGINLINE_D> m_aGridOrigins;
    std::vector<T_DECKELEMENT_D> m_aElements;
    std::vector<std::int32_t> m_aNodes;
    CDenseRows m_gridRows, m_elementRows;
    mutable CSortedIds m_elementIds;
    CIdTable<T_ORIENTATION_D> m_orientations; // by element
    std::vector<T_ELEMENTUSE_D> m_aUses;
    std::vector<T_SOURCECARD_D> m_aRest;            // cards that aren't in tables
    std::vector<T_SOURCECARD_D> m_aOdd;             // cards of tables with a field that isn't right
    std::vector<T_SOURCECARD_D> m_aSized;           // cards of elements with a size of their own
    const T_SOURCECARD_D* m_pCard = nullptr;        // the card in hand
    bool m_bKept = false;                           // whether it is in one of these
    std::vector<std::uint32_t> m_aWithoutProperty;  // bars whose property is the default
    std::vector<std::uint8_t> m_aGridBlanks;        // what each grid leaves to the defaults
    std::vector<std::uint8_t> m_aOrientationBlanks; // likewise
    T_GRIDDEFAULTS_D m_gridDefaults;
    T_ORIENTATION_D m_barDefaults, m_beamDefaults;
    std::int32_t m_iBarProperty = 0, m_iBeamProperty = 0; // by default, 0 for the id of the element
    std::vector<T_CASE_D> m_aCases;
    T_CASE_D m_case;
    bool m_bAsked = false;
};
