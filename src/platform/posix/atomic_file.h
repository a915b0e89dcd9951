// Reading and replacing whole files on the host file system.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumacfg::platform::posix {

struct FileRead {
    enum class Status { Read, Missing, Failed } status = Status::Missing;
    std::string bytes;   // the whole file when Read
    std::string reason;  // why it could not be read when Failed (the operating system's words)
};

// The whole of a regular file (a symbolic link to one included). Nothing at the path is
// Missing; a directory, a FIFO, a device or a file that cannot be read to its end is Failed,
// at once and without blocking.
FileRead ReadRegularFile(const std::string& hostPath);

// A regular file that holds the data system's text (a profile file, the registry store):
// ReadRegularFile, and Failed with the reason when its bytes cannot be read as such text
// (ProfileDocument::Problem), so that no write buries what could not be read.
FileRead ReadTextFile(const std::string& hostPath);

// True when something (file, directory, link) is at the path.
bool HostPathExists(const std::string& hostPath);

// Why ReplaceFile would refuse the path before trying to write it, or nullopt when it may be
// written: an existing file must be a regular file (or a symbolic link to one) with a write
// permission bit and write access; a new file needs a directory that may be written. The
// reasons are those ReplaceFile gives.
std::optional<std::string> WriteProblem(const std::string& hostPath);

// True when WriteProblem finds nothing.
bool MayWrite(const std::string& hostPath);

struct FileWrite {
    bool ok = false;
    std::string reason;  // why it was not written, when not ok
};

// Replaces the file with the bytes: a temporary file in the same directory, flushed, renamed
// over the old one, keeping its permissions and owner. The temporary files that writers killed
// before their rename left beside the file are removed first. A symbolic link to a regular file
// stays a link and its target is replaced; a link to anything else, or to nothing, is refused.
// Where the directory refuses a new file (no right to create one) but the file may be written, or
// where the file's owner cannot be given to a new file, the file is written in place only after
// its new size has been reserved on the disk, so a full disk fails before a byte changes.
// Where no temporary file can be made for any other reason (full disk, no free inode,
// read-only file system) nothing is written. A read-only file (no write bit) refuses even the
// super-user, as a read-only file does on the data system's own platform. Nothing but a regular
// file is ever opened for writing.
FileWrite ReplaceFile(const std::string& hostPath, std::string_view bytes);

}  // namespace lumacfg::platform::posix
