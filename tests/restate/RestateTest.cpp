// Restating, by the cases of the files beside this one: a name, the cards of a deck and what becomes of them, what is
// told. Cards are compared by their fields; restating again must change nothing.

#include "support/Accounted.h"
#include "support/Restated.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

namespace {

struct T_RESTATECASE_D {
    std::string sNAME, sDECK, sEXPECTED, sTOLD;
};

/// A free-field card of any length in lines of eight fields.
std::string LayOut(const std::string& sCard) {
    std::string sLines;
    int nFields = 0;
    for (const char c : sCard) {
        if (c == ',' && ++nFields % 8 == 1 && nFields > 1) sLines += '\n';
        sLines += c;
    }
    return sLines + "\n";
}

/// "== name"; the lines of a deck, those that restating takes out behind "< " and those that it puts in behind "> ";
/// "told: ..." or nothing. Other lines in front are comments.
std::vector<T_RESTATECASE_D> ReadCases(const std::string& sPath) {
    std::vector<T_RESTATECASE_D> aCases;
    std::istringstream text(ReadText(sPath));
    for (std::string sLine; std::getline(text, sLine);) {
        if (sLine.starts_with("== ")) {
            aCases.push_back({sLine.substr(3), {}, {}, {}});
        } else if (aCases.empty() || sLine.empty()) {
            continue;
        } else if (sLine.starts_with("told: ")) {
            aCases.back().sTOLD = sLine.substr(6);
        } else {
            const std::string sCard = sLine.substr(sLine.starts_with("< ") || sLine.starts_with("> ") ? 2 : 0);
            if (sLine[0] != '>') aCases.back().sDECK += LayOut(sCard);
            if (sLine[0] != '<') aCases.back().sEXPECTED += sCard + "\n";
        }
    }
    return aCases;
}

/// Losses that a restated deck has though restating is said to do away with them. Keywords of which a card wasn't
/// understood are passed over.
std::string FindUnmended(const T_RESTATEDTEXT_D& rRestated) {
    const T_MENDED mended = FindMended();
    const T_ACCOUNTED_D run = RunAccounted(rRestated.sTEXT);
    std::set<std::string> passed;
    for (const T_TOLD_D& rTold : rRestated.result.aTOLD) {
        if (std::string_view(rTold.pRULE->sNAME) == "not-understood") passed.insert(rTold.sKEYWORD);
    }
    std::string sFound;
    for (const T_WORD_D* pWord : run.account.GetWords()) {
        if (passed.contains(pWord->sNAME)) continue;
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            if (!IsMended(mended, pWord->sNAME, NoteKind(rNote))) continue;
            sFound += pWord->sNAME + ":" + std::string(NoteKind(rNote)) + " " + NoteText(rNote) + "; ";
        }
    }
    return sFound;
}

class RestateCases : public testing::TestWithParam<const char*> {};

TEST_P(RestateCases, AreRestated) {
    const std::vector<T_RESTATECASE_D> aCases = ReadCases(std::string(RESTATE_CASES) + "/" + GetParam() + ".txt");
    ASSERT_FALSE(aCases.empty());
    for (const T_RESTATECASE_D& rCase : aCases) {
        SCOPED_TRACE(rCase.sNAME);
        const T_RESTATEDTEXT_D once = RestateText(rCase.sDECK);
        EXPECT_EQ(ShowCards(once.sTEXT), rCase.sEXPECTED);
        EXPECT_EQ(ShowTold(once.result.aTOLD), rCase.sTOLD);
        EXPECT_EQ(RestateText(once.sTEXT).sTEXT, once.sTEXT);
        EXPECT_EQ(FindUnmended(once), "");
    }
}

INSTANTIATE_TEST_SUITE_P(Families, RestateCases,
                         testing::Values("text", "grids", "supports", "links", "masses", "bars", "bushes", "shells",
                                         "beamproperties", "properties", "materials", "nodeloads", "elementloads",
                                         "temperatures"),
                         [](const auto& rInfo) { return std::string(rInfo.param); });

TEST(RulesPage, IsThatOfTheRules) {
    const std::string sPage = ReadText(RULES_PAGE), sTitle = "## Rules\n";
    const std::size_t iTitle = sPage.find(sTitle);
    ASSERT_NE(iTitle, std::string::npos);
    EXPECT_EQ(sPage.substr(iTitle + sTitle.size()), MakeRulesTable()) << "scripts/make_pages.sh makes the page anew";
}

TEST(RestateText, OfMoreThanABlockOfMemory) {
    std::string sDeck = "CEND\nBEGIN BULK\n";
    for (int i = 10000; i < 50000; ++i) sDeck += "GRID    " + std::to_string(i) + "           1.5     2.5     3.5\n";
    sDeck += "ENDDATA\n";
    EXPECT_TRUE(RestateText(sDeck).sTEXT == sDeck);
}

/// A card of more than 1001 lines is lost, so an RBE2 has at most 8005 dependent grids.
TEST(RestateLinks, LongListsAreSplit) {
    std::string sGrids;
    for (int i = 1; i <= 8007; ++i) sGrids += "GRID," + std::to_string(i) + "\n";
    const std::string sOnce = RestateText(sGrids + "RBE2,9,1,123,2,THRU,9999\n").sTEXT;
    std::istringstream cards(ShowCards(sOnce).substr(sGrids.size()));
    std::string sFirst, sSecond;
    std::getline(cards, sFirst);
    std::getline(cards, sSecond);
    EXPECT_TRUE(sFirst.starts_with("RBE2,9,1,123,2,3,"));
    EXPECT_TRUE(sFirst.ends_with(",8005,8006"));
    EXPECT_EQ(sSecond, "RBE2,10,1,123,8007");
    EXPECT_EQ(RestateText(sOnce).sTEXT, sOnce);
}

} // namespace
