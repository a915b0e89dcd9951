#include "platform/posix/profile_document.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/text.h"

namespace lumacfg::platform::posix {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LeMark = "\xFF\xFE";
constexpr std::string_view kUtf16BeMark = "\xFE\xFF";

// The Unicode characters of Windows-1252 bytes 0x80 to 0x9F. The five bytes the code page
// leaves undefined stand for the control characters of the same number, as in Windows, so
// every byte survives a trip through UTF-16.
constexpr char16_t kAnsiHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 0x98
};

char16_t AnsiToUnicode(char c) {
    auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte < 0xA0 ? kAnsiHighControls[byte - 0x80] : char16_t{byte};
}

// The Windows-1252 byte of a UTF-16 unit; "?" for a character the code page lacks.
char UnicodeToAnsi(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<char>(unit);
    const auto* found = std::find(std::begin(kAnsiHighControls), std::end(kAnsiHighControls), unit);
    if (found == std::end(kAnsiHighControls)) return '?';
    return static_cast<char>(0x80 + (found - std::begin(kAnsiHighControls)));
}

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The units of UTF-16 text (without its byte-order mark); a last odd byte is no unit.
class Utf16Units {
  public:
    Utf16Units(std::string_view bytes, bool bigEndian) : bytes_(bytes), bigEndian_(bigEndian) {}
    std::size_t size() const { return bytes_.size() / 2; }
    char16_t operator[](std::size_t i) const {
        auto first = static_cast<unsigned char>(bytes_[2 * i]);
        auto second = static_cast<unsigned char>(bytes_[2 * i + 1]);
        return static_cast<char16_t>(bigEndian_ ? (first << 8) | second : (second << 8) | first);
    }

  private:
    std::string_view bytes_;
    bool bigEndian_;
};

// Units begin to end as Windows-1252 text: one byte per character, a surrogate pair (a
// character beyond the basic plane) and an unpaired surrogate each read as "?".
std::string DecodeUtf16(const Utf16Units& units, std::size_t begin, std::size_t end) {
    std::string text;
    text.reserve(end - begin);
    for (std::size_t i = begin; i < end; ++i) {
        char16_t unit = units[i];
        if (IsHighSurrogate(unit) && i + 1 < end && IsLowSurrogate(units[i + 1])) ++i;
        text += UnicodeToAnsi(unit);
    }
    return text;
}

void AppendUtf16(std::string& bytes, char16_t unit, bool bigEndian) {
    auto high = static_cast<char>(unit >> 8);
    auto low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
}

// Splits a text of `count` units (bytes, or UTF-16 units) into lines the way the Windows
// profile service does: CR LF, LF and a CR alone each end a line; a last line without an
// ending counts only when it holds something. emit(begin, end, ending) gets each line's units
// and its ending (0 none, 1 LF, 2 CR, 3 CR LF) and returns false to stop.
template <typename Units, typename Emit>
void SplitUnits(const Units& units, std::size_t count, Emit emit) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < count; ++i) {
        auto unit = units[i];
        if (unit != '\r' && unit != '\n') continue;
        std::size_t end = i;
        int ending = 1;  // LF
        if (unit == '\r') {
            ending = 2;  // CR
            if (i + 1 < count && units[i + 1] == '\n') {
                ending = 3;  // CR LF
                ++i;
            }
        }
        if (!emit(start, end, ending)) return;
        start = i + 1;
    }
    if (start < count) emit(start, count, 0);
}

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

std::size_t ProfileDocument::CaselessHash::operator()(std::string_view name) const {
    std::size_t hash = 14695981039346656037ULL;  // FNV-1a
    for (char c : name) {
        hash ^= static_cast<unsigned char>(AsciiLower(c));
        hash *= 1099511628211ULL;
    }
    return hash;
}

bool ProfileDocument::CaselessEqual::operator()(std::string_view a, std::string_view b) const {
    return SameTextIgnoringCase(a, b);
}

