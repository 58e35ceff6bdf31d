// Messages of the command.

#include "nas2zdt/command/Terminal.h"

#include "platform/Console.h"
#include "platform/PlainText.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

constexpr std::chrono::milliseconds SILENCE(1000); // before the first line
constexpr std::chrono::milliseconds STEP(100);
constexpr const char* COMMAND = "nas2zdt: "; // in front of its own messages
constexpr const char* CLEAR_LINE = "\r\x1b[K";

bool IsSet(const char* sVariable) {
    const char* sValue = std::getenv(sVariable);
    return sValue && *sValue != '\0';
}

bool IsDumb() {
    const char* sTerm = std::getenv("TERM");
    return sTerm && std::string(sTerm) == "dumb";
}

} // namespace

std::string Paint(std::FILE* pStream, E_COLOUR eColour, const std::string& sText) {
    if (!IsTerminal(pStream) || IsSet("NO_COLOR") || IsDumb()) return sText;
    return (eColour == COLOUR_RED ? "\x1b[31m" : "\x1b[32m") + sText + "\x1b[0m";
}

void TellFailure(const std::string& sText) {
    std::cerr << Paint(stderr, COLOUR_RED, COMMAND) << PlainText(sText) << '\n';
}

void TellHint(const std::string& sText) {
    std::cerr << COMMAND << PlainText(sText) << '\n';
}

CProgressLine::CProgressLine() : m_bTerminal(IsTerminal(stderr) && !IsDumb()), m_next(CLOCK::now() + SILENCE) {}

void CProgressLine::Begin(const std::string& sFile, std::uint64_t nBytes) {
    m_sFile = PlainText(sFile);
    m_nTotal = nBytes;
}

void CProgressLine::Update(std::uint64_t nBytes) {
    if (!m_bTerminal || CLOCK::now() < m_next) return;
    m_next = CLOCK::now() + STEP;
    m_bLine = true;
    const std::string sFar = m_nTotal > 0 ? std::to_string(std::min(nBytes, m_nTotal) * 100 / m_nTotal) + "%"
                                          : std::to_string(nBytes / 1000000) + " MB";
    std::fputs((CLEAR_LINE + m_sFile + ": " + (nBytes < m_nTotal ? "reading " + sFar : "writing")).c_str(), stderr);
    std::fflush(stderr);
}

void CProgressLine::Clear() {
    if (m_bLine) std::fputs(CLEAR_LINE, stderr);
    m_bLine = false;
}
