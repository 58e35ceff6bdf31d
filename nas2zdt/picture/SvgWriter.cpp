// Draws a model as an SVG file.

#include "nas2zdt/picture/Picture.h"
#include "nas2zdt/picture/Svg.h"
#include "nas2zdt/picture/Titles.h"
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

/// The class of a face begins with its kind or paint. A line has a paint besides its kind.
void WriteClass(CFile& rFile, const T_SHAP_D& rShape, const std::vector<T_VECTOR>& aPlaces, E_COLOUR_BY eBy) {
    const char* sKind = LOOKS[rShape.iKIND].sCLASS;
    const std::int32_t iPaint = rShape.iPAINT;
    const bool bKind = eBy == BY_KIND || rShape.iKIND == KIND_NODE;
    if (rShape.nCORNERS > 2) {
        const std::int32_t iShade = ShadeOf(rShape, aPlaces);
        bKind ? WriteLine(rFile, "%s%d", sKind, iShade) : WriteLine(rFile, "p%ds%d", iPaint, iShade);
        return;
    }
    WriteLine(rFile, "%s%s", sKind, IsFaceKind(rShape.iKIND) ? "L" : "");
    if (!bKind) WriteLine(rFile, " p%d", iPaint);
}

void WriteShape(CFile& rFile, const T_SHAP_D& rShape, const std::vector<T_VECTOR>& aPlaces, E_COLOUR_BY eBy,
                double dDot, const std::string& sTitle) {
    const T_VECTOR& rFirst = aPlaces[rShape.aCORNERS[0]];
    rFile.Write("<path class=\"");
    WriteClass(rFile, rShape, aPlaces, eBy);
    WriteLine(rFile, "\" d=\"M%g %g", Tenth(rFirst[0]), Tenth(rFirst[1]));
    for (std::size_t i = 1; i < rShape.nCORNERS; ++i) {
        const T_VECTOR& rPlace = aPlaces[rShape.aCORNERS[i]];
        WriteLine(rFile, " %g %g", Tenth(rPlace[0]), Tenth(rPlace[1]));
    }
    if (rShape.nCORNERS == 1) WriteLine(rFile, "h%gv%gh%g", dDot, dDot, -dDot);
    WriteLine(rFile, "%s\"><title>%s</title></path>\n", rShape.nCORNERS == 2 ? "" : "z", EscapeXml(sTitle));
}

void WriteTitledMark(CFile& rFile, const T_SYMB_D& rMark, const std::string& sTitle, bool bLost) {
    WriteLine(rFile, "<g%s><title>%s</title>", bLost ? " class=\"bad\"" : "", EscapeXml(sTitle));
    WriteMark(rFile, rMark);
    rFile.Write("</g>\n");
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
void WriteGravity(CFile& rFile, const std::vector<T_ARRW_D>& aGravity, const CTitles& rTitles) {
    double dX = 65.0;
    for (const T_ARRW_D& rArrow : aGravity) {
        constexpr double HALF = 24.0; // of the arrow
        const T_VECTOR turned = CIsometricView::Turn(rArrow.direction);
        const T_SYMB_D mark{KIND_GRAVITY, dX + turned[0] * HALF, 110.0 - turned[1] * HALF, turned, 1.0};
        WriteTitledMark(rFile, mark, rTitles.OfArrow(rArrow), false);
        dX += 60.0;
    }
    if (!aGravity.empty()) WriteText(rFile, 36, 72, "note", "gravity");
}

void WriteModel(CFile& rFile, const T_SCEN_D& rScene, const T_COLOURS_D& rColours, const T_DRAW_D& rDrawing,
                const CTitles& rTitles) {
    constexpr std::size_t MANY = 500;
    const double dDot = rScene.aCOUNTS[KIND_NODE].nPRESENT > MANY ? 1.2 : 2.5; // pixels
    rFile.Write("<g id=\"model\">\n");
    for (const T_SHAP_D& rShape : rDrawing.aSHAPES) {
        WriteShape(rFile, rShape, rDrawing.aPLACES, rColours.eBY, dDot, rTitles.OfShape(rShape));
    }
    rFile.Write("</g>\n<g id=\"marks\">\n");
    for (const T_SYMB_D& rMark : rDrawing.aMARKS) {
        const bool bLost = rMark.iKIND < PART_KINDS && rColours.PaintOf(rMark.iOF) == PAINT_LOST;
        WriteTitledMark(rFile, rMark, rTitles.OfMark(rMark), bLost);
    }
    WriteGravity(rFile, rScene.aGRAVITY, rTitles);
    rFile.Write("</g>\n");
}

} // namespace

struct CSvgPicture::T_MODEL_D {
    T_MODEL_D(const CDataPool& rDataPool, E_COLOUR_BY eBy, const CAccount* pAccount)
        : scene(CollectParts(rDataPool)), colours(ChooseColours(rDataPool, scene, eBy, pAccount)),
          drawing(LayOut(scene, colours)), titles(rDataPool, scene, colours) {
        CollectSupports(rDataPool, scene);
    }

    T_SCEN_D scene;
    T_COLOURS_D colours;
    T_DRAW_D drawing;
    CTitles titles;
};

CSvgPicture::CSvgPicture(const CDataPool& rDataPool, E_COLOUR_BY eBy, const CAccount* pAccount)
    : m_rDataPool(rDataPool), m_pModel(std::make_unique<T_MODEL_D>(rDataPool, eBy, pAccount)) {}

CSvgPicture::~CSvgPicture() = default;

void CSvgPicture::Write(const std::string& sTitle, const std::string& sPath, const T_INPUTS& rInputs,
                        std::optional<std::int32_t> iCase) {
    CWholeFile file(sPath, rInputs);
    CFile& rFile = file.GetFile();
    auto& [scene, colours, drawing, titles] = *m_pModel;
    CollectLoads(m_rDataPool, iCase, scene);
    SetMarks(scene, colours, drawing);
    rFile.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1280\" height=\"860\" viewBox=\"0 0 1280 860\">\n");
    WriteLine(rFile, "<title>%s</title>\n", XmlText(sTitle));
    WriteStyle(rFile, drawing, colours.eBY);
    rFile.Write("<rect width=\"1280\" height=\"860\" fill=\"#fff\"/>\n");
    WriteText(rFile, BOX_LEFT, 34, "title", sTitle);
    rFile.Write("<path class=\"box\" d=\"M20 50H950V840H20z\"/>\n");
    WriteModel(rFile, scene, colours, drawing, titles);
    WriteAxes(rFile);
    WriteLegend(rFile, scene, colours, drawing);
    rFile.Write("</svg>\n");
    file.Finish();
}
