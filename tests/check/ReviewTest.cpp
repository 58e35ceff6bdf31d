// Sums of decks and files side by side, worked out by hand.

#include "driver/CConvertNastran.h"
#include "nas2zdt/account/Account.h"
#include "nas2zdt/check/CheckOutput.h"
#include "nas2zdt/check/DeckTotals.h"
#include "nas2zdt/check/FileTotals.h"
#include "nas2zdt/check/Geometry.h"
#include "nas2zdt/check/References.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <map>
#include <sstream>

namespace {

/// A deck, and its file with the account of what that lacks.
std::vector<T_REVIEWROW_D> ReviewDeck(const std::string& sPath, const CTempFolder& rFolder) {
    CNoDialogs dialogs;
    CConvertNastran run(dialogs);
    CAccount account;
    WriteText(rFolder.Path("copy.dat"), ReadText(sPath));
    EXPECT_EQ(run.Convert(rFolder.Path("copy.dat"), {.pOBSERVER = &account}), 1);
    account.EndRun(run.GetDataPool());
    return ReviewTotals(TotalDeck(sPath, {}), TotalFile(run.GetDataPool()), &account, {});
}

/// "$ group: name = value; name = value" of comments, by "group: name".
std::map<std::string, double> ReadSums(const std::string& sDeck) {
    std::map<std::string, double> mapSums;
    std::istringstream lines(sDeck);
    for (std::string sLine; std::getline(lines, sLine);) {
        const std::size_t iColon = sLine.find(": ");
        if (!sLine.starts_with("$ ") || iColon == std::string::npos || sLine.find(" = ") == std::string::npos) continue;
        std::istringstream parts(sLine.substr(iColon + 2));
        for (std::string sPart; std::getline(parts, sPart, ';');) {
            const std::size_t iEquals = sPart.find(" = "), iName = sPart.find_first_not_of(' ');
            const std::string sKey = sLine.substr(2, iColon) + sPart.substr(iName, iEquals - iName);
            mapSums[sKey] = std::stod(sPart.substr(iEquals + 3));
        }
    }
    return mapSums;
}

TEST(Review, SumsOfTheExampleAreThoseInItsComments) {
    const CTempFolder folder;
    const std::string sPath = EXAMPLES "/summed_model.dat";
    std::map<std::string, double> mapSums = ReadSums(ReadText(sPath));
    EXPECT_GT(mapSums.size(), 70u);
    for (const T_REVIEWROW_D& rRow : ReviewDeck(sPath, folder)) {
        const std::string sKey = rRow.sGROUP + ": " + rRow.sNAME;
        const auto pSum = mapSums.find(sKey);
        const double dSum = pSum == mapSums.end() ? 0.0 : pSum->second;
        EXPECT_NEAR(rRow.dDECK, dSum, 1e-7 * std::max(1.0, std::fabs(dSum))) << sKey;
        if (rRow.bDIFFERS) {
            EXPECT_FALSE(rRow.aWHY.empty()) << sKey;
        } else {
            EXPECT_NEAR(rRow.dFILE, dSum, 1e-6 * std::max(1.0, std::fabs(dSum))) << sKey;
        }
        if (pSum != mapSums.end()) mapSums.erase(pSum);
    }
    for (const auto& [sKey, dSum] : mapSums) ADD_FAILURE() << sKey << " isn't told";
}

/// By what the cards of a row lost, and by no others.
TEST(Review, SaysWhyForcesDiffer) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"),
              "BEGIN BULK\nGRID,1\nMAT1,1,2.,,.3,,,20.\nCORD2R,7,,0.,0.,0.,0.,0.,1.\n,0.,1.,0.\n"
              "FORCE,1,1,7,1.,1.,0.,0.\nMOMENT,1,1,0,1.,1.,0.,0.\nPLOAD2,2,1.,9\nENDDATA\n");
    std::string sShown;
    for (const T_REVIEWROW_D& rRow : ReviewDeck(folder.Path("deck.dat"), folder)) {
        if (!rRow.bDIFFERS) continue;
        sShown += rRow.sNAME + ":";
        for (const std::string& sWhy : rRow.aWHY) sShown += " " + sWhy;
        sShown += "\n";
    }
    EXPECT_EQ(sShown, "force x: FORCE: dropped: CID\nforce y: FORCE: dropped: CID\n");
}

