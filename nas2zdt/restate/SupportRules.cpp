// Restates supports, enforced displacements and equations.

#include "nas2zdt/restate/SupportRules.h"

#include "nas2zdt/restate/FieldText.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>
#include <set>

namespace {

enum E_RULE {
    SUPPORT_MERGED,
    SUPPORT_SET,
    SUPPORT_CASE,
    SUPPORT_POINT,
    SUPPORT_NOTHING,
    SUPPORT_FIELD,
    SUPPORT_ENFORCED,
    SUPPORT_ENFORCED_LEFT,
    DISPLACEMENT_POINT,
    EQUATION_LINK,
    EQUATION_FORM
};

constexpr std::uint32_t NO_CARD = CSupportTable::NO_CARD;

} // namespace

const std::vector<T_RULE_D> CSupportRules::RULES = {
    {"supports", CLASS_NOTE, "SPC SPC1 SPCADD", "the supports of the chosen subcase, ranges and sums",
     "restated: one card a grid in one set", "skipped thru fields-past-read"},
    {"support-sets", CLASS_MODEL, "SPC SPC1 MPC", "sets that aren't chosen", "of sets that aren't the file's"},
    {"support-cases", CLASS_MODEL, "SPC MPC", "the chosen set in other subcases",
     "added: the one set of the file, where subcases don't ask for it"},
    {"support-points", CLASS_MODEL, "SPC SPC1", "scalar points and grids that don't exist",
     "supports of points that aren't grids"},
    {"support-components", CLASS_MODEL, "SPC SPC1", "component 0 or none of a grid", "supports without a component"},
    {"support-fields", CLASS_MODEL, "SPC SPC1 SPCADD MPC MPCADD", "a field that isn't what it should be",
     "taken without the fields that aren't what they should be"},
    {"support-enforced", CLASS_NOTE, "SPC", "an enforced value D", "restated: SPCD in the load sets of the subcases"},
    {"support-enforced-left", CLASS_MODEL, "SPC", "D where no plain load set is asked for",
     "enforced values that no load set can have"},
    {"displacement-points", CLASS_MODEL, "SPCD", "scalar points, grids that don't exist, component 0",
     "enforced displacements of no component of a grid"},
    {"equation-links", CLASS_NOTE, "MPC MPCADD", "equal components of two grids", "restated: a rigid link of two grids",
     "skipped"},
    {"equation-form", CLASS_MODEL, "MPC", "all other equations", "equations that make no rigid link"},
};

std::vector<T_CARDRULES_D> CSupportRules::GetCards() {
    const auto drop = [](CRestateCard& rCard) { rCard.Drop(); }; // what is taken is written in the end
    return {
        {"SPC", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherSPC(rCard, iCard); }, drop},
        {"SPC1", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherSPC1(rCard, iCard); }, drop},
        {"SPCADD",
         [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherSum(rCard, iCard, m_supportSets); },
         drop},
        {"SPCD", [this](const CCardFields& rCard, std::uint32_t) { return GatherSPCD(rCard); },
         [this](CRestateCard& rCard) { RestateSPCD(rCard); }},
        {"MPC", [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherMPC(rCard, iCard); }, drop},
        {"MPCADD",
         [this](const CCardFields& rCard, std::uint32_t iCard) { return GatherSum(rCard, iCard, m_equationSets); },
         drop},
    };
}

void CSupportRules::TellBroken(const CCardFields& rCard) {
    if (rCard.GetBroken() == CCardFields::NOWHERE) return;
    m_rTold.Tell(RULES[SUPPORT_FIELD], rCard.GetKeyword(), rCard.GetOrigin());
}

std::uint8_t CSupportRules::GatherSPC(const CCardFields& rCard, std::uint32_t iCard) {
    const std::int32_t iSet = rCard.Int(0);
    m_supportSets.AddSet(iSet);
    for (std::size_t i = 1; i <= 4; i += 3) {
        if (rCard.IsBlank(i)) continue;
        const std::int32_t iGrid = rCard.Int(i);
        const std::uint8_t nComponents = rCard.Components(i + 1);
        const double dValue = rCard.Real(i + 2);
        m_aSupports.push_back({iSet, {iGrid, iGrid, 1, true}, iCard, nComponents, false});
        if (dValue != 0.0) m_aEnforced.push_back({iSet, iGrid, nComponents, dValue, iCard});
    }
    TellBroken(rCard);
    return NEED_ALWAYS;
}

