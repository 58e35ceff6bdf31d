// The library from outside, as a program in C calls it.

#include "nas2zdt/library/nas2zdt.h"

#include "support/Deck.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <cstring>
#include <functional>
#include <iterator>
#include <thread>

namespace {

struct CFree {
    void operator()(T_NAS2ZDT_RESULT_D* p) const { Nas2zdtFreeResult(p); }
};
using RESULT = std::unique_ptr<T_NAS2ZDT_RESULT_D, CFree>;

T_NAS2ZDT_OPTIONS_D NoOptions() {
    T_NAS2ZDT_OPTIONS_D options = {};
    options.nSize = sizeof options;
    return options;
}

RESULT ConvertFile(const char* sDeck, const char* sTarget, const T_NAS2ZDT_OPTIONS_D& rOptions = NoOptions()) {
    T_NAS2ZDT_RESULT_D* pResult = nullptr;
    const std::int32_t iCode = Nas2zdtConvertFile(sDeck, sTarget, &rOptions, &pResult);
    EXPECT_EQ(Nas2zdtGetCode(pResult), iCode);
    return RESULT(pResult);
}

RESULT ConvertText(std::string_view sDeck, const char* sName, const char* sTarget,
                   const T_NAS2ZDT_OPTIONS_D& rOptions = NoOptions()) {
    T_NAS2ZDT_RESULT_D* pResult = nullptr;
    const std::int32_t iCode = Nas2zdtConvertMemory(sDeck.data(), sDeck.size(), sName, sTarget, &rOptions, &pResult);
    EXPECT_EQ(Nas2zdtGetCode(pResult), iCode);
    return RESULT(pResult);
}

std::string Output(const RESULT& rResult) {
    std::size_t nBytes = 0;
    const char* const sOutput = Nas2zdtGetOutput(rResult.get(), &nBytes);
    return sOutput ? std::string(sOutput, nBytes) : "none";
}

/// "code file:line: text".
std::string Ending(const RESULT& rResult) {
    const T_NAS2ZDT_RESULT_D* const p = rResult.get();
    return std::to_string(Nas2zdtGetCode(p)) + " " + Nas2zdtGetFile(p) + ":" + std::to_string(Nas2zdtGetLine(p)) +
           ": " + Nas2zdtGetText(p);
}

/// A folder for temporary files of its own, in which nothing may be left.
class LibraryTest : public testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directory(PathOf(m_sTemporary));
        SetTemporary(m_sTemporary);
    }
    void TearDown() override {
        EXPECT_TRUE(ListFolder(m_sTemporary).empty());
        SetTemporary(m_sBefore);
    }

    static void SetTemporary(const std::string& sFolder) { ::setenv("TMPDIR", sFolder.c_str(), 1); }

    const std::string m_sBefore = std::filesystem::temp_directory_path().string();
    CTempFolder m_folder;
    std::string m_sTemporary = m_folder.Path("tmp");
};

const std::string GRID = "BEGIN BULK\nGRID,1\nENDDATA\n";
const std::string GRID_OUTPUT = "*VERSION\n  5.8.1\n\n*NODE\n  1, 0, 0, 0\n\n";

struct T_ENDING_D {
    const char* sNAME;
    const char* sDECK; // named "in/deck.dat"
    std::function<void(T_NAS2ZDT_OPTIONS_D&)> set;
    std::string sENDING;
};

