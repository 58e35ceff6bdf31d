#pragma once
// What cards lose because they are cut from their lines otherwise than NASTRAN does.

#include "cards/FieldNames.h"
#include "nas2zdt/account/Losses.h"
#include "nas2zdt/restate/CardText.h"
#include "platform/TextWord.h"
#include "reader/Card.h"
#include "reader/DeckObserver.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Something that a group of lines loses.
struct T_TEXTLOSS_D {
    E_NOTE eNOTE;
    std::string sTEXT;    // names of fields with commas between them, or what else is taken for something else
    bool bBEFORE = false; // the card before the group loses it
};

/// A continuation line whose mark isn't the one of the line before.
struct T_STRAY_D {
    TEXTWORD nMARK;
    std::int32_t iKEYWORD; // of the card that it stands behind
    std::uint32_t iDECK;   // from 0
    std::int32_t iLINE;
};

/// Takes the text of a group, then what became of it.
class CTextLosses {
  public:
    void BeginDeck() {
        m_iFirst = NO_LINE;
        ++m_nDecks;
    }

    void TakeText(std::span<const T_RAWLINE_D> aLines, std::int32_t iFirst);

    /// Whether the text of the group that begins with line iFirst is in hand. Of most it isn't.
    bool HasText(std::int32_t iFirst) const { return m_iFirst == iFirst; }

    /// What a card lost whose first line is iFirst; nothing if its text wasn't taken. bDeleted tells that fields are
    /// known to be deleted, which explains all others that differ. Valid until the next call.
    const std::vector<T_TEXTLOSS_D>& FindInCard(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse, std::int32_t iFirst,
                                                bool bDeleted);

    /// The same for a group that made no card.
    const std::vector<T_TEXTLOSS_D>& FindInLoss(const T_LOSS_D& rLoss);

    /// Whether the last of these groups begins a part of the bulk data.
    bool BeginsPart() const { return m_bBeginsPart; }

    /// After the last deck: continuation lines that by their marks belong to another card, in the order of the decks.
    std::vector<T_STRAY_D> FindStrays();

  private:
    static constexpr std::int32_t NO_LINE = 0;

    bool ReadText(std::int32_t iFirst, std::int32_t iKeyword);
    void TakeMarks(std::int32_t iFirst, std::int32_t iKeyword);
    void FindColons();
    void FindFields(const T_DATA_D& rCard, const T_FIELDUSE_D& rUse);
    E_NOTE FindCause() const;
    void Lose(E_NOTE eNote, std::string sText, bool bBefore = false) {
        m_aLosses.push_back({eNote, std::move(sText), bBefore});
    }

    std::uint32_t m_nDecks = 0;
    std::int32_t m_iFirst = NO_LINE; // of the text in hand
    std::string m_sCopy;             // its lines one behind the other: the reader changes them
    std::vector<std::string_view> m_aLines;
    std::vector<bool> m_aCut;
    CCardText m_text;
    T_DATA_D m_meant; // as NASTRAN reads it
    std::map<std::int32_t, CFieldNames> m_mapNames;
    std::vector<T_TEXTLOSS_D> m_aLosses;
    bool m_bBeginsPart = false;
    std::vector<TEXTWORD> m_aOpenMarks; // of lines that another line than the next may continue
    std::vector<T_STRAY_D> m_aStrays;
};

/// Whether a BEGIN line begins a part apart: a superelement or the like. SUPER=0 is the main one.
bool BeginsPart(std::string_view sText);