std::uint8_t CSupportRules::GatherSPC1(const CCardFields& rCard, std::uint32_t iCard) {
    const std::int32_t iSet = rCard.Int(0);
    m_supportSets.AddSet(iSet);
    const std::uint8_t nComponents = rCard.Components(1);
    for (const T_IDRANGE_D& rRange : ReadIdList(rCard, 2, rCard.GetCount())) {
        m_aSupports.push_back({iSet, rRange, iCard, nComponents, true});
    }
    TellBroken(rCard);
    return NEED_ALWAYS;
}

std::uint8_t CSupportRules::GatherSum(const CCardFields& rCard, std::uint32_t iCard, CSetChoice& rSets) {
    std::vector<std::int32_t> aSets;
    for (std::size_t i = 1; i < rCard.GetCount(); ++i) {
        if (!rCard.IsBlank(i)) aSets.push_back(rCard.Int(i));
    }
    rSets.AddSum(rCard.Int(0), std::move(aSets));
    if (&rSets == &m_supportSets) m_aSums.emplace_back(iCard, rCard.Int(0));
    TellBroken(rCard);
    return NEED_ALWAYS;
}

std::uint8_t CSupportRules::GatherSPCD(const CCardFields& rCard) {
    for (std::size_t i = 1; i <= 4; i += 3) {
        if (rCard.IsBlank(i)) continue;
        m_aDisplacements.push_back({rCard.Int(0), rCard.Int(i), rCard.Components(i + 1), 0.0, NO_CARD});
    }
    return NEED_ALWAYS;
}

/// Terms stand in places 1 and 4 of each line. Two equal components are left by two terms that cancel.
std::uint8_t CSupportRules::GatherMPC(const CCardFields& rCard, std::uint32_t iCard) {
    struct T_TERM_D {
        std::int32_t iGRID, iCOMPONENT;
        double dFACTOR;
    };
    constexpr std::size_t LINE = 8, MOST = 2;
    std::vector<T_TERM_D> aTerms;
    bool bPlain = rCard.GetCount() <= LINE - 1;
    for (std::size_t i = 1; i < rCard.GetCount() && aTerms.size() <= MOST; i += i % LINE == 1 ? 3 : LINE - 3) {
        const T_TERM_D term = {rCard.Int(i), rCard.Int(i + 1), rCard.Real(i + 2)};
        if (term.iGRID != 0 && term.dFACTOR != 0.0) {
            aTerms.push_back(term);
        } else {
            bPlain = false;
        }
    }
    T_EQUATION_D equation = {rCard.Int(0), iCard, 0, 0, 0, false};
    if (aTerms.size() == MOST && rCard.GetBroken() == CCardFields::NOWHERE) {
        const T_TERM_D &a = aTerms[0], &b = aTerms[1];
        const bool bEqual = a.iCOMPONENT == b.iCOMPONENT && a.dFACTOR == -b.dFACTOR && a.iGRID != b.iGRID;
        if (bEqual && a.iCOMPONENT >= 1 && a.iCOMPONENT <= 6) equation.iCOMPONENT = a.iCOMPONENT;
        equation.iDEPENDENT = a.iGRID;
        equation.iOTHER = b.iGRID;
        equation.bPLAIN = bPlain && a.dFACTOR == -1.0;
    }
    m_equationSets.AddSet(equation.iSET);
    m_aEquations.push_back(equation);
    TellBroken(rCard);
    return NEED_ALWAYS;
}

