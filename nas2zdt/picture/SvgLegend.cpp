// The legend beside the model.

#include "nas2zdt/picture/Svg.h"

#include <algorithm>

namespace {

constexpr double LEFT = 980, NAMES = 1014, COUNTS = 1168, LOST = 1262; // columns

std::string Number(double dValue) {
    char aText[LONGEST_REAL];
    return {aText, PutReal(aText, dValue)};
}

/// What a kind looks like. Links are lines, and marks where they have no length.
void WriteSample(CFile& rFile, E_KIND iKind, double dY, bool bMarks) {
    constexpr double MIDDLE = LEFT + 12;
    const char* sClass = LOOKS[iKind].sCLASS;
    if (IsFaceKind(iKind)) {
        WriteLine(rFile, "<path class=\"%s3\" d=\"M980 %gh22v12h-22z\"/>\n", sClass, dY - 10);
    } else if (iKind == KIND_NODE) {
        WriteLine(rFile, "<path class=\"%s\" d=\"M992 %gh2.5v2.5h-2.5z\"/>\n", sClass, dY - 5);
    } else if (iKind < KIND_SPRING) {
        WriteLine(rFile, "<path class=\"%s\" d=\"M980 %gh24\"/>\n", sClass, dY - 4);
        if (bMarks) WriteMark(rFile, {iKind, MIDDLE, dY - 4, {}, 0.0});
    } else if (iKind == KIND_MASS || iKind == KIND_SPRING || iKind == KIND_FIXED || iKind == KIND_SUPPORT) {
        WriteMark(rFile, {iKind, MIDDLE, iKind == KIND_MASS ? dY - 4 : dY - 10, {}, 0.0});
    } else if (iKind == KIND_REFERENCE) {
        WriteMark(rFile, {iKind, MIDDLE, dY, {0, 1, 0}, 0.0});
    } else {
        WriteArrow(rFile, {iKind, LEFT + 24, dY - 4, {1, 0, 0}, 0.0}, 24.0);
    }
}

/// The size of the model, and how the picture differs from it.
std::vector<std::string> Notes(const T_SCEN_D& rScene, const T_DRAW_D& rDrawing) {
    std::vector<std::string> aNotes;
    const auto& rPoints = rDrawing.aVISIBLE;
    for (std::size_t i = 0; i < 3 && !rPoints.empty(); ++i) {
        const auto [pLeast, pMost] = std::minmax_element(
            rPoints.begin(), rPoints.end(), [i](const T_VECTOR& a, const T_VECTOR& b) { return a[i] < b[i]; });
        aNotes.push_back(std::string(1, "XYZ"[i]) + " " + Number((*pLeast)[i]) + " to " + Number((*pMost)[i]));
    }
    const auto Count = [&](const char* sText, std::size_t n) {
        if (n > 0) aNotes.push_back(sText + std::to_string(n));
    };
    Count("Load cases, drawn together: ", rScene.nCASES);
    Count("Elements and equations that have no line in the target file: ", rScene.nFORMLESS);
    Count("Not drawn, coordinates are no numbers: ", rDrawing.nNOWHERE);
    Count("Free nodes outside of the picture: ", rDrawing.nOUTSIDE);
    Count("Not drawn, pressures on solids that name no face: ", rScene.nFACELESS);
    if (rScene.aCOUNTS[KIND_SOLID].nPRESENT > 0) aNotes.emplace_back("Of solids the outer faces are drawn.");
    if (rDrawing.dJOINED > 0.0) {
        aNotes.push_back("Simplified: nodes less than " + Number(Tenth(rDrawing.dJOINED)) +
                         " pixels apart are drawn as one, without edges of elements.");
    }
    if (rDrawing.bTHINNED) {
        aNotes.push_back("Of more than " + std::to_string(MOST_MARKS) +
                         " marks of a kind some are drawn, the largest of a neighbourhood.");
    }
    return aNotes;
}

} // namespace

void WriteLegend(CFile& rFile, const T_SCEN_D& rScene, const T_DRAW_D& rDrawing) {
    double dY = BOX_TOP + 12;
    rFile.Write("<g id=\"legend\">\n");
    WriteText(rFile, COUNTS, dY, "count note", "count");
    WriteText(rFile, LOST, dY, "count note", "without nodes");
    dY += 22;
    WriteText(rFile, NAMES, dY, "head", "nodes");
    WriteText(rFile, COUNTS, dY, "count", std::to_string(rScene.aIDS.size()));
    for (std::uint8_t i = 0; i < KINDS; ++i) {
        const E_KIND iKind = static_cast<E_KIND>(i);
        const T_CONT_D& rCount = rScene.aCOUNTS[i];
        const bool bCounted = rCount.nPRESENT > 0 || rCount.nWITHOUTNODES > 0; // references aren't
        const bool bMarks = rDrawing.HasMark(iKind);
        if (!bCounted && !bMarks) continue;
        dY += 22;
        WriteSample(rFile, iKind, dY, bMarks);
        WriteText(rFile, NAMES, dY, "name", LOOKS[i].sNAME);
        if (bCounted) WriteText(rFile, COUNTS, dY, "count", std::to_string(rCount.nPRESENT));
        if (rCount.nWITHOUTNODES > 0) WriteText(rFile, LOST, dY, "lost", std::to_string(rCount.nWITHOUTNODES));
    }
    dY += 14;
    for (std::string& rNote : Notes(rScene, rDrawing)) {
        constexpr std::size_t LONGEST = 46;
        while (!rNote.empty()) {
            const std::size_t nLine = rNote.size() > LONGEST ? rNote.rfind(' ', LONGEST) : rNote.size();
            dY += 16;
            WriteText(rFile, LEFT, dY, "note", rNote.substr(0, nLine));
            rNote.erase(0, nLine + 1);
        }
        dY += 4;
    }
    rFile.Write("</g>\n");
}
