// Formats a check as tables and as JSON.

#include "nas2zdt/check/CheckOutput.h"

#include "nas2zdt/text/Json.h"
#include "platform/PlainText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr std::size_t NUMBER_WIDTH = 15;

std::string Format(const char* sFormat, double dValue) {
    std::array<char, 40> aText;
    std::snprintf(aText.data(), aText.size(), sFormat, dValue);
    return aText.data();
}

std::string Left(std::string sText, std::size_t nWidth) {
    if (sText.size() < nWidth) sText.resize(nWidth, ' ');
    return sText;
}
std::string Right(const std::string& sText, std::size_t nWidth) {
    return std::string(nWidth - std::min(sText.size(), nWidth), ' ') + sText;
}

std::string PlaceText(const T_ORIGINLINE_D& rOrigin, const T_CHECK_D& rCheck) {
    return rCheck.aFILES[rOrigin.iFILE] + ":" + std::to_string(rOrigin.iLINE);
}

/// "CQUAD4 2 (deck.bdf:13): GRID 99 doesn't exist".
std::string FindingLine(const T_FINDING_D& rFinding, const T_PLACED_D& rPlace, const T_CHECK_D& rCheck) {
    std::string sText = rFinding.sKEYWORD;
    if (rPlace.iID != 0) sText += (sText.empty() ? "" : " ") + std::to_string(rPlace.iID);
    if (rPlace.origin.iLINE > 0) sText += (sText.empty() ? "(" : " (") + PlaceText(rPlace.origin, rCheck) + ")";
    return (sText.empty() ? "" : sText + ": ") + rPlace.sTEXT;
}

std::string FindingsTable(const T_CHECK_D& rCheck, E_SEVERITY eSeverity, const PAINT& rPaint) {
    std::string sText;
    for (const T_FINDING_D& rFinding : rCheck.findings.GetAll()) {
        if (rFinding.pKIND->eSEVERITY != eSeverity) continue;
        for (const T_PLACED_D& rPlace : rFinding.aPLACES) {
            sText += "  " + rPaint(PlainText(FindingLine(rFinding, rPlace, rCheck))) + "\n";
        }
        const std::uint64_t nMore = rFinding.nCOUNT - rFinding.aPLACES.size();
        if (nMore == 0) continue;
        const std::string sKeyword = rFinding.sKEYWORD.empty() ? "" : PlainText(rFinding.sKEYWORD) + ": ";
        sText += "  " + sKeyword + std::to_string(nMore) + " more: " + rFinding.pKIND->sMEANING + "\n";
    }
    return sText;
}

std::string ShapesTable(const T_CHECK_D& rCheck, const PAINT& rPaint) {
    constexpr std::size_t NAME_WIDTH = 30;
    if (rCheck.aQUALITIES.empty()) return {};
    std::string sText = "\nShapes of elements:\n\n  " + Left("", NAME_WIDTH);
    for (const char* sTitle : {"elements", "worst", "element", "limit", "past it"}) sText += Right(sTitle, 12);
    sText += "\n";
    for (const T_QUALITY_D& r : rCheck.aQUALITIES) {
        const std::string sPast = Right(std::to_string(r.nPAST), 12);
        sText += "  " + Left(r.sNAME, NAME_WIDTH) + Right(std::to_string(r.nMEASURED), 12) +
                 Right(Format("%.4g", r.dWORST), 12) + Right(std::to_string(r.iWORST), 12) +
                 Right(Format("%g", r.dLIMIT), 12) + (r.nPAST > 0 ? rPaint(sPast) : sPast) + "\n";
    }
    return sText;
}

/// "-" for what there isn't.
std::string ValueText(const T_REVIEWROW_D& rRow, double dValue) {
    return std::isnan(dValue) ? "-" : Format(rRow.bCOUNT ? "%.0f" : "%.7g", dValue);
}

/// A difference of counts of the same size is one of ids.
std::string DifferenceText(const T_REVIEWROW_D& rRow) {
    if (!rRow.bDIFFERS) return "-";
    const double dDifference = rRow.dFILE - rRow.dDECK;
    if (std::isnan(dDifference)) return "differs";
    return dDifference == 0.0 ? "other ids" : Format(rRow.bCOUNT ? "%+.0f" : "%+.4g", dDifference);
}

/// Numbers the explanations of differences as they come.
class CFootnotes {
  public:
    /// " [1] [2]".
    std::string Mark(const std::vector<std::string>& aWhy) {
        std::string sMarks;
        for (const std::string& sWhy : aWhy) {
            auto pFound = std::find(m_aNotes.begin(), m_aNotes.end(), sWhy);
            if (pFound == m_aNotes.end()) pFound = m_aNotes.insert(pFound, sWhy);
            sMarks += " [" + std::to_string(pFound - m_aNotes.begin() + 1) + "]";
        }
        return sMarks;
    }
    std::string Text() const {
        std::string sText = m_aNotes.empty() ? "" : "\nWhere they come from, as the account tells it:\n\n";
        for (std::size_t i = 0; i < m_aNotes.size(); ++i) {
            sText += "  [" + std::to_string(i + 1) + "] " + PlainText(m_aNotes[i]) + "\n";
        }
        return sText;
    }

  private:
    std::vector<std::string> m_aNotes;
};

