#pragma once
// What became of every card of a deck.

#include "nas2zdt/account/Drops.h"
#include "nas2zdt/account/IdOwners.h"
#include "nas2zdt/flatten/LineMap.h"
#include "reader/DeckObserver.h"
#include "reader/Keywords.h"
#include "store/DataPool.h"
#include "writer/rows/Left.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Kinds of loss; AccountOutput.cpp has their codes and texts.
enum E_NOTE {
    NOTE_END_OF_DECK, // the first five are those of E_LOSS
    NOTE_BLANK_LINE,
    NOTE_TOO_MANY_LINES,
    NOTE_CUT_OFF,
    NOTE_UNKNOWN_WORD,
    NOTE_REPORTED,
    NOTE_SKIPPED,
    NOTE_REPLACED,
    NOTE_PAST_READ, // this and the next two come from CDrops
    NOTE_FIELDS,
    NOTE_THRU,
    NOTE_PLUS_SIGN,
    NOTE_NO_BULK,  // a deck without bulk section
    NOTE_UNWRITTEN // stored, but not in the file; the text says why
};

/// A range of lines in one of the decks of the run.
struct T_PLACE_D {
    std::uint32_t iDECK = 0;
    std::int32_t iFIRST = 0, iLAST = 0;
};

/// A kind of loss of one keyword: how often it occurred and where first.
struct T_NOTE_D {
    static constexpr std::size_t MOST_PLACES = 100;

    E_NOTE eNOTE = NOTE_UNWRITTEN;
    std::string sTEXT; // what of the card is lost, where the kind doesn't say it
    std::uint64_t nCOUNT = 0;
    std::vector<T_PLACE_D> aPLACES;
    std::vector<std::int32_t> aIDS; // instead of places for what is stored but not written; ascending
};

/// What became of the cards of one keyword or unknown word.
struct T_WORD_D {
    std::string sNAME;
    std::uint64_t nREAD = 0;     // cards: the sum of those below except nREPLACED and nCUTOFF
    std::uint64_t nSTORED = 0;   // passed to their handler; for INCLUDE, decks read
    std::uint64_t nREPLACED = 0; // of nSTORED
    std::uint64_t nREPORTED = 0;
    std::uint64_t nSKIPPED = 0;
    std::uint64_t nUNKNOWN = 0;
    std::uint64_t nLOST = 0;
    std::uint64_t nCUTOFF = 0; // groups of continuation lines cut off from their card
    static constexpr std::size_t MOST_NOTES = 50;
    std::vector<T_NOTE_D> aNOTES; // past MOST_NOTES, further sets of fields share a note

    /// False for a word that only has notes.
    bool HasCounts() const { return nREAD > 0 || nCUTOFF > 0; }
};

/// Counts cards and losses while it observes a run.
class CAccount : public CDeckObserver {
  public:
    CAccount();

    void OnDeckBegin(const std::string& sName) override { m_aDecks.push_back(sName); }
    void OnDeckEnd(bool bBulk) override;
    void OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) override;
    void OnLoss(const T_LOSS_D& rLoss) override;
    void OnFieldsDeleted(std::size_t nFields, std::int32_t) override { m_nDeletedFields += nFields; }
    void OnBytesRead(std::uint64_t) override {}

    /// After the run: adds what the store holds and the file doesn't.
    void AddModel(const CDataPool& rPool);

    /// From now on lines are those of a joined deck, shown by their origins. pLines must outlive this object.
    void SetLines(const CLineMap* pLines) { m_pLines = pLines; }

    /// Every word met, in alphabetical order. The one with an empty name takes losses of no particular card.
    std::vector<const T_WORD_D*> GetWords() const;

    /// Number of losses of any kind.
    std::uint64_t GetLossCount() const;

    /// File and first line of a place. Its last line is as far behind as in the place.
    T_ORIGIN_D GetOrigin(const T_PLACE_D& rPlace) const;

    /// Whether all lines come from the main deck, so that their numbers suffice.
    bool HasOneFile() const { return m_aDecks.size() < 2 && !m_pLines; }

  private:
    T_WORD_D& Known(std::int32_t iKeyword) { return m_aKnown[static_cast<std::size_t>(iKeyword)]; }
    T_WORD_D& Unknown(std::string_view sWord);
    T_PLACE_D Place(std::int32_t iFirst, std::int32_t iLast) const {
        return {static_cast<std::uint32_t>(m_aDecks.size() - 1), iFirst, iLast};
    }
    static T_NOTE_D& FindNote(T_WORD_D& rWord, E_NOTE eNote, std::string_view sText);
    static void Note(T_WORD_D& rWord, E_NOTE eNote, const T_PLACE_D& rPlace, std::string_view sText = {});
    void NoteUnwritten(const T_REASON_D& rReason, const T_NOTE_D& rFound);
    void TakeOwnership(const T_OWNS_D& rOwns, std::int32_t iKeyword, const T_DATA_D& rCard, const T_PLACE_D& rPlace);

    std::array<T_WORD_D, T_KEYW_D::TABLE.size()> m_aKnown;
    std::array<T_OWNS_D, T_KEYW_D::TABLE.size()> m_aOwns; // by keyword, as m_aDrops
    std::vector<CDrops> m_aDrops;
    std::map<std::string, T_WORD_D, std::less<>> m_mapUnknown;
    T_WORD_D* m_pUnknown = nullptr; // the last one used
    std::array<CIdOwners, OWNED_COUNT> m_aOwners;
    std::vector<std::string> m_aDecks;
    T_WORD_D* m_pLast = nullptr;      // of the last card or loss, which cut off continuation lines count to
    std::size_t m_nDeletedFields = 0; // of the next card
    const CLineMap* m_pLines = nullptr;
};
