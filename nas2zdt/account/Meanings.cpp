// Values that the file has otherwise than their card means them.

#include "nas2zdt/account/Meanings.h"

#include "cards/FieldNames.h"
#include "reader/FieldParser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>

namespace {

std::string_view Field(const T_DATA_D& rCard, std::size_t i) {
    return i < rCard.aFIELDS.size() ? rCard.aFIELDS[i] : std::string_view();
}

double Value(const T_DATA_D& rCard, std::size_t i) {
    return TextToReal(Field(rCard, i));
}

bool IsGivenZero(const T_DATA_D& rCard, std::size_t i) {
    const std::string_view sField = Field(rCard, i);
    return !sField.empty() && sField.find_first_not_of("0.") == std::string_view::npos;
}

/// Whether a place holds an integer 0: where it may be an angle or a frame, the basic frame.
template <std::size_t PLACE>
bool IsBasicFrame(const T_DATA_D& rCard, const CFieldNames&) {
    return Field(rCard, PLACE) == "0";
}

bool HasPoissonFromShear(const T_DATA_D& rCard, const CFieldNames&) {
    return Value(rCard, 2) != 0.0 && Field(rCard, 3).empty();
}

bool HasYoungFromShear(const T_DATA_D& rCard, const CFieldNames&) {
    return Field(rCard, 1).empty() && Value(rCard, 2) != 0.0 && !Field(rCard, 3).empty();
}

/// E, G and NU are all given, and G isn't E / (2 (1 + NU)) to 1 %.
bool HasShearOfItsOwn(const T_DATA_D& rCard, const CFieldNames&) {
    if (Value(rCard, 2) == 0.0 || Field(rCard, 1).empty() || Field(rCard, 3).empty()) return false;
    const double dG = Value(rCard, 1) / (2.0 * (1.0 + Value(rCard, 3)));
    return !(std::fabs(dG - Value(rCard, 2)) < 0.01 * std::fabs(dG));
}

bool IsSolidTube(const T_DATA_D& rCard, const CFieldNames&) {
    return Value(rCard, 3) == 0.0 && Value(rCard, 2) != 0.0;
}

/// A second end is given, with a blank where it has the load of the first.
bool HasLoadAsAtFirstEnd(const T_DATA_D& rCard, const CFieldNames&) {
    return !Field(rCard, 6).empty() && Field(rCard, 7).empty() && Value(rCard, 6) != Value(rCard, 4) &&
           Value(rCard, 5) != 0.0;
}

bool HasUnloadedCorner(const T_DATA_D& rCard, const CFieldNames&) {
    return Value(rCard, 2) != 0.0 && (IsGivenZero(rCard, 3) || IsGivenZero(rCard, 4) || IsGivenZero(rCard, 5));
}

bool IsAnyCard(const T_DATA_D&, const CFieldNames&) {
    return true;
}

/// Place of the NSM of a PBARL: behind as many dimensions as its shape has, where the next dimension is read. Past the
/// end of the card for a TYPE that isn't known.
std::size_t PlaceOfBarMass(const T_DATA_D& rCard) {
    constexpr std::size_t FIRST_DIMENSION = 8;
    constexpr struct {
        std::string_view sTYPE;
        std::size_t nDIMENSIONS;
    } SHAPES[] = {{"ROD", 1},   {"TUBE", 2}, {"TUBE2", 2}, {"I", 6},  {"CHAN", 4}, {"T", 4},
                  {"BOX", 4},   {"BAR", 2},  {"CROSS", 4}, {"H", 4},  {"T1", 4},   {"I1", 4},
                  {"CHAN1", 4}, {"Z", 4},    {"CHAN2", 4}, {"T2", 4}, {"BOX1", 6}, {"HEXA", 3},
                  {"HAT", 4},   {"HAT1", 5}, {"DBOX", 10}, {"L", 4}};
    for (const auto& rShape : SHAPES) {
        if (rShape.sTYPE == Field(rCard, 3)) return FIRST_DIMENSION + rShape.nDIMENSIONS;
    }
    return rCard.aFIELDS.size();
}

bool HasBarMass(const T_DATA_D& rCard, const CFieldNames&) {
    return Value(rCard, PlaceOfBarMass(rCard)) != 0.0;
}

bool HasTooManyDimensions(const T_DATA_D& rCard, const CFieldNames&) {
    for (std::size_t i = PlaceOfBarMass(rCard) + 1; i < rCard.aFIELDS.size(); ++i) {
        if (!Field(rCard, i).empty()) return true;
    }
    return false;
}

/// One end has a grid without a component, as of a scalar point.
bool HasEndWithoutComponent(const T_DATA_D& rCard, const CFieldNames&) {
    const auto lacks = [&](std::size_t iGrid) {
        return TextToInt(Field(rCard, iGrid)) != 0 && TextToInt(Field(rCard, iGrid + 1)) == 0;
    };
    return lacks(2) || lacks(4);
}

/// Either shear factor is blank; they stand behind all stations.
bool HasBlankShearFactor(const T_DATA_D& rCard, const CFieldNames& rNames) {
    int nGiven = 0;
    rNames.Walk(rCard, [&](std::size_t i, const T_NAME_D& rName) {
        nGiven += (rName.sNAME == "K1" || rName.sNAME == "K2") && !rCard.aFIELDS[i].empty();
    });
    return nGiven < 2;
}

/// A value of end B is blank where end A has one.
bool HasEndBAsEndA(const T_DATA_D& rCard, const CFieldNames& rNames) {
    constexpr std::array<std::string_view, 5> VALUES = {"A", "I1", "I2", "I12", "J"};
    constexpr std::size_t FIRST = 2; // end A's
    bool bEndB = false;
    bool bAsEndA = false;
    rNames.Walk(rCard, [&](std::size_t i, const T_NAME_D& rName) {
        if (rName.sNAME == "X/XB") bEndB = std::fabs(TextToReal(rCard.aFIELDS[i]) - 1.0) < 1e-6;
        for (std::size_t k = 0; bEndB && k < VALUES.size(); ++k) {
            if (rName.sNAME == VALUES[k] && rCard.aFIELDS[i].empty() && Value(rCard, FIRST + k) != 0.0) bAsEndA = true;
        }
    });
    return bAsEndA;
}

/// End B is looked for at every second place behind end A, which may be another 1.0 than its X/XB.
bool HasEndBElsewhere(const T_DATA_D& rCard, const CFieldNames& rNames) {
    constexpr std::size_t FIRST_PAIR = 16;
    bool bFound = false, bElsewhere = false;
    rNames.Walk(rCard, [&](std::size_t i, const T_NAME_D& rName) {
        if (bFound || i < FIRST_PAIR || i % 2 == 0 || !(std::fabs(Value(rCard, i) - 1.0) < 1e-6)) return;
        bFound = true;
        bElsewhere = rName.sNAME != "X/XB";
    });
    return bElsewhere;
}

bool HasDampingAlone(const T_DATA_D& rCard, const CFieldNames&) {
    const auto isAlone = [&](std::size_t iK) { return Value(rCard, iK) == 0.0 && Value(rCard, iK + 1) != 0.0; };
    return isAlone(1) || isAlone(5);
}

bool HasNoGrid(const T_DATA_D& rCard, const CFieldNames&) {
    return std::all_of(rCard.aFIELDS.begin() + std::min<std::ptrdiff_t>(2, std::ssize(rCard.aFIELDS)),
                       rCard.aFIELDS.end(), [](std::string_view sField) { return sField.empty(); });
}

bool HasFactorWithoutSet(const T_DATA_D& rCard, const CFieldNames&) {
    for (std::size_t i = 2; i < rCard.aFIELDS.size(); i += 2) {
        if (!Field(rCard, i).empty() && Field(rCard, i + 1).empty()) return true;
    }
    return false;
}

constexpr std::uint32_t ALWAYS = ~std::uint32_t(0);

// clang-format off
constexpr T_MEANING_D MEANINGS[] = {
    {"CQUAD4 CQUADR", CLASS_MODEL, 1 << 6, "MCID 0, the basic frame, isn't in the file", &IsBasicFrame<6>},
    {"CTRIA3 CTRIAR", CLASS_MODEL, 1 << 5, "MCID 0, the basic frame, isn't in the file", &IsBasicFrame<5>},
    {"CELAS1 CELAS2 CONM2 RBE2", CLASS_NOTE, ALWAYS, "EID isn't in the file", &IsAnyCard},
    {"EIGRL", CLASS_NOTE, ALWAYS, "SID isn't in the file", &IsAnyCard},
    {"CBUSH", CLASS_MODEL, 1 << 7, "CID 0, the basic axes: the link has axes of its own", &IsBasicFrame<7>},
    {"MAT1", CLASS_MODEL, ALWAYS, "NU is 0: it isn't worked out of E and G", &HasPoissonFromShear},
    {"MAT1", CLASS_MODEL, ALWAYS, "E is 0: it isn't worked out of G and NU", &HasYoungFromShear},
    {"MAT1", CLASS_MODEL, ALWAYS, "G isn't in the file, whose E and NU give another", &HasShearOfItsOwn},
    {"SPC1", CLASS_NOTE, ALWAYS, "a card without a grid holds nothing", &HasNoGrid},
    {"PELAS", CLASS_NOTE, ALWAYS, "a GE without its K damps nothing", &HasDampingAlone},
    {"LOAD", CLASS_NOTE, ALWAYS, "an S without its L adds nothing", &HasFactorWithoutSet},
    {"PTUBE", CLASS_MODEL, ALWAYS, "T is 0: blank or 0.0 means a solid rod", &IsSolidTube},
    {"PBARL", CLASS_MASS, ALWAYS, "NSM isn't in the file", &HasBarMass},
    {"PBARL", CLASS_NOTE, ALWAYS, "fields behind the NSM, where the TYPE has no dimension", &HasTooManyDimensions},
    {"CELAS1 CELAS2", CLASS_MODEL, ALWAYS, "an end with G1 or G2 and without a component is taken for the ground",
        &HasEndWithoutComponent},
    {"PBEAM", CLASS_MODEL, ALWAYS, "a 1.0 that isn't the X/XB of end B is taken for it, and what is behind for end B",
        &HasEndBElsewhere},
    {"PBEAM", CLASS_MODEL, ALWAYS, "K1, K2 are 0: blank means 1.0", &HasBlankShearFactor},
    {"PBEAM", CLASS_MODEL, ALWAYS, "end B has zeros: blank means the values of end A", &HasEndBAsEndA},
    {"PLOAD1", CLASS_MODEL, 1 << 6, "P2 is 0: blank means P1", &HasLoadAsAtFirstEnd},
    {"PLOAD4", CLASS_MODEL, 7 << 3, "corners of 0.0 have the pressure of the first", &HasUnloadedCorner},
    {"TEMPRB", CLASS_MODEL, ALWAYS << 3, "read as pairs of element and temperature", &IsAnyCard},
};
// clang-format on

} // namespace

std::span<const T_MEANING_D> GetMeanings() {
    return MEANINGS;
}
