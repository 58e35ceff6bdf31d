// Style sheet and marks of the SVG picture.

#include "nas2zdt/picture/Svg.h"

#include <algorithm>

namespace {

constexpr T_RGB_D WHITE = {255, 255, 255};
constexpr T_RGB_D NEUTRAL_LINE = {150, 150, 150}; // faces of that paint are too light for a line on white

void WriteClass(CFile& rFile, std::string_view sClass, std::string_view sSuffix, const T_RGB_D& rFill,
                const T_RGB_D& rStroke, double dWidth) {
    WriteLine(rFile, ".%s%s{fill:rgb(%d,%d,%d);stroke:rgb(%d,%d,%d);stroke-width:%g;stroke-linejoin:round}\n", sClass,
              sSuffix, rFill.iRED, rFill.iGREEN, rFill.iBLUE, rStroke.iRED, rStroke.iGREEN, rStroke.iBLUE, dWidth);
}

/// Faces of a colour, darker the more they turn away from the light.
void WriteShades(CFile& rFile, const std::string& sClass, const T_RGB_D& rBase, double dEdge, bool bJoined) {
    for (std::size_t i = 0; i < SHADES.size(); ++i) {
        const auto Shaded = [&](double dShade) {
            return T_RGB_D{static_cast<int>(rBase.iRED * dShade), static_cast<int>(rBase.iGREEN * dShade),
                           static_cast<int>(rBase.iBLUE * dShade)};
        };
        // joined faces have no edges: those wouldn't be the elements'
        const double dStroke = SHADES[i] * (bJoined ? 1.0 : 0.5);
        WriteClass(rFile, sClass, std::to_string(i), Shaded(SHADES[i]), Shaded(dStroke), dEdge);
    }
}

/// Paints stand behind kinds, whose colours they replace.
void WritePaints(CFile& rFile, double dEdge, bool bJoined) {
    for (std::size_t i = 0; i < PAINTS; ++i) {
        const T_RGB_D& rColour = PAINT_COLOURS[i];
        const std::string sClass = "p" + std::to_string(i);
        WriteShades(rFile, sClass + "s", rColour, dEdge, bJoined);
        const T_RGB_D& rLine = i == PAINT_NEUTRAL ? NEUTRAL_LINE : rColour;
        WriteLine(rFile, ".%s{stroke:rgb(%d,%d,%d)}\n", sClass, rLine.iRED, rLine.iGREEN, rLine.iBLUE);
    }
    const T_RGB_D& rLost = PAINT_COLOURS[PAINT_LOST];
    WriteLine(rFile, ".bad *{stroke:rgb(%d,%d,%d);stroke-width:2}\n", rLost.iRED, rLost.iGREEN, rLost.iBLUE);
}

void WriteStroke(CFile& rFile, E_KIND iKind, const char* sSuffix, double dWidth, const char* sMore = "") {
    const T_LOOK_D& rLook = LOOKS[iKind];
    WriteLine(rFile, ".%s%s{fill:none;stroke:rgb(%d,%d,%d);stroke-width:%g;stroke-linecap:round%s}\n", rLook.sCLASS,
              sSuffix, rLook.colour.iRED, rLook.colour.iGREEN, rLook.colour.iBLUE, dWidth, sMore);
}

} // namespace

void WriteStyle(CFile& rFile, const T_DRAW_D& rDrawing, E_COLOUR_BY eBy) {
    double dFaces = 0.0, dLines = 0.0;
    std::size_t nFaces = 0, nLines = 0;
    for (const T_SHAP_D& rShape : rDrawing.aSHAPES) {
        if (rShape.nCORNERS < 2) continue;
        const T_VECTOR side = Subtract(rDrawing.aPLACES[rShape.aCORNERS[1]], rDrawing.aPLACES[rShape.aCORNERS[0]]);
        (rShape.nCORNERS > 2 ? dFaces : dLines) += std::hypot(side[0], side[1]);
        ++(rShape.nCORNERS > 2 ? nFaces : nLines);
    }
    const double dEdge = nFaces ? Tenth(std::clamp(dFaces / static_cast<double>(nFaces) * 0.04, 0.1, 0.8)) : 0.8;
    const double dLine = nLines ? Tenth(std::clamp(dLines / static_cast<double>(nLines) * 0.15, 1.1, 2.2)) : 2.2;

    rFile.Write("<style>\n"
                "text{font-family:Helvetica,Arial,sans-serif;font-size:13px;fill:#222}\n"
                ".title{font-size:18px}\n.head{font-weight:bold}\n.note{font-size:12px;fill:#555}\n"
                ".count{text-anchor:end}\n.lost{text-anchor:end;fill:#aa0028;font-weight:bold}\n"
                ".box{fill:none;stroke:#bbb}\n.axis{fill:none;stroke:#222;stroke-width:1.2}\n");
    for (const E_KIND iKind : {KIND_PLANE_STRESS, KIND_PLATE, KIND_SOLID}) {
        WriteShades(rFile, LOOKS[iKind].sCLASS, LOOKS[iKind].colour, dEdge, rDrawing.dJOINED > 0.0);
        WriteStroke(rFile, iKind, "L", std::max(dLine, 1.2)); // a face that is seen as a line
    }
    WriteStroke(rFile, KIND_TRUSS, "", dLine);
    WriteStroke(rFile, KIND_BEAM, "", dLine);
    WriteStroke(rFile, KIND_RIGID, "", std::min(dLine, 1.4));
    WriteStroke(rFile, KIND_ELASTIC, "", std::max(dLine, 1.6), ";stroke-dasharray:6 3");
    WriteStroke(rFile, KIND_GENERAL, "", std::max(dLine, 1.6), ";stroke-dasharray:2 3");
    for (const E_KIND iKind : {KIND_RIGID, KIND_ELASTIC, KIND_GENERAL}) { // of no length
        WriteClass(rFile, LOOKS[iKind].sCLASS, "0", WHITE, LOOKS[iKind].colour, 1.2);
    }
    WriteStroke(rFile, KIND_SPRING, "", 1.5);
    for (const E_KIND iKind : {KIND_MASS, KIND_FIXED}) {
        WriteClass(rFile, LOOKS[iKind].sCLASS, "", LOOKS[iKind].colour, WHITE, 0.8);
    }
    WriteClass(rFile, LOOKS[KIND_NODE].sCLASS, "", LOOKS[KIND_NODE].colour, LOOKS[KIND_NODE].colour, 0.5);
    WriteClass(rFile, LOOKS[KIND_SUPPORT].sCLASS, "", WHITE, LOOKS[KIND_SUPPORT].colour, 1.2);
    for (const E_KIND iKind : {KIND_FORCE, KIND_MOMENT, KIND_PRESSURE}) WriteStroke(rFile, iKind, "", 1.5);
    WriteStroke(rFile, KIND_GRAVITY, "", 2.5);
    WriteStroke(rFile, KIND_REFERENCE, "", 1.0);
    if (eBy == BY_LOSS) WriteStroke(rFile, KIND_LOST, "", 2.0);
    if (eBy != BY_KIND) WritePaints(rFile, dEdge, rDrawing.dJOINED > 0.0);
    rFile.Write("</style>\n");
}