/// Cards name elements and grids in any order, twice, that don't exist, or that lack a grid.
TEST(Review, AddsUpLoadsInAnyOrder) {
    const CTempFolder folder;
    std::ostringstream deck;
    deck << "BEGIN BULK\nMAT1,1,2.,,.3\nPSHELL,1,1,1.\nPSOLID,2,1\n";
    for (int i = 0; i <= 40; ++i)
        deck << "GRID," << i + 1 << ",," << i << ".\nGRID," << i + 51 << ",," << i << ".,1.\n";
    for (int i = 0; i <= 1; ++i)
        deck << "GRID," << i + 101 << ",," << i << ".,,1.\nGRID," << i + 103 << ",," << i << ".,1.,1.\n";
    for (int i = 40; i >= 1; --i)
        deck << "CQUAD4," << i << ",1," << i << "," << i + 1 << "," << i + 51 << "," << i + 50 << "\n";
    deck << "CQUAD4,-5,3,1,2,52,51\n"; // counts for the file alone
    deck << "CQUAD4,80,1,1,2,52,999\nCTRIA3,81,1,1,2,51\nCSHEAR,82,1,1,2,52,51\nCHEXA,90,2,1,2,52,51,101,102\n,104,"
            "103\nCBAR,91,1,1,2,51\n";
    for (int i = 1; i <= 40; ++i) deck << "PLOAD2,7," << i * 7 % 41 << ".," << i * 7 % 41 << "\n"; // i on i
    for (int i = 30; i >= 1; i -= 3) deck << "PLOAD4,2," << i << ",1.\n";
    deck << "PLOAD2,2,100.,30\nPLOAD2,2,5.,80,99\nPLOAD4,2,81,1000.\nPLOAD2,2,10000.,82\nPLOAD4,2,90,7.,,,,101,104\n"
            "PLOAD4,2,91,3.\n";
    for (int i = 40; i >= 0; --i) deck << "FORCE,3," << i % 2 * 50 + i + 1 << ",0,1.,0.,0.,1.\n";
    deck << "FORCE,3,500,0,1.,0.,0.,1.\nENDDATA\n";
    WriteText(folder.Path("deck.dat"), deck.str());
    std::map<std::string, double> mapFile;
    for (const T_REVIEWROW_D& rRow : ReviewDeck(folder.Path("deck.dat"), folder)) {
        mapFile[rRow.sGROUP + ", " + rRow.sNAME] = rRow.dFILE;
    }
    EXPECT_EQ(mapFile["property 1, elements"], 44.0);
    EXPECT_EQ(mapFile["property 1, length or area"], 40.0 + 0.5 + 1.0 + 1.0);
    EXPECT_EQ(mapFile["property 3, elements"], 1.0);
    EXPECT_EQ(mapFile["material 1, elements"], 46.0);
    EXPECT_EQ(mapFile["load set 7, elements under pressure"], 40.0);
    EXPECT_NEAR(mapFile["load set 7, force z"], 820.0, 1e-9);
    EXPECT_NEAR(mapFile["load set 7, moment x"], 410.0, 1e-9);
    EXPECT_NEAR(mapFile["load set 7, moment y"], -(22140.0 - 410.0), 1e-8); // squares of 1 to 40, less a half of each
    EXPECT_EQ(mapFile["load set 2, elements under pressure"], 14.0);
    EXPECT_NEAR(mapFile["load set 2, force z"], 10.0 + 100.0 + 500.0 + 10000.0 - 7.0, 1e-9);
    EXPECT_EQ(mapFile["load set 3, forces"], 41.0);
    EXPECT_NEAR(mapFile["load set 3, force z"], 41.0, 1e-9);
    EXPECT_NEAR(mapFile["load set 3, moment x"], 20.0, 1e-9);
    EXPECT_NEAR(mapFile["load set 3, moment y"], -820.0, 1e-9);
}

