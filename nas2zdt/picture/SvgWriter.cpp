// Draws a model as an SVG file.

#include "nas2zdt/picture/Picture.h"
#include "nas2zdt/picture/Svg.h"
#include "platform/WholeFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

/// The light comes from above and a little from the left. Faces look the same from both sides.
std::int32_t ShadeOf(const T_SHAP_D& rShape, const std::vector<T_VECTOR>& aPlaces) {
    const T_VECTOR light = Unit({-0.35, -0.85, 0.45}); // of the picture: right, down, towards the eye
    T_VECTOR normal = Unit(FaceNormal(rShape, aPlaces));
    if (normal[2] < 0.0) normal = Subtract({}, normal);
    const double dBright = (1.0 + Dot(normal, light)) / 2.0;
    const double dLast = static_cast<double>(SHADES.size() - 1);
    return static_cast<std::int32_t>(std::lround(std::clamp(dBright, 0.0, 1.0) * dLast));
}

void WriteShape(CFile& rFile, const T_SHAP_D& rShape, const std::vector<T_VECTOR>& aPlaces, double dDot) {
    const T_VECTOR& rFirst = aPlaces[rShape.aCORNERS[0]];
    const char* sClass = LOOKS[rShape.iKIND].sCLASS;
    if (rShape.nCORNERS > 2) {
        WriteLine(rFile, "<path class=\"%s%d\" d=\"M%g %g", sClass, ShadeOf(rShape, aPlaces), Tenth(rFirst[0]),
                  Tenth(rFirst[1]));
    } else {
        WriteLine(rFile, "<path class=\"%s%s\" d=\"M%g %g", sClass, IsFaceKind(rShape.iKIND) ? "L" : "",
                  Tenth(rFirst[0]), Tenth(rFirst[1]));
    }
    for (std::size_t i = 1; i < rShape.nCORNERS; ++i) {
        const T_VECTOR& rPlace = aPlaces[rShape.aCORNERS[i]];
        WriteLine(rFile, " %g %g", Tenth(rPlace[0]), Tenth(rPlace[1]));
    }
    if (rShape.nCORNERS == 1) WriteLine(rFile, "h%gv%gh%g", dDot, dDot, -dDot);
    rFile.Write(rShape.nCORNERS == 2 ? "\"/>\n" : "z\"/>\n");
}

void WriteAxes(CFile& rFile) {
    constexpr double X = 75, Y = 780, LENGTH = 42;
    constexpr std::array<std::pair<const char*, T_VECTOR>, 3> AXES = {
        {{"X", {1, 0, 0}}, {"Y", {0, 1, 0}}, {"Z", {0, 0, 1}}}};
    for (const auto& [sName, axis] : AXES) {
        const T_VECTOR turned = CIsometricView::Turn(axis);
        WriteLine(rFile, "<path class=\"axis\" d=\"M75 780L%g %g\"/>\n", Tenth(X + turned[0] * LENGTH),
                  Tenth(Y - turned[1] * LENGTH));
        WriteText(rFile, Tenth(X - 4 + turned[0] * LENGTH * 1.3), Tenth(Y + 4 - turned[1] * LENGTH * 1.3), "axisname",
                  sName);
    }
}

/// Gravity acts on the whole model, so its arrows are in a row beside it.
void WriteGravity(CFile& rFile, const std::vector<T_VECTOR>& aGravity) {
    double dX = 65.0;
    for (const T_VECTOR& rDirection : aGravity) {
        constexpr double HALF = 24.0; // of the arrow
        const T_VECTOR turned = CIsometricView::Turn(rDirection);
        WriteMark(rFile, {KIND_GRAVITY, dX + turned[0] * HALF, 110.0 - turned[1] * HALF, turned, 1.0});
        dX += 60.0;
    }
    if (!aGravity.empty()) WriteText(rFile, 36, 72, "note", "gravity");
}

void WriteModel(CFile& rFile, const T_SCEN_D& rScene, const T_DRAW_D& rDrawing) {
    constexpr std::size_t MANY = 500;
    const double dDot = rScene.aCOUNTS[KIND_NODE].nPRESENT > MANY ? 1.2 : 2.5; // pixels
    rFile.Write("<g id=\"model\">\n");
    for (const T_SHAP_D& rShape : rDrawing.aSHAPES) WriteShape(rFile, rShape, rDrawing.aPLACES, dDot);
    rFile.Write("</g>\n<g id=\"marks\">\n");
    for (const T_SYMB_D& rMark : rDrawing.aMARKS) WriteMark(rFile, rMark);
    WriteGravity(rFile, rScene.aGRAVITY);
    rFile.Write("</g>\n");
}

} // namespace

void WriteSvg(const CDataPool& rDataPool, const std::string& sTitle, const std::string& sPath,
              const T_INPUTS& rInputs) {
    CWholeFile file(sPath, rInputs);
    CFile& rFile = file.GetFile();
    T_SCEN_D scene = CollectParts(rDataPool);
    CollectLoads(rDataPool, scene);
    const T_DRAW_D drawing = LayOut(scene);
    rFile.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1280\" height=\"860\" viewBox=\"0 0 1280 860\">\n");
    WriteLine(rFile, "<title>%s</title>\n", XmlText(sTitle));
    WriteStyle(rFile, drawing);
    rFile.Write("<rect width=\"1280\" height=\"860\" fill=\"#fff\"/>\n");
    WriteText(rFile, BOX_LEFT, 34, "title", sTitle);
    rFile.Write("<path class=\"box\" d=\"M20 50H950V840H20z\"/>\n");
    WriteModel(rFile, scene, drawing);
    WriteAxes(rFile);
    WriteLegend(rFile, scene, drawing);
    rFile.Write("</svg>\n");
    file.Finish();
}
