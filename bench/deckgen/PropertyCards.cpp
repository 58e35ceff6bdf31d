// Properties and materials.

#include "deckgen/Model.h"

#include <iterator>

namespace {

using U64 = std::uint64_t;

/// PID and MID.
CCardText& PutIds(CCardText& t, const CModel& m, U64 n) {
    return t.Int(m.Id(SPACE_PROPERTIES, n)).Int(m.OneOf(GROUP_MATERIALS, m.Random(n, 20)));
}

/// nFields values that differ from card to card.
void PutValues(CCardText& t, const CModel& m, U64 n, U64 nSalt, int nFields) {
    for (int i = 0; i < nFields; ++i) t.Digits(m.Random(n, nSalt + static_cast<U64>(i)), 2);
}

void PutPBAR(CCardText& t, const CModel& m, U64 n) {
    PutIds(t, m, n);
    PutValues(t, m, n, 21, 4); // A, I1, I2, J
    if (n % 2 == 0) return;
    t.Real(0, 1).Blank().Real(5, 1).Real(5, 1).Real(-5, 1).Real(5, 1).Real(-5, 1).Real(-5, 1).Real(5, 1).Real(-5, 1);
    t.Real(83, 2).Real(83, 2); // stress points, then K1 and K2
}

void PutPBARL(CCardText& t, const CModel& m, U64 n) {
    struct T_SHAPE_D {
        std::string_view sTYPE;
        int nDIMS;
    };
    static constexpr T_SHAPE_D SHAPES[] = {{"BAR", 2}, {"BOX", 4},  {"ROD", 1},   {"TUBE", 2}, {"I", 6},   {"T", 4},
                                           {"H", 4},   {"CHAN", 4}, {"CROSS", 4}, {"Z", 4},    {"HAT", 4}, {"HEXA", 3}};
    const T_SHAPE_D& rShape = SHAPES[n % std::size(SHAPES)];
    PutIds(t, m, n).Blank().Text(rShape.sTYPE).Blank(4);
    PutValues(t, m, n, 21, rShape.nDIMS);
}

void PutPBEAM(CCardText& t, const CModel& m, U64 n) {
    PutIds(t, m, n);
    PutValues(t, m, n, 21, 3); // A, I1, I2
    t.Real(0, 1);
    PutValues(t, m, n, 24, 1); // J
    if (n % 4 != 3) return;
    t.Real(0, 1).Real(5, 1).Real(5, 1).Real(-5, 1).Real(5, 1).Real(-5, 1).Real(-5, 1).Real(5, 1).Real(-5, 1);
    t.Text("YES").Real(10, 1); // the other end
    PutValues(t, m, n, 25, 3);
    t.Real(0, 1);
    PutValues(t, m, n, 28, 1);
}

void PutPBEND(CCardText& t, const CModel& m, U64 n) {
    PutIds(t, m, n);
    PutValues(t, m, n, 21, 5); // A, I1, I2, J, RB
}
void PutPROD(CCardText& t, const CModel& m, U64 n) {
    PutIds(t, m, n);
    PutValues(t, m, n, 21, 2); // A, J
}
void PutPTUBE(CCardText& t, const CModel& m, U64 n) {
    PutIds(t, m, n).Real(static_cast<int>(100 + n % 100), 2).Real(static_cast<int>(2 + n % 20), 2); // OD, T
}

void PutPSHELL(CCardText& t, const CModel& m, U64 n) {
    const std::int64_t iMID = m.OneOf(GROUP_MATERIALS, m.Random(n, 20));
    t.Int(m.Id(SPACE_PROPERTIES, n)).Int(iMID).Digits(m.Random(n, 21), 0);
    if (n % 4 != 3) t.Int(iMID).Blank().Int(iMID); // the rest are membranes
}

/// Four plies.
void PutPCOMP(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_PROPERTIES, n)).Real(-5, 1).Blank(6);
    for (U64 iPly = 0; iPly < 4; ++iPly) {
        t.Int(m.OneOf(GROUP_MATERIALS, n + iPly)).Real(125, 3).Real(45 * static_cast<std::int64_t>(iPly), 0).Text("YES");
    }
}
void PutPSHEAR(CCardText& t, const CModel& m, U64 n) {
    PutIds(t, m, n).Digits(m.Random(n, 21), 0);
}
void PutPSOLID(CCardText& t, const CModel& m, U64 n) {
    PutIds(t, m, n).Int(0);
}

