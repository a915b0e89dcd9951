// Reader of the resource text files (the string table and the caption blocks).
//
// A file holds one text per line: a decimal number from 0 to 65535, one TAB, then the text to
// the end of the line. Lines that are empty (or blank) or begin with "#" are ignored; a CR
// before the line's LF is dropped. Escapes in a text: \n LF, \r CR, \t TAB, \\ backslash,
// \xHH the byte HH. All other bytes are kept as they are (the file is in Windows-1252).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumacfg::resources {

struct ResourceText {
    int number = 0;
    std::string text;
};

struct ResourceTextFile {
    std::vector<ResourceText> texts;  // in file order; a repeated number keeps its first text
    std::vector<std::string> errors;  // "line N: ..." for every line that breaks the format
};

// Never fails: a faulty line is reported in `errors` and, where its number can be read, its
// text is kept with the faulty escape left as written.
ResourceTextFile ParseResourceText(std::string_view file);

}  // namespace lumacfg::resources
