#pragma once
// Messages of the command, with colours and progress on a terminal.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

enum E_COLOUR { COLOUR_RED, COLOUR_GREEN };

/// For a process whose output another one shows: whether that goes to streams with colours. No progress is shown.
void PrintForAnother(bool bOutputColours, bool bErrorColours);

/// Whether pStream is a terminal with colours and NO_COLOR isn't set.
bool HasColours(std::FILE* pStream);

/// sText in a colour if pStream has colours, else unchanged.
std::string Paint(std::FILE* pStream, E_COLOUR eColour, const std::string& sText);

/// A failure as standard error has it, without control characters.
std::string FailureText(const std::string& sText);

/// Writes a failure to standard error.
void TellFailure(const std::string& sText);

/// Writes a hint or warning to standard error, without control characters.
void TellHint(const std::string& sText);

/// A line on standard error with the progress of a long run. It appears after a second, and only on a terminal.
class CProgressLine {
  public:
    CProgressLine();
    ~CProgressLine() { Clear(); }
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

    bool IsShown() const { return m_bTerminal; }

    /// Starts on a file of nBytes bytes, 0 if unknown.
    void Begin(const std::string& sFile, std::uint64_t nBytes);

    void Update(std::uint64_t nBytes);

    /// Of several decks.
    void UpdateCount(std::size_t nEnded, std::size_t nAll, std::size_t nFailed);

    /// Erases the line.
    void Clear();

  private:
    using CLOCK = std::chrono::steady_clock;
    bool IsDue();
    void Show(const std::string& sText);

    bool m_bTerminal;
    bool m_bLine = false; // whether the line is shown
    CLOCK::time_point m_next;
    std::string m_sFile;
    std::uint64_t m_nTotal = 0;
};
