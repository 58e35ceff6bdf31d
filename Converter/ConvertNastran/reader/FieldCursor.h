#pragma once
// Reads the fields of a card in order.

#include "reader/Card.h"
#include "reader/FieldParser.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

/// Each read takes the next field and moves on; past the end of the card a field is absent and the place stays. Absent
/// and blank fields take the same default here; a handler that tells them apart asks GetCount.
class CFieldCursor {
  public:
    explicit CFieldCursor(const T_DATA_D& rCard) : m_rCard(rCard) {}

    std::int32_t Int(std::int32_t iDefault = 0) {
        const std::string_view sField = Text();
        return sField.empty() ? iDefault : TextToInt(sField);
    }
    double Real(double dDefault = 0.0) {
        const std::string_view sField = Text();
        return sField.empty() ? dDefault : TextToReal(sField);
    }
    std::string_view Text() { return IsAtEnd() ? std::string_view() : m_rCard.aFIELDS[m_iNext++]; }

    /// Reads nFields fields that nobody needs.
    void Skip(std::size_t nFields) {
        for (; nFields > 0 && !IsAtEnd(); --nFields) ++m_iNext;
    }

    /// The next field without taking it, empty past the end.
    std::string_view Peek() const { return IsAtEnd() ? std::string_view() : m_rCard.aFIELDS[m_iNext]; }

    bool IsAtEnd() const { return m_iNext >= m_rCard.aFIELDS.size(); }

    /// Number of fields on the card.
    std::size_t GetCount() const { return m_rCard.aFIELDS.size(); }

    /// Number of fields taken so far, which is the position of the next one.
    std::size_t GetPosition() const { return m_iNext; }

  private:
    const T_DATA_D& m_rCard;
    std::size_t m_iNext = 0;
};
