// The library with its real dialogs, as a host calls it. Needs a screen.

#include "dialogs/Person.h"
#include "driver/ConvertFile.h"
#include "platform/Library.h"
#include "platform/WindowDialogs.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <clocale>
#include <thread>

#ifdef _WIN32
#include "platform/win32/PrgsDlg.h"
constexpr const char* LIBRARY = "ConvertNastran.dll";
#else
#include "platform/gtk/PrgsDlg.h"
#include "platform/gtk/Session.h"
constexpr const char* LIBRARY = "libConvertNastran.so";
#endif

namespace {

const std::string NOTICE = "The input file must be a NASTRAN bulk data deck as a pre-processor writes it.";
const std::vector<std::string> FILTERS = {"MSC.NASTRAN Files(*.nas,*.dat,*.blk)", "All Files(*.*)"};

struct T_CALL_D {
    int iRESULT = 0;
    std::string sPATH;
};

/// Calls the library as a host does.
T_CALL_D CallLibrary() {
    using CONVERTFILE2 = std::int32_t(CONVERTNASTRAN_CALL*)(char*, std::int32_t);
    static const T_MODULE pLibrary = LoadModule(LIBRARY);
    if (!pLibrary) return {-99, "the library isn't there"};
    const auto pfnConvert = reinterpret_cast<CONVERTFILE2>(FindExport(pLibrary, "ConvertFile2"));
    std::vector<char> aPath(CONVERT_PATH_SIZE);
    const std::string sUntouched = "untouched";
    sUntouched.copy(aPath.data(), sUntouched.size());
    const int iResult = pfnConvert(aPath.data(), static_cast<std::int32_t>(aPath.size()));
    return {iResult, aPath.data()};
}

class Dialogs : public testing::Test {
  protected:
    void SetUp() override {
        if (!HasScreen()) GTEST_SKIP() << "skipped: there is no screen";
    }

    /// Lets a person choose the deck and hands back what was shown.
    T_CALL_D CallAndChoose(const std::string& sDeck) {
        const CPerson person(sDeck);
        const T_CALL_D call = CallLibrary();
        m_aShown = person.GetShown();
        return call;
    }

    void ExpectKinds(const std::vector<E_SHOWN>& aKinds) {
        std::vector<E_SHOWN> aSeen;
        for (const T_SHOWN_D& rShown : m_aShown) aSeen.push_back(rShown.eKIND);
        ASSERT_EQ(aSeen, aKinds);
        EXPECT_EQ(m_aShown[0].aTEXTS, std::vector<std::string>{NOTICE});
        EXPECT_EQ(m_aShown[0].aBUTTONS, std::vector<std::string>{"OK"});
        EXPECT_EQ(m_aShown[1].aTEXTS, FILTERS);
    }

