// Files and folders that fail in the middle of a run.

#include "faults/Faults.h"
#include "support/Deck.h"
#include "support/NoDialogs.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const std::string OLD = "of an earlier run";

/// A deck of three blocks, whose target file takes three writes too, and a small one that it includes. The name of the
/// include isn't found as it stands. The test works in their folder.
class SystemFaultTest : public testing::Test {
  public:
    SystemFaultTest() {
        std::filesystem::current_path(m_folder.Path("."));
        m_sDeck = "BEGIN BULK\nINCLUDE,PART.DAT\n";
        m_sZdt = "*VERSION\n  5.8.1\n\n*NODE\n";
        for (int i = 100000; i < 120000; ++i) {
            m_sDeck += "GRID," + std::to_string(i) + ",,1.5,2.5,-1234.5\n";
            m_sZdt += "  " + std::to_string(i) + ", 1.5, 2.5, -1234.5\n";
        }
        m_sDeck += "ENDDATA\n";
        m_sZdt += "  200000, 0, 0, 0\n\n";
        WriteText("part.dat", "BEGIN BULK\nGRID,200000\nENDDATA\n");
        Restore();
    }
    ~SystemFaultTest() override { std::filesystem::current_path(m_before); }

  protected:
    void Restore() const {
        WriteText("deck.dat", m_sDeck);
        WriteText("deck.zdt", OLD);
    }

    /// What the host got, in a letter: "-" nothing unusual; "T" it was told that the target file failed, as a success;
    /// a failed run that wrote nothing: "D" deck not opened, "I" include not opened, "R" deck not read; "?" all else.
    char Outcome(const T_RUN_D& rRun) const {
        if (rRun.iRESULT == 1) {
            if (rRun.aSHOWN.empty()) return '?';
            if (rRun.sFILEERROR.empty()) return rRun.sZDT == m_sZdt ? '-' : '?';
            const bool bPart = rRun.sZDT == OLD || m_sZdt.starts_with(rRun.sZDT);
            return bPart && rRun.sFILEERROR.starts_with("deck.zdt: ") ? 'T' : '?';
        }
        if (rRun.sZDT != OLD || !rRun.aSHOWN.empty() || !rRun.sFILEERROR.empty()) return '?';
        switch (rRun.failure.eFAILURE) {
        case FAILURE_DECK_NOT_OPENED:
            return 'D';
        case FAILURE_INCLUDE_NOT_OPENED:
            return 'I';
        case FAILURE_DECK_NOT_READ:
            return 'R';
        default:
            return '?';
        }
    }

    const std::filesystem::path m_before = std::filesystem::current_path();
    const CTempFolder m_folder;
    std::string m_sDeck;
    std::string m_sZdt;
};

TEST_F(SystemFaultTest, EachCallOfARun) {
    const auto cut = [] { std::filesystem::resize_file("deck.dat", 100); };
    const auto remove = [] { std::filesystem::remove("deck.dat"); };
    const struct {
        const char* sNAME;
        E_CALL eCALL;
        int iERROR;
        void (*pfnBEFORE)();
        const char* sOUTCOMES; // of a fault at the first call, at the second and so on
    } aFaults[] = {
        // deck, include as it is written, as it was found, target
        {"no permission", CALL_OPEN, EACCES, nullptr, "DIIT"},
        {"too many open files", CALL_OPENDIR, EMFILE, nullptr, "I"},
        {"status unknown", CALL_FSTAT, EIO, nullptr, "DIT"},
        // four blocks of the deck, the last of them empty, two of the include
        {"bad sector", CALL_READ, EIO, nullptr, "RRRRRR"},
        {"read interrupted", CALL_READ, EINTR, nullptr, "------"},
        {"deck cut short", CALL_READ, NO_ERROR, cut, "RRR---"},
        {"deck removed while it is read", CALL_READ, NO_ERROR, remove, "------"},
        {"deck removed before it is opened", CALL_OPEN, NO_ERROR, remove, "D---"},
        {"target not cut", CALL_FTRUNCATE, EIO, nullptr, "T"},
        {"disk full", CALL_WRITE, ENOSPC, nullptr, "TTT"},
        {"write interrupted", CALL_WRITE, EINTR, nullptr, "---"},
        {"write of a part", CALL_WRITE, SHORT_WRITE, nullptr, "---"},
        // deck, include, target
        {"close that reports a lost write", CALL_CLOSE, EIO, nullptr, "--T"},
        {"close interrupted", CALL_CLOSE, EINTR, nullptr, "---"},
    };
    for (const auto& rFault : aFaults) {
        std::string sOutcomes;
        for (bool bMet = true; bMet;) {
            Restore();
            const CFault fault(rFault.eCALL, static_cast<int>(sOutcomes.size()) + 1, rFault.iERROR, rFault.pfnBEFORE);
            const char cOutcome = Outcome(RunFile("deck.dat"));
            bMet = fault.IsMet();
            if (bMet) sOutcomes += cOutcome;
        }
        EXPECT_EQ(sOutcomes, rFault.sOUTCOMES) << rFault.sNAME;
    }
}

