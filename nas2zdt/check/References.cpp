#include "nas2zdt/check/References.h"

#include "nas2zdt/check/FrameCheck.h"
#include "nas2zdt/check/SetCheck.h"
#include "nas2zdt/check/TableCheck.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace {

/// What was wrong with the lines of the deck.
void CheckText(const CCheckDeck& rDeck, CFindings& rFindings) {
    for (const T_TOLD_D& rTold : rDeck.GetTold().GetAll()) {
        const std::string_view sRule = rTold.pRULE->sNAME;
        const bool bInclude = sRule.starts_with("include-");
        if (!bInclude && sRule != "unreadable") continue;
        const T_FINDINGKIND_D& rKind = GetKind(bInclude ? TEXT_INCLUDE : TEXT_NOKEYWORD);
        for (const T_ORIGINLINE_D& rPlace : rTold.aPLACES) {
            rFindings.Add(rKind, bInclude ? "INCLUDE" : "",
                          {0, rPlace,
                           bInclude ? "the deck " + rTold.sDETAIL + " isn't there"
                                    : "the line begins with no keyword: " + rTold.sKEYWORD});
        }
        rFindings.Count(rKind, bInclude ? "INCLUDE" : "", rTold.nCOUNT - rTold.aPLACES.size());
    }
    for (const T_BEHINDEND_D& rBehind : rDeck.GetBehindEnd()) {
        Tell(rFindings, TEXT_BEHIND, {"ENDDATA", 0, rBehind.first}, [&] {
            return std::to_string(rBehind.nLINES) + (rBehind.nLINES == 1 ? " card stands" : " cards stand") +
                   " behind ENDDATA";
        });
    }
}

} // namespace

void CheckReferences(const CCheckDeck& rDeck, CFindings& rFindings) {
    CheckText(rDeck, rFindings);
    CDeckIds ids(rDeck, rFindings);
    rDeck.WalkOdd(ids);
    const std::array<CCardTaker*, 1> first = {&ids};
    rDeck.Walk(first);
    ids.Finish();

    CCardCheck check(rDeck, ids, rFindings);
    check.SetReferences(false);
    rDeck.WalkOdd(check);
    check.SetReferences(true);
    CheckGrids(rDeck, check, rFindings);
    CheckFrames(rDeck, ids, rFindings);
    CheckElements(rDeck, ids, check, rFindings);

    CSetCheck sets(rDeck, ids);
    const std::array<CCardTaker*, 2> second = {&check, &sets};
    rDeck.Walk(second);
    const auto& rTold = rDeck.GetTold().GetAll();
    const bool bParts =
        std::ranges::any_of(rTold, [](const T_TOLD_D& r) { return r.pRULE->sNAME == std::string_view("part"); });
    if (!bParts) sets.TellSets(rFindings); // sets may be those of another part
}