ProfileDocument::ProfileDocument(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Mark)) {
        encoding_ = Encoding::kUtf8;
        bytes.remove_prefix(kUtf8Mark.size());
    } else if (bytes.starts_with(kUtf16LeMark) || bytes.starts_with(kUtf16BeMark)) {
        encoding_ = bytes.starts_with(kUtf16LeMark) ? Encoding::kUtf16Le : Encoding::kUtf16Be;
        bytes.remove_prefix(2);
        source_.assign(bytes.substr(0, bytes.size() & ~std::size_t{1}));
        trailer_.assign(bytes.substr(source_.size()));
        Utf16Units units(source_, encoding_ == Encoding::kUtf16Be);
        SplitUnits(units, units.size(), [&](std::size_t begin, std::size_t end, int ending) {
            Append({.text = DecodeUtf16(units, begin, end),
                    .ending = static_cast<Ending>(ending),
                    .sourceBegin = 2 * begin,
                    .sourceEnd = 2 * end});
            return true;
        });
        return;
    }
    source_.assign(bytes);
    // Room for the lines of the file and for the few hundred a save may add, so neither the
    // reading nor the first new line moves every line.
    lines_.reserve(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 512);
    SplitUnits(source_, source_.size(), [&](std::size_t begin, std::size_t end, int ending) {
        Append({.text = {},
                .ending = static_cast<Ending>(ending),
                .sourceBegin = begin,
                .sourceEnd = end});
        return true;
    });
}

// The decisions for UTF-16 text that Windows could not have written: see the header.
std::optional<std::string> ProfileDocument::Problem(std::string_view bytes) {
    bool bigEndian = bytes.starts_with(kUtf16BeMark);
    if (!bigEndian && !bytes.starts_with(kUtf16LeMark)) {
        const std::size_t nul = bytes.find('\0');
        if (nul == std::string_view::npos) return std::nullopt;
        return "not text: a NUL byte at byte " + std::to_string(nul);
    }
    bytes.remove_prefix(2);
    if (bytes.size() % 2 != 0) return "UTF-16 text with an odd number of bytes";
    Utf16Units units(bytes, bigEndian);
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (IsHighSurrogate(units[i]) && i + 1 < units.size() && IsLowSurrogate(units[i + 1])) {
            ++i;
        } else if (IsHighSurrogate(units[i]) || IsLowSurrogate(units[i])) {
            return "UTF-16 text with an unpaired surrogate at byte " + std::to_string(2 + 2 * i);
        }
    }
    return std::nullopt;
}

std::string_view ProfileDocument::Text(std::size_t line) const {
    const Line& read = lines_[line];
    if (read.edited || encoding_ == Encoding::kUtf16Le || encoding_ == Encoding::kUtf16Be) {
        return read.text;
    }
    return std::string_view(source_).substr(read.sourceBegin, read.sourceEnd - read.sourceBegin);
}

std::size_t ProfileDocument::Append(Line line) {
    line.prev = tail_;
    line.next = kNoLine;
    std::size_t index = lines_.size();
    lines_.push_back(std::move(line));
    (tail_ == kNoLine ? head_ : lines_[tail_].next) = index;
    tail_ = index;
    return index;
}

ProfileDocument::Ending ProfileDocument::NewLine() const {
    if (head_ == kNoLine || lines_[head_].ending == Ending::kNone) return Ending::kCrLf;
    return lines_[head_].ending;
}

// A new line (never empty: it holds "=" or "[") after line `after`, or first when `after` is
// kNoLine.
std::size_t ProfileDocument::InsertAfter(std::size_t after, std::string text) {
    // The line before a new line must end, even when it was the file's unterminated last line.
    if (after != kNoLine && lines_[after].ending == Ending::kNone) {
        lines_[after].ending = NewLine();
    }
    std::size_t next = after == kNoLine ? head_ : lines_[after].next;
    std::size_t index = lines_.size();
    lines_.push_back({.text = std::move(text),
                      .ending = NewLine(),
                      .edited = true,
                      .prev = after,
                      .next = next});
    (after == kNoLine ? head_ : lines_[after].next) = index;
    (next == kNoLine ? tail_ : lines_[next].prev) = index;
    JoinBlankLine(index);
    return index;
}

