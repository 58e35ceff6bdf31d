#pragma once
// What the command tells a person, with the colour and the progress that are for a terminal alone.

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>

enum E_COLOUR { COLOUR_RED, COLOUR_GREEN };

/// The text in a colour if pStream is a terminal that has colours and NO_COLOR isn't set; else as it is.
std::string Paint(std::FILE* pStream, E_COLOUR eColour, const std::string& sText);

/// Tells on standard error what failed, as a plain text.
void TellFailure(const std::string& sText);

/// Tells there, in the same way, what helps or warns.
void TellHint(const std::string& sText);

/// A line on standard error that tells how far a long run is. Nothing is shown in the first second, nor ever if
/// standard error isn't a terminal.
class CProgressLine {
  public:
    CProgressLine();
    ~CProgressLine() { Clear(); }
    CProgressLine(const CProgressLine&) = delete;
    CProgressLine& operator=(const CProgressLine&) = delete;

    bool IsShown() const { return m_bTerminal; }

    /// A file of nBytes bytes is read from now on; 0 if that isn't known.
    void Begin(const std::string& sFile, std::uint64_t nBytes);

    void Update(std::uint64_t nBytes);

    /// Takes the line away.
    void Clear();

  private:
    using CLOCK = std::chrono::steady_clock;
    bool m_bTerminal;
    bool m_bLine = false; // whether the line stands
    CLOCK::time_point m_next;
    std::string m_sFile;
    std::uint64_t m_nTotal = 0;
};
