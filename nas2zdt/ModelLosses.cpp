// What the store holds and the file doesn't: the rules of the section writers, turned around.

#include "nas2zdt/ModelLosses.h"

#include <algorithm>

namespace {

void Add(T_MODELLOSS_D& rLoss, std::int32_t iID, std::uint64_t nCount = 1) {
    rLoss.nCOUNT += nCount;
    if (rLoss.aIDS.size() < T_MODELLOSS_D::MOST_IDS) rLoss.aIDS.push_back(iID);
}

/// The ids of records that a rule loses.
template <class RECORD, class RULE>
T_MODELLOSS_D FindRecords(const char* sKeyword, const char* sText, const CMap<RECORD>& rTable, RULE isLost) {
    T_MODELLOSS_D loss{sKeyword, sText, 0, {}};
    for (const auto& [iID, rRecord] : rTable.Sorted(isLost)) Add(loss, iID);
    return loss;
}

/// *CONSTRAINT has the first set alone, and the grids' own constraints only if there is a set.
void FindConstraints(const CDataPool& rPool, bool bHeldGrids, std::vector<T_MODELLOSS_D>& rLosses) {
    T_MODELLOSS_D sets{"SPC", "grids of constraint sets that don't reach the file (ids: sets)", 0, {}};
    const T_CNST_D* pWritten = nullptr;
    for (const auto& [iSID, rSet] : rPool.CNST.Walk()) {
        if (!pWritten) {
            pWritten = &rSet;
        } else if (!rSet.aCNND.IsEmpty()) {
            Add(sets, iSID, rSet.aCNND.GetSize());
        }
    }
    rLosses.push_back(sets);
    if (pWritten || !bHeldGrids) return;
    const auto isHeld = [](const T_NODS_D& rNode) {
        return std::find(rNode.bPS.begin(), rNode.bPS.end(), true) != rNode.bPS.end();
    };
    rLosses.push_back(
        FindRecords("GRID", "permanent constraints of a deck without constraint sets", rPool.NODS, isHeld));
}

/// Rigid links come from equations of the last set that make one component equal to another.
void FindEquations(const CDataPool& rPool, std::vector<T_MODELLOSS_D>& rLosses) {
    T_MODELLOSS_D sets{"MPC", "equations of sets that don't reach the file (ids: sets)", 0, {}};
    T_MODELLOSS_D equations{"MPC", "equations that make no rigid link (ids: places in the set)", 0, {}};
    for (const auto& [iSID, rSet] : rPool.CNST.Sorted([](const T_CNST_D& rAny) { return !rAny.aCNEQ.IsEmpty(); })) {
        if (iSID != rPool.m_iLastCNST) {
            Add(sets, iSID, rSet.aCNEQ.GetSize());
            continue;
        }
        for (const T_CNEQ_D& rEquation : rSet.aCNEQ) {
            const auto& rTerms = rEquation.aTERMS;
            const bool bLink = rTerms.GetSize() == 2 && rTerms[0].dCOEF == -1.0 && rTerms[1].dCOEF == 1.0;
            if (!bLink) Add(equations, rEquation.iEQ);
        }
    }
    rLosses.push_back(sets);
    rLosses.push_back(equations);
}

bool IsPressureTarget(const T_ELEM_D* pElement) {
    return pElement &&
           (pElement->iTYPE == TYPE_PLATE || pElement->iTYPE == TYPE_SHEAR || pElement->iTYPE == TYPE_SOLID);
}

void FindLoads(const CDataPool& rPool, std::vector<T_MODELLOSS_D>& rLosses) {
    T_MODELLOSS_D corners{"PLOAD4", "pressures on no plate or solid (ids: elements)", 0, {}};
    T_MODELLOSS_D uniform{"PLOAD2", "pressures on no plate or solid (ids: elements)", 0, {}};
    T_MODELLOSS_D missing{"PLOAD1", "loads on no element (ids: elements)", 0, {}};
    T_MODELLOSS_D unknown{"PLOAD1", "loads of unknown TYPE (ids: elements)", 0, {}};
    T_MODELLOSS_D cold{"TEMPP1", "mean temperatures that aren't above zero (ids: elements)", 0, {}};
    for (const auto& [iSID, rSet] : rPool.LOAD.Sorted([](const T_LOAD_D&) { return true; })) {
        for (const T_MBLD_D& rEntry : rSet.aMBLD) {
            const T_ELEM_D* pElement = rEntry.iKIND == LOAD_FORCE ? nullptr : rPool.ELEM.Find(rEntry.iID);
            const bool bBeam = rEntry.iKIND == LOAD_BEAM_FORCE || rEntry.iKIND == LOAD_BEAM_MOMENT;
            if (rEntry.iKIND == 0) Add(unknown, rEntry.iID);
            if (bBeam && !pElement) Add(missing, rEntry.iID);
            if (rEntry.iKIND == LOAD_PRESSURE && !IsPressureTarget(pElement)) {
                Add(rEntry.iFORM == 1 ? corners : uniform, rEntry.iID);
            }
        }
        for (const T_ETLD_D& rEntry : rSet.aETLD) {
            if (!(rEntry.dTBAR > 0.0)) Add(cold, rEntry.iELEM);
        }
    }
    for (const T_MODELLOSS_D& rLoss : {corners, uniform, missing, unknown, cold}) rLosses.push_back(rLoss);

    T_MODELLOSS_D absent{"LOAD", "sets of a combination that don't exist (ids: combinations)", 0, {}};
    for (const auto& [iSID, rCombination] : rPool.LDCB.Sorted([](const T_LDCB_D&) { return true; })) {
        for (const std::int32_t iLoad : rCombination.aLOADS) {
            if (!rPool.LOAD.Find(iLoad)) Add(absent, iSID);
        }
    }
    rLosses.push_back(absent);
}

} // namespace