void CSupportRules::RestateSPCD(CRestateCard& rCard) {
    bool bLeft = false;
    std::vector<std::vector<CFieldValue>> aTaken;
    for (std::size_t i = 1; i <= 4; i += 3) {
        if (rCard.IsBlank(i)) continue;
        rCard.Real(i + 2);
        if (rCard.Components(i + 1) != 0 && m_rModel.m_grids.Has(rCard.Int(i))) {
            aTaken.push_back({rCard.Int(0), rCard.Int(i), rCard.Text(i + 1), rCard.Text(i + 2)});
        } else {
            bLeft = true;
        }
    }
    if (!bLeft && !rCard.IsBlank(1)) return;
    rCard.Drop();
    for (std::vector<CFieldValue>& rFields : aTaken) rCard.Write("SPCD", std::move(rFields));
    if (bLeft) rCard.Tell(RULES[DISPLACEMENT_POINT]);
}

void CSupportRules::Begin() {
    ChooseSets();
    MergeSupports();
    TellSupports();
    FindLinks();
    TellLeft();
    EnforceDisplacements();
    m_rModel.m_iAskedSPC = m_held.IsEmpty() ? m_rModel.m_case.iSPC : m_iSet;
    m_rModel.m_iAskedMPC = !m_aLinks.empty() ? m_iSet : m_rModel.m_case.iMPC;
}

void CSupportRules::ChooseSets() {
    const bool bAsked = !m_rModel.m_aCases.empty();
    m_supportSets.Choose(bAsked ? std::optional(m_rModel.m_case.iSPC) : std::nullopt);
    m_equationSets.Choose(bAsked ? std::optional(m_rModel.m_case.iMPC) : std::nullopt);
    m_iSet = m_supportSets.GetChosen();
    if (m_iSet == 0) m_iSet = m_equationSets.GetChosen();
    if (m_iSet == 0) m_iSet = 1; // of PS of grids alone
}

