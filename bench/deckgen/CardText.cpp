// Lays out cards as text.

#include "deckgen/CardText.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <stdexcept>
#include <string>
#include <system_error>

namespace {

constexpr std::size_t BUFFER_SIZE = 1 << 20;
constexpr std::size_t LONGEST_CARD = 2048; // more than all the fields of a card need in any layout

constexpr std::array<std::int64_t, 16> POWERS = [] {
    std::array<std::int64_t, 16> aPowers{};
    std::int64_t n = 1;
    for (std::int64_t& rPower : aPowers) {
        rPower = n;
        n *= 10;
    }
    return aPowers;
}();

/// Writes iValue / 10^nDecimals at p and returns the place behind it.
char* PutDecimal(char* p, std::int64_t iValue, int nDecimals) {
    if (iValue < 0) *p++ = '-';
    const std::int64_t iAbs = iValue < 0 ? -iValue : iValue;
    const std::int64_t iScale = POWERS[static_cast<std::size_t>(nDecimals)];
    p = std::to_chars(p, p + 20, iAbs / iScale).ptr;
    *p++ = '.';
    std::int64_t iRest = iAbs % iScale;
    for (int i = nDecimals - 1; i >= 0; --i, iRest /= 10) p[i] = static_cast<char>('0' + iRest % 10);
    return p + nDecimals;
}

char* TrimBlanks(char* pBegin, char* pEnd) {
    while (pEnd > pBegin && pEnd[-1] == ' ') --pEnd;
    return pEnd;
}

char* Append(char* p, std::string_view sText) {
    return std::copy(sText.begin(), sText.end(), p);
}

} // namespace

CCardText::CCardText(std::FILE* pFile) : m_pFile(pFile), m_aBuffer(BUFFER_SIZE) {
    std::setvbuf(m_pFile, nullptr, _IONBF, 0); // m_aBuffer is the buffer
}

void CCardText::Line(std::string_view sText) {
    char* p = Reserve();
    std::memcpy(p, sText.data(), sText.size());
    p[sText.size()] = '\n';
    m_nUsed += sText.size() + 1;
}

CCardText& CCardText::Begin(std::string_view sKeyword, E_LAYOUT iLayout) {
    m_sKeyword = sKeyword;
    m_iLayout = iLayout;
    m_nFields = 0;
    return *this;
}

CCardText& CCardText::Int(std::int64_t iValue) {
    char aText[24];
    const char* pEnd = std::to_chars(aText, aText + sizeof aText, iValue).ptr;
    Put(aText, static_cast<std::size_t>(pEnd - aText));
    return *this;
}

CCardText& CCardText::Text(std::string_view sText) {
    Put(sText.data(), sText.size());
    return *this;
}

CCardText& CCardText::Blank(int nFields) {
    for (; nFields > 0; --nFields) Put("", 0);
    return *this;
}

CCardText& CCardText::Real(std::int64_t iValue, int nDecimals) {
    char aText[40];
    const char* pEnd = PutDecimal(aText, iValue, nDecimals);
    Put(aText, static_cast<std::size_t>(pEnd - aText));
    return *this;
}

CCardText& CCardText::Power(std::int64_t iValue, int nDecimals, int iExponent) {
    char aText[40];
    char* pEnd = PutDecimal(aText, iValue, nDecimals);
    if (m_iLayout == LAYOUT_FREE) *pEnd++ = 'E';
    if (m_iLayout != LAYOUT_FREE && iExponent >= 0) *pEnd++ = '+';
    pEnd = std::to_chars(pEnd, aText + sizeof aText, iExponent).ptr;
    Put(aText, static_cast<std::size_t>(pEnd - aText));
    return *this;
}

CCardText& CCardText::Coordinate(std::int64_t iValue) {
    return m_iLayout == LAYOUT_LARGE ? Real(iValue, 7) : Real(iValue / 10000, 3);
}

CCardText& CCardText::Digits(std::uint64_t nRandom, int nBefore) {
    const int nDigits = m_iLayout == LAYOUT_LARGE ? 13 : 6;
    const auto nScale = static_cast<std::uint64_t>(POWERS[static_cast<std::size_t>(nDigits)]);
    return Real(static_cast<std::int64_t>(nRandom % (nScale - 1) + 1), nDigits - nBefore);
}

void CCardText::Put(const char* pText, std::size_t nText) {
    const std::size_t nWidth = m_iLayout == LAYOUT_SMALL ? 8 : WIDEST;
    if (nText > nWidth || m_nFields == MOST_FIELDS) {
        throw std::logic_error("no room on " + std::string(m_sKeyword) + " for " + std::string(pText, nText));
    }
    T_COLUMNS& rField = m_aFields[m_nFields];
    rField.fill(' ');
    std::memcpy(rField.data(), pText, nText);
    m_aLengths[m_nFields++] = nText;
}

void CCardText::End() {
    while (m_nFields > 0 && m_aLengths[m_nFields - 1] == 0) --m_nFields;
    char* const pBegin = Reserve();
    char* p = pBegin;
    if (m_iLayout == LAYOUT_FREE) {
        p = Append(p, m_sKeyword);
        for (std::size_t i = 0; i < m_nFields; ++i) {
            if (i > 0 && i % 8 == 0) {
                p = Append(p, ",+\n+");
            }
            *p++ = ',';
            p = std::copy_n(m_aFields[i].data(), m_aLengths[i], p);
        }
    } else {
        const bool bLarge = m_iLayout == LAYOUT_LARGE;
        const std::size_t nWidth = bLarge ? 16 : 8;
        const std::size_t nPerLine = bLarge ? 4 : 8;
        std::memset(p, ' ', 8);
        Append(p, m_sKeyword);
        if (bLarge) p[m_sKeyword.size()] = '*';
        char* pLine = p;
        p += 8;
        for (std::size_t i = 0; i < m_nFields; ++i) {
            if (i > 0 && i % nPerLine == 0) {
                // a large field line with a card behind it is whole: readers may count its columns
                if (!bLarge) p = TrimBlanks(pLine, p);
                *p++ = '\n';
                pLine = p;
                p = Append(p, bLarge ? "*       " : "+       ");
            }
            std::memcpy(p, m_aFields[i].data(), WIDEST);
            p += nWidth;
        }
        p = TrimBlanks(pLine, p);
    }
    *p++ = '\n';
    m_nUsed += static_cast<std::size_t>(p - pBegin);
    ++m_nCards;
}

char* CCardText::Reserve() {
    if (m_aBuffer.size() - m_nUsed < LONGEST_CARD) Flush();
    return m_aBuffer.data() + m_nUsed;
}

void CCardText::Flush() {
    if (std::fwrite(m_aBuffer.data(), 1, m_nUsed, m_pFile) != m_nUsed) {
        throw std::system_error(errno, std::generic_category());
    }
    m_nUsed = 0;
}
