// The legend beside the model.

#include "nas2zdt/picture/Svg.h"

#include <algorithm>

namespace {

constexpr double LEFT = 980, NAMES = 1014, COUNTS = 1168, LOST = 1262; // columns

/// A face of a paint.
void WriteBox(CFile& rFile, std::uint8_t iPaint, double dY) {
    WriteLine(rFile, "<path class=\"p%ds3\" d=\"M980 %gh22v12h-22z\"/>\n", std::int32_t{iPaint}, dY - 10);
}

/// The lines of kinds are told by their form where colours tell something else.
std::string NeutralClass(E_COLOUR_BY eBy) {
    return eBy == BY_KIND ? "" : " p" + std::to_string(PAINT_NEUTRAL);
}

/// Lines of at most nLongest characters, cut at blanks where there are any.
std::vector<std::string> Wrap(std::string sText, std::size_t nLongest) {
    std::vector<std::string> aLines;
    while (sText.size() > nLongest) {
        const std::size_t iBlank = sText.rfind(' ', nLongest);
        const bool bBlank = iBlank != std::string::npos && iBlank > 0;
        aLines.push_back(sText.substr(0, bBlank ? iBlank : nLongest));
        sText.erase(0, bBlank ? iBlank + 1 : nLongest);
    }
    if (!sText.empty()) aLines.push_back(std::move(sText));
    return aLines;
}

/// What a kind looks like. Links are lines, and marks where they have no length.
void WriteSample(CFile& rFile, E_KIND iKind, double dY, bool bMarks, E_COLOUR_BY eBy) {
    constexpr double MIDDLE = LEFT + 12;
    const char* sClass = LOOKS[iKind].sCLASS;
    if (IsFaceKind(iKind)) {
        if (eBy != BY_KIND) return WriteBox(rFile, PAINT_NEUTRAL, dY);
        WriteLine(rFile, "<path class=\"%s3\" d=\"M980 %gh22v12h-22z\"/>\n", sClass, dY - 10);
    } else if (iKind == KIND_NODE) {
        WriteLine(rFile, "<path class=\"%s\" d=\"M992 %gh2.5v2.5h-2.5z\"/>\n", sClass, dY - 5);
    } else if (iKind < KIND_SPRING) {
        WriteLine(rFile, "<path class=\"%s%s\" d=\"M980 %gh24\"/>\n", sClass, NeutralClass(eBy), dY - 4);
        if (bMarks) WriteMark(rFile, {iKind, MIDDLE, dY - 4, {}, 0.0});
    } else if (iKind == KIND_MASS || iKind == KIND_SPRING || iKind == KIND_FIXED || iKind == KIND_SUPPORT ||
               iKind == KIND_LOST) {
        const bool bRound = iKind == KIND_MASS || iKind == KIND_LOST;
        WriteMark(rFile, {iKind, MIDDLE, bRound ? dY - 4 : dY - 10, {}, 0.0});
    } else if (iKind == KIND_REFERENCE) {
        WriteMark(rFile, {iKind, MIDDLE, dY, {0, 1, 0}, 0.0});
    } else {
        WriteArrow(rFile, {iKind, LEFT + 24, dY - 4, {1, 0, 0}, 0.0}, 24.0);
    }
}

/// The size of the model, and how the picture differs from it.
std::vector<std::string> Notes(const T_SCEN_D& rScene, const T_COLOURS_D& rColours, const T_DRAW_D& rDrawing) {
    std::vector<std::string> aNotes;
    const auto& rPoints = rDrawing.aVISIBLE;
    for (std::size_t i = 0; i < 3 && !rPoints.empty(); ++i) {
        const auto [pLeast, pMost] = std::minmax_element(
            rPoints.begin(), rPoints.end(), [i](const T_VECTOR& a, const T_VECTOR& b) { return a[i] < b[i]; });
        aNotes.push_back(std::string(1, "XYZ"[i]) + " " + NumberText((*pLeast)[i]) + " to " + NumberText((*pMost)[i]));
    }
    const auto Count = [&](const char* sText, std::size_t n) {
        if (n > 0) aNotes.push_back(sText + std::to_string(n));
    };
    if (rScene.iCASE) {
        aNotes.push_back("Load case " + std::to_string(*rScene.iCASE) + " alone.");
    } else {
        Count("Load cases, drawn together: ", rScene.nCASES);
    }
    if (rColours.bREPEATED) {
        aNotes.push_back("There are more than " + std::to_string(PALETTE_SIZE) + " of them: colours repeat.");
    }
    Count("Kinds of loss that name nothing in the picture, see --account: ", rColours.nELSEWHERE);
    Count("Elements and equations that have no line in the target file: ", rScene.nFORMLESS);
    Count("Not drawn, coordinates are no numbers: ", rDrawing.nNOWHERE);
    Count("Free nodes outside of the picture: ", rDrawing.nOUTSIDE);
    Count("Not drawn, pressures on solids that name no face: ", rScene.nFACELESS);
    if (rScene.aCOUNTS[KIND_SOLID].nPRESENT > 0) aNotes.emplace_back("Of solids the outer faces are drawn.");
    if (rDrawing.dJOINED > 0.0) {
        aNotes.push_back("Simplified: nodes less than " + NumberText(Tenth(rDrawing.dJOINED)) +
                         " pixels apart are drawn as one, without edges of elements; a title names one of them.");
    }
    if (rDrawing.bTHINNED) {
        aNotes.push_back("Of more than " + std::to_string(MOST_MARKS) +
                         " marks of a kind some are drawn, the largest of a neighbourhood.");
    }
    return aNotes;
}

/// The rows of the colours down to dBottom.
void WriteColours(CFile& rFile, const T_COLOURS_D& rColours, double dBottom, double& rY) {
    constexpr std::size_t LONGEST = 36, MOST_LINES = 2;
    constexpr double STEP = 15.0;
    std::size_t nLeft = rColours.aROWS.size();
    if (nLeft > 0) rY += 8;
    for (const T_COLOURROW_D& rRow : rColours.aROWS) {
        std::vector<std::string> aLines = Wrap(rRow.sTEXT, LONGEST);
        if (aLines.size() > MOST_LINES) {
            aLines.resize(MOST_LINES);
            aLines.back() += " ...";
        }
        if (rY + STEP * static_cast<double>(aLines.size() + 1) > dBottom) break;
        rFile.Write("<g>\n");
        WriteLine(rFile, "<title>%s</title>\n", EscapeXml(rRow.sTEXT));
        WriteBox(rFile, rRow.iPAINT, rY + STEP);
        WriteText(rFile, LOST, rY + STEP, "count", std::to_string(rRow.nCOUNT));
        for (const std::string& sLine : aLines) WriteText(rFile, NAMES, rY += STEP, "note", sLine);
        rFile.Write("</g>\n");
        rY += 4;
        --nLeft;
    }
    if (nLeft > 0) WriteText(rFile, NAMES, rY += STEP, "note", "and " + std::to_string(nLeft) + " more rows");
}

} // namespace

