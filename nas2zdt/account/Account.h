#pragma once
// What became of every card of a deck.

#include "nas2zdt/account/Drops.h"
#include "nas2zdt/account/IdOwners.h"
#include "nas2zdt/account/OwnedIds.h"
#include "nas2zdt/flatten/LineMap.h"
#include "reader/DeckObserver.h"
#include "reader/Keywords.h"
#include "store/Left.h"

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Ways to be lost. Their codes and texts stand in the table of AccountTexts.cpp.
enum E_NOTE {
    NOTE_END_OF_DECK, // the first ones are those of E_LOSS
    NOTE_BLANK_LINE,
    NOTE_TOO_MANY_LINES,
    NOTE_CUT_OFF,
    NOTE_UNKNOWN_WORD,
    NOTE_REPORTED,
    NOTE_SKIPPED,
    NOTE_REPLACED,
    NOTE_PAST_READ, // these three by Drops.h
    NOTE_FIELDS,
    NOTE_THRU,
    NOTE_PLUS_SIGN,
    NOTE_NO_BULK,   // a deck without bulk section
    NOTE_UNWRITTEN, // stored, but not in the file; the text is the reason's, as of the next
    NOTE_ALTERED,   // in the file, but otherwise than the deck means
};

/// Lines of a deck of the run.
struct T_PLACE_D {
    std::uint32_t iDECK = 0;
    std::int32_t iFIRST = 0, iLAST = 0;
};

/// A loss of one kind: how often, and where the first ones are.
struct T_NOTE_D {
    static constexpr std::size_t MOST_PLACES = 100;

    E_NOTE eNOTE = NOTE_UNWRITTEN;
    std::string sTEXT; // what of the card, where the kind alone doesn't tell
    std::uint64_t nCOUNT = 0;
    std::vector<T_PLACE_D> aPLACES;
    std::vector<std::int32_t> aIDS; // of what is told by reasons, instead of places: the smallest, ascending
};

/// What became of the cards of one keyword or unknown word.
struct T_WORD_D {
    std::string sNAME;
    std::uint64_t nREAD = 0;   // cards: those below but nREPLACED, which are stored too, and nCUTOFF
    std::uint64_t nSTORED = 0; // went to their handler; of an INCLUDE, its deck was read
    std::uint64_t nREPLACED = 0;
    std::uint64_t nREPORTED = 0;
    std::uint64_t nSKIPPED = 0;
    std::uint64_t nUNKNOWN = 0;
    std::uint64_t nLOST = 0;
    std::uint64_t nCUTOFF = 0;    // groups of continuation lines that a card lost
    std::vector<T_NOTE_D> aNOTES; // with texts of the cards' own, few: past MOST_NOTES, new texts are told as one
    static constexpr std::size_t MOST_NOTES = 50;

    /// False for a word that has nothing but notes.
    bool HasCounts() const { return nREAD > 0 || nCUTOFF > 0; }
};

/// Counts while a run goes on.
class CAccount {
  public:
    CAccount();

    void BeginDeck(const std::string& sName) { m_aDecks.push_back(sName); }
    void EndDeck(bool bBulk);
    void AddCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast);
    void AddLoss(const T_LOSS_D& rLoss);
    void AddDeletedFields(std::size_t nFields, std::int32_t iLine);

    /// What the store holds and the file doesn't, or says otherwise.
    void AddLeft(const T_LEFT_D& rLeft);

    /// Lines are those of a joined deck from now on, and told by their origins. pLines must outlive this object.
    void SetLines(const CLineMap* pLines) { m_pLines = pLines; }

    /// Every word that was met, in the order of the alphabet; an empty name stands for no word.
    std::vector<const T_WORD_D*> GetWords() const;

    /// Number of losses of any kind.
    std::uint64_t GetLossCount() const;

    /// File and first line of a place. The last line follows it at the same distance as in the place.
    T_ORIGIN_D GetOrigin(const T_PLACE_D& rPlace) const;

    /// Whether all lines come from the main deck, so that numbers alone tell them.
    bool HasOneFile() const { return m_aDecks.size() < 2 && !m_pLines; }

  private:
    T_WORD_D& Known(std::int32_t iKeyword) { return m_aKnown[static_cast<std::size_t>(iKeyword)]; }
    T_WORD_D& Unknown(std::string_view sWord);
    T_PLACE_D Place(std::int32_t iFirst, std::int32_t iLast) const {
        return {static_cast<std::uint32_t>(m_aDecks.size() - 1), iFirst, iLast};
    }
    static T_NOTE_D& FindNote(T_WORD_D& rWord, E_NOTE eNote, std::string_view sText);
    static void Note(T_WORD_D& rWord, E_NOTE eNote, const T_PLACE_D& rPlace, std::string_view sText = {});
    void TakeOwnership(const T_OWNS_D& rOwns, std::int32_t iKeyword, const T_DATA_D& rCard, const T_PLACE_D& rPlace);

    std::array<T_WORD_D, T_KEYW_D::TABLE.size()> m_aKnown;
    std::array<T_OWNS_D, T_KEYW_D::TABLE.size()> m_aOwns; // in step, as the next
    std::vector<CDrops> m_aDrops;
    std::map<std::string, T_WORD_D, std::less<>> m_mapUnknown;
    T_WORD_D* m_pUnknown = nullptr; // the last one of them
    struct T_LAST_D {
        E_LEFT eREASON = LEFT_COUNT;
        const char* sKEYWORD = nullptr;
        T_WORD_D* pWORD = nullptr;
        std::size_t iNOTE = 0; // of the word's
    };
    T_LAST_D m_left; // the note of the last reason
    std::array<CIdOwners, OWNED_COUNT> m_aOwners;
    std::vector<std::string> m_aDecks;
    T_WORD_D* m_pLast = nullptr;      // of the last card or loss, which continuation lines that stand alone belong to
    std::size_t m_nDeletedFields = 0; // of the card to come
    const CLineMap* m_pLines = nullptr;
};
