#pragma once
// What became of every card of a deck.

#include "nas2zdt/account/CaseControl.h"
#include "nas2zdt/account/Drops.h"
#include "nas2zdt/account/Losses.h"
#include "nas2zdt/account/Marks.h"
#include "nas2zdt/account/TextLosses.h"
#include "nas2zdt/flatten/LineMap.h"
#include "nas2zdt/restate/Rule.h"
#include "reader/DeckObserver.h"
#include "reader/Keywords.h"
#include "store/Left.h"

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class CDataPool;

/// A range of lines in one of the decks of the run.
struct T_PLACE_D {
    static constexpr std::uint32_t SOURCE = 0x80000000; // this plus its number is a file of the deck before restating
    std::uint32_t iDECK = 0;
    std::int32_t iFIRST = 0, iLAST = 0;
};

/// A kind of loss of one keyword: how often it occurred and where first.
struct T_NOTE_D {
    static constexpr std::size_t MOST_PLACES = 100; // that are told

    E_NOTE eNOTE = NOTE_UNWRITTEN;
    E_LOSS_CLASS eCLASS = CLASS_MODEL;
    std::string sTEXT;             // what of the card, where the kind alone doesn't tell
    std::string_view sREASON = {}; // its code, of what reasons tell
    std::uint64_t nCOUNT = 0;
    std::vector<T_PLACE_D> aPLACES;
    std::vector<std::int32_t> aIDS; // instead of places for what reasons tell: the smallest, ascending

    // of an account that keeps marks: all things that it is told of, in no order, one maybe more than once
    E_MARKED eMARKED = MARKED_NONE;
    std::vector<std::int32_t> aMARKED = {};
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

    /// Before the run: notes keep the ids of all nodes, elements and properties that they are told of.
    void KeepMarks() { m_bMarks = true; }

    void OnDeckBegin(const std::string& sName) override;
    void OnDeckEnd(bool bBulk) override;
    void OnCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast) override;
    void OnLoss(const T_LOSS_D& rLoss) override;
    void OnFieldsDeleted(std::size_t nFields, std::int32_t) override { m_nDeletedFields += nFields; }
    void OnControlLine(std::string_view sText, std::int32_t iLine) override;
    void OnText(std::span<const T_RAWLINE_D> aLines, std::int32_t iFirst) override {
        m_textLosses.TakeText(aLines, iFirst);
    }
    void OnSaidIgnored(std::int32_t iLine) override {
        m_iSaidIgnored = iLine;
        m_quiet.bTELLALL = true;
    }
    void OnBytesRead(std::uint64_t) override {}

    void OnLeft(const T_LEFT_D& rLeft) override;
    void OnReplaced(const char* sKeyword, bool bSame) override {
        m_aReplaced.push_back({sKeyword, bSame});
        m_quiet.bTELLALL = true; // the card in hand, too
    }

    /// After the run: adds what the deck's end tells.
    void EndRun(const CDataPool& rPool);

    /// After the run: the digits that the file hasn't.
    void AddRounding(const CDataPool& rPool);

    /// After the run: what rules of restating did, with places in files by their numbers. Both must outlive this
    /// object.
    void AddRestated(const std::vector<T_TOLD_D>& rTold, const std::vector<std::string>& rFiles);

    /// Lines are those of a joined deck from now on, and told by their origins. pLines must outlive this object.
    void SetLines(const CLineMap* pLines) { m_pLines = pLines; }

    /// Before the run: keeps so many places of each kind of loss for others than the account's own tables.
    void KeepPlaces(std::size_t nMost) { m_nMostPlaces = nMost; }

    /// Every word met, in alphabetical order. The one with an empty name takes losses of no particular card.
    std::vector<const T_WORD_D*> GetWords() const;

    /// Number of losses by class.
    using CLASS_COUNTS = std::array<std::uint64_t, CLASS_COUNT>;
    CLASS_COUNTS GetLossCounts() const;

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
    static T_NOTE_D& FindNote(T_WORD_D& rWord, E_NOTE eNote, E_LOSS_CLASS eClass, std::string_view sText);
    void TakeCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst, std::int32_t iLast);
    void Note(T_WORD_D& rWord, E_NOTE eNote, E_LOSS_CLASS eClass, const T_PLACE_D& rPlace, std::string_view sText = {},
              std::uint64_t nCount = 1) const;
    void NoteCard(T_WORD_D& rWord, E_NOTE eNote, const T_PLACE_D& rPlace) const {
        Note(rWord, eNote, ClassOfCard(rWord.sNAME), rPlace);
    }
    void NoteRanges(const CDataPool& rPool, bool bElements);
    void NoteText(const std::vector<T_TEXTLOSS_D>& aLosses, T_WORD_D& rWord, T_WORD_D* pBefore,
                  const T_PLACE_D& rPlace);
    void NoteOutsider(T_WORD_D& rWord, std::int32_t iKeyword, const T_PLACE_D& rPlace);
    void NoteDeck(const CDataPool& rPool);
    void NoteReplaced(const T_PLACE_D& rPlace);
    T_WORD_D* LastWord() { return m_quiet.iLAST >= 0 ? &Known(m_quiet.iLAST) : m_pLast; }
    void SetLast(T_WORD_D* pWord);

    std::size_t m_nMostPlaces = T_NOTE_D::MOST_PLACES;
    std::array<T_WORD_D, T_KEYWORD_D::TABLE.size()> m_aKnown;
    std::vector<CDrops> m_aDrops; // by keyword
    std::map<std::string, T_WORD_D, std::less<>> m_mapUnknown;
    T_WORD_D* m_pUnknown = nullptr; // the last one used
    struct T_LAST_D {
        E_LEFT eREASON = LEFT_COUNT;
        const char* sKEYWORD = nullptr;
        T_WORD_D* pWORD = nullptr;
        std::size_t iNOTE = 0; // of the word's
    };
    T_LAST_D m_left; // the note of the last reason
    std::vector<std::string> m_aDecks;
    T_WORD_D* m_pLast = nullptr;      // of the last card or loss that was told
    std::size_t m_nDeletedFields = 0; // of the card to come
    struct T_REPLACED_D {
        const char* sKEYWORD;
        bool bSAME;
    };
    std::vector<T_REPLACED_D> m_aReplaced; // by the card in hand
    std::vector<T_DROPPED_D> m_aDropped;   // of the card in hand, as the next
    std::vector<T_THRU_D> m_aThrus;
    struct T_RANGE_D {
        T_WORD_D* pWORD;
        T_PLACE_D place;
        T_THRU_D thru;
    };
    std::vector<T_RANGE_D> m_aRanges; // of all cards
    CTextLosses m_textLosses;
    CCaseControl m_caseControl;
    bool m_bMarks = false;
    T_MARK_D m_inHand;                 // what the card in hand defines
    std::int32_t m_iSaidIgnored = 0;   // the line that the log calls ignored
    bool m_bPart = false;              // whether cards are those of a part
    std::vector<bool> m_aIncludesPart; // of each INCLUDE card
    const CLineMap* m_pLines = nullptr;
    const std::vector<std::string>* m_pSources = nullptr; // files of the deck before restating
};
