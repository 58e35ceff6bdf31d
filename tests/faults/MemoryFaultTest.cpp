// Memory that runs out anywhere between the call of a host and its result.

#include "faults/Host.h"

#include "driver/ConvertFile.h"
#include "faults/Faults.h"
#include "messages/MsgDll.h"
#include "support/Deck.h"

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

TEST(MemoryFaultTest, LoadingTheMessageLibrary) {
    for (long nTh = 1, bLoaded = 0; bLoaded == 0; ++nTh) {
        CMsgDll::FreeMsgDll();
        const CRefusal refusal(nTh, true);
        bLoaded = CMsgDll::LoadMsgDll(); // must not throw
    }
    EXPECT_STREQ(g_pfnLoadStr("IDS_NASTRAN_Cannot_open_file"), "The file can't be opened.");
}

} // namespace
