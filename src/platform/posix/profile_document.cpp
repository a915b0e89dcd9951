#include "platform/posix/profile_document.h"

#include <algorithm>

#include "base/text.h"

namespace lumacfg::platform::posix {
namespace {

// The name of a section header line, or nullopt when the line is no header.
std::optional<std::string_view> HeaderName(std::string_view line) {
    std::size_t open = line.find_first_not_of(" \t");
    if (open == std::string_view::npos || line[open] != '[') return std::nullopt;
    std::size_t close = line.rfind(']');
    if (close == std::string_view::npos || close < open) return std::nullopt;
    return TrimBlanks(line.substr(open + 1, close - open - 1));
}

// The key of a key line, or nullopt when the line holds no "=".
std::optional<std::string_view> KeyName(std::string_view line) {
    std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    return TrimBlanks(line.substr(0, equals));
}

std::string_view ValueOf(std::string_view line) {
    std::string_view value = TrimBlanks(line.substr(line.find('=') + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
        value = value.substr(1, value.size() - 2);
    }
    return value;
}

// A value never breaks a line: everything from its first CR or LF on is dropped.
std::string_view SingleLine(std::string_view value) {
    return value.substr(0, value.find_first_of("\r\n"));
}

bool IsBlankLine(std::string_view line) {
    return TrimBlanks(line).empty();
}

}  // namespace

ProfileDocument::ProfileDocument(std::string_view bytes) : lines_(SplitLines(bytes)) {}

std::string ProfileDocument::NewLine() const {
    if (lines_.empty() || lines_.front().ending.empty()) return "\r\n";
    return lines_.front().ending;
}

// Names asked for are trimmed like the names in the file, so " WSX " finds "[WSX]".
std::optional<ProfileDocument::SectionSpan> ProfileDocument::FindSection(
    std::string_view section) const {
    section = TrimBlanks(section);
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        auto name = HeaderName(lines_[i].content);
        if (!name || !SameTextIgnoringCase(*name, section)) continue;
        std::size_t end = i + 1;
        while (end < lines_.size() && !HeaderName(lines_[end].content)) ++end;
        return SectionSpan{i, end};
    }
    return std::nullopt;
}

std::optional<std::size_t> ProfileDocument::FindKey(const SectionSpan& span,
                                                    std::string_view key) const {
    key = TrimBlanks(key);
    for (std::size_t i = span.header + 1; i < span.end; ++i) {
        auto name = KeyName(lines_[i].content);
        if (name && SameTextIgnoringCase(*name, key)) return i;
    }
    return std::nullopt;
}

std::optional<std::string> ProfileDocument::Get(std::string_view section,
                                                std::string_view key) const {
    auto span = FindSection(section);
    if (!span) return std::nullopt;
    auto line = FindKey(*span, key);
    if (!line) return std::nullopt;
    return std::string(ValueOf(lines_[*line].content));
}

void ProfileDocument::InsertLine(std::size_t index, std::string content) {
    // The line before a new line must end, even when it was the file's unterminated last line.
    if (index > 0 && lines_[index - 1].ending.empty()) lines_[index - 1].ending = NewLine();
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(index),
                  TextLine{std::move(content), NewLine()});
}

bool ProfileDocument::Set(std::string_view section, std::string_view key, std::string_view value) {
    // Nothing written may break a line: names and value end at their first CR or LF.
    value = SingleLine(value);
    section = TrimBlanks(SingleLine(section));
    key = TrimBlanks(SingleLine(key));
    auto span = FindSection(section);
    if (!span) {
        InsertLine(lines_.size(), "[" + std::string(section) + "]");
        InsertLine(lines_.size(), std::string(key) + "=" + std::string(value));
        return true;
    }
    if (auto line = FindKey(*span, key)) {
        TextLine& changed = lines_[*line];
        std::string content = std::string(*KeyName(changed.content)) + "=" + std::string(value);
        std::string ending = NewLine();
        if (content == changed.content && changed.ending == ending) return false;
        changed.content = std::move(content);
        changed.ending = std::move(ending);
        return true;
    }
    std::size_t last = span->end - 1;
    while (last > span->header && IsBlankLine(lines_[last].content)) --last;
    InsertLine(last + 1, std::string(key) + "=" + std::string(value));
    return true;
}

bool ProfileDocument::DeleteKey(std::string_view section, std::string_view key) {
    auto span = FindSection(section);
    if (!span) return false;
    auto line = FindKey(*span, key);
    if (!line) return false;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*line));
    return true;
}

bool ProfileDocument::DeleteSection(std::string_view section) {
    auto span = FindSection(section);
    if (!span) return false;
    lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(span->header),
                 lines_.begin() + static_cast<std::ptrdiff_t>(span->end));
    return true;
}

std::string ProfileDocument::Bytes() const {
    return JoinLines(lines_);
}

std::optional<std::string> LookUpProfileValue(std::string_view bytes, std::string_view section,
                                              std::string_view key) {
    section = TrimBlanks(section);
    key = TrimBlanks(key);
    bool inSection = false;
    for (std::size_t start = 0; start < bytes.size();) {
        std::size_t newline = bytes.find('\n', start);
        std::string_view line = bytes.substr(start, newline - start);
        if (newline != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        start = newline == std::string_view::npos ? bytes.size() : newline + 1;
        if (auto name = HeaderName(line)) {
            if (inSection) return std::nullopt;  // only the first section of the name counts
            inSection = SameTextIgnoringCase(*name, section);
        } else if (inSection) {
            auto name = KeyName(line);
            if (name && SameTextIgnoringCase(*name, key)) return std::string(ValueOf(line));
        }
    }
    return std::nullopt;
}

}  // namespace lumacfg::platform::posix