    const CTempFolder m_folder;
    std::vector<T_SHOWN_D> m_aShown;
};

TEST_F(Dialogs, WholeRunShowsTwoHundredRows) {
    const std::string sHost = std::setlocale(LC_ALL, nullptr);
    const std::string sDeck = m_folder.Path("d\u00EAck \u65E5\u672C.dat");
    std::string sText = "BEGIN BULK\nGRID,7,,1.5\n";
    for (int i = 1; i <= 250; ++i) sText += "RBAR," + std::to_string(i) + "\n";
    WriteText(sDeck, sText + "ENDDATA\n");
    const T_CALL_D call = CallAndChoose(sDeck);
    EXPECT_EQ(call.iRESULT, CONVERT_DONE);
    EXPECT_EQ(call.sPATH, m_folder.Path("d\u00EAck \u65E5\u672C.zdt"));
    EXPECT_TRUE(ReadText(call.sPATH).starts_with("*VERSION\n  5.8.1\n\n*NODE\n  7, 1.5, 0, 0\n\n"));
    ASSERT_NO_FATAL_FAILURE(ExpectKinds({SHOWN_BOX, SHOWN_CHOOSER, SHOWN_LIST}));
    const T_SHOWN_D& rList = m_aShown[2];
    EXPECT_EQ(rList.sTITLE, "Message Window");
    EXPECT_EQ(rList.aBUTTONS, std::vector<std::string>{"Close"});
    EXPECT_FALSE(rList.bSelectable);
    EXPECT_TRUE(rList.bBothBars);
    EXPECT_TRUE(rList.bScrollsToEnd);
    ASSERT_EQ(rList.aTEXTS.size(), 200U);
    EXPECT_EQ(rList.aTEXTS[0], "");
    EXPECT_EQ(rList.aTEXTS[3], "** Original File   : " + sDeck);
    EXPECT_EQ(rList.aTEXTS[10], "RBAR isn't converted in this version. (Line:3)");
    EXPECT_EQ(rList.aTEXTS[199], "RBAR isn't converted in this version. (Line:192)");
    EXPECT_EQ(std::setlocale(LC_ALL, nullptr), sHost);
}

TEST_F(Dialogs, CancelLeavesThePathUntouched) {
    const T_CALL_D call = CallAndChoose("");
    EXPECT_EQ(call.iRESULT, CONVERT_CANCELLED);
    EXPECT_EQ(call.sPATH, "untouched");
    ExpectKinds({SHOWN_BOX, SHOWN_CHOOSER});
}

TEST_F(Dialogs, TargetThatCantBeWrittenIsTold) {
    const std::string sDeck = m_folder.Path("deck.dat");
    WriteText(sDeck, "BEGIN BULK\nGRID,1\nENDDATA\n");
    std::filesystem::create_directory(PathOf(m_folder.Path("deck.zdt")));
    const T_CALL_D call = CallAndChoose(sDeck);
    EXPECT_EQ(call.iRESULT, CONVERT_DONE);
    EXPECT_EQ(call.sPATH, m_folder.Path("deck.zdt"));
    ASSERT_NO_FATAL_FAILURE(ExpectKinds({SHOWN_BOX, SHOWN_CHOOSER, SHOWN_BOX, SHOWN_LIST}));
    EXPECT_TRUE(m_aShown[2].aTEXTS.at(0).starts_with(m_folder.Path("deck.zdt") + ": "));
}

TEST_F(Dialogs, RunThatFailsIsToldOnce) {
    const std::string sDeck = m_folder.Path("long.dat");
    WriteText(sDeck, "BEGIN BULK\n" + std::string(300, 'A') + "\nENDDATA\n");
    const T_CALL_D call = CallAndChoose(sDeck);
    EXPECT_EQ(call.iRESULT, CONVERT_FAILED);
    EXPECT_EQ(call.sPATH, "untouched");
    ASSERT_NO_FATAL_FAILURE(ExpectKinds({SHOWN_BOX, SHOWN_CHOOSER, SHOWN_BOX}));
    EXPECT_EQ(m_aShown[2].aTEXTS.at(0), sDeck + ":2: line is longer than 199 characters");
}

TEST_F(Dialogs, IncludeThatIsMissingStaysSilent) {
    const std::string sDeck = m_folder.Path("deck.dat");
    WriteText(sDeck, "BEGIN BULK\nINCLUDE 'NOWHERE.DAT'\nENDDATA\n");
    EXPECT_EQ(CallAndChoose(sDeck).iRESULT, CONVERT_FAILED);
    ExpectKinds({SHOWN_BOX, SHOWN_CHOOSER});
}

TEST_F(Dialogs, CallsOnSeveralThreads) {
    const std::string sDeck = m_folder.Path("deck.dat");
    WriteText(sDeck, "BEGIN BULK\nGRID,1\nENDDATA\n");
    T_CALL_D other;
    const CPerson person(sDeck);
    std::thread thread([&] { other = CallLibrary(); });
    const T_CALL_D call = CallLibrary();
    thread.join();
    EXPECT_EQ(call.iRESULT, CONVERT_DONE);
    EXPECT_EQ(other.iRESULT, CONVERT_DONE);
}

TEST_F(Dialogs, LongTextsAndForeignBytes) {
#ifndef _WIN32
    ASSERT_TRUE(HasDisplay());
#endif
    const CPerson person("");
    CWindowDialogs dialogs;
    dialogs.ShowNotice(std::string(10000, 'x'));
    dialogs.ShowMessages({std::string(10000, 'W'), "caf\xE9", "\u65E5\u672C", "two\nlines"});
    ASSERT_EQ(person.GetShown().size(), 2U);
    EXPECT_LT(person.GetShown()[0].aTEXTS.at(0).size(), 1300U);
    const T_SHOWN_D& rList = person.GetShown()[1];
    ASSERT_EQ(rList.aTEXTS.size(), 4U);
    EXPECT_EQ(rList.aTEXTS[0].size(), 10000U);
    EXPECT_EQ(rList.aTEXTS[1], "caf\u00E9");
    EXPECT_EQ(rList.aTEXTS[2], "\u65E5\u672C");
    EXPECT_TRUE(rList.bScrollsToEnd);
}

TEST_F(Dialogs, ProgressStops) {
#ifndef _WIN32
    ASSERT_TRUE(HasDisplay());
#endif
    CPrgsDlg dialog;
    dialog.SetTotal(2000);
    ASSERT_EQ(dialog.Update(501), 1);
    const CPerson person("");
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (dialog.Update(501) && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    EXPECT_EQ(dialog.Update(502), 0);
    ASSERT_EQ(person.GetShown().size(), 1U);
    const T_SHOWN_D& rShown = person.GetShown()[0];
    EXPECT_EQ(rShown.eKIND, SHOWN_PROGRESS);
    EXPECT_EQ(rShown.sTITLE, "Conversion Progress Window");
    EXPECT_EQ(rShown.aBUTTONS, std::vector<std::string>{"Stop"});
    EXPECT_EQ(rShown.iBAR, 250);
    std::vector<std::string> aTexts = rShown.aTEXTS;
    std::sort(aTexts.begin(), aTexts.end());
    EXPECT_EQ(aTexts, (std::vector<std::string>{"2000", "501", ":", ":", "Reading Line", "Total Line"}));
}

} // namespace
