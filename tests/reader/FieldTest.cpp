// Field conversions.

#include "driver/CConvertNastran.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();

// clang-format off
const std::pair<std::string_view, double> REALS[] = {
    // exponents
    {"1.0+3", 1000.0}, {"1-3", 0.001}, {"-1.5-2", -0.015}, {"1.0E+3", 1000.0}, {"-2.5E-1", -0.25}, {"1.0D+3", 1.0},
    {"1.5E", 1.5}, {"1.5E+", 1.5}, {"2+1-1", 20.0}, {"1E2+3", 100.0}, {"\v-5", 0.0},
    // signs and points
    {"+5", 5.0}, {".5", 0.5}, {".", 0.0}, {"7", 7.0}, {"--5", 0.0}, {"-0", -0.0}, {"-", 0.0},
    {"0000000000000000000000000.25", 0.25}, {"1.2.3", 1.2}, {"87654321", 87654321.0}, {"7654321.", 7654321.0},
    {".1234567", 0.1234567}, {"-12.3456", -12.3456},
    // the ends of what a double holds
    {"1+400", INF}, {"-1.E999999999999", -INF}, {"1-400", 0.0},
    {"4.9406564584124654-324", std::numeric_limits<double>::denorm_min()},
    {"12345678901234567890", 12345678901234567890.0}, {"9007199254740993.00000000000000000001", 9007199254740994.0},
    // no numbers, blanks and what stands around
    {"", 7.5}, {"\r", 0.0}, {"ABC", 0.0}, {"NONE", 0.0}, {"0X1A", 0.0}, {"INF", 0.0}, {"NAN", 0.0}, {"1.25/4", 1.25},
    {"1.25:4", 1.25}, {"\v2.5", 2.5},
};

const std::pair<std::string_view, std::int32_t> INTS[] = {
    {"", 7}, {"0", 0}, {"THRU", 0}, {"12.7", 12}, {"1E3", 1}, {"-15", -15}, {"+15", 15}, {"+-15", 0}, {"8\r", 8},
    {"87654321", 87654321}, {"-7654321", -7654321}, {"987654321", 987654321}, {"-", 0}, {"12/4", 12},
    {"2147483647", 2147483647}, {"2147483648", 2147483647}, {"-2147483648", -2147483647 - 1},
    {"-99999999999999999999999", -2147483647 - 1},
};
// clang-format on

TEST(FieldToReal, Gives) {
    for (const auto& [sField, dExpected] : REALS) {
        const double dValue = CConvertNastran::FieldToReal(sField, 7.5);
        EXPECT_EQ(dValue, dExpected) << sField;
        EXPECT_EQ(std::signbit(dValue), std::signbit(dExpected)) << sField;
    }
}

TEST(FieldToInt, Gives) {
    for (const auto& [sField, iExpected] : INTS) {
        EXPECT_EQ(CConvertNastran::FieldToInt(sField, 7), iExpected) << sField;
    }
}

} // namespace
