// Grids, frames and elements.

#include "deckgen/Model.h"

namespace {

using U64 = std::uint64_t;

// Corners and midsides of the shapes in card order, in a cell two places wide.
constexpr T_CORNER_D TRIA[] = {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
constexpr T_CORNER_D QUAD[] = {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}, {1, 0, 0}, {2, 1, 0}, {1, 2, 0}, {0, 1, 0}};
constexpr T_CORNER_D TETRA[] = {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {0, 0, 2}, {1, 0, 0},
                                {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {0, 1, 1}};
constexpr T_CORNER_D PENTA[] = {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {0, 0, 2}, {2, 0, 2}, {0, 2, 2}, {1, 0, 0}, {1, 1, 0},
                                {0, 1, 0}, {0, 0, 1}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {1, 1, 2}, {0, 1, 2}};
constexpr T_CORNER_D HEXA[] = {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}, {0, 0, 2}, {2, 0, 2}, {2, 2, 2},
                               {0, 2, 2}, {1, 0, 0}, {2, 1, 0}, {1, 2, 0}, {0, 1, 0}, {0, 0, 1}, {2, 0, 1},
                               {2, 2, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 2}, {1, 2, 2}, {0, 1, 2}};

/// EID, PID and the first nCorners grids of a shape; without its midsides the shape is one place wide.
void PutShape(CCardText& t, const CModel& m, U64 n, E_GROUP iSections, std::span<const T_CORNER_D> aShape,
              std::size_t nCorners) {
    const bool bMidsides = nCorners == aShape.size();
    t.Int(m.ElementId(n)).Int(m.OneOf(iSections, m.Random(n, 10)));
    for (const T_CORNER_D corner : aShape.first(nCorners)) {
        t.Int(bMidsides ? m.CornerId(n, 2, corner) : m.CornerId(n, 1, {corner.iX / 2, corner.iY / 2, corner.iZ / 2}));
    }
}

/// EID, PID and the two ends along X of a line element.
void PutLine(CCardText& t, const CModel& m, U64 n, E_GROUP iSections) {
    t.Int(m.ElementId(n)).Int(m.OneOf(iSections, m.Random(n, 10)));
    t.Int(m.CornerId(n, 1, {0, 0, 0})).Int(m.CornerId(n, 1, {1, 0, 0}));
}

/// The same with an orientation: mostly a vector, now and then a grid.
void PutOriented(CCardText& t, const CModel& m, U64 n, E_GROUP iSections) {
    PutLine(t, m, n, iSections);
    if (n % 8 == 7) {
        t.Int(m.CornerId(n, 1, {0, 1, 0}));
    } else {
        t.Real(0, 0).Real(0, 0).Real(1, 0);
    }
}

void PutGRID(CCardText& t, const CModel& m, U64 n) {
    const auto [iX, iY, iZ] = m.Coordinates(n);
    const bool bFrames = m.Count(GROUP_FRAMES) > 0;
    t.Int(m.GridId(n));
    if (bFrames && n % 16 == 15) {
        t.Int(m.OneOf(GROUP_FRAMES, m.Random(n, 11)));
    } else {
        t.Blank();
    }
    t.Coordinate(iX).Coordinate(iY).Coordinate(iZ);
    if (bFrames && n % 8 == 7) t.Int(m.OneOf(GROUP_FRAMES, m.Random(n, 12)));
}

void PutCORD1(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_FRAMES, n));
    t.Int(m.CornerId(n, 1, {0, 0, 0})).Int(m.CornerId(n, 1, {1, 0, 0})).Int(m.CornerId(n, 1, {0, 1, 0}));
}

/// Upright frames; one of eight stands in another, none deeper than that.
void PutCORD2(CCardText& t, const CModel& m, U64 n) {
    const auto [iX, iY, iZ] = m.Coordinates(n);
    t.Int(m.Id(SPACE_FRAMES, n));
    t.Int(n % 8 == 7 ? m.Id(SPACE_FRAMES, n - 1) : 0);
    t.Coordinate(iX).Coordinate(iY).Coordinate(iZ);
    t.Coordinate(iX).Coordinate(iY).Coordinate(iZ + 10'000'000);
    t.Coordinate(iX + 10'000'000).Coordinate(iY).Coordinate(iZ);
}

void PutCBAR(CCardText& t, const CModel& m, U64 n) {
    PutOriented(t, m, n, GROUP_BAR_SECTIONS);
}
void PutCBEAM(CCardText& t, const CModel& m, U64 n) {
    PutOriented(t, m, n, GROUP_BEAM_SECTIONS);
}
void PutCBEND(CCardText& t, const CModel& m, U64 n) {
    PutOriented(t, m, n, GROUP_BEND_SECTIONS);
}
void PutCROD(CCardText& t, const CModel& m, U64 n) {
    PutLine(t, m, n, GROUP_ROD_SECTIONS);
}
void PutCTUBE(CCardText& t, const CModel& m, U64 n) {
    PutLine(t, m, n, GROUP_TUBE_SECTIONS);
}
void PutCONROD(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.ElementId(n)).Int(m.CornerId(n, 1, {0, 0, 0})).Int(m.CornerId(n, 1, {1, 0, 0}));
    t.Int(m.OneOf(GROUP_MATERIALS, m.Random(n, 10)));
    t.Digits(m.Random(n, 13), 2).Digits(m.Random(n, 14), 2).Real(0, 1).Real(12, 3);
}