TEST_F(LibraryTest, EndsWithCodeFileAndLine) {
    using OPTIONS = T_NAS2ZDT_OPTIONS_D;
    const char* const sInclude = "BEGIN BULK\n\nINCLUDE 'none.dat'\nENDDATA\n";
    const char* const sRange = "BEGIN BULK\nGRID,1\nPLOAD2,1,1.0,1,THRU,12\nENDDATA\n";
    const char* const sLoss = "BEGIN BULK\nGRID,1\nRBE3,7\nENDDATA\n";
    const T_ENDING_D CASES[] = {
        {"Done", "BEGIN BULK\nGRID,1\nENDDATA\n", [](OPTIONS&) {}, "0 :0: "},
        {"IncludeOfColumns", "BEGIN BULK\nINCLUDE,none.dat\nENDDATA\n", [](OPTIONS&) {},
         "5 NONE.DAT:0: NONE.DAT: included deck can't be opened: No such file or directory"},
        {"JoinedInclude", sInclude, [](OPTIONS& r) { r.bFlatten = 1; },
         "5 in/deck.dat:3: in/deck.dat:3: included deck can't be opened: in/none.dat: No such file or directory"},
        {"Range", sRange, [](OPTIONS& r) { r.nMostRanges = 10; },
         "9 in/deck.dat:3: in/deck.dat:3: limit on ranges: THRU ranges make more than 10 entries in all"},
        {"RangeWithinLimit", sRange, [](OPTIONS& r) { r.nMostRanges = 11; }, "0 :0: "},
        {"JoinedRange", sRange, [](OPTIONS& r) { r.bFlatten = 1, r.nMostRanges = 10; },
         "9 in/deck.dat:3: in/deck.dat:3: limit on ranges: THRU ranges make more than 10 entries in all"},
        {"Decks", sInclude, [](OPTIONS& r) { r.bFaithful = 1, r.nMostDecks = 1; },
         "9 in/deck.dat:3: in/deck.dat:3: limit on decks: more than 1 decks are opened; the option --limit decks=N "
         "sets "
         "it"},
        {"NoSubcase", "CEND\nBEGIN BULK\nENDDATA\n", [](OPTIONS& r) { r.bFaithful = r.bSubcase = 1, r.iSubcase = 9; },
         "10 in/deck.dat:0: in/deck.dat: there is no subcase 9"},
        {"Loss", sLoss, [](OPTIONS& r) { r.eStrict = NAS2ZDT_STRICT_RESULTS; }, "1 in/deck.dat:0: in/deck.dat: 1 loss"},
        {"LossAllowed", sLoss, [](OPTIONS& r) { r.eStrict = NAS2ZDT_STRICT_RESULTS, r.sAllowed = " note  RBE3 "; },
         "0 :0: "},
        {"AnyLoss", "BEGIN BULK\nGRID,1,,1.2345678\nENDDATA\n", [](OPTIONS& r) { r.eStrict = NAS2ZDT_STRICT_ANY; },
         "1 in/deck.dat:0: in/deck.dat: 1 loss"},
        {"Strict", sLoss, [](OPTIONS& r) { r.eStrict = 3; }, "3 :0: eStrict isn't one of its numbers"},
        {"Threads", sLoss, [](OPTIONS& r) { r.nThreads = -1; }, "3 :0: the number of threads is negative"},
        {"Tolerance", sLoss, [](OPTIONS& r) { r.bTolerance = 1, r.dTolerance = HUGE_VAL; },
         "3 :0: the tolerance is no length"},
        {"Limit", sLoss, [](OPTIONS& r) { r.nMostFrames = -1; }, "3 :0: a limit is negative"},
        {"Restated", sLoss, [](OPTIONS& r) { r.sRestated = "a"; }, "3 :0: sRestated needs bFaithful"},
    };
    for (const T_ENDING_D& rCase : CASES) {
        T_NAS2ZDT_OPTIONS_D options = NoOptions();
        rCase.set(options);
        EXPECT_EQ(Ending(ConvertText(rCase.sDECK, "in/deck.dat", nullptr, options)), rCase.sENDING) << rCase.sNAME;
    }
}

