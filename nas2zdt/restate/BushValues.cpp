// Reads and lays out the values of a PBUSH.

#include "nas2zdt/restate/BushValues.h"

#include "nas2zdt/restate/FieldText.h"

#include <algorithm>

namespace {

constexpr std::size_t LINE_FIELDS = 8;
constexpr std::string_view READ_WORDS[] = {"K", "B"}; // by the converter

bool IsWord(std::string_view sField) {
    return !sField.empty() && ((sField[0] >= 'A' && sField[0] <= 'Z') || (sField[0] >= 'a' && sField[0] <= 'z'));
}

} // namespace

std::vector<T_BUSHLINE_D> ReadBushLines(const CCardFields& rCard) {
    std::vector<T_BUSHLINE_D> aLines;
    for (std::size_t iLine = 0; iLine < rCard.GetCount(); iLine += LINE_FIELDS) {
        const std::size_t iWord = iLine > 0 && IsWord(rCard.Text(iLine)) ? iLine : iLine + 1;
        if (!IsWord(rCard.Text(iWord))) continue;
        T_BUSHLINE_D& rLine = aLines.emplace_back();
        rLine.sWORD = PlainField(rCard.Text(iWord));
        for (std::size_t i = 0; i < rLine.sVALUES.size(); ++i) rLine.sVALUES[i] = PlainField(rCard.Text(iWord + 1 + i));
    }
    return aLines;
}

const T_BUSHLINE_D* FindBushLine(const std::vector<T_BUSHLINE_D>& rLines, std::string_view sWord) {
    const auto pFound =
        std::find_if(rLines.rbegin(), rLines.rend(), [&](const T_BUSHLINE_D& rLine) { return rLine.sWORD == sWord; });
    return pFound == rLines.rend() ? nullptr : &*pFound;
}

std::vector<CFieldValue> BushFields(std::int32_t iPID, const std::vector<T_BUSHLINE_D>& rLines) {
    std::vector<CFieldValue> aFields = {iPID};
    const auto add = [&](const T_BUSHLINE_D& rLine) {
        aFields.emplace_back(std::string_view(rLine.sWORD));
        for (const std::string& rValue : rLine.sVALUES) aFields.emplace_back(std::string_view(rValue));
    };
    const auto isRead = [](const T_BUSHLINE_D& rLine) {
        return std::find(std::begin(READ_WORDS), std::end(READ_WORDS), rLine.sWORD) != std::end(READ_WORDS);
    };
    for (const std::string_view sWord : READ_WORDS) {
        if (const T_BUSHLINE_D* pLine = FindBushLine(rLines, sWord)) add(*pLine);
    }
    for (const T_BUSHLINE_D& rLine : rLines) {
        if (isRead(rLine)) continue;
        if (aFields.size() > 1) aFields.resize((aFields.size() + LINE_FIELDS - 1) / LINE_FIELDS * LINE_FIELDS + 1);
        add(rLine);
    }
    return aFields;
}
