#pragma once
// The command line.

#include "messages/RunError.h"

#include <string>
#include <vector>

/// How the account is wanted.
enum E_ACCOUNT_FORM { ACCOUNT_NONE, ACCOUNT_TABLE, ACCOUNT_JSON };

/// What the command line says.
struct T_OPTIONS_D {
    bool bHELP = false;
    bool bVERSION = false;
    bool bSTRICT = false;
    bool bQUIET = false;
    bool bFLATTEN = false;
    E_ACCOUNT_FORM eACCOUNT = ACCOUNT_NONE;
    std::string sLOG;    // empty for none
    std::string sOUTPUT; // file or folder; empty for beside the deck
    std::string sVIEW;   // picture of the model; empty for none
    std::string sVTU;    // grid of the model; empty for none
    T_LIMITS_D limits;
    std::vector<std::string> aDECKS;
};

/// Reads the arguments, the program's name not among them. Returns 1, or 0 with what is wrong in rWhy.
int ReadOptions(const std::vector<std::string>& aArgs, T_OPTIONS_D& rOptions, std::string& rWhy);

/// The text of --help, made from the table of options.
std::string HelpText();
