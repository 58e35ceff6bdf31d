// How many cards of which kinds a deck has.

#include "deckgen/Plan.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace {

constexpr std::string_view USUAL_MIX =
    "grids=430,shells=350,bars=40,solids=0,springs=10,frames=0,loads=110,supports=50,sets=0,duplicates=0";

struct T_SHARE_D {
    std::string_view sNAME;
    std::uint64_t nCards;
};

/// 1 million grids, 1 million plates and bars, 340 thousand loads and supports.
constexpr T_SHARE_D REFERENCE[] = {
    {"GRID", 1'000'000}, {"CQUAD4", 900'000}, {"CBAR", 100'000}, {"FORCE", 90'000}, {"MOMENT", 10'000},
    {"PLOAD4", 140'000}, {"TEMP", 20'000},    {"SPC", 60'000},   {"SPC1", 20'000},
};

constexpr std::array<std::pair<std::string_view, E_GROUP>, 9> SHARED_GROUPS = {{
    {"grids", GROUP_GRIDS},
    {"shells", GROUP_SHELLS},
    {"bars", GROUP_BARS},
    {"solids", GROUP_SOLIDS},
    {"springs", GROUP_SPRINGS},
    {"frames", GROUP_FRAMES},
    {"loads", GROUP_LOADS},
    {"supports", GROUP_SUPPORTS},
    {"sets", GROUP_SETS},
}};

constexpr std::uint64_t USERS_PER_PROPERTY = 10'000;

template <class FUNCTION>
void EachKind(FUNCTION take) {
    for (const auto aKinds : {ELEMENT_KINDS, PROPERTY_KINDS, LOAD_KINDS}) {
        for (const T_KIND_D& rKind : aKinds) take(rKind);
    }
}

const T_KIND_D& KindOf(std::string_view sName) {
    const T_KIND_D* pFound = nullptr;
    EachKind([&](const T_KIND_D& rKind) { pFound = rKind.sNAME == sName ? &rKind : pFound; });
    if (!pFound) throw T_OPTION_ERROR_D{"no kind of card is named " + std::string(sName)};
    return *pFound;
}

const T_KIND_D& FirstKindOf(E_GROUP iGroup) {
    const T_KIND_D* pFound = nullptr;
    EachKind([&](const T_KIND_D& rKind) { pFound = !pFound && rKind.iGROUP == iGroup ? &rKind : pFound; });
    return *pFound;
}

/// nCards shared out by weight, none lost: what the rounding leaves over goes to the greatest weight.
std::vector<std::uint64_t> ShareOut(std::uint64_t nCards, const std::vector<std::uint64_t>& aWeights) {
    std::uint64_t nTotal = 0;
    for (const std::uint64_t nWeight : aWeights) nTotal += nWeight;
    std::vector<std::uint64_t> aShares(aWeights.size());
    if (nTotal == 0) return aShares;
    std::uint64_t nLeft = nCards;
    for (std::size_t i = 0; i < aWeights.size(); ++i) {
        aShares[i] = nCards / nTotal * aWeights[i] + nCards % nTotal * aWeights[i] / nTotal;
        nLeft -= aShares[i];
    }
    const auto iGreatest = std::max_element(aWeights.begin(), aWeights.end()) - aWeights.begin();
    aShares[static_cast<std::size_t>(iGreatest)] += nLeft;
    return aShares;
}

std::uint64_t ToNumber(std::string_view sText, std::string_view sWhat) {
    std::uint64_t n = 0;
    const auto [pEnd, error] = std::from_chars(sText.data(), sText.data() + sText.size(), n);
    if (error != std::errc() || pEnd != sText.data() + sText.size() || n > CIdOrder::GREATEST) {
        throw T_OPTION_ERROR_D{"not a share for " + std::string(sWhat) + ": " + std::string(sText)};
    }
    return n;
}

void AddMix(std::string_view sMix, std::uint64_t nCards, T_PLAN_D& rPlan) {
    std::vector<std::uint64_t> aWeights(SHARED_GROUPS.size() + 1); // the last for duplicates
    while (!sMix.empty()) {
        const std::string_view sItem = sMix.substr(0, sMix.find(','));
        sMix.remove_prefix(std::min(sMix.size(), sItem.size() + 1));
        const std::size_t iEquals = std::min(sItem.find('='), sItem.size());
        const std::string_view sName = sItem.substr(0, iEquals);
        const auto isNamed = [sName](const auto& rGroup) { return rGroup.first == sName; };
        const auto pGroup = std::find_if(SHARED_GROUPS.begin(), SHARED_GROUPS.end(), isNamed);
        if (pGroup == SHARED_GROUPS.end() && sName != "duplicates") {
            throw T_OPTION_ERROR_D{"nothing to mix is named " + std::string(sName)};
        }
        const std::string_view sShare = iEquals < sItem.size() ? sItem.substr(iEquals + 1) : std::string_view();
        aWeights[static_cast<std::size_t>(pGroup - SHARED_GROUPS.begin())] = ToNumber(sShare, sName);
    }
    const std::vector<std::uint64_t> aShares = ShareOut(nCards, aWeights);
    for (std::size_t i = 0; i < SHARED_GROUPS.size(); ++i) {
        std::vector<const T_KIND_D*> aKinds;
        std::vector<std::uint64_t> aKindWeights;
        EachKind([&](const T_KIND_D& rKind) {
            if (rKind.iGROUP != SHARED_GROUPS[i].second) return;
            aKinds.push_back(&rKind);
            aKindWeights.push_back(static_cast<std::uint64_t>(rKind.nWEIGHT));
        });
        const std::vector<std::uint64_t> aKindShares = ShareOut(aShares[i], aKindWeights);
        for (std::size_t iKind = 0; iKind < aKinds.size(); ++iKind) {
            if (aKindShares[iKind] > 0) rPlan.aBlocks.push_back({aKinds[iKind], aKindShares[iKind]});
        }
    }
    rPlan.nDuplicates = aShares.back();
}

