#pragma once
// Messages of the command, with colours and progress on a terminal.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

enum E_COLOUR { COLOUR_RED, COLOUR_GREEN };

/// sText in a colour if pStream is a terminal with colours and NO_COLOR isn't set, else unchanged.
std::string Paint(std::FILE* pStream, E_COLOUR eColour, const std::string& sText);

/// Writes a failure to standard error, without control characters.
void TellFailure(const std::string& sText);

/// Likewise a hint or warning.
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

    /// Erases the line.
    void Clear();

  private:
    using CLOCK = std::chrono::steady_clock;
    bool m_bTerminal;
    bool m_bLine = false; // whether the line is shown
    CLOCK::time_point m_next;
    std::string m_sFile;
    std::uint64_t m_nTotal = 0;
};
