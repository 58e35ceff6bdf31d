#include "picture/SvgWriter.h"

#include "picture/IsometricView.h"
#include "picture/Shapes.h"
#include "picture/Symbols.h"
#include "nas2zdt/WholeFile.h"
#include "picture/XmlText.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

namespace {

constexpr std::size_t MOST_SHAPES = 30000;
constexpr std::size_t MOST_MARKS = 200;
constexpr std::size_t LONGEST_TITLE = 120;
constexpr std::size_t LONGEST_NOTE = 46;

// The picture is 1280 by 860: title on top, the model in its frame, the legend beside it.
constexpr T_FRAM_D MODEL = {90, 100, 790, 660};
constexpr double BOX_LEFT = 20, BOX_TOP = 50, BOX_RIGHT = 950, BOX_BOTTOM = 840;
constexpr double LEGEND_LEFT = 980, LEGEND_NAMES = 1014, LEGEND_COUNTS = 1168, LEGEND_LOST = 1262;

struct T_RGB_D {
    int iRED, iGREEN, iBLUE;
};

/// How a kind looks. The colours of parts can be told apart by the colour-blind; marks differ in form too.
struct T_LOOK_D {
    const char* sNAME;
    const char* sCLASS;
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
    {"beam reference", "reference", {213, 94, 0}},
}};

constexpr std::array<double, 5> SHADES = {0.62, 0.72, 0.82, 0.91, 1.0};

bool IsFaceKind(E_KIND iKind) {
    return iKind == KIND_PLANE_STRESS || iKind == KIND_PLATE || iKind == KIND_SOLID;
}

/// Rounded to a tenth of a pixel.
double Tenth(double d) {
    return std::round(d * 10.0) / 10.0;
}

std::string Number(double dValue) {
    char aText[LONGEST_REAL];
    return {aText, PutReal(aText, dValue)};
}

class CSvgWriter {
  public:
    CSvgWriter(CWholeFile& rFile, const T_SCEN_D& rScene) : m_rFile(rFile), m_rScene(rScene) {}

    void Write(const std::string& sTitle);

  private:
    void FindPlaces();
    void WriteStyle();
    void WriteClass(const char* sClass, const char* sSuffix, const T_RGB_D& rFill, const T_RGB_D& rStroke,
                    double dWidth);
    void WriteStroke(E_KIND iKind, const char* sSuffix, double dWidth, const char* sMore = "");
    void WriteModel();
    void WriteShape(const T_SHAP_D& rShape);
    std::int32_t ShadeOf(const T_SHAP_D& rShape) const;
    double DepthOf(const T_SHAP_D& rShape) const;
    void WriteMark(const T_SYMB_D& rMark);
    void WriteArrow(const T_SYMB_D& rMark, double dLength);
    bool HasMark(E_KIND iKind) const {
        return std::any_of(m_aMarks.begin(), m_aMarks.end(), [=](const T_SYMB_D& r) { return r.iKIND == iKind; });
    }
    void WriteAxes();
    void WriteGravity();
    void WriteLegend();
    void WriteSample(E_KIND iKind, double dY);
    void WriteText(double dX, double dY, const char* sClass, const std::string& sText) {
        m_rFile.Print("<text class=\"%s\" x=\"%g\" y=\"%g\">%s</text>\n", sClass, dX, dY,
                      XmlText(sText, LONGEST_TITLE));
    }
    void WriteNote(std::string sText);
    void WriteNotes();
    void WriteExtents();

    CWholeFile& m_rFile;
    const T_SCEN_D& m_rScene;
    std::vector<T_VECT_D> m_aPlaces;  // of the nodes
    std::vector<T_SHAP_D> m_aShapes;  // from far to near
    std::vector<T_SYMB_D> m_aMarks;   // on top of them
    std::vector<T_VECT_D> m_aVisible; // points that the picture is made for
    double m_dJoined = 0.0;           // pixels below which nodes are drawn as one
    bool m_bThinned = false;
    std::size_t m_nNowhere = 0; // parts without a place
    std::size_t m_nOutside = 0; // free nodes that aren't in the picture
    double m_dDot = 2.5;        // pixels
    double m_dNoteY = 0.0;
};