TEST_F(LibraryTest, DecksAndTargetsThatCantBe) {
    const std::string sDeck = m_folder.Path("deck.dat");
    WriteText(sDeck, GRID);
    const std::string sNone = m_folder.Path("none/deck.dat");
    EXPECT_EQ(Nas2zdtGetCode(ConvertFile(sNone.c_str(), nullptr).get()), NAS2ZDT_DECK_NOT_OPENED);
    EXPECT_EQ(Nas2zdtGetFile(ConvertFile(sNone.c_str(), nullptr).get()), sNone);
    EXPECT_EQ(Nas2zdtGetCode(ConvertFile("/proc/self/mem", nullptr).get()), NAS2ZDT_DECK_NOT_READ);
    EXPECT_EQ(Nas2zdtGetCode(ConvertFile(sDeck.c_str(), sNone.c_str()).get()), NAS2ZDT_NOT_WRITTEN);
    EXPECT_EQ(Nas2zdtGetFile(ConvertFile(sDeck.c_str(), sNone.c_str()).get()), sNone);
    EXPECT_EQ(Ending(ConvertFile(sDeck.c_str(), sDeck.c_str())),
              "11 " + sDeck + ":0: " + sDeck + ": would overwrite the deck " + sDeck);
    EXPECT_EQ(ReadText(sDeck), GRID);
}

TEST_F(LibraryTest, ArgumentsThatAreNull) {
    EXPECT_EQ(Nas2zdtConvertFile("deck.dat", nullptr, nullptr, nullptr), NAS2ZDT_WRONG_USAGE);
    EXPECT_EQ(Ending(ConvertFile(nullptr, nullptr)), "3 :0: there is no deck");
    T_NAS2ZDT_RESULT_D* pResult = nullptr;
    EXPECT_EQ(Nas2zdtConvertMemory(nullptr, 1, nullptr, nullptr, nullptr, &pResult), NAS2ZDT_WRONG_USAGE);
    Nas2zdtFreeResult(pResult);
    EXPECT_EQ(Nas2zdtConvertMemory(nullptr, 0, nullptr, nullptr, nullptr, &pResult), NAS2ZDT_DONE) << "an empty deck";
    EXPECT_EQ(Nas2zdtGetAccount(pResult), nullptr);
    EXPECT_EQ(Nas2zdtGetCheck(pResult), nullptr);
    EXPECT_EQ(Nas2zdtCountTables(pResult), 0u);
    Nas2zdtFreeResult(pResult);
    Nas2zdtFreeResult(nullptr);
    EXPECT_EQ(Nas2zdtGetCode(nullptr), NAS2ZDT_WRONG_USAGE);
    EXPECT_STREQ(Nas2zdtGetText(nullptr), "there is no result");
    EXPECT_EQ(Nas2zdtGetOutput(nullptr, nullptr), nullptr);
    EXPECT_EQ(Nas2zdtGetLogLine(nullptr, 0), nullptr);
    EXPECT_EQ(Nas2zdtFindColumn(nullptr, "nodes", 0, "id", nullptr), 0);
}

TEST_F(LibraryTest, OptionsOfOtherVersions) {
    T_NAS2ZDT_OPTIONS_D options;
    std::memset(&options, 0x55, sizeof options); // what isn't there of an older version
    options.nSize = offsetof(T_NAS2ZDT_OPTIONS_D, bFaithful);
    options.bFlatten = 0;
    EXPECT_EQ(Output(ConvertText(GRID, nullptr, nullptr, options)), GRID_OUTPUT);
    options.nSize = 1;
    EXPECT_EQ(Ending(ConvertText(GRID, nullptr, nullptr, options)), "3 :0: the options don't say how large they are");

    struct {
        T_NAS2ZDT_OPTIONS_D known;
        std::int32_t bMore;
    } newer = {};
    newer.known.nSize = sizeof newer;
    EXPECT_EQ(Output(ConvertText(GRID, nullptr, nullptr, newer.known)), GRID_OUTPUT);
    newer.bMore = 1;
    EXPECT_EQ(Nas2zdtGetCode(ConvertText(GRID, nullptr, nullptr, newer.known).get()), NAS2ZDT_WRONG_USAGE);
}

