// Properties of elements, and materials. E, G and NU aren't computed from each other.

#include "driver/CConvertNastran.h"
#include "reader/FieldCursor.h"
#include "reader/FieldParser.h"
#include "store/DataPool.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace {

constexpr std::size_t STRESS_POINTS = 8; // C1 to F2

// The last ply whose thickness and angle have slots: ply k, counted from 1, ends in slot 2k + 2.
constexpr std::int32_t MOST_PLIES = (T_PROP_D::SLOTS - SLOT_PLY) / 2;

/// A TYPE of PBARL and its shape.
struct T_BARTYPE_D {
    std::string_view sTYPE;
    E_BAR_SHAPE eSHAPE;
};

constexpr T_BARTYPE_D BAR_TYPES[] = {
    {"BAR", BAR_BAR},     {"BOX", BAR_BOX},     {"ROD", BAR_ROD},   {"TUBE", BAR_TUBE}, {"HEXA", BAR_HEXA},
    {"I", BAR_I},         {"CHAN", BAR_CHAN},   {"T", BAR_T},       {"Z", BAR_Z},       {"HAT", BAR_HAT},
    {"CROSS", BAR_CROSS}, {"H", BAR_H},         {"T1", BAR_T1},     {"T2", BAR_T2},     {"I1", BAR_I1},
    {"CHAN1", BAR_CHAN1}, {"CHAN2", BAR_CHAN2}, {"BOX1", BAR_BOX1}, {"HAT1", BAR_HAT1},
};

E_BAR_SHAPE FindBarShape(std::string_view sType) {
    for (const T_BARTYPE_D& rType : BAR_TYPES) {
        if (rType.sTYPE == sType) return rType.eSHAPE;
    }
    return BAR_UNKNOWN;
}

T_PROP_D MakeProperty(E_PROPERTY_TYPE eType, std::int32_t iMID = 0) {
    T_PROP_D property;
    property.iPROPTYPE = eType;
    property.iMID = iMID;
    return property;
}

/// Reads reals into the slots named.
void ReadSlots(CFieldCursor& rFields, T_PROP_D& rProperty, std::initializer_list<std::size_t> aSlots) {
    for (const std::size_t iSlot : aSlots) rProperty.dVAL.Set(iSlot, rFields.Real());
}

/// Reads nSlots reals into the slots from iFirst on.
void ReadSlotRow(CFieldCursor& rFields, T_PROP_D& rProperty, std::size_t iFirst, std::size_t nSlots) {
    for (std::size_t i = 0; i < nSlots; ++i) rProperty.dVAL.Set(iFirst + i, rFields.Real());
}

/// Reads the fields of a PBEAM two at a time, SO and X/XB, until an X/XB is 1.0. Stations aren't counted: a station's
/// 16 fields are 8 pairs, so a 1.0 at the second place of any pair ends the search. Returns false at the end of the
/// card.
bool FindEndB(CFieldCursor& rFields) {
    while (!rFields.IsAtEnd()) {
        rFields.Skip(CFieldCursor::BY_PLACE);
        if (std::fabs(TextToReal(rFields.Peek()) - 1.0) < 1e-6) {
            rFields.Real();
            return true;
        }
        rFields.Skip(CFieldCursor::BY_PLACE);
    }
    return false;
}

void ReadBeamEnd(CFieldCursor& rFields, T_PROP_D& rProperty, std::size_t iEnd) {
    ReadSlots(rFields, rProperty,
              {iEnd + SLOT_A, iEnd + SLOT_I1, iEnd + SLOT_I2, iEnd + SLOT_I12, iEnd + SLOT_J, iEnd + SLOT_NSM});
    ReadSlotRow(rFields, rProperty, iEnd + SLOT_C1, STRESS_POINTS);
}

/// Whether A, I1, I2, I12 or J of the ends differ and end B has any of them.
bool IsTapered(const T_PROP_D& rProperty) {
    bool bDifferent = false;
    bool bEndB = false;
    for (std::size_t i = SLOT_A; i <= SLOT_J; ++i) {
        bDifferent = bDifferent || rProperty.dVAL[i] != rProperty.dVAL[SLOT_END_B + i];
        bEndB = bEndB || rProperty.dVAL[SLOT_END_B + i] != 0.0;
    }
    return bDifferent && bEndB;
}

} // namespace