void PutTria3(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SHELL_SECTIONS, TRIA, 3);
}
void PutCTRIA6(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SHELL_SECTIONS, TRIA, 6);
}
void PutQuad4(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SHELL_SECTIONS, QUAD, 4);
}
void PutCQUAD8(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SHELL_SECTIONS, QUAD, 8);
}
void PutCSHEAR(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SHEAR_SECTIONS, QUAD, 4);
}
// One of four solids has its midsides.
void PutCTETRA(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SOLID_SECTIONS, TETRA, n % 4 == 3 ? 10 : 4);
}
void PutCPENTA(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SOLID_SECTIONS, PENTA, n % 4 == 3 ? 15 : 6);
}
void PutCHEXA(CCardText& t, const CModel& m, U64 n) {
    PutShape(t, m, n, GROUP_SOLID_SECTIONS, HEXA, n % 4 == 3 ? 20 : 8);
}

/// G1, C1, G2 and C2 of a spring.
void PutSpringEnds(CCardText& t, const CModel& m, U64 n) {
    const auto iComponent = static_cast<int>(1 + n % 6);
    t.Int(m.CornerId(n, 1, {0, 0, 0})).Int(iComponent).Int(m.CornerId(n, 1, {0, 1, 0})).Int(iComponent);
}
void PutCELAS1(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.ElementId(n)).Int(m.OneOf(GROUP_SPRING_SECTIONS, m.Random(n, 10)));
    PutSpringEnds(t, m, n);
}
void PutCELAS2(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.ElementId(n)).Digits(m.Random(n, 13), 4);
    PutSpringEnds(t, m, n);
}
void PutCBUSH(CCardText& t, const CModel& m, U64 n) {
    PutOriented(t, m, n, GROUP_BUSH_SECTIONS);
}
void PutCGAP(CCardText& t, const CModel& m, U64 n) {
    PutOriented(t, m, n, GROUP_GAP_SECTIONS);
}
void PutCONM2(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.ElementId(n)).Int(m.GridId(m.Random(n, 15))).Blank().Digits(m.Random(n, 13), 3);
    if (n % 2 == 1) t.Blank(4).Digits(m.Random(n, 14), 2).Blank().Real(25, 1).Blank(2).Real(31, 1);
}
void PutRBE2(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.ElementId(n)).Int(m.CornerId(n, 2, {1, 1, 0})).Text("123456");
    for (const T_CORNER_D corner : std::span(QUAD).first(n % 4 == 3 ? 8 : 4)) t.Int(m.CornerId(n, 2, corner));
}

// clang-format off
constexpr T_KIND_D KINDS[] = {
    {"GRID",   PutGRID,   GROUP_GRIDS,   100},
    {"CORD1R", PutCORD1,  GROUP_FRAMES,  10},
    {"CORD1C", PutCORD1,  GROUP_FRAMES,  10},
    {"CORD1S", PutCORD1,  GROUP_FRAMES,  5,  GROUP_NONE, 2},
    {"CORD2R", PutCORD2,  GROUP_FRAMES,  50},
    {"CORD2C", PutCORD2,  GROUP_FRAMES,  20},
    {"CORD2S", PutCORD2,  GROUP_FRAMES,  5},
    {"CQUAD4", PutQuad4,  GROUP_SHELLS,  75, GROUP_SHELL_SECTIONS},
    {"CTRIA3", PutTria3,  GROUP_SHELLS,  12, GROUP_SHELL_SECTIONS},
    {"CQUADR", PutQuad4,  GROUP_SHELLS,  2,  GROUP_SHELL_SECTIONS},
    {"CTRIAR", PutTria3,  GROUP_SHELLS,  2,  GROUP_SHELL_SECTIONS},
    {"CQUAD8", PutCQUAD8, GROUP_SHELLS,  4,  GROUP_SHELL_SECTIONS},
    {"CTRIA6", PutCTRIA6, GROUP_SHELLS,  3,  GROUP_SHELL_SECTIONS},
    {"CSHEAR", PutCSHEAR, GROUP_SHELLS,  2,  GROUP_SHEAR_SECTIONS},
    {"CBAR",   PutCBAR,   GROUP_BARS,    60, GROUP_BAR_SECTIONS},
    {"CBEAM",  PutCBEAM,  GROUP_BARS,    15, GROUP_BEAM_SECTIONS},
    {"CROD",   PutCROD,   GROUP_BARS,    10, GROUP_ROD_SECTIONS},
    {"CTUBE",  PutCTUBE,  GROUP_BARS,    5,  GROUP_TUBE_SECTIONS},
    {"CBEND",  PutCBEND,  GROUP_BARS,    5,  GROUP_BEND_SECTIONS},
    {"CONROD", PutCONROD, GROUP_BARS,    5,  GROUP_MATERIALS},
    {"CHEXA",  PutCHEXA,  GROUP_SOLIDS,  60, GROUP_SOLID_SECTIONS},
    {"CTETRA", PutCTETRA, GROUP_SOLIDS,  25, GROUP_SOLID_SECTIONS},
    {"CPENTA", PutCPENTA, GROUP_SOLIDS,  15, GROUP_SOLID_SECTIONS},
    {"CELAS1", PutCELAS1, GROUP_SPRINGS, 20, GROUP_SPRING_SECTIONS},
    {"CELAS2", PutCELAS2, GROUP_SPRINGS, 20},
    {"CBUSH",  PutCBUSH,  GROUP_SPRINGS, 20, GROUP_BUSH_SECTIONS},
    {"CGAP",   PutCGAP,   GROUP_SPRINGS, 5,  GROUP_GAP_SECTIONS},
    {"CONM2",  PutCONM2,  GROUP_SPRINGS, 20},
    {"RBE2",   PutRBE2,   GROUP_SPRINGS, 15},
};
// clang-format on

} // namespace

const std::span<const T_KIND_D> ELEMENT_KINDS = KINDS;
