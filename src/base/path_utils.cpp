#include "base/path_utils.h"

#include <algorithm>

#include "base/text.h"

namespace lumacfg {
namespace {

constexpr char kSeparator = '\\';

bool HasWildcard(std::string_view text) {
    return text.find_first_of("?*") != text.npos;
}

bool Contains(std::string_view text, char c) {
    return text.find(c) != text.npos;
}

std::string Joined(std::string_view a, std::string_view b) {
    std::string joined(a);
    joined += b;
    return joined;
}

// The last `count` characters of the text (all of it when it is shorter).
std::string_view Right(std::string_view text, std::size_t count) {
    return text.substr(text.size() - std::min(count, text.size()));
}

bool IsRootDir(std::string_view path, const FileFormSettings& form) {
    const std::string upper = AnsiUpper(path);
    return std::find(form.rootDirs.begin(), form.rootDirs.end(), upper) != form.rootDirs.end();
}

// The extension MakePath adds: the form's pattern from its first "." on, upper-cased, when the
// pattern has a "." and does not end with one (".TXT" for "*.txt"); else "".
std::string DefaultExtension(std::string_view pattern) {
    const auto dot = pattern.find('.');
    if (dot == pattern.npos || pattern.ends_with('.')) return {};
    return AnsiUpper(pattern.substr(dot));
}

MakePathResult Probe(std::string path, const PathProbe& exists) {
    return {exists(path) ? PathStatus::Exists : PathStatus::Missing, std::move(path)};
}

// The name part SameExt compares: what follows the parent directory when there is a "\".
std::string_view NamePart(std::string_view path, const FileFormSettings& form) {
    if (!Contains(path, kSeparator)) return path;
    return path.substr(UpperDir(path, form).size());
}

// Upper-cased text after the first "."; "" without a "." or when the name ends with one.
std::string ExtensionOf(std::string_view name) {
    const auto dot = name.find('.');
    if (dot == name.npos || name.ends_with('.')) return {};
    return AnsiUpper(name.substr(dot + 1));
}

}  // namespace

FileFormSettings& FileForm() {
    static FileFormSettings settings;
    return settings;
}

std::string LimitDirTxt(std::string_view text, std::int16_t max) {
    if (max >= AnsiByteLength(text)) return std::string(text);
    // A maximum below 3 leaves no room for a tail: the head and the ellipsis only.
    const std::size_t tail = max > 3 ? static_cast<std::size_t>(max - 3) : 0;
    return Joined(text.substr(0, 3), "...") + std::string(Right(text, tail));
}

std::string AbsPath(std::string_view base, std::string_view rel, const FileFormSettings& form) {
    std::string result;
    if (rel.starts_with("..\\")) result = UpperDir(base, form) + std::string(rel.substr(3));
    if (rel.starts_with(".\\")) result = Joined(base, rel.substr(2));
    return result;
}

std::string BottomDir(std::string_view path) {
    const auto last = path.rfind(kSeparator);
    return std::string(last == path.npos ? path : path.substr(last + 1));
}

bool LongFileName(std::string_view path) {
    const std::string name = BottomDir(path);
    const auto dot = name.find('.');
    if (dot == name.npos) return name.size() >= 9;
    if (dot >= 9) return true;  // more than 8 characters before the first dot
    return name.size() - dot - 1 >= 4;
}

MakePathResult MakePath(std::string_view name, std::string_view dir, const PathProbe& exists,
                        const FileFormSettings& form) {
    const std::string joined = Joined(dir, name);
    if (HasWildcard(joined)) return {PathStatus::Invalid, {}};
    if (Contains(name, ':')) return Probe(std::string(name), exists);
    const std::string extension = DefaultExtension(form.defaultPattern);
    if (AnsiUpper(Right(name, extension.size())) == extension) return Probe(joined, exists);
    if (HasWildcard(extension) || Contains(name, kSeparator)) return {PathStatus::Invalid, {}};
    return Probe(joined + extension, exists);
}

bool SameExt(std::string_view file, std::string_view pattern, const FileFormSettings& form) {
    const std::string_view fileName = NamePart(file, form);
    const std::string_view patternName = NamePart(pattern, form);
    if (fileName.starts_with('.') || patternName.starts_with('.')) return false;
    const std::string fileExt = ExtensionOf(fileName);
    const std::string patternExt = ExtensionOf(patternName);
    switch (form.matchMode) {
        case 0:
        case 1:
            return patternExt == "*" || fileExt == patternExt;
        case 2:
            // An extension-less file matches only an extension-less pattern.
            return (!fileExt.empty() && patternExt == "*") || fileExt == patternExt;
        default:
            return false;
    }
}

std::string UpperDir(std::string_view path, const FileFormSettings& form) {
    if (path.empty()) return {};
    if (IsRootDir(path, form)) return std::string(path);
    if (path.size() < 2) return {};
    // The search starts before the last character, so a trailing "\" is passed over.
    const auto separator = path.rfind(kSeparator, path.size() - 2);
    if (separator == path.npos) return {};
    return std::string(path.substr(0, separator + 1));
}

std::string DelDupBs(std::string_view path) {
    std::string collapsed;
    for (char c : path) {
        if (c == kSeparator && !collapsed.empty() && collapsed.back() == kSeparator) continue;
        collapsed += c;
    }
    return collapsed;
}

std::string JoinNulTerminated(std::string_view a, std::string_view b) {
    return Joined(CutAtNul(a), CutAtNul(b));
}

}  // namespace lumacfg
