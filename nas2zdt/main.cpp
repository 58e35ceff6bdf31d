// nas2zdt: converts decks from a terminal or a script.

#include "driver/ConvertNastranApp.h"
#include "messages/ZdtMsgMgr.h"
#include "nas2zdt/check/CheckOutput.h"
#include "nas2zdt/command/DeckRun.h"
#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"
#include "nas2zdt/command/Terminal.h"
#include "platform/Console.h"
#include "platform/PlainText.h"
#include "platform/TempPath.h"
#include "platform/WholeFile.h"
#include "platform/console/ConsoleDialogs.h"

#include <cstdint>
#include <cstdio>
#include <exception>
#include <iostream>
#include <new>
#include <string>
#include <vector>

namespace {

constexpr int EXIT_DONE = 0;
constexpr int EXIT_FAILED = 1;
constexpr int EXIT_USAGE = 2;
constexpr int EXIT_LOSS = 3;
constexpr int EXIT_UNSOUND = 4;

int Usage(const std::string& sWhy) {
    TellHint(sWhy + "\nTry 'nas2zdt --help'.");
    return EXIT_USAGE;
}

int Fail(const std::string& sWhy) {
    TellFailure(sWhy);
    return EXIT_FAILED;
}

int Print(const std::string& sText) {
    return WritePlain(std::cout, sText) ? EXIT_DONE : EXIT_FAILED;
}

/// All decks of a command line, with their common log and exit status.
class CBatch {
  public:
    CBatch(const T_OPTIONS_D& rOptions, const T_JOBS_D& rJobs)
        : m_rOptions(rOptions), m_rJobs(rJobs), m_inputs(rJobs.decks) {}

    int Run() {
        const bool bJson = m_rOptions.IsJson();
        if (bJson) std::cout << "{\"version\":2,\"decks\":[";
        for (std::size_t i = 0; i < m_rJobs.aJOBS.size(); ++i) {
            if (bJson && i > 0) std::cout << ',';
            RunJob(m_rJobs.aJOBS[i]);
        }
        if (bJson) std::cout << "]}\n";
        SaveLog();
        // failing to show the log doesn't fail the run, failing to show an account does
        const bool bAsked = m_rOptions.eACCOUNT != WANTED_NONE || m_rOptions.eCHECK != WANTED_NONE;
        if (!std::cout.flush() && bAsked) {
            m_bFailed = true;
            Fail("the account or check can't be written to standard output");
        }
        if (m_bFailed) return EXIT_FAILED;
        if (m_bLoss) return EXIT_LOSS;
        return m_bUnsound ? EXIT_UNSOUND : EXIT_DONE;
    }

  private:
    void RunJob(const T_JOB_D& rJob) {
        CDeckRun run(m_rOptions, rJob, m_inputs);
        run.Run();
        const T_RESULT_D& rResult = run.GetResult();
        const CAccount* pAccount = run.GetAccount();
        m_bFailed = m_bFailed || !rResult.sERROR.empty();
        for (const std::string& sLine : rResult.aLOG) m_log.AppendMessageF("%s", {PlainText(sLine)});
        const bool bCheck = m_rOptions.eCHECK != WANTED_NONE;
        const T_CHECK_D* pCheck = bCheck ? run.GetCheck() : nullptr; // else it is the page that shows it
        if (m_rOptions.IsJson()) {
            const std::string sCheck = !bCheck ? "" : pCheck ? CheckJson(*pCheck) : "null";
            std::cout << ResultJson(rResult, m_rOptions.eACCOUNT != WANTED_NONE ? pAccount : nullptr, sCheck)
                      << std::flush;
        }
        const bool bAccount = m_rOptions.eACCOUNT == WANTED_TABLE && rResult.bACCOUNT;
        if (bAccount && !m_rOptions.IsJson()) std::cout << AccountTable(rResult, *pAccount);
        if (pCheck) TellCheck(rJob.sDECK, *pCheck);
        if (rResult.bACCOUNT) TellLosses(rJob.sDECK, *pAccount);
        const bool bTold = m_rJobs.aJOBS.size() > 1 && !m_rOptions.bQUIET && !m_rOptions.IsJson();
        if (bTold && rResult.sERROR.empty()) {
            std::cout << PlainText(rJob.sDECK) << ": " << Paint(stdout, COLOUR_GREEN, "converted") << " into "
                      << PlainText(rJob.sTARGET) << '\n';
        }
        std::cout << std::flush;
    }

