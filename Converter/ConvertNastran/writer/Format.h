#pragma once
// printf formats that the compiler checks and that come out the same on every platform and under every locale.

#include "platform/TextSink.h"
#include "writer/Numbers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

/// What an argument is for a format.
enum E_ARG_KIND : char { ARG_INT = 'd', ARG_REAL = 'g', ARG_TEXT = 's' };

template <class ARG>
constexpr E_ARG_KIND ArgKind() {
    if constexpr (std::is_same_v<ARG, std::int32_t>) {
        return ARG_INT;
    } else if constexpr (std::is_same_v<ARG, double>) {
        return ARG_REAL;
    } else {
        static_assert(std::is_convertible_v<const ARG&, std::string_view>, "an argument is an int, a double or a text");
        return ARG_TEXT;
    }
}

/// A format for arguments of these types. %d, %g and %s with a width are known; a wrong count or type doesn't compile.
/// It is small, since each line that is written makes one.
template <class... ARGS>
class T_FORMAT_D {
  public:
    static constexpr std::size_t COUNT = sizeof...(ARGS);

    consteval T_FORMAT_D(const char* sFormat) : m_sFormat(sFormat) {
        constexpr std::array<E_ARG_KIND, COUNT + 1> KINDS = {ArgKind<ARGS>()...};
        std::size_t iArg = 0;
        const char* pLiteral = sFormat;
        const char* p = sFormat;
        while (*p != '\0') {
            if (*p != '%') {
                ++p;
                continue;
            }
            if (iArg == COUNT) throw "the format has more placeholders than there are arguments";
            SetLiteral(iArg, pLiteral, p);
            for (++p; *p >= '0' && *p <= '9'; ++p) {
                m_aWidths[iArg] = static_cast<std::uint8_t>(m_aWidths[iArg] * 10 + (*p - '0'));
            }
            if (*p != KINDS[iArg]) throw "the placeholder isn't for an argument of this type";
            pLiteral = ++p;
            ++iArg;
        }
        if (iArg != COUNT) throw "the format has fewer placeholders than there are arguments";
        SetLiteral(COUNT, pLiteral, p);
    }

    /// The text before placeholder i, or behind the last one.
    constexpr std::string_view Literal(std::size_t i) const { return {m_sFormat + m_aBegins[i], m_aLengths[i]}; }

    /// The least number of characters that argument i takes.
    constexpr std::size_t Width(std::size_t i) const { return m_aWidths[i]; }

  private:
    consteval void SetLiteral(std::size_t i, const char* pBegin, const char* pEnd) {
        if (pEnd - m_sFormat > std::numeric_limits<std::uint16_t>::max()) throw "the format is too long";
        m_aBegins[i] = static_cast<std::uint16_t>(pBegin - m_sFormat);
        m_aLengths[i] = static_cast<std::uint16_t>(pEnd - pBegin);
    }

    const char* m_sFormat;
    std::array<std::uint16_t, COUNT + 1> m_aBegins = {};
    std::array<std::uint16_t, COUNT + 1> m_aLengths = {};
    std::array<std::uint8_t, COUNT + 1> m_aWidths = {};
};

inline std::size_t LongestText(std::int32_t) {
    return LONGEST_INT;
}
inline std::size_t LongestText(double) {
    return LONGEST_REAL;
}
inline std::size_t LongestText(std::string_view sText) {
    return sText.size();
}

/// Writes a value at p and returns the place behind it; LongestText tells the room that it needs.
inline char* PutValue(char* p, std::int32_t iValue) {
    return PutInt(p, iValue);
}
inline char* PutValue(char* p, double dValue) {
    return PutReal(p, dValue);
}
inline char* PutValue(char* p, std::string_view sText) {
    return std::copy(sText.begin(), sText.end(), p); // its data may be null
}

/// Writes a text that is most often two characters long.
[[gnu::always_inline]] inline char* PutLiteral(char* p, std::string_view sText) {
    if (sText.size() == 2) {
        std::memcpy(p, sText.data(), 2);
    } else {
        std::memcpy(p, sText.data(), sText.size());
    }
    return p + sText.size();
}

template <class VALUE>
[[gnu::always_inline]] inline char* PutPart(char* p, std::string_view sLiteral, std::size_t nWidth,
                                            const VALUE& value) {
    p = PutLiteral(p, sLiteral);
    char* pEnd = PutValue(p, value);
    const auto nText = static_cast<std::size_t>(pEnd - p);
    if (nText >= nWidth) return pEnd;
    std::memmove(p + nWidth - nText, p, nText);
    std::memset(p, ' ', nWidth - nText);
    return p + nWidth;
}

/// Formats the arguments at the end of rSink. Inlined with what it calls, so that the pieces of the format are
/// constants where a line is written. Throws CFileException if that is a file.
template <class... ARGS>
[[gnu::always_inline]] inline void FormatTo(CTextSink& rSink, const T_FORMAT_D<ARGS...>& rFormat, const ARGS&... args) {
    std::size_t i = 0;
    std::size_t nRoom = rFormat.Literal(sizeof...(ARGS)).size();
    ((nRoom += rFormat.Literal(i).size() + rFormat.Width(i) + LongestText(args), ++i), ...);
    char* const pBegin = rSink.Reserve(nRoom);
    char* p = pBegin;
    i = 0;
    ((p = PutPart(p, rFormat.Literal(i), rFormat.Width(i), args), ++i), ...);
    p = PutLiteral(p, rFormat.Literal(sizeof...(ARGS)));
    rSink.Commit(static_cast<std::size_t>(p - pBegin));
}

/// The one way to the output file: sends a line made of a printf format and its arguments, which are checked against it
/// by the compiler. Adds no line feed. Always 1. Throws as FormatTo.
template <class... ARGS>
[[gnu::always_inline]] inline int WriteLine(CTextSink& rSink, T_FORMAT_D<std::type_identity_t<ARGS>...> format,
                                            const ARGS&... args) {
    FormatTo(rSink, format, args...);
    return 1;
}
