// The block that closes the log: what the model holds.

#include "driver/CConvertNastran.h"
#include "messages/ZdtMsgMgr.h"
#include "store/DataPool.h"

#include <algorithm>

/// Number of elements of a family and shape.
std::size_t CConvertNastran::CountElements(std::int32_t iType, std::int32_t iSubtype) const {
    return m_pDataPool->ELEM.Count(
        [nTraits = ElementTraits(iType, iSubtype)](std::uint16_t n) { return n == nTraits; });
}

/// Number of properties of a kind.
std::size_t CConvertNastran::CountProperties(std::int32_t iPropType) const {
    return m_pDataPool->PROP.Count([=](const T_PROP_D& rProperty) { return rProperty.iPROPTYPE == iPropType; });
}

/// Number of load entries of a kind, over all load sets.
std::size_t CConvertNastran::CountLoads(std::int32_t iKind) const {
    std::ptrdiff_t nLoads = 0;
    m_pDataPool->LOAD.ForEach([&](std::int32_t, const T_LOAD_D& rSet) {
        const std::vector<std::int8_t>& aKinds = rSet.aMBLD.GetKinds();
        nLoads += std::count(aKinds.begin(), aKinds.end(), static_cast<std::int8_t>(iKind));
    });
    return static_cast<std::size_t>(nLoads);
}

void CConvertNastran::WriteSummary() {
    const CDataPool& rPool = GetDataPool();
    const T_CNST_D* pLastSet = rPool.CNST.Find(rPool.m_iLastCNST);
    const auto row = [&](std::string_view sFormat, std::size_t nCount) {
        if (nCount != 0) LogMessage(sFormat, {static_cast<std::int32_t>(nCount)});
    };

    LogMessage("");
    LogMessage("================================== [ Conversion Summary ] =======================================");
    LogMessage("");
    LogMessage("** Converted Data");
    row("   GRID : %d", rPool.NODS.GetCount());
    row("   CBAR : %d", CountElements(TYPE_BAR, SHAPE_LINE));
    row("   CBEAM : %d", CountElements(TYPE_BEAM, SHAPE_LINE));
    row("   CROD : %d", CountElements(TYPE_ROD, SHAPE_LINE));
    row("   CONROAD : %d", rPool.CNRD.GetCount());
    row("   CTUBE : %d", CountElements(TYPE_TUBE, SHAPE_LINE));
    row("   CTRIA3 & CTRIAR : %d", CountElements(TYPE_PLATE, SHAPE_TRIA3));
    row("   CTRIA6 : %d", CountElements(TYPE_PLATE, SHAPE_TRIA6));
    row("   CQUAD4 & CQUADR : %d", CountElements(TYPE_PLATE, SHAPE_QUAD4));
    row("   CQUAD8 : %d", CountElements(TYPE_PLATE, SHAPE_QUAD8));
    row("   CPENTA : %d", CountElements(TYPE_SOLID, SHAPE_PENTA));
    row("   CTETRA : %d", CountElements(TYPE_SOLID, SHAPE_TETRA));
    row("   CHEXA : %d", CountElements(TYPE_SOLID, SHAPE_HEXA));
    row("   CBEND : %d", CountElements(TYPE_BEND, SHAPE_LINE));
    row("   CSHEAR : %d", CountElements(TYPE_SHEAR, SHAPE_QUAD4));
    row("   CGAP : %d", CountElements(TYPE_GAP, SHAPE_LINE));
    row("   CRBE2 : %d", rPool.RBE2.GetCount());
    row("   CELAS1 : %d", rPool.CEL1.GetCount());
    row("   CELAS2 : %d", rPool.CEL2.GetCount());
    row("   CMAT1 : %d", rPool.MATL.GetCount()); // of every kind
    row("   PBAR : %d", CountProperties(PROP_BAR));
    row("   PBEAM : %d", CountProperties(PROP_BEAM));
    row("   PROD : %d", CountProperties(PROP_ROD));
    row("   PTUBE : %d", CountProperties(PROP_TUBE));
    row("   PSHEAR : %d", CountProperties(PROP_MEMBRANE));
    row("   PBEND : %d", CountProperties(PROP_BEND));
    row("   PELAS : %d", CountProperties(PROP_ELAS));
    row("   PSHELL : %d", static_cast<std::size_t>(m_nPSHELL)); // cards, not records
    row("   SPC : %d", pLastSet ? pLastSet->aCNND.GetSize() : 0);
    row("   FORCE : %d", CountLoads(LOAD_FORCE));
    row("   MOMENT : %d", CountLoads(LOAD_MOMENT));
    row("   PLOAD4 : %d", CountLoads(LOAD_PRESSURE));
    LogMessage("");
    LogMessage("");
    LogMessage(std::string(100, '='));
    LogMessage("");
}
