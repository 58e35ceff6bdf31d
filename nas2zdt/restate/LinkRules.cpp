// Restates rigid elements.

#include "nas2zdt/restate/LinkRules.h"

#include "nas2zdt/restate/FieldText.h"
#include "nas2zdt/restate/IdList.h"

#include <algorithm>

namespace {

enum E_RULE { LINK_LIST, LINK_RIGID, LINK_EXPANDS };

constexpr std::uint8_t ALL_SIX = 0x3f;
constexpr std::size_t FIRST_DEPENDENT = 3;         // place in an RBE2
constexpr std::size_t LONGEST_LIST = 8 + 1000 * 8; // fields of an RBE2 that the converter takes

} // namespace

const std::vector<T_RULE_D> CLinkRules::RULES = {
    {"rigid-list", CLASS_NOTE, "RBE2", "THRU in its list, more lines than the converter takes",
     "restated: grids one by one, in RBE2 that are short enough", "thru too-many-lines"},
    {"rigid-element", CLASS_NOTE, "RBAR RBAR1 RBE1", "all independent components at one grid",
     "restated: RBE2 that ties the same components"},
    {"rigid-expansion", CLASS_MODEL, "RBE2 RBAR RBAR1 RBE1", "ALPHA", "ALPHA, the expansion of a rigid element"},
};

std::vector<T_CARDRULES_D> CLinkRules::GetCards() {
    const auto useId = [this](const CCardFields& rCard, std::uint32_t) -> std::uint8_t {
        m_rModel.UseElementId(rCard.Int(0));
        return NEED_ALWAYS;
    };
    const auto gatherRBE2 = [this](const CCardFields& rCard, std::uint32_t) -> std::uint8_t {
        m_rModel.UseElementId(rCard.Int(0));
        if (rCard.GetCount() > LONGEST_LIST) return NEED_ALWAYS;
        for (std::size_t i = FIRST_DEPENDENT; i < rCard.GetCount(); ++i) {
            if (!rCard.IsBlank(i) && !rCard.HasInt(i)) return NEED_ALWAYS;
        }
        return NEED_NOTHING;
    };
    return {
        {"RBE2", gatherRBE2, [this](CRestateCard& rCard) { RestateRBE2(rCard); }},
        {"RBAR", useId, [this](CRestateCard& rCard) { RestateRBAR(rCard); }},
        {"RBAR1", useId, [this](CRestateCard& rCard) { RestateRBAR1(rCard); }},
        {"RBE1", useId, [this](CRestateCard& rCard) { RestateRBE1(rCard); }},
        {"RBE3", useId, nullptr},
        {"RROD", useId, nullptr},
        {"RTRPLT", useId, nullptr},
    };
}

/// Writes an RBE2, or several if it would have too many lines.
void CLinkRules::WriteLink(CRestateCard& rCard, const CFieldValue& rID, std::int32_t iIndependent,
                           std::string_view sComponents, const std::vector<std::int32_t>& rDependent) {
    constexpr std::size_t MOST = LONGEST_LIST - FIRST_DEPENDENT;
    for (std::size_t i = 0; i < std::max<std::size_t>(rDependent.size(), 1); i += MOST) {
        std::vector<CFieldValue> aFields = {i == 0 ? rID : CFieldValue(m_rModel.NewElementId()), iIndependent,
                                            sComponents};
        const auto pFirst = rDependent.begin() + static_cast<std::ptrdiff_t>(i);
        aFields.insert(aFields.end(), pFirst,
                       pFirst + static_cast<std::ptrdiff_t>(std::min(MOST, rDependent.size() - i)));
        rCard.Write("RBE2", std::move(aFields));
    }
}

/// Reals at the end are ALPHA and its reference temperature.
void CLinkRules::RestateRBE2(CRestateCard& rCard) {
    std::size_t iEnd = rCard.GetCount();
    double dAlpha = 0.0;
    while (iEnd > FIRST_DEPENDENT && (rCard.IsBlank(iEnd - 1) || rCard.HasReal(iEnd - 1))) {
        if (!rCard.IsBlank(--iEnd)) dAlpha = rCard.Real(iEnd);
    }
    bool bListed = iEnd > LONGEST_LIST;
    std::vector<std::int32_t> aDependent;
    for (const T_IDRANGE_D& rRange : ReadIdList(rCard, FIRST_DEPENDENT, iEnd)) {
        if (rRange.bNAMED) {
            aDependent.push_back(rRange.iFIRST);
            continue;
        }
        bListed = true;
        const std::vector<std::int32_t> aGrids = m_rModel.m_grids.GetRange(rRange.iFIRST, rRange.iLAST);
        m_rModel.CountRange(aGrids.size());
        std::copy_if(aGrids.begin(), aGrids.end(), std::back_inserter(aDependent),
                     [&](std::int32_t i) { return (std::int64_t{i} - rRange.iFIRST) % rRange.iSTEP == 0; });
    }
    WriteLink(rCard, rCard.Text(0), rCard.Int(1), rCard.Text(2), aDependent);
    if (bListed) rCard.Tell(RULES[LINK_LIST]);
    if (dAlpha != 0.0) rCard.Tell(RULES[LINK_EXPANDS]);
}

