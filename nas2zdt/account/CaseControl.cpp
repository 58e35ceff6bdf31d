// What subcases ask for, against what the store holds.

#include "nas2zdt/account/CaseControl.h"

#include "reader/FieldParser.h"
#include "store/DataPool.h"

#include <algorithm>

void CCaseControl::AddLine(std::string_view sText) {
    if (sText.starts_with("CEND")) {
        m_bReading = m_bControlled = true;
    } else if (m_bReading) {
        m_requests.Add(ReadCaseLine(sText));
    }
}

void CCaseControl::AddCard(const T_DATA_D& rCard) {
    if (rCard.aFIELDS.empty()) return;
    T_SUMS* pSums = rCard.sWORD == "SPCADD" ? &m_mapSpcSums : rCard.sWORD == "MPCADD" ? &m_mapMpcSums : nullptr;
    if (!pSums) return;
    std::set<std::int32_t>& rSum = (*pSums)[TextToInt(rCard.aFIELDS[0])];
    for (const std::string_view sField : rCard.aFIELDS) rSum.insert(TextToInt(sField)); // its own cards count, too
    rSum.erase(0);
}

/// Compares the sets that pAsked names, or those that they sum up, with the one of the file. has(set) tells whether
/// the model has any of it.
template <class HAS>
void CCaseControl::FindSets(const std::vector<T_CASE_D>& rCases, std::int32_t T_CASE_D::*pAsked, const T_SUMS& rSums,
                            std::int32_t iInFile, bool bInFile, HAS has, const char* sKeyword,
                            std::vector<T_CASELOSS_D>& rLosses) {
    T_CASELOSS_D missing{NOTE_CASE_MISSING, sKeyword, {}}, lacking{NOTE_CASE_LACKING, sKeyword, {}},
        extra{NOTE_CASE_EXTRA, sKeyword, {}};
    std::map<std::int32_t, bool> mapTakesFile; // by the set that is asked for
    for (const T_CASE_D& rCase : rCases) {
        const std::int32_t iAsked = rCase.*pAsked;
        const auto [pKnown, bNew] = mapTakesFile.try_emplace(iAsked, false);
        if (bNew && iAsked != 0) {
            const auto pSum = rSums.find(iAsked);
            const std::set<std::int32_t> sets = pSum == rSums.end() ? std::set{iAsked} : pSum->second;
            for (const std::int32_t iSet : sets) {
                const bool bOwn = bInFile && iSet == iInFile;
                if (bOwn) pKnown->second = true;
                if (has(iSet) && !bOwn) missing.aIDS.insert(iSet);
                if (!has(iSet) && (sets.size() == 1 || iSet != iAsked)) lacking.aIDS.insert(iSet);
            }
        }
        if (bInFile && !pKnown->second) extra.aIDS.insert(rCase.iID);
    }
    // if nobody asks for any, the bulk data speaks for itself
    if (std::all_of(rCases.begin(), rCases.end(), [&](const T_CASE_D& r) { return r.*pAsked == 0; }))
        extra.aIDS.clear();
    for (T_CASELOSS_D* p : {&missing, &lacking, &extra}) rLosses.push_back(std::move(*p));
}

void CCaseControl::FindLoads(const std::vector<T_CASE_D>& rCases, const CDataPool& rPool,
                             std::vector<T_CASELOSS_D>& rLosses) const {
    T_CASELOSS_D lacking{NOTE_CASE_LACKING, "LOAD", {}}, unasked{NOTE_CASE_UNASKED, "LOAD", {}};
    std::set<std::int32_t> asked;
    for (const T_CASE_D& rCase : rCases) {
        for (const std::int32_t iSet : {rCase.iLOAD, rCase.iTEMPERATURE}) {
            if (iSet == 0 || !asked.insert(iSet).second) continue;
            if (!rPool.LOAD.Find(iSet) && !rPool.LDCB.Find(iSet)) lacking.aIDS.insert(iSet);
        }
    }
    std::set<std::int32_t> used = asked; // directly or by a combination
    for (const std::int32_t iSet : asked) {
        if (const T_LDCB_D* pCombination = rPool.LDCB.Find(iSet)) {
            used.insert(pCombination->aLOADS.begin(), pCombination->aLOADS.end());
        }
    }
    for (const auto& [iSID, rSet] : rPool.LOAD.Sorted()) {
        if (!used.contains(iSID)) unasked.aIDS.insert(iSID);
    }
    for (const auto& [iSID, rCombination] : rPool.LDCB.Sorted()) {
        if (!asked.contains(iSID)) unasked.aIDS.insert(iSID);
    }
    if (m_requests.AsksIndirectly()) unasked.aIDS.clear();
    for (T_CASELOSS_D* p : {&lacking, &unasked}) rLosses.push_back(std::move(*p));
}

std::vector<T_CASELOSS_D> CCaseControl::Find(const CDataPool& rPool) const {
    std::vector<T_CASELOSS_D> aLosses;
    if (!m_bControlled) return aLosses;
    const std::vector<T_CASE_D> aCases = m_requests.GetCases();

    // supports are those of the store's first set, equations those of the last card's
    std::int32_t iFirstSet = 0;
    bool bSupports = false;
    for (const auto& [iSID, rSet] : rPool.CNST.Walk()) {
        iFirstSet = iSID;
        bSupports = !rSet.aCNND.IsEmpty();
        break;
    }
    const auto hasSupports = [&](std::int32_t iSet) {
        const T_CNST_D* pSet = rPool.CNST.Find(iSet);
        return pSet && !pSet->aCNND.IsEmpty();
    };
    FindSets(aCases, &T_CASE_D::iSPC, m_mapSpcSums, iFirstSet, bSupports, hasSupports, "SPC", aLosses);

    const auto hasEquations = [&](std::int32_t iSet) {
        const T_CNST_D* pSet = rPool.CNST.Find(iSet);
        return pSet && !pSet->aCNEQ.IsEmpty();
    };
    FindSets(aCases, &T_CASE_D::iMPC, m_mapMpcSums, rPool.m_iLastCNST, hasEquations(rPool.m_iLastCNST), hasEquations,
             "MPC", aLosses);
    T_CASELOSS_D methods{NOTE_CASE_LACKING, "EIGRL", {}}; // of those that the model has, the rows tell which is written
    for (const T_CASE_D& rCase : aCases) {
        const std::int32_t iSet = rCase.iMETHOD;
        if (iSet != 0 && !rPool.EIRL.Find(iSet) && !rPool.EIGB.Find(iSet)) methods.aIDS.insert(iSet);
    }
    aLosses.push_back(std::move(methods));
    FindLoads(aCases, rPool, aLosses);
    std::erase_if(aLosses, [](const T_CASELOSS_D& rLoss) { return rLoss.aIDS.empty(); });
    return aLosses;
}
