// Nothing of decks out of chance is lost without a word: of every field that is filled, the account tells by its name,
// or anything else in it makes another target file or account, or the account tells that its card isn't in the file.
// What a field is good for the test doesn't know.

#include "cards/FieldNames.h"
#include "support/Accounted.h"
#include "support/DeckMaker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>

namespace {

constexpr std::size_t GRIDS = 16, FRAMES = 6, MATERIALS = 6; // those that the others find
constexpr std::size_t PROPERTIES = 12, SETS = 4;
constexpr std::size_t CARDS = 45;
constexpr std::size_t PART_TRIED = 8; // one field in so many: all of them would take long, and other decks tell more

/// A deck of cards that can be changed field by field and stay in their lines.
class CRandomDeck {
  public:
    explicit CRandomDeck(std::uint64_t nSeed) : m_nSeed(nSeed), m_maker(nSeed) {
        m_maker.StaySound();
        for (std::size_t i = 1; i <= GRIDS; ++i) Add({"GRID", std::to_string(i)}, "  crrrcd");
        for (std::size_t i = 1; i <= MATERIALS; ++i) Add({"MAT1", std::to_string(i)}, "  rrr");
        for (std::size_t i = 0; i < CARDS; ++i) {
            T_MADECARD_D card = m_maker.MakeCard();
            if (card.aFIELDS[1].empty()) card.aFIELDS[1] = "1"; // no card is without its id
            m_aCards.push_back(std::move(card));
        }
        // what takes frames and springs into the file, and makes a difference between sets
        const auto give = [this](std::size_t nCount, auto make) {
            for (std::size_t i = 1; i <= nCount; ++i) m_aCards.push_back({make(i, std::to_string(i)), {}});
        };
        using FIELDS = std::vector<std::string>;
        give(FRAMES, [](std::size_t i, const std::string& sID) {
            return FIELDS{"GRID", std::to_string(GRIDS + i), sID, "1.", "2.", "3."};
        });
        give(PROPERTIES, [](std::size_t i, const std::string& sID) {
            return FIELDS{"CELAS1", std::to_string(100 + i), sID, "1", "1"};
        });
        give(SETS, [](std::size_t i, const std::string& sID) {
            return FIELDS{"SPC1", sID, "4", std::to_string(GRIDS - i)};
        });
    }

    std::size_t GetCount() const { return m_aCards.size(); }
    const T_MADECARD_D& Card(std::size_t iCard) const { return m_aCards[iCard]; }
    void Set(std::size_t iCard, std::size_t iField, const std::string& sField) {
        m_aCards[iCard].aFIELDS[iField] = sField;
    }

    /// A field of a kind, of which the last ones asked for are the widest apart.
    std::string Another(char cKind, int iTry) {
        if (iTry == TRIES - 1) return "";
        if (iTry == TRIES - 2 && cKind == 'r') return "-1.E7";
        return m_maker.Field(cKind);
    }
    static constexpr int TRIES = 12;

    /// The lines of a card, in a layout that doesn't depend on what it holds.
    std::string Lines(std::size_t iCard) const {
        CDeckMaker writer(m_nSeed * 1000 + iCard);
        return writer.Card(m_aCards[iCard].aFIELDS, static_cast<E_LAYOUT>((m_nSeed + iCard) % 3));
    }

    /// The deck, without one of its cards if iWithout is one.
    std::string Text(std::size_t iWithout) const {
        std::string sText = "BEGIN BULK\n";
        for (std::size_t i = 0; i < m_aCards.size(); ++i) {
            if (i != iWithout) sText += Lines(i);
        }
        return sText + "ENDDATA\n";
    }

  private:
    void Add(std::vector<std::string> aFields, const std::string& sKinds) {
        while (aFields.size() < sKinds.size()) aFields.push_back(m_maker.Field(sKinds[aFields.size()]));
        m_aCards.push_back({std::move(aFields), sKinds});
    }

    std::uint64_t m_nSeed;
    CDeckMaker m_maker;
    std::vector<T_MADECARD_D> m_aCards;
};

/// What a deck came to.
struct T_OUTCOME_D {
    std::string sALL; // the target file and all that is told
    std::map<std::string, std::uint64_t>
        mapGONE; // of what isn't in the file as a whole, how often, by keyword and text
    CAccount account;
};

/// Whether a note is about whole cards or records.
bool IsOfWhole(const T_NOTE_D& rNote) {
    constexpr const char* TEXTS[] = {"read as pairs", "fields behind", "a 1.0 that",     "a card without",
                                     "an S without",  "a GE without",  "forces between", "moments between",
                                     "forces whose",  "moments whose"};
    return rNote.eNOTE == NOTE_UNWRITTEN || rNote.eNOTE <= NOTE_DUPLICATE ||
           std::any_of(std::begin(TEXTS), std::end(TEXTS),
                       [&](const char* sText) { return rNote.sTEXT.starts_with(sText); });
}

T_OUTCOME_D Convert(const std::string& sDeck) {
    T_ACCOUNTED_D run = RunAccounted(sDeck);
    EXPECT_EQ(run.iRESULT, 1);
    T_OUTCOME_D outcome{std::move(run.sZDT), {}, std::move(run.account)};
    for (const T_WORD_D* pWord : outcome.account.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            const std::string sText = pWord->sNAME + " " + NoteText(rNote);
            if (IsOfWhole(rNote)) outcome.mapGONE[sText] += rNote.nCOUNT;
            outcome.sALL += sText + " " + std::to_string(rNote.nCOUNT);
            for (const T_PLACE_D& rPlace : rNote.aPLACES) outcome.sALL += " @" + std::to_string(rPlace.iFIRST);
            for (const std::int32_t iID : rNote.aIDS) outcome.sALL += " " + std::to_string(iID);
            outcome.sALL += "\n";
        }
    }
    return outcome;
}

