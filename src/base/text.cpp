#include "base/text.h"

#include <algorithm>

namespace lumacfg {

std::vector<TextLine> SplitLines(std::string_view bytes) {
    std::vector<TextLine> lines;
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t newline = bytes.find('\n', start);
        if (newline == std::string_view::npos) {
            lines.push_back({std::string(bytes.substr(start)), ""});
            break;
        }
        bool crlf = newline > start && bytes[newline - 1] == '\r';
        std::size_t contentEnd = crlf ? newline - 1 : newline;
        lines.push_back(
            {std::string(bytes.substr(start, contentEnd - start)), crlf ? "\r\n" : "\n"});
        start = newline + 1;
    }
    return lines;
}

std::string JoinLines(std::span<const TextLine> lines) {
    std::string bytes;
    for (const TextLine& line : lines) {
        bytes += line.content;
        bytes += line.ending;
    }
    return bytes;
}

std::string_view TrimBlanks(std::string_view text) {
    auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && blank(text.back())) text.remove_suffix(1);
    return text;
}

char AsciiLower(char c) {
    return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
}

namespace {
bool SameCharIgnoringCase(char x, char y) {
    return AsciiLower(x) == AsciiLower(y);
}
}  // namespace

bool SameTextIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, SameCharIgnoringCase);
}

bool EndsWithIgnoringCase(std::string_view text, std::string_view suffix) {
    return text.size() >= suffix.size() &&
           SameTextIgnoringCase(text.substr(text.size() - suffix.size()), suffix);
}

bool ContainsIgnoringCase(std::string_view text, std::string_view part) {
    return std::search(text.begin(), text.end(), part.begin(), part.end(), SameCharIgnoringCase) !=
           text.end();
}

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

int AnsiByteLength(std::string_view text) {
    return static_cast<int>(text.size());
}

}  // namespace lumacfg
