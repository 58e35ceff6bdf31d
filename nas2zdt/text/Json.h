#pragma once
// Members and arrays of JSON.

#include "nas2zdt/text/Escape.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// "name":value, where the value is JSON.
inline std::string JsonMember(std::string_view sName, const std::string& sValue) {
    return JsonText(sName) + ":" + sValue;
}
inline std::string JsonMember(std::string_view sName, std::uint64_t nValue) {
    return JsonMember(sName, std::to_string(nValue));
}

/// All digits of a number; null for what JSON has no number for.
inline std::string JsonNumber(double dValue) {
    if (!std::isfinite(dValue)) return "null";
    std::array<char, 40> aText;
    std::snprintf(aText.data(), aText.size(), "%.17g", dValue);
    return aText.data();
}

/// [write(item),...]; write gives the JSON of an item.
template <class LIST, class WRITE>
std::string JsonArray(const LIST& aList, WRITE write) {
    std::string sText = "[";
    for (const auto& rItem : aList) {
        if (sText.size() > 1) sText += ",";
        sText += write(rItem);
    }
    return sText + "]";
}
