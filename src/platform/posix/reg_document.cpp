#include "platform/posix/reg_document.h"

#include <cstdio>
#include <cstdlib>

#include "base/text.h"

namespace lumacfg::platform::posix {
namespace {

// The characters of the bytes 0x80-0x9F. The five bytes the code page leaves undefined stand
// for the control characters of the same number, so they survive a round trip.
constexpr char16_t kHighHalf[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t UnicodeOf(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte < 0xA0 ? kHighHalf[byte - 0x80] : byte;
}

// The Windows-1252 byte of a character; '?' when the code page has none.
char AnsiOf(char32_t u) {
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) return static_cast<char>(u);
    for (unsigned i = 0; i < 32; ++i) {
        if (kHighHalf[i] == u) return static_cast<char>(0x80 + i);
    }
    return '?';
}

// UTF-16LE code units as Windows-1252; a surrogate pair or a lone surrogate is one '?'. An odd
// last byte is ignored.
std::string AnsiFromUtf16(std::string_view bytes) {
    std::string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        char16_t unit = static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                              static_cast<unsigned char>(bytes[i + 1]) << 8);
        if (unit >= 0xD800 && unit <= 0xDBFF && i + 3 < bytes.size()) {
            auto next = static_cast<unsigned char>(bytes[i + 3]);
            if (next >= 0xDC && next <= 0xDF) i += 2;  // the pair's second half
        }
        text += unit >= 0xD800 && unit <= 0xDFFF ? '?' : AnsiOf(unit);
    }
    return text;
}

std::string Utf16FromAnsi(std::string_view text) {
    std::string bytes;
    for (char c : text) {
        char32_t u = UnicodeOf(c);
        bytes += static_cast<char>(u & 0xFF);
        bytes += static_cast<char>(u >> 8);
    }
    return bytes;
}

// The key path of a "[...]" line; deletion lines ("[-...]") and other lines give nullopt.
std::optional<std::string_view> KeyPathOf(std::string_view line) {
    line = TrimBlanks(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']' || line[1] == '-') {
        return std::nullopt;
    }
    return line.substr(1, line.size() - 2);
}

// Any "[...]" line, a deletion line included, ends the values of the key before it.
bool IsKeyLine(std::string_view line) {
    line = TrimBlanks(line);
    return line.size() >= 2 && line.front() == '[' && line.back() == ']';
}

bool IsBlank(std::string_view line) {
    return TrimBlanks(line).empty();
}

bool EndsInBackslash(std::string_view line) {
    line = TrimBlanks(line);
    return !line.empty() && line.back() == '\\';
}

// Reads a quoted, escaped text starting at `pos` (on the opening quote). Returns the text and
// moves `pos` past the closing quote; nullopt when the text is not closed.
std::optional<std::string> ReadQuoted(std::string_view line, std::size_t& pos) {
    if (pos >= line.size() || line[pos] != '"') return std::nullopt;
    std::string text;
    for (std::size_t i = pos + 1; i < line.size(); ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) {
            text += line[++i];
        } else if (line[i] == '"') {
            pos = i + 1;
            return text;
        } else {
            text += line[i];
        }
    }
    return std::nullopt;
}

// The value name of a value line ("" for the default value @), or nullopt.
std::optional<std::string> ValueNameOf(std::string_view line, std::size_t& afterName) {
    std::size_t pos = line.find_first_not_of(" \t");
    if (pos == std::string_view::npos) return std::nullopt;
    if (line[pos] == '@') {
        afterName = pos + 1;
        return std::string{};
    }
    auto name = ReadQuoted(line, pos);
    if (name) afterName = pos;
    return name;
}

// The data after the "=" of a value line, or nullopt when the line has no "=".
std::optional<std::string_view> DataOfLine(std::string_view line) {
    std::size_t afterName = 0;
    if (!ValueNameOf(line, afterName)) return std::nullopt;
    std::size_t equals = line.find('=', afterName);
    if (equals == std::string_view::npos) return std::nullopt;
    return TrimBlanks(line.substr(equals + 1));
}

bool StartsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           SameTextIgnoringCase(text.substr(0, prefix.size()), prefix);
}

// "xx,xx,..." as bytes; nullopt when a field is not one or two hex digits. A comma at the end
// is allowed (a value cut short after its last byte).
std::optional<std::string> HexBytes(std::string_view list) {
    std::string bytes;
    list = TrimBlanks(list);
    for (std::size_t pos = 0; pos < list.size();) {
        std::size_t comma = list.find(',', pos);
        if (comma == std::string_view::npos) comma = list.size();
        std::string field(TrimBlanks(list.substr(pos, comma - pos)));
        char* end = nullptr;
        unsigned long byte = std::strtoul(field.c_str(), &end, 16);
        if (field.empty() || field.size() > 2 || *end != '\0' || field[0] == '+' ||
            field[0] == '-') {
            return std::nullopt;
        }
        bytes += static_cast<char>(byte);
        pos = comma + 1;
    }
    return bytes;
}

