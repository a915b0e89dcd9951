// The data system's number conventions: how text becomes a number, how a number is
// rounded into an integer field, and how numbers are formatted for the profile files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumacfg {

// Lenient conversion: leading blanks (space, tab) are skipped, then the longest prefix
// that reads as a decimal number (optional sign, digits, optional fraction, optional
// exponent) is converted. Text with no numeric prefix gives 0.
double LenientNumber(std::string_view text);

// True when the whole text, leading and trailing blanks aside, is one decimal number (the
// form LenientNumber reads); "", "1.5x" and "abc" are not numbers.
bool IsNumber(std::string_view text);

// Rounds to the nearest integer, a tie going to the even neighbour (3.5 -> 4, 2.5 -> 2).
// A result outside the target range is reported as std::nullopt, never wrapped.
std::optional<std::int16_t> RoundToInt16(double value);
std::optional<std::int32_t> RoundToInt32(double value);

// Lenient conversion narrowed to a 16-bit integer; out of range gives 0.
std::int16_t LenientInt16(std::string_view text);
std::int32_t LenientInt32(std::string_view text);

// The display formats of the data system. Halves are rounded away from zero after the
// value has been reduced to 15 significant digits, so 0.2 held as a single prints 0.20.
enum class NumberFormat {
    Integer,          // "0" and "#0"
    TwoDecimals,      // "0.00"
    TwoDecimalsWide,  // "##0.00"
};
std::string FormatNumber(double value, NumberFormat format);

// Plain decimal text of an integer, no padding (what the profile files hold).
std::string IntText(long long value);

}  // namespace lumacfg