void WriteArrow(CFile& rFile, const T_SYMB_D& rMark, double dLength) {
    constexpr double FLAT = 3.0; // pixels
    const char* sClass = LOOKS[rMark.iKIND].sCLASS;
    const double dX = rMark.direction[0] * dLength, dY = -rMark.direction[1] * dLength;
    const double dToX = Tenth(rMark.dX), dToY = Tenth(rMark.dY);
    const double dSeen = std::hypot(dX, dY);
    if (dSeen < FLAT) {
        WriteLine(rFile, "<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"4\"/>\n", sClass, dToX, dToY);
        if (rMark.direction[2] > 0.0) {
            WriteLine(rFile, "<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"0.8\"/>\n", sClass, dToX, dToY);
        }
        return;
    }
    const double dUX = dX / dSeen, dUY = dY / dSeen;
    WriteLine(rFile, "<path class=\"%s\" d=\"M%g %gL%g %g", sClass, Tenth(rMark.dX - dX), Tenth(rMark.dY - dY), dToX,
              dToY);
    const double dBarb = std::min(6.0, dSeen / 2);
    const int nHeads = rMark.iKIND == KIND_MOMENT ? 2 : 1; // by convention
    for (int i = 0; i < nHeads; ++i) {
        const double dTipX = rMark.dX - dUX * i * dBarb * 0.9, dTipY = rMark.dY - dUY * i * dBarb * 0.9;
        WriteLine(rFile, "M%g %gL%g %g %g %g", Tenth(dTipX - (dUX + dUY * 0.5) * dBarb),
                  Tenth(dTipY - (dUY - dUX * 0.5) * dBarb), Tenth(dTipX), Tenth(dTipY),
                  Tenth(dTipX - (dUX - dUY * 0.5) * dBarb), Tenth(dTipY - (dUY + dUX * 0.5) * dBarb));
    }
    rFile.Write("\"/>\n");
}

void WriteMark(CFile& rFile, const T_SYMB_D& rMark) {
    const double dX = Tenth(rMark.dX), dY = Tenth(rMark.dY);
    const char* sClass = LOOKS[rMark.iKIND].sCLASS;
    switch (rMark.iKIND) {
    case KIND_MASS:
        WriteLine(rFile, "<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"4.5\"/>\n", sClass, dX, dY);
        break;
    case KIND_LOST:
        WriteLine(rFile, "<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"6\"/>\n", sClass, dX, dY);
        break;
    case KIND_SPRING:
        WriteLine(rFile, "<path class=\"%s\" d=\"M%g %gv2l4 2-8 3 8 3-4 2v2m-5 0h10\"/>\n", sClass, dX, dY);
        break;
    case KIND_FIXED:
    case KIND_SUPPORT:
        WriteLine(rFile, "<path class=\"%s\" d=\"M%g %gl5 9h-10z\"/>\n", sClass, dX, dY);
        break;
    case KIND_FORCE:
    case KIND_MOMENT:
        WriteArrow(rFile, rMark, 22.0 + 33.0 * rMark.dSIZE);
        break;
    case KIND_PRESSURE:
        WriteArrow(rFile, rMark, 14.0 + 20.0 * rMark.dSIZE);
        break;
    case KIND_GRAVITY:
        WriteArrow(rFile, rMark, 48.0);
        break;
    case KIND_REFERENCE: // begins at the beam
        WriteLine(rFile, "<path class=\"%s\" d=\"M%g %gL%g %g\"/>\n", sClass, dX, dY,
                  Tenth(rMark.dX + rMark.direction[0] * 10.0), Tenth(rMark.dY - rMark.direction[1] * 10.0));
        break;
    default: // a link of no length
        WriteLine(rFile, "<path class=\"%s0\" d=\"M%g %gm-3.5 0l3.5-3.5 3.5 3.5-3.5 3.5z\"/>\n", sClass, dX, dY);
    }
}
