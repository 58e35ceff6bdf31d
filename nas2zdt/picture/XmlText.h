#pragma once
// Any bytes as text of an XML file.

#include <string>
#include <string_view>

/// sText in UTF-8 with the markup characters escaped. Bytes that are no UTF-8 and characters that XML doesn't allow
/// become "?". Of a text of more than nMost characters the end stays, behind an ellipsis.
std::string XmlText(std::string_view sText, std::size_t nMost);
