// What a message box can hold, and how a progress bar counts.

#include "platform/PlainText.h"
#include "platform/Progress.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

std::string Words(int nWords, const std::string& sWord) {
    std::string sText;
    for (int i = 0; i < nWords; ++i) sText += sWord;
    return sText;
}

struct T_BOX_D {
    const char* sNAME;
    std::string sTEXT;
    std::string sBOX;
};

class BoxTextTest : public testing::TestWithParam<T_BOX_D> {};

TEST_P(BoxTextTest, Gives) {
    EXPECT_EQ(BoxText(GetParam().sTEXT), GetParam().sBOX);
}

INSTANTIATE_TEST_SUITE_P(Texts, BoxTextTest,
                         testing::ValuesIn<T_BOX_D>({
                             {"Empty", "", ""},
                             {"Short", "a b", "a b"},
                             {"LongestWord", Words(100, "x"), Words(100, "x")},
                             {"WordTooLong", Words(101, "x"), Words(100, "x") + "\nx"},
                             {"WordTooLongTwice", Words(201, "x"), Words(100, "x") + "\n" + Words(100, "x") + "\nx"},
                             {"BlankBehindLongestWord", Words(100, "x") + " y", Words(100, "x") + " y"},
                             {"CharactersNotBytes", Words(101, "\u65E5"), Words(100, "\u65E5") + "\n\u65E5"},
                             {"AsManyLines", Words(19, "\n") + "y", Words(19, "\n") + "y"},
                             {"TooManyLines", Words(20, "\n") + "y", Words(19, "\n") + "..."},
                             {"AsManyCharacters", Words(600, "x "), Words(600, "x ")},
                             {"TooManyCharacters", Words(600, "x ") + "y", Words(600, "x ") + "..."},
                             {"ForeignBytes", "a\xE9\xFF\x80z", "a\xE9\xFF\x80z"},
                         }),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

TEST(Progress, PlaceIsCutToAnIntegerWithinTheBar) {
    CProgress progress;
    EXPECT_EQ(progress.MoveTo(5), 0);
    progress.SetTotal(3);
    EXPECT_EQ(progress.GetTotal(), "3");
    EXPECT_EQ(progress.MoveTo(2), 666);
    EXPECT_EQ(progress.GetCurrent(), "2");
    EXPECT_EQ(progress.MoveTo(4), 1000);
    EXPECT_EQ(progress.MoveTo(INT_MIN), 0);
    progress.SetTotal(0);
    EXPECT_EQ(progress.MoveTo(INT_MAX), 0);
}

} // namespace
