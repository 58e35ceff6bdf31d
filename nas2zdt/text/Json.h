#pragma once
// Members and arrays of JSON.

#include "nas2zdt/text/Escape.h"

#include <cstdint>
#include <string>
#include <string_view>

/// "name":value, where the value is JSON.
inline std::string JsonMember(std::string_view sName, const std::string& sValue) {
    return JsonText(sName) + ":" + sValue;
}
inline std::string JsonMember(std::string_view sName, std::uint64_t nValue) {
    return JsonMember(sName, std::to_string(nValue));
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
