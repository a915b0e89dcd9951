// Profile operations on the station profile "lumagen.ist", the general read of any profile
// file, and the list helpers that turn stored values into fields.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/text.h"

namespace lumacfg {

inline constexpr std::string_view kStationProfile = "lumagen.ist";

// Path of the station profile in the program's own directory (asked anew on every call).
std::string StationProfilePath();

// Reads key of section of "lumagen.ist" into `buffer`, whose size the caller has set (and
// whose contents the caller has filled, usually with NULs): the value's characters followed
// by a NUL when there is room. Returns the number of characters stored.
std::size_t ProfileGet(std::string_view section, std::string_view key, std::string_view defaultText,
                       std::string& buffer, std::size_t size);
// Writes key=value; the key and the section are created when missing. Non-zero on success.
int ProfileSet(std::string_view section, std::string_view key, std::string_view value);
// Removes the key. Non-zero on success.
int ProfileDelete(std::string_view section, std::string_view key);

// The buffer of the single-value read: at most kSingleValueSize - 1 characters come back.
inline constexpr std::size_t kSingleValueSize = 100;

// The single-value read of every load routine (a 100-character buffer): the value of the key
// (or the default when the key is missing), or nullopt when nothing came back (the field then
// keeps its value).
std::optional<std::string> ReadSingleValue(std::string_view section, std::string_view key,
                                           std::string_view defaultText = "");

// General read of any profile file with a 512-character buffer: `value` gets the text up to
// its first NUL ("" when nothing came back). Returns AnsiByteLength(value).
int ReadProfileValue(std::string_view section, std::string_view key, std::string_view defaultText,
                     std::string& value, std::string_view file);

// Splits text at delimiter into list[0..U-1] (list.size() is U+1; the last slot is never
// filled). Returns the number of entries filled.
int SplitList(std::string_view text, std::span<std::string> list, std::string_view delimiter);

// Parses a comma list of integers into values[0..n-1]; an empty field stops the parse.
void ParseIntList(std::string_view text, std::span<std::int16_t> values);

}  // namespace lumacfg
