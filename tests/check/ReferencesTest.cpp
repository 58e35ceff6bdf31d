// What is told of broken decks, by the cases of the file beside this one, and that a sound deck is told nothing of.

#include "nas2zdt/check/References.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

CFindings FindIn(const CTempFolder& rFolder, const std::string& sDeck) {
    WriteText(rFolder.Path("deck.bdf"), sDeck);
    T_CHOICE_D choice;
    choice.join.bFORGIVING = true;
    CFindings findings;
    CheckReferences(CCheckDeck(rFolder.Path("deck.bdf"), choice), findings);
    return findings;
}

using LINES = std::multiset<std::string>;

/// The findings of a deck: "line 4: no-grid CQUAD4 2: GRID 99 doesn't exist".
LINES ShowFindings(const std::string& sDeck) {
    const CTempFolder folder;
    const CFindings findings = FindIn(folder, sDeck);
    LINES shown;
    for (const T_FINDING_D& rFinding : findings.GetAll()) {
        EXPECT_EQ(rFinding.nCOUNT, rFinding.aPLACES.size());
        for (const T_PLACED_D& rPlace : rFinding.aPLACES) {
            const std::string sText = "line " + std::to_string(rPlace.origin.iLINE) + ": " + rFinding.pKIND->sCODE +
                                      " " + (rFinding.sKEYWORD.empty() ? "-" : rFinding.sKEYWORD) + " " +
                                      std::to_string(rPlace.iID) + ": " + rPlace.sTEXT;
            shown.insert(Without(sText, folder.Path("")));
        }
    }
    return shown;
}

struct T_BROKEN_D {
    std::string sNAME, sDECK;
    LINES findings;
};

/// What each deck has behind it, but for cards of an id that it has itself.
constexpr const char* MODEL[] = {"GRID,1",        "GRID,2,,1.",    "GRID,3,,1.,1.",
                                 "GRID,4,,0.,1.", "PSHELL,1,1,.1", "MAT1,1,2.1E11,,.3"};

/// "== name", then lines of the deck; " -> code: text" ends one of which that is told, and begins one with more of it.
/// "code keyword id" stands there if the line doesn't begin with those. Lines in front are comments.
std::vector<T_BROKEN_D> ReadCases() {
    std::vector<T_BROKEN_D> aCases;
    std::istringstream text(ReadText(CHECK_CASES "/broken.txt"));
    std::string sCard;
    int iLine = 0;
    for (std::string sLine; std::getline(text, sLine);) {
        if (sLine.starts_with("== ")) {
            aCases.push_back({sLine.substr(3), {}, {}});
            iLine = 0;
            continue;
        }
        if (aCases.empty()) continue;
        const std::size_t iArrow = sLine.find("-> ");
        if (iArrow != 0) {
            sCard = sLine.substr(0, iArrow == std::string::npos ? iArrow : iArrow - 1);
            aCases.back().sDECK += sCard + "\n";
            ++iLine;
        }
        if (iArrow == std::string::npos) continue;
        const std::string sTold = sLine.substr(iArrow + 3);
        const std::size_t iColon = sTold.find(':'), iComma = sCard.find(',');
        const bool bOwn = sTold.find(' ') < iColon;
        const std::string sOf = " " + sCard.substr(0, iComma) + " " + std::to_string(std::atoi(&sCard[iComma + 1]));
        aCases.back().findings.insert("line " + std::to_string(iLine) + ": " + sTold.substr(0, iColon) +
                                      (bOwn ? "" : sOf) + sTold.substr(iColon));
    }
    for (T_BROKEN_D& rCase : aCases) {
        for (const std::string sModel : MODEL) {
            const std::string sOwn = sModel.substr(0, sModel.find(',', sModel.find(',') + 1));
            const bool bOwn = ("\n" + rCase.sDECK).find("\n" + sOwn + ",") != std::string::npos ||
                              ("\n" + rCase.sDECK).find("\n" + sOwn + "\n") != std::string::npos;
            if (!bOwn && rCase.sDECK.find("ENDDATA") == std::string::npos) rCase.sDECK += sModel + "\n";
        }
    }
    return aCases;
}

TEST(References, BrokenDecksAreTold) {
    std::string sAll;
    for (const T_BROKEN_D& rCase : ReadCases()) {
        EXPECT_EQ(ShowFindings(rCase.sDECK), rCase.findings) << rCase.sNAME;
        for (const std::string& sFinding : rCase.findings) sAll += sFinding;
    }
    for (const T_FINDINGKIND_D& rKind : GetReferenceKinds()) {
        EXPECT_NE(sAll.find(": " + std::string(rKind.sCODE) + " "), std::string::npos) << rKind.sCODE;
    }
}

TEST(References, SoundDecksAreToldNothingOf) {
    EXPECT_EQ(ShowFindings(ReadText(CHECK_CASES "/sound.txt")), LINES());
}

TEST(References, AFileBehindAnotherIsReadToItsEnd) {
    const CTempFolder folder;
    WriteText(folder.Path("mesh.bdf"), "GRID,1\nENDDATA\nGRID,2\n");
    const std::string sDeck = "CEND\nBEGIN BULK\nINCLUDE '" + folder.Path("mesh.bdf") + "'\nFORCE,1,2,,1.,1.\n";
    EXPECT_EQ(ShowFindings(sDeck), (LINES{"line 3: behind-enddata ENDDATA 0: 1 card stands behind ENDDATA",
                                          "line 4: no-grid FORCE 1: GRID 2 doesn't exist",
                                          "line 4: no-loads FORCE 1: no load of set 1 acts"}));
}

/// A deck with nothing right: places are counted past the first ones, in a time that grows with the deck.
TEST(References, ManyFindingsAreCounted) {
    std::string sDeck = "GRID,1\n";
    for (int i = 0; i < 5000; ++i) {
        const std::string sFrame = std::to_string(i + 1);
        sDeck += "SPC1,1,1," + std::to_string(10 * i + 2) + ",THRU," + std::to_string(10 * i + 9) + "\n";
        sDeck += "CORD2R," + sFrame + "," + std::to_string((i + 1) % 5000 + 1) + ",0.,0.,0.,0.,0.,1.\n,1.,0.,0.\n";
    }
    const CFindings findings = FindIn(CTempFolder(), sDeck);
    ASSERT_EQ(findings.GetAll().size(), 2u);
    EXPECT_STREQ(findings.GetAll()[0].pKIND->sCODE, "frame-ring");
    EXPECT_EQ(findings.GetAll()[0].nCOUNT, 1u);
    EXPECT_STREQ(findings.GetAll()[1].pKIND->sCODE, "no-grid");
    EXPECT_EQ(findings.GetAll()[1].nCOUNT, 5000u);
    EXPECT_EQ(findings.GetAll()[1].aPLACES.size(), T_FINDING_D::MOST_PLACES);
}

} // namespace
