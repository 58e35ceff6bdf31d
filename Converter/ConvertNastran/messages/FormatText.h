#pragma once
// Message texts with % placeholders, filled from typed arguments. The texts come from another library, so nothing in
// them can make the formatter read an argument that isn't there or of another type.

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// An argument of a message: an integer or a text.
class CTextArg {
  public:
    CTextArg(std::int32_t iValue) : m_bText(false), m_iValue(iValue) {}
    CTextArg(std::string_view sValue) : m_sValue(sValue) {}
    CTextArg(const char* sValue) : m_sValue(sValue) {}
    CTextArg(const std::string& sValue) : m_sValue(sValue) {}

    std::string GetText() const { return m_bText ? std::string(m_sValue) : std::to_string(m_iValue); }

  private:
    bool m_bText = true;
    std::int32_t m_iValue = 0;
    std::string_view m_sValue;
};

using TEXT_ARGS = std::initializer_list<CTextArg>;

/// Fills the placeholders of sFormat in order. %d, %i, %u and %s, with a "-" and a width, take the next
/// argument, which prints as what it is; %% is a percent sign. A placeholder without an argument, or one of another
/// kind, stays in the text unchanged; arguments without a placeholder are left out.
std::string FormatText(std::string_view sFormat, TEXT_ARGS aArgs);
