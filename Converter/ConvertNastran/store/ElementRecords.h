#pragma once
// Elements: the record that most share, and the others.

#include "store/Array.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

/// Element families, T_ELEM_D::iTYPE.
enum E_ELEMENT_TYPE : std::int32_t {
    TYPE_ROD = 1,
    TYPE_BAR = 2,
    TYPE_TUBE = 3,
    TYPE_BEAM = 5,
    TYPE_BEND = 8,
    TYPE_GAP = 9,
    TYPE_SHEAR = 13,
    TYPE_PLATE = 17,
    TYPE_MASS = 27,
    TYPE_SOLID = 31,
    TYPE_BUSH = 41,
};

/// Shapes inside a family, T_ELEM_D::iSUBTYPE.
enum E_ELEMENT_SHAPE : std::int32_t {
    SHAPE_LINE = 0,
    SHAPE_TRIA3 = 2,
    SHAPE_TRIA6 = 3,
    SHAPE_QUAD4 = 4,
    SHAPE_QUAD8 = 5,
    SHAPE_POINT = 9,
    SHAPE_TETRA = 10,
    SHAPE_PENTA = 11,
    SHAPE_HEXA = 12,
};

/// Family and shape in one number.
constexpr std::uint16_t ElementTraits(std::int32_t iType, std::int32_t iShape) {
    return static_cast<std::uint16_t>(iType * 16 + iShape);
}
constexpr std::int32_t TypeOfTraits(std::uint16_t nTraits) {
    return nTraits / 16;
}
constexpr std::int32_t ShapeOfTraits(std::uint16_t nTraits) {
    return nTraits % 16;
}

struct T_ELEM_D;

/// Keyword of the card that an element comes from, as far as its family and shape tell it: CQUADR and CTRIAR are kept
/// as CQUAD4 and CTRIA3.
const char* KeywordOf(const T_ELEM_D& rElement);

/// The 20 node slots of an element, 0 in a slot without a node.
class CNodeSlots {
  public:
    static constexpr std::size_t SLOTS = 20;

    bool operator==(const CNodeSlots&) const = default;

    /// Throws std::invalid_argument for a slot past 19.
    std::int32_t operator[](std::size_t i) const { return m_aNodes[Tested(i)]; }
    void Set(std::size_t i, std::int32_t iNode) { m_aNodes[Tested(i)] = iNode; }

    /// The first nSlots of them.
    std::span<const std::int32_t> First(std::size_t nSlots) const { return std::span(m_aNodes).first(nSlots); }
    std::span<std::int32_t> First(std::size_t nSlots) { return std::span(m_aNodes).first(nSlots); }

    /// Number of slots up to the last with a node, at least nLeast.
    std::size_t Count(std::size_t nLeast) const {
        constexpr std::size_t CORNERS = 8;
        std::int32_t iAny = 0;
        for (std::size_t i = CORNERS; i < SLOTS; ++i) iAny |= m_aNodes[i]; // few elements have a midside
        std::size_t nSlots = iAny == 0 ? std::max(CORNERS, nLeast) : SLOTS;
        while (nSlots > nLeast && m_aNodes[nSlots - 1] == 0) --nSlots;
        return nSlots;
    }

  private:
    static std::size_t Tested(std::size_t i) {
        if (i >= SLOTS) throw std::invalid_argument("CNodeSlots: slot out of range");
        return i;
    }

    std::array<std::int32_t, SLOTS> m_aNodes = {};
};

/// A vector that its card gives in basic axes, whatever axes the grid has.
inline constexpr std::int32_t BASIC_VECTOR = 2;

/// Every element but CONROD and the scalar springs. Key: the EID.
struct T_ELEM_D {
    std::int32_t iPID = 0;     // key into PROP; of a CONM2 minus the EID
    std::int32_t iTYPE = 0;    // E_ELEMENT_TYPE
    std::int32_t iSUBTYPE = 0; // E_ELEMENT_SHAPE
    std::int32_t bVECTOR = 0;  // line elements: 1 or BASIC_VECTOR if dX1 to dX3 hold the orientation, 0 if iG0 does
    std::int32_t iG0 = 0;      // line elements: the orientation grid
    CNodeSlots iNODE;          // grids by slot
    // Line elements: the orientation vector, after the orientations are resolved the reference point, global. Plates:
    // dX1 is THETA in degrees.
    double dX1 = 0.0, dX2 = 0.0, dX3 = 0.0;

    std::uint16_t Traits() const { return ElementTraits(iTYPE, iSUBTYPE); }

    /// Number of the solid's face that has iNode (the face opposite to it, of a tetrahedron); 0 for none.
    int FindSolidFaceByNode(std::int32_t iNode) const;

    /// Number of the first face of the solid of which exactly two corners compare equal to iNode1 or iNode2; 0 for
    /// none. A wedge with iNode2 0 is searched by iNode1 alone.
    int FindSolidFaceByNodes(std::int32_t iNode1, std::int32_t iNode2) const;

    /// Number of the wedge's face that two grids of a load mean: opposite corners of a side, or a corner of a triangle
    /// and 0; 0 for none.
    int FindWedgeFace(std::int32_t iNode1, std::int32_t iNode2) const;

    bool operator==(const T_ELEM_D&) const = default;
};

/// CONROD. Key: the EID.
struct T_CNRD_D {
    std::int32_t iG1 = 0, iG2 = 0;
    std::int32_t iMID = 0;
    double dA = 0.0, dJ = 0.0, dC = 0.0, dNSM = 0.0;

    bool operator==(const T_CNRD_D&) const = default;
};
inline const char* KeywordOf(const T_CNRD_D&) {
    return "CONROD";
}

/// CELAS1. Key: the EID.
struct T_CEL1_D {
    std::int32_t iPID = 0;         // key into PROP
    std::int32_t iG1 = 0, iG2 = 0; // grids, 0 for ground
    std::int32_t iC1 = 0, iC2 = 0; // components 1 to 6

    bool operator==(const T_CEL1_D&) const = default;
};
inline const char* KeywordOf(const T_CEL1_D&) {
    return "CELAS1";
}

/// CELAS2. Key: the EID.
struct T_CEL2_D {
    double dK = 0.0;
    std::int32_t iG1 = 0, iG2 = 0; // grids, 0 for ground
    std::int32_t iC1 = 0, iC2 = 0; // components 1 to 6
    double dGE = 0.0, dS = 0.0;

    bool operator==(const T_CEL2_D&) const = default;
};
inline const char* KeywordOf(const T_CEL2_D&) {
    return "CELAS2";
}

/// RBE2. Key: the EID.
struct T_RBE2_D {
    std::int32_t iGN = 0;     // the independent grid
    std::string sCM;          // dependent components as typed
    CArray<std::int32_t> aGM; // the dependent grids

    bool operator==(const T_RBE2_D&) const = default;
};
inline const char* KeywordOf(const T_RBE2_D&) {
    return "RBE2";
}
