// Text conventions shared by every file the data system keeps: lines with their own endings,
// blanks, and names compared without regard to ASCII case.
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

}  // namespace lumacfg
