// Messages of the command.

#include "nas2zdt/command/Terminal.h"

#include "platform/Console.h"
#include "platform/PlainText.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>

namespace {

constexpr std::chrono::milliseconds SILENCE(1000); // before the first line
constexpr std::chrono::milliseconds STEP(100);
constexpr const char* COMMAND = "nas2zdt: "; // in front of its own messages
constexpr const char* CLEAR_LINE = "\r\x1b[K";

bool IsSet(const char* sVariable) {
    const char* sValue = std::getenv(sVariable);
    return sValue && *sValue != '\0';
}

/// Colours of what shows the output of this process, if another does.
struct T_SHOWN_D {
    bool bOUTPUT;
    bool bERRORS;
};
std::optional<T_SHOWN_D> g_shown; // set before anything is printed

bool IsDumb() {
    const char* sTerm = std::getenv("TERM");
    return sTerm && std::string(sTerm) == "dumb";
}

} // namespace

void PrintForAnother(bool bOutputColours, bool bErrorColours) {
    g_shown = {bOutputColours, bErrorColours};
}

bool HasColours(std::FILE* pStream) {
    if (g_shown) return pStream == stdout ? g_shown->bOUTPUT : g_shown->bERRORS;
    return IsTerminal(pStream) && !IsSet("NO_COLOR") && !IsDumb();
}

std::string Paint(std::FILE* pStream, E_COLOUR eColour, const std::string& sText) {
    if (!HasColours(pStream)) return sText;
    return (eColour == COLOUR_RED ? "\x1b[31m" : "\x1b[32m") + sText + "\x1b[0m";
}

std::string FailureText(const std::string& sText) {
    return Paint(stderr, COLOUR_RED, COMMAND) + PlainText(sText) + '\n';
}

void TellFailure(const std::string& sText) {
    std::cerr << FailureText(sText);
}

void TellHint(const std::string& sText) {
    std::cerr << COMMAND << PlainText(sText) << '\n';
}

CProgressLine::CProgressLine()
    : m_bTerminal(!g_shown && IsTerminal(stderr) && !IsDumb()), m_next(CLOCK::now() + SILENCE) {}

void CProgressLine::Begin(const std::string& sFile, std::uint64_t nBytes) {
    m_sFile = PlainText(sFile);
    m_nTotal = nBytes;
}

bool CProgressLine::IsDue() {
    return m_bTerminal && CLOCK::now() >= m_next;
}

void CProgressLine::Show(const std::string& sText) {
    m_next = CLOCK::now() + STEP;
    m_bLine = true;
    std::fputs((CLEAR_LINE + sText).c_str(), stderr);
    std::fflush(stderr);
}

void CProgressLine::Update(std::uint64_t nBytes) {
    if (!IsDue()) return;
    const std::string sFar = m_nTotal > 0 ? std::to_string(std::min(nBytes, m_nTotal) * 100 / m_nTotal) + "%"
                                          : std::to_string(nBytes / 1000000) + " MB";
    Show(m_sFile + ": " + (nBytes < m_nTotal ? "reading " + sFar : "writing"));
}

void CProgressLine::UpdateCount(std::size_t nEnded, std::size_t nAll, std::size_t nFailed) {
    if (!IsDue()) return;
    const std::string sFailed = nFailed > 0 ? ", " + std::to_string(nFailed) + " failed" : std::string();
    Show(std::to_string(nEnded) + " of " + std::to_string(nAll) + " decks" + sFailed);
}

void CProgressLine::Clear() {
    if (m_bLine) std::fputs(CLEAR_LINE, stderr);
    m_bLine = false;
}
