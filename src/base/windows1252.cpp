#include "base/windows1252.h"

#include <array>
#include <cstdint>

namespace lumacfg {
namespace {

// The characters of bytes 0x80 to 0x9F; the undefined bytes keep their own number.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 0x98
};

// The next character of a UTF-8 text at `at` (moved past it), or nullopt for a malformed
// sequence: overlong forms, surrogates and characters beyond U+10FFFF are malformed.
std::optional<char32_t> NextCharacter(std::string_view text, std::size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    int length = 0;
    char32_t c = 0;
    if (lead < 0x80) {
        ++at;
        return lead;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        c = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        c = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        c = lead & 0x07;
    } else {
        return std::nullopt;
    }
    if (text.size() - at < static_cast<std::size_t>(length)) return std::nullopt;
    for (int i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[at + static_cast<std::size_t>(i)]);
        if ((next & 0xC0) != 0x80) return std::nullopt;
        c = (c << 6) | (next & 0x3F);
    }
    constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    if (c < kSmallest[static_cast<std::size_t>(length)] || c > 0x10FFFF ||
        (c >= 0xD800 && c <= 0xDFFF)) {
        return std::nullopt;
    }
    at += static_cast<std::size_t>(length);
    return c;
}

}  // namespace

char32_t CharacterOfWindows1252(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 && value < 0xA0 ? kHighControls[value - 0x80] : value;
}

std::optional<char> Windows1252ByteOf(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == c) return static_cast<char>(0x80 + i);
    }
    return std::nullopt;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
        return;
    }
    // The lead byte's marker and the number of continuation bytes after it.
    const int continuations = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr std::array<unsigned, 4> kLeadMarks = {0, 0xC0, 0xE0, 0xF0};
    out.push_back(static_cast<char>(kLeadMarks[static_cast<std::size_t>(continuations)] |
                                    (c >> (6 * continuations))));
    for (int i = continuations - 1; i >= 0; --i) {
        out.push_back(static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F)));
    }
}

std::string Utf8FromWindows1252(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (char byte : bytes) AppendUtf8(out, CharacterOfWindows1252(byte));
    return out;
}

std::optional<std::string> Windows1252FromUtf8(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const std::optional<char32_t> c = NextCharacter(utf8, at);
        if (!c) return std::nullopt;
        const std::optional<char> byte = Windows1252ByteOf(*c);
        if (!byte) return std::nullopt;
        out.push_back(*byte);
    }
    return out;
}

bool IsValidUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        if (!NextCharacter(bytes, at)) return false;
    }
    return true;
}

std::string Utf8ForDisplay(std::string_view bytes) {
    return IsValidUtf8(bytes) ? std::string(bytes) : Utf8FromWindows1252(bytes);
}

}  // namespace lumacfg