TEST_F(LibraryTest, MemoryIsAsGoodAsFiles) {
    for (const std::string sName : {"all_cards", "loaded_plate", "summed_model"}) {
        const std::string sPath = std::string(EXAMPLES) + "/" + sName + ".dat";
        const std::string sDeck = ReadText(sPath);
        const std::string sExpected = ReadText(std::string(EXAMPLES) + "/" + sName + ".zdt");
        const std::string sTarget = m_folder.Path(sName + " \u00FC.zdt");
        EXPECT_EQ(Output(ConvertFile(sPath.c_str(), nullptr)), sExpected);
        EXPECT_EQ(Output(ConvertText(sDeck, nullptr, nullptr)), sExpected);
        EXPECT_EQ(Output(ConvertFile(sPath.c_str(), sTarget.c_str())), "none");
        EXPECT_EQ(ReadText(sTarget), sExpected);
        std::filesystem::remove(PathOf(sTarget));
        EXPECT_EQ(Output(ConvertText(sDeck, nullptr, sTarget.c_str())), "none");
        EXPECT_EQ(ReadText(sTarget), sExpected);

        T_NAS2ZDT_OPTIONS_D options = NoOptions();
        options.bFaithful = options.bAccount = options.bCheck = 1;
        const RESULT file = ConvertFile(sPath.c_str(), nullptr, options);
        const RESULT memory = ConvertText(sDeck, sPath.c_str(), nullptr, options);
        EXPECT_NE(Output(file), "none");
        EXPECT_EQ(Output(file), Output(memory));
        EXPECT_STREQ(Nas2zdtGetAccount(file.get()), Nas2zdtGetAccount(memory.get()));
        EXPECT_STREQ(Nas2zdtGetCheck(file.get()), Nas2zdtGetCheck(memory.get()));
        EXPECT_STREQ(Nas2zdtGetLogLine(file.get(), 3), ("** Original File   : " + sPath).c_str());
        EXPECT_STREQ(Nas2zdtGetLogLine(memory.get(), 3), ("** Original File   : " + sPath).c_str());
    }
}

TEST_F(LibraryTest, IncludesLieBesideTheNameOfADeckInMemory) {
    WriteText(m_folder.Path("part.dat"), "GRID,2\n");
    T_NAS2ZDT_OPTIONS_D options = NoOptions();
    options.bFlatten = 1;
    const std::string sName = m_folder.Path("deck.dat");
    EXPECT_EQ(Output(ConvertText("BEGIN BULK\nINCLUDE 'part.dat'\nENDDATA\n", sName.c_str(), nullptr, options)),
              "*VERSION\n  5.8.1\n\n*NODE\n  2, 0, 0, 0\n\n");
}

/// What a host's functions were told.
struct T_HEARD_D {
    std::string sEVENTS; // a letter each, those that follow each other once
    std::string sLOG;
    std::uint64_t nREAD = 0, nBYTES = 0;
    int nASKED = 0, nCANCEL = -1; // at which question the host cancels
    bool bCANCELATLOG = false;

    void Hear(char c) {
        if (sEVENTS.empty() || sEVENTS.back() != c) sEVENTS += c;
    }
    void Listen(T_NAS2ZDT_OPTIONS_D& rOptions) {
        rOptions.pUser = this;
        rOptions.pfnLine = [](void* pUser, std::int32_t eLine, const char* sText) {
            auto& r = *static_cast<T_HEARD_D*>(pUser);
            r.Hear("lwhf"[eLine]);
            if (eLine == NAS2ZDT_LINE_LOG) r.sLOG += std::string(sText) + "\n";
        };
        rOptions.pfnProgress = [](void* pUser, const char*, std::uint64_t nRead, std::uint64_t nBytes) {
            auto& r = *static_cast<T_HEARD_D*>(pUser);
            r.Hear('p');
            r.nREAD = nRead;
            r.nBYTES = nBytes;
        };
        rOptions.pfnCancelled = [](void* pUser) {
            auto& r = *static_cast<T_HEARD_D*>(pUser);
            return std::int32_t{r.nASKED++ == r.nCANCEL || (r.bCANCELATLOG && !r.sLOG.empty())};
        };
    }
};

