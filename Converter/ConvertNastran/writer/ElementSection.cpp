// *ELEMENT: trusses, beams, plates and solids by ascending id, then the CONRODs. Masses and links have sections of
// their own, a CBEND has none.

#include "driver/CConvertNastran.h"

namespace {

constexpr const char* SOLID_LINE = "%d, SOLID, %d, %d, %d, %d, %d, %d, %d, %d, %d, %d\n";

bool HasLine(std::uint16_t nTraits) {
    switch (TypeOfTraits(nTraits)) {
    case TYPE_ROD:
    case TYPE_BAR:
    case TYPE_TUBE:
    case TYPE_BEAM:
    case TYPE_SHEAR:
    case TYPE_PLATE:
    case TYPE_SOLID:
        return true;
    default:
        return false;
    }
}

/// The line of a solid has no property.
void WriteSolid(CFile& rFile, const CDataPool& rDataPool, std::int32_t iEID, std::int32_t iMID,
                const T_ELEM_D& rSolid) {
    const auto Node = [&](std::size_t iSlot) { return rDataPool.MapNodeId(rSolid.iNODE[iSlot]); };
    switch (rSolid.iSUBTYPE) {
    case SHAPE_TETRA:
        CConvertNastran::WriteLine(rFile, SOLID_LINE, iEID, iMID, 0, Node(0), Node(1), Node(2), Node(4), 0, 0, 0, 0);
        break;
    case SHAPE_PENTA:
        CConvertNastran::WriteLine(rFile, SOLID_LINE, iEID, iMID, 0, Node(0), Node(1), Node(2), Node(4), Node(5),
                                   Node(6), 0, 0);
        break;
    default:
        CConvertNastran::WriteLine(rFile, SOLID_LINE, iEID, iMID, 0, Node(0), Node(1), Node(2), Node(3), Node(4),
                                   Node(5), Node(6), Node(7));
    }
}

/// Writes the corners alone: midside nodes have no place in the file.
void WriteElement(CFile& rFile, const CDataPool& rDataPool, std::int32_t iEID, const T_ELEM_D& rElement) {
    const std::int32_t iPID = rElement.iPID;
    const T_PROP_D* pProperty = rDataPool.PROP.Find(iPID);
    const std::int32_t iMID = pProperty ? pProperty->iMID : 1;
    const auto Node = [&](std::size_t iSlot) { return rDataPool.MapNodeId(rElement.iNODE[iSlot]); };
    const auto Fourth = [&] {
        return rElement.iSUBTYPE == SHAPE_QUAD4 || rElement.iSUBTYPE == SHAPE_QUAD8 ? Node(3) : 0;
    };
    switch (rElement.iTYPE) {
    case TYPE_ROD:
        CConvertNastran::WriteLine(rFile, "  %d, TRUSS, %d, %d, %d, %d, %g\n", iEID, iMID, iPID, Node(0), Node(1), 0.0);
        break;
    case TYPE_BAR:
    case TYPE_BEAM:
        CConvertNastran::WriteLine(rFile, "  %d, BEAM, %d, %d, %d, %d, REF, %g, %g, %g\n", iEID, iMID, iPID, Node(0),
                                   Node(1), rElement.dX1, rElement.dX2, rElement.dX3);
        break;
    case TYPE_TUBE:
        CConvertNastran::WriteLine(rFile, "  %d, BEAM, %d, %d, %d, %d\n", iEID, iMID, iPID, Node(0), Node(1));
        break;
    case TYPE_SHEAR:
        CConvertNastran::WriteLine(rFile, "%d, PLSTRS, %d, %d, %d, %d, %d, %d, %d\n", iEID, iMID, iPID, Node(0),
                                   Node(1), Node(2), Fourth(), 1);
        break;
    case TYPE_PLATE:
        CConvertNastran::WriteLine(rFile, "%d, PLATE, %d, %d, %d, %d, %d, %d, %d\n", iEID, iMID, iPID, Node(0), Node(1),
                                   Node(2), Fourth(), 1);
        break;
    case TYPE_SOLID:
        WriteSolid(rFile, rDataPool, iEID, iMID, rElement);
        break;
    }
}

} // namespace

int CConvertNastran::WriteElementSection(CFile& rFile) {
    if (m_pDataPool->ELEM.IsEmpty()) return 1;
    WriteLine(rFile, "*ELEMENT\n"); // also for a model of masses alone
    for (const auto& [iEID, rElement] : m_pDataPool->ELEM.Sorted(HasLine)) {
        WriteElement(rFile, *m_pDataPool, iEID, rElement);
    }
    return WriteLine(rFile, "\n");
}

/// The section of a CONROD is always 1: there's none for the area on the card.
int CConvertNastran::WriteConrodSection(CFile& rFile) {
    if (m_pDataPool->CNRD.IsEmpty()) return 1;
    WriteLine(rFile, "*ELEMENT\n");
    for (const auto& [iEID, rRod] : m_pDataPool->CNRD.Walk()) {
        const std::int32_t iG1 = m_pDataPool->MapNodeId(rRod.iG1);
        const std::int32_t iG2 = m_pDataPool->MapNodeId(rRod.iG2);
        WriteLine(rFile, "  %d, %s, %d, %d, %d, %d, %g\n", iEID, "TRUSS", rRod.iMID, 1, iG1, iG2, 0.0);
    }
    return WriteLine(rFile, "\n");
}
