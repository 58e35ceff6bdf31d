// What holds for every restated deck, tried on decks out of chance: restating again changes nothing, the restated deck
// means what the deck means, and so does its file, but for what was told.

#include "nas2zdt/account/Account.h"
#include "nas2zdt/check/DeckTotals.h"
#include "nas2zdt/check/FileTotals.h"
#include "support/Deck.h"
#include "support/DeckMaker.h"
#include "support/NoDialogs.h"
#include "support/Restated.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <sstream>

namespace {

using GROUPS = std::set<std::string>;

constexpr std::uint64_t PARTS = 8; // tests that run side by side

std::uint64_t CountDecks() {
    if (const char* sAsked = std::getenv("RESTATED_DECKS")) return std::strtoull(sAsked, nullptr, 10);
    return SANITIZED ? 200 : 2000;
}

/// Groups of totals that cards of a keyword add to, and those of loads on its elements. "all" for positions, which
/// everything else is made of.
GROUPS GroupsOf(std::string_view sKeyword) {
    struct T_GROUPS_D {
        const char* sBEGIN; // of the keyword; the first row that fits counts
        GROUPS groups;
    };
    static const std::vector<T_GROUPS_D> TABLE = {
        {"GR", {"all"}},
        {"CORD", {"all"}},
        {"BAROR", {"line loads"}},
        {"BEAMOR", {"line loads"}},
        {"CONM", {"masses"}},
        {"CONROD", {"lines", "line loads"}},
        {"CROD", {"lines", "line loads"}},
        {"CTUBE", {"lines", "line loads"}},
        {"CBUSH", {"links"}},
        {"CB", {"lines", "line loads", "element temperatures"}},
        {"CTRI", {"triangles", "pressures", "element temperatures"}},
        {"CQUAD", {"quads", "pressures", "element temperatures"}},
        {"CSHEAR", {"quads", "pressures", "element temperatures"}},
        {"CTETRA", {"tetrahedra", "pressures"}},
        {"CPENTA", {"wedges", "pressures"}},
        {"CHEXA", {"hexahedra", "pressures"}},
        {"CELAS", {"links"}},
        {"CGAP", {"links"}},
        {"R", {"rigid links"}},
        {"MPC", {"rigid links"}},
        {"SPCD", {"displacements", "combinations"}},
        {"SPC", {"supports"}},
        {"FORCE", {"nodal loads", "combinations"}},
        {"MOMENT", {"nodal loads", "combinations"}},
        {"PLOAD1", {"line loads", "combinations"}},
        {"PLOAD", {"pressures", "combinations"}},
        {"GRAV", {"gravity", "combinations"}},
        {"TEMPD", {"temperatures", "combinations"}},
        {"TEMPP", {"element temperatures", "combinations"}},
        {"TEMPR", {"element temperatures", "combinations"}},
        {"TEMP", {"temperatures", "combinations"}},
        {"LOAD", {"combinations"}},
        {"", {}},
    };
    for (const T_GROUPS_D& rRow : TABLE) {
        if (sKeyword.starts_with(rRow.sBEGIN)) return rRow.groups;
    }
    return {};
}

/// What rules told, as far as it changes totals.
GROUPS GroupsTold(const std::vector<T_TOLD_D>& rAll) {
    // these tell of what totals don't count
    static const std::set<std::string_view> NOTHING_NEW = {
        "support-sets", "support-cases",    "support-points",      "support-components", "equation-form",
        "force-grid",   "temperature-grid", "temperature-element", "displacement-points"};
    GROUPS groups;
    for (const T_TOLD_D& rTold : rAll) {
        if (std::string_view(rTold.pRULE->sNAME) == "support-enforced") {
            groups.insert({"displacements", "combinations"}); // a value of a support is a load of the subcase then
        }
        const bool bLoss = rTold.pRULE->eCLASS == CLASS_MODEL || rTold.pRULE->eCLASS == CLASS_MASS;
        GROUPS told = GroupsOf(rTold.sKEYWORD);
        if (NOTHING_NEW.contains(rTold.pRULE->sNAME)) { // but a set that has nothing else is gone
            if (told.contains("combinations")) groups.insert("combinations");
        } else if (bLoss) {
            groups.merge(told);
        }
    }
    return groups;
}

/// What the account of a restated deck tells, as far as it isn't in the file.
GROUPS GroupsLost(const CAccount& rAccount) {
    static const std::set<E_NOTE> WRITTEN = {NOTE_FIELDS, NOTE_PAST_READ, NOTE_MEANING, NOTE_ALTERED, NOTE_ROUNDED};
    GROUPS groups;
    for (const T_WORD_D* pWord : rAccount.GetWords()) {
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            if (pWord->sNAME == "CONM2" || !WRITTEN.contains(rNote.eNOTE)) groups.merge(GroupsOf(pWord->sNAME));
        }
    }
    return groups;
}

