#pragma once
// What a misspelt word was meant to be.

#include <span>
#include <string_view>

/// The word nearest to sText, in any case of letters, of which at most a third of the letters of sText are wrong,
/// missing, too many or swapped with their neighbours. Of several as near the first; empty if none is.
std::string_view FindSimilar(std::string_view sText, std::span<const std::string_view> aWords);