/// The picture is made for the nodes that parts use: grids far away that only give directions don't shrink it.
void CSvgWriter::FindPlaces() {
    std::vector<bool> aUsed(m_rScene.aIDS.size());
    for (const T_PART_D& rPart : m_rScene.aPARTS) {
        for (std::size_t i = 0; i < CELL_CORNERS[rPart.iCELL]; ++i) aUsed[rPart.aNODES[i]] = true;
    }
    for (std::size_t i = 0; i < aUsed.size(); ++i) {
        if (aUsed[i] && IsFinite(m_rScene.aPOINTS[i])) m_aVisible.push_back(m_rScene.aPOINTS[i]);
    }
    if (m_aVisible.empty()) {
        std::copy_if(m_rScene.aPOINTS.begin(), m_rScene.aPOINTS.end(), std::back_inserter(m_aVisible), IsFinite);
    }
    const CIsometricView view(m_aVisible, MODEL);
    m_aPlaces.reserve(m_rScene.aPOINTS.size());
    for (const T_VECT_D& rPoint : m_rScene.aPOINTS) m_aPlaces.push_back(view.Project(rPoint));

    m_aShapes = MakeShapes(m_rScene, m_aPlaces, m_nNowhere);
    for (std::uint32_t i = 0; i < aUsed.size(); ++i) {
        if (aUsed[i]) continue;
        const T_VECT_D& rPlace = m_aPlaces[i];
        const bool bInside = rPlace[0] > BOX_LEFT && rPlace[0] < BOX_RIGHT && rPlace[1] > BOX_TOP &&
                             rPlace[1] < BOX_BOTTOM && std::abs(rPlace[2]) < 1e5;
        if (bInside) {
            m_aShapes.push_back({KIND_NODE, 1, {i}});
        } else {
            ++m_nOutside;
        }
    }
    constexpr std::size_t MANY = 500;
    if (m_rScene.aCOUNTS[KIND_NODE].nPRESENT > MANY) m_dDot = 1.2;
    m_dJoined = Simplify(m_aShapes, m_aPlaces, MOST_SHAPES);

    std::vector<std::pair<double, std::size_t>> aOrder;
    for (std::size_t i = 0; i < m_aShapes.size(); ++i) aOrder.emplace_back(DepthOf(m_aShapes[i]), i);
    std::sort(aOrder.begin(), aOrder.end());
    std::vector<T_SHAP_D> aSorted;
    aSorted.reserve(m_aShapes.size());
    for (const auto& [dDepth, iShape] : aOrder) aSorted.push_back(m_aShapes[iShape]);
    m_aShapes = std::move(aSorted);

    m_aMarks = MakeSymbols(m_rScene, view, m_aPlaces);
    std::erase_if(m_aMarks, [](const T_SYMB_D& r) { // a load on a node far away
        return !(r.dX > BOX_LEFT && r.dX < BOX_RIGHT && r.dY > BOX_TOP && r.dY < BOX_BOTTOM);
    });
    m_bThinned = ThinOut(m_aMarks, MOST_MARKS);
}

/// A face counts by its middle. A line counts by its nearer end and a little more, since it mostly runs along the edge
/// of faces and would vanish behind half of them.
double CSvgWriter::DepthOf(const T_SHAP_D& rShape) const {
    constexpr double IN_FRONT = 6.0; // pixels
    double dSum = 0.0, dNearest = m_aPlaces[rShape.aCORNERS[0]][2];
    for (std::size_t i = 0; i < rShape.nCORNERS; ++i) {
        dSum += m_aPlaces[rShape.aCORNERS[i]][2];
        dNearest = std::max(dNearest, m_aPlaces[rShape.aCORNERS[i]][2]);
    }
    return rShape.nCORNERS > 2 ? dSum / rShape.nCORNERS : dNearest + IN_FRONT;
}

/// The light comes from above and a little from the left; a face has two sides.
std::int32_t CSvgWriter::ShadeOf(const T_SHAP_D& rShape) const {
    const T_VECT_D light = Unit({-0.35, -0.85, 0.45}); // of the picture: right, down, towards the eye
    const auto Place = [&](std::size_t i) -> const T_VECT_D& { return m_aPlaces[rShape.aCORNERS[i]]; };
    T_VECT_D normal = Unit(Cross(Minus(Place(2), Place(0)), Minus(Place(rShape.nCORNERS - 1u), Place(1))));
    if (normal[2] < 0.0) normal = Minus({}, normal);
    const double dBright = (1.0 + Dot(normal, light)) / 2.0;
    const double dLast = static_cast<double>(SHADES.size() - 1);
    return static_cast<std::int32_t>(std::lround(std::clamp(dBright, 0.0, 1.0) * dLast));
}

