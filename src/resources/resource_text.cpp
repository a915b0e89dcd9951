#include "resources/resource_text.h"

#include <map>

namespace lumacfg::resources {

namespace {

constexpr int kLargestNumber = 65535;

// \n, \r, \t and \\ stand for these bytes.
constexpr std::string_view kEscapeLetters = "nrt\\";
constexpr std::string_view kEscapeBytes = "\n\r\t\\";

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool IsBlank(std::string_view line) {
    return line.find_first_not_of(" \t") == std::string_view::npos;
}

// Decodes the escapes of one text; an unknown or incomplete escape stays as written and is
// reported.
std::string Unescape(std::string_view raw, std::string& error) {
    std::string text;
    text.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (raw[i] != '\\') {
            text += raw[i];
            continue;
        }
        const char next = i + 1 < raw.size() ? raw[i + 1] : '\0';
        if (const auto k = kEscapeLetters.find(next); k != std::string_view::npos) {
            text += kEscapeBytes[k];
            ++i;
            continue;
        }
        if (next == 'x' && i + 3 < raw.size() && HexDigit(raw[i + 2]) >= 0 &&
            HexDigit(raw[i + 3]) >= 0) {
            text += static_cast<char>(HexDigit(raw[i + 2]) * 16 + HexDigit(raw[i + 3]));
            i += 3;
            continue;
        }
        if (error.empty()) error = "unknown escape at column " + std::to_string(i + 1);
        text += raw[i];
    }
    return text;
}

}  // namespace

ResourceTextFile ParseResourceText(std::string_view file) {
    ResourceTextFile result;
    std::map<int, int> firstLine;  // number -> line that gave it
    int lineNumber = 0;
    while (!file.empty()) {
        ++lineNumber;
        const std::size_t end = file.find('\n');
        std::string_view line = file.substr(0, end);
        file = end == std::string_view::npos ? std::string_view{} : file.substr(end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (IsBlank(line) || line.front() == '#') continue;

        auto report = [&](const std::string& what) {
            result.errors.push_back("line " + std::to_string(lineNumber) + ": " + what);
        };
        std::size_t digits = 0;
        long number = 0;
        while (digits < line.size() && line[digits] >= '0' && line[digits] <= '9') {
            if (number <= kLargestNumber) number = number * 10 + (line[digits] - '0');
            ++digits;
        }
        if (digits == 0) {
            report("a text line must begin with its number");
            continue;
        }
        if (number > kLargestNumber) {
            report("number above " + std::to_string(kLargestNumber));
            continue;
        }
        if (digits == line.size() || line[digits] != '\t') {
            report("the number must be followed by one TAB");
            continue;
        }

        std::string escapeError;
        std::string text = Unescape(line.substr(digits + 1), escapeError);
        if (!escapeError.empty()) report(escapeError);

        const int id = static_cast<int>(number);
        const auto [given, isNew] = firstLine.emplace(id, lineNumber);
        if (!isNew) {
            report("number " + std::to_string(id) + " already given on line " +
                   std::to_string(given->second));
            continue;
        }
        result.texts.push_back({id, std::move(text)});
    }
    return result;
}

}  // namespace lumacfg::resources