TEST_F(SystemFaultTest, AFullDiskKeepsWhatWasWritten) {
    std::size_t nBefore = 0;
    for (int nTh = 1; nTh <= 3; ++nTh) {
        const CFault fault(CALL_WRITE, nTh, ENOSPC);
        const T_RUN_D run = RunFile("deck.dat");
        EXPECT_EQ(run.sFILEERROR, "deck.zdt: No space left on device");
        EXPECT_TRUE(m_sZdt.starts_with(run.sZDT));
        EXPECT_TRUE(nTh == 1 ? run.sZDT.empty() : run.sZDT.size() > nBefore) << nTh;
        nBefore = run.sZDT.size();
    }
}

TEST_F(SystemFaultTest, EachWriteOfAFileThatThreadsMake) {
    for (int i = 200001; i < 240000; ++i) {
        m_sDeck.insert(m_sDeck.size() - 8, "GRID," + std::to_string(i) + "\n");
        m_sZdt.insert(m_sZdt.size() - 1, "  " + std::to_string(i) + ", 0, 0, 0\n");
    }
    Restore();
    T_CONVERT_D options;
    options.nTHREADS = 4;
    CNoDialogs dialogs;
    std::size_t nBefore = 0;
    for (int nTh = 1;; ++nTh) {
        const CFault fault(CALL_WRITE, nTh, ENOSPC);
        CConvertNastran run(dialogs);
        ASSERT_EQ(run.Convert("deck.dat", options), 1);
        const std::string sWritten = ReadText("deck.zdt");
        ASSERT_TRUE(m_sZdt.starts_with(sWritten)) << nTh;
        ASSERT_TRUE(nTh == 1 ? sWritten.empty() : sWritten.size() > nBefore) << nTh;
        nBefore = sWritten.size();
        if (!fault.IsMet()) break;
        ASSERT_LT(nBefore, m_sZdt.size()) << nTh;
    }
    EXPECT_EQ(nBefore, m_sZdt.size());
}

TEST_F(SystemFaultTest, ALimitOfTheSizeOfFilesDoesNotEndTheHost) {
    constexpr std::size_t MOST = 300000; // into the second write
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limit{MOST, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    const T_RUN_D run = RunFile("deck.dat");
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_EQ(run.sFILEERROR, "deck.zdt: File too large");
    EXPECT_EQ(run.sZDT, m_sZdt.substr(0, MOST));
}

TEST_F(SystemFaultTest, APipeWithoutAReaderDoesNotEndTheHost) {
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    const auto write = [] {
        const int iReader = ::open("pipe", O_RDONLY | O_NONBLOCK);
        CFile file;
        file.Create("pipe");
        ::close(iReader);
        file.Write("text");
        file.Flush();
    };
    EXPECT_THROW(write(), CFileException);

    sigset_t pipe; // one that the host itself has waiting stays
    sigset_t before;
    ::sigemptyset(&pipe);
    ::sigaddset(&pipe, SIGPIPE);
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &pipe, &before), 0);
    EXPECT_EQ(::sigismember(&before, SIGPIPE), 0) << "the mask of before is back";
    ASSERT_EQ(::raise(SIGPIPE), 0);
    EXPECT_THROW(write(), CFileException);
    const timespec none{};
    EXPECT_EQ(::sigtimedwait(&pipe, nullptr, &none), SIGPIPE);
    ASSERT_EQ(::pthread_sigmask(SIG_SETMASK, &before, nullptr), 0);
}

TEST_F(SystemFaultTest, AFolderWithoutPermission) {
    std::filesystem::remove("deck.zdt");
    ASSERT_EQ(::chmod(".", 0555), 0);
    const uid_t user = ::geteuid();
    ASSERT_EQ(::seteuid(user == 0 ? 65534 : user), 0); // root may do everything
    const T_RUN_D run = RunFile("deck.dat");
    ASSERT_EQ(::seteuid(user), 0);
    ASSERT_EQ(::chmod(".", 0755), 0);
    EXPECT_EQ(run.iRESULT, 1);
    EXPECT_EQ(run.sFILEERROR, "deck.zdt: Permission denied");
    EXPECT_EQ(run.sZDT, "<no file>");
    EXPECT_FALSE(run.aSHOWN.empty());
}

} // namespace
