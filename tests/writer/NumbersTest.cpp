// Numbers as text.

#include "writer/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

namespace {

TEST(NumbersTest, RealsHaveSixDigits) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    constexpr double NAN_ = std::numeric_limits<double>::quiet_NaN();
    // clang-format off
    const std::pair<double, const char*> aCases[] = {
        {0.0, "0"}, {-0.0, "-0"}, {7.0, "7"}, {-2.25, "-2.25"}, {10.0, "10"}, {1000.5, "1000.5"}, {120000.0, "120000"},
        {1234567.0, "1.23457e+06"}, {1e6, "1e+06"}, {2e-5, "2e-05"}, {0.0001, "0.0001"}, {0.00123, "0.00123"},
        {-0.000123456789, "-0.000123457"}, {0.5, "0.5"},
        {123456.5, "123456"}, // ties go to the even digit
        {123455.5, "123456"}, {999999.5, "1e+06"}, {0.99999949, "0.999999"}, {0.99999951, "1"}, {1.5e22, "1.5e+22"},
        {-1.25e100, "-1.25e+100"},
        {4e-320, "3.99996e-320"}, // 8096 times the smallest
        {INF, "inf"}, {-INF, "-inf"},
        {std::copysign(NAN_, 1.0), "-nan"}, // whatever sign the processor gives it
        {std::copysign(NAN_, -1.0), "-nan"},
    };
    // clang-format on
    for (const auto& [dValue, sText] : aCases) {
        char aText[LONGEST_REAL];
        EXPECT_EQ(std::string(aText, PutReal(aText, dValue)), sText);
    }
}

TEST(NumbersTest, Integers) {
    // clang-format off
    const std::pair<std::int32_t, const char*> aCases[] = {
        {0, "0"}, {-1, "-1"}, {10, "10"}, {-1020304, "-1020304"}, {99999999, "99999999"}, {-99999999, "-99999999"},
        {100000000, "100000000"}, {2147483647, "2147483647"}, {-2147483647 - 1, "-2147483648"},
    };
    // clang-format on
    for (const auto& [iValue, sText] : aCases) {
        char aText[LONGEST_INT];
        EXPECT_EQ(std::string(aText, PutInt(aText, iValue)), sText);
    }
}

} // namespace
