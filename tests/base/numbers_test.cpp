// The data system's number conventions: lenient reading, rounding, display formats.
#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace lumacfg {
namespace {

TEST(NumbersTest, LenientNumberReadsTheLongestNumericPrefix) {
    const std::pair<std::string, double> cases[] = {
        {"", 0},        {"abc", 0}, {"  12abc", 12},  {"\t-3.5x", -3.5}, {"+7", 7},
        {".5", 0.5},    {"5.", 5},  {"-.25e1", -2.5}, {"2E-2", 0.02},    {"1e", 1},
        {"1e+", 1},     {"-.", 0},  {"+.e5", 0},      {"1,5", 1},        {"0x10", 0},
        {"1.2.3", 1.2}, {"- 5", 0}, {"\n5", 0},  // only blanks and tabs are skipped
        {"1e400", 0},                            // no finite number
    };
    for (const auto& [text, value] : cases) EXPECT_DOUBLE_EQ(LenientNumber(text), value) << text;
}

TEST(NumbersTest, RoundingTiesToEvenAndReportsOverflow) {
    const std::pair<double, std::optional<std::int16_t>> cases[] = {
        {0.5, 0},
        {1.5, 2},
        {-2.5, -2},
        {2.4999999, 2},
        {2.5000001, 3},
        {32767.4, 32767},
        {32767.5, std::nullopt},
        {-32768.5, -32768},
        {-32768.6, std::nullopt},
        {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
        {std::numeric_limits<double>::infinity(), std::nullopt},
    };
    for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundToInt16(value), rounded) << value;
    EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToInt32(2147483647.5), std::nullopt);
    EXPECT_EQ(RoundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(NumbersTest, LenientIntegersRoundAndNeverWrap) {
    const std::pair<std::string, std::int16_t> cases[] = {
        {"2.5", 2}, {" -4.5 ", -4}, {"-32768", -32768}, {"40000", 0}, {"65536", 0}, {"12abc", 12},
    };
    for (const auto& [text, value] : cases) EXPECT_EQ(LenientInt16(text), value) << text;
    EXPECT_EQ(LenientInt32("40000"), 40000);
    EXPECT_EQ(LenientInt32("1e10"), 0);
}

TEST(NumbersTest, FormatsRoundHalvesAwayFromZero) {
    using enum NumberFormat;
    const std::tuple<double, NumberFormat, std::string> cases[] = {
        {2.5, Integer, "3"},
        {-2.5, Integer, "-3"},
        {0.49, Integer, "0"},
        {-0.4, Integer, "0"},
        {99.5, Integer, "100"},
        {1234567, Integer, "1234567"},
        {0, TwoDecimals, "0.00"},
        {12.5, TwoDecimals, "12.50"},
        {-0.125, TwoDecimals, "-0.13"},
        {1.005, TwoDecimals, "1.01"},  // decided on 15 significant digits
        {9.995, TwoDecimals, "10.00"},
        {0.004, TwoDecimals, "0.00"},
        {static_cast<double>(0.2f), TwoDecimals, "0.20"},
        {1e20, TwoDecimals, "100000000000000000000.00"},
        // Depths in 0.125 mm steps.
        {5 / 8.0, TwoDecimalsWide, "0.63"},
        {1200 / 8.0, TwoDecimalsWide, "150.00"},
        {-3 / 8.0, TwoDecimalsWide, "-0.38"},
    };
    for (const auto& [value, format, text] : cases) {
        EXPECT_EQ(FormatNumber(value, format), text) << value;
    }
}

TEST(NumbersTest, IsNumberTakesOneWholeNumberBetweenBlanks) {
    const std::pair<const char*, bool> cases[] = {
        {"12", true},   {" -1.5 ", true}, {"\t.5", true}, {"1e3", true}, {"+2.", true},
        {"", false},    {"  ", false},    {"1.5x", false}, {"abc", false}, {"1 2", false},
        {".", false},   {"-", false},     {"1e", false},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(IsNumber(text), number) << text;
}

}  // namespace
}  // namespace lumacfg