/// Whether a text has a word as such.
bool HasWord(const std::string& sText, const std::string& sWord) {
    const auto isEnd = [&](std::size_t i) { return i >= sText.size() || sText[i] == ' ' || sText[i] == ','; };
    for (std::size_t i = sText.find(sWord); i != std::string::npos; i = sText.find(sWord, i + 1)) {
        if ((i == 0 || isEnd(i - 1)) && isEnd(i + sWord.size())) return true;
    }
    return false;
}

/// Whether a note of the card in line iLine names the field.
bool IsNamed(const CAccount& rAccount, const std::string& sKeyword, int iLine, const std::string& sName) {
    const auto names = [&](const T_NOTE_D& rNote) {
        const auto isHere = [&](const T_PLACE_D& rPlace) { return rPlace.iFIRST == iLine; };
        if (std::none_of(rNote.aPLACES.begin(), rNote.aPLACES.end(), isHere)) return false;
        return HasWord(rNote.sTEXT, sName == "-" ? "fields without a name" : sName) || HasWord(rNote.sTEXT, "...") ||
               rNote.sTEXT == "other fields";
    };
    const std::vector<const T_WORD_D*> aWords = rAccount.GetWords();
    return std::any_of(aWords.begin(), aWords.end(), [&](const T_WORD_D* pWord) {
        return pWord->sNAME == sKeyword && std::any_of(pWord->aNOTES.begin(), pWord->aNOTES.end(), names);
    });
}

/// Whether it is told that something of a card isn't in the file: without the card, less of that is told.
bool IsToldAsGone(const CRandomDeck& rDeck, std::size_t iCard, const T_OUTCOME_D& rWhole) {
    const T_OUTCOME_D without = Convert(rDeck.Text(iCard));
    return std::any_of(rWhole.mapGONE.begin(), rWhole.mapGONE.end(), [&](const auto& rGone) {
        const auto& [sText, nCount] = rGone;
        if (!rDeck.Card(iCard).aFIELDS[0].starts_with(sText.substr(0, 3))) return false; // or a card that needs it
        const auto pOther = without.mapGONE.find(sText);
        return pOther == without.mapGONE.end() || pOther->second < nCount;
    });
}

/// Whether it is told that the frame of a grid has lost directions.
bool IsInFlatFrame(const std::vector<std::string>& rFields, const CAccount& rAccount) {
    if (rFields[0] != "GRID" || rFields.size() < 3) return false;
    for (const T_WORD_D* pWord : rAccount.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            if (rNote.sREASON != "frame-line") continue;
            for (const std::int32_t iID : rNote.aIDS) {
                if (std::to_string(iID) == rFields[2]) return true;
            }
        }
    }
    return false;
}

/// Whether anything else in a field makes another file or account.
bool IsSeen(CRandomDeck& rDeck, std::size_t iCard, std::size_t iField, const T_OUTCOME_D& rWhole) {
    const std::string sField = rDeck.Card(iCard).aFIELDS[iField];
    bool bSeen = false;
    for (int iTry = 0; iTry < CRandomDeck::TRIES && !bSeen; ++iTry) {
        const std::string sOther = rDeck.Another(rDeck.Card(iCard).sKINDS[iField], iTry);
        if (sOther == sField) continue;
        rDeck.Set(iCard, iField, sOther);
        bSeen = Convert(rDeck.Text(rDeck.GetCount())).sALL != rWhole.sALL;
    }
    rDeck.Set(iCard, iField, sField);
    return bSeen;
}

std::vector<std::string> NameFields(const std::vector<std::string>& aFields) {
    T_DATA_D card;
    card.aFIELDS.assign(aFields.begin() + 1, aFields.end());
    std::vector<std::string> aNames = {""};
    CFieldNames(aFields[0]).Walk(card, [&](std::size_t, const T_NAME_D& rName) { aNames.push_back(rName.Text()); });
    return aNames;
}

class RoundTripTest : public testing::TestWithParam<std::uint64_t> {};

TEST_P(RoundTripTest, EveryFieldIsInTheFileOrTold) {
    CRandomDeck deck(GetParam());
    CChance chance(GetParam());
    const T_OUTCOME_D whole = Convert(deck.Text(deck.GetCount()));
    int iLine = 2;
    for (std::size_t iCard = 0; iCard < deck.GetCount(); ++iCard) {
        const std::string sLines = deck.Lines(iCard);
        const std::vector<std::string>& rFields = deck.Card(iCard).aFIELDS;
        const std::vector<std::string> aNames = NameFields(rFields);
        if (deck.Card(iCard).sKINDS.empty()) break; // what follows is there for the others
        for (std::size_t i = 1; i < rFields.size(); ++i) {
            if (rFields[i].empty() || !chance.Once(PART_TRIED)) continue;
            EXPECT_TRUE(IsNamed(whole.account, rFields[0], iLine, aNames[i]) || IsSeen(deck, iCard, i, whole) ||
                        IsToldAsGone(deck, iCard, whole) || IsInFlatFrame(rFields, whole.account))
                << rFields[0] << " " << aNames[i] << " = " << rFields[i] << ", line " << iLine << ":\n"
                << sLines;
        }
        iLine += static_cast<int>(std::count(sLines.begin(), sLines.end(), '\n'));
    }
}

// Other seeds may make a field that means nothing where it stands, as an angle at radius 0 does.
INSTANTIATE_TEST_SUITE_P(Seeds, RoundTripTest, testing::Range(std::uint64_t(1), std::uint64_t(13)));

} // namespace