// Takes lines first to last (in file order) out of the list.
void ProfileDocument::Unlink(std::size_t first, std::size_t last) {
    std::size_t before = lines_[first].prev;
    std::size_t after = lines_[last].next;
    (before == kNoLine ? head_ : lines_[before].next) = after;
    (after == kNoLine ? tail_ : lines_[after].prev) = before;
}

// The document always holds the lines that reading its bytes again would give, so the bytes
// of a save do not depend on whether its edits were made one by one on the file or all on
// one document. The one place where they would differ: a line ending in a CR alone followed
// by an empty line ending in LF reads back as one line ending in CR LF (the bytes are the
// same). An edit that puts such lines next to each other joins them here.
void ProfileDocument::JoinBlankLine(std::size_t line) {
    std::size_t next = lines_[line].next;
    if (lines_[line].ending != Ending::kCr || next == kNoLine || !Text(next).empty() ||
        lines_[next].ending != Ending::kLf) {
        return;
    }
    lines_[line].ending = Ending::kCrLf;
    Unlink(next, next);  // a blank line is in no index
}

void ProfileDocument::EnsureIndex() const {
    if (indexed_) return;
    sections_.clear();
    sectionNames_.clear();
    lastSection_ = kNoLine;
    for (std::size_t line = head_; line != kNoLine; line = lines_[line].next) {
        auto name = HeaderName(Text(line));
        if (!name) continue;
        std::size_t section = sections_.size();
        sections_.push_back({.header = line, .prev = lastSection_});
        if (lastSection_ != kNoLine) sections_[lastSection_].next = section;
        lastSection_ = section;
        auto [found, added] = sectionNames_.try_emplace(std::string(*name), Named{section, 1});
        if (!added) ++found->second.count;
    }
    indexed_ = true;
}

void ProfileDocument::DropIndex() const {
    indexed_ = false;
    sections_.clear();
    sectionNames_.clear();
}

std::size_t ProfileDocument::SectionCount(std::string_view section) const {
    EnsureIndex();
    auto found = sectionNames_.find(TrimBlanks(section));
    return found == sectionNames_.end() ? 0 : found->second.count;
}

// The first section of the name (trimmed like the names in the file, so " WSX " finds
// "[WSX]"), or kNoLine.
std::size_t ProfileDocument::FindSection(std::string_view name) const {
    EnsureIndex();
    auto found = sectionNames_.find(TrimBlanks(name));
    return found == sectionNames_.end() ? kNoLine : found->second.first;
}

// The section's last line: the one before the next header, or the file's last line.
std::size_t ProfileDocument::SectionEnd(std::size_t section) const {
    std::size_t next = sections_[section].next;
    return next == kNoLine ? tail_ : lines_[sections_[next].header].prev;
}

ProfileDocument::NameIndex& ProfileDocument::KeysOf(std::size_t section) const {
    Section& indexed = sections_[section];
    if (indexed.keysIndexed) return indexed.keys;
    std::size_t end = SectionEnd(section);
    for (std::size_t line = indexed.header; line != end;) {
        line = lines_[line].next;
        auto name = KeyName(Text(line));
        if (!name) continue;
        auto [found, added] = indexed.keys.try_emplace(std::string(*name), Named{line, 1});
        if (!added) ++found->second.count;
    }
    indexed.keysIndexed = true;
    return indexed.keys;
}

std::size_t ProfileDocument::FindKey(std::size_t section, std::string_view key) const {
    NameIndex& keys = KeysOf(section);
    auto found = keys.find(TrimBlanks(key));
    return found == keys.end() ? kNoLine : found->second.first;
}

// Line `line`, just added to the section as its last key, enters the index as a re-reading
// would see it.
void ProfileDocument::IndexNewKey(std::size_t section, std::size_t line) {
    std::string_view text = Text(line);
    // A key line that reads as a header ("[a=b]" from key "[a" and value "b]") splits the
    // section: build the index again when it is next needed.
    if (HeaderName(text)) return DropIndex();
    if (!sections_[section].keysIndexed) return;
    // The key read back is not always the key written: key "a=b" gives line "a=b=..." of key
    // "a". A second key of a name comes after the first, which stays first.
    auto [found, added] =
        sections_[section].keys.try_emplace(std::string(*KeyName(text)), Named{line, 1});
    if (!added) ++found->second.count;
}

