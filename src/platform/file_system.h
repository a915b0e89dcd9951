// Files as the data system names them: texts with backslashes, matched without regard to
// case where the exact name is absent.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumacfg::platform {

class FileSystem {
  public:
    virtual ~FileSystem() = default;
    // Length of a file in bytes; nullopt when it cannot be asked (missing file).
    virtual std::optional<std::uint64_t> FileLength(std::string_view path) = 0;
    virtual bool Exists(std::string_view path) = 0;  // file or directory
    // Copies source over target, replacing it; false on any failure. A source that is there but
    // cannot be read, and a target that cannot be written, are reported to Failures().
    virtual bool CopyFile(std::string_view source, std::string_view target) = 0;
    virtual bool DeleteFile(std::string_view path) = 0;
    // Names (not paths) of the regular files of a directory, sorted by name.
    virtual std::vector<std::string> ListFiles(std::string_view directory) = 0;
    // The whole file; nullopt when it is missing (silently) or cannot be read (reported to
    // Failures()).
    virtual std::optional<std::string> ReadFile(std::string_view path) = 0;
    // Replaces a file atomically with the given bytes; false when it cannot be written
    // (reported to Failures()).
    virtual bool WriteFile(std::string_view path, std::string_view bytes) = 0;
};

// The host path of a data-system path: "\" becomes "/", and each component whose exact
// name is absent is looked up without regard to case.
std::string HostPath(std::string_view systemPath);

// The station's program directory (no trailing separator): LUMACFG_PROGRAM_DIR when set, else
// the directory the station lookup chose (UseProgramDirectory), else empty (no station known).
// Asked anew on every call.
std::string ProgramDirectory();

// LUMACFG_PROGRAM_DIR when it is set and not empty.
std::optional<std::string> ConfiguredProgramDirectory();

// Makes `directory` the program directory for the rest of the run; LUMACFG_PROGRAM_DIR still
// overrides it.
void UseProgramDirectory(std::string directory);

// Why a data-system path is not a directory that can be read ("No such file or directory",
// "Not a directory", ...), or nullopt when it is one.
std::optional<std::string> DirectoryProblem(std::string_view systemPath);

// Whether a data-system path names its folder whatever the working directory is ("/srv/plasma";
// not "plasma", nor a folder of another computer such as "C:\PLASMA").
bool IsFullPath(std::string_view systemPath);

// Creates the directory a data-system path names (its parent must be there); false, with the
// failure reported to Failures(), when it cannot be made.
bool MakeDirectory(std::string_view systemPath);

// Joins a directory and a file name with exactly one backslash.
std::string JoinPath(std::string_view directory, std::string_view name);

}  // namespace lumacfg::platform
