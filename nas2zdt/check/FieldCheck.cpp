#include "nas2zdt/check/FieldCheck.h"

#include "nas2zdt/restate/FieldText.h"

#include <algorithm>

namespace {

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string_view WithoutSign(std::string_view sField) {
    return sField.starts_with('+') || sField.starts_with('-') ? sField.substr(1) : sField;
}

bool IsWhole(std::string_view sField) {
    sField = WithoutSign(sField);
    return !sField.empty() && std::all_of(sField.begin(), sField.end(), &IsDigit);
}

/// Digits with a point among them, few enough to be finite for sure: what nearly all real numbers are.
bool IsPlainReal(std::string_view sField) {
    constexpr std::size_t MOST = 100;
    std::size_t nDigits = 0, nPoints = 0;
    for (const char c : WithoutSign(sField)) {
        nDigits += IsDigit(c);
        nPoints += c == '.';
    }
    return nPoints == 1 && nDigits > 0 && nDigits < MOST && nDigits + 1 == WithoutSign(sField).size();
}

E_VERDICT JudgeInteger(std::string_view sField, const T_FIELDTYPE_D& rType, std::int32_t& rValue) {
    if (ReadInteger(sField, rValue)) {
        return rValue >= rType.iLOWEST && rValue <= rType.iHIGHEST ? VERDICT_FINE : VERDICT_ID;
    }
    if (IsWhole(sField)) return VERDICT_ID;
    return IsReal(sField) ? VERDICT_REAL : VERDICT_TEXT;
}

E_VERDICT JudgeReal(std::string_view sField, const T_FIELDTYPE_D& rType) {
    if (rType.eVALUE == VALUE_ANY && IsPlainReal(sField)) return VERDICT_FINE;
    if (!IsReal(sField)) return IsWhole(sField) ? VERDICT_INTEGER : VERDICT_TEXT;
    double dValue = 0.0;
    if (!ReadReal(sField, dValue)) return VERDICT_LARGE;
    if (rType.eVALUE != VALUE_ANY && dValue < 0.0) return VERDICT_NEGATIVE;
    return rType.eVALUE == VALUE_POSITIVE && dValue == 0.0 ? VERDICT_ZERO : VERDICT_FINE;
}

E_VERDICT JudgeComponents(std::string_view sField) {
    unsigned nSeen = 0;
    for (const char c : sField) {
        if (c < '0' || c > '6' || (nSeen & (1u << (c - '0')))) return VERDICT_COMPONENTS;
        nSeen |= 1u << (c - '0');
    }
    return VERDICT_FINE;
}

} // namespace

E_VERDICT JudgeField(std::string_view sField, const T_FIELD_D& rField, std::int32_t& rID) {
    rID = 0;
    if (sField.empty()) return rField.bNEEDED ? VERDICT_BLANK : VERDICT_FINE;
    const T_FIELDTYPE_D& rType = *rField.pTYPE;
    switch (rType.eFORM) {
    case AS_ANY:
        return VERDICT_FINE;
    case AS_WORD:
        return IsLetter(sField[0]) ? VERDICT_FINE : VERDICT_TEXT;
    case AS_MIXED:
        return IsLetter(sField[0]) ? VERDICT_FINE : JudgeReal(sField, rType);
    case AS_REAL:
        return JudgeReal(sField, rType);
    case AS_COMPONENTS:
        return JudgeComponents(sField);
    case AS_COMPONENT:
        return sField.size() == 1 ? JudgeComponents(sField) : VERDICT_COMPONENTS;
    case AS_NUMBER:
        if (!IsWhole(sField)) return JudgeReal(sField, rType);
        break;
    case AS_INTEGER:
        break;
    }
    std::int32_t iValue = 0;
    const E_VERDICT eVerdict = JudgeInteger(sField, rType, iValue);
    if (eVerdict == VERDICT_FINE && iValue > 0) rID = iValue;
    return eVerdict;
}

std::string TellVerdict(E_VERDICT eVerdict, const T_FIELD_D& rField, std::string_view sField) {
    const std::string sName(rField.sNAME), sText(sField);
    switch (eVerdict) {
    case VERDICT_BLANK:
        return sName + " is blank";
    case VERDICT_TEXT:
        return sName + (rField.pTYPE->eFORM == AS_WORD ? " isn't a word: " : " isn't a number: ") + sText;
    case VERDICT_REAL:
        return sName + " is the real number " + sText + " where an integer belongs";
    case VERDICT_INTEGER:
        return sName + " is the integer " + sText + " where a real number belongs";
    case VERDICT_LARGE:
        return sName + " is too large: " + sText;
    case VERDICT_ID:
        return sName + (WithoutSign(sField).size() > 8 ? " has more than eight digits: " : " is out of its range: ") +
               sText;
    case VERDICT_COMPONENTS:
        return sName + " isn't made of components 1 to 6: " + sText;
    case VERDICT_ZERO:
        return sName + " is 0";
    case VERDICT_NEGATIVE:
        return sName + " is negative: " + sText;
    case VERDICT_FINE:
    case VERDICT_COUNT:
        break;
    }
    return {};
}

bool FitsFormat(const CCardFields& rCard, const T_CARDFORMAT_D& rFormat, std::size_t iFirst,
                const std::function<void(E_REFERRED, std::int32_t)>& take) {
    bool bFits = true;
    for (std::size_t i = iFirst; i < rCard.GetCount(); ++i) {
        const T_FIELD_D* pField = rFormat.Find(i);
        if (!pField) break;
        std::int32_t iID = 0;
        bFits = JudgeField(rCard.Text(i), *pField, iID) == VERDICT_FINE && bFits;
        if (iID != 0 && pField->pTYPE->eTARGET != TARGET_NOTHING) take(pField->pTYPE->eTARGET, iID);
    }
    return bFits;
}