TEST_F(LibraryTest, TellsAsItGoesOn) {
    std::string sDeck = "BEGIN BULK\nRBE3,7\n";
    for (int i = 1; i < 20000; ++i) sDeck += "GRID," + std::to_string(i) + "\n";
    T_NAS2ZDT_OPTIONS_D options = NoOptions();
    T_HEARD_D heard;
    heard.Listen(options);
    options.bAccount = options.bCheck = 1;
    options.eStrict = NAS2ZDT_STRICT_RESULTS;
    const RESULT result = ConvertText(sDeck, nullptr, nullptr, options);
    EXPECT_EQ(heard.sEVENTS, "plwf");
    EXPECT_EQ(heard.nBYTES, sDeck.size());
    EXPECT_EQ(heard.nREAD, sDeck.size());
    std::string sLog;
    for (std::size_t i = 0; const char* sLine = Nas2zdtGetLogLine(result.get(), i); ++i)
        sLog += std::string(sLine) + "\n";
    EXPECT_EQ(heard.sLOG, sLog);
    EXPECT_NE(sLog.find("** Original File   : deck\n"), std::string::npos);

    T_HEARD_D failing;
    failing.Listen(options);
    options.bFlatten = 1;
    ConvertText("BEGIN BULK\nINCLUDE 'none.dat\n", nullptr, nullptr, options);
    EXPECT_EQ(failing.sEVENTS, "hf") << "neither the check nor the conversion can be made";
}

TEST_F(LibraryTest, CancelledAtAnyTimeItLeavesNothing) {
    std::string sDeck = "BEGIN BULK\n";
    for (int i = 1; i < 40000; ++i) sDeck += "GRID," + std::to_string(i) + "\n";
    const std::string sTarget = m_folder.Path("deck.zdt");
    WriteText(sTarget, "old");
    const std::vector<std::string> aNames = ListFolder(m_folder.Path("."));
    T_NAS2ZDT_OPTIONS_D late = NoOptions();
    T_HEARD_D heard;
    heard.bCANCELATLOG = true;
    heard.Listen(late);
    EXPECT_EQ(Nas2zdtGetCode(ConvertText(GRID, nullptr, sTarget.c_str(), late).get()), NAS2ZDT_CANCELLED);
    EXPECT_EQ(ReadText(sTarget), "old") << "written, but not under its name yet";
    for (const std::int32_t bFaithful : {0, 1}) {
        T_NAS2ZDT_OPTIONS_D options = NoOptions();
        options.bFaithful = options.bCheck = bFaithful;
        int nCancel = 0;
        for (;; ++nCancel) {
            T_HEARD_D asked;
            asked.nCANCEL = nCancel;
            asked.Listen(options);
            const RESULT result = ConvertText(sDeck, nullptr, sTarget.c_str(), options);
            if (asked.nASKED <= nCancel) break; // it wasn't asked so often
            ASSERT_EQ(Ending(result), "2 deck:0: deck: cancelled") << nCancel;
            ASSERT_EQ(ReadText(sTarget), "old") << nCancel;
            ASSERT_EQ(ListFolder(m_folder.Path(".")), aNames) << nCancel;
        }
        EXPECT_GE(nCancel, bFaithful ? 9 : 5);
        EXPECT_EQ(ReadText(sTarget).substr(0, 9), "*VERSION\n");
        WriteText(sTarget, "old");
    }
}

/// A column as text.
std::string Values(const T_NAS2ZDT_COLUMN_D& rColumn) {
    std::string sText = rColumn.sName + std::string(":");
    const auto* const pBytes = static_cast<const char*>(rColumn.pData);
    for (std::size_t iRow = 0; iRow < rColumn.nRows; ++iRow) {
        if (iRow > 0) sText += " |";
        for (std::size_t i = 0; i < rColumn.nWidth; ++i) {
            char aText[32];
            if (rColumn.eType == NAS2ZDT_INT32) {
                std::int32_t iValue = 0;
                std::memcpy(&iValue, pBytes + iRow * rColumn.nStride + i * sizeof iValue, sizeof iValue);
                std::snprintf(aText, sizeof aText, " %d", iValue);
            } else {
                double dValue = 0.0;
                std::memcpy(&dValue, pBytes + iRow * rColumn.nStride + i * sizeof dValue, sizeof dValue);
                std::snprintf(aText, sizeof aText, " %g", dValue);
            }
            sText += aText;
        }
    }
    return sText;
}

