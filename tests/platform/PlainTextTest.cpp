// Texts as a terminal can take them.

#include "platform/PlainText.h"

#include <gtest/gtest.h>

namespace {

TEST(PlainText, NothingCommandsATerminal) {
    const struct {
        std::string_view sTEXT;
        std::string_view sPLAIN;
    } aTexts[] = {
        {"", ""},
        {"GRID 1~2\n\n", "GRID 1~2\n\n"},
        {std::string_view("\0\t\r\x1B[2J\x1F\x7F", 9), "????[2J??"},
        {"\xC2\x80 \xC2\x9B\x36n \xC2\x9F", "? ?6n ?"},                                       // C1 in UTF-8
        {"\x80 \x9B\x36n \x9F", "? ?6n ?"},                                                   // C1 in bytes
        {"\xC2\xA0 \xC3\x84\xC3\x9B \xE6\x9B\x9B", "\xC2\xA0 \xC3\x84\xC3\x9B \xE6\x9B\x9B"}, // inside of letters
        {"\xF0\x9F\x9B\x80", "\xF0\x9F\x9B\x80"},
        {"caf\xE9 \xFF", "caf\xE9 \xFF"},             // no UTF-8, and no harm
        {"\xC3\x1B \xE2\x9B", "\xC3? \xE2?"},         // characters that are cut off
        {"\xC0\x9B \xED\xA0\x9B", "\xC0? \xED\xA0?"}, // overlong, half of a pair
        {"\xF4\x90\x9B\x9B", "\xF4???"},              // too large
    };
    for (const auto& [sText, sPlain] : aTexts) EXPECT_EQ(PlainText(sText), sPlain) << sText.size();
}

} // namespace
