// Loads, supports, and what stands for a set of its own.

#include "deckgen/Model.h"

namespace {

using U64 = std::uint64_t;

constexpr U64 LOAD_SETS = 4;
constexpr U64 SUPPORT_SETS = 4;

/// Set id of load card n. Cards of one set mostly stand together, as pre-processors write them.
std::int64_t SetOf(U64 n, U64 nSets) {
    return static_cast<std::int64_t>(1 + n / 32 % nSets);
}

/// SID, G.
CCardText& PutAtGrid(CCardText& t, const CModel& m, U64 n) {
    return t.Int(SetOf(n, LOAD_SETS)).Int(m.GridId(m.Random(n, 30)));
}

/// SID, EID.
CCardText& PutAtElement(CCardText& t, const CModel& m, U64 n, E_GROUP iElements) {
    return t.Int(SetOf(n, LOAD_SETS)).Int(m.OneOf(iElements, m.Random(n, 30)));
}

void PutVector(CCardText& t, const CModel& m, U64 n) {
    PutAtGrid(t, m, n).Int(0).Digits(m.Random(n, 31), 3).Real(0, 0).Real(6, 1).Real(-8, 1);
}
void PutTwoGrids(CCardText& t, const CModel& m, U64 n) {
    PutAtGrid(t, m, n).Digits(m.Random(n, 31), 3);
    t.Int(m.CornerId(n, 1, {0, 0, 0})).Int(m.CornerId(n, 1, {1, 1, 0}));
}
void PutFourGrids(CCardText& t, const CModel& m, U64 n) {
    PutAtGrid(t, m, n).Digits(m.Random(n, 31), 3);
    t.Int(m.CornerId(n, 1, {0, 0, 0})).Int(m.CornerId(n, 1, {1, 0, 0}));
    t.Int(m.CornerId(n, 1, {0, 0, 0})).Int(m.CornerId(n, 1, {0, 1, 0}));
}

void PutPLOAD1(CCardText& t, const CModel& m, U64 n) {
    static constexpr std::string_view TYPES[] = {"FX", "FY", "FZ", "FXE", "FYE", "FZE", "MX", "MYE"};
    static constexpr std::string_view SCALES[] = {"FR", "LE"};
    PutAtElement(t, m, n, GROUP_BARS).Text(TYPES[n % 8]).Text(SCALES[n / 8 % 2]);
    t.Real(0, 1).Digits(m.Random(n, 31), 3).Real(1, 1).Digits(m.Random(n, 32), 3);
}

/// A list of ids, or one of eight a short range.
void PutPLOAD2(CCardText& t, const CModel& m, U64 n) {
    t.Int(SetOf(n, LOAD_SETS)).Digits(m.Random(n, 31), 3);
    const U64 nFirst = m.Random(n, 30);
    const std::int64_t iFirst = m.OneOf(GROUP_SHELLS, nFirst);
    t.Int(iFirst);
    if (n % 8 == 7) {
        t.Text("THRU").Int(iFirst + 3);
    } else {
        t.Int(m.OneOf(GROUP_SHELLS, nFirst + 1));
    }
}

/// Plates, and solids where there are any: one of two by a face.
void PutPLOAD4(CCardText& t, const CModel& m, U64 n) {
    if (n % 2 == 1 && m.Count(GROUP_SOLIDS) > 0) {
        const U64 nSolid = m.Random(n, 30) % m.Count(GROUP_SOLIDS) + m.First(GROUP_SOLIDS);
        t.Int(SetOf(n, LOAD_SETS)).Int(m.ElementId(nSolid)).Digits(m.Random(n, 31), 3).Blank(3);
        t.Int(m.CornerId(nSolid, 1, {0, 0, 0})).Int(m.CornerId(nSolid, 1, {1, 1, 0}));
    } else {
        PutAtElement(t, m, n, GROUP_SHELLS).Digits(m.Random(n, 31), 3);
    }
}

void PutTEMP(CCardText& t, const CModel& m, U64 n) {
    t.Int(SetOf(n, LOAD_SETS));
    for (U64 i = 0; i < 3; ++i) t.Int(m.GridId(3 * n + i)).Digits(m.Random(n, 31 + i), 3);
}
void PutTEMPP1(CCardText& t, const CModel& m, U64 n) {
    const U64 nShell = m.Random(n, 30);
    PutAtElement(t, m, n, GROUP_SHELLS).Digits(m.Random(n, 31), 3).Real(5, 1).Real(255, 1).Real(245, 1);
    if (n % 4 == 3) t.Blank(2).Int(m.OneOf(GROUP_SHELLS, nShell + 1)).Int(m.OneOf(GROUP_SHELLS, nShell + 2));
}
void PutTEMPRB(CCardText& t, const CModel& m, U64 n) {
    PutAtElement(t, m, n, GROUP_BARS).Digits(m.Random(n, 31), 3).Digits(m.Random(n, 32), 3);
}

void PutSPC(CCardText& t, const CModel& m, U64 n) {
    t.Int(SetOf(n, SUPPORT_SETS)).Int(m.GridId(m.Random(n, 30))).Text(n % 2 == 1 ? "123456" : "123").Real(0, 1);
}
void PutSPC1(CCardText& t, const CModel& m, U64 n) {
    t.Int(SetOf(n, SUPPORT_SETS)).Text(n % 2 == 1 ? "123456" : "3");
    for (U64 i = 0; i < 6; ++i) t.Int(m.GridId(m.Random(n, 30) + i));
}
void PutMPC(CCardText& t, const CModel& m, U64 n) {
    t.Int(SetOf(n, SUPPORT_SETS));
    t.Int(m.CornerId(n, 1, {0, 0, 0})).Int(static_cast<int>(1 + n % 3)).Real(10, 1);
    t.Int(m.CornerId(n, 1, {1, 0, 0})).Int(static_cast<int>(1 + n % 3)).Real(-5, 1);
    if (n % 2 == 1) t.Blank(2).Int(m.CornerId(n, 1, {0, 1, 0})).Int(static_cast<int>(1 + n % 3)).Real(-5, 1);
}
void PutSPCD(CCardText& t, const CModel& m, U64 n) {
    PutAtGrid(t, m, n).Text("3").Digits(m.Random(n, 31), 0);
}

void PutGRAV(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_SETS, n)).Int(0).Real(static_cast<int>(9800 + n % 100), 3).Real(0, 0).Real(0, 0).Real(-1, 0);
}
void PutLOAD(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_SETS, n)).Real(10, 1);
    for (U64 i = 0; i < 3; ++i) {
        t.Real(static_cast<int>(10 + n % 7), 1).Int(static_cast<std::int64_t>(1 + m.Pick(n, 31 + i, LOAD_SETS)));
    }
}

