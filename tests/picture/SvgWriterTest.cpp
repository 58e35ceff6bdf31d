#include "nas2zdt/picture/Picture.h"
#include "nas2zdt/text/Escape.h"
#include "picture/Model.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

namespace {

std::string Draw(const CDataPool& rDataPool) {
    const CTempFolder folder;
    CSvgPicture(rDataPool).Write("a title", folder.Path("model.svg"));
    EXPECT_FALSE(std::filesystem::exists(folder.Path("model.svg.part")));
    return ReadText(folder.Path("model.svg"));
}

/// How often each class occurs in the group sGroup, however it is shaded or simplified.
std::map<std::string, int> CountClasses(const std::string& sSvg, const std::string& sGroup) {
    const std::size_t iBegin = sSvg.find("<g id=\"" + sGroup + "\">");
    const std::string sNext = sGroup == "model" ? "<g id=\"marks\">" : "<path class=\"axis\"";
    const std::string sText = sSvg.substr(iBegin, sSvg.find(sNext, iBegin) - iBegin);
    const std::string sMark = "class=\"";
    std::map<std::string, int> counts;
    for (std::size_t i = sText.find(sMark); i != std::string::npos; i = sText.find(sMark, i + 1)) {
        const std::size_t iName = i + sMark.size();
        ++counts[sText.substr(iName, sText.find_first_of("0123456789L\"", iName) - iName)];
    }
    return counts;
}

/// Count and loss in a row of the legend, as "count/loss".
std::string LegendRow(const std::string& sSvg, const std::string& sName) {
    std::size_t iText = sSvg.find(">" + sName + "</text>\n", sSvg.find("<g id=\"legend\">"));
    std::string sFound;
    for (const std::string sClass : {"count", "lost"}) { // in the lines that follow
        if (iText == std::string::npos) break;
        const std::size_t iLine = sSvg.find('\n', iText) + 1;
        if (sSvg.compare(iLine, sClass.size() + 13, "<text class=\"" + sClass) != 0) break;
        iText = sSvg.find('>', iLine);
        sFound += (sFound.empty() ? "" : "/") + sSvg.substr(iText + 1, sSvg.find('<', iText) - iText - 1);
    }
    return sFound.empty() ? "no row" : sFound;
}

// Seen from (1, -1, 1), of the cubes side by side two tops, two fronts and one right side, of the wedge its top, front
// and right side, of the tetrahedron its face towards the eye.
TEST(SvgWriter, EachPartOnce) {
    const CStoredRun run(MODEL_CARDS);
    const std::string sSvg = Draw(run.GetDataPool());
    const std::map<std::string, int> model = {{"solid", 9}, {"plate", 2},   {"plstrs", 1},  {"beam", 1}, {"truss", 2},
                                              {"rigid", 2}, {"elastic", 1}, {"general", 1}, {"node", 1}};
    EXPECT_EQ(CountClasses(sSvg, "model"), model);
    // a support counts once for a node; the note is gravity's name
    const std::map<std::string, int> marks = {{"mass", 1},    {"spring", 1},    {"fixed", 1},
                                              {"support", 2}, {"force", 1},     {"pressure", 2},
                                              {"gravity", 1}, {"reference", 1}, {"note", 1}};
    EXPECT_EQ(CountClasses(sSvg, "marks"), marks);
    const std::map<std::string, std::string> rows = {{"nodes", "24"},
                                                     {"truss", "2"},
                                                     {"beam", "1"},
                                                     {"plane stress", "1"},
                                                     {"plate", "2/1"},
                                                     {"solid", "4"},
                                                     {"rigid link", "2/1"},
                                                     {"elastic link", "1"},
                                                     {"general link", "1"},
                                                     {"mass", "1"},
                                                     {"free node", "1"},
                                                     {"spring to ground", "1"},
                                                     {"force", "1/1"},
                                                     {"moment", "no row"},
                                                     {"pressure", "2"},
                                                     {"gravity", "1"},
                                                     {"support, all held", "1"},
                                                     {"support, some held", "2"}};
    for (const auto& [sName, sCounts] : rows) EXPECT_EQ(LegendRow(sSvg, sName), sCounts) << sName;
    EXPECT_NE(sSvg.find("target file: 1<"), std::string::npos);
    EXPECT_EQ(sSvg.find("Simplified"), std::string::npos);
}

TEST(SvgWriter, TitlesNameWhatIsUnderThePointer) {
    const CStoredRun run(MODEL_CARDS);
    const std::string sSvg = Draw(run.GetDataPool());
    for (const char* sTitle :
         {"solid 101, property 1, material 4", "plate 105, property 2, material 1, thickness 2.5",
          "beam 108, property 1, material 4", "beam 108, towards its reference", "truss 101, property 1, material 7",
          "rigid link 5", "elastic link 1, property 3, K1 100", "spring to ground 2, K3 50",
          "general link 111, property 6, K2 7", "mass 112, mass 1, node 22", "node 24 at 3, 0, 2",
          "node 1 at 0, 0, 0, held 123456", "node 3 at 1, 1, 0, held 1", "force on node 15: 0, 0, 10, load case 1",
          "pressure on element 102: 0, 0, 2, 0, load case 1", "gravity: 0, 0, -9.81, load case 1"}) {
        EXPECT_NE(sSvg.find("<title>" + std::string(sTitle) + "</title>"), std::string::npos) << sTitle;
    }
}

/// Of two forces, the second half as large: the first upwards, from the right and the left of whose tip lines go.
TEST(SvgWriter, ArrowsOfForces) {
    const CStoredRun run("GRID,1\nGRID,2,,1.\nFORCE,1,1,,.5,0.,0.,1.\nFORCE,1,2,,.25,1.\n");
    const std::string sSvg = Draw(run.GetDataPool());
    for (const char* sArrow : {"M90 246.9L90 201.9M93 207.9L90 201.9 87 207.9",
                               "M852.8 642.3L880 658.1M873.3 657.7L880 658.1 876.3 652.5"}) {
        EXPECT_NE(sSvg.find("<path class=\"force\" d=\"" + std::string(sArrow) + "\"/>"), std::string::npos) << sArrow;
    }
}

TEST(SvgWriter, OneLoadCaseAtATime) {
    const CStoredRun run(
        "GRID,1\nGRID,2,,1.\nSPC1,1,123,1\nFORCE,7,2,,1.,1.\nFORCE,8,1,,2.,0.,1.\nMOMENT,8,2,,3.,1.\n");
    EXPECT_EQ(FindLoadCases(run.GetDataPool()), (std::vector<std::int32_t>{7, 8}));
    const CTempFolder folder;
    CSvgPicture picture(run.GetDataPool());
    const auto drawn = [&](std::optional<std::int32_t> iCase) {
        picture.Write("", folder.Path("case.svg"), {}, iCase);
        return ReadText(folder.Path("case.svg"));
    };
    const std::string sAll = drawn({}), sSeven = drawn(7), sEight = drawn(8);
    EXPECT_EQ(LegendRow(sAll, "force") + LegendRow(sAll, "moment"), "21");
    EXPECT_EQ(LegendRow(sSeven, "force") + " " + LegendRow(sSeven, "moment"), "1 no row");
    EXPECT_NE(sSeven.find(">Load case 7 alone.<"), std::string::npos);
    EXPECT_EQ(sSeven.find("load case 8<"), std::string::npos);
    EXPECT_EQ(LegendRow(sEight, "force") + LegendRow(sEight, "moment"), "11");
    for (const std::string& sSvg : {sSeven, sEight}) EXPECT_EQ(LegendRow(sSvg, "support, some held"), "1");
    EXPECT_EQ(drawn({}), sAll); // nothing of a case is left
}

TEST(SvgWriter, ModelsWithoutExtent) {
    CDataPool empty;
    EXPECT_TRUE(CountClasses(Draw(empty), "model").empty());

    std::string sCards = MODEL_CARDS;
    for (int i = 1; i <= 24; ++i) sCards += "GRID," + std::to_string(i) + ",,7.,7.,7.\n";
    const CStoredRun point(sCards);
    const std::string sPoint = Draw(point.GetDataPool()); // nothing is apart any more: the spring is a general link
    EXPECT_EQ(LegendRow(sPoint, "general link"), "2");
    EXPECT_EQ(LegendRow(sPoint, "elastic link"), "no row");

    // 1 is of one cube, with its support; 23 of the shear panel, a rigid leg and the spring
    const CStoredRun nowhere(sCards + "GRID,1,,1.E999,7.,7.\nGRID,23,9,7.,7.,7.\nCORD2R,9,,1.E999,,,1.E999,,1.\n");
    const std::string sNowhere = Draw(nowhere.GetDataPool());
    EXPECT_NE(sNowhere.find("no numbers: 4<"), std::string::npos);
    EXPECT_EQ(sNowhere.find("nan"), std::string::npos);
    EXPECT_EQ(sNowhere.find("inf"), std::string::npos);
}

TEST(SvgWriter, LargeModelsStaySmallAndKeepLonePartsInSight) {
    constexpr int SIDE = 300;
    std::string sCards = "SPC1,1,1,1\n"; // without a set those of the grids would be lost
    const auto add = [&](const char* sCard, std::initializer_list<int> aFields) {
        sCards += sCard;
        for (const int iField : aFields) sCards += "," + std::to_string(iField);
        sCards += "\n";
    };
    for (int i = 0; i <= SIDE; ++i) {
        for (int k = 0; k <= SIDE; ++k) {
            const int iGrid = 1 + i * (SIDE + 1) + k;
            add("GRID", {iGrid, 0, i, k, 0, 0, 1});
            if (i < SIDE && k < SIDE) add("CQUAD4", {iGrid, 1, iGrid, iGrid + SIDE + 1, iGrid + SIDE + 2, iGrid + 1});
        }
    }
    sCards += "GRID,1000000,,-50.\nGRID,1000001,,-50.001\nGRID,1000002,,-50.002\nGRID,1000003,,-50.003\n"
              "CSHEAR,1000000,1,1000000,1000001,1000002,1000003\n"; // a speck beside the field
    const CStoredRun run(sCards);

    const std::string sSvg = Draw(run.GetDataPool());
    std::map<std::string, int> model = CountClasses(sSvg, "model");
    EXPECT_GT(model["plate"], 5000);
    EXPECT_LE(model["plate"], 30000);
    EXPECT_EQ(model["plstrs"], 1);
    EXPECT_LE(CountClasses(sSvg, "marks")["support"], 200);
    EXPECT_LT(sSvg.size(), 5000000u);
    EXPECT_EQ(LegendRow(sSvg, "plate"), "90000");
    EXPECT_EQ(LegendRow(sSvg, "support, some held"), "90601");
    EXPECT_NE(sSvg.find("Simplified: nodes less than"), std::string::npos);
    EXPECT_NE(sSvg.find("Of more than 200 marks"), std::string::npos);
}

TEST(SvgWriter, WritesBehindLinksButOverNoInput) {
    const CTempFolder folder;
    const CDataPool pool;
    const std::string sPath = folder.Path("model.svg");
    WriteText(sPath, "before");
    CDeckFile deck;
    std::string sCause;
    ASSERT_TRUE(deck.Open(sPath, sCause));
    std::filesystem::create_symlink(sPath, folder.Path("link.svg"));
    EXPECT_THROW(CSvgPicture(pool).Write("", folder.Path("link.svg"), T_INPUTS{{deck.GetId(), "a deck"}}),
                 CFileException);
    EXPECT_EQ(ReadText(sPath), "before");

    CSvgPicture(pool).Write("", folder.Path("link.svg"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link.svg")));
    EXPECT_TRUE(ReadText(sPath).starts_with("<?xml"));
    CSvgPicture(pool).Write("", "/dev/null");
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(XmlText, AnyBytes) {
    EXPECT_EQ(XmlText("a<b>&\"c\""), "a&lt;b&gt;&amp;&quot;c&quot;");
    EXPECT_EQ(XmlText("gr\xC3\xBC\xC3\x9F\x65 \xF0\x9F\x98\x80"), "gr\xC3\xBC\xC3\x9F\x65 \xF0\x9F\x98\x80");
    EXPECT_EQ(XmlText(std::string_view("\x00\x1B\x7F\t\xC2\x9B", 6)), "??????");
    EXPECT_EQ(XmlText("\xFF \xC0\x80 \xE2\x82"), "? ?? ??");         // no start, overlong, cut off
    EXPECT_EQ(XmlText("\xED\xA0\x80 \xEF\xBF\xBF"), "??? ???");      // half of a pair, no character
    EXPECT_EQ(XmlText("\xF4\x90\x80\x80 \xE0\x80\xAF"), "???? ???"); // too large, overlong
    const std::string sEnd(119, '<');
    std::string sEscaped;
    for (std::size_t i = 0; i < sEnd.size(); ++i) sEscaped += "&lt;";
    EXPECT_EQ(XmlText("a" + sEnd), "a" + sEscaped);
    EXPECT_EQ(XmlText("ab" + sEnd), "\xE2\x80\xA6" + sEscaped);
}

} // namespace
