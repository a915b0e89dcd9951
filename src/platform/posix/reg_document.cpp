#include "platform/posix/reg_document.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/text.h"

namespace lumacfg::platform::posix {
namespace {

// The key path of a "[...]" line; deletion lines ("[-...]") and other lines give nullopt.
std::optional<std::string_view> KeyPathOf(std::string_view line) {
    line = TrimBlanks(line);
    if (line.size() < 2 || line.front() != '[' || line.back() != ']' || line[1] == '-') {
        return std::nullopt;
    }
    return line.substr(1, line.size() - 2);
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

RegValue ParseValue(std::string_view data) {
    data = TrimBlanks(data);
    RegValue value;
    if (!data.empty() && data.front() == '"') {
        std::size_t pos = 0;
        if (auto text = ReadQuoted(data, pos)) {
            value.kind = RegValue::Kind::String;
            value.text = *text;
        }
    } else if (data.size() > 6 && SameTextIgnoringCase(data.substr(0, 6), "dword:")) {
        std::string digits(data.substr(6));
        char* end = nullptr;
        unsigned long parsed = std::strtoul(digits.c_str(), &end, 16);
        if (end != digits.c_str() && *end == '\0' && digits.size() <= 8) {
            value.kind = RegValue::Kind::Dword;
            value.dword = static_cast<std::uint32_t>(parsed);
        }
    }
    return value;
}

// Any "[...]" line, a deletion line included, ends the values of the key before it.
bool IsKeyLine(std::string_view line) {
    line = TrimBlanks(line);
    return line.size() >= 2 && line.front() == '[' && line.back() == ']';
}

bool Continues(std::string_view line) {
    line = TrimBlanks(line);
    return !line.empty() && line.back() == '\\';
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

RegDocument::RegDocument(std::string_view bytes) : lines_(SplitLines(bytes)) {}

std::optional<RegDocument::KeySpan> RegDocument::FindKey(std::string_view keyPath) const {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        auto path = KeyPathOf(lines_[i].content);
        if (!path || !SameTextIgnoringCase(*path, keyPath)) continue;
        std::size_t end = i + 1;
        while (end < lines_.size() && !IsKeyLine(lines_[end].content)) ++end;
        return KeySpan{i, end};
    }
    return std::nullopt;
}

std::vector<RegDocument::Entry> RegDocument::EntriesOf(const KeySpan& span) const {
    std::vector<Entry> entries;
    for (std::size_t i = span.header + 1; i < span.end; ++i) {
        std::size_t afterName = 0;
        auto name = ValueNameOf(lines_[i].content, afterName);
        std::size_t last = i;
        while (last + 1 < span.end && Continues(lines_[last].content)) ++last;
        if (name) entries.push_back({*name, i, last});
        i = last;
    }
    return entries;
}

bool RegDocument::HasKey(std::string_view keyPath) const {
    return FindKey(keyPath).has_value();
}

std::optional<RegValue> RegDocument::Get(std::string_view keyPath, std::string_view name) const {
    auto span = FindKey(keyPath);
    if (!span) return std::nullopt;
    for (const Entry& entry : EntriesOf(*span)) {
        if (!SameTextIgnoringCase(entry.name, name)) continue;
        std::string_view line = lines_[entry.first].content;
        std::size_t afterName = 0;
        ValueNameOf(line, afterName);
        std::size_t equals = line.find('=', afterName);
        if (equals == std::string_view::npos) return RegValue{};
        return ParseValue(line.substr(equals + 1));
    }
    return std::nullopt;
}

bool RegDocument::SetLine(std::string_view keyPath, std::string_view name,
                          const std::string& valueText) {
    auto span = FindKey(keyPath);
    if (!span) return false;
    std::string content = (name.empty() ? std::string("@") : RegQuoted(name)) + "=" + valueText;
    for (const Entry& entry : EntriesOf(*span)) {
        if (!SameTextIgnoringCase(entry.name, name)) continue;
        // The value keeps the name as the store spells it.
        std::string spelled = entry.name.empty() ? std::string("@") : RegQuoted(entry.name);
        lines_[entry.first] = {spelled + "=" + valueText, newline_};
        lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(entry.first + 1),
                     lines_.begin() + static_cast<std::ptrdiff_t>(entry.last + 1));
        return true;
    }
    std::size_t last = span->end - 1;
    while (last > span->header && TrimBlanks(lines_[last].content).empty()) --last;
    if (lines_[last].ending.empty()) lines_[last].ending = newline_;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(last + 1), {content, newline_});
    return true;
}

bool RegDocument::SetString(std::string_view keyPath, std::string_view name,
                            std::string_view text) {
    return SetLine(keyPath, name, RegQuoted(text.substr(0, text.find('\0'))));
}

bool RegDocument::SetDword(std::string_view keyPath, std::string_view name, std::uint32_t value) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "dword:%08x", value);
    return SetLine(keyPath, name, digits);
}

std::string RegDocument::Bytes() const {
    return JoinLines(lines_);
}

}  // namespace lumacfg::platform::posix