RegValue ParseValue(std::string_view data) {
    RegValue value;
    if (!data.empty() && data.front() == '"') {
        std::size_t pos = 0;
        if (auto text = ReadQuoted(data, pos)) {
            value.kind = RegValue::Kind::String;
            value.text = *text;
        }
    } else if (data.size() > 6 && StartsWithIgnoringCase(data, "dword:")) {
        std::string digits(data.substr(6));
        char* end = nullptr;
        unsigned long parsed = std::strtoul(digits.c_str(), &end, 16);
        if (end != digits.c_str() && *end == '\0' && digits.size() <= 8) {
            value.kind = RegValue::Kind::Dword;
            value.dword = static_cast<std::uint32_t>(parsed);
        }
    } else if (StartsWithIgnoringCase(data, "hex(1):") || StartsWithIgnoringCase(data, "hex(2):")) {
        // A string saved as its UTF-16LE bytes, its terminating NUL included.
        if (auto bytes = HexBytes(data.substr(7))) {
            value.kind = data[4] == '1' ? RegValue::Kind::String : RegValue::Kind::ExpandString;
            value.text = AnsiFromUtf16(*bytes);
            value.text = std::string(CutAtNul(value.text));
        }
    }
    return value;
}

// Physical lines for "prefix" + hex data, broken after a comma where the line would pass 80
// characters; every line but the last ends in a backslash, and each continuation line starts
// with two spaces.
std::vector<std::string> WrapHex(std::string prefix, std::string_view data) {
    std::vector<std::string> lines;
    std::string current = std::move(prefix);
    bool hasField = false;
    for (std::size_t pos = 0; pos < data.size();) {
        std::size_t comma = data.find(',', pos);
        std::size_t end = comma == std::string_view::npos ? data.size() : comma + 1;
        std::string_view piece = data.substr(pos, end - pos);
        std::size_t room = end < data.size() ? 1 : 0;  // the backslash a further line needs
        if (hasField && current.size() + piece.size() + room > 80) {
            lines.push_back(current + "\\");
            current = "  ";
        }
        current += piece;
        hasField = true;
        pos = end;
    }
    lines.push_back(current);
    return lines;
}

}  // namespace

std::string RegQuoted(std::string_view text) {
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '\\' || c == '"') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

RegDocument::RegDocument(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) {
        encoding_ = Encoding::Utf16Le;
        bom_ = bytes.substr(0, 2);
    }
    std::string_view body = bytes.substr(bom_.size());

    if (encoding_ == Encoding::Utf16Le) {
        // A line ends after the code unit LF (0A 00); CR LF ends it as "\r\n".
        std::size_t start = 0;
        for (std::size_t i = 0; i + 1 < body.size(); i += 2) {
            if (body[i] != '\n' || body[i + 1] != '\0') continue;
            bool crlf = i >= start + 2 && body[i - 2] == '\r' && body[i - 1] == '\0';
            std::size_t contentEnd = crlf ? i - 2 : i;
            lines_.push_back({AnsiFromUtf16(body.substr(start, contentEnd - start)),
                              crlf ? "\r\n" : "\n",
                              std::string(body.substr(start, i + 2 - start))});
            start = i + 2;
        }
        if (start < body.size()) {
            lines_.push_back(
                {AnsiFromUtf16(body.substr(start)), "", std::string(body.substr(start))});
        }
    } else {
        for (TextLine& line : SplitLines(body)) {
            lines_.push_back({std::move(line.content), std::move(line.ending), {}});
        }
    }
    isStore_ = !lines_.empty() && TrimBlanks(lines_.front().text) == kRegHeader;
    if (!lines_.empty() && !lines_.front().ending.empty()) newline_ = lines_.front().ending;
}

std::optional<RegDocument::KeySpan> RegDocument::FindKey(std::string_view keyPath) const {
    if (!isStore_) return std::nullopt;
    for (std::size_t i = 1; i < lines_.size(); ++i) {
        auto path = KeyPathOf(lines_[i].text);
        if (!path || !SameTextIgnoringCase(*path, keyPath)) continue;
        std::size_t end = i + 1;
        while (end < lines_.size() && !IsKeyLine(lines_[end].text)) ++end;
        return KeySpan{i, end};
    }
    return std::nullopt;
}

// A value whose data is not a quoted text goes on over the next line while its line ends in a
// backslash, as the registry editor reads it; a blank line ends it.
std::vector<RegDocument::Entry> RegDocument::EntriesOf(const KeySpan& span) const {
    std::vector<Entry> entries;
    for (std::size_t i = span.header + 1; i < span.end; ++i) {
        std::size_t afterName = 0;
        auto name = ValueNameOf(lines_[i].text, afterName);
        if (!name) continue;
        std::size_t last = i;
        auto data = DataOfLine(lines_[i].text);
        if (data && !data->starts_with('"')) {
            while (last + 1 < span.end && EndsInBackslash(lines_[last].text) &&
                   !IsBlank(lines_[last + 1].text)) {
                ++last;
            }
        }
        entries.push_back({std::move(*name), i, last});
        i = last;
    }
    return entries;
}

