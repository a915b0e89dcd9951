#include "base/json_line.h"

#include <array>
#include <cstdint>

namespace lumacfg {
namespace {

// Unicode code points of the Windows-1252 bytes 0x80..0x9F (0 where the code page has none:
// such a byte is kept as the control character of the same number).
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

void AppendJsonString(std::string& out, std::string_view ansi) {
    constexpr std::string_view kHex = "0123456789abcdef";
    out += '"';
    for (char c : Utf8FromAnsi(ansi)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (byte < 0x20) {
            out += "\\u00";
            out += kHex[byte >> 4];
            out += kHex[byte & 0x0F];
        } else {
            out += c;
        }
    }
    out += '"';
}

// Reads a JSON string starting at its opening quote; advances `at` past the closing quote.
std::optional<std::string> ReadJsonString(std::string_view text, std::size_t& at) {
    if (at >= text.size() || text[at] != '"') return std::nullopt;
    std::string value;
    for (++at; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') {
            ++at;
            return value;
        }
        if (static_cast<unsigned char>(c) < 0x20) return std::nullopt;
        if (c != '\\') {
            value += c;
            continue;
        }
        if (++at >= text.size()) return std::nullopt;
        switch (text[at]) {
            case '"':
                value += '"';
                break;
            case '\\':
                value += '\\';
                break;
            case '/':
                value += '/';
                break;
            case 'b':
                value += '\b';
                break;
            case 'f':
                value += '\f';
                break;
            case 'n':
                value += '\n';
                break;
            case 'r':
                value += '\r';
                break;
            case 't':
                value += '\t';
                break;
            case 'u': {
                if (at + 4 >= text.size()) return std::nullopt;
                char32_t code = 0;
                for (std::size_t i = 1; i <= 4; ++i) {
                    const char h = text[at + i];
                    const int digit = h >= '0' && h <= '9'   ? h - '0'
                                      : h >= 'a' && h <= 'f' ? h - 'a' + 10
                                      : h >= 'A' && h <= 'F' ? h - 'A' + 10
                                                             : -1;
                    if (digit < 0) return std::nullopt;
                    code = code * 16 + static_cast<char32_t>(digit);
                }
                at += 4;
                AppendUtf8(value, code);
                break;
            }
            default:
                return std::nullopt;
        }
    }
    return std::nullopt;
}

void SkipBlanks(std::string_view text, std::size_t& at) {
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t')) ++at;
}

bool Expect(std::string_view text, std::size_t& at, char c) {
    SkipBlanks(text, at);
    if (at >= text.size() || text[at] != c) return false;
    ++at;
    return true;
}

}  // namespace

std::string Utf8FromAnsi(std::string_view ansi) {
    std::string out;
    out.reserve(ansi.size());
    for (char c : ansi) {
        const auto byte = static_cast<unsigned char>(c);
        char32_t code = byte;
        if (byte >= 0x80 && byte <= 0x9F && kHighControls[byte - 0x80] != 0) {
            code = kHighControls[byte - 0x80];
        }
        AppendUtf8(out, code);
    }
    return out;
}

std::string JsonObjectLine(const JsonMembers& members) {
    std::string out = "{";
    for (const auto& [name, value] : members) {
        if (out.size() > 1) out += ',';
        AppendJsonString(out, name);
        out += ':';
        AppendJsonString(out, value);
    }
    out += '}';
    return out;
}

std::optional<JsonMembers> ParseJsonObjectLine(std::string_view line) {
    std::size_t at = 0;
    if (!Expect(line, at, '{')) return std::nullopt;
    JsonMembers members;
    SkipBlanks(line, at);
    if (at < line.size() && line[at] == '}') {
        ++at;
    } else {
        while (true) {
            SkipBlanks(line, at);
            auto name = ReadJsonString(line, at);
            if (!name || !Expect(line, at, ':')) return std::nullopt;
            SkipBlanks(line, at);
            auto value = ReadJsonString(line, at);
            if (!value) return std::nullopt;
            members.emplace_back(std::move(*name), std::move(*value));
            if (Expect(line, at, '}')) break;
            if (!Expect(line, at, ',')) return std::nullopt;
        }
    }
    SkipBlanks(line, at);
    if (at != line.size()) return std::nullopt;
    return members;
}

std::optional<std::string> MemberValue(const JsonMembers& members, std::string_view name) {
    for (const auto& [key, value] : members) {
        if (key == name) return value;
    }
    return std::nullopt;
}

}  // namespace lumacfg
