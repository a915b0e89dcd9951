// The data system's number conventions: lenient reading, rounding, display formats.
#include "config/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace lumacfg {
namespace {

TEST(NumbersTest, LenientNumberReadsTheLongestNumericPrefix) {
    struct Case {
        std::string text;
        double value;
    } cases[] = {
        {"", 0},       {"abc", 0},     {"  12abc", 12},  {"\t-3.5x", -3.5},
        {"+7", 7},     {".5", 0.5},    {"5.", 5},        {"-.25e1", -2.5},
        {"1e3", 1000}, {"2E-2", 0.02}, {"1e", 1},        {"1e+", 1},
        {"-", 0},      {".", 0},       {"-.", 0},        {"+.e5", 0},
        {"1,5", 1},    {"1 2", 1},     {"0x10", 0},      {"  ", 0},
        {"007", 7},    {"1.2.3", 1.2}, {"12.5mm", 12.5}, {"- 5", 0},
        {"\n5", 0},    // only blanks and tabs are skipped
        {"1e400", 0},  // no finite number
    };
    for (const Case& c : cases) EXPECT_DOUBLE_EQ(LenientNumber(c.text), c.value) << c.text;
}

TEST(NumbersTest, RoundingTiesToEvenAndReportsOverflow) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    struct Case {
        double value;
        std::optional<std::int16_t> rounded;
    } cases[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {3.5, 4},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {2.4999999, 2},
        {2.5000001, 3},
        {32767.4, 32767},
        {32767.5, std::nullopt},
        {32768, std::nullopt},
        {-32768.5, -32768},
        {-32768.6, std::nullopt},
        {-32769, std::nullopt},
        {1e10, std::nullopt},
        {nan, std::nullopt},
        {inf, std::nullopt},
    };
    for (const Case& c : cases) EXPECT_EQ(RoundToInt16(c.value), c.rounded) << c.value;

    EXPECT_EQ(RoundToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(RoundToInt32(2147483647.5), std::nullopt);
    EXPECT_EQ(RoundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(NumbersTest, LenientIntegersRoundAndNeverWrap) {
    struct Case {
        std::string text;
        std::int16_t value;
    } cases[] = {
        {"2.5", 2},   {"3.5", 4},   {" -4.5 ", -4}, {"32767", 32767}, {"-32768", -32768},
        {"40000", 0}, {"65536", 0}, {"x", 0},       {"12abc", 12},
    };
    for (const Case& c : cases) EXPECT_EQ(LenientInt16(c.text), c.value) << c.text;
    EXPECT_EQ(LenientInt32("40000"), 40000);
    EXPECT_EQ(LenientInt32("1e10"), 0);
}

TEST(NumbersTest, FormatsRoundHalvesAwayFromZero) {
    struct Case {
        double value;
        NumberFormat format;
        std::string text;
    } cases[] = {
        {0, NumberFormat::Integer, "0"},
        {2.5, NumberFormat::Integer, "3"},
        {3.5, NumberFormat::Integer, "4"},
        {-2.5, NumberFormat::Integer, "-3"},
        {0.5, NumberFormat::Integer, "1"},
        {0.49, NumberFormat::Integer, "0"},
        {-0.4, NumberFormat::Integer, "0"},
        {99.5, NumberFormat::Integer, "100"},
        {1234567, NumberFormat::Integer, "1234567"},
        {0, NumberFormat::TwoDecimals, "0.00"},
        {12.5, NumberFormat::TwoDecimals, "12.50"},
        {0.125, NumberFormat::TwoDecimals, "0.13"},
        {-0.125, NumberFormat::TwoDecimals, "-0.13"},
        {1.005, NumberFormat::TwoDecimals, "1.01"},  // decided on 15 significant digits
        {9.995, NumberFormat::TwoDecimals, "10.00"},
        {0.005, NumberFormat::TwoDecimals, "0.01"},
        {0.004, NumberFormat::TwoDecimals, "0.00"},
        {static_cast<double>(0.2f), NumberFormat::TwoDecimals, "0.20"},
        {1e20, NumberFormat::TwoDecimals, "100000000000000000000.00"},
        // Depths in 0.125 mm steps.
        {5 / 8.0, NumberFormat::TwoDecimalsWide, "0.63"},
        {15 / 8.0, NumberFormat::TwoDecimalsWide, "1.88"},
        {1200 / 8.0, NumberFormat::TwoDecimalsWide, "150.00"},
        {-3 / 8.0, NumberFormat::TwoDecimalsWide, "-0.38"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(FormatNumber(c.value, c.format), c.text) << c.value;
    }
}

}  // namespace
}  // namespace lumacfg
