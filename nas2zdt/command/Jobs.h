#pragma once
// What is to be converted into what.

#include "nas2zdt/command/Options.h"
#include "platform/File.h"

#include <string>
#include <vector>

/// A deck and where its result goes.
struct T_JOB_D {
    std::string sDECK;
    std::string sTARGET;
    std::string sREFUSED; // why it isn't run at all; empty if it is
};

/// The decks of a command line.
struct T_JOBS_D {
    std::vector<T_JOB_D> aJOBS;
    T_INPUTS decks;       // those that exist
    std::string sUSAGE;   // what is wrong with the command line; empty if nothing is
    std::string sFAILURE; // why none of them can be run; empty if they can
};

/// Looks at the files that a command line names. A deck is refused if it comes twice, or if its result would overwrite
/// a deck or another result; nothing is run if another output would overwrite one of them or each other.
T_JOBS_D PlanJobs(const T_OPTIONS_D& rOptions);
