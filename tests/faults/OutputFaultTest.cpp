// The command's outputs are whole or not there, whatever fails and whatever signal ends it.

#include "faults/Faults.h"
#include "nas2zdt/command/DeckRun.h"
#include "platform/TempPath.h"
#include "support/Deck.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

const std::string OLD = "of an earlier run";

/// A deck and three outputs of an earlier run, in a folder that the test works in.
class OutputFaultTest : public testing::Test {
  public:
    OutputFaultTest() {
        std::filesystem::current_path(m_folder.Path("."));
        std::string sDeck = "BEGIN BULK\nINCLUDE,PART.DAT\n";
        for (int i = 100000; i < 111000; ++i) sDeck += "GRID," + std::to_string(i) + ",,1.5,2.5,-1234.5\n";
        WriteText("deck.dat", sDeck + "ENDDATA\n");
        WriteText("PART.DAT", "BEGIN BULK\nGRID,200000\nENDDATA\n");
        m_options.eACCOUNT = m_options.eCHECK = WANTED_JSON;
        m_options.sVIEW = m_job.sVIEW = "deck.svg";
        m_options.sVTU = m_job.sVTU = "deck.vtu";
    }
    ~OutputFaultTest() override {
        std::cerr.rdbuf(m_pErrors);
        std::filesystem::current_path(m_before);
    }

  protected:
    static constexpr const char* OUTPUTS[] = {"deck.zdt", "deck.svg", "deck.vtu"};

    /// Runs the deck over the outputs of an earlier run. Returns its error.
    std::string Run() {
        for (const char* sOutput : OUTPUTS) WriteText(sOutput, OLD);
        T_INPUTS inputs;
        CDeckRun run(m_options, m_job, inputs, nullptr);
        run.Run();
        m_nSections = run.GetResult().aSECTIONS.size();
        return run.GetResult().sERROR;
    }

    /// The outputs, one after the other.
    static std::vector<std::string> ReadOutputs() {
        std::vector<std::string> aTexts;
        for (const char* sOutput : OUTPUTS) aTexts.push_back(ReadText(sOutput));
        return aTexts;
    }

    const std::filesystem::path m_before = std::filesystem::current_path();
    std::streambuf* const m_pErrors = std::cerr.rdbuf(nullptr);
    const CTempFolder m_folder;
    T_OPTIONS_D m_options;
    T_JOB_D m_job{"deck.dat", "deck.zdt", {}};
    std::size_t m_nSections = 0;
};

TEST_F(OutputFaultTest, EachCallOfARun) {
    ASSERT_EQ(Run(), "");
    const std::vector<std::string> aWhole = ReadOutputs();
    const std::vector<std::string> aNames = ListFolder(".");
    const std::pair<E_CALL, int> aFaults[] = {
        {CALL_OPEN, EACCES},  {CALL_FSTAT, EIO},         {CALL_READ, EIO},
        {CALL_WRITE, ENOSPC}, {CALL_WRITE, SHORT_WRITE}, {CALL_CLOSE, EIO},
    };
    int nUnread = 0;
    for (const auto& [eCall, iError] : aFaults) {
        int nOld = 0;
        for (int nTh = 1;; ++nTh) {
            const CFault fault(eCall, nTh, iError);
            const std::string sError = Run();
            if (!fault.IsMet()) break;
            const std::vector<std::string> aNow = ReadOutputs();
            bool bOld = false;
            for (std::size_t i = 0; i < aNow.size(); ++i) {
                EXPECT_TRUE(aNow[i] == OLD || aNow[i] == aWhole[i]) << eCall << " " << nTh << " " << OUTPUTS[i];
                bOld = bOld || aNow[i] == OLD;
            }
            const bool bUnread = sError.starts_with("deck.zdt: can't be read for the account: ");
            EXPECT_EQ(sError.empty(), !bOld && !bUnread) << eCall << " " << nTh << " " << sError;
            EXPECT_EQ(ListFolder("."), aNames) << eCall << " " << nTh;
            nOld += bOld ? 1 : 0;
            nUnread += bUnread ? 1 : 0;
        }
        EXPECT_EQ(nOld == 0, iError == SHORT_WRITE) << eCall << " " << iError;
    }
    EXPECT_GT(nUnread, 2); // not opened, no status, not read
}

