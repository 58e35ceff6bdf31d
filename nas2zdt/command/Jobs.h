#pragma once
// Plans the conversions of a command line.

#include "nas2zdt/command/Options.h"
#include "platform/File.h"

#include <string>
#include <vector>

/// A deck and where its result goes.
struct T_JOB_D {
    std::string sDECK;
    std::string sTARGET;
    std::string sREFUSED;   // why it isn't run; empty if it is
    std::string sVIEW = {}; // picture; empty for none
    std::string sVTU = {};  // grid, likewise
};

/// The decks of a command line.
struct T_JOBS_D {
    std::vector<T_JOB_D> aJOBS;
    T_INPUTS decks;       // those that exist
    std::string sUSAGE;   // wrong usage; empty if none
    std::string sFAILURE; // why no deck can be run; empty if they can
};

/// Looks at the files that a command line names. A deck is refused if it is given twice or if its result would
/// overwrite a deck or another result, and so is one whose picture or grid in a folder would. If a picture, grid, page
/// or log that is named would overwrite anything, no deck is run.
T_JOBS_D PlanJobs(const T_OPTIONS_D& rOptions);
