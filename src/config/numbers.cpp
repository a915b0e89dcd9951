#include "config/numbers.h"

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

// Decimal digits of |value| rounded half away from zero to `decimals` places, working on
// the value's 15-significant-digit decimal form.
std::string FixedHalfAwayFromZero(double value, int decimals) {
    if (!std::isfinite(value)) return "0";
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.14e", std::fabs(value));
    // buffer: d.ddddddddddddddde[+-]xx
    std::string mantissa;
    mantissa += buffer[0];
    mantissa.append(buffer + 2, 14);
    int exponent = std::atoi(std::strchr(buffer, 'e') + 1);
    // The digits of mantissa stand for mantissa * 10^(exponent - 14). Keep the ones down to
    // 10^-decimals, rounding on the first dropped digit.
    int keep = exponent + 1 + decimals;  // number of mantissa digits that stay
    std::string digits;
    if (keep <= 0) {
        bool roundUp = keep == 0 && mantissa[0] >= '5';
        digits = roundUp ? "1" : "0";
    } else if (keep >= static_cast<int>(mantissa.size())) {
        digits = mantissa + std::string(keep - mantissa.size(), '0');
    } else {
        digits = mantissa.substr(0, keep);
        if (mantissa[keep] >= '5') {
            int i = static_cast<int>(digits.size()) - 1;
            while (i >= 0 && digits[i] == '9') digits[i--] = '0';
            if (i < 0) {
                digits = "1" + digits;
            } else {
                ++digits[i];
            }
        }
    }
    if (static_cast<int>(digits.size()) <= decimals) {
        digits = std::string(decimals + 1 - digits.size(), '0') + digits;
    }
    std::string text = digits.substr(0, digits.size() - decimals);
    if (decimals > 0) text += "." + digits.substr(digits.size() - decimals);
    bool allZero = digits.find_first_not_of('0') == std::string::npos;
    if (value < 0 && !allZero) text = "-" + text;
    return text;
}

}  // namespace

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
