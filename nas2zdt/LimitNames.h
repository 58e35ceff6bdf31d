#pragma once
// The limits of a run by their names on the command line.

#include "messages/RunError.h"

#include <string_view>

/// Sets what "NAME=N" or "NAME=none" says of one limit, or "none" of all. N is a whole number above 0. Returns 1, or 0
/// if the text says nothing of the kind.
int SetLimit(T_LIMITS_D& rLimits, std::string_view sText);

/// The name of the limit that ended a run; empty for any other failure.
std::string_view NameOfLimit(E_FAILURE eFailure);
