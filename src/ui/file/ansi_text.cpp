#include "ui/file/ansi_text.h"

#include <algorithm>

namespace lumacfg {

char AnsiUpper(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 'a' && byte <= 'z') return static_cast<char>(byte - 0x20);
    // Latin-1 lower-case letters, except the division sign 0xF7.
    if (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7) return static_cast<char>(byte - 0x20);
    switch (byte) {
        case 0x9A:  // s caron
        case 0x9C:  // oe ligature
        case 0x9E:  // z caron
            return static_cast<char>(byte - 0x10);
        case 0xFF:  // y diaeresis
            return static_cast<char>(0x9F);
        default:
            return c;
    }
}

std::string AnsiUpper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) { return AnsiUpper(c); });
    return upper;
}

bool AnsiEqualNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return AnsiUpper(x) == AnsiUpper(y); });
}

std::string_view CutAtNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

std::string_view TrimSpaces(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace lumacfg
