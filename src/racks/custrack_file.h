// Access to "custrack.ini", the file beside the program that holds the site's custom trays and
// racks and the tray fitted to the autosampler. The file is found anew in the program's
// directory on every call and read and written through the platform's profile service.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumacfg {

inline constexpr std::string_view kCustrackFile = "custrack.ini";

// The program's directory, a backslash, "custrack.ini".
std::string CustrackPath();

// A value of custrack.ini that should be a number and is not one: where it stands and what it
// says. Such a value never turns into the key's default; it is handed to the caller instead.
struct CustrackNumberError {
    std::string section;
    std::string key;
    std::string text;
};

// "[SECTION] KEY=TEXT", for messages and listings.
std::string DescribeNumberError(const CustrackNumberError& error);

struct CustrackText {
    std::string text;
    int length;  // of text
};

// Reads a value with a buffer of `size` characters (at most size - 1 come back). An empty
// section or key gives the default; a size below 1 gives ""; the text is cut at its first NUL
// unless it is exactly the default.
CustrackText ReadCustrackString(std::string_view section, std::string_view key,
                                std::string_view defaultText, int size);

// A number read from custrack.ini, or the error of a value that is not a number.
struct CustrackInt {
    std::int32_t value = 0;  // meaningful only without error
    std::optional<CustrackNumberError> error;
};

// Reads a number: a missing key or an empty value gives the default. Otherwise the whole value
// (blanks around it allowed) must be a decimal number, which is rounded to an integer with ties
// to even; anything else, or a number beyond the 32-bit range, is a conversion error.
CustrackInt ReadCustrackInt(std::string_view section, std::string_view key,
                            std::int32_t defaultValue);

// Writes one key. False when the section or key is empty or the file cannot be written.
bool WriteCustrackString(std::string_view section, std::string_view key, std::string_view value);

// Removes a section with all its keys. False when the section name is empty or the file
// cannot be written.
bool DeleteCustrackSection(std::string_view section);

}  // namespace lumacfg
