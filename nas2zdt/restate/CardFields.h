#pragma once
// The fields of a card with their values.

#include "nas2zdt/restate/CardText.h"
#include "nas2zdt/restate/ColumnFields.h"
#include "nas2zdt/restate/SourceDeck.h"
#include "nas2zdt/text/Words.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Reads the fields of a card. Places count from 0: field 2 of the format is 0. Blank and absent fields are the same.
/// A field that isn't what it should be gives its default, and the card counts as broken from then on.
class CCardFields {
  public:
    void Read(const T_SOURCECARD_D& rCard);

    const T_ORIGINLINE_D& GetOrigin() const { return m_origin; }

    /// In upper case, without a "*".
    std::string_view GetKeyword() const { return m_sKeyword; }

    /// Number of fields up to the last that isn't blank.
    std::size_t GetCount() const { return m_nFields; }

    std::string_view Text(std::size_t i) const {
        if (i >= m_nFields) return {};
        return m_bColumns ? m_columns.Text(i) : m_text.GetFields()[i];
    }
    bool IsBlank(std::size_t i) const {
        return i >= m_nFields || (m_bColumns ? m_columns.IsBlank(i) : m_text.GetFields()[i].empty());
    }

    /// Whether the field is this word, in any case. sUpper is in upper case.
    bool Is(std::size_t i, std::string_view sUpper) const;

    std::int32_t Int(std::size_t i, std::int32_t iDefault = 0) const;
    double Real(std::size_t i, double dDefault = 0.0) const;

    /// Digits of components, of a number: bit 0 for component 1. Zero and a blank are none.
    std::uint8_t Components(std::size_t i) const;

    /// Whether the field has an integer, without a complaint if it hasn't.
    bool HasInt(std::size_t i) const;
    bool HasReal(std::size_t i) const; // one that can't be an integer

    /// The first field that wasn't what it should be, or NOWHERE.
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);
    std::size_t GetBroken() const { return m_iBroken; }

    /// Whether a field that was asked for as a real number was an integer, which NASTRAN doesn't take.
    bool HasIntegerForReal() const { return m_bIntegerForReal; }

    /// How the lines of a card are cut that isn't plain.
    const CCardText& GetText() const { return m_text; }

  private:
    void ReadColumns(std::string_view sText);

    void Complain(std::size_t i) const {
        if (m_iBroken == NOWHERE) m_iBroken = i;
    }

    T_ORIGINLINE_D m_origin;
    std::string m_sKeyword;
    TEXTWORD m_nKeyword = 0; // of a card of columns, as it is written there
    bool m_bColumns = false; // whether all lines are of columns
    CColumnFields m_columns; // if so
    CCardText m_text;        // else
    std::vector<std::string_view> m_aLines;
    std::size_t m_nFields = 0;
    mutable std::size_t m_iBroken = NOWHERE;
    mutable bool m_bIntegerForReal = false;
};