/// Where nothing but ids differs.
TEST(Review, TellsIdsApart) {
    for (std::size_t nIDs = 0; nIDs <= 8; ++nIDs) {
        const std::vector<std::int32_t> aIDs = {1, 2, 3, 4, 5, 6, 7, 8};
        T_LISTSUM_D list;
        list.Add(9, aIDs.data(), nIDs);
        for (std::size_t i = 0; i < nIDs; ++i) {
            std::vector<std::int32_t> aOthers = aIDs;
            std::swap(aOthers[i], aOthers[(i + 1) % 8]);
            T_LISTSUM_D other;
            other.Add(9, aOthers.data(), nIDs);
            EXPECT_NE(list.nCHECK, other.nCHECK) << nIDs << ", " << i;
        }
    }
    T_TOTALS_D a, b;
    a.AddNode(1, {});
    b.AddNode(2, {});
    EXPECT_EQ(FindDifferences(a, b).size(), 1u);
}

/// The rows of masses that aren't zero: "total 2, Ixx about it 1".
std::string ShowMasses(const std::string& sCards) {
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), "CEND\nBEGIN BULK\n" + sCards + "ENDDATA\n");
    const T_TOTALS_D totals = TotalDeck(folder.Path("deck.dat"), {});
    std::string sShown;
    for (const T_REVIEWROW_D& rRow : ReviewTotals(totals, totals, nullptr, {})) {
        if (rRow.sGROUP != "mass") continue;
        std::array<char, 80> aText;
        std::snprintf(aText.data(), aText.size(), "%s%s %g", sShown.empty() ? "" : ", ", rRow.sNAME.c_str(),
                      rRow.dDECK);
        sShown += aText.data();
    }
    return sShown;
}

TEST(Review, WeighsElements) {
    constexpr const char* MODEL = "GRID,1,,0.,0.,0.\nGRID,2,,1.,0.,0.\nGRID,3,,1.,1.,0.\nGRID,4,,0.,1.,0.\n"
                                  "GRID,5,,.5,.5,1.\nMAT1,1,1.,,.3,10.\nMAT8,2,1.,1.,.3,1.,,,20.\n";
    constexpr const char* BAR = "CBAR,1,1,1,2,0.,0.,1.\n";
    constexpr const char* BEAM = "CBEAM,1,1,1,2,0.,0.,1.\n";
    constexpr const char* QUAD = "CQUAD4,1,1,1,2,3,4\n";
    struct T_CASE {
        const char* sNAME;
        std::string sCARDS;
        const char* sMASSES; // by density and non-structural, where there are such
    };
    for (const T_CASE& rCase : {
             T_CASE{"a tube of area pi", "CTUBE,1,1,1,2\nPTUBE,1,1,2.,1.,3.\n", "31.4159 3"},
             {"a tube that grows to 3 pi", "CTUBE,1,1,1,2\nPTUBE,1,1,2.,1.,,4.\n", "62.8319"},
             {"a solid tube", "CTUBE,1,1,1,2\nPTUBE,1,1,2.\n", "31.4159"},
             {"a rod of its own", "CONROD,1,1,2,1,.5,,,2.\n", "5 2"},
             {"a box of 2 by 2, walls .5", std::string(BAR) + "PBARL,1,1,,BOX\n,2.,2.,.5,.5,4.\n", "30 4"},
             {"a beam from area 1 to 3", std::string(BEAM) + "PBEAML,1,1,,BAR\n,1.,1.,2.,YES,1.,1.,3.,4.\n", "20 3"},
             {"a beam that is 3 in its middle",
              std::string(BEAM) + "PBEAM,1,1,1.,1.,1.\n,YES,.5,3.,1.,1.,,,8.\n,,,,,,,,\n,YES,1.,1.,1.,1.,,,0.\n",
              "20 4"},
             {"a composite beam", std::string(BEAM) + "PBCOMP,1,1,2.,1.,1.,,,5.\n", "20 5"},
             {"a bend by its chord", "CBEND,1,1,1,2,0.,1.,0.,1\nPBEND,1,1,2.,1.,1.,1.,3.\n,,,,,,,,\n,,,4.\n", "20 4"},
             {"a plate that bends alone", std::string(QUAD) + "PSHELL,1,,.5,1\n", "5"},
             {"half of a laminate", std::string(QUAD) + "PCOMP,1,,5.,,,,,SYM\n,1,.1,,,,,90.\n,2,.2\n", "12 5"},
             {"plies of global ids", std::string(QUAD) + "PCOMPG,1\n,1,1,.1\n,2,2,.2\n", "5"},
             {"corners of .1 and .3", "CQUAD4,1,1,1,2,3,4\n,,,.1,.3\nPSHELL,1,1,.5\n", "3.5"},
             {"corners of a half", "CQUAD4,1,1,1,2,3,4\n,,1,.5,.5\nPSHELL,1,1,.5\n", "3.75"},
             {"a shear panel", "CSHEAR,1,1,1,2,3,4\nPSHEAR,1,1,.5,2.\n", "5 2"},
             {"a pyramid", "CPYRAM,1,1,1,2,3,4,5\nPSOLID,1,1\n", "3.33333"},
             {"a tetrahedron of MAT9", "CTETRA,1,1,1,2,4,5\nPSOLID,1,9\nMAT9,9\n,,,,,,,,\n,,,,,,,6.\n", "1"},
             {"properties whose ids are alike in their lower bits",
              "CQUAD4,1,1,1,2,3,4\nCQUAD4,2,257,1,2,3,4\nCQUAD4,3,1,1,2,3,4\nPSHELL,1,1,.5\nPSHELL,257,1,.2\n", "12"},
             {"no material", std::string(QUAD) + "PSHELL,1,7,.5,,,,,3.\n", " 3"},
         }) {
        SCOPED_TRACE(rCase.sNAME);
        const std::string sShown = ShowMasses(MODEL + rCase.sCARDS), sWanted = rCase.sMASSES;
        const std::size_t iBlank = sWanted.find(' ');
        const std::string sMass = sWanted.substr(0, iBlank);
        std::string sBegin = sMass.empty() ? "" : "of elements by density " + sMass + ", ";
        if (iBlank != std::string::npos) sBegin += "of elements, non-structural " + sWanted.substr(iBlank + 1) + ", ";
        EXPECT_EQ(sShown.substr(0, sBegin.size()), sBegin) << sShown;
        EXPECT_TRUE(sShown.substr(sBegin.size()).starts_with("total ")) << sShown;
    }
}

