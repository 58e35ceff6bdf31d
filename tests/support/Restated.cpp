#include "support/Restated.h"

#include "nas2zdt/account/Losses.h"
#include "nas2zdt/restate/CardText.h"

#include <vector>

T_RESTATEDTEXT_D RestateText(std::string_view sDeck, const T_CHOICE_D& rChoice) {
    const CTempFolder folder;
    const bool bWhole = sDeck.find("BEGIN") != std::string_view::npos;
    WriteText(folder.Path("deck.dat"), bWhole ? std::string(sDeck) : "CEND\nBEGIN BULK\n" + std::string(sDeck));
    T_RESTATEDTEXT_D restated;
    CFile file;
    file.Create(folder.Path("restated.dat"));
    T_CHOICE_D choice = rChoice;
    choice.join.bFORGIVING = true;
    restated.result = RestateDeck(folder.Path("deck.dat"), file, choice);
    restated.sTEXT = ReadText(folder.Path("restated.dat"));
    return restated;
}

std::string ShowCards(std::string_view sDeck) {
    std::string sShown;
    std::vector<std::string_view> aCard;
    bool bBulk = sDeck.find("BEGIN BULK\n") == std::string_view::npos;
    const auto endCard = [&] {
        if (aCard.empty()) return;
        CCardText text;
        text.Read(aCard);
        std::string sLine(text.GetKeyword());
        for (const std::string_view sField : text.GetFields()) {
            sLine += ',';
            sLine += sField;
        }
        sLine.erase(sLine.find_last_not_of(',') + 1);
        sShown += sLine + "\n";
        aCard.clear();
    };
    while (!sDeck.empty()) {
        const std::size_t iFeed = std::min(sDeck.find('\n'), sDeck.size() - 1);
        const std::string_view sLine = sDeck.substr(0, iFeed);
        sDeck.remove_prefix(iFeed + 1);
        if (!bBulk) {
            if (sLine != "CEND" && sLine != "BEGIN BULK") sShown += std::string(sLine) + "\n";
            bBulk = sLine == "BEGIN BULK";
            continue;
        }
        if (std::string_view(" +*,").find(sLine.substr(0, 1)) == std::string_view::npos) endCard();
        if (sLine != "ENDDATA") aCard.push_back(sLine);
    }
    endCard();
    return sShown;
}

std::string ShowTold(const std::vector<T_TOLD_D>& aTold) {
    std::string sShown;
    for (const T_TOLD_D& rTold : aTold) {
        if (!sShown.empty()) sShown += "; ";
        sShown += std::string(rTold.pRULE->sNAME) + " " + rTold.sKEYWORD + " " + std::to_string(rTold.nCOUNT);
        if (!rTold.sDETAIL.empty()) sShown += " (" + rTold.sDETAIL + ")";
    }
    return sShown;
}

std::string MakeRulesTable() {
    std::string sTable = "\n| rule | cards | what of them | what becomes of it | class |\n|---|---|---|---|---|\n";
    for (const T_RULE_D& rRule : GetRestateRules()) {
        for (const std::string_view sCell :
             {std::string_view(rRule.sNAME), std::string_view(rRule.sKEYWORDS), std::string_view(rRule.sTAKES),
              std::string_view(rRule.sGIVES), ClassName(rRule.eCLASS)}) {
            sTable += "| ";
            sTable += sCell;
            sTable += sCell.empty() ? "" : " ";
        }
        sTable += "|\n";
    }
    return sTable;
}