void CSvgWriter::WriteClass(const char* sClass, const char* sSuffix, const T_RGB_D& rFill, const T_RGB_D& rStroke,
                            double dWidth) {
    m_rFile.Print(".%s%s{fill:rgb(%d,%d,%d);stroke:rgb(%d,%d,%d);stroke-width:%g;stroke-linejoin:round}\n", sClass,
                  sSuffix, rFill.iRED, rFill.iGREEN, rFill.iBLUE, rStroke.iRED, rStroke.iGREEN, rStroke.iBLUE, dWidth);
}

void CSvgWriter::WriteStroke(E_KIND iKind, const char* sSuffix, double dWidth, const char* sMore) {
    const T_LOOK_D& rLook = LOOKS[iKind];
    m_rFile.Print(".%s%s{fill:none;stroke:rgb(%d,%d,%d);stroke-width:%g;stroke-linecap:round%s}\n", rLook.sCLASS,
                  sSuffix, rLook.colour.iRED, rLook.colour.iGREEN, rLook.colour.iBLUE, dWidth, sMore);
}

/// Edges and lines are thinner where the mesh is finer, or they would cover it.
void CSvgWriter::WriteStyle() {
    double dFaces = 0.0, dLines = 0.0;
    std::size_t nFaces = 0, nLines = 0;
    for (const T_SHAP_D& rShape : m_aShapes) {
        if (rShape.nCORNERS < 2) continue;
        const T_VECT_D side = Minus(m_aPlaces[rShape.aCORNERS[1]], m_aPlaces[rShape.aCORNERS[0]]);
        (rShape.nCORNERS > 2 ? dFaces : dLines) += std::hypot(side[0], side[1]);
        ++(rShape.nCORNERS > 2 ? nFaces : nLines);
    }
    const double dEdge = nFaces ? Tenth(std::clamp(dFaces / static_cast<double>(nFaces) * 0.04, 0.1, 0.8)) : 0.8;
    const double dLine = nLines ? Tenth(std::clamp(dLines / static_cast<double>(nLines) * 0.15, 1.1, 2.2)) : 2.2;

    m_rFile.Print("<style>\n"
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
            const double dStroke = SHADES[i] * (m_dJoined > 0.0 ? 1.0 : 0.5);
            WriteClass(LOOKS[iKind].sCLASS, std::to_string(i).c_str(), Shaded(SHADES[i]), Shaded(dStroke), dEdge);
        }
        WriteStroke(iKind, "L", std::max(dLine, 1.2)); // a face that is seen as a line
    }
    WriteStroke(KIND_TRUSS, "", dLine);
    WriteStroke(KIND_BEAM, "", dLine);
    WriteStroke(KIND_RIGID, "", std::min(dLine, 1.4));
    WriteStroke(KIND_ELASTIC, "", std::max(dLine, 1.6), ";stroke-dasharray:6 3");
    WriteStroke(KIND_GENERAL, "", std::max(dLine, 1.6), ";stroke-dasharray:2 3");
    for (const E_KIND iKind : {KIND_RIGID, KIND_ELASTIC, KIND_GENERAL}) { // of no length
        WriteClass(LOOKS[iKind].sCLASS, "0", {255, 255, 255}, LOOKS[iKind].colour, 1.2);
    }
    WriteStroke(KIND_SPRING, "", 1.5);
    for (const E_KIND iKind : {KIND_MASS, KIND_FIXED}) {
        WriteClass(LOOKS[iKind].sCLASS, "", LOOKS[iKind].colour, {255, 255, 255}, 0.8);
    }
    WriteClass(LOOKS[KIND_NODE].sCLASS, "", LOOKS[KIND_NODE].colour, LOOKS[KIND_NODE].colour, 0.5);
    WriteClass(LOOKS[KIND_SUPPORT].sCLASS, "", {255, 255, 255}, LOOKS[KIND_SUPPORT].colour, 1.2);
    for (const E_KIND iKind : {KIND_FORCE, KIND_MOMENT, KIND_PRESSURE}) WriteStroke(iKind, "", 1.5);
    WriteStroke(KIND_GRAVITY, "", 2.5);
    WriteStroke(KIND_REFERENCE, "", 1.0);
    m_rFile.Write("</style>\n");
}

