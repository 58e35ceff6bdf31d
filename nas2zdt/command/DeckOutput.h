#pragma once
// Converts one deck and prints what the options ask for.

#include "nas2zdt/command/DeckRun.h"
#include "nas2zdt/command/Jobs.h"
#include "nas2zdt/command/Options.h"

#include <string>
#include <vector>

/// How a deck ended.
struct T_OUTCOME_D {
    bool bFAILED = false;
    bool bLOSS = false;            // one that --strict names
    bool bUNSOUND = false;         // with --check
    bool bLOSSY = false;           // whether the model lost something, if losses were counted
    std::vector<std::string> aLOG; // plain lines; empty unless they are saved
    std::string sNOTE;             // for --resume; empty if the deck isn't done
};

/// What is printed goes to std::cout and std::cerr. rInputs and pGuard as of CDeckRun.
T_OUTCOME_D ConvertDeck(const T_OPTIONS_D& rOptions, const T_JOB_D& rJob, T_INPUTS& rInputs, CReplaceGuard* pGuard);

/// What standard output has of a deck's result: pAccount may be null, sCheck is the JSON of its check or empty.
std::string ShowJson(const T_OPTIONS_D& rOptions, const T_RESULT_D& rResult, const CAccount* pAccount,
                     const std::string& sCheck);