/// All tables with rows, a line each.
std::string Tables(const RESULT& rResult) {
    std::string sText;
    T_NAS2ZDT_TABLE_D table = {};
    table.nSize = sizeof table;
    for (std::size_t i = 0; Nas2zdtGetTable(rResult.get(), i, &table); ++i) {
        if (table.nRows == 0) continue;
        sText += table.sName;
        if (table.bCase) sText += " of " + std::to_string(table.iCase);
        T_NAS2ZDT_COLUMN_D column = {};
        column.nSize = sizeof column;
        for (std::size_t iColumn = 0; Nas2zdtGetColumn(rResult.get(), i, iColumn, &column); ++iColumn) {
            EXPECT_EQ(column.nRows, table.nRows) << table.sName << " " << column.sName;
            sText += (iColumn == 0 ? " " : "; ") + Values(column);
        }
        sText += "\n";
    }
    return sText;
}

TEST_F(LibraryTest, ModelAsArrays) {
    T_NAS2ZDT_OPTIONS_D options = NoOptions();
    options.bModel = 1;
    const RESULT result = ConvertText("BEGIN BULK\n"
                                      "GRID,10,,0.,0.,0.\nGRID,20,,2.,0.,0.\nGRID,30,,2.,1.,0.\nGRID,40,,0.,1.,0.\n"
                                      "GRID,50,,0.,0.,3.\nGRID,60,,0.,0.,0.\nCELAS2,12,5.,10,1,60,1,.5\n"
                                      "CQUAD4,1,5,10,20,30,40\nCTRIA3,2,5,10,20,50\nCTETRA,3,6,10,20,30,50\n"
                                      "CBAR,4,7,10,50,1.,0.,0.\nCONM2,8,30,,2.5\nRBE2,9,10,13,20,30\n"
                                      "PSHELL,5,1,.25,1\nPSOLID,6,1\nPBAR,7,1,2.,3.,4.,5.\nMAT1,1,210.,,.3\n"
                                      "SPC1,1,12,10,20\n"
                                      "FORCE,3,30,,2.,0.,0.,-1.\nMOMENT,3,40,,1.,7.,0.,0.\nPLOAD2,3,1.5,1\n"
                                      "PLOAD4,3,2,1.,2.,3.,4.,,\n,,0.,0.,-1.\n"
                                      "FORCE,4,20,,1.,1.,0.,0.\nLOAD,6,1.,2.,3,5.,4\nENDDATA\n",
                                      nullptr, nullptr, options);
    EXPECT_EQ(Tables(result), "nodes id: 10 | 20 | 30 | 40 | 50 | 60; "
                              "position: 0 0 0 | 2 0 0 | 2 1 0 | 0 1 0 | 0 0 3 | 0 0 0\n"
                              "beams id: 4; nodes: 10 50; property: 7; material: 1; reference: 0 1 0\n"
                              "triangles id: 2; nodes: 10 20 50; property: 5; material: 1; plane_stress: 0\n"
                              "quads id: 1; nodes: 10 20 30 40; property: 5; material: 1; plane_stress: 0\n"
                              "tetrahedra id: 3; nodes: 10 20 30 50; property: 6; material: 1\n"
                              "masses id: 8; node: 30; mass: 2.5 2.5 2.5; inertia: 0 0 0\n"
                              "isotropic id: 1; e: 210; nu: 0.3; alpha: 0\n"
                              "value_sections id: 7; values: 2 0 0 5 3 4\n"
                              "thicknesses id: 5; bends: 1; thickness: 0.25 0.25\n"
                              "supports node: 10 | 20; held: 1 1 0 0 0 0 | 1 1 0 0 0 0\n"
                              "rigid_links id: 9 | 9; nodes: 10 20 | 10 30; tied: 1 0 1 0 0 0 | 1 0 1 0 0 0\n"
                              "general_links id: 12; nodes: 10 60; property: 8; angle: 0\n"
                              "springs id: 8; stiffness: 5 0 0 0 0 0; damping: 0.5 0 0 0 0 0\n"
                              "load_cases id: 3 | 4\n"
                              "combinations id: 6 | 6; case: 3 | 4; factor: 2 | 5\n"
                              "forces of 3 node: 30; value: 0 0 -2\n"
                              "moments of 3 node: 40; value: 7 0 0\n"
                              "pressures of 3 element: 1 | 2; face: 0 | 0; value: 1.5 1.5 1.5 1.5 | 1 2 3 4; "
                              "direction: 0 0 0 | 0 0 -1\n"
                              "forces of 4 node: 20; value: 1 0 0\n");
    T_NAS2ZDT_COLUMN_D column = {};
    column.nSize = sizeof column;
    ASSERT_EQ(Nas2zdtFindColumn(result.get(), "forces", 4, "value", &column), 1);
    EXPECT_EQ(Values(column), "value: 1 0 0");
    EXPECT_EQ(Nas2zdtFindColumn(result.get(), "forces", 0, "value", &column), 0);
    EXPECT_EQ(Nas2zdtFindColumn(result.get(), "nodes", 0, "value", &column), 0);
    ASSERT_EQ(Nas2zdtFindColumn(result.get(), "gaps", 0, "id", &column), 1);
    EXPECT_EQ(column.nRows, 0u);
}

