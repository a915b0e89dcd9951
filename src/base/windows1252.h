// Text between the core's Windows-1252 bytes and UTF-8, for documents that other tools read
// and write (JSON). The five bytes the code page leaves undefined (0x81, 0x8D, 0x8F, 0x90,
// 0x9D) stand for the control characters of the same number, so every byte comes back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumacfg {

std::string Utf8FromWindows1252(std::string_view bytes);

// The character a byte stands for, and the byte of a character (nullopt: the code page lacks it).
char32_t CharacterOfWindows1252(char byte);
std::optional<char> Windows1252ByteOf(char32_t c);

// The Windows-1252 bytes of a UTF-8 text; nullopt when it holds a character the code page
// lacks (or is no valid UTF-8).
std::optional<std::string> Windows1252FromUtf8(std::string_view utf8);

// One character (at most U+10FFFF, no surrogate) appended in UTF-8.
void AppendUtf8(std::string& out, char32_t c);

bool IsValidUtf8(std::string_view bytes);

// Bytes of unknown encoding made readable as UTF-8: kept when they are valid UTF-8, otherwise
// read as Windows-1252 (paths of the host, the bytes of a station file).
std::string Utf8ForDisplay(std::string_view bytes);

}  // namespace lumacfg
