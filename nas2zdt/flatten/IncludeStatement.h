#pragma once
// The statement that includes a deck.

#include <string>
#include <string_view>

/// An INCLUDE statement as NASTRAN reads it: a name of any length and case, quoted or not. A quoted name may go on over
/// several lines; blanks at both ends of a line don't count.
class CIncludeStatement {
  public:
    /// Returns 1 if sLine begins an INCLUDE, which may be whole with it.
    int Begin(std::string_view sLine);

    /// Adds the next line of a statement that isn't whole. Returns 1, or 0 if the name is longer than any path.
    int Continue(std::string_view sLine);

    /// Whether no closing quote is missing.
    bool IsWhole() const { return m_cQuote == '\0'; }

    const std::string& GetName() const { return m_sName; }

  private:
    void Add(std::string_view sText);

    std::string m_sName;
    char m_cQuote = '\0'; // the missing closing quote, or none
};