void WriteLegend(CFile& rFile, const T_SCEN_D& rScene, const T_COLOURS_D& rColours, const T_DRAW_D& rDrawing) {
    constexpr std::size_t LONGEST = 46;
    constexpr double STEP = 16.0, GAP = 4.0;
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
        const bool bCounted = rCount.nPRESENT > 0 || rCount.nWITHOUTNODES > 0; // references and losses aren't
        const bool bMarks = rDrawing.HasMark(iKind);
        if (!bCounted && !bMarks) continue;
        dY += 22;
        WriteSample(rFile, iKind, dY, bMarks, rColours.eBY);
        WriteText(rFile, NAMES, dY, "name", LOOKS[i].sNAME);
        if (bCounted) WriteText(rFile, COUNTS, dY, "count", std::to_string(rCount.nPRESENT));
        if (rCount.nWITHOUTNODES > 0) WriteText(rFile, LOST, dY, "lost", std::to_string(rCount.nWITHOUTNODES));
    }
    std::vector<std::vector<std::string>> aNotes;
    double dNotes = 14.0; // their height
    for (std::string& rNote : Notes(rScene, rColours, rDrawing)) {
        aNotes.push_back(Wrap(std::move(rNote), LONGEST));
        dNotes += STEP * static_cast<double>(aNotes.back().size()) + GAP;
    }
    WriteColours(rFile, rColours, BOX_BOTTOM - dNotes, dY);
    dY += 14;
    for (const std::vector<std::string>& rLines : aNotes) {
        for (const std::string& sLine : rLines) WriteText(rFile, LEFT, dY += STEP, "note", sLine);
        dY += GAP;
    }
    rFile.Write("</g>\n");
}
