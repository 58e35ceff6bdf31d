// All decks of a command line, with their common log and exit status.

#include "nas2zdt/command/Batch.h"

#include "nas2zdt/command/DeckWorker.h"
#include "nas2zdt/command/ResumeNote.h"
#include "platform/WholeFile.h"
#include "platform/Worker.h"

#include <algorithm>
#include <deque>
#include <iostream>
#include <memory>

CBatch::CBatch(const T_OPTIONS_D& rOptions, const T_JOBS_D& rJobs)
    : m_rOptions(rOptions), m_rJobs(rJobs), m_inputs(rJobs.decks), m_log(rOptions.sLOG, m_inputs),
      m_output([this](E_STREAM eStream, const std::string& sText) { Write(eStream, sText); }),
      m_files(rJobs.decks, rJobs.aJOBS.size()) {}

void CBatch::Fail(const std::string& sWhy) {
    m_bFailed = true;
    TellFailure(sWhy);
}

E_EXIT CBatch::Run() {
    const bool bObject = m_rOptions.IsJson() && !m_rOptions.IsJsonLines();
    if (bObject) std::cout << "{\"version\":2,\"decks\":[";
    if (m_rOptions.HasSeveralDecks()) {
        ConvertSeveral();
    } else {
        const T_JOB_D& rJob = m_rJobs.aJOBS.front();
        if (!PassOver(0)) EndDeck(rJob, ConvertDeck(m_rOptions, rJob, m_inputs, nullptr));
    }
    if (bObject) std::cout << "]}\n";
    try {
        m_log.Save();
    } catch (const CFileException& rError) {
        Fail(rError.GetText());
    }
    m_progress.Clear();
    if ((m_rOptions.HasSeveralDecks() || m_nPassed > 0) && !m_rOptions.bQUIET) TellCounts();
    // failing to show the log doesn't fail the run, failing to show an account does
    const bool bAsked = m_rOptions.eACCOUNT != WANTED_NONE || m_rOptions.eCHECK != WANTED_NONE;
    if (!std::cout.flush() && bAsked) Fail("the account or check can't be written to standard output");
    if (m_bFailed) return EXIT_FAILED;
    if (m_bLoss) return EXIT_LOSS;
    return m_bUnsound ? EXIT_UNSOUND : EXIT_DONE;
}

void CBatch::ConvertSeveral() {
    const std::size_t nWanted = m_rOptions.nJOBS > 0 ? m_rOptions.nJOBS : CountCores();
    const std::size_t nJobs = std::min(nWanted, m_rJobs.aJOBS.size());
    const std::size_t nThreads = m_rOptions.nTHREADS == 0 && nJobs > 1 ? 1 : m_rOptions.CountThreads();
    std::deque<CWorker> workers;
    for (std::size_t i = 0; i < nJobs; ++i) workers.emplace_back([this, nThreads] { Work(nThreads); });
    for (CWorker& rWorker : workers) rWorker.Wait();
    if (m_rOptions.sLOG.empty()) return;
    const T_TARGET_D log = FindTarget(m_rOptions.sLOG);
    if (log.eTARGET == TARGET_FILE) m_inputs.merge(m_files.Find(m_rJobs.aJOBS.size(), {{log.id, std::string()}}));
}

/// Converts decks by a process of its own until none is left. A thread that gave up would leave the others waiting for
/// its deck, so an exception, as of exhausted memory, ends the program.
void CBatch::Work(std::size_t nThreads) noexcept {
    CDeckWorker worker(m_rOptions, nThreads, m_output, m_files);
    for (std::size_t i = m_iNext++; i < m_rJobs.aJOBS.size(); i = m_iNext++) {
        if (m_rOptions.bRESUME && PassOver(i)) continue;
        const T_JOB_D& rJob = m_rJobs.aJOBS[i];
        T_OUTCOME_D outcome;
        std::string sWhy;
        if (!worker.Convert(i, rJob, outcome, sWhy)) outcome = FailDeck(i, sWhy);
        m_files.End(i);
        std::size_t nSize = outcome.sNOTE.size();
        for (const std::string& sLine : outcome.aLOG) nSize += sLine.size();
        m_output.End(
            i, [this, &rJob, outcome] { EndDeck(rJob, outcome); }, nSize);
    }
}

