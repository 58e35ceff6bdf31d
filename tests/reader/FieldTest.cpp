// Field conversions.

#include "driver/CConvertNastran.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <ostream>

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();

struct T_REAL_D {
    const char* sNAME;
    std::string_view sFIELD;
    double dDEFAULT;
    double dVALUE;

    friend std::ostream& operator<<(std::ostream& rOut, const T_REAL_D& rCase) { return rOut << rCase.sFIELD; }
};

class FieldToRealTest : public testing::TestWithParam<T_REAL_D> {};

TEST_P(FieldToRealTest, Gives) {
    const double dValue = CConvertNastran::FieldToReal(GetParam().sFIELD, GetParam().dDEFAULT);
    EXPECT_EQ(dValue, GetParam().dVALUE);
    EXPECT_EQ(std::signbit(dValue), std::signbit(GetParam().dVALUE));
}

INSTANTIATE_TEST_SUITE_P(Fields, FieldToRealTest,
                         testing::ValuesIn<T_REAL_D>({
                             {"ExponentWithoutE", "1.0+3", 7.5, 1000.0},
                             {"NegativeExponentWithoutE", "1-3", 7.5, 0.001},
                             {"SignInFrontStays", "-1.5-2", 7.5, -0.015},
                             {"PlusInFront", "+5", 7.5, 5.0},
                             {"WithE", "1.0E+3", 7.5, 1000.0},
                             {"WithEAndMinus", "-2.5E-1", 7.5, -0.25},
                             {"PlainPoint", ".5", 7.5, 0.5},
                             {"PointAlone", ".", 7.5, 0.0},
                             {"Integer", "7", 7.5, 7.0},
                             {"BlankIsDefault", "", 7.5, 7.5},
                             {"ReturnIsNotBlank", "\r", 7.5, 0.0},
                             {"Letters", "ABC", 7.5, 0.0},
                             {"LettersWithE", "NONE", 7.5, 0.0},
                             {"ExponentWithD", "1.0D+3", 7.5, 1.0},
                             {"EWithoutDigits", "1.5E", 7.5, 1.5},
                             {"EAndSignWithoutDigits", "1.5E+", 7.5, 1.5},
                             {"TwoSigns", "--5", 7.5, 0.0},
                             {"OnlyFirstExponent", "2+1-1", 7.5, 20.0},
                             {"SignBehindTheE", "1E2+3", 7.5, 100.0},
                             {"NegativeZero", "-0", 7.5, -0.0},
                             {"MinusAlone", "-", 7.5, 0.0},
                             {"NoHexadecimal", "0X1A", 7.5, 0.0},
                             {"NoInfinityByName", "INF", 7.5, 0.0},
                             {"NoNotANumberByName", "NAN", 7.5, 0.0},
                             {"TooLarge", "1+400", 7.5, INF},
                             {"TooLargeNegative", "-1.E999999999999", 7.5, -INF},
                             {"TooSmall", "1-400", 7.5, 0.0},
                             {"Denormal", "4.9406564584124654-324", 7.5, std::numeric_limits<double>::denorm_min()},
                             {"TwentyDigits", "12345678901234567890", 7.5, 12345678901234567890.0},
                             {"HalfwayNeedsAllDigits", "9007199254740993.00000000000000000001", 7.5,
                              9007199254740994.0},
                             {"ManyLeadingZeros", "0000000000000000000000000.25", 7.5, 0.25},
                             {"SecondPointEnds", "1.2.3", 7.5, 1.2},
                             {"EightDigits", "87654321", 7.5, 87654321.0},
                             {"PointBehindSeven", "7654321.", 7.5, 7654321.0},
                             {"PointBeforeSeven", ".1234567", 7.5, 0.1234567},
                             {"MinusAndPoint", "-12.3456", 7.5, -12.3456},
                             {"StopsBeforeSlash", "1.25/4", 7.5, 1.25},
                             {"StopsBehindNine", "1.25:4", 7.5, 1.25},
                             {"SpaceInFront", "\v2.5", 7.5, 2.5},
                             {"SignBehindSpaceIsExponent", "\v-5", 7.5, 0.0},
                         }),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

struct T_INT_D {
    const char* sNAME;
    std::string_view sFIELD;
    std::int32_t iDEFAULT;
    std::int32_t iVALUE;

    friend std::ostream& operator<<(std::ostream& rOut, const T_INT_D& rCase) { return rOut << rCase.sFIELD; }
};

class FieldToIntTest : public testing::TestWithParam<T_INT_D> {};

TEST_P(FieldToIntTest, Gives) {
    EXPECT_EQ(CConvertNastran::FieldToInt(GetParam().sFIELD, GetParam().iDEFAULT), GetParam().iVALUE);
}

INSTANTIATE_TEST_SUITE_P(Fields, FieldToIntTest,
                         testing::ValuesIn<T_INT_D>({
                             {"BlankIsDefault", "", 7, 7},
                             {"Zero", "0", 7, 0},
                             {"Letters", "THRU", 7, 0},
                             {"StopsAtThePoint", "12.7", 7, 12},
                             {"StopsAtTheLetter", "1E3", 7, 1},
                             {"Signs", "-15", 7, -15},
                             {"Plus", "+15", 7, 15},
                             {"TwoSigns", "+-15", 7, 0},
                             {"ReturnBehind", "8\r", 7, 8},
                             {"EightDigits", "87654321", 7, 87654321},
                             {"MinusAndSeven", "-7654321", 7, -7654321},
                             {"NineDigits", "987654321", 7, 987654321},
                             {"MinusAlone", "-", 7, 0},
                             {"StopsBeforeSlash", "12/4", 7, 12},
                             {"Largest", "2147483647", 7, 2147483647},
                             {"TooLarge", "2147483648", 7, 2147483647},
                             {"Smallest", "-2147483648", 7, -2147483647 - 1},
                             {"FarTooSmall", "-99999999999999999999999", 7, -2147483647 - 1},
                         }),
                         [](const auto& rInfo) { return std::string(rInfo.param.sNAME); });

} // namespace
