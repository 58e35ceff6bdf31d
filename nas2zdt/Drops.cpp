// The rules by which stored cards lose fields, as data.

#include "nas2zdt/Drops.h"

#include "reader/FieldParser.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::size_t ALL_FIELDS = 1000000; // more than a card has
constexpr std::uint32_t ALL_BITS = 0xFFFFFFFF;

constexpr std::uint32_t Bits(std::size_t iFirst, std::size_t iLast) {
    std::uint32_t nBits = 0;
    for (std::size_t i = iFirst; i <= iLast; ++i) nBits |= std::uint32_t(1) << i;
    return nBits;
}
constexpr std::uint32_t Bit(std::size_t i) {
    return Bits(i, i);
}

std::string_view Field(const T_DATA_D& rCard, std::size_t i) {
    return i < rCard.aFIELDS.size() ? rCard.aFIELDS[i] : std::string_view();
}

bool IsThru(std::string_view sField) {
    return sField == "THRU";
}

/// Blank, a carriage return, or digits that make a zero.
bool IsNothing(std::string_view sField) {
    return sField.empty() || sField.find_first_not_of("0.\r") == std::string_view::npos;
}

/// Whether one of the fields that bits of nFields name holds something.
bool HoldsOneOf(const T_DATA_D& rCard, std::uint32_t nFields) {
    for (; nFields != 0; nFields &= nFields - 1) {
        const auto i = static_cast<std::size_t>(std::countr_zero(nFields));
        if (i >= rCard.aFIELDS.size()) return false;
        if (!IsNothing(rCard.aFIELDS[i])) return true;
    }
    return false;
}

/// The same for the fields from iFirst on.
bool HoldsBehind(const T_DATA_D& rCard, std::size_t iFirst) {
    for (std::size_t i = iFirst; i < rCard.aFIELDS.size(); ++i) {
        if (!IsNothing(rCard.aFIELDS[i])) return true;
    }
    return false;
}

/// Whether one of the fields that bits of nFields name is the word THRU.
bool HoldsThru(const T_DATA_D& rCard, std::uint32_t nFields) {
    if (nFields == 0) return false;
    const std::size_t nSize = std::min<std::size_t>(rCard.aFIELDS.size(), 32);
    for (std::size_t i = 0; i < nSize; ++i) {
        if ((nFields >> i & 1) != 0 && IsThru(rCard.aFIELDS[i])) return true;
    }
    return false;
}

bool IsNot(std::string_view sField, double dDefault) {
    return !IsNothing(sField) && TextToReal(sField) != dDefault;
}

/// S of a LOAD: the file has the factors of its sets alone.
bool HasLoadScale(const T_DATA_D& rCard) {
    return TextToReal(Field(rCard, 1)) != 1.0;
}

bool HasShellFactors(const T_DATA_D& rCard) {
    return IsNot(Field(rCard, 4), 1.0) || IsNot(Field(rCard, 6), 0.833333);
}

/// Sections of a PBUSH behind a blank field in the place of a keyword.
bool EndsBushEarly(const T_DATA_D& rCard) {
    std::size_t i = 1;
    while (i < rCard.aFIELDS.size()) {
        const std::string_view sWord = Field(rCard, i++);
        if (sWord.empty()) return HoldsBehind(rCard, i);
        if (sWord == "RCV") i += 4;
        if (sWord == "K" || sWord == "B" || sWord == "GE") i += 6;
    }
    return false;
}

/// TEMPP1 expands a THRU at position 7, and at the place behind what stands there.
bool LosesTemperatureRange(const T_DATA_D& rCard) {
    const std::size_t iSecond = IsThru(Field(rCard, 7)) ? 9 : 10;
    for (std::size_t i = 6; i < rCard.aFIELDS.size(); ++i) {
        if (i != 7 && i != iSecond && IsThru(rCard.aFIELDS[i])) return true;
    }
    return false;
}

struct T_ROW_D {
    std::string_view sKEYWORD;
    T_OWNS_D owns;
    T_DROPS_D drops;
};

constexpr const char* MIDSIDE = "midside nodes";

