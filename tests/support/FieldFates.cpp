// What becomes of each field of each card.

#include "support/FieldFates.h"

#include "cards/FieldNames.h"
#include "support/Accounted.h"
#include "support/CardDecks.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

/// What a deck comes to.
struct T_OUTCOME_D {
    std::map<std::string, std::string> sections; // by keyword, all blocks
    std::map<std::string, std::uint64_t> told;   // keyword, class and text of losses
    std::set<std::string> unwritten;             // those of whole records
};

T_OUTCOME_D Convert(const std::string& sDeck, std::string_view sKeyword) {
    const T_ACCOUNTED_D run = RunAccounted(sDeck);
    T_OUTCOME_D outcome;
    std::string* pSection = nullptr;
    const std::string& sFile = run.sZDT;
    for (std::size_t i = 0; i < sFile.size();) {
        const std::size_t iEnd = std::min(sFile.find('\n', i), sFile.size() - 1) + 1;
        const std::string sLine = sFile.substr(i, iEnd - i);
        if (sLine[0] == '*') pSection = &outcome.sections[sLine.substr(0, sLine.find_first_of(" ,;\n"))];
        *pSection += sLine;
        i = iEnd;
    }
    for (const T_WORD_D* pWord : run.account.GetWords()) {
        const std::string sOther = pWord->sNAME == sKeyword ? "" : pWord->sNAME + ": "; // that refers to the card
        for (const T_NOTE_D& rNote : pWord->aNOTES) {
            const std::string sText = sOther + NoteText(rNote) + " (" + std::string(ClassName(rNote.eCLASS)) + ")";
            outcome.told[sText] += rNote.nCOUNT;
            if (sOther.empty() && rNote.eNOTE == NOTE_UNWRITTEN) outcome.unwritten.insert(sText);
        }
    }
    return outcome;
}

/// The name of each field that a row fills.
std::vector<std::string> NameFields(const T_CARDDECK_D& rRow, const std::vector<std::string>& aFields) {
    T_DATA_D card;
    card.aFIELDS.assign(aFields.begin(), aFields.end());
    std::vector<std::string> aNames;
    CFieldNames(rRow.sKEYWORD).Walk(card, [&](std::size_t, const T_NAME_D& rName) { aNames.push_back(rName.Text()); });
    return aNames;
}

} // namespace

std::vector<T_FATE_D> FindFieldFates() {
    std::vector<T_FATE_D> aFates;
    for (const T_CARDDECK_D& rRow : GetCardDecks()) {
        const std::vector<std::string> aFields = SplitFields(rRow.sFIELDS);
        const std::vector<std::string> aNames = NameFields(rRow, aFields);
        const T_OUTCOME_D whole = Convert(MakeCardDeck(rRow, aFields), rRow.sKEYWORD);
        const T_OUTCOME_D rest = Convert(MakeCardDeck({"$", "", rRow.sCARDS}, {}), rRow.sKEYWORD);
        const auto isOfCard = [&](const std::string& sText) {
            const auto pRest = rest.told.find(sText);
            return pRest == rest.told.end() || pRest->second < whole.told.at(sText);
        };
        for (std::size_t i = 0; i < aFields.size(); ++i) {
            if (aFields[i].empty()) continue;
            std::vector<std::string> aWithout = aFields;
            aWithout[i].clear();
            const T_OUTCOME_D without = Convert(MakeCardDeck(rRow, aWithout), rRow.sKEYWORD);
            T_FATE_D& rFate = aFates.emplace_back();
            rFate.sKEYWORD = rRow.sKEYWORD;
            rFate.sFIELD = aNames[i];
            for (const auto& [sSection, sText] : whole.sections) {
                const auto pOther = without.sections.find(sSection);
                if (pOther == without.sections.end() || pOther->second != sText) rFate.aSECTIONS.push_back(sSection);
            }
            for (const auto& [sSection, sText] : without.sections) {
                if (!whole.sections.contains(sSection)) rFate.aSECTIONS.push_back(sSection);
            }
            for (const auto& [sText, nCount] : whole.told) {
                const auto pOther = without.told.find(sText);
                if (pOther == without.told.end() || pOther->second < nCount) {
                    rFate.aTOLD.push_back(sText);
                } else if (sText.find(": " + rFate.sFIELD + " ") != std::string::npos ||
                           (whole.unwritten.contains(sText) && isOfCard(sText))) {
                    rFate.aRECORD.push_back(sText);
                }
            }
        }
    }
    return aFates;
}

std::string MakeCardsPage(const std::vector<T_FATE_D>& aFates) {
    std::string sPage =
        "# Cards\n\n"
        "What becomes of every field of every card that is converted, found by converting a card with all of its\n"
        "fields and once without each: the sections of the target file that the field changes, and what `--account`\n"
        "tells of it, with the class of the loss. `scripts/make_pages.sh` makes this page.\n";
    const auto join = [](const std::vector<std::string>& aTexts) {
        std::string sText;
        for (const std::string& sItem : aTexts) {
            const bool bNames = sItem.starts_with("dropped: "); // of this field and others
            sText += (sText.empty() ? "" : "; ") + (bNames ? "dropped" + sItem.substr(sItem.rfind(" (")) : sItem);
        }
        return sText;
    };
    std::string sKeyword;
    for (const T_FATE_D& rFate : aFates) {
        if (rFate.sKEYWORD != sKeyword) {
            sKeyword = rFate.sKEYWORD;
            sPage += "\n## " + sKeyword + "\n\n| field | in the file | told |\n|---|---|---|\n";
        }
        std::string sSections;
        for (const std::string& sSection : rFate.aSECTIONS)
            sSections += (sSections.empty() ? "`" : ", `") + sSection + "`";
        sPage += "| " + rFate.sFIELD + " | " + sSections + " | " +
                 join(rFate.aTOLD.empty() ? rFate.aRECORD : rFate.aTOLD) + " |\n";
    }
    return sPage;
}
