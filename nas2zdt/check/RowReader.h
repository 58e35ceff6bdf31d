#pragma once
// Reads cards of grids and elements.

#include "nas2zdt/check/DeckRows.h"
#include "nas2zdt/restate/CardFields.h"
#include "nas2zdt/restate/ColumnFields.h"
#include "nas2zdt/restate/SourceDeck.h"
#include "platform/TextWord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// Where a card goes.
enum E_TABLE : std::uint8_t {
    TABLE_GRIDS,
    TABLE_ELEMENTS,
    TABLE_FRAMES_BY_GRIDS,
    TABLE_FRAMES_BY_POINTS,
    TABLE_DEFAULTS, // GRDSET and its like
    TABLE_NONE
};

/// What was read of a card.
struct T_READCARD_D {
    E_TABLE eTABLE = TABLE_NONE;
    bool bODD = false;   // a grid or element with a field that isn't what it should be
    bool bSIZED = false; // an element with an area or thicknesses of its own
};

/// Adds rows to tables, which must outlive it.
class CRowReader {
  public:
    explicit CRowReader(T_DECKROWS_D& rRows) : m_rRows(rRows) {}

    /// Adds the row of a grid or element whose grids, numbers and ids can be read; of one that is odd or has a size
    /// only with bAnyway. GetCard has the fields unless there is nothing more to be said of the card. bOneLine tells
    /// that the card is a line for sure.
    T_READCARD_D Read(const T_SOURCECARD_D& rCard, bool bAnyway, bool bOneLine = false);

    const CCardFields& GetCard() const { return m_card; }

    /// What rows use from here on is added even if the row before uses the same.
    void BeginRun() { m_nUsesBefore = m_rRows.aUSES.size(); }

  private:
    /// What is done with cards of a keyword.
    struct T_KEYWORD_D {
        E_TABLE eTABLE = TABLE_NONE;
        const T_ELEMENTKIND_D* pKIND = nullptr;
    };
    struct T_GRIDCARD_D {
        std::int32_t iID = 0;
        T_VECTOR dX = {};
        T_GRIDKIND_D kind;
    };
    struct T_ELEMENTCARD_D {
        T_DECKELEMENT_D element;
        std::array<std::int32_t, MOST_ELEMENT_NODES> aNODES = {};
        bool bORIENTED = false;
        T_BAR_D bar;
    };

    static T_KEYWORD_D FindKeyword(std::string_view sKeyword);
    bool ReadAtOnce(const T_SOURCECARD_D& rCard);
    template <class FIELDS>
    static T_GRIDCARD_D ReadGRID(const FIELDS& rCard);
    template <class FIELDS>
    void ReadElement(const FIELDS& rCard, const T_ELEMENTKIND_D& rKind);
    void TakeGRID(T_READCARD_D& rRead, bool bAnyway);
    void TakeElement(T_READCARD_D& rRead, const T_ELEMENTKIND_D& rKind, bool bAnyway);
    void AddElement(const T_ORIGINLINE_D& rOrigin);
    bool ReadMore(const T_DECKELEMENT_D& rElement);
    bool FitsIds(const T_ELEMENTKIND_D& rKind) const;
    static bool FitsIds(const T_GRIDCARD_D& rRead);
    bool IsSound() const { return m_card.GetBroken() == CCardFields::NOWHERE; }

    T_DECKROWS_D& m_rRows;
    CCardFields m_card;
    CColumnFields m_columns;
    TEXTWORD m_nKeyword = 0; // of the last card of columns
    T_KEYWORD_D m_keyword;   // what is done with it
    T_ELEMENTCARD_D m_element;
    std::size_t m_nUsesBefore = 0;
};

/// The orientation of a bar or of BAROR and BEAMOR: a vector or grid from field iFirst on, then OFFT.
T_ORIENTATION_D ReadOrientation(const CCardFields& rCard, std::size_t iFirst);

bool HasOrientation(std::string_view sKeyword);

/// Whether an integer may be the id of a grid, element, property or frame.
inline bool IsId(std::int32_t iID) {
    return iID > 0 && iID <= LARGEST_ID;
}
