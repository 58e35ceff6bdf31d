// Reads the name of an included deck.

#include "nas2zdt/flatten/IncludeStatement.h"

#include "nas2zdt/text/Words.h"

#include <algorithm>

int CIncludeStatement::Begin(std::string_view sLine) {
    m_sName.clear();
    m_cQuote = '\0';
    std::string_view sText = TrimText(sLine);
    constexpr std::string_view WORD = "INCLUDE";
    if (!StartsWithoutCase(sText, WORD)) return 0;
    sText.remove_prefix(WORD.size());
    if (!sText.empty() && std::string_view(" \t,='\"").find(sText[0]) == std::string_view::npos) return 0;
    sText.remove_prefix(std::min(sText.find_first_not_of(" \t,="), sText.size()));
    if (sText.starts_with('\'') || sText.starts_with('"')) {
        m_cQuote = sText[0];
        Add(sText.substr(1));
    } else {
        const std::size_t iComment = sText.find(" $");
        m_sName = TrimText(sText.substr(0, iComment));
    }
    return 1;
}

int CIncludeStatement::Continue(std::string_view sLine) {
    constexpr std::size_t LONGEST_NAME = 32768;
    Add(sLine);
    return m_sName.size() <= LONGEST_NAME ? 1 : 0;
}

void CIncludeStatement::Add(std::string_view sText) {
    const std::size_t iQuote = sText.find(m_cQuote);
    if (iQuote != std::string_view::npos) m_cQuote = '\0';
    m_sName += TrimText(sText.substr(0, iQuote));
}