    /// Shows a check, and fails a run of a deck with errors.
    void TellCheck(const std::string& sDeck, const T_CHECK_D& rCheck) {
        const auto paint = [](const std::string& sText) { return Paint(stdout, COLOUR_RED, sText); };
        if (!m_rOptions.IsJson()) std::cout << CheckTable(sDeck, rCheck, paint) << std::flush;
        const std::uint64_t nErrors = rCheck.findings.GetCount(SEVERITY_ERROR);
        const std::size_t nUnexplained = CountDifferences(rCheck).nUNEXPLAINED;
        if (nUnexplained > 0) {
            TellHint(sDeck + ": " + std::to_string(nUnexplained) +
                     " totals of deck and file differ, and the account "
                     "doesn't say why: a fault of this program, which its makers would like to know of");
        }
        if (nErrors == 0) return;
        m_bUnsound = true;
        TellHint(sDeck + ": " + std::to_string(nErrors) + (nErrors == 1 ? " error" : " errors") + " of the deck");
    }

    /// Warns of losses, and fails a run that has those that --strict names.
    void TellLosses(const std::string& sDeck, const CAccount& rAccount) {
        const char* const sWhere = m_rOptions.eACCOUNT == WANTED_NONE ? "; see --account" : "";
        if (!m_rOptions.bNOWARNINGS) {
            for (const std::string& sLine : MakeWarnings(rAccount, m_rOptions.allowed, m_rOptions.bFAITHFUL)) {
                std::string sText = sDeck + ": warning: ";
                sText += sLine;
                TellHint(sText += sWhere);
            }
        }
        if (m_rOptions.eSTRICT == STRICT_NONE) return;
        const CAccount::CLASS_COUNTS aCounts = CountLosses(rAccount, m_rOptions.allowed);
        std::uint64_t nLosses = aCounts[CLASS_MODEL] + aCounts[CLASS_MASS];
        if (m_rOptions.eSTRICT == STRICT_ANY) nLosses += aCounts[CLASS_CONTROL] + aCounts[CLASS_NOTE];
        if (nLosses == 0) return;
        m_bLoss = true;
        TellHint(sDeck + ": " + std::to_string(nLosses) + (nLosses == 1 ? " loss" : " losses") + " fail --strict" +
                 sWhere);
    }

    void SaveLog() {
        if (m_rOptions.sLOG.empty()) return;
        try {
            CWholeFile file(m_rOptions.sLOG, m_inputs);
            m_log.WriteMessages(file.GetFile());
            file.Finish();
        } catch (const CFileException& rError) {
            m_bFailed = true;
            Fail(rError.GetText());
        }
    }

    const T_OPTIONS_D& m_rOptions;
    const T_JOBS_D& m_rJobs;
    T_INPUTS m_inputs; // all files read so far
    CConsoleDialogs m_dialogs;
    CZdtMsgMgr m_log{m_dialogs}; // of all decks
    bool m_bFailed = false;
    bool m_bLoss = false;
    bool m_bUnsound = false;
};

int Run(int nArgs, char** aArgs) {
    IgnoreWriteSignals();
    const CUtf8Console console;
    T_OPTIONS_D options;
    std::string sWhy;
    if (!ReadOptions(ReadArguments(nArgs, aArgs), options, sWhy)) return Usage(sWhy);
    if (options.bHELP) return Print(HelpText());
    if (options.bVERSION) return Print("nas2zdt " NAS2ZDT_VERSION "\n");
    const T_JOBS_D jobs = PlanJobs(options);
    if (!jobs.sUSAGE.empty()) return Usage(jobs.sUSAGE);
    if (!jobs.sFAILURE.empty()) return Fail(jobs.sFAILURE);
    const CConvertNastranApp app;
    CatchInterruptions();
    return CBatch(options, jobs).Run();
}

} // namespace

int main(int nArgs, char** aArgs) {
    try {
        return Run(nArgs, aArgs);
    } catch (const std::exception& rError) { // printed without making a string: memory may be exhausted
        const bool bExhausted = IsOutOfMemory(rError);
        std::fprintf(stderr, "nas2zdt: %s%s\n",
                     bExhausted ? "" : "internal error: ", bExhausted ? "not enough memory" : rError.what());
    } catch (...) {
        std::fputs("nas2zdt: internal error\n", stderr);
    }
    return EXIT_FAILED;
}
