#pragma once
// A process that converts decks for the command.

#include "nas2zdt/command/DeckOutput.h"
#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/OrderedOutput.h"
#include "nas2zdt/command/ReadFiles.h"
#include "platform/Process.h"

#include <cstddef>
#include <string>

/// The argument that makes the command such a process, which people have no use for.
constexpr const char* WORKER_ARGUMENT = "--convert-for-another";

/// What the process does: converts what its standard input tells until that ends. Returns its exit status.
int RunDeckWorker();

/// One such process, from outside. It begins with the first deck, and anew behind one that has ended it.
class CDeckWorker {
  public:
    /// nThreads may work on a deck. All arguments must outlive this object.
    CDeckWorker(const T_OPTIONS_D& rOptions, std::size_t nThreads, COrderedOutput& rOutput, CReadFiles& rFiles)
        : m_rOptions(rOptions), m_nThreads(nThreads), m_rOutput(rOutput), m_rFiles(rFiles) {}

    /// Converts deck iDeck of the list; what it prints goes to the output. Returns 1, or 0 if the process is no more,
    /// with how it ended in rWhy.
    int Convert(std::size_t iDeck, const T_JOB_D& rJob, T_OUTCOME_D& rOutcome, std::string& rWhy);

  private:
    int Begin(std::string& rWhy);

    const T_OPTIONS_D& m_rOptions;
    const std::size_t m_nThreads;
    COrderedOutput& m_rOutput;
    CReadFiles& m_rFiles;
    CChildProcess m_process;
};