std::vector<T_MODELLOSS_D> FindModelLosses(const CDataPool& rPool, const T_MODELHINTS_D& rHints) {
    std::vector<T_MODELLOSS_D> aLosses;
    const auto isBend = [](const T_ELEM_D& rElement) { return rElement.iTYPE == TYPE_BEND; };
    const auto isBendSection = [](const T_PROP_D& rProperty) { return rProperty.iPROPTYPE == PROP_BEND; };
    const auto isLaminate = [](const T_PROP_D& rProperty) { return rProperty.iPROPTYPE == PROP_COMP; };
    if (rHints.bBENDS)
        aLosses.push_back(FindRecords("CBEND", "elements without a line (ids: elements)", rPool.ELEM, isBend));
    if (rHints.bBENDSECTIONS)
        aLosses.push_back(
            FindRecords("PBEND", "properties without a section (ids: properties)", rPool.PROP, isBendSection));
    if (rHints.bLAMINATES)
        aLosses.push_back(
            FindRecords("PCOMP", "laminates without a section (ids: properties)", rPool.PROP, isLaminate));
    FindConstraints(rPool, rHints.bHELDGRIDS, aLosses);
    FindEquations(rPool, aLosses);
    FindLoads(rPool, aLosses);
    aLosses.push_back(
        FindRecords("EIGB", "records without a section (ids: sets)", rPool.EIGB, [](const T_EIGB_D&) { return true; }));
    T_MODELLOSS_D later{"EIGRL", "sets but the one that is written (ids: sets)", 0, {}};
    bool bFirst = true;
    for (const auto& [iSID, rRecord] : rPool.EIRL.Walk()) {
        if (!bFirst) Add(later, iSID);
        bFirst = false;
    }
    aLosses.push_back(later);
    std::erase_if(aLosses, [](const T_MODELLOSS_D& rLoss) { return rLoss.nCOUNT == 0; });
    return aLosses;
}
