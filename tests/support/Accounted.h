#pragma once
// Runs a deck given as text and hands back the account of it.

#include "nas2zdt/account/AccountOutput.h"

#include <string>
#include <string_view>

/// What came of an observed run.
struct T_ACCOUNTED_D {
    int iRESULT = 0;
    std::string sZDT; // the target file
    CAccount account;
};

/// Runs sDeck, a whole deck, in a folder of its own.
T_ACCOUNTED_D RunAccounted(std::string_view sDeck);