/// The one kind, on a hundredth as many grids.
void AddOnly(std::string_view sName, std::uint64_t nCards, T_PLAN_D& rPlan) {
    const T_KIND_D& rKind = KindOf(sName);
    rPlan.aBlocks.push_back({&rKind, nCards});
    if (rKind.iGROUP == GROUP_GRIDS) return;
    const std::uint64_t nGrids = std::clamp<std::uint64_t>(nCards / 100, 64, 1'000'000);
    rPlan.aBlocks.push_back({&KindOf("GRID"), nGrids});
    if (sName == "PLOAD4") rPlan.aBlocks.push_back({&KindOf("CHEXA"), nGrids}); // it loads faces of solids, too
}

/// Adds what the blocks refer to and don't have, and returns its cards.
std::uint64_t AddNeeds(T_PLAN_D& rPlan) {
    std::uint64_t nAdded = 0;
    for (std::size_t i = 0; i < rPlan.aBlocks.size(); ++i) { // what is added has needs of its own
        const T_BLOCK_D block = rPlan.aBlocks[i];
        const E_GROUP iNeeds = block.pKind->iNEEDS;
        const auto isOfGroup = [iNeeds](const T_BLOCK_D& rBlock) { return rBlock.pKind->iGROUP == iNeeds; };
        if (iNeeds == GROUP_NONE || std::any_of(rPlan.aBlocks.begin(), rPlan.aBlocks.end(), isOfGroup)) continue;
        const bool bElements = CModel::SpaceOf(iNeeds) == SPACE_ELEMENTS;
        const std::uint64_t nCards = bElements ? std::clamp<std::uint64_t>(block.nCards / 100, 1, 1'000'000)
                                               : 1 + block.nCards / USERS_PER_PROPERTY;
        rPlan.aBlocks.push_back({&FirstKindOf(iNeeds), nCards});
        nAdded += nCards;
    }
    return nAdded;
}

/// Properties and materials, frames, grids, and the rest in the order of the groups.
int PlaceOf(const T_BLOCK_D& rBlock) {
    const E_GROUP iGroup = rBlock.pKind->iGROUP;
    if (iGroup > GROUP_SETS) return iGroup - GROUPS - 1;
    return iGroup == GROUP_FRAMES ? -1 : iGroup;
}

} // namespace

std::vector<std::string_view> KindNames() {
    std::vector<std::string_view> aNames;
    EachKind([&](const T_KIND_D& rKind) { aNames.push_back(rKind.sNAME); });
    return aNames;
}

T_PLAN_D MakePlan(const T_DECK_OPTIONS_D& rOptions) {
    T_PLAN_D plan;
    if (rOptions.bReference) {
        for (const T_SHARE_D& rShare : REFERENCE) {
            plan.aBlocks.push_back({&KindOf(rShare.sNAME), rShare.nCards * rOptions.nScalePercent / 100});
        }
        AddNeeds(plan);
    } else {
        if (!rOptions.sOnly.empty()) {
            AddOnly(rOptions.sOnly, rOptions.nCards, plan);
        } else {
            AddMix(rOptions.sMix.empty() ? USUAL_MIX : rOptions.sMix, rOptions.nCards, plan);
        }
        if (plan.aBlocks.empty()) throw T_OPTION_ERROR_D{"a deck without cards"};
        // what comes along counts as well: the first block, grids or the one kind, gives way
        std::uint64_t nExtra = AddNeeds(plan);
        if (!rOptions.sOnly.empty()) {
            for (std::size_t i = 1; i < plan.aBlocks.size(); ++i) {
                if (plan.aBlocks[i].pKind->iGROUP == GROUP_GRIDS || plan.aBlocks[i].pKind->sNAME == "CHEXA") {
                    nExtra += plan.aBlocks[i].nCards;
                }
            }
        }
        std::uint64_t& rFirst = plan.aBlocks.front().nCards;
        rFirst = rFirst > nExtra ? rFirst - nExtra : 1;
    }
    std::stable_sort(plan.aBlocks.begin(), plan.aBlocks.end(),
                     [](const T_BLOCK_D& a, const T_BLOCK_D& b) { return PlaceOf(a) < PlaceOf(b); });
    return plan;
}
