// Small helpers for the ANSI (Windows-1252) texts of the data system: upper-casing and
// caseless comparison as the data system does them for names and paths, and the trimming
// of texts that come out of fixed-size buffers.
#pragma once

#include <string>
#include <string_view>

namespace lumacfg {

// Upper case of one Windows-1252 character: a-z and the accented lower-case letters; every
// other byte is returned unchanged.
char AnsiUpper(char c);
std::string AnsiUpper(std::string_view text);

// True when both texts are equal without regard to (Windows-1252) case.
bool AnsiEqualNoCase(std::string_view a, std::string_view b);

// The text up to, not including, its first NUL character (all of it when there is none).
std::string_view CutAtNul(std::string_view text);

// The text without leading and trailing spaces.
std::string_view TrimSpaces(std::string_view text);

}  // namespace lumacfg
