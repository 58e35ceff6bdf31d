#pragma once
// Writes cards that the converter and NASTRAN read alike, to the last digit.

#include "nas2zdt/flatten/LineMap.h"
#include "nas2zdt/restate/Rule.h"
#include "platform/File.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

/// A field to be written.
class CFieldValue {
  public:
    CFieldValue() = default; // blank
    CFieldValue(std::int32_t iValue) : m_sText(std::to_string(iValue)) {}
    CFieldValue(double dValue);

    /// A field of a deck or a word; numbers keep their digits.
    CFieldValue(std::string_view sText);
    CFieldValue(const char* sText) : CFieldValue(std::string_view(sText)) {}

    const std::string& GetText() const { return m_sText; }

  private:
    std::string m_sText;
};

/// Writes the lines of the restated deck, and where they came from.
class CCardWriter {
  public:
    CCardWriter(CFile& rFile, CLineMap& rLines) : m_rFile(rFile), m_rLines(rLines) {}

    /// Lines of the card at rOrigin follow.
    void SetOrigin(const T_ORIGINLINE_D& rOrigin) { m_origin = rOrigin; }

    /// A card of small field if all fields fit, of free field else. Blank fields at the end are left out.
    void Write(std::string_view sKeyword, std::span<const CFieldValue> aFields);
    void Write(std::string_view sKeyword, std::initializer_list<CFieldValue> aFields) {
        Write(sKeyword, std::span<const CFieldValue>(aFields.begin(), aFields.size()));
    }

    /// Whole lines as they are, each with its line feed. They count as lines from the origin on.
    void Copy(std::string_view sLines, std::int32_t nLines);

  private:
    void AddLines(std::int32_t nLines, bool bOneByOne);

    CFile& m_rFile;
    CLineMap& m_rLines;
    T_ORIGINLINE_D m_origin;
    std::int32_t m_nLines = 0;
    std::string m_sText;
};