/// The first line in which texts differ, as it is in both; empty if there is none.
std::string FindOtherLine(const std::string& sA, const std::string& sB) {
    std::istringstream a(sA), b(sB);
    std::string sLineA, sLineB;
    while (sLineA == sLineB && (a || b)) {
        if (!std::getline(a, sLineA)) sLineA = "<end>";
        if (!std::getline(b, sLineB)) sLineB = "<end>";
    }
    return sLineA == sLineB ? "" : sLineA + "\n" + sLineB;
}

/// Makes decks in which each id has one card, as NASTRAN asks for, with frames and grids to be used.
/// Fields are of their kinds.
class CRestatable {
  public:
    explicit CRestatable(std::uint64_t nSeed) : m_maker(nSeed), m_chance(~nSeed) { m_maker.StaySound(); }

    std::string Deck() {
        m_sText = "SOL 101\nCEND\n";
        if (m_chance.Once(2)) m_sText += "SPC = " + Number(4) + "\nMPC = " + Number(4) + "\nLOAD = " + Number(4) + "\n";
        m_sText += "BEGIN BULK\n";
        for (int i = 1; i <= 5; ++i) AddFrame(i);
        for (int i = 1; i <= 16; ++i) {
            const auto frame = [&] { return m_chance.Once(2) ? "" : Number(5); };
            const auto place = [&] { return m_maker.Field('r'); };
            Add({"GRID", std::to_string(i), frame(), place(), place(), place(), frame(),
                 m_chance.Of({"", "", "3", "246", "123456"})});
        }
        for (std::size_t nCards = 20 + m_chance.Below(60); nCards > 0; --nCards) {
            T_MADECARD_D card = m_maker.MakeCard();
            MendFields(card);
            if (IsNew(card)) Add(card.aFIELDS);
        }
        return m_sText + "ENDDATA\n";
    }

  private:
    std::string Number(std::size_t nMost) { return std::to_string(1 + m_chance.Below(nMost)); }

    /// Stands on one of the frames before it.
    void AddFrame(int iFrame) {
        std::vector<std::string> aFields = {m_chance.Of({"CORD2R", "CORD2C", "CORD2S"}), std::to_string(iFrame),
                                            std::to_string(m_chance.Below(static_cast<std::size_t>(iFrame)))};
        for (const char* sField : {"1.5", "20.", "-3.", "1.5", "20.", "7.25", "4.", "35.", "-3."}) {
            aFields.push_back(sField);
        }
        aFields[3 + m_chance.Below(9)] = Number(9) + "." + Number(9);
        Add(aFields);
    }

    /// Gives an element an id that no other has. False if the id of another card was used already. A PELAS has ids of
    /// its own.
    bool IsNew(T_MADECARD_D& rCard) {
        const std::string& rKeyword = rCard.aFIELDS[0];
        if (rCard.aFIELDS.size() < 2) return false;
        if (rCard.sKINDS[1] == 'e') {
            rCard.aFIELDS[1] = std::to_string(++m_iElement);
        } else if (rKeyword == "GRID" || rKeyword.starts_with("CORD")) {
            return false;
        } else if (rKeyword == "PELAS") {
            for (const std::size_t i : {std::size_t{1}, std::size_t{5}}) {
                if (i < rCard.aFIELDS.size()) rCard.aFIELDS[i] = std::to_string(++m_iSpring);
            }
        } else if (rKeyword.starts_with('P') && !rKeyword.starts_with("PLOAD")) {
            return m_properties.insert(rCard.aFIELDS[1]).second;
        }
        return true;
    }