std::optional<std::string> ProfileDocument::Get(std::string_view section,
                                                std::string_view key) const {
    std::size_t found = FindSection(section);
    if (found == kNoLine) return std::nullopt;
    std::size_t line = FindKey(found, key);
    if (line == kNoLine) return std::nullopt;
    return std::string(ValueOf(Text(line)));
}

bool ProfileDocument::Set(std::string_view section, std::string_view key, std::string_view value) {
    // Nothing written may break a line: names and value end at their first CR or LF.
    value = SingleLine(value);
    section = TrimBlanks(SingleLine(section));
    key = TrimBlanks(SingleLine(key));
    std::size_t found = FindSection(section);
    if (found == kNoLine) {
        std::size_t header = InsertAfter(tail_, "[" + std::string(section) + "]");
        std::size_t line = InsertAfter(header, std::string(key) + "=" + std::string(value));
        // "[" + name + "]" reads back as a header of that very name, which was missing.
        std::size_t added = sections_.size();
        sections_.push_back({.header = header, .prev = lastSection_, .keysIndexed = true});
        if (lastSection_ != kNoLine) sections_[lastSection_].next = added;
        lastSection_ = added;
        sectionNames_.try_emplace(std::string(section), Named{added, 1});
        IndexNewKey(added, line);
        return true;
    }
    if (std::size_t line = FindKey(found, key); line != kNoLine) {
        Line& changed = lines_[line];
        std::string text = std::string(*KeyName(Text(line))) + "=" + std::string(value);
        Ending ending = NewLine();
        if (text == Text(line) && changed.ending == ending) return false;
        changed.text = std::move(text);
        changed.ending = ending;
        changed.edited = true;
        // The key stays the same; only a line that now reads as a header changes the index.
        if (HeaderName(changed.text)) DropIndex();
        JoinBlankLine(line);
        return true;
    }
    // A missing key goes after the last non-blank line of its section.
    std::size_t header = sections_[found].header;
    std::size_t last = SectionEnd(found);
    while (last != header && IsBlankLine(Text(last))) last = lines_[last].prev;
    std::size_t line = InsertAfter(last, std::string(key) + "=" + std::string(value));
    IndexNewKey(found, line);
    return true;
}

bool ProfileDocument::DeleteKey(std::string_view section, std::string_view key) {
    std::size_t found = FindSection(section);
    if (found == kNoLine) return false;
    NameIndex& keys = KeysOf(found);
    auto named = keys.find(TrimBlanks(key));
    if (named == keys.end()) return false;
    std::size_t line = named->second.first;
    std::size_t before = lines_[line].prev;
    Unlink(line, line);
    if (--named->second.count == 0) {
        keys.erase(named);
    } else {
        // The next key of the name in the section becomes the first.
        std::size_t end = SectionEnd(found);
        for (std::size_t next = before; next != end;) {
            next = lines_[next].next;
            auto name = KeyName(Text(next));
            if (name && SameTextIgnoringCase(*name, named->first)) {
                named->second.first = next;
                break;
            }
        }
    }
    JoinBlankLine(before);
    return true;
}

bool ProfileDocument::DeleteSection(std::string_view section) {
    std::size_t found = FindSection(section);
    if (found == kNoLine) return false;
    std::size_t end = SectionEnd(found);
    const Section removed = std::move(sections_[found]);  // its key index is no longer needed
    std::size_t before = lines_[removed.header].prev;
    Unlink(removed.header, end);
    if (removed.prev != kNoLine) sections_[removed.prev].next = removed.next;
    if (removed.next != kNoLine) {
        sections_[removed.next].prev = removed.prev;
    } else {
        lastSection_ = removed.prev;
    }
    auto named = sectionNames_.find(TrimBlanks(section));
    if (--named->second.count == 0) {
        sectionNames_.erase(named);
    } else {
        // The next section of the name becomes the first.
        std::size_t next = removed.next;
        while (!SameTextIgnoringCase(*HeaderName(Text(sections_[next].header)), named->first)) {
            next = sections_[next].next;
        }
        named->second.first = next;
    }
    // Without a line before it, the section was the first: the next header (or nothing)
    // now begins the file.
    if (before != kNoLine) JoinBlankLine(before);
    return true;
}

