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

/// The findings of a deck, a place a line: "no-grid CQUAD4 2 line 4: GRID 99 doesn't exist".
std::string ShowFindings(const std::string& sDeck) {
    const CTempFolder folder;
    const CFindings findings = FindIn(folder, sDeck);
    std::ostringstream shown;
    for (const T_FINDING_D& rFinding : findings.GetAll()) {
        EXPECT_EQ(rFinding.nCOUNT, rFinding.aPLACES.size());
        for (const T_PLACED_D& rPlace : rFinding.aPLACES) {
            shown << rFinding.pKIND->sCODE << ' ' << (rFinding.sKEYWORD.empty() ? "-" : rFinding.sKEYWORD) << ' '
                  << rPlace.iID << " line " << rPlace.origin.iLINE << ": " << rPlace.sTEXT << '\n';
        }
    }
    std::string sShown = shown.str();
    const std::string sFolder = folder.Path("");
    for (std::size_t i = sShown.find(sFolder); i != std::string::npos; i = sShown.find(sFolder)) {
        sShown.erase(i, sFolder.size());
    }
    return sShown;
}

std::string SortLines(const std::string& sText) {
    std::multiset<std::string> lines;
    std::istringstream text(sText);
    for (std::string sLine; std::getline(text, sLine);) lines.insert(sLine);
    std::string sSorted;
    for (const std::string& rLine : lines) sSorted += rLine + "\n";
    return sSorted;
}

struct T_BROKEN_D {
    std::string sNAME, sDECK, sEXPECTED;
};

/// "== name", lines of the deck, "->", findings; empty lines end a case. Other lines in front are comments.
std::vector<T_BROKEN_D> ReadCases() {
    std::vector<T_BROKEN_D> aCases;
    std::istringstream text(ReadText(CHECK_CASES "/broken.txt"));
    bool bExpected = false;
    for (std::string sLine; std::getline(text, sLine);) {
        if (sLine.starts_with("== ")) {
            aCases.push_back({sLine.substr(3), {}, {}});
            bExpected = false;
        } else if (sLine == "->") {
            bExpected = true;
        } else if (!aCases.empty() && !(bExpected && sLine.empty())) {
            (bExpected ? aCases.back().sEXPECTED : aCases.back().sDECK) += sLine + "\n";
        }
    }
    return aCases;
}

TEST(References, BrokenDecksAreTold) {
    std::string sAll;
    for (const T_BROKEN_D& rCase : ReadCases()) {
        EXPECT_EQ(SortLines(ShowFindings(rCase.sDECK)), SortLines(rCase.sEXPECTED)) << rCase.sNAME;
        sAll += "\n" + rCase.sEXPECTED;
    }
    for (const T_FINDINGKIND_D& rKind : GetReferenceKinds()) {
        EXPECT_NE(sAll.find("\n" + std::string(rKind.sCODE) + " "), std::string::npos) << rKind.sCODE;
    }
}

TEST(References, SoundDecksAreToldNothingOf) {
    EXPECT_EQ(ShowFindings(ReadText(CHECK_CASES "/sound.txt")), "");
}

TEST(References, AFileBehindAnotherIsReadToItsEnd) {
    const CTempFolder folder;
    WriteText(folder.Path("mesh.bdf"), "GRID,1\nENDDATA\nGRID,2\n");
    const std::string sDeck = "CEND\nBEGIN BULK\nINCLUDE '" + folder.Path("mesh.bdf") + "'\nFORCE,1,2,,1.,1.\n";
    const std::string sShown = ShowFindings(sDeck);
    EXPECT_NE(sShown.find("behind-enddata ENDDATA 0 line 3: 1 card stands behind ENDDATA\n"), std::string::npos);
    EXPECT_NE(sShown.find("no-grid FORCE 1 line 4: GRID 2 doesn't exist\n"), std::string::npos);
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