/// For a deck whose process ended before it had.
T_OUTCOME_D CBatch::FailDeck(std::size_t iDeck, const std::string& sWhy) {
    const T_JOB_D& rJob = m_rJobs.aJOBS[iDeck];
    T_RESULT_D result;
    result.sDECK = rJob.sDECK;
    result.sTARGET = rJob.sTARGET;
    result.sERROR = rJob.sDECK + ": " + sWhy;
    m_output.Put(iDeck, STREAM_ERRORS, FailureText(result.sERROR));
    const std::string sCheck = m_rOptions.eCHECK != WANTED_NONE ? "null" : "";
    if (m_rOptions.IsJson()) m_output.Put(iDeck, STREAM_OUTPUT, ShowJson(m_rOptions, result, nullptr, sCheck));
    T_OUTCOME_D outcome;
    outcome.bFAILED = true;
    return outcome;
}

/// Whether an earlier run has done the deck.
bool CBatch::PassOver(std::size_t iDeck) {
    const T_JOB_D& rJob = m_rJobs.aJOBS[iDeck];
    T_INPUTS inputs;
    if (!m_rOptions.bRESUME || !rJob.sREFUSED.empty() || !IsDone(m_rOptions, rJob, inputs)) return false;
    m_files.Add(iDeck, inputs);
    m_files.End(iDeck);
    m_output.End(
        iDeck, [this] { ++m_nPassed; }, 0);
    return true;
}

/// Writes on to the terminal, or to where the command's output goes, in the order of the decks.
void CBatch::Write(E_STREAM eStream, const std::string& sText) {
    m_progress.Clear();
    if (eStream == STREAM_ERRORS) {
        std::cout << std::flush;
        std::cerr << sText;
        return;
    }
    const bool bObjects = m_rOptions.IsJson() && !m_rOptions.IsJsonLines();
    if (bObjects && m_bAny && !m_bPrinted) std::cout << ',';
    m_bAny = m_bPrinted = true;
    std::cout << sText << std::flush;
}

/// A deck has ended and shown all that it prints.
void CBatch::EndDeck(const T_JOB_D& rJob, const T_OUTCOME_D& rOutcome) {
    m_bPrinted = false;
    m_bFailed = m_bFailed || rOutcome.bFAILED;
    m_bLoss = m_bLoss || rOutcome.bLOSS;
    m_bUnsound = m_bUnsound || rOutcome.bUNSOUND;
    ++(rOutcome.bFAILED ? m_nFailed : m_nConverted);
    if (rOutcome.bLOSSY) ++m_nLossy;
    m_log.Add(rOutcome.aLOG);
    if (!rOutcome.sNOTE.empty() && std::cout) KeepNote(rJob, rOutcome.sNOTE);
    m_progress.UpdateCount(m_nConverted + m_nFailed + m_nPassed, m_rJobs.aJOBS.size(), m_nFailed);
}

/// A note that can't be written fails nothing: the deck is converted again.
void CBatch::KeepNote(const T_JOB_D& rJob, const std::string& sNote) {
    try {
        CWholeFile file(NotePath(rJob), m_rJobs.decks);
        file.GetFile().Write(sNote);
        file.Finish();
    } catch (const CFileException& rError) {
        m_progress.Clear();
        TellHint(rError.GetText());
    }
}

void CBatch::TellCounts() const {
    std::string sText = std::to_string(m_nConverted) + " converted, " + std::to_string(m_nFailed) + " failed";
    if (m_rOptions.NeedsAccount()) sText += ", " + std::to_string(m_nLossy) + " with losses in the model";
    if (m_rOptions.bRESUME) sText += ", " + std::to_string(m_nPassed) + " skipped";
    if (m_rOptions.IsJson()) return TellHint(sText);
    std::cout << sText << std::endl;
}