std::string ProfileDocument::Bytes() const {
    std::string bytes;
    if (encoding_ == Encoding::kAnsi || encoding_ == Encoding::kUtf8) {
        if (encoding_ == Encoding::kUtf8) bytes = kUtf8Mark;
        bytes.reserve(source_.size() + 64);
        for (std::size_t line = head_; line != kNoLine; line = lines_[line].next) {
            bytes += Text(line);
            switch (lines_[line].ending) {
                case Ending::kNone:
                    break;
                case Ending::kLf:
                    bytes += '\n';
                    break;
                case Ending::kCr:
                    bytes += '\r';
                    break;
                case Ending::kCrLf:
                    bytes += "\r\n";
                    break;
            }
        }
        return bytes;
    }
    bool bigEndian = encoding_ == Encoding::kUtf16Be;
    bytes.reserve(source_.size() + 64);
    bytes = bigEndian ? kUtf16BeMark : kUtf16LeMark;
    for (std::size_t line = head_; line != kNoLine; line = lines_[line].next) {
        const Line& written = lines_[line];
        if (written.edited) {
            for (char c : written.text) AppendUtf16(bytes, AnsiToUnicode(c), bigEndian);
        } else {
            bytes.append(source_, written.sourceBegin, written.sourceEnd - written.sourceBegin);
        }
        if (written.ending == Ending::kCr || written.ending == Ending::kCrLf) {
            AppendUtf16(bytes, u'\r', bigEndian);
        }
        if (written.ending == Ending::kLf || written.ending == Ending::kCrLf) {
            AppendUtf16(bytes, u'\n', bigEndian);
        }
    }
    return bytes + trailer_;
}

std::optional<std::string_view> ProfileLine::Key() const {
    if (header) return std::nullopt;
    return KeyName(text);
}

std::string_view ProfileLine::Value() const {
    return ValueOf(text);
}

namespace {

// The pass of ScanProfile, inlined into the one-pass lookup.
template <typename Visit>
void ScanLines(std::string_view bytes, Visit&& visit) {
    std::string decoded;  // UTF-16 files are read as the Windows-1252 text the document holds
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    } else if (bytes.starts_with(kUtf16LeMark) || bytes.starts_with(kUtf16BeMark)) {
        Utf16Units units(bytes.substr(2), bytes.starts_with(kUtf16BeMark));
        decoded = DecodeUtf16(units, 0, units.size());
        bytes = decoded;
    }
    ProfileLine line;
    SplitUnits(bytes, bytes.size(), [&](std::size_t begin, std::size_t end, int) {
        line.text = bytes.substr(begin, end - begin);
        const std::optional<std::string_view> name = HeaderName(line.text);
        line.header = name.has_value();
        if (name) line.section = *name;
        return visit(std::as_const(line));
    });
}

}  // namespace

void ScanProfile(std::string_view bytes, const ProfileLineVisitor& visit) {
    ScanLines(bytes, visit);
}

std::optional<std::string> LookUpProfileValue(std::string_view bytes, std::string_view section,
                                              std::string_view key) {
    section = TrimBlanks(section);
    key = TrimBlanks(key);
    bool inSection = false;
    std::optional<std::string> value;
    ScanLines(bytes, [&](const ProfileLine& line) {
        if (line.header) {
            if (inSection) return false;  // only the first section of the name counts
            inSection = SameTextIgnoringCase(line.section, section);
        } else if (inSection) {
            const std::optional<std::string_view> name = line.Key();
            if (name && SameTextIgnoringCase(*name, key)) {
                value = line.Value();
                return false;
            }
        }
        return true;
    });
    return value;
}

}  // namespace lumacfg::platform::posix