void CSvgWriter::WriteShape(const T_SHAP_D& rShape) {
    const T_VECT_D& rFirst = m_aPlaces[rShape.aCORNERS[0]];
    const char* sClass = LOOKS[rShape.iKIND].sCLASS;
    if (rShape.nCORNERS > 2) {
        m_rFile.Print("<path class=\"%s%d\" d=\"M%g %g", sClass, ShadeOf(rShape), Tenth(rFirst[0]), Tenth(rFirst[1]));
    } else {
        m_rFile.Print("<path class=\"%s%s\" d=\"M%g %g", sClass, IsFaceKind(rShape.iKIND) ? "L" : "", Tenth(rFirst[0]),
                      Tenth(rFirst[1]));
    }
    for (std::size_t i = 1; i < rShape.nCORNERS; ++i) {
        const T_VECT_D& rPlace = m_aPlaces[rShape.aCORNERS[i]];
        m_rFile.Print(" %g %g", Tenth(rPlace[0]), Tenth(rPlace[1]));
    }
    if (rShape.nCORNERS == 1) m_rFile.Print("h%gv%gh%g", m_dDot, m_dDot, -m_dDot);
    m_rFile.Write(rShape.nCORNERS == 2 ? "\"/>\n" : "z\"/>\n");
}

/// An arrow whose point is at the mark. One along the view is a ring, with a dot if it comes towards the eye.
void CSvgWriter::WriteArrow(const T_SYMB_D& rMark, double dLength) {
    constexpr double FLAT = 3.0; // pixels
    const char* sClass = LOOKS[rMark.iKIND].sCLASS;
    const double dX = rMark.direction[0] * dLength, dY = -rMark.direction[1] * dLength;
    const double dSeen = std::hypot(dX, dY);
    if (dSeen < FLAT) {
        m_rFile.Print("<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"4\"/>\n", sClass, Tenth(rMark.dX), Tenth(rMark.dY));
        if (rMark.direction[2] > 0.0) {
            m_rFile.Print("<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"0.8\"/>\n", sClass, Tenth(rMark.dX),
                          Tenth(rMark.dY));
        }
        return;
    }
    const double dUX = dX / dSeen, dUY = dY / dSeen;
    m_rFile.Print("<path class=\"%s\" d=\"M%g %gL%g %g", sClass, Tenth(rMark.dX - dX), Tenth(rMark.dY - dY),
                  Tenth(rMark.dX), Tenth(rMark.dY));
    const double dBarb = std::min(6.0, dSeen / 2);
    const int nHeads = rMark.iKIND == KIND_MOMENT ? 2 : 1; // as moments are drawn
    for (int i = 0; i < nHeads; ++i) {
        const double dTipX = rMark.dX - dUX * i * dBarb * 0.9, dTipY = rMark.dY - dUY * i * dBarb * 0.9;
        m_rFile.Print("M%g %gL%g %g %g %g", Tenth(dTipX - (dUX + dUY * 0.5) * dBarb),
                      Tenth(dTipY - (dUY - dUX * 0.5) * dBarb), Tenth(dTipX), Tenth(dTipY),
                      Tenth(dTipX - (dUX - dUY * 0.5) * dBarb), Tenth(dTipY - (dUY + dUX * 0.5) * dBarb));
    }
    m_rFile.Write("\"/>\n");
}

void CSvgWriter::WriteMark(const T_SYMB_D& rMark) {
    const double dX = Tenth(rMark.dX), dY = Tenth(rMark.dY);
    const char* sClass = LOOKS[rMark.iKIND].sCLASS;
    switch (rMark.iKIND) {
    case KIND_MASS:
        m_rFile.Print("<circle class=\"%s\" cx=\"%g\" cy=\"%g\" r=\"4.5\"/>\n", sClass, dX, dY);
        break;
    case KIND_SPRING:
        m_rFile.Print("<path class=\"%s\" d=\"M%g %gv2l4 2-8 3 8 3-4 2v2m-5 0h10\"/>\n", sClass, dX, dY);
        break;
    case KIND_FIXED:
    case KIND_SUPPORT:
        m_rFile.Print("<path class=\"%s\" d=\"M%g %gl5 9h-10z\"/>\n", sClass, dX, dY);
        break;
    case KIND_FORCE:
    case KIND_MOMENT:
        WriteArrow(rMark, 22.0 + 33.0 * rMark.dSIZE);
        break;
    case KIND_PRESSURE:
        WriteArrow(rMark, 14.0 + 20.0 * rMark.dSIZE);
        break;
    case KIND_GRAVITY:
        WriteArrow(rMark, 48.0);
        break;
    case KIND_REFERENCE: // begins at the beam
        m_rFile.Print("<path class=\"%s\" d=\"M%g %gL%g %g\"/>\n", sClass, dX, dY,
                      Tenth(rMark.dX + rMark.direction[0] * 10.0), Tenth(rMark.dY - rMark.direction[1] * 10.0));
        break;
    default: // a link of no length
        m_rFile.Print("<path class=\"%s0\" d=\"M%g %gm-3.5 0l3.5-3.5 3.5 3.5-3.5 3.5z\"/>\n", sClass, dX, dY);
    }
}