    /// No component is 7, a spring's isn't none, a PLOAD1 has a known scale, and a THRU stands between ascending ids.
    void MendFields(T_MADECARD_D& rCard) {
        std::vector<std::string>& rFields = rCard.aFIELDS;
        const std::string& rKinds = rCard.sKINDS;
        for (std::size_t i = 1; i < rFields.size(); ++i) {
            if (rKinds[i] == 'd' && rFields[i] == "17") rFields[i] = Number(6);
            if (rKinds[i] == 'f' && (rFields[i].empty() || rFields[i] == "0")) rFields[i] = "1";
            if (rKinds[i] == 'L' && (rFields[i].empty() || rFields[i] == "FPPR")) rFields[i] = "LE";
            if (rFields[i] != "THRU") continue;
            const bool bBetween = i > 3 && i + 1 < rFields.size() && rFields[i - 2] != "THRU" &&
                                  rKinds[i - 1] == rKinds[i] && rKinds[i + 1] == rKinds[i];
            if (bBetween) {
                const std::size_t nFirst = 1 + m_chance.Below(12);
                rFields[i - 1] = std::to_string(nFirst);
                rFields[i + 1] = std::to_string(nFirst + 1 + m_chance.Below(9));
            } else {
                rFields[i] = Number(16);
            }
        }
    }

    void Add(const std::vector<std::string>& rFields) {
        m_sText += m_maker.Card(rFields, static_cast<E_LAYOUT>(m_chance.Below(3)));
    }

    CDeckMaker m_maker;
    CChance m_chance;
    std::string m_sText;
    int m_iElement = 0;
    int m_iSpring = 1000;
    std::set<std::string> m_properties; // ids in use
};

class RestateProperty : public testing::TestWithParam<std::uint64_t> {
  protected:
    /// Each difference of a group that isn't excused fails the test.
    void Compare(const T_TOTALS_D& rA, const T_TOTALS_D& rB, const GROUPS& rExcused, const char* sWhat) {
        if (rExcused.contains("all")) return;
        for (const T_DIFFERENCE_D& rFound : FindDifferences(rA, rB)) {
            if (!rExcused.contains(rFound.sGROUP)) ADD_FAILURE() << sWhat << ": " << rFound.GetText();
        }
        GROUPS compared;
        for (const T_TOTALROW_D& rRow : ListTotals(rA)) {
            if (rRow.dVALUE != 0.0 && !rExcused.contains(rRow.sGROUP)) compared.insert(rRow.sGROUP);
        }
        for (const std::string& rGroup : compared) ++m_mapCompared[std::string(sWhat) + ", " + rGroup];
    }

    void Try(std::uint64_t nSeed) {
        SCOPED_TRACE("seed " + std::to_string(nSeed));
        const CTempFolder folder;
        const auto total = [&](const std::string& sText) {
            WriteText(folder.Path("deck.dat"), sText);
            T_CHOICE_D choice;
            choice.join.bFORGIVING = true;
            return TotalDeck(folder.Path("deck.dat"), choice);
        };
        const std::string sDeck = CRestatable(nSeed).Deck();
        const T_RESTATEDTEXT_D restated = RestateText(sDeck);
        EXPECT_EQ(FindOtherLine(restated.sTEXT, RestateText(restated.sTEXT).sTEXT), "");
        const T_TOTALS_D before = total(sDeck), after = total(restated.sTEXT);
        GROUPS excused = GroupsTold(restated.result.aTOLD);
        Compare(before, after, excused, "restated");

        CNoDialogs dialogs;
        CConvertNastran run(dialogs);
        CAccount account;
        EXPECT_EQ(run.Convert(folder.Path("deck.dat"), {.pOBSERVER = &account}), 1);
        account.EndRun(run.GetDataPool());
        excused.merge(GroupsLost(account));
        excused.insert("element temperatures"); // the file has those of bars on the cards of plates, too
        Compare(after, TotalFile(run.GetDataPool()), excused, "file");
    }

    std::map<std::string, std::uint64_t> m_mapCompared; // decks
};

TEST_P(RestateProperty, DecksKeepTheirMeaning) {
    const std::uint64_t nDecks = CountDecks() / PARTS;
    for (std::uint64_t i = 0; i < nDecks && !HasFailure(); ++i) Try(1 + GetParam() + i * PARTS);
    for (const char* sGroup :
         {"nodes", "local axes", "lines", "quads", "hexahedra", "links", "supports", "nodal loads"}) {
        EXPECT_GT(m_mapCompared[std::string("restated, ") + sGroup], nDecks / 20) << sGroup;
        EXPECT_GT(m_mapCompared[std::string("file, ") + sGroup], nDecks / 40) << sGroup;
    }
}

INSTANTIATE_TEST_SUITE_P(Parts, RestateProperty, testing::Range(std::uint64_t{0}, PARTS));

} // namespace
