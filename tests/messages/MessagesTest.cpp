// The log and the texts that go into it.

#include "messages/ZdtMsgMgr.h"
#include "platform/Dialogs.h"
#include "platform/console/ConsoleDialogs.h"

#include "support/Deck.h"

#include <gtest/gtest.h>

namespace {

TEST(FormatText, FillsPlaceholdersFromTypedArguments) {
    struct T_TEXT_D {
        const char* sFORMAT;
        const char* sTEXT;
    };
    // the arguments are always 7 and "word"
    const T_TEXT_D aCases[] = {
        {"%d and %s", "7 and word"},
        {"no placeholder", "no placeholder"},
        {"%5d|%-6s|", "    7|word  |"},
        {"%s of another kind %d", "7 of another kind word"},
        {"%d %s and %s", "7 word and %s"},
        {"100%% of %d", "100% of 7"},
        {"%n %f %ld %d", "%n %f %ld 7"},
        {"%", "%"},
        {"%99999999999999999999x%d", "%99999999999999999999x7"},
        {"ends in %-12", "ends in %-12"},
    };
    for (const auto& [sFormat, sText] : aCases) EXPECT_EQ(FormatText(sFormat, {7, "word"}), sText) << sFormat;
    EXPECT_EQ(FormatText("%999999999d", {7}).size(), 1000u); // a width from outside stays within reason
}

TEST(MsgMgr, OnlyAddingKeepsTheLimit) {
    CConsoleDialogs dialogs;
    CZdtMsgMgr log(dialogs);
    for (int i = 1; i <= 201; ++i) log.AddMessageF("%d", {i});
    EXPECT_EQ(log.GetMessages().size(), 200u);
    EXPECT_EQ(log.GetMessages().back(), "200");
    log.AppendMessageF("behind %d", {1});
    log.InsertMessageF("before %d", {2});
    EXPECT_EQ(log.GetMessages().size(), 202u);
    EXPECT_EQ(log.GetMessages().front(), "before 2");
    EXPECT_EQ(log.GetMessages().back(), "behind 1");

    const CTempFolder folder;
    CFile file;
    file.Create(folder.Path("log"));
    log.WriteMessages(file);
    file.Close();
    const std::string sText = ReadText(folder.Path("log"));
    EXPECT_TRUE(sText.starts_with("before 2\n1\n2\n"));
    EXPECT_TRUE(sText.ends_with("\n200\nbehind 1\n"));
    log.ClearMessages();
    log.ShowMessages(); // nothing to show: nothing is printed
    EXPECT_TRUE(log.GetMessages().empty());
}

} // namespace