void CSvgWriter::WriteAxes() {
    constexpr double X = 75, Y = 780, LENGTH = 42;
    constexpr std::array<std::pair<const char*, T_VECT_D>, 3> AXES = {
        {{"X", {1, 0, 0}}, {"Y", {0, 1, 0}}, {"Z", {0, 0, 1}}}};
    for (const auto& [sName, axis] : AXES) {
        const T_VECT_D turned = CIsometricView::Turn(axis);
        m_rFile.Print("<path class=\"axis\" d=\"M%g %gL%g %g\"/>\n", X, Y, Tenth(X + turned[0] * LENGTH),
                      Tenth(Y - turned[1] * LENGTH));
        WriteText(Tenth(X - 4 + turned[0] * LENGTH * 1.3), Tenth(Y + 4 - turned[1] * LENGTH * 1.3), "axisname", sName);
    }
}

/// Gravity acts on the whole model, so its arrows stand in a row beside it.
void CSvgWriter::WriteGravity() {
    double dX = 65.0;
    for (const T_VECT_D& rDirection : m_rScene.aGRAVITY) {
        constexpr double HALF = 24.0; // of the arrow
        const T_VECT_D turned = CIsometricView::Turn(rDirection);
        WriteMark({KIND_GRAVITY, dX + turned[0] * HALF, 110.0 - turned[1] * HALF, turned, 1.0});
        dX += 60.0;
    }
    if (!m_rScene.aGRAVITY.empty()) WriteText(36, 72, "note", "gravity");
}

void CSvgWriter::WriteModel() {
    m_rFile.Write("<g id=\"model\">\n");
    for (const T_SHAP_D& rShape : m_aShapes) WriteShape(rShape);
    m_rFile.Write("</g>\n<g id=\"marks\">\n");
    for (const T_SYMB_D& rMark : m_aMarks) WriteMark(rMark);
    WriteGravity();
    m_rFile.Write("</g>\n");
}

/// What a kind looks like, for its row of the legend.
void CSvgWriter::WriteSample(E_KIND iKind, double dY) {
    constexpr double MIDDLE = LEGEND_LEFT + 12;
    const char* sClass = LOOKS[iKind].sCLASS;
    if (IsFaceKind(iKind)) {
        m_rFile.Print("<path class=\"%s3\" d=\"M%g %gh22v12h-22z\"/>\n", sClass, LEGEND_LEFT, dY - 10);
    } else if (iKind == KIND_NODE) {
        m_rFile.Print("<path class=\"%s\" d=\"M%g %gh2.5v2.5h-2.5z\"/>\n", sClass, MIDDLE, dY - 5);
    } else if (iKind < KIND_SPRING) {
        m_rFile.Print("<path class=\"%s\" d=\"M%g %gh24\"/>\n", sClass, LEGEND_LEFT, dY - 4);
        if (HasMark(iKind)) WriteMark({iKind, MIDDLE, dY - 4, {}, 0.0});
    } else if (iKind == KIND_MASS || iKind == KIND_SPRING || iKind == KIND_FIXED || iKind == KIND_SUPPORT) {
        WriteMark({iKind, MIDDLE, iKind == KIND_MASS ? dY - 4 : dY - 10, {}, 0.0});
    } else if (iKind == KIND_REFERENCE) {
        WriteMark({iKind, MIDDLE, dY, {0, 1, 0}, 0.0});
    } else {
        const T_SYMB_D arrow = {iKind, LEGEND_LEFT + 24, dY - 4, {1, 0, 0}, 0.0};
        WriteArrow(arrow, 24.0);
    }
}

