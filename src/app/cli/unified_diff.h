// A unified diff of two versions of a file's bytes, line by line, as `diff -u` prints it: the
// "---" and "+++" lines with the path, then "@@" hunks with three lines of context. Lines keep
// their own endings (a CR LF line differs from the same text ending in LF); a last line without
// an ending is followed by "\ No newline at end of file".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumacfg::cli {

// The diff of `before` and `after` of the file at `path`; a missing version is "/dev/null" on
// its side. Empty when the bytes are equal.
std::string UnifiedDiff(std::string_view path, const std::optional<std::string>& before,
                        const std::optional<std::string>& after, int context = 3);

}  // namespace lumacfg::cli
