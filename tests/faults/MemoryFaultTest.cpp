// Memory that runs out anywhere between the call of a host and its result.

#include "faults/Host.h"

#include "driver/CConvertNastran.h"
#include "driver/ConvertFile.h"
#include "faults/Faults.h"
#include "messages/MsgDll.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(MemoryFaultTest, EachRequestOfACall) {
    const CTempFolder folder;
    const std::string sDeck = folder.Path("all_cards.dat");
    const std::string sTarget = folder.Path("all_cards.zdt");
    std::filesystem::copy_file(EXAMPLES "/all_cards.dat", sDeck);
    const std::string sZdt = ReadText(EXAMPLES "/all_cards.zdt");
    ASSERT_EQ(CallAsHost(&ConvertFile2, sDeck).iRESULT, CONVERT_DONE); // what a process makes once is made now

    for (const bool bOnwards : {false, true}) {
        long nFailed = 0;
        for (long nTh = 1;; ++nTh) {
            std::filesystem::remove(sTarget);
            const long nLive = LivePieces();
            T_CALL_D call;
            {
                const CInput input(sDeck);
                const CRefusal refusal(nTh, bOnwards);
                call = MakeCall(&ConvertFile2);
            }
            ASSERT_EQ(LivePieces(), nLive) << "a leak at request " << nTh;
            ASSERT_EQ(call.nFILEERRORS, 0) << nTh;
            const std::string sWritten = ReadText(sTarget);
            if (call.iRESULT == CONVERT_DONE) {
                ASSERT_EQ(sWritten, sZdt) << nTh;
                ASSERT_EQ(call.nLOGS, 1) << nTh;
                ASSERT_STREQ(call.aOUTPUT, sTarget.c_str());
                break;
            }
            ++nFailed;
            ASSERT_EQ(call.iRESULT, CONVERT_FAILED) << nTh;
            ASSERT_STREQ(call.aOUTPUT, "untouched") << nTh;
            ASSERT_EQ(call.nRUNERRORS, nTh == 1 ? 0 : 1) << nTh; // the first request is for the dialogs themselves
            ASSERT_TRUE(sWritten == "<no file>" || sZdt.starts_with(sWritten)) << nTh;
        }
        EXPECT_GT(nFailed, 200) << "a run of every card asks for memory more often than this";
    }
}

/// Which thread is refused is a matter of chance, so what comes of it may be either, but whole.
TEST(MemoryFaultTest, RequestsOfThreads) {
    std::string sDeck = "BEGIN BULK\n", sZdt = "*VERSION\n  5.8.1\n\n*NODE\n";
    for (int i = 100000; i < 140000; ++i) { // enough for several to read and to write
        sDeck += "GRID    " + std::to_string(i) + std::string(40, ' ') + "\n";
        sZdt += "  " + std::to_string(i) + ", 0, 0, 0\n";
    }
    sZdt += "\n";
    const CTempFolder folder;
    WriteText(folder.Path("deck.dat"), sDeck + "ENDDATA\n");
    CNoDialogs dialogs;
    T_CONVERT_D options;
    options.nTHREADS = 4;
    for (const bool bOnwards : {false, true}) {
        int nFailed = 0;
        bool bMet = true;
        for (long nTh = 1; bMet; nTh += 1 + nTh / 16) {
            std::filesystem::remove(folder.Path("deck.zdt"));
            const long nLive = LivePieces();
            {
                CConvertNastran run(dialogs);
                const std::string sPath = folder.Path("deck.dat");
                const CRefusal refusal(nTh, bOnwards);
                const int iResult = run.Convert(sPath, options);
                bMet = refusal.IsMet();
                nFailed += 1 - iResult;
                EXPECT_EQ(run.GetFailure().eFAILURE, iResult == 1 ? FAILURE_NONE : FAILURE_EXHAUSTED) << nTh;
                EXPECT_TRUE(bMet || iResult == 1);
            }
            EXPECT_EQ(LivePieces(), nLive) << "a leak at request " << nTh;
            const std::string sWritten = ReadText(folder.Path("deck.zdt"));
            EXPECT_TRUE(sWritten == "<no file>" || sZdt.starts_with(sWritten)) << nTh;
        }
        EXPECT_EQ(ReadText(folder.Path("deck.zdt")), sZdt);
        EXPECT_GT(nFailed, 10);
    }
}

TEST(MemoryFaultTest, LoadingTheMessageLibrary) {
    for (long nTh = 1, bLoaded = 0; bLoaded == 0; ++nTh) {
        CMsgDll::FreeMsgDll();
        const CRefusal refusal(nTh, true);
        bLoaded = CMsgDll::LoadMsgDll(); // must not throw
    }
    EXPECT_STREQ(g_pfnLoadStr("IDS_NASTRAN_Cannot_open_file"), "The file can't be opened.");
}

} // namespace
