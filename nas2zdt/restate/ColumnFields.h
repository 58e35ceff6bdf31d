#pragma once
// The fields of cards in columns.

#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/text/Columns.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/// Reads the fields of a card whose lines are all plain small field lines. Fields are cut when they are asked for. Its
/// functions have the names and the results that they have of CCardFields, as far as fields are blank or short numbers.
class CColumnFields {
  public:
    /// sText is that of a T_SOURCECARD_D and must outlive what is got here.
    void ReadLine(std::string_view sLine) {
        m_aLines.assign(1, sLine);
        m_bOther = false;
    }
    void Read(std::string_view sText) {
        m_aLines.clear();
        m_bOther = false;
        do {
            const std::size_t iFeed = sText.find('\n');
            m_aLines.push_back(sText.substr(0, iFeed));
            sText.remove_prefix(iFeed + 1);
        } while (!sText.empty());
    }

    T_COLUMNS_D GetKeyword() const { return CutColumns(m_aLines[0], 0); }

    /// Number of fields up to the last that isn't blank.
    std::size_t GetCount() const {
        for (std::size_t iLine = m_aLines.size(); iLine-- > 0;) {
            const std::string_view sLine = m_aLines[iLine].substr(0, LINE_FIELDS * (1 + LINE_FIELDS));
            const std::size_t iLast = sLine.find_last_not_of(' ');
            if (iLast != std::string_view::npos && iLast >= LINE_FIELDS) {
                return LINE_FIELDS * iLine + iLast / LINE_FIELDS;
            }
        }
        return 0;
    }

    T_COLUMNS_D Cut(std::size_t i) const {
        if (i / LINE_FIELDS >= m_aLines.size()) return {};
        return CutColumns(m_aLines[i / LINE_FIELDS], LINE_FIELDS * (1 + i % LINE_FIELDS));
    }
    /// The columns of the same field as they are.
    TEXTWORD Load(std::size_t i) const {
        if (i / LINE_FIELDS >= m_aLines.size()) return BLANK_COLUMNS;
        return LoadColumns(m_aLines[i / LINE_FIELDS], LINE_FIELDS * (1 + i % LINE_FIELDS));
    }
    std::string_view Text(std::size_t i) const { return Cut(i).Text(); }
    bool IsBlank(std::size_t i) const { return Load(i) == BLANK_COLUMNS; }

    std::int32_t Int(std::size_t i, std::int32_t iDefault = 0) const {
        const TEXTWORD nColumns = Load(i);
        std::int32_t iValue = iDefault;
        if (nColumns == BLANK_COLUMNS || ReadLeftInt(nColumns, iValue)) return iValue;
        m_bOther |= !ReadShortInt(Cut(i).Short(), iValue);
        return iValue;
    }

    /// An integer is another one, too.
    double Real(std::size_t i) const {
        const T_COLUMNS_D field = Cut(i);
        double dValue = 0.0;
        m_bOther |= !(field.HasPoint() && ReadShortReal(field.Short(), dValue)) && field.nTEXT > 0;
        return dValue;
    }

    std::uint8_t Components(std::size_t i) const {
        std::uint8_t nBits = 0;
        if (IsBlank(i)) return nBits;
        m_bOther |= !ReadComponents(Text(i), nBits);
        return nBits;
    }

    bool HasInt(std::size_t i) const {
        std::int32_t iValue = 0;
        const T_COLUMNS_D field = Cut(i);
        return ReadShortInt(field.Short(), iValue) || ReadInteger(field.Text(), iValue);
    }

    /// Whether a number was asked for that is none of these.
    bool HasOther() const { return m_bOther; }

  private:
    static constexpr std::size_t LINE_FIELDS = 8; // which is their width, too

    std::vector<std::string_view> m_aLines;
    mutable bool m_bOther = false;
};