std::string RegDocument::DataOf(const Entry& entry) const {
    std::string data(DataOfLine(lines_[entry.first].text).value_or(""));
    for (std::size_t i = entry.first + 1; i <= entry.last; ++i) {
        data = std::string(TrimBlanks(data));
        if (data.ends_with('\\')) data.pop_back();
        data += TrimBlanks(lines_[i].text);
    }
    return std::string(TrimBlanks(data));
}

bool RegDocument::HasKey(std::string_view keyPath) const {
    return FindKey(keyPath).has_value();
}

std::optional<RegValue> RegDocument::Get(std::string_view keyPath, std::string_view name) const {
    auto span = FindKey(keyPath);
    if (!span) return std::nullopt;
    for (const Entry& entry : EntriesOf(*span)) {
        if (!SameTextIgnoringCase(entry.name, name)) continue;
        if (!DataOfLine(lines_[entry.first].text)) return RegValue{};
        return ParseValue(DataOf(entry));
    }
    return std::nullopt;
}

bool RegDocument::AddKey(std::string_view keyPath) {
    if (!isStore_) return false;
    if (FindKey(keyPath)) return true;
    Terminate(lines_.back());
    if (!IsBlank(lines_.back().text)) lines_.push_back({"", newline_, {}});
    lines_.push_back({"[" + std::string(keyPath) + "]", newline_, {}});
    return true;
}

void RegDocument::Terminate(Line& line) const {
    if (!line.ending.empty()) return;
    // A last line that ends in a CR of its own keeps it: an LF alone after it would make the two
    // one line end, and the line would read otherwise ("[key]<CR>" would become a key).
    line.ending = line.text.ends_with('\r') ? "\r\n" : newline_;
    // An unchanged line keeps its bytes and gains the ending in the file's encoding.
    if (!line.raw.empty()) {
        line.raw += encoding_ == Encoding::Utf16Le ? Utf16FromAnsi(line.ending) : line.ending;
    }
}

bool RegDocument::SetData(std::string_view keyPath, std::string_view name, std::string_view data,
                          bool wrap) {
    if (name.find_first_of("\r\n") != std::string_view::npos) return false;
    auto span = FindKey(keyPath);
    if (!span) return false;
    auto compose = [&](std::string_view spelled) {
        std::string prefix = (spelled.empty() ? std::string("@") : RegQuoted(spelled)) + "=";
        std::vector<std::string> texts =
            wrap ? WrapHex(prefix, data) : std::vector<std::string>{prefix + std::string(data)};
        std::vector<Line> lines;
        for (std::string& text : texts) lines.push_back({std::move(text), newline_, {}});
        return lines;
    };
    auto at = [this](std::size_t index) {
        return lines_.begin() + static_cast<std::ptrdiff_t>(index);
    };

    std::vector<Entry> entries = EntriesOf(*span);
    for (const Entry& entry : entries) {
        if (!SameTextIgnoringCase(entry.name, name)) continue;
        // The value keeps the name as the store spells it; all its lines are replaced.
        std::vector<Line> lines = compose(entry.name);
        lines_.erase(at(entry.first), at(entry.last + 1));
        lines_.insert(at(entry.first), lines.begin(), lines.end());
        return true;
    }
    // A new value goes after the key's last non-blank line, except where that line ends a value
    // in a backslash: the new line would read as part of that value, so it goes before it.
    std::size_t last = span->end - 1;
    while (last > span->header && IsBlank(lines_[last].text)) --last;
    std::size_t position = last + 1;
    if (!entries.empty() && entries.back().last == last && EndsInBackslash(lines_[last].text)) {
        position = entries.back().first;
    } else {
        Terminate(lines_[last]);
    }
    std::vector<Line> lines = compose(name);
    lines_.insert(at(position), lines.begin(), lines.end());
    return true;
}

bool RegDocument::SetString(std::string_view keyPath, std::string_view name,
                            std::string_view text) {
    text = CutAtNul(text);
    if (text.find_first_of("\r\n") == std::string_view::npos) {
        return SetData(keyPath, name, RegQuoted(text), false);
    }
    // A "text" value cannot hold a line break, so the text goes as hex(1): its UTF-16LE bytes
    // and the terminating NUL, as the registry editor exports such a string.
    std::string bytes = Utf16FromAnsi(text) + std::string(2, '\0');
    std::string data = "hex(1):";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        char field[4];
        std::snprintf(field, sizeof field, "%02x", static_cast<unsigned char>(bytes[i]));
        if (i > 0) data += ',';
        data += field;
    }
    return SetData(keyPath, name, data, true);
}

bool RegDocument::SetDword(std::string_view keyPath, std::string_view name, std::uint32_t value) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "dword:%08x", value);
    return SetData(keyPath, name, digits, false);
}

std::string RegDocument::Bytes() const {
    std::string bytes = bom_;
    for (const Line& line : lines_) {
        if (!line.raw.empty()) {
            bytes += line.raw;
            continue;
        }
        std::string text = line.text + line.ending;
        bytes += encoding_ == Encoding::Utf16Le ? Utf16FromAnsi(text) : text;
    }
    return bytes;
}

}  // namespace lumacfg::platform::posix
