#pragma once
// Escapes any bytes for JSON and XML.

#include <string>
#include <string_view>

/// sText as a JSON string with its quotes. Control characters and bytes that aren't UTF-8 become `\u` escapes.
std::string JsonText(std::string_view sText);

/// sText with the markup characters of XML escaped. Bytes that aren't UTF-8 or that belong to a character that XML
/// forbids become "?".
std::string EscapeXml(std::string_view sText);

/// The same, where a text of more than 120 characters keeps its end, behind an ellipsis.
std::string XmlText(std::string_view sText);
