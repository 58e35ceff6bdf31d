#pragma once
// The fields of a card as NASTRAN reads them from its lines.

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

/// How a line's fields are cut. Free field has a comma in its first ten columns; a "*" in field 1 makes either large.
struct T_CARDLINE_D {
    bool bFREE = false;
    bool bLARGE = false;
    bool bTABBED = false;    // a tab was taken for blanks
    bool bCOMMENTED = false; // there is a comment
    bool bSHORT = false;     // it ends before its last field
    bool bPASTMARK = false;  // free field, and something stands behind field 10
    std::string_view sFIRST; // field 1: a keyword with its "*", a continuation mark with its "+" or "*", or a "="
    std::string_view sMARK;  // field 10
    std::array<std::string_view, 8> aFIELDS;

    /// The first so many of aFIELDS are fields of the line, blank ones too.
    std::size_t GetFieldCount() const { return bLARGE ? 4 : 8; }

    /// Whether field 1 asks for cards made of the one before.
    bool IsReplication() const { return sFIRST.starts_with('=') || sFIRST.starts_with("*("); }
};

/// A mark as it is compared: without its first "+" or "*".
std::string_view BareMark(std::string_view sMark);

/// Reads a card. Fields are without the blanks, tabs and carriage returns around them; blanks inside stay. Case stays,
/// too. Lines are taken in their order, whatever their marks say.
class CCardText {
  public:
    /// The lines of one card, or a single line, without line feeds. Their text must outlive what is got here.
    void Read(std::span<const std::string_view> aLines);

    /// Field 1 of the first line, without a "*" at its end.
    std::string_view GetKeyword() const { return m_sKeyword; }

    /// The data fields of all lines in order, blank ones too: eight of a line, or four of one in large field.
    const std::vector<std::string_view>& GetFields() const { return m_aFields; }

    const std::vector<T_CARDLINE_D>& GetLines() const { return m_aLines; }

  private:
    static constexpr std::size_t COLUMNS = 80;

    void CutFree(std::string_view sText, std::string_view sNext, T_CARDLINE_D& rLine);
    static void CutColumns(std::string_view sText, T_CARDLINE_D& rLine);
    std::string_view ExpandTabs(std::string_view sText, std::size_t iLine, std::size_t nLines);

    std::string_view m_sKeyword;
    std::vector<std::string_view> m_aFields;
    std::vector<T_CARDLINE_D> m_aLines;
    std::vector<char> m_aExpanded; // columns of the lines with tabs, each in a place of its own
};