int CConvertNastran::ParsePBAR(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_BAR, fields.Int());
    ReadSlots(fields, property, {SLOT_A, SLOT_I1, SLOT_I2, SLOT_J, SLOT_NSM});
    fields.Skip("FE");
    ReadSlotRow(fields, property, SLOT_C1, STRESS_POINTS);
    ReadSlots(fields, property, {SLOT_K1, SLOT_K2, SLOT_I12});
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// Dimensions are taken by position, as if each shape had nine: the NSM behind the last one of a short shape is read as
/// the next.
int CConvertNastran::ParsePBARL(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_BAR, fields.Int());
    fields.Skip("GROUP");
    property.bSHAPE = true;
    property.iSECTYPE = FindBarShape(fields.Text());
    fields.Skip("-", "-", "-", "-");
    ReadSlotRow(fields, property, SLOT_DIM1, 9);
    fields.Skip("DIM10");
    ReadSlots(fields, property, {SLOT_LAST});
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// Keeps both ends and nothing between them.
int CConvertNastran::ParsePBEAM(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_BEAM, fields.Int());
    ReadBeamEnd(fields, property, 0);
    if (FindEndB(fields)) ReadBeamEnd(fields, property, SLOT_END_B);
    for (const std::size_t iSlot : {SLOT_K1, SLOT_K2}) {
        const double dFactor = fields.Real();
        property.dVAL.Set(iSlot, dFactor);
        property.dVAL.Set(SLOT_END_B + iSlot, dFactor);
    }
    fields.Skip("S1", "S2", "NSI(A)", "NSI(B)");
    ReadSlots(fields, property, {SLOT_CW, SLOT_END_B + SLOT_CW});
    fields.Skip("M1(A)", "M2(A)", "M1(B)", "M2(B)");
    ReadSlots(fields, property, {SLOT_N1, SLOT_N2, SLOT_END_B + SLOT_N1, SLOT_END_B + SLOT_N2});
    property.bTAPERED = IsTapered(property) ? 1 : 0;
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePBEND(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_BEND, fields.Int());
    ReadSlots(fields, property, {SLOT_A, SLOT_I1, SLOT_I2, SLOT_J, SLOT_RB});
    fields.Skip("THETAB");
    ReadSlotRow(fields, property, SLOT_C1, STRESS_POINTS);
    ReadSlots(fields, property, {SLOT_K1, SLOT_K2, SLOT_NSM});
    fields.Skip("RC", "ZC", "DELTAN");
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePROD(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_ROD, fields.Int());
    ReadSlots(fields, property, {SLOT_A, SLOT_J, SLOT_K1, SLOT_NSM}); // C takes the slot of K1
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePTUBE(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_TUBE, fields.Int());
    const double dOD = fields.Real();
    const double dT = fields.Real();
    property.dVAL.Set(SLOT_OD, dOD);
    property.dVAL.Set(SLOT_ID, dOD - (dT + dT));
    ReadSlots(fields, property, {SLOT_NSM});
    fields.Skip("OD2"); // a tapered tube is kept as a straight one
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// A plate has one material: MID1 if there is one, else MID2. Which of the two there are decides the kind.
int CConvertNastran::ParsePSHELL(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    const std::int32_t iMID1 = fields.Int();
    T_PROP_D property = MakeProperty(PROP_SHELL, iMID1); // with both materials, and also with neither
    ReadSlots(fields, property, {SLOT_T});
    const std::int32_t iMID2 = property.iMID2 = fields.Int();
    property.dVAL.Set(SLOT_BENDING, fields.Real(1.0));
    fields.Skip("MID3");
    property.dVAL.Set(SLOT_SHEAR, fields.Real(0.833333)); // not 5/6
    ReadSlots(fields, property, {SLOT_NSM, SLOT_Z1, SLOT_Z2});
    fields.Skip("MID4");
    if (iMID1 != 0 && iMID2 == 0) property.iPROPTYPE = PROP_MEMBRANE;
    if (iMID1 == 0 && iMID2 != 0) {
        property.iPROPTYPE = PROP_BENDING;
        property.iMID = iMID2;
    }
    ++m_nPSHELL;
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// Plies are kept as typed: blank fields aren't taken over from the ply before, a symmetric laminate isn't
/// doubled, and the blank half of a line is a ply. Plies that have no slots are left out.
int CConvertNastran::ParsePCOMP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_COMP);
    ReadSlots(fields, property, {SLOT_Z0, SLOT_LAMINATE_NSM, SLOT_SB});
    fields.Skip("FT", "TREF", "GE", "LAM");
    for (std::int32_t nPly = 1; nPly <= MOST_PLIES && !fields.IsAtEnd(); ++nPly) {
        const auto iPly = static_cast<std::size_t>(nPly - 1);
        property.iPLYMID.Set(iPly, fields.Int());
        ReadSlotRow(fields, property, SLOT_PLY + 2 * iPly, 2); // T and THETA
        fields.Skip("SOUT");
        property.iNPLY = nPly;
    }
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

