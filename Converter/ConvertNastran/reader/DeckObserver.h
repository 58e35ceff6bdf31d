#pragma once
// What a host can learn of a run: what became of each group of lines in the bulk section, and then of the model.

#include "reader/Card.h"
#include "store/Left.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Why a group of lines made no card.
enum E_LOSS : std::int32_t {
    LOSS_END_OF_DECK,    // the deck ends before the group does, or right behind it
    LOSS_BLANK_LINE,     // a line of blanks behind it drops the group
    LOSS_TOO_MANY_LINES, // it grew over the limit
    LOSS_CUT_OFF,        // continuation lines without a card: the one before them ended too early
    LOSS_UNKNOWN_WORD,   // its first word isn't in the vocabulary
    LOSS_COUNT,
};

/// A group that was lost in reading.
struct T_LOSS_D {
    E_LOSS eLOSS = LOSS_END_OF_DECK;
    std::int32_t iKEYWORD = -1; // place in the keyword table, -1 if the first word isn't in it
    std::string_view sWORD;     // the first word, as the reader takes it
    std::int32_t iFIRST = 0;    // lines of the deck being read
    std::int32_t iLAST = 0;
};

/// Cards of which nothing is to be told are counted alone: nearly all of a deck are.
struct T_QUIET_D {
    static constexpr std::size_t MOST_KEYWORDS = 256; // more than there are
    static constexpr std::uint32_t EVERY_CARD = ~std::uint32_t(0);

    /// Of the cards of a keyword.
    struct T_WATCH_D {
        std::uint32_t nFILLED = EVERY_CARD; // a bit for each field that is told unless blank
        std::uint32_t nVALUES = 0;          // likewise, for each that is told unless blank or zero
        std::uint32_t nCOLUMNS = 0;         // of a small field line before the first of both
        std::uint32_t nCOUNT = 0;           // of cards that weren't told

        void Set(std::uint32_t nFilled, std::uint32_t nValues) {
            nFILLED = nFilled;
            nVALUES = nValues;
            const auto iFirst = static_cast<std::size_t>(std::countr_zero(nFilled | nValues));
            nCOLUMNS = nFilled == EVERY_CARD ? 0 : static_cast<std::uint32_t>(T_LINE_D::ColumnsBefore(iFirst));
        }
    };
    std::array<T_WATCH_D, MOST_KEYWORDS> aWATCHES; // by keyword
    std::int32_t iLAST = -1;                       // keyword of the last card, if it wasn't told
    bool bTELLALL = false; // for a while, whatever is watched; it may be set while the card in hand is read

    /// Takes note of cards that aren't told.
    void Count(std::int32_t iKeyword, std::uint32_t nCards = 1) {
        iLAST = iKeyword;
        aWATCHES[static_cast<std::size_t>(iKeyword)].nCOUNT += nCards;
    }
};

/// Whether a card has a field that isn't blank and is watched or wasn't read.
bool HasFieldToTell(const T_QUIET_D& rQuiet, const T_DATA_D& rCard);

/// Told in the order of the deck, while the run goes on, and of what the target file doesn't say behind it, in the
/// order of the passes and sections; what a call is given is valid during the call. An exception ends the run as one of
/// the run's own does.
class CDeckObserver : public CLeftSink {
  public:
    /// A deck, the main one or an included one, was opened.
    virtual void OnDeckBegin(const std::string& sPath) = 0;

    /// The deck was read to its end; bBulk tells whether that was in the bulk section.
    virtual void OnDeckEnd(bool bBulk) = 0;

    /// A line that is no bulk data: one of executive or case control, BEGIN BULK, or the one with the ENDDATA that ends
    /// the deck. Upper case, cut before a ":".
    virtual void OnControlLine(std::string_view, std::int32_t) {}

    /// The text of a group, whose first line is iFirst, if it may be cut otherwise than NASTRAN does. What comes of the
    /// group is told next, unless it is empty.
    virtual void OnText(std::span<const T_RAWLINE_D> /*aLines*/, std::int32_t /*iFirst*/) {}

    /// The log says that this line is ignored, as one of automatic generation. It is read like any other.
    virtual void OnSaidIgnored(std::int32_t) {}

    /// What the observer doesn't ask to be told of, which is nothing at first.
    virtual T_QUIET_D& GetQuiet() { return m_quiet; }

    /// A card of the vocabulary, from lines iFirst to iLast, was dispatched; rUse is what its handler made of its
    /// fields, empty if there is no handler.
    virtual void OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) = 0;

    /// A group made no card.
    virtual void OnLoss(const T_LOSS_D& rLoss) = 0;

    /// A "+" deleted nFields fields of a free field line, its continuation mark not counted. The card or the loss that
    /// the line belongs to comes next.
    virtual void OnFieldsDeleted(std::size_t nFields, std::int32_t iLine) = 0;

    /// So many bytes of the deck were read. Comes once in a while.
    virtual void OnBytesRead(std::uint64_t nBytes) = 0;

    /// How the log names a line of the deck being read. The run itself gives the number alone.
    virtual std::string LineText(std::int32_t iLine) const { return std::to_string(iLine); }

  protected:
    T_QUIET_D m_quiet; // every card is told until an observer says otherwise
};

/// Tells of those among the fields behind the first of a line that a "+" is about to delete. The last field is a
/// continuation mark if it begins with one.
void TellDeletedFields(CDeckObserver& rObserver, std::span<const std::string_view> aFields, std::int32_t iLine);
