#pragma once
// All decks of a command line, with their common log and exit status.

#include "nas2zdt/command/DeckOutput.h"
#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/LogFile.h"
#include "nas2zdt/command/OrderedOutput.h"
#include "nas2zdt/command/ReadFiles.h"
#include "nas2zdt/command/Terminal.h"

#include <atomic>
#include <cstddef>
#include <string>

enum E_EXIT { EXIT_DONE, EXIT_FAILED, EXIT_USAGE, EXIT_LOSS, EXIT_UNSOUND };

/// One deck is converted by this process, several by others, so that whatever ends one of these fails its deck alone.
class CBatch {
  public:
    /// All arguments must outlive this object.
    CBatch(const T_OPTIONS_D& rOptions, const T_JOBS_D& rJobs);

    /// May be called once.
    E_EXIT Run();

  private:
    void ConvertSeveral();
    void Work(std::size_t nThreads) noexcept;
    T_OUTCOME_D FailDeck(std::size_t iDeck, const std::string& sWhy);
    bool PassOver(std::size_t iDeck);
    void Write(E_STREAM eStream, const std::string& sText);
    void EndDeck(const T_JOB_D& rJob, const T_OUTCOME_D& rOutcome);
    void Count(const T_OUTCOME_D& rOutcome);
    void KeepNote(const T_JOB_D& rJob, const std::string& sNote);
    void TellCounts() const;
    void Fail(const std::string& sWhy);

    const T_OPTIONS_D& m_rOptions;
    const T_JOBS_D& m_rJobs;
    T_INPUTS m_inputs; // files that the log may not replace
    CLogFile m_log;
    COrderedOutput m_output;
    CReadFiles m_files;
    CProgressLine m_progress;
    std::atomic<std::size_t> m_iNext = 0; // deck to begin with

    // what only the deck whose turn it is changes
    bool m_bPrinted = false; // whether it has printed on standard output
    bool m_bAny = false;     // whether any has
    std::size_t m_nConverted = 0, m_nFailed = 0, m_nLossy = 0, m_nPassed = 0;
    bool m_bFailed = false;
    bool m_bLoss = false;
    bool m_bUnsound = false;
};