TEST_F(OutputFaultTest, ATemporaryNameThatIsTakenIsNoFailure) {
    const CFault taken(CALL_OPEN, 3, EEXIST); // behind the deck and its include
    EXPECT_EQ(Run(), "");
    EXPECT_TRUE(taken.IsMet());
    EXPECT_TRUE(ReadText("deck.zdt").starts_with("*VERSION\n"));
}

TEST_F(OutputFaultTest, AnOutputThatIsAnIncludeIsRefusedBeforeAnythingIsWritten) {
    std::filesystem::create_hard_link("PART.DAT", "part.link");
    for (std::string* pOutput : {&m_job.sVIEW, &m_job.sVTU, &m_options.sLOG}) {
        m_job.sVIEW = "deck.svg";
        m_job.sVTU = "deck.vtu";
        *pOutput = "part.link";
        EXPECT_EQ(Run(), "part.link: would overwrite the deck PART.DAT");
        EXPECT_EQ(ReadOutputs(), std::vector<std::string>(3, OLD));
        EXPECT_EQ(ReadText("PART.DAT"), "BEGIN BULK\nGRID,200000\nENDDATA\n");
        pOutput->clear();
    }
}

/// Whether a signal ends this program; whoever runs the tests may have had it ignored.
bool Ends(int iSignal) {
    struct sigaction action {};
    return ::sigaction(iSignal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN;
}

/// Writes to a file, makes a folder with another, gets the signal and finishes the first file. Doesn't return.
[[noreturn]] void WriteUnder(int iSignal, bool bIgnored) {
    const rlimit none{};
    ::setrlimit(RLIMIT_CORE, &none);
    if (bIgnored) ::signal(iSignal, SIG_IGN);
    CatchInterruptions();
    const T_INPUTS inputs;
    CWholeFile file("deck.zdt", inputs);
    file.GetFile().Write("new");
    file.GetFile().Flush();
    CTempPath folder;
    folder.MakeFolder();
    CTempPath inner;
    CFile innerFile;
    inner.MakeFile(innerFile, FindTarget(folder.GetPath() + "/deck"), "deck");
    ::raise(iSignal);
    file.Finish();
    inner.Remove();
    folder.Remove();
    ::_exit(0);
}

TEST_F(OutputFaultTest, NoSignalLeavesAnythingBehind) {
    WriteText("deck.zdt", OLD);
    std::filesystem::create_directory("tmp");
    ::setenv("TMPDIR", "tmp", 1);
    const std::vector<std::string> aNames = ListFolder(".");
    for (const int iSignal : {SIGHUP, SIGINT, SIGQUIT, SIGUSR1, SIGUSR2, SIGPIPE, SIGALRM, SIGTERM, SIGXCPU, SIGXFSZ,
                              SIGVTALRM, SIGPROF, SIGABRT, SIGRTMIN, SIGRTMAX}) {
        if (!Ends(iSignal)) continue;
        for (const bool bIgnored : {false, true}) {
            const pid_t child = ::fork();
            if (child == 0) WriteUnder(iSignal, bIgnored);
            int iStatus = 0;
            ASSERT_EQ(::waitpid(child, &iStatus, 0), child);
            EXPECT_EQ(WIFSIGNALED(iStatus) ? WTERMSIG(iStatus) : 0, bIgnored ? 0 : iSignal) << iSignal;
            EXPECT_EQ(ReadText("deck.zdt"), bIgnored ? "new" : OLD) << iSignal;
            EXPECT_EQ(ListFolder("."), aNames) << iSignal;
            EXPECT_TRUE(ListFolder("tmp").empty()) << iSignal;
            WriteText("deck.zdt", OLD);
        }
    }
    ::unsetenv("TMPDIR");
}

} // namespace
