// The legend beside the model.

#include "nas2zdt/picture/SvgLegend.h"

#include "nas2zdt/picture/SvgMarks.h"
#include "nas2zdt/picture/SvgStyle.h"
#include "nas2zdt/picture/SvgText.h"

#include <algorithm>
#include <array>
#include <string>

namespace {

constexpr std::size_t LONGEST_NOTE = 46;
constexpr double LEGEND_LEFT = 980, LEGEND_NAMES = 1014, LEGEND_COUNTS = 1168, LEGEND_LOST = 1262;

std::string Number(double dValue) {
    char aText[LONGEST_REAL];
    return {aText, PutReal(aText, dValue)};
}

class CLegend {
  public:
    CLegend(CFile& rFile, const T_SCEN_D& rScene, const T_DRAW_D& rDrawing)
        : m_rFile(rFile), m_rScene(rScene), m_rDrawing(rDrawing) {}

    void Write();

  private:
    void WriteSample(E_KIND iKind, double dY);
    void WriteNote(std::string sText);
    void WriteExtents();
    void WriteNotes();

    CFile& m_rFile;
    const T_SCEN_D& m_rScene;
    const T_DRAW_D& m_rDrawing;
    double m_dNoteY = 0.0;
};

/// What a kind looks like, for its row of the legend.
void CLegend::WriteSample(E_KIND iKind, double dY) {
    constexpr double MIDDLE = LEGEND_LEFT + 12;
    const char* sClass = LOOKS[iKind].sCLASS;
    if (IsFaceKind(iKind)) {
        Print(m_rFile, "<path class=\"%s3\" d=\"M%g %gh22v12h-22z\"/>\n", sClass, LEGEND_LEFT, dY - 10);
    } else if (iKind == KIND_NODE) {
        Print(m_rFile, "<path class=\"%s\" d=\"M%g %gh2.5v2.5h-2.5z\"/>\n", sClass, MIDDLE, dY - 5);
    } else if (iKind < KIND_SPRING) {
        Print(m_rFile, "<path class=\"%s\" d=\"M%g %gh24\"/>\n", sClass, LEGEND_LEFT, dY - 4);
        if (m_rDrawing.HasMark(iKind)) WriteMark(m_rFile, {iKind, MIDDLE, dY - 4, {}, 0.0});
    } else if (iKind == KIND_MASS || iKind == KIND_SPRING || iKind == KIND_FIXED || iKind == KIND_SUPPORT) {
        WriteMark(m_rFile, {iKind, MIDDLE, iKind == KIND_MASS ? dY - 4 : dY - 10, {}, 0.0});
    } else if (iKind == KIND_REFERENCE) {
        WriteMark(m_rFile, {iKind, MIDDLE, dY, {0, 1, 0}, 0.0});
    } else {
        const T_SYMB_D arrow = {iKind, LEGEND_LEFT + 24, dY - 4, {1, 0, 0}, 0.0};
        WriteArrow(m_rFile, arrow, 24.0);
    }
}

/// In as many lines as it takes.
void CLegend::WriteNote(std::string sText) {
    while (!sText.empty()) {
        std::size_t nLine = sText.size();
        if (nLine > LONGEST_NOTE) nLine = sText.rfind(' ', LONGEST_NOTE);
        m_dNoteY += 16;
        WriteText(m_rFile, LEGEND_LEFT, m_dNoteY, "note", sText.substr(0, nLine));
        sText.erase(0, std::min(nLine + 1, sText.size()));
    }
    m_dNoteY += 4;
}

void CLegend::WriteExtents() {
    if (m_rDrawing.aVISIBLE.empty()) return;
    constexpr std::array<const char*, 3> NAMES = {"X ", "Y ", "Z "};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto [pLeast, pMost] =
            std::minmax_element(m_rDrawing.aVISIBLE.begin(), m_rDrawing.aVISIBLE.end(),
                                [i](const T_VECT_D& a, const T_VECT_D& b) { return a[i] < b[i]; });
        WriteNote(NAMES[i] + Number((*pLeast)[i]) + " to " + Number((*pMost)[i]));
    }
}

void CLegend::WriteNotes() {
    const auto Count = [this](const char* sText, std::size_t n) {
        if (n > 0) WriteNote(sText + std::to_string(n));
    };
    Count("Load cases, drawn together: ", m_rScene.nCASES);
    Count("Elements and equations that have no line in the target file: ", m_rScene.nFORMLESS);
    Count("Not drawn, coordinates are no numbers: ", m_rDrawing.nNOWHERE);
    Count("Free nodes outside of the picture: ", m_rDrawing.nOUTSIDE);
    Count("Not drawn, pressures on solids that name no face: ", m_rScene.nFACELESS);
    if (m_rScene.aCOUNTS[KIND_SOLID].nPRESENT > 0) WriteNote("Of solids the outer faces are drawn.");
    if (m_rDrawing.dJOINED > 0.0) {
        WriteNote("Simplified: nodes less than " + Number(Tenth(m_rDrawing.dJOINED)) +
                  " pixels apart are drawn as one, without edges of elements.");
    }
    if (m_rDrawing.bTHINNED) {
        WriteNote("Of more than " + std::to_string(MOST_MARKS) +
                  " marks of a kind some are drawn, the largest of a neighbourhood.");
    }
}

void CLegend::Write() {
    double dY = BOX_TOP + 12;
    m_rFile.Write("<g id=\"legend\">\n");
    WriteText(m_rFile, LEGEND_COUNTS, dY, "count note", "count");
    WriteText(m_rFile, LEGEND_LOST, dY, "count note", "without nodes");
    dY += 22;
    WriteText(m_rFile, LEGEND_NAMES, dY, "head", "nodes");
    WriteText(m_rFile, LEGEND_COUNTS, dY, "count", std::to_string(m_rScene.aIDS.size()));
    for (std::uint8_t i = 0; i < KIND_REFERENCE; ++i) {
        const T_CONT_D& rCount = m_rScene.aCOUNTS[i];
        if (rCount.nPRESENT == 0 && rCount.nWITHOUTNODES == 0) continue;
        dY += 22;
        WriteSample(static_cast<E_KIND>(i), dY);
        WriteText(m_rFile, LEGEND_NAMES, dY, "name", LOOKS[i].sNAME);
        WriteText(m_rFile, LEGEND_COUNTS, dY, "count", std::to_string(rCount.nPRESENT));
        if (rCount.nWITHOUTNODES > 0) WriteText(m_rFile, LEGEND_LOST, dY, "lost", std::to_string(rCount.nWITHOUTNODES));
    }
    if (m_rDrawing.HasMark(KIND_REFERENCE)) {
        dY += 22;
        WriteSample(KIND_REFERENCE, dY);
        WriteText(m_rFile, LEGEND_NAMES, dY, "name", "towards the beam's reference");
    }
    m_dNoteY = dY + 14;
    WriteExtents();
    WriteNotes();
    m_rFile.Write("</g>\n");
}

} // namespace

void WriteLegend(CFile& rFile, const T_SCEN_D& rScene, const T_DRAW_D& rDrawing) {
    CLegend(rFile, rScene, rDrawing).Write();
}
