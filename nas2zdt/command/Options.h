#pragma once
// The command line.

#include "driver/Limits.h"
#include "driver/RunError.h"

#include <string>
#include <string_view>
#include <vector>

/// The form of the account.
enum E_ACCOUNT_FORM { ACCOUNT_NONE, ACCOUNT_TABLE, ACCOUNT_JSON };

/// The command line.
struct T_OPTIONS_D {
    bool bHELP = false;
    bool bVERSION = false;
    bool bSTRICT = false;
    bool bQUIET = false;
    bool bFLATTEN = false;
    E_ACCOUNT_FORM eACCOUNT = ACCOUNT_NONE;
    std::string sLOG;    // empty for none
    std::string sOUTPUT; // file or folder; empty for the deck's folder
    std::string sVIEW;   // picture of the model; empty for none
    std::string sVTU;    // grid of the model; empty for none
    T_LIMITS_D limits;
    std::vector<std::string> aDECKS;
};

/// Reads the arguments without the program's name. Returns 1, or 0 with the error in rWhy.
int ReadOptions(const std::vector<std::string>& aArgs, T_OPTIONS_D& rOptions, std::string& rWhy);

/// The text of --help.
std::string HelpText();

/// The --limit name of the limit that a run exceeded; empty for other failures.
std::string_view NameOfLimit(E_FAILURE eFailure);
