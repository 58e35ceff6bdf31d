// Reads case control, as far as it selects sets.

#include "nas2zdt/text/CaseRequests.h"

#include "nas2zdt/text/Words.h"
#include "reader/FieldParser.h"

#include <algorithm>
#include <string>

namespace {

std::string_view WithoutBlanksInFront(std::string_view sText) {
    return sText.substr(std::min(sText.find_first_not_of(" \t"), sText.size()));
}

std::string_view TakeLetters(std::string_view& rText) {
    const auto isLetter = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto nLetters =
        static_cast<std::size_t>(std::find_if_not(rText.begin(), rText.end(), isLetter) - rText.begin());
    const std::string_view sLetters = rText.substr(0, nLetters);
    rText.remove_prefix(nLetters);
    return sLetters;
}

/// Requests that begin so.
struct T_REQUEST_D {
    std::string_view sWORD;
    bool bWHOLE; // whether the word ends there
    std::int32_t T_CASE_D::*pASKED;
};
constexpr T_REQUEST_D REQUESTS[] = {
    {"SPC", true, &T_CASE_D::iSPC},      {"MPC", true, &T_CASE_D::iMPC},           {"LOAD", true, &T_CASE_D::iLOAD},
    {"METH", false, &T_CASE_D::iMETHOD}, {"TEMP", false, &T_CASE_D::iTEMPERATURE},
};

} // namespace

T_CASELINE_D ReadCaseLine(std::string_view sLine) {
    std::string sUpper(sLine.substr(0, sLine.find('$')));
    std::transform(sUpper.begin(), sUpper.end(), sUpper.begin(), &ToUpper);
    std::string_view sText = WithoutBlanksInFront(sUpper);
    const std::string_view sWord = TakeLetters(sText);
    T_CASELINE_D line;
    if (sWord.starts_with("SUBC") || sWord == "SYM" || sWord.starts_with("SYMC") || sWord.starts_with("REPC")) {
        line.bSUBCASE = true;
        line.iVALUE = TextToInt(WithoutBlanksInFront(sText));
        return line;
    }
    const std::size_t iEquals = sText.find('=');
    if (iEquals == std::string_view::npos) return line;
    line.iVALUE = TextToInt(WithoutBlanksInFront(sText.substr(iEquals + 1)));
    const std::string_view sOptions = sText.substr(0, iEquals);
    const auto hasOption = [&](std::string_view sOption) { return sOptions.find(sOption) != std::string_view::npos; };
    if (hasOption("INIT") || hasOption("MATE")) return line; // initial temperatures load nothing
    for (const T_REQUEST_D& rRequest : REQUESTS) {
        if (rRequest.bWHOLE ? sWord == rRequest.sWORD : sWord.starts_with(rRequest.sWORD))
            line.pASKED = rRequest.pASKED;
    }
    line.bINDIRECT = sWord.starts_with("DLOA") || sWord.starts_with("LOADS") || sWord.starts_with("CLOA") ||
                     sWord.starts_with("NONL");
    return line;
}

void CCaseRequests::Add(const T_CASELINE_D& rLine) {
    if (rLine.bSUBCASE) {
        m_aCases.push_back(m_above);
        m_aCases.back().iID = rLine.iVALUE;
    } else if (rLine.pASKED) {
        T_CASE_D& rCase = m_aCases.empty() ? m_above : m_aCases.back();
        rCase.*rLine.pASKED = rLine.iVALUE;
    }
    m_bIndirect = m_bIndirect || rLine.bINDIRECT;
}