// clang-format off
constexpr T_ROW_D ROWS[] = {
    {"GRID",   {OWNED_NODES},        {7, 0, "", 0, nullptr, ""}},
    {"CORD1R", {OWNED_CORD1R, 4, 8}, {8, 0, "", 0, nullptr, ""}},
    {"CORD1C", {OWNED_CORD1C, 4, 8}, {8, 0, "", 0, nullptr, ""}},
    {"CORD1S", {OWNED_CORD1S, 4, 8}, {8, 0, "", 0, nullptr, ""}},
    {"CORD2R", {OWNED_CORD2R},       {11, 0, "", 0, nullptr, ""}},
    {"CORD2C", {OWNED_CORD2C},       {11, 0, "", 0, nullptr, ""}},
    {"CORD2S", {OWNED_CORD2S},       {11, 0, "", 0, nullptr, ""}},
    {"CBAR",   {OWNED_ELEMENTS}, {7, 0, "", 0, nullptr, ""}},
    {"CBEAM",  {OWNED_ELEMENTS}, {7, 0, "", 0, nullptr, ""}},
    {"CBEND",  {OWNED_ELEMENTS}, {7, 0, "", 0, nullptr, ""}},
    {"CROD",   {OWNED_ELEMENTS}, {4, 0, "", 0, nullptr, ""}},
    {"CTUBE",  {OWNED_ELEMENTS}, {4, 0, "", 0, nullptr, ""}},
    {"CONROD", {OWNED_CONRODS},  {8, Bits(4, 7), "A, J, C, NSM", 0, nullptr, ""}},
    {"CTRIA3", {OWNED_ELEMENTS}, {6, Bit(5), "THETA or MCID", 0, nullptr, ""}},
    {"CTRIAR", {OWNED_ELEMENTS}, {6, Bit(5), "THETA or MCID", 0, nullptr, ""}},
    {"CTRIA6", {OWNED_ELEMENTS}, {8, Bits(5, 7), MIDSIDE, 0, nullptr, ""}},
    {"CQUAD4", {OWNED_ELEMENTS}, {7, Bit(6), "THETA or MCID", 0, nullptr, ""}},
    {"CQUADR", {OWNED_ELEMENTS}, {7, Bit(6), "THETA or MCID", 0, nullptr, ""}},
    {"CQUAD8", {OWNED_ELEMENTS}, {10, Bits(6, 9), MIDSIDE, 0, nullptr, ""}},
    {"CSHEAR", {OWNED_ELEMENTS}, {6, 0, "", 0, nullptr, ""}},
    {"CTETRA", {OWNED_ELEMENTS}, {12, Bits(6, 11), MIDSIDE, 0, nullptr, ""}},
    {"CPENTA", {OWNED_ELEMENTS}, {17, Bits(8, 16), MIDSIDE, 0, nullptr, ""}},
    {"CHEXA",  {OWNED_ELEMENTS}, {22, Bits(10, 21), MIDSIDE, 0, nullptr, ""}},
    {"CELAS1", {OWNED_CELAS1},   {6, 0, "", 0, nullptr, ""}},
    {"CELAS2", {OWNED_CELAS2},   {8, Bit(7), "S", 0, nullptr, ""}},
    {"CBUSH",  {OWNED_ELEMENTS}, {7, 0, "", 0, nullptr, ""}},
    {"CGAP",   {OWNED_ELEMENTS}, {8, Bit(7), "CID", 0, nullptr, ""}},
    {"CONM2",  {OWNED_ELEMENTS}, {14, Bit(2) | Bits(4, 7) | Bit(9) | Bits(11, 12), "CID, offset, products of inertia", 0, nullptr, ""}},
    {"RBE2",   {OWNED_RBE2},     {ALL_FIELDS, 0, "", ALL_BITS, nullptr, ""}},
    {"PBAR",   {OWNED_PROPERTIES}, {19, Bits(6, 15) | Bit(18), "NSM, FE, stress points, I12", 0, nullptr, ""}},
    {"PBARL",  {OWNED_PROPERTIES}, {17, Bits(4, 7), "fields before the dimensions", 0, nullptr, ""}},
    {"PBEAM",  {OWNED_PROPERTIES}, {ALL_FIELDS, Bit(5) | Bits(7, 15), "I12, NSM, stress points of end A", 0, nullptr, ""}},
    {"PBEND",  {OWNED_PROPERTIES}, {22, 0, "", 0, nullptr, ""}},
    {"PROD",   {OWNED_PROPERTIES}, {6, Bits(4, 5), "C, NSM", 0, nullptr, ""}},
    {"PTUBE",  {OWNED_PROPERTIES}, {6, Bits(4, 5), "NSM, OD2", 0, nullptr, ""}},
    {"PSHELL", {OWNED_PROPERTIES}, {11, Bit(5) | Bits(7, 10), "MID3, NSM, Z1, Z2, MID4", 0, &HasShellFactors, "12I/T**3 or TS/T"}},
    {"PCOMP",  {OWNED_PROPERTIES}, {ALL_FIELDS, 0, "", 0, nullptr, ""}},
    {"PSHEAR", {OWNED_PROPERTIES}, {6, Bits(3, 5), "NSM, F1, F2", 0, nullptr, ""}},
    {"PSOLID", {OWNED_PROPERTIES}, {7, Bits(2, 6), "all but MID", 0, nullptr, ""}},
    {"PELAS",  {OWNED_PROPERTIES, 4, 8}, {8, Bit(3) | Bit(7), "S", 0, nullptr, ""}},
    {"PBUSH",  {OWNED_PROPERTIES}, {ALL_FIELDS, 0, "", 0, &EndsBushEarly, "what stands behind a blank keyword"}},
    {"PGAP",   {OWNED_PROPERTIES}, {11, Bit(2) | Bit(4) | Bits(6, 10), "all but U0, KA, KT", 0, nullptr, ""}},
    {"MAT1",   {OWNED_MATERIALS}, {12, Bit(2) | Bit(4) | Bits(6, 11), "all but E, NU, A", 0, nullptr, ""}},
    {"MAT4",   {OWNED_MATERIALS}, {11, Bits(3, 10), "all but K, CP", 0, nullptr, ""}},
    {"MAT8",   {OWNED_MATERIALS}, {19, Bit(7) | Bits(10, 18), "all but stiffness and expansion", 0, nullptr, ""}},
    {"FORCE",   {}, {7, 0, "", 0, nullptr, ""}},
    {"MOMENT",  {}, {7, 0, "", 0, nullptr, ""}},
    {"FORCE1",  {}, {5, 0, "", 0, nullptr, ""}},
    {"MOMENT1", {}, {5, 0, "", 0, nullptr, ""}},
    {"FORCE2",  {}, {7, 0, "", 0, nullptr, ""}},
    {"MOMENT2", {}, {7, 0, "", 0, nullptr, ""}},
    {"GRAV",    {OWNED_GRAVITY}, {6, Bit(1), "CID", 0, nullptr, ""}},
    {"LOAD",    {}, {10, 0, "", 0, &HasLoadScale, "scale factor S"}},
    {"PLOAD1",  {}, {8, 0, "", 0, nullptr, ""}},
    {"PLOAD2",  {}, {8, 0, "", Bits(4, 31), nullptr, ""}},
    {"PLOAD4",  {}, {12, Bit(8), "CID", Bit(6), nullptr, ""}},
    {"TEMP",    {}, {7, 0, "", 0, nullptr, ""}},
    {"TEMPD",   {OWNED_TEMPERATURES, 2, 8}, {8, 0, "", 0, nullptr, ""}},
    {"TEMPP1",  {}, {12, Bit(3), "TPRIME", 0, &LosesTemperatureRange, "elements inside a THRU range"}},
    {"TEMPRB",  {}, {7, 0, "", 0, nullptr, ""}},
    {"SPC",     {}, {7, Bit(3) | Bit(6), "enforced values D", 0, nullptr, ""}},
    {"SPC1",    {}, {11, 0, "", ALL_BITS, nullptr, ""}},
    {"SPCD",    {}, {7, 0, "", 0, nullptr, ""}},
    {"MPC",     {}, {12, 0, "", 0, nullptr, ""}},
    {"EIGB",    {OWNED_EIGB},  {11, 0, "", 0, nullptr, ""}},
    {"EIGRL",   {OWNED_EIGRL}, {8, Bits(1, 2) | Bits(4, 7), "all but ND", 0, nullptr, ""}},
};
// clang-format on

} // namespace

T_CARDRULES_D FindCardRules(std::string_view sKeyword) {
    const auto* pRow =
        std::find_if(std::begin(ROWS), std::end(ROWS), [&](const T_ROW_D& rRow) { return rRow.sKEYWORD == sKeyword; });
    return pRow == std::end(ROWS) ? T_CARDRULES_D() : T_CARDRULES_D{pRow->owns, &pRow->drops};
}

std::uint32_t FindDrops(const T_DROPS_D& rDrops, const T_DATA_D& rCard) {
    std::uint32_t nDrops = 0;
    if (HoldsBehind(rCard, rDrops.nREAD)) nDrops |= DROP_PAST_READ;
    if (HoldsOneOf(rCard, rDrops.nDROPPED)) nDrops |= DROP_FIELDS;
    if (HoldsThru(rCard, rDrops.nNOTHRU)) nDrops |= DROP_THRU;
    if (rDrops.pfnLoses && rDrops.pfnLoses(rCard)) nDrops |= DROP_OWN;
    return nDrops;
}