TEST(Review, WeighsPoints) {
    const std::string sGrids = "GRID,1,,2.,0.,0.\nCORD2R,7,,0.,0.,0.,0.,0.,1.\n,0.,1.,0.\n"; // X is y, Y is -x
    EXPECT_EQ(ShowMasses(sGrids + "CONM2,1,1,,2.,0.,3.\n"),
              "masses at nodes 1, of those 2, total 2, centre of gravity x 2, centre of gravity y 3");
    EXPECT_EQ(
        ShowMasses(sGrids + "CONM2   1       1       7       2.\n+       1.      5.      2.      0.      0.      3.\n"),
        "masses at nodes 1, of those 2, total 2, centre of gravity x 2, Ixx about it 2, Iyy about it 1, "
        "Izz about it 3, Ixy about it -5");
    EXPECT_EQ(ShowMasses("GRID,1,,.1,.3\nGRID,2,,.7,.3\nCONM2,1,1,,.1\nCONM2,2,2,,.1\n"), // but for rounding
              "masses at nodes 2, of those 0.2, total 0.2, centre of gravity x 0.4, centre of gravity y 0.3, "
              "Iyy about it 0.018, Izz about it 0.018");
    EXPECT_EQ(ShowMasses(sGrids + "GRID,2,,0.,0.,0.\nCONM2,1,1,,1.\nCONM2,2,2,,1.\n"),
              "masses at nodes 2, of those 2, total 2, centre of gravity x 1, Iyy about it 2, Izz about it 2");
}

