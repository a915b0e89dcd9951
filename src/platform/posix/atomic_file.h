// Reading and replacing whole files on the host file system.
#pragma once

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

// True when something (file, directory, link) is at the path.
bool HostPathExists(const std::string& hostPath);

// True when the file may be written: an existing file needs a write permission bit and write
// access; a new file needs a writable directory.
bool MayWrite(const std::string& hostPath);

struct FileWrite {
    bool ok = false;
    std::string reason;  // why it was not written, when not ok
};

// Replaces the file with the bytes: a temporary file in the same directory, flushed, renamed
// over the old one, keeping its permissions and owner. A symbolic link to a regular file stays
// a link and its target is replaced; a link to anything else is refused. Where the directory
// refuses a new file but the file may be written, the file is written in place only after its
// new size has been reserved; otherwise nothing is written. A read-only file (no write bit)
// refuses even the super-user, as a read-only file does on the data system's own platform.
FileWrite ReplaceFile(const std::string& hostPath, std::string_view bytes);

}  // namespace lumacfg::platform::posix
