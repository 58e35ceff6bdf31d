// *SECTION and *THICKNESS.

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

const std::string ZERO_LINES = "    0, 0, 0, 0, 0, 0, 0, 0, 0, 0\n    0, 0, 0, 0, 0, 0, 0, 0\n";

struct T_SHAPE_D {
    const char* sTYPE;
    const char* sLINES; // of property 5 with the dimensions 16, 7, 4, 6, 2.5, 1.25
    const char* sLOGGED;
};

class BarShapeTest : public testing::TestWithParam<T_SHAPE_D> {};

TEST_P(BarShapeTest, Gives) {
    const T_RUN_D run = RunBulk("PBARL,5,1,," + std::string(GetParam().sTYPE) + ",,,,\n,16.,7.,4.,6.,2.5,1.25\n");
    EXPECT_EQ(Sections(run.sZDT, "*SECTION"), "*SECTION\n" + std::string(GetParam().sLINES) + "\n");
    const std::string sLogged = GetParam().sLOGGED;
    EXPECT_EQ(run.aLOG, sLogged.empty() ? std::vector<std::string>() : std::vector{sLogged});
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Types, BarShapeTest, testing::ValuesIn<T_SHAPE_D>({
    {"BAR", "  5, DBUSER, SECT5, CC, SB, 2, 7, 16, 0, 0, 0, 0, 0, 0\n", ""},
    {"BOX", "  5, DBUSER, SECT5, CC, B, 2, 7, 16, 6, 4, 0, 0, 0, 0\n", ""},
    {"ROD", "  5, DBUSER, SECT5, CC, SR, 2, 32, 0, 0, 0, 0, 0, 0, 0\n", ""},
    {"TUBE", "  5, DBUSER, SECT5, CC, P, 2, 32, 9, 0, 0, 0, 0, 0, 0\n", ""},
    {"I", "  5, DBUSER, SECT5, CC, H, 2, 16, 4, 6, 1.25, 7, 2.5, 0, 0\n", ""},
    {"I1", "  5, DBUSER, SECT5, CC, H, 2, 16, 4, 6, 1.25, 7, 2.5, 0, 0\n", ""},
    {"H", "  5, DBUSER, SECT5, CC, H, 2, 23, 4, 6, 3.5, 0, 0, 0, 0\n", ""},
    {"CHAN", "  5, DBUSER, SECT5, CC, C, 2, 7, 16, 4, 6, 0, 0, 0, 0\n", ""},
    {"CHAN1", "  5, DBUSER, SECT5, CC, C, 2, 6, 23, 7, 1, 0, 0, 0, 0\n", ""},
    {"CHAN2", "  5, DBUSER, SECT5, CC, C, 2, 6, 4, 7, 16, 0, 0, 0, 0\n", ""},
    {"T", "  5, DBUSER, SECT5, CC, T, 2, 7, 16, 6, 4, 0, 0, 0, 0\n", ""},
    {"T2", "  5, DBUSER, SECT5, CC, T, 2, 7, 16, 6, 4, 0, 0, 0, 0\n", ""},
    {"T1", "  5, DBUSER, SECT5, CC, T, 2, 11, 16, 6, 4, 0, 0, 0, 0\n", ""},
    {"HEXA", "", "Property 5: a section of type HEXA isn't supported."},
    {"Z", "", "Property 5: a section of type Z isn't supported."},
    {"HAT", "", "Property 5: a section of type HAT or HAT1 isn't supported."},
    {"HAT1", "", "Property 5: a section of type HAT or HAT1 isn't supported."},
    {"CROSS", "", "Property 5: a section of type CROSS isn't supported."},
    {"BOX1", "", "Property 5: a section of type BOX1 isn't supported."},
    {"L", // not known: its dimensions are taken for A, I1, I2, J and K1
     "  5, VALUE, SECT5, CC, SB, BUILT, 4, 4, 0, 0, 0, 0, 0, 0\n"
     "       16, 20, 0, 2.5, 7, 4\n"
     "    0, 0, 0, 0, 0, 0, 0, 0, 0, 0\n    0, 0, 0, 0, 0, 0, 0, 0\n", ""},
}), [](const auto& rInfo) { return std::string(rInfo.param.sTYPE); });
// clang-format on

} // namespace

