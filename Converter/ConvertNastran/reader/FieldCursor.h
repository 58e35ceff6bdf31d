#pragma once
// Reads the fields of a card in order.

#include "reader/Card.h"
#include "reader/FieldParser.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

/// Each read takes the next field and moves on; past the end of the card a field is absent and the place stays. Absent
/// and blank fields take the same default. In an observed run the card remembers which fields were skipped, which
/// weren't the numbers that they were taken for, and how far it was read: a handler skips by name what it doesn't keep,
/// and stops where it reads no further. One cursor a card.
class CFieldCursor {
  public:
    explicit CFieldCursor(const T_DATA_D& rCard) : m_rCard(rCard) {}
    ~CFieldCursor() {
        if (m_rCard.pUSE) m_rCard.pUSE->nREACHED = m_iNext;
    }
    CFieldCursor(const CFieldCursor&) = delete;
    CFieldCursor& operator=(const CFieldCursor&) = delete;

    std::int32_t Int(std::int32_t iDefault = 0) {
        const std::string_view sField = Next();
        if (sField.empty()) return iDefault;
        bool bWhole = true;
        const std::int32_t iValue = TextToInt(sField, bWhole);
        if (!bWhole && m_rCard.pUSE) NoteMisread(sField);
        return iValue;
    }
    double Real(double dDefault = 0.0) {
        const std::string_view sField = Next();
        if (sField.empty()) return dDefault;
        bool bWhole = true;
        const double dValue = TextToReal(sField, bWhole);
        if (!bWhole && m_rCard.pUSE) NoteMisread(sField);
        return dValue;
    }
    std::string_view Text() { return FieldToText(Next()); }

    /// Passes over as many fields as there are names: those that the format gives them, "-" for a place that it leaves
    /// blank, BY_PLACE where the name follows from the fields before. They are remembered unless all are blank or zero.
    template <class... NAMES>
    void Skip(NAMES... names) {
        if (IsAtEnd()) return;
        const std::size_t iFirst = m_iNext;
        m_iNext = std::min(m_iNext + sizeof...(names), m_rCard.aFIELDS.size());
        if (!m_rCard.pUSE) return;
        bool bFilled = false;
        for (std::size_t i = iFirst; i < m_iNext; ++i) bFilled |= HoldsValue(m_rCard.aFIELDS[i]);
        if (bFilled) NoteSkipped(iFirst, {names...});
    }
    static constexpr const char* BY_PLACE = nullptr;

    /// Takes the next field if it is sWord, which isn't empty.
    bool TakeWord(std::string_view sWord) {
        if (Peek() != sWord) return false;
        ++m_iNext;
        return true;
    }

    /// The next field without taking it, empty past the end.
    std::string_view Peek() const { return IsAtEnd() ? std::string_view() : m_rCard.aFIELDS[m_iNext]; }

    bool IsAtEnd() const { return m_iNext >= m_rCard.aFIELDS.size(); }

  private:
    void NoteMisread(std::string_view sField);
    void NoteSkipped(std::size_t iFirst, std::initializer_list<const char*> aNames);

    std::string_view Next() { return IsAtEnd() ? std::string_view() : m_rCard.aFIELDS[m_iNext++]; }

    const T_DATA_D& m_rCard;
    std::size_t m_iNext = 0;
};
