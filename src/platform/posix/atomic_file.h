// Reading and replacing whole files on the host file system.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumacfg::platform::posix {

// The whole file; nullopt when it is missing, a directory or cannot be read to its end.
std::optional<std::string> ReadWholeFile(const std::string& hostPath);

// True when something (file, directory, link) is at the path.
bool HostPathExists(const std::string& hostPath);

// True when the file may be written: an existing file needs a write permission bit and write
// access (so a read-only file refuses even the super-user, as a read-only file does on the
// data system's own platform); a new file needs a writable directory.
bool MayWrite(const std::string& hostPath);

// Replaces the file with the bytes: a temporary file in the same directory, flushed, renamed
// over the old one, keeping its permissions and owner. A symbolic link stays a link: the file
// it points to is replaced. Where no temporary file can be made the file is written in place.
// False when the file may not or could not be written.
bool ReplaceFile(const std::string& hostPath, std::string_view bytes);

}  // namespace lumacfg::platform::posix
