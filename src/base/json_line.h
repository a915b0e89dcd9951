// One JSON object on one line whose members are all strings: the records of the audit log.
// The core's texts are Windows-1252 bytes; in the JSON text they are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumacfg {

// Members in the order written; names and values as the core holds them (Windows-1252).
using JsonMembers = std::vector<std::pair<std::string, std::string>>;

// {"name":"value",...} without blanks or a line end; control characters, quotes and
// backslashes escaped, every other character as UTF-8.
std::string JsonObjectLine(const JsonMembers& members);

// The members of such an object, with UTF-8 values as they stand in the text (escapes
// resolved); nullopt when the text is not one flat object of string members.
std::optional<JsonMembers> ParseJsonObjectLine(std::string_view line);

// The value of the first member called `name`, or nullopt.
std::optional<std::string> MemberValue(const JsonMembers& members, std::string_view name);

// Windows-1252 bytes as UTF-8 (bytes 0x80-0x9F are not Latin-1: 0x80 is the euro sign).
std::string Utf8FromAnsi(std::string_view ansi);

}  // namespace lumacfg