void CSvgWriter::WriteLegend() {
    double dY = BOX_TOP + 12;
    m_rFile.Write("<g id=\"legend\">\n");
    WriteText(LEGEND_COUNTS, dY, "count note", "count");
    WriteText(LEGEND_LOST, dY, "count note", "without nodes");
    dY += 22;
    WriteText(LEGEND_NAMES, dY, "head", "nodes");
    WriteText(LEGEND_COUNTS, dY, "count", std::to_string(m_rScene.aIDS.size()));
    for (std::uint8_t i = 0; i < KIND_REFERENCE; ++i) {
        const T_CONT_D& rCount = m_rScene.aCOUNTS[i];
        if (rCount.nPRESENT == 0 && rCount.nWITHOUTNODES == 0) continue;
        dY += 22;
        WriteSample(static_cast<E_KIND>(i), dY);
        WriteText(LEGEND_NAMES, dY, "name", LOOKS[i].sNAME);
        WriteText(LEGEND_COUNTS, dY, "count", std::to_string(rCount.nPRESENT));
        if (rCount.nWITHOUTNODES > 0) WriteText(LEGEND_LOST, dY, "lost", std::to_string(rCount.nWITHOUTNODES));
    }
    if (HasMark(KIND_REFERENCE)) {
        dY += 22;
        WriteSample(KIND_REFERENCE, dY);
        WriteText(LEGEND_NAMES, dY, "name", "towards the beam's reference");
    }
    m_dNoteY = dY + 14;
    WriteExtents();
    WriteNotes();
    m_rFile.Write("</g>\n");
}

/// In as many lines as it takes.
void CSvgWriter::WriteNote(std::string sText) {
    while (!sText.empty()) {
        std::size_t nLine = sText.size();
        if (nLine > LONGEST_NOTE) nLine = sText.rfind(' ', LONGEST_NOTE);
        m_dNoteY += 16;
        WriteText(LEGEND_LEFT, m_dNoteY, "note", sText.substr(0, nLine));
        sText.erase(0, std::min(nLine + 1, sText.size()));
    }
    m_dNoteY += 4;
}

void CSvgWriter::WriteExtents() {
    if (m_aVisible.empty()) return;
    constexpr std::array<const char*, 3> NAMES = {"X ", "Y ", "Z "};
    for (std::size_t i = 0; i < 3; ++i) {
        const auto [pLeast, pMost] = std::minmax_element(
            m_aVisible.begin(), m_aVisible.end(), [i](const T_VECT_D& a, const T_VECT_D& b) { return a[i] < b[i]; });
        WriteNote(NAMES[i] + Number((*pLeast)[i]) + " to " + Number((*pMost)[i]));
    }
}

void CSvgWriter::WriteNotes() {
    const auto Count = [this](const char* sText, std::size_t n) {
        if (n > 0) WriteNote(sText + std::to_string(n));
    };
    Count("Load cases, drawn together: ", m_rScene.nCASES);
    Count("Elements and equations that have no line in the target file: ", m_rScene.nFORMLESS);
    Count("Not drawn, coordinates are no numbers: ", m_nNowhere);
    Count("Free nodes outside of the picture: ", m_nOutside);
    Count("Not drawn, pressures on solids that name no face: ", m_rScene.nFACELESS);
    if (m_rScene.aCOUNTS[KIND_SOLID].nPRESENT > 0) WriteNote("Of solids the outer faces are drawn.");
    if (m_dJoined > 0.0) {
        WriteNote("Simplified: nodes less than " + Number(Tenth(m_dJoined)) +
                  " pixels apart are drawn as one, without edges of elements.");
    }
    if (m_bThinned) {
        WriteNote("Of more than " + std::to_string(MOST_MARKS) +
                  " marks of a kind some are drawn, the largest of a neighbourhood.");
    }
}

void CSvgWriter::Write(const std::string& sTitle) {
    FindPlaces();
    m_rFile.Write(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1280\" height=\"860\" viewBox=\"0 0 1280 860\">\n");
    m_rFile.Print("<title>%s</title>\n", XmlText(sTitle, LONGEST_TITLE));
    WriteStyle();
    m_rFile.Write("<rect width=\"1280\" height=\"860\" fill=\"#fff\"/>\n");
    WriteText(BOX_LEFT, 34, "title", sTitle);
    m_rFile.Print("<path class=\"box\" d=\"M%g %gH%gV%gH%gz\"/>\n", BOX_LEFT, BOX_TOP, BOX_RIGHT, BOX_BOTTOM, BOX_LEFT);
    WriteModel();
    WriteAxes();
    WriteLegend();
    m_rFile.Write("</svg>\n");
}

} // namespace

void WriteSvg(const CDataPool& rDataPool, const std::string& sTitle, const std::string& sPath,
              const std::vector<T_FILEID_D>& aKeep) {
    CWholeFile file(sPath, aKeep);
    T_SCEN_D scene = CollectParts(rDataPool);
    CollectLoads(rDataPool, scene);
    CSvgWriter(file, scene).Write(sTitle);
    file.Finish();
}