/// The deck has a card of each kind, so each column gets values of its own type.
TEST_F(LibraryTest, EveryTableHasRows) {
    T_NAS2ZDT_OPTIONS_D options = NoOptions();
    options.bModel = 1;
    const RESULT result = ConvertFile(EXAMPLES "/all_cards.dat", nullptr, options);
    const std::string sTables = "\n" + Tables(result);
    T_NAS2ZDT_TABLE_D table = {};
    table.nSize = sizeof table;
    std::string sWithout;
    for (std::size_t i = 0; Nas2zdtGetTable(result.get(), i, &table); ++i) {
        if (table.nRows == 0) sWithout += std::string(table.sName) + " ";
    }
    EXPECT_EQ(sWithout, "");
}

TEST_F(LibraryTest, SeveralAtOnce) {
    const std::vector<std::string> aNames = {"all_cards", "loaded_plate", "summed_model", "portal_frame"};
    std::vector<std::string> aFaults(aNames.size());
    std::vector<std::thread> aThreads;
    for (std::size_t i = 0; i < aNames.size(); ++i) {
        aThreads.emplace_back([&, i] {
            const std::string sPath = std::string(EXAMPLES) + "/" + aNames[i];
            const std::string sDeck = ReadText(sPath + ".dat"), sExpected = ReadText(sPath + ".zdt");
            T_NAS2ZDT_OPTIONS_D options = NoOptions();
            options.bAccount = options.bCheck = options.bModel = 1;
            for (int n = 0; n < 20; ++n) {
                if (Output(ConvertText(sDeck, nullptr, nullptr, options)) != sExpected) aFaults[i] = aNames[i];
            }
        });
    }
    for (std::thread& rThread : aThreads) rThread.join();
    EXPECT_EQ(aFaults, std::vector<std::string>(aNames.size()));
}

TEST_F(LibraryTest, SignalsStayTheHosts) {
    const auto before = std::signal(SIGTERM, SIG_DFL);
    EXPECT_EQ(Output(ConvertText(GRID, nullptr, nullptr)), GRID_OUTPUT);
    EXPECT_EQ(std::signal(SIGTERM, before), SIG_DFL);
}

} // namespace
