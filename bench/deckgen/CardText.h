#pragma once
// Lays out cards as text.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>
#include <vector>

/// How fields stand on a line.
enum E_LAYOUT : int {
    LAYOUT_SMALL, // columns of eight
    LAYOUT_LARGE, // columns of sixteen, reals with as many digits as fit
    LAYOUT_FREE,  // between commas
    LAYOUT_MIXED, // each card in one of the three, by chance
};

/// Takes the fields of one card after the other and writes them to a file. Fields stand left in their columns, and
/// what is blank at a card's end is left away, as most pre-processors have it. Throws std::system_error if the file
/// fails, std::logic_error for a field that is wider than its columns.
class CCardText {
  public:
    explicit CCardText(std::FILE* pFile);

    /// A line as it stands.
    void Line(std::string_view sText);

    /// Begins a card. Not LAYOUT_MIXED.
    CCardText& Begin(std::string_view sKeyword, E_LAYOUT iLayout);
    CCardText& Int(std::int64_t iValue);
    CCardText& Text(std::string_view sText);
    CCardText& Blank(int nFields = 1);

    /// iValue divided by ten to the power of nDecimals, always with a point.
    CCardText& Real(std::int64_t iValue, int nDecimals);

    /// The same times ten to the power of iExponent, in the form that suits the layout: 2.1+11, or 2.1E11 in free
    /// field, where many readers take a "+" for a continuation.
    CCardText& Power(std::int64_t iValue, int nDecimals, int iExponent);

    /// A coordinate in units of 1e-7, with seven decimals in large field and three elsewhere. Not below zero.
    CCardText& Coordinate(std::int64_t iValue);

    /// A number above zero with all the digits that the layout has room for, nBefore of them before the point.
    CCardText& Digits(std::uint64_t nRandom, int nBefore);

    void End();

    /// Writes what is buffered.
    void Flush();

    std::uint64_t GetCards() const { return m_nCards; }

  private:
    static constexpr std::size_t WIDEST = 16;
    static constexpr std::size_t MOST_FIELDS = 64;
    using T_COLUMNS = std::array<char, WIDEST>;

    void Put(const char* pText, std::size_t nText);
    char* Reserve();

    std::FILE* m_pFile;
    std::vector<char> m_aBuffer;
    std::size_t m_nUsed = 0;
    std::uint64_t m_nCards = 0;

    std::string_view m_sKeyword;
    E_LAYOUT m_iLayout = LAYOUT_SMALL;
    std::array<T_COLUMNS, MOST_FIELDS> m_aFields; // filled up with blanks
    std::array<std::size_t, MOST_FIELDS> m_aLengths;
    std::size_t m_nFields = 0;
};
