// Access to "custrack.ini", the file beside the program that holds the site's custom trays and
// racks and the tray fitted to the autosampler. It is read and written through the platform's
// profile service. Outside a CustrackPass the file is found anew in the program's directory on
// every call; a pass finds it once and makes its calls one pass over the file.
#pragma once

#include <cstddef>
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

// "[SECTION] KEY=TEXT", for listings.
std::string DescribeNumberError(const CustrackNumberError& error);

// "[SECTION] KEY: "TEXT" is not a number", the reason given when the file is reported as one
// that cannot be read as its format requires.
std::string NumberErrorReason(const CustrackNumberError& error);

// Reports custrack.ini (its path on the disk) with the reason above to platform::Failures().
void ReportNumberError(const CustrackNumberError& error);

// How many sections "[section]" custrack.ini holds.
std::size_t CustrackSectionCount(std::string_view section);

// Reports custrack.ini (its path on the disk) to platform::Failures() as a file that cannot be
// written because the section stands `count` times.
void ReportRepeatedSection(std::string_view section, std::size_t count);

// One pass over custrack.ini: while a pass is open, the profile service holds the file parsed
// in memory, so each read is a lookup instead of a read of the whole file, and every change is
// written once, when the outermost pass (or other profile batch) ends. Passes nest.
class CustrackPass {
  public:
    CustrackPass();
    ~CustrackPass();  // ends the pass when End was not called
    CustrackPass(const CustrackPass&) = delete;
    CustrackPass& operator=(const CustrackPass&) = delete;

    // Ends the pass; false when a changed file could not be written (reported to
    // platform::Failures()).
    bool End();

  private:
    bool open_ = true;
};

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

// The number a value of custrack.ini stands for, as ReadCustrackInt converts it; nullopt when the
// value is not a number.
std::optional<std::int32_t> CustrackNumber(std::string_view text);

// Writes one key. False when the section or key is empty or the file cannot be written.
bool WriteCustrackString(std::string_view section, std::string_view key, std::string_view value);

// Removes one key. False when the section or key is empty or the file cannot be written.
bool DeleteCustrackKey(std::string_view section, std::string_view key);

// Removes a section with all its keys. False when the section name is empty or the file
// cannot be written.
bool DeleteCustrackSection(std::string_view section);

}  // namespace lumacfg
