// What a run says of its losses without being asked.

#include "nas2zdt/account/Warnings.h"

#include "nas2zdt/account/AccountOutput.h"
#include "nas2zdt/restate/Restate.h"

#include <algorithm>

namespace {

constexpr std::size_t SHOWN_KINDS = 3; // in a line

struct T_KIND_D {
    const T_WORD_D* pWORD;
    const T_NOTE_D* pNOTE;
};

/// The kinds that aren't allowed, by class.
std::array<std::vector<T_KIND_D>, CLASS_COUNT> SortKinds(const CAccount& rAccount, const T_ALLOWED& rAllowed) {
    std::array<std::vector<T_KIND_D>, CLASS_COUNT> aKinds;
    for (const T_WORD_D* pWord : rAccount.GetWords()) {
        if (rAllowed.contains(pWord->sNAME)) continue;
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            const std::string sKind(NoteKind(rNote));
            if (rAllowed.contains(sKind) || rAllowed.contains(pWord->sNAME + ":" + sKind)) continue;
            aKinds[rNote.eCLASS].push_back({pWord, &rNote});
        }
    }
    return aKinds;
}

/// The words of a loss without what its ids are.
std::string ShortText(const T_NOTE_D& rNote) {
    const std::string sText = NoteText(rNote);
    return sText.substr(0, sText.find(" (ids: "));
}

/// How many of some losses restating would do away with, if it would any.
std::string MendedText(const std::vector<T_KIND_D>& rKinds, const T_MENDED& rMended) {
    std::uint64_t nAll = 0, nMended = 0;
    for (const T_KIND_D& rKind : rKinds) {
        nAll += rKind.pNOTE->nCOUNT;
        if (IsMended(rMended, rKind.pWORD->sNAME, NoteKind(*rKind.pNOTE))) nMended += rKind.pNOTE->nCOUNT;
    }
    if (nMended == 0) return {};
    return "; --faithful carries over " + std::to_string(nMended) + " of these " + std::to_string(nAll);
}

} // namespace

CAccount::CLASS_COUNTS CountLosses(const CAccount& rAccount, const T_ALLOWED& rAllowed) {
    CAccount::CLASS_COUNTS aCounts = {};
    for (const std::vector<T_KIND_D>& rKinds : SortKinds(rAccount, rAllowed)) {
        for (const T_KIND_D& rKind : rKinds) aCounts[rKind.pNOTE->eCLASS] += rKind.pNOTE->nCOUNT;
    }
    return aCounts;
}

std::vector<std::string> MakeWarnings(const CAccount& rAccount, const T_ALLOWED& rAllowed, bool bRestated) {
    std::vector<std::string> aLines;
    const T_MENDED mended = bRestated ? T_MENDED() : FindMended();
    auto aKinds = SortKinds(rAccount, rAllowed);
    for (const E_LOSS_CLASS eClass : {CLASS_MODEL, CLASS_MASS, CLASS_CONTROL}) {
        std::vector<T_KIND_D>& rKinds = aKinds[eClass];
        if (rKinds.empty()) continue;
        std::stable_sort(rKinds.begin(), rKinds.end(),
                         [](const T_KIND_D& rA, const T_KIND_D& rB) { return rA.pNOTE->nCOUNT > rB.pNOTE->nCOUNT; });
        std::string sLine(ClassName(eClass));
        const std::size_t nShown = std::min(rKinds.size(), SHOWN_KINDS);
        for (std::size_t i = 0; i < nShown; ++i) {
            const std::string& rName = rKinds[i].pWORD->sNAME;
            sLine += (i == 0 ? ": " : ", ") + std::to_string(rKinds[i].pNOTE->nCOUNT) + " " +
                     (rName.empty() ? "deck" : rName) + " (" + ShortText(*rKinds[i].pNOTE) + ")";
        }
        if (rKinds.size() > nShown)
            sLine += " and " + std::to_string(rKinds.size() - nShown) +
                     (rKinds.size() == nShown + 1 ? " other kind" : " other kinds");
        sLine += MendedText(rKinds, mended);
        aLines.push_back(std::move(sLine));
    }
    return aLines;
}