void PutPELAS(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_PROPERTIES, n)).Digits(m.Random(n, 21), 5).Real(0, 1).Real(0, 1);
}
void PutPBUSH(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_PROPERTIES, n)).Text("K");
    PutValues(t, m, n, 21, 6);
    if (n % 4 == 3) t.Text("B").Real(1, 1).Real(1, 1).Real(1, 1);
}
void PutPGAP(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_PROPERTIES, n)).Real(1, 2).Real(0, 1).Digits(m.Random(n, 21), 5).Power(10, 1, 2).Power(1, 0, 3);
    t.Real(3, 1).Real(3, 1);
}

void PutMAT1(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_MATERIALS, n)).Power(static_cast<int>(200 + n % 20), 2, 11).Blank().Real(3, 1);
    t.Real(7850, 0).Power(12, 1, -5).Real(20, 0);
}
void PutMAT4(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_MATERIALS, n)).Digits(m.Random(n, 21), 3).Digits(m.Random(n, 22), 3).Real(7850, 0);
}
void PutMAT8(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_MATERIALS, n)).Power(static_cast<int>(1200 + n % 200), 1, 9).Power(95, 1, 9).Real(32, 2);
    t.Power(52, 1, 9).Power(52, 1, 9).Power(34, 1, 9).Real(1580, 0).Power(-3, 1, -6).Power(28, 0, -6).Real(20, 0);
    t.Power(15, 1, 9).Power(12, 1, 9).Power(5, 1, 7).Power(25, 0, 7).Power(7, 0, 7);
}

// clang-format off
constexpr T_KIND_D KINDS[] = { // the first of a group is the one that comes along with elements
    {"PBAR",   PutPBAR,   GROUP_BAR_SECTIONS,    100, GROUP_MATERIALS},
    {"PBARL",  PutPBARL,  GROUP_BAR_SECTIONS,    0,   GROUP_MATERIALS},
    {"PBEAM",  PutPBEAM,  GROUP_BEAM_SECTIONS,   100, GROUP_MATERIALS},
    {"PBEND",  PutPBEND,  GROUP_BEND_SECTIONS,   100, GROUP_MATERIALS},
    {"PROD",   PutPROD,   GROUP_ROD_SECTIONS,    100, GROUP_MATERIALS},
    {"PTUBE",  PutPTUBE,  GROUP_TUBE_SECTIONS,   100, GROUP_MATERIALS},
    {"PSHELL", PutPSHELL, GROUP_SHELL_SECTIONS,  100, GROUP_MATERIALS},
    {"PCOMP",  PutPCOMP,  GROUP_SHELL_SECTIONS,  0,   GROUP_MATERIALS},
    {"PSHEAR", PutPSHEAR, GROUP_SHEAR_SECTIONS,  100, GROUP_MATERIALS},
    {"PSOLID", PutPSOLID, GROUP_SOLID_SECTIONS,  100, GROUP_MATERIALS},
    {"PELAS",  PutPELAS,  GROUP_SPRING_SECTIONS, 100},
    {"PBUSH",  PutPBUSH,  GROUP_BUSH_SECTIONS,   100},
    {"PGAP",   PutPGAP,   GROUP_GAP_SECTIONS,    100},
    {"MAT1",   PutMAT1,   GROUP_MATERIALS,       100},
    {"MAT4",   PutMAT4,   GROUP_MATERIALS,       0},
    {"MAT8",   PutMAT8,   GROUP_MATERIALS,       0},
};
// clang-format on

} // namespace

const std::span<const T_KIND_D> PROPERTY_KINDS = KINDS;
