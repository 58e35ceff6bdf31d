// Reading an INCLUDE statement.

#include "nas2zdt/flatten/IncludeStatement.h"

#include <algorithm>

namespace {

constexpr std::string_view WORD = "INCLUDE";
constexpr std::size_t LONGEST_NAME = 32768;

std::string_view Trim(std::string_view sText) {
    constexpr std::string_view SPACE = " \t\r\n";
    const std::size_t iFirst = sText.find_first_not_of(SPACE);
    if (iFirst == std::string_view::npos) return {};
    return sText.substr(iFirst, sText.find_last_not_of(SPACE) - iFirst + 1);
}

bool StartsWithWord(std::string_view sText) {
    if (sText.size() < WORD.size()) return false;
    for (std::size_t i = 0; i < WORD.size(); ++i) {
        const char c = sText[i];
        if ((c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c) != WORD[i]) return false;
    }
    return sText.size() == WORD.size() ||
           std::string_view(" \t,='\"").find(sText[WORD.size()]) != std::string_view::npos;
}

} // namespace

int CIncludeStatement::Begin(std::string_view sLine) {
    m_sName.clear();
    m_cQuote = '\0';
    std::string_view sText = Trim(sLine);
    if (!StartsWithWord(sText)) return 0;
    sText.remove_prefix(WORD.size());
    sText.remove_prefix(std::min(sText.find_first_not_of(" \t,="), sText.size()));
    if (sText.starts_with('\'') || sText.starts_with('"')) {
        m_cQuote = sText[0];
        Add(sText.substr(1));
    } else {
        const std::size_t iComment = sText.find(" $");
        m_sName = Trim(sText.substr(0, iComment));
    }
    return 1;
}

int CIncludeStatement::Continue(std::string_view sLine) {
    Add(sLine);
    return m_sName.size() <= LONGEST_NAME ? 1 : 0;
}

void CIncludeStatement::Add(std::string_view sText) {
    const std::size_t iQuote = sText.find(m_cQuote);
    if (iQuote != std::string_view::npos) m_cQuote = '\0';
    m_sName += Trim(sText.substr(0, iQuote));
}
