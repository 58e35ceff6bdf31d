// Converts one deck and prints what the options ask for.

#include "nas2zdt/command/DeckOutput.h"

#include "nas2zdt/account/Warnings.h"
#include "nas2zdt/check/CheckOutput.h"
#include "nas2zdt/command/Terminal.h"
#include "platform/PlainText.h"

#include <cstdint>
#include <cstdio>
#include <iostream>

namespace {

/// Shows a check, and fails a run of a deck with errors.
void TellCheck(const T_OPTIONS_D& rOptions, const std::string& sDeck, const T_CHECK_D& rCheck, T_OUTCOME_D& rOutcome) {
    const auto paint = [](const std::string& sText) { return Paint(stdout, COLOUR_RED, sText); };
    if (!rOptions.IsJson()) std::cout << CheckTable(sDeck, rCheck, paint) << std::flush;
    const std::uint64_t nErrors = rCheck.findings.GetCount(SEVERITY_ERROR);
    const std::size_t nUnexplained = CountDifferences(rCheck).nUNEXPLAINED;
    if (nUnexplained > 0) {
        TellHint(sDeck + ": " + std::to_string(nUnexplained) +
                 " totals of deck and file differ, and the account "
                 "doesn't say why: a fault of this program, which its makers would like to know of");
    }
    if (nErrors == 0) return;
    rOutcome.bUNSOUND = true;
    TellHint(sDeck + ": " + std::to_string(nErrors) + (nErrors == 1 ? " error" : " errors") + " of the deck");
}

/// Warns of losses, and fails a run that has those that --strict names.
void TellLosses(const T_OPTIONS_D& rOptions, const std::string& sDeck, const CAccount& rAccount,
                T_OUTCOME_D& rOutcome) {
    const char* const sWhere = rOptions.eACCOUNT == WANTED_NONE ? "; see --account" : "";
    if (!rOptions.bNOWARNINGS) {
        for (const std::string& sLine : MakeWarnings(rAccount, rOptions.allowed, rOptions.bFAITHFUL)) {
            std::string sText = sDeck + ": warning: ";
            sText += sLine;
            TellHint(sText += sWhere);
        }
    }
    const CAccount::CLASS_COUNTS aCounts = CountLosses(rAccount, rOptions.allowed);
    rOutcome.bLOSSY = aCounts[CLASS_MODEL] > 0;
    if (rOptions.eSTRICT == STRICT_NONE) return;
    std::uint64_t nLosses = aCounts[CLASS_MODEL] + aCounts[CLASS_MASS];
    if (rOptions.eSTRICT == STRICT_ANY) nLosses += aCounts[CLASS_CONTROL] + aCounts[CLASS_NOTE];
    if (nLosses == 0) return;
    rOutcome.bLOSS = true;
    TellHint(sDeck + ": " + std::to_string(nLosses) + (nLosses == 1 ? " loss" : " losses") + " fail --strict" + sWhere);
}

} // namespace

T_OUTCOME_D ConvertDeck(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rInputs, CReplaceGuard* pGuard) {
    CDeckRun run(rOptions, rJob, rInputs, pGuard);
    run.Run();
    const T_RESULT_D& rResult = run.GetResult();
    const CAccount* pAccount = run.GetAccount();
    T_OUTCOME_D outcome;
    outcome.bFAILED = !rResult.sERROR.empty();
    if (!rOptions.sLOG.empty()) {
        for (const std::string& sLine : rResult.aLOG) outcome.aLOG.push_back(PlainText(sLine));
    }
    const bool bCheck = rOptions.eCHECK != WANTED_NONE;
    const T_CHECK_D* pCheck = bCheck ? run.GetCheck() : nullptr; // else it is the page that shows it
    if (rOptions.IsJson()) {
        const std::string sCheck = !bCheck ? "" : pCheck ? CheckJson(*pCheck) : "null";
        std::cout << ShowJson(rOptions, rResult, pAccount, sCheck) << std::flush;
    }
    const bool bAccount = rOptions.eACCOUNT == WANTED_TABLE && rResult.bACCOUNT;
    if (bAccount && !rOptions.IsJson()) std::cout << AccountTable(rResult, *pAccount);
    if (pCheck) TellCheck(rOptions, rJob.sDECK, *pCheck, outcome);
    if (rResult.bACCOUNT) TellLosses(rOptions, rJob.sDECK, *pAccount, outcome);
    const bool bTold = rOptions.HasSeveralDecks() && !rOptions.bQUIET && !rOptions.IsJson();
    if (bTold && !outcome.bFAILED) {
        std::cout << PlainText(rJob.sDECK) << ": " << Paint(stdout, COLOUR_GREEN, "converted") << " into "
                  << PlainText(rJob.sTARGET) << '\n';
    }
    std::cout << std::flush;
    const bool bDone = !outcome.bFAILED && !outcome.bLOSS && !outcome.bUNSOUND;
    if (rOptions.bRESUME && bDone) outcome.sNOTE = run.MakeNote();
    return outcome;
}

std::string ShowJson(const T_OPTIONS_D& rOptions, const T_RESULT_D& rResult, const CAccount* pAccount,
                     const std::string& sCheck) {
    const std::string sJson = ResultJson(rResult, rOptions.eACCOUNT != WANTED_NONE ? pAccount : nullptr, sCheck);
    return rOptions.IsJsonLines() ? "{\"version\":2," + sJson.substr(1) + "\n" : sJson;
}
