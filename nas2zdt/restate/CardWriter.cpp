// Lays out cards.

#include "nas2zdt/restate/CardWriter.h"

#include "nas2zdt/restate/FieldText.h"
#include "reader/Card.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

constexpr std::size_t FIELD_WIDTH = 8;
constexpr std::size_t LINE_FIELDS = 8;

/// Shortens real fields of a free field line that is too long, the longest first: such a line loses digits at most.
void Fit(std::array<std::string, LINE_FIELDS>& rTexts, std::size_t nFields, std::size_t nMost) {
    constexpr std::size_t SHORTEST = 16;
    const auto length = [&] {
        std::size_t nLength = nFields;
        for (std::size_t i = 0; i < nFields; ++i) nLength += rTexts[i].size();
        return nLength;
    };
    for (std::size_t nWidth = 23; length() > nMost && nWidth >= SHORTEST; --nWidth) {
        for (std::size_t i = 0; i < nFields; ++i) {
            double dValue = 0.0;
            if (rTexts[i].size() > nWidth && IsReal(rTexts[i]) && ReadReal(rTexts[i], dValue)) {
                rTexts[i] = RealText(dValue, nWidth);
            }
        }
    }
}

} // namespace

CFieldValue::CFieldValue(double dValue) : m_sText(RealText(dValue)) {}
CFieldValue::CFieldValue(std::string_view sText) : m_sText(PlainField(sText)) {}

void CCardWriter::Write(std::string_view sKeyword, std::span<const CFieldValue> aFields) {
    while (!aFields.empty() && aFields.back().GetText().empty()) aFields = aFields.first(aFields.size() - 1);
    const auto fits = [](const CFieldValue& rField) { return rField.GetText().size() <= FIELD_WIDTH; };
    const bool bSmall = sKeyword.size() <= FIELD_WIDTH && std::all_of(aFields.begin(), aFields.end(), fits);
    m_sText.clear();
    std::int32_t nLines = 0;
    std::size_t i = 0;
    do {
        const std::size_t nHere = std::min(aFields.size() - i, LINE_FIELDS);
        if (bSmall) {
            m_sText += nLines == 0 ? sKeyword : "+";
            std::size_t nColumns = nLines == 0 ? sKeyword.size() : 1;
            for (std::size_t k = 0; k < nHere; ++k) {
                m_sText.append((k + 1) * FIELD_WIDTH - nColumns, ' ');
                m_sText += aFields[i + k].GetText();
                nColumns = (k + 1) * FIELD_WIDTH + aFields[i + k].GetText().size();
            }
        } else {
            std::array<std::string, LINE_FIELDS> aTexts;
            for (std::size_t k = 0; k < nHere; ++k) aTexts[k] = aFields[i + k].GetText();
            const std::string_view sFirst = nLines == 0 ? sKeyword : std::string_view();
            Fit(aTexts, nHere, static_cast<std::size_t>(LONGEST_BULK_LINE) - sFirst.size());
            m_sText += sFirst;
            const std::size_t nFields = i + nHere < aFields.size() || nHere == 0 ? LINE_FIELDS : nHere;
            for (std::size_t k = 0; k < nFields; ++k) {
                m_sText += ',';
                m_sText += aTexts[k];
            }
        }
        m_sText += '\n';
        ++nLines;
        i += nHere;
    } while (i < aFields.size());
    AddLines(nLines, false);
    m_rFile.Write(m_sText);
}

void CCardWriter::Copy(std::string_view sLines, std::int32_t nLines) {
    AddLines(nLines, true);
    m_rFile.Write(sLines);
}

/// One by one, lines come from one line each; else all of them from one.
void CCardWriter::AddLines(std::int32_t nLines, bool bOneByOne) {
    if (nLines > std::numeric_limits<std::int32_t>::max() - 1 - m_nLines) {
        throw CFileException(std::string(), "the restated deck has too many lines");
    }
    for (std::int32_t i = 0; i < (bOneByOne ? 1 : nLines); ++i) {
        m_rLines.AddLine(m_nLines + 1 + i, m_origin.iFILE, m_origin.iLINE);
    }
    m_nLines += nLines;
}