TEST(SectionSection, KindsInStoreOrder) {
    // Of 1000001 buckets, 60 goes to 8419, 61 to 25226, and 1 to 5 to their 16807-fold.
    const std::string sZdt =
        ConvertBulk("PBAR,1,1,4.,5.,6.,7.,,\n,,,,,,,,\n,.5,.25,9.\n"
                    "PROD,2,1,9.,8.,7.,6.\n"
                    "PBEAM,3,1,1.,2.,3.,4.,5.,6.\n"
                    "PBEAM,4,1,4.,2.,3.,4.,5.,\n,,,,,,,,\n,YES,1.,16.,6.,7.,8.,9.,\n,,,,,,,,\n,.5,.25\n"
                    "PBEND,5,1,4.,2.,3.,4.\n"
                    "PTUBE,60,1,2.,.125\n"
                    "PBAR,61,1,-4.,5.,,,,\n,,,,,,,,\n,.5\n");
    EXPECT_EQ(Sections(sZdt, "*SECTION"), "*SECTION\n"
                                          "  60, DBUSER, SECT60, CC, P, 2, 2, 0.125, 0, 0, 0, 0, 0, 0\n"
                                          "  1, VALUE, SECT1, CC, SB, BUILT, 2, 2, 0, 0, 0, 0, 0, 0\n"
                                          "       4, 2, 1, 7, 5, 6\n" +
                                              ZERO_LINES +
                                              "  61, VALUE, SECT61, CC, SB, BUILT, -nan, -nan, 0, 0, 0, 0, 0, 0\n"
                                              "       -4, -2, -0, 0, 5, 0\n" +
                                              ZERO_LINES +
                                              "  2, VALUE, SECT2, CC, SB, BUILT, 3, 3, 0, 0, 0, 0, 0, 0\n"
                                              "       9, 0, 0, 8, 0, 0\n" +
                                              ZERO_LINES +
                                              "  3, VALUE, SECT3, CC, SB, BUILT, 1, 1, 0, 0, 0, 0, 0, 0\n"
                                              "       1, 0, 0, 5, 2, 3\n" +
                                              ZERO_LINES +
                                              "  4, TAPERED, SECT4, CC, SB,  1,  1, VALUE\n"
                                              "    2, 2, 0, 0, 0, 0, 0, 0\n"
                                              "    4, 2, 1, 5, 2, 3\n" +
                                              ZERO_LINES +
                                              "    4, 4, 0, 0, 0, 0, 0, 0\n"
                                              "    16, 8, 4, 9, 6, 7\n" +
                                              ZERO_LINES + "\n");
}

TEST(ThicknessSection, KindsInStoreOrder) {
    EXPECT_EQ(Sections(ConvertBulk("PSHELL,1,1,.5,1\nPSHELL,2,1,.25\nPSHELL,3,,8.,1\nPSHELL,4,,.125\nPSHEAR,60,1,2.\n"
                                   "PSHELL,5,1,,1\nPSHELL,6,1,-0.,1\nPCOMP,7,3.\nPBAR,8,1,3.\nPSHELL,61,1,-1.,1\n"),
                       "*THICKNESS"),
              "*THICKNESS\n"
              "   60, VALUE, NO, 2, 0\n"
              "    1, VALUE, YES, 0.5, 0.5\n"
              "   61, VALUE, YES, -1, -1\n"
              "    2, VALUE, NO, 0.25, 0\n"
              "    3, VALUE, YES, 0.008, 8\n"
              "    4, VALUE, YES, 0.125, 0.125\n"
              "\n");
}

TEST(SectionSection, FrameStandsWithoutSections) {
    const std::string sExpected = "*VERSION\n  5.8.1\n\n*VERSION\n  6.3.1\n\n\n*VERSION\n  5.8.1\n\n\n";
    EXPECT_EQ(ConvertBulk("PSOLID,1,1\n").substr(0, sExpected.size()), sExpected);
    // An accepted keyword that stores nothing leaves the table empty.
    EXPECT_EQ(ConvertBulk("PBEAML,1,1,,BOX\n"), "*VERSION\n  5.8.1\n\n");
}

TEST(SectionSection, OneKeywordForARefusedShapeAndWhatFollows) {
    EXPECT_EQ(Sections(ConvertBulk("PBARL,1,1,,Z\nPTUBE,2,1,2.\n"), "*SECTION"),
              "*SECTION\n  2, DBUSER, SECT2, CC, P, 2, 2, 0, 0, 0, 0, 0, 0, 0\n\n");
}
