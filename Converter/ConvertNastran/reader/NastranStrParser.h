#pragma once
// Operations on the text of a line. Everything is the C locale: upper case means a to z alone, white space is the six
// characters of that locale.

#include "platform/TextWord.h"
#include "reader/Card.h"

#include <bit>
#include <cstddef>
#include <string_view>
#include <vector>

constexpr bool IsSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

class CNastranStrParser {
  public:
    virtual ~CNastranStrParser() = default;

    /// Number of bytes behind its text that NormalizeLine may read.
    static constexpr std::size_t SLACK = 32;

    /// Fills rLine with sRaw, which is at most LONGEST_LINE long, in upper case and cut before a ":". Returns 0 and
    /// marks a comment if it begins with "$". SLACK bytes behind sRaw must be readable; they don't matter.
    static int NormalizeLine(std::string_view sRaw, T_LINE_D& rLine);

    /// Whether there is nothing but blanks. A tab or a carriage return is something.
    static bool IsBlankLine(std::string_view sText);

    /// Takes blanks, tabs and line feeds out of [pBegin, pEnd), in place. A carriage return stays.
    static std::string_view RemoveBlanks(char* pBegin, char* pEnd);

    /// The same for the eight columns at pField, which hold neither tabs nor line feeds. If there are blanks between
    /// others, join() is called before they are taken out; else the text stays as it is.
    template <class JOIN>
    static std::string_view RemoveBlanksOf8(char* pField, JOIN join) {
        // A bit for each column that isn't blank. Most fields are one word, which is its own result.
        const TEXTWORD nFilled = FindOthers(LoadWord(pField), ' ');
        if (nFilled == 0) return {pField, pField};
        const int iFirst = std::countr_zero(nFilled) / 8;
        const int nText = 8 - std::countl_zero(nFilled) / 8 - iFirst;
        const TEXTWORD nOneWord = (RepeatInWord('\x80') >> (64 - 8 * nText)) << (8 * iFirst);
        if (nFilled != nOneWord) {
            join();
            return RemoveBlanks(pField, pField + WORD_LENGTH);
        }
        return {pField + iFirst, static_cast<std::size_t>(nText)};
    }

    /// The text before the first comma, or columns 1 to 8 if there is none.
    static std::string_view SplitFirstField(std::string_view sText);

    /// Columns iFirst to iLast, counted from 1, as far as there are.
    static std::string_view SliceColumns(std::size_t iFirst, std::size_t iLast, std::string_view sText);

    /// Appends the fields of a free field line: between commas with white space trimmed, or between runs of blanks.
    /// Tabs count as blanks. The line is changed in place; the fields point into it.
    static void SplitFreeFields(T_LINE_D& rLine, std::vector<std::string_view>& rFields);

    /// Ends the text behind the last blank before its first "=", if there is one that isn't in column 1.
    static std::string_view CutBeforeEquals(std::string_view sText);
};
