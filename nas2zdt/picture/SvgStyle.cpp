// The style sheet.

#include "nas2zdt/picture/SvgStyle.h"

#include "nas2zdt/picture/SvgText.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

void WriteClass(CFile& rFile, const char* sClass, const char* sSuffix, const T_RGB_D& rFill, const T_RGB_D& rStroke,
                double dWidth) {
    Print(rFile, ".%s%s{fill:rgb(%d,%d,%d);stroke:rgb(%d,%d,%d);stroke-width:%g;stroke-linejoin:round}\n", sClass,
          sSuffix, rFill.iRED, rFill.iGREEN, rFill.iBLUE, rStroke.iRED, rStroke.iGREEN, rStroke.iBLUE, dWidth);
}

void WriteStroke(CFile& rFile, E_KIND iKind, const char* sSuffix, double dWidth, const char* sMore = "") {
    const T_LOOK_D& rLook = LOOKS[iKind];
    Print(rFile, ".%s%s{fill:none;stroke:rgb(%d,%d,%d);stroke-width:%g;stroke-linecap:round%s}\n", rLook.sCLASS,
          sSuffix, rLook.colour.iRED, rLook.colour.iGREEN, rLook.colour.iBLUE, dWidth, sMore);
}

} // namespace

/// Edges and lines are thinner where the mesh is finer, or they would cover it.
void WriteStyle(CFile& rFile, const T_DRAW_D& rDrawing) {
    double dFaces = 0.0, dLines = 0.0;
    std::size_t nFaces = 0, nLines = 0;
    for (const T_SHAP_D& rShape : rDrawing.aSHAPES) {
        if (rShape.nCORNERS < 2) continue;
        const T_VECT_D side = Minus(rDrawing.aPLACES[rShape.aCORNERS[1]], rDrawing.aPLACES[rShape.aCORNERS[0]]);
        (rShape.nCORNERS > 2 ? dFaces : dLines) += std::hypot(side[0], side[1]);
        ++(rShape.nCORNERS > 2 ? nFaces : nLines);
    }
    const double dEdge = nFaces ? Tenth(std::clamp(dFaces / static_cast<double>(nFaces) * 0.04, 0.1, 0.8)) : 0.8;
    const double dLine = nLines ? Tenth(std::clamp(dLines / static_cast<double>(nLines) * 0.15, 1.1, 2.2)) : 2.2;

    Print(rFile, "<style>\n"
                 "text{font-family:Helvetica,Arial,sans-serif;font-size:13px;fill:#222}\n"
                 ".title{font-size:18px}\n.head{font-weight:bold}\n.note{font-size:12px;fill:#555}\n"
                 ".count{text-anchor:end}\n.lost{text-anchor:end;fill:#aa0028;font-weight:bold}\n"
                 ".box{fill:none;stroke:#bbb}\n.axis{fill:none;stroke:#222;stroke-width:1.2}\n");
    for (const E_KIND iKind : {KIND_PLANE_STRESS, KIND_PLATE, KIND_SOLID}) {
        const T_RGB_D& rBase = LOOKS[iKind].colour;
        for (std::size_t i = 0; i < SHADES.size(); ++i) {
            const auto Shaded = [&](double dShade) {
                return T_RGB_D{static_cast<int>(rBase.iRED * dShade), static_cast<int>(rBase.iGREEN * dShade),
                               static_cast<int>(rBase.iBLUE * dShade)};
            };
            // edges of joined faces are no edges of elements
            const double dStroke = SHADES[i] * (rDrawing.dJOINED > 0.0 ? 1.0 : 0.5);
            WriteClass(rFile, LOOKS[iKind].sCLASS, std::to_string(i).c_str(), Shaded(SHADES[i]), Shaded(dStroke),
                       dEdge);
        }
        WriteStroke(rFile, iKind, "L", std::max(dLine, 1.2)); // a face that is seen as a line
    }
    WriteStroke(rFile, KIND_TRUSS, "", dLine);
    WriteStroke(rFile, KIND_BEAM, "", dLine);
    WriteStroke(rFile, KIND_RIGID, "", std::min(dLine, 1.4));
    WriteStroke(rFile, KIND_ELASTIC, "", std::max(dLine, 1.6), ";stroke-dasharray:6 3");
    WriteStroke(rFile, KIND_GENERAL, "", std::max(dLine, 1.6), ";stroke-dasharray:2 3");
    for (const E_KIND iKind : {KIND_RIGID, KIND_ELASTIC, KIND_GENERAL}) { // of no length
        WriteClass(rFile, LOOKS[iKind].sCLASS, "0", {255, 255, 255}, LOOKS[iKind].colour, 1.2);
    }
    WriteStroke(rFile, KIND_SPRING, "", 1.5);
    for (const E_KIND iKind : {KIND_MASS, KIND_FIXED}) {
        WriteClass(rFile, LOOKS[iKind].sCLASS, "", LOOKS[iKind].colour, {255, 255, 255}, 0.8);
    }
    WriteClass(rFile, LOOKS[KIND_NODE].sCLASS, "", LOOKS[KIND_NODE].colour, LOOKS[KIND_NODE].colour, 0.5);
    WriteClass(rFile, LOOKS[KIND_SUPPORT].sCLASS, "", {255, 255, 255}, LOOKS[KIND_SUPPORT].colour, 1.2);
    for (const E_KIND iKind : {KIND_FORCE, KIND_MOMENT, KIND_PRESSURE}) WriteStroke(rFile, iKind, "", 1.5);
    WriteStroke(rFile, KIND_GRAVITY, "", 2.5);
    WriteStroke(rFile, KIND_REFERENCE, "", 1.0);
    rFile.Write("</style>\n");
}
