// String routines on the data system's paths (drive, colon, "\" separators, 8.3 names) used
// by the file selection form and the dialogs that let the user pick files. "\" is the only
// separator; "/" is an ordinary character. Only MakePath asks about the file system, through
// the probe its caller gives it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace lumacfg {

// What the file selection form holds for these routines; the form fills it.
struct FileFormSettings {
    // Directories that have no parent, upper-cased, each with its trailing "\" ("C:\").
    std::vector<std::string> rootDirs;
    // File pattern of the current filter ("*.QCC"); gives MakePath its default extension.
    std::string defaultPattern;
    // How SameExt matches extensions: 0 or 1 when opening, 2 when saving.
    std::int16_t matchMode = 0;
};

// The settings of the program's file selection form.
FileFormSettings& FileForm();

// The path shortened for a label: unchanged when it is at most `max` bytes long, else its
// first 3 characters, "..." and its last max - 3 characters (max + 3 characters in all, which
// the labels are laid out for).
std::string LimitDirTxt(std::string_view text, std::int16_t max);

// Resolves a relative path against a base directory ending in "\": "..\" goes up one level
// (only one), ".\" stays in the base. Any other relative path, absolute ones included, gives "".
std::string AbsPath(std::string_view base, std::string_view rel,
                    const FileFormSettings& form = FileForm());

// The text after the last "\" ("" when the path ends with "\", the whole text without "\").
std::string BottomDir(std::string_view path);

// True when the last component of the path is not an 8.3 name: more than 8 characters before
// the first dot, or 4 or more after it, or 9 or more without a dot.
bool LongFileName(std::string_view path);

enum class PathStatus : std::int16_t { Exists = 0, Missing = 1, Invalid = 2 };

struct MakePathResult {
    PathStatus status;
    std::string fullPath;  // "" when Invalid
};

// Builds the full path of a file name in a directory ending in "\", adding the default
// extension of the form's pattern when the name lacks it, and tells whether it exists.
// Wildcards in the name or directory make the path invalid; a name with a drive is taken whole.
using PathProbe = std::function<bool(std::string_view path)>;
MakePathResult MakePath(std::string_view name, std::string_view dir, const PathProbe& exists,
                        const FileFormSettings& form = FileForm());

// True when the file's extension matches the pattern's under the form's matching mode.
bool SameExt(std::string_view file, std::string_view pattern,
             const FileFormSettings& form = FileForm());

// The parent directory with its trailing "\" (a trailing "\" of the path is ignored); a root
// directory of the form is its own parent; "" when there is no "\" to go up to.
std::string UpperDir(std::string_view path, const FileFormSettings& form = FileForm());

// The path with every run of "\" collapsed into one, a leading pair included.
std::string DelDupBs(std::string_view path);

// Each text up to its first NUL, a first, then b: a directory and a file name out of the
// fixed-size buffers the platform returns them in.
std::string JoinNulTerminated(std::string_view a, std::string_view b);

}  // namespace lumacfg
