#pragma once
// The parts of the SVG picture.

#include "nas2zdt/picture/Colours.h"
#include "nas2zdt/picture/Drawing.h"
#include "nas2zdt/text/Escape.h"
#include "platform/File.h"
#include "writer/Format.h"

#include <array>
#include <cmath>
#include <string>

struct T_RGB_D {
    int iRED, iGREEN, iBLUE;
};

/// How a kind looks. The colours of parts suit the colour-blind; marks also differ in form.
struct T_LOOK_D {
    const char* sNAME;  // in the legend
    const char* sCLASS; // in the style sheet
    T_RGB_D colour;
};
constexpr std::array<T_LOOK_D, KINDS> LOOKS = {{
    {"truss", "truss", {230, 159, 0}},
    {"beam", "beam", {213, 94, 0}},
    {"plane stress", "plstrs", {0, 158, 115}},
    {"plate", "plate", {86, 180, 233}},
    {"solid", "solid", {240, 228, 66}},
    {"rigid link", "rigid", {204, 121, 167}},
    {"elastic link", "elastic", {0, 114, 178}},
    {"general link", "general", {20, 20, 20}},
    {"spring to ground", "spring", {0, 114, 178}},
    {"mass", "mass", {20, 20, 20}},
    {"free node", "node", {120, 120, 120}},
    {"support, all held", "fixed", {30, 90, 30}},
    {"support, some held", "support", {30, 90, 30}},
    {"force", "force", {170, 0, 40}},
    {"moment", "moment", {110, 0, 150}},
    {"pressure", "pressure", {0, 60, 130}},
    {"gravity", "gravity", {90, 60, 20}},
    {"towards the beam's reference", "reference", {213, 94, 0}},
    {"node with a loss", "lostnode", {220, 0, 30}},
}};

/// Colours of what isn't coloured by its kind. Those in between suit the colour-blind, and differ from the first one in
/// brightness.
constexpr std::array<T_RGB_D, PAINTS> PAINT_COLOURS = {{
    {220, 0, 30},
    {136, 204, 238},
    {204, 102, 119},
    {221, 204, 119},
    {17, 119, 51},
    {51, 34, 136},
    {170, 68, 153},
    {68, 170, 153},
    {153, 153, 51},
    {136, 34, 85},
    {214, 214, 214},
}};

/// Brightness of faces; its index ends the name of their class: "plate3", or "p1s3" of a paint.
constexpr std::array<double, 5> SHADES = {0.62, 0.72, 0.82, 0.91, 1.0};

constexpr bool IsFaceKind(E_KIND iKind) {
    return iKind == KIND_PLANE_STRESS || iKind == KIND_PLATE || iKind == KIND_SOLID;
}

/// Rounded to a tenth of a pixel.
inline double Tenth(double d) {
    return std::round(d * 10.0) / 10.0;
}

inline std::string NumberText(double dValue) {
    char aText[LONGEST_REAL];
    return {aText, PutReal(aText, dValue)};
}

inline void WriteText(CFile& rFile, double dX, double dY, const char* sClass, const std::string& sText) {
    WriteLine(rFile, "<text class=\"%s\" x=\"%g\" y=\"%g\">%s</text>\n", sClass, dX, dY, XmlText(sText));
}

/// The style sheet. Lines are thinner in a finer mesh, which they would cover otherwise.
void WriteStyle(CFile& rFile, const T_DRAW_D& rDrawing, E_COLOUR_BY eBy);

void WriteMark(CFile& rFile, const T_SYMB_D& rMark);

/// An arrow of dLength pixels with its tip at the mark. Along the view it is a ring, with a dot if it points to the
/// eye.
void WriteArrow(CFile& rFile, const T_SYMB_D& rMark, double dLength);

/// The legend: counts of each kind, the colours, the size of the model, and what the picture leaves out.
void WriteLegend(CFile& rFile, const T_SCEN_D& rScene, const T_COLOURS_D& rColours, const T_DRAW_D& rDrawing);
