#pragma once
// The page without its data, as the build of viewer/ makes it.

#include <string_view>

/// HTML in front of the data and behind it.
struct T_PAGE_D {
    std::string_view sHEAD;
    std::string_view sTAIL;
};

/// Null if the command was built without.
const T_PAGE_D* GetReportPage();
