// Caseless comparison of window class names and file extensions (ASCII letters only: the
// names compared here are plain ASCII).
#pragma once

#include <algorithm>
#include <string_view>

namespace lumacfg {

inline char AsciiLower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

inline bool SameTextIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

inline bool EndsWithIgnoringCase(std::string_view text, std::string_view suffix) {
    return text.size() >= suffix.size() &&
           SameTextIgnoringCase(text.substr(text.size() - suffix.size()), suffix);
}

}  // namespace lumacfg