/// Ties components of a grid to those of another one, all six if none is named.
void CLinkRules::WriteRigid(CRestateCard& rCard, std::int32_t iIndependent, std::uint8_t nTied, std::int32_t iDependent,
                            double dAlpha) {
    WriteLink(rCard, rCard.Text(0), iIndependent, ComponentText(nTied == 0 ? ALL_SIX : nTied), {iDependent});
    rCard.Tell(RULES[LINK_RIGID]);
    if (dAlpha != 0.0) rCard.Tell(RULES[LINK_EXPANDS]);
}

void CLinkRules::RestateRBAR(CRestateCard& rCard) {
    for (const std::size_t iEnd : {std::size_t{0}, std::size_t{1}}) {
        const std::size_t iOther = 1 - iEnd;
        if (rCard.Components(3 + iEnd) != ALL_SIX || rCard.Components(3 + iOther) != 0) continue;
        if (rCard.Components(5 + iEnd) != 0) continue;
        WriteRigid(rCard, rCard.Int(1 + iEnd), rCard.Components(5 + iOther), rCard.Int(1 + iOther), rCard.Real(7));
        return;
    }
}

void CLinkRules::RestateRBAR1(CRestateCard& rCard) {
    WriteRigid(rCard, rCard.Int(1), rCard.Components(3), rCard.Int(2), rCard.Real(4));
}

/// Lines have three pairs from their second field on; the first field is blank but for UM, where dependent ones begin.
CLinkRules::T_ENDS_D CLinkRules::ReadEnds(const CCardFields& rCard) {
    constexpr std::size_t LINE = 8, PAIRS = 3;
    T_ENDS_D ends;
    bool bDependent = false;
    for (std::size_t iLine = 0; iLine < rCard.GetCount(); iLine += LINE) {
        bDependent = bDependent || (iLine > 0 && rCard.Is(iLine, "UM"));
        for (std::size_t i = iLine + 1; i < iLine + 1 + 2 * PAIRS; i += 2) {
            if (rCard.HasReal(i)) {
                ends.bEXPANDS = ends.bEXPANDS || rCard.Real(i) != 0.0;
                break; // what follows is its reference temperature
            }
            if (!rCard.IsBlank(i)) {
                (bDependent ? ends.aDEPENDENT : ends.aINDEPENDENT).emplace_back(rCard.Int(i), rCard.Components(i + 1));
            }
        }
    }
    return ends;
}

void CLinkRules::RestateRBE1(CRestateCard& rCard) {
    const T_ENDS_D ends = ReadEnds(rCard);
    if (ends.aINDEPENDENT.empty() || ends.aDEPENDENT.empty()) return;
    const std::int32_t iIndependent = ends.aINDEPENDENT.front().first;
    std::uint8_t nIndependent = 0;
    for (const auto& [iGrid, nComponents] : ends.aINDEPENDENT) {
        if (iGrid != iIndependent) return;
        nIndependent |= nComponents;
    }
    std::map<std::uint8_t, std::vector<std::int32_t>> mapDependent;
    for (const auto& [iGrid, nComponents] : ends.aDEPENDENT) mapDependent[nComponents].push_back(iGrid);
    if (nIndependent != ALL_SIX || mapDependent.contains(0)) return;
    bool bFirst = true;
    for (const auto& [nComponents, aGrids] : mapDependent) {
        const CFieldValue id = bFirst ? CFieldValue(rCard.Text(0)) : CFieldValue(m_rModel.NewElementId());
        WriteLink(rCard, id, iIndependent, ComponentText(nComponents), aGrids);
        bFirst = false;
    }
    rCard.Tell(RULES[LINK_RIGID]);
    if (ends.bEXPANDS) rCard.Tell(RULES[LINK_EXPANDS]);
}