/// The same kind as a membrane PSHELL.
int CConvertNastran::ParsePSHEAR(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_MEMBRANE, fields.Int());
    ReadSlots(fields, property, {SLOT_T, SLOT_NSM});
    fields.Skip("F1", "F2");
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePSOLID(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_SOLID, fields.Int());
    fields.Skip("CORDM", "IN", "STRESS", "ISOP", "FCTN");
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePELAS(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    for (int iHalf = 0; iHalf < 2; ++iHalf) { // one card holds up to two properties
        const std::int32_t iPID = fields.Int();
        if (iHalf == 1 && iPID == 0) break;
        T_PROP_D property = MakeProperty(PROP_ELAS);
        ReadSlots(fields, property, {SLOT_K, SLOT_GE, SLOT_S});
        m_pDataPool->SetPROP(iPID, std::move(property));
    }
    return 1;
}

/// Sections in any order, each behind its name; a blank in the place of a name ends the card. Each field of an unknown
/// section is tried as a name.
int CConvertNastran::ParsePBUSH(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_BUSH);
    while (!fields.Peek().empty()) {
        if (fields.TakeWord("K")) {
            ReadSlotRow(fields, property, SLOT_BUSH_K, 6); // K1 to K6
        } else if (fields.TakeWord("B")) {
            ReadSlotRow(fields, property, SLOT_BUSH_B, 6); // B1 to B6
        } else if (fields.TakeWord("GE")) {
            ReadSlots(fields, property, {SLOT_BUSH_GE}); // GE1
            fields.Skip("GE2", "GE3", "GE4", "GE5", "GE6");
        } else if (fields.TakeWord("RCV")) {
            ReadSlotRow(fields, property, SLOT_BUSH_RCV, 4); // SA, ST, EA, ET
        } else {
            fields.Skip("-");
        }
    }
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParsePGAP(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iPID = fields.Int();
    T_PROP_D property = MakeProperty(PROP_GAP);
    ReadSlots(fields, property,
              {SLOT_U0, SLOT_F0, SLOT_KA, SLOT_KB, SLOT_KT, SLOT_MU1, SLOT_MU2, SLOT_TMAX, SLOT_MAR, SLOT_TRMIN});
    return m_pDataPool->SetPROP(iPID, std::move(property));
}

int CConvertNastran::ParseMAT1(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iMID = fields.Int();
    T_MATL_D material;
    material.iMATTYPE = MAT_ISOTROPIC;
    material.dE = fields.Real();
    material.dG = fields.Real();
    material.dNU = fields.Real();
    material.dRHO = fields.Real();
    material.dALPHA = fields.Real();
    material.dTREF = fields.Real();
    material.dGE = fields.Real();
    material.dST = fields.Real();
    material.dSC = fields.Real();
    material.dSS = fields.Real();
    fields.Skip("MCSID");
    return m_pDataPool->SetMATL(iMID, material);
}

int CConvertNastran::ParseMAT4(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iMID = fields.Int();
    T_MATL_D material;
    material.iMATTYPE = MAT_THERMAL;
    material.dK = fields.Real();
    material.dCP = fields.Real();
    fields.Skip("RHO", "H", "MU", "HGEN", "REFENTH", "TCH", "TDELTA", "QLAT"); // a thermal material has no density
    return m_pDataPool->SetMATL(iMID, material);
}

int CConvertNastran::ParseMAT8(const T_DATA_D& rCard) {
    CFieldCursor fields(rCard);
    const std::int32_t iMID = fields.Int();
    T_MATL_D material;
    material.iMATTYPE = MAT_ORTHOTROPIC;
    material.dE = fields.Real();
    material.dE2 = fields.Real();
    material.dNU = fields.Real();
    material.dG = fields.Real();
    material.dG1Z = fields.Real();
    material.dG2Z = fields.Real();
    material.dRHO = fields.Real();
    material.dALPHA = fields.Real();
    material.dALPHA2 = fields.Real();
    material.dTREF = fields.Real();
    material.dST = fields.Real(); // Xt
    material.dSC = fields.Real(); // Xc
    material.dYT = fields.Real();
    material.dYC = fields.Real();
    material.dSS = fields.Real();
    material.dGE = fields.Real();
    material.dF12 = fields.Real();
    material.bSTRN = fields.Real() == 1.0 ? 1 : 0;
    return m_pDataPool->SetMATL(iMID, material);
}
