#pragma once
// The INCLUDE statement as NASTRAN means it: a name of any length and case, in quotes or not; a quoted one may go on
// over several lines, of which the blanks at both ends don't count.

#include <string>
#include <string_view>

class CIncludeStatement {
  public:
    /// Begins with a line. Returns 1 if it is the first line of an INCLUDE, which may be whole with it.
    int Begin(std::string_view sLine);

    /// Goes on with the next line of a statement that isn't whole. Returns 1, or 0 if the name is longer than any path.
    int Continue(std::string_view sLine);

    /// Whether the closing quote was met, or none was opened.
    bool IsWhole() const { return m_cQuote == '\0'; }

    const std::string& GetName() const { return m_sName; }

  private:
    void Add(std::string_view sText);

    std::string m_sName;
    char m_cQuote = '\0'; // the one that is still to come
};
