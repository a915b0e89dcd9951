#include "base/numbers.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace lumacfg {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Length of the longest prefix of `text` that is a decimal number, 0 if none.
std::size_t NumericPrefixLength(std::string_view text) {
    std::size_t pos = 0;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) ++pos;
    std::size_t digits = 0;
    while (pos < text.size() && IsDigit(text[pos])) ++pos, ++digits;
    if (pos < text.size() && text[pos] == '.') {
        std::size_t fraction = 0;
        std::size_t afterPoint = pos + 1;
        while (afterPoint + fraction < text.size() && IsDigit(text[afterPoint + fraction])) {
            ++fraction;
        }
        if (digits + fraction > 0) {
            pos = afterPoint + fraction;
            digits += fraction;
        }
    }
    if (digits == 0) return 0;
    if (pos < text.size() && (text[pos] == 'e' || text[pos] == 'E')) {
        std::size_t exp = pos + 1;
        if (exp < text.size() && (text[exp] == '+' || text[exp] == '-')) ++exp;
        std::size_t expDigits = 0;
        while (exp + expDigits < text.size() && IsDigit(text[exp + expDigits])) ++expDigits;
        if (expDigits > 0) pos = exp + expDigits;
    }
    return pos;
}

template <typename Int>
std::optional<Int> RoundToRange(double value) {
    if (std::isnan(value)) return std::nullopt;
    double rounded = std::nearbyint(value);  // default rounding mode: ties to even
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max())) {
        return std::nullopt;
    }
    return static_cast<Int>(rounded);
}

std::uint64_t PowerOfTen(int exponent) {
    std::uint64_t power = 1;
    while (exponent-- > 0) power *= 10;
    return power;
}

// |value| in units of 10^-decimals, rounded half away from zero after the value has been
// reduced to its 15 significant decimal digits (so 0.2 held as a single counts as 0.2).
std::uint64_t RoundedUnits(double magnitude, int decimals) {
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.14e", magnitude);  // d.dddddddddddddde+xx
    std::uint64_t mantissa = static_cast<std::uint64_t>(buffer[0] - '0');
    for (int i = 2; i < 16; ++i)
        mantissa = mantissa * 10 + static_cast<std::uint64_t>(buffer[i] - '0');
    const int shift = std::atoi(buffer + 17) - 14 + decimals;
    if (shift >= 0) return mantissa * PowerOfTen(shift);
    if (shift < -16) return 0;  // below half a unit
    const std::uint64_t divisor = PowerOfTen(-shift);
    return (mantissa + divisor / 2) / divisor;
}

std::string FixedHalfAwayFromZero(double value, int decimals) {
    const double magnitude = std::fabs(value);
    if (!std::isfinite(value)) return "0";
    if (magnitude >= 1e16) {  // beyond exact integers: the plain fixed format
        char wide[400];
        std::snprintf(wide, sizeof wide, "%.*f", decimals, value);
        return wide;
    }
    const std::string units = std::to_string(RoundedUnits(magnitude, decimals));
    std::string digits(units.size() <= static_cast<std::size_t>(decimals)
                           ? static_cast<std::size_t>(decimals) + 1 - units.size()
                           : 0,
                       '0');
    digits.append(units);
    std::string text;
    if (value < 0 && units != "0") text.push_back('-');
    text.append(digits, 0, digits.size() - static_cast<std::size_t>(decimals));
    if (decimals > 0) {
        text.push_back('.');
        text.append(digits, digits.size() - static_cast<std::size_t>(decimals));
    }
    return text;
}

}  // namespace

bool IsNumber(std::string_view text) {
    std::size_t start = 0;
    std::size_t end = text.size();
    while (start < end && (text[start] == ' ' || text[start] == '\t')) ++start;
    while (end > start && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
    const std::string_view number = text.substr(start, end - start);
    return !number.empty() && NumericPrefixLength(number) == number.size();
}

double LenientNumber(std::string_view text) {
    std::size_t start = 0;
    while (start < text.size() && (text[start] == ' ' || text[start] == '\t')) ++start;
    std::string_view rest = text.substr(start);
    std::size_t length = NumericPrefixLength(rest);
    if (length == 0) return 0.0;
    std::string prefix(rest.substr(0, length));
    double value = std::strtod(prefix.c_str(), nullptr);
    return std::isfinite(value) ? value : 0.0;
}

std::optional<std::int16_t> RoundToInt16(double value) {
    return RoundToRange<std::int16_t>(value);
}
std::optional<std::int32_t> RoundToInt32(double value) {
    return RoundToRange<std::int32_t>(value);
}

std::int16_t LenientInt16(std::string_view text) {
    return RoundToInt16(LenientNumber(text)).value_or(0);
}
std::int32_t LenientInt32(std::string_view text) {
    return RoundToInt32(LenientNumber(text)).value_or(0);
}

std::string FormatNumber(double value, NumberFormat format) {
    switch (format) {
        case NumberFormat::Integer:
            return FixedHalfAwayFromZero(value, 0);
        case NumberFormat::TwoDecimals:
        case NumberFormat::TwoDecimalsWide:
            return FixedHalfAwayFromZero(value, 2);
    }
    return {};
}

std::string IntText(long long value) {
    return std::to_string(value);
}

}  // namespace lumacfg
