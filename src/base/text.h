// Text conventions shared by every file the data system keeps: lines with their own endings,
// blanks, names compared without regard to ASCII or Windows-1252 case, and texts that come out
// of fixed-size buffers.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lumacfg {

// One line of a text file: its content and its ending ("\r\n", "\n", or "" for a last line
// without one). Joining the lines of a file gives back its bytes.
struct TextLine {
    std::string content;
    std::string ending;
};
std::vector<TextLine> SplitLines(std::string_view bytes);
std::string JoinLines(std::span<const TextLine> lines);

// The text without its leading and trailing blanks (spaces and tabs).
std::string_view TrimBlanks(std::string_view text);

char AsciiLower(char c);
bool SameTextIgnoringCase(std::string_view a, std::string_view b);
bool EndsWithIgnoringCase(std::string_view text, std::string_view suffix);
bool ContainsIgnoringCase(std::string_view text, std::string_view part);

// Upper case of one Windows-1252 character: a-z and the accented lower-case letters; every
// other byte is returned unchanged.
char AnsiUpper(char c);
std::string AnsiUpper(std::string_view text);

// True when both texts are equal without regard to (Windows-1252) case.
bool AnsiEqualNoCase(std::string_view a, std::string_view b);

// The text up to, not including, its first NUL character (all of it when there is none).
std::string_view CutAtNul(std::string_view text);

// The text without leading and trailing spaces.
std::string_view TrimSpaces(std::string_view text);

// Number of bytes of the text in the ANSI code page. Texts in the core already are
// code-page bytes, so this is their size.
int AnsiByteLength(std::string_view text);

}  // namespace lumacfg