/// One pair as a rule, four on one of eight cards.
void PutTEMPD(CCardText& t, const CModel& m, U64 n) {
    for (U64 i = 0; i < (n / 4 % 8 == 7 ? 4U : 1U); ++i) {
        t.Int(m.Id(SPACE_SETS, n + i)).Digits(m.Random(n + i, 31), 3);
    }
}
void PutEIGB(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_SETS, n)).Text("SINV").Real(1, 1).Digits(m.Random(n, 31), 2).Int(10).Int(5).Int(5).Blank();
    t.Text("MAX");
}
void PutEIGRL(CCardText& t, const CModel& m, U64 n) {
    t.Int(m.Id(SPACE_SETS, n)).Real(1, 1).Digits(m.Random(n, 31), 3).Int(static_cast<int>(10 + n % 10));
    t.Blank(3).Text("MASS");
}

// clang-format off
constexpr T_KIND_D KINDS[] = {
    {"FORCE",   PutVector,    GROUP_LOADS,    35},
    {"MOMENT",  PutVector,    GROUP_LOADS,    6},
    {"FORCE1",  PutTwoGrids,  GROUP_LOADS,    2},
    {"MOMENT1", PutTwoGrids,  GROUP_LOADS,    1},
    {"FORCE2",  PutFourGrids, GROUP_LOADS,    2},
    {"MOMENT2", PutFourGrids, GROUP_LOADS,    1},
    {"PLOAD4",  PutPLOAD4,    GROUP_LOADS,    25, GROUP_SHELLS},
    {"PLOAD2",  PutPLOAD2,    GROUP_LOADS,    6,  GROUP_SHELLS},
    {"PLOAD1",  PutPLOAD1,    GROUP_LOADS,    6,  GROUP_BARS},
    {"TEMP",    PutTEMP,      GROUP_LOADS,    8},
    {"TEMPP1",  PutTEMPP1,    GROUP_LOADS,    3,  GROUP_SHELLS},
    {"TEMPRB",  PutTEMPRB,    GROUP_LOADS,    2,  GROUP_BARS},
    {"SPCD",    PutSPCD,      GROUP_LOADS,    3},
    {"SPC",     PutSPC,       GROUP_SUPPORTS, 40},
    {"SPC1",    PutSPC1,      GROUP_SUPPORTS, 50},
    {"MPC",     PutMPC,       GROUP_SUPPORTS, 10},
    {"GRAV",    PutGRAV,      GROUP_SETS,     20},
    {"LOAD",    PutLOAD,      GROUP_SETS,     50},
    {"TEMPD",   PutTEMPD,     GROUP_SETS,     20, GROUP_NONE, 4},
    {"EIGRL",   PutEIGRL,     GROUP_SETS,     6},
    {"EIGB",    PutEIGB,      GROUP_SETS,     4},
};
// clang-format on

} // namespace

const std::span<const T_KIND_D> LOAD_KINDS = KINDS;