/// Puts the components of all supports that are taken to their grids.
void CSupportRules::MergeSupports() {
    const auto& rRows = m_rModel.m_grids.GetRows();
    const bool bHeld = std::any_of(rRows.begin(), rRows.end(), [](const auto& rRow) { return rRow.second.nPS != 0; });
    if (!bHeld && m_supportSets.GetChosen() == 0) return;
    m_held.SetGrids(
        m_rModel.m_grids.GetRange(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
    for (const T_SUPPORT_D& rSupport : m_aSupports) {
        if (!m_supportSets.IsTaken(rSupport.iSET)) continue;
        if (rSupport.ids.iSTEP != 1) m_rModel.CountRange(m_held.CountGrids(rSupport.ids));
        m_held.Hold(rSupport.ids, rSupport.nCOMPONENTS, rSupport.iCARD);
    }
    for (std::size_t i = 0; bHeld && i < m_held.GetCount(); ++i) {
        const std::int32_t iGrid = m_held.GetGrid(i);
        const T_POINT_D& rGrid = *m_rModel.m_grids.Find(iGrid);
        m_held.Hold({iGrid, iGrid}, rGrid.nPS, rGrid.iCARD);
    }
}

/// Tells what becomes of the cards whose supports are taken. A card that stands as it will be written is left alone.
void CSupportRules::TellSupports() {
    for (const auto& [iCard, iSet] : m_aSums) {
        if (m_supportSets.IsTaken(iSet)) Tell(SUPPORT_MERGED, "SPCADD", iCard);
    }
    for (std::size_t i = 0; i < m_aSupports.size();) {
        const T_SUPPORT_D& rFirst = m_aSupports[i];
        const char* sKeyword = rFirst.bSPC1 ? "SPC1" : "SPC";
        std::uint64_t nEntries = 0, nMissing = 0, nNothing = 0;
        bool bSame = rFirst.bSPC1 && rFirst.iSET == m_iSet;
        for (; i < m_aSupports.size() && m_aSupports[i].iCARD == rFirst.iCARD; ++i, ++nEntries) {
            const T_SUPPORT_D& rSupport = m_aSupports[i];
            const std::size_t iGrid = m_held.Find(rSupport.ids.iFIRST);
            const bool bThere = iGrid != CSupportTable::NOWHERE;
            if (!rSupport.ids.bNAMED) {
                bSame = false;
            } else if (!bThere) {
                ++nMissing;
            } else {
                bSame = bSame && m_held.GetFirstCard(iGrid) == rSupport.iCARD &&
                        m_held.GetComponents(iGrid) == rSupport.nCOMPONENTS;
            }
            if (bThere && rSupport.ids.bNAMED && rSupport.nCOMPONENTS == 0) ++nNothing;
        }
        if (!m_supportSets.IsTaken(rFirst.iSET)) continue;
        if (nMissing != 0) Tell(SUPPORT_POINT, sKeyword, rFirst.iCARD, {}, nMissing);
        if (nNothing != 0) Tell(SUPPORT_NOTHING, sKeyword, rFirst.iCARD, {}, nNothing);
        if (nMissing + nNothing != nEntries && !(bSame && nEntries == 1)) Tell(SUPPORT_MERGED, sKeyword, rFirst.iCARD);
    }
}

void CSupportRules::FindLinks() {
    for (const T_EQUATION_D& rEquation : m_aEquations) {
        if (!m_equationSets.IsTaken(rEquation.iSET)) continue;
        if (!IsLink(rEquation)) {
            Tell(EQUATION_FORM, "MPC", rEquation.iCARD);
            continue;
        }
        m_aLinks.push_back(rEquation);
        if (!rEquation.bPLAIN || rEquation.iSET != m_iSet) Tell(EQUATION_LINK, "MPC", rEquation.iCARD);
    }
}

/// Whether an equation ties two grids along axes that are the same at both.
bool CSupportRules::IsLink(const T_EQUATION_D& rEquation) const {
    constexpr double SAME = 1e-9;
    if (rEquation.iCOMPONENT == 0) return false;
    std::array<T_VECTOR, 2> axes;
    for (std::size_t i = 0; i < 2; ++i) {
        const T_POINT_D* pGrid = m_rModel.m_grids.Find(i == 0 ? rEquation.iDEPENDENT : rEquation.iOTHER);
        const T_FRAME_D* pFrame = pGrid ? m_rModel.FindFrame(pGrid->iCD) : nullptr;
        if (!pFrame) return false;
        axes[i] = pFrame->AxesAt(pGrid->dX)[static_cast<std::size_t>(rEquation.iCOMPONENT - 1) % 3];
    }
    return Length(Subtract(axes[0], axes[1])) <= SAME;
}

void CSupportRules::TellLeft() {
    const std::string sSupports = "sets " + ListIds(m_supportSets.GetLeft());
    std::uint32_t iLast = NO_CARD, iFirst = NO_CARD;
    for (const T_SUPPORT_D& rSupport : m_aSupports) {
        if (m_supportSets.IsTaken(rSupport.iSET)) {
            iFirst = std::min(iFirst, rSupport.iCARD);
        } else if (rSupport.iCARD != iLast) {
            Tell(SUPPORT_SET, rSupport.bSPC1 ? "SPC1" : "SPC", iLast = rSupport.iCARD, sSupports);
        }
    }
    if (iFirst != NO_CARD) TellCases(m_supportSets, &T_CASE_D::iSPC, "SPC", iFirst);
    const std::string sEquations = "sets " + ListIds(m_equationSets.GetLeft());
    for (const T_EQUATION_D& rEquation : m_aEquations) {
        if (!m_equationSets.IsTaken(rEquation.iSET)) Tell(SUPPORT_SET, "MPC", rEquation.iCARD, sEquations);
    }
    if (!m_aLinks.empty()) TellCases(m_equationSets, &T_CASE_D::iMPC, "MPC", m_aLinks.front().iCARD);
}

/// Tells the subcases that ask for another set than the file's, or for none.
void CSupportRules::TellCases(const CSetChoice& rSets, std::int32_t T_CASE_D::*pAsked, const char* sKeyword,
                              std::uint32_t iFirstCard) {
    std::vector<std::int32_t> aCases;
    for (const T_CASE_D& rCase : m_rModel.m_aCases) {
        if (rCase.*pAsked != rSets.GetChosen()) aCases.push_back(rCase.iID);
    }
    if (!aCases.empty()) Tell(SUPPORT_CASE, sKeyword, iFirstCard, "subcases " + ListIds(aCases), aCases.size());
}

/// The load sets that subcases with the chosen supports ask for. rAll is false if one of them asks for none, or for a
/// combination, which can't have a displacement itself.
std::vector<std::int32_t> CSupportRules::FindLoadSets(bool& rAll) const {
    std::set<std::int32_t> combinations = {0};
    CCardFields card;
    for (const T_SOURCECARD_D& rCard : m_rCards) {
        if (rCard.nTEXT < 4 || (*rCard.pTEXT != 'L' && *rCard.pTEXT != 'l')) continue;
        card.Read(rCard);
        if (card.GetKeyword() == "LOAD") combinations.insert(card.Int(0));
    }
    std::vector<std::int32_t> aSets;
    rAll = !m_rModel.m_aCases.empty();
    for (const T_CASE_D& rCase : m_rModel.m_aCases) {
        if (rCase.iSPC != m_supportSets.GetChosen()) continue;
        if (combinations.contains(rCase.iLOAD)) {
            rAll = false;
        } else {
            aSets.push_back(rCase.iLOAD);
        }
    }
    std::sort(aSets.begin(), aSets.end());
    aSets.erase(std::unique(aSets.begin(), aSets.end()), aSets.end());
    return aSets;
}

/// The values of SPC are loads of each of those subcases, unless an SPCD gives another.
void CSupportRules::EnforceDisplacements() {
    std::erase_if(m_aEnforced, [&](const T_DISPLACEMENT_D& rValue) {
        return !m_supportSets.IsTaken(rValue.iSET) || rValue.nCOMPONENTS == 0 || !m_rModel.m_grids.Has(rValue.iGRID);
    });
    if (m_aEnforced.empty()) return;
    bool bAll = false;
    const std::vector<std::int32_t> aSets = FindLoadSets(bAll);
    std::map<std::pair<std::int32_t, std::int32_t>, std::uint8_t> mapGiven;
    for (const T_DISPLACEMENT_D& rGiven : m_aDisplacements) {
        mapGiven[{rGiven.iSET, rGiven.iGRID}] |= rGiven.nCOMPONENTS;
    }
    for (const T_DISPLACEMENT_D& rValue : m_aEnforced) {
        Tell(!aSets.empty() ? SUPPORT_ENFORCED : SUPPORT_ENFORCED_LEFT, "SPC", rValue.iCARD);
        if (!aSets.empty() && !bAll) Tell(SUPPORT_ENFORCED_LEFT, "SPC", rValue.iCARD, "in some subcases");
        m_rModel.CountRange(aSets.size());
        for (const std::int32_t iSet : aSets) {
            T_DISPLACEMENT_D written = rValue;
            written.iSET = iSet;
            const auto pGiven = mapGiven.find({iSet, rValue.iGRID});
            if (pGiven != mapGiven.end()) written.nCOMPONENTS &= static_cast<std::uint8_t>(~pGiven->second);
            if (written.nCOMPONENTS != 0) m_aWritten.push_back(written);
        }
    }
}

void CSupportRules::Finish(CCardWriter& rWriter) {
    for (const T_DISPLACEMENT_D& rValue : m_aWritten) {
        rWriter.SetOrigin(m_rCards[rValue.iCARD].origin);
        rWriter.Write("SPCD",
                      {rValue.iSET, rValue.iGRID, CFieldValue(ComponentText(rValue.nCOMPONENTS)), rValue.dVALUE});
    }
    for (std::size_t i = 0; i < m_held.GetCount(); ++i) {
        if (m_held.GetComponents(i) == 0) continue;
        rWriter.SetOrigin(m_rCards[m_held.GetFirstCard(i)].origin);
        rWriter.Write("SPC1", {m_iSet, CFieldValue(ComponentText(m_held.GetComponents(i))), m_held.GetGrid(i)});
    }
    for (const T_EQUATION_D& rLink : m_aLinks) {
        rWriter.SetOrigin(m_rCards[rLink.iCARD].origin);
        rWriter.Write("MPC", {m_iSet, rLink.iDEPENDENT, rLink.iCOMPONENT, -1.0, rLink.iOTHER, rLink.iCOMPONENT, 1.0});
    }
}