TEST(Review, ThePageNamesEveryKind) {
    const std::string sPage = ReadText(CHECK_PAGE);
    for (const std::span<const T_FINDINGKIND_D> aKinds : {GetReferenceKinds(), GetGeometryKinds()}) {
        for (const T_FINDINGKIND_D& rKind : aKinds) {
            const std::string sSeverity = rKind.eSEVERITY == SEVERITY_ERROR ? "error" : "warning";
            const std::size_t iCode = sPage.find("`" + std::string(rKind.sCODE) + "`");
            ASSERT_NE(iCode, std::string::npos) << rKind.sCODE;
            const std::string sRow = sPage.substr(iCode, sPage.find('\n', iCode) - iCode);
            EXPECT_NE(sRow.find("| " + sSeverity + " |"), std::string::npos) << sRow;
        }
    }
}

TEST(Review, OutputForPeopleAndPrograms) {
    static constexpr T_FINDINGKIND_D MISSING = {"missing", SEVERITY_ERROR, "grids that don't exist"};
    static constexpr T_FINDINGKIND_D POOR = {"poor", SEVERITY_WARNING, "elements past the limit"};
    T_CHECK_D check;
    check.aFILES = {"deck.bdf"};
    check.findings.Add(POOR, "", {0, {}, "2 parts"});
    check.findings.Add(MISSING, "CQUAD4", {2, {0, 13}, "GRID 99 doesn't exist"});
    check.findings.Count(MISSING, "CQUAD4", 3);
    check.aQUALITIES = {{"warp of quads", 5.0, 7.25, 12, 40, 2}};
    check.aREVIEW = {
        {"nodes", "count", 8.0, 8.0, true, false, {}},
        {"nodes", "highest x", 1.5, 1.25, false, true, {"GRID: dropped: X1", "CORD2R: reported"}},
        {"mass", "total", 3.0, std::numeric_limits<double>::quiet_NaN(), false, true, {"GRID: dropped: X1"}},
        {"supports", "nodes", 2.0, 2.0, true, true, {}}};
    EXPECT_EQ(CheckTable("deck.bdf", check, [](const std::string& s) { return "<" + s + ">"; }), R"(
Check of deck.bdf

Errors:

  <CQUAD4 2 (deck.bdf:13): GRID 99 doesn't exist>
  CQUAD4: 3 more: grids that don't exist

Warnings:

  2 parts

Shapes of elements:

                                    elements       worst     element       limit     past it
  warp of quads                           40        7.25          12           5<           2>

Totals in units of the deck:

                                             deck           file     difference
  nodes
    count                                       8              8              -
    highest x                                 1.5           1.25<          -0.25> [1] [2]

  mass
    total                                       3              -<        differs> [1]

  supports
    nodes                                       2              2<      other ids>< nothing in the account explains it: a fault of this program>

Where they come from, as the account tells it:

  [1] GRID: dropped: X1
  [2] CORD2R: reported
)");
    EXPECT_EQ(CheckJson(check),
              R"({"errors":4,"warnings":1,"findings":[)"
              R"({"code":"poor","severity":"warning","keyword":"","count":1,"places":[)"
              R"({"id":null,"file":null,"line":null,"text":"2 parts"}]},)"
              R"({"code":"missing","severity":"error","keyword":"CQUAD4","count":4,"places":[)"
              R"({"id":2,"file":"deck.bdf","line":13,"text":"GRID 99 doesn't exist"}]}],)"
              R"("shapes":[{"name":"warp of quads","elements":40,"worst":7.25,"element":12,"limit":5,"past":2}],)"
              R"("totals":[{"group":"nodes","name":"count","deck":8,"file":8,"differs":false,"why":[]},)"
              R"({"group":"nodes","name":"highest x","deck":1.5,"file":1.25,"differs":true,)"
              R"("why":["GRID: dropped: X1","CORD2R: reported"]},)"
              R"({"group":"mass","name":"total","deck":3,"file":null,"differs":true,"why":["GRID: dropped: X1"]},)"
              R"({"group":"supports","name":"nodes","deck":2,"file":2,"differs":true,"why":[]}]})");
    EXPECT_EQ(CountDifferences(check).nALL, 3u);
    EXPECT_EQ(CountDifferences(check).nUNEXPLAINED, 1u);
}

} // namespace