std::string TotalsTable(const T_CHECK_D& rCheck, const PAINT& rPaint) {
    if (rCheck.aREVIEW.empty()) return {};
    constexpr std::size_t NAME_WIDTH = 34;
    constexpr const char* UNEXPLAINED = " nothing in the account explains it: a fault of this program";
    std::string sText = "\nTotals in units of the deck:\n\n" + Left("", NAME_WIDTH);
    for (const char* sTitle : {"deck", "file", "difference"}) sText += Right(sTitle, NUMBER_WIDTH);
    sText += "\n";
    std::string sGroup;
    CFootnotes notes;
    for (const T_REVIEWROW_D& r : rCheck.aREVIEW) {
        if (r.sGROUP != sGroup) sText += (sGroup.empty() ? "  " : "\n  ") + r.sGROUP + "\n";
        sGroup = r.sGROUP;
        std::string sDifference = Right(DifferenceText(r), NUMBER_WIDTH);
        if (r.bDIFFERS) sDifference = rPaint(sDifference) + (r.aWHY.empty() ? rPaint(UNEXPLAINED) : notes.Mark(r.aWHY));
        sText += "    " + Left(r.sNAME, NAME_WIDTH - 4) + Right(ValueText(r, r.dDECK), NUMBER_WIDTH) +
                 Right(ValueText(r, r.dFILE), NUMBER_WIDTH) + sDifference + "\n";
    }
    return sText + notes.Text();
}

std::string PlaceObject(const T_PLACED_D& rPlace, const T_CHECK_D& rCheck) {
    const bool bPlace = rPlace.origin.iLINE > 0;
    return "{" + JsonMember("id", rPlace.iID == 0 ? "null" : std::to_string(rPlace.iID)) + "," +
           JsonMember("file", bPlace ? JsonText(rCheck.aFILES[rPlace.origin.iFILE]) : "null") + "," +
           JsonMember("line", bPlace ? std::to_string(rPlace.origin.iLINE) : "null") + "," +
           JsonMember("text", JsonText(rPlace.sTEXT)) + "}";
}

std::string FindingObject(const T_FINDING_D& r, const T_CHECK_D& rCheck) {
    return "{" + JsonMember("code", JsonText(r.pKIND->sCODE)) + "," +
           JsonMember("severity", JsonText(r.pKIND->eSEVERITY == SEVERITY_ERROR ? "error" : "warning")) + "," +
           JsonMember("keyword", JsonText(r.sKEYWORD)) + "," + JsonMember("count", r.nCOUNT) + "," +
           JsonMember("places",
                      JsonArray(r.aPLACES, [&](const T_PLACED_D& rPlace) { return PlaceObject(rPlace, rCheck); })) +
           "}";
}

std::string QualityObject(const T_QUALITY_D& r) {
    return "{" + JsonMember("name", JsonText(r.sNAME)) + "," + JsonMember("elements", r.nMEASURED) + "," +
           JsonMember("worst", JsonNumber(r.dWORST)) + "," + JsonMember("element", std::to_string(r.iWORST)) + "," +
           JsonMember("limit", JsonNumber(r.dLIMIT)) + "," + JsonMember("past", r.nPAST) + "}";
}

std::string RowObject(const T_REVIEWROW_D& r) {
    return "{" + JsonMember("group", JsonText(r.sGROUP)) + "," + JsonMember("name", JsonText(r.sNAME)) + "," +
           JsonMember("deck", JsonNumber(r.dDECK)) + "," + JsonMember("file", JsonNumber(r.dFILE)) + "," +
           JsonMember("differs", r.bDIFFERS ? "true" : "false") + "," +
           JsonMember("why", JsonArray(r.aWHY, &JsonText)) + "}";
}

} // namespace

T_DIFFERENCES_D CountDifferences(const T_CHECK_D& rCheck) {
    T_DIFFERENCES_D count;
    for (const T_REVIEWROW_D& rRow : rCheck.aREVIEW) {
        if (!rRow.bDIFFERS) continue;
        ++count.nALL;
        if (rRow.aWHY.empty()) ++count.nUNEXPLAINED;
    }
    return count;
}

std::string CheckTable(const std::string& sDeck, const T_CHECK_D& rCheck, const PAINT& rPaint) {
    std::string sText = "\nCheck of " + PlainText(sDeck) + "\n";
    const std::string sErrors = FindingsTable(rCheck, SEVERITY_ERROR, rPaint);
    const std::string sWarnings = FindingsTable(rCheck, SEVERITY_WARNING, [](const std::string& s) { return s; });
    if (!sErrors.empty()) sText += "\nErrors:\n\n" + sErrors;
    if (!sWarnings.empty()) sText += "\nWarnings:\n\n" + sWarnings;
    if (sErrors.empty() && sWarnings.empty()) sText += "\nNothing is wrong with the deck.\n";
    return sText + ShapesTable(rCheck, rPaint) + TotalsTable(rCheck, rPaint);
}

std::string CheckJson(const T_CHECK_D& rCheck) {
    const auto finding = [&](const T_FINDING_D& r) { return FindingObject(r, rCheck); };
    return "{" + JsonMember("errors", rCheck.findings.GetCount(SEVERITY_ERROR)) + "," +
           JsonMember("warnings", rCheck.findings.GetCount(SEVERITY_WARNING)) + "," +
           JsonMember("findings", JsonArray(rCheck.findings.GetAll(), finding)) + "," +
           JsonMember("shapes", JsonArray(rCheck.aQUALITIES, &QualityObject)) + "," +
           JsonMember("totals", JsonArray(rCheck.aREVIEW, &RowObject)) + "}";
}
