#pragma once
// What a run says of its losses without being asked.

#include "nas2zdt/account/Account.h"

#include <set>
#include <string>
#include <vector>

/// Kinds of loss that are nothing to worry about: a kind ("skipped"), a keyword ("PARAM") or both
/// ("PARAM:unknown-word").
using T_ALLOWED = std::set<std::string, std::less<>>;

/// Number of losses by class without those that are allowed.
CAccount::CLASS_COUNTS CountLosses(const CAccount& rAccount, const T_ALLOWED& rAllowed);

/// A line for each class that matters with its commonest kinds, worst class first; none if nothing but notes was lost.
/// Of a deck that wasn't restated, it tells how much restating would carry over.
std::vector<std::string> MakeWarnings(const CAccount& rAccount, const T_ALLOWED& rAllowed, bool bRestated);
