#include "platform/posix/atomic_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "platform/posix/profile_document.h"

namespace lumacfg::platform::posix {
namespace {

std::string OsWords(int error) {
    return std::strerror(error);
}

std::string DirectoryOf(const std::string& hostPath) {
    std::size_t slash = hostPath.rfind('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return hostPath.substr(0, slash);
}

std::string BaseNameOf(const std::string& hostPath) {
    std::size_t slash = hostPath.rfind('/');
    return slash == std::string::npos ? hostPath : hostPath.substr(slash + 1);
}

// A file descriptor closed when it goes out of scope.
class Descriptor {
  public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return fd_; }
    void Reset(int fd) {
        if (fd_ >= 0) ::close(fd_);
        fd_ = fd;
    }
    explicit operator bool() const { return fd_ >= 0; }
    // Closes now, so that a failure to close (a delayed write error) can be reported.
    bool Close() {
        int fd = fd_;
        fd_ = -1;
        return ::close(fd) == 0;
    }

  private:
    int fd_;
};

const char* KindOf(mode_t mode) {
    return S_ISDIR(mode)    ? "a directory"
           : S_ISFIFO(mode) ? "a FIFO"
           : S_ISCHR(mode)  ? "a character device"
           : S_ISBLK(mode)  ? "a block device"
           : S_ISSOCK(mode) ? "a socket"
                            : "an unknown kind of file";
}

// Why something that is not a regular file is refused: "not a regular file (a FIFO)".
std::string NotRegular(mode_t mode, std::string_view via = "") {
    return "not a regular file (" + std::string(via) + KindOf(mode) + ")";
}

bool WriteAll(int fd, std::string_view bytes, off_t offset) {
    while (!bytes.empty()) {
        ssize_t written = ::pwrite(fd, bytes.data(), bytes.size(), offset);
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
        offset += written;
    }
    return true;
}

mode_t NewFileMode() {
    mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

// The file a write of the path lands on: the path itself, or the final target of a symbolic
// link (so the link stays a link).
struct Target {
    std::string path;
    bool exists = false;
    struct stat info {};
    std::optional<std::string> problem;  // why it may not be written
};

Target Resolve(const std::string& linkOrFile) {
    Target target;
    target.path = linkOrFile;
    if (::lstat(linkOrFile.c_str(), &target.info) != 0) {
        // Nothing there yet: the directory decides whether it may be made.
        if (errno != ENOENT) {
            target.problem = OsWords(errno);
        } else if (::faccessat(AT_FDCWD, DirectoryOf(linkOrFile).c_str(), W_OK | X_OK,
                               AT_EACCESS) != 0) {
            target.problem = OsWords(errno);
        }
        return target;
    }
    target.exists = true;
    if (S_ISLNK(target.info.st_mode)) {
        // A dangling link is refused rather than followed: making its target would put a new
        // station file wherever the link points, which is how a mistyped link hides.
        char* resolved = ::realpath(linkOrFile.c_str(), nullptr);
        if (resolved == nullptr) {
            target.problem = errno == ENOENT ? "a symbolic link to a missing file" : OsWords(errno);
            return target;
        }
        target.path = resolved;
        std::free(resolved);
        if (::stat(target.path.c_str(), &target.info) != 0) {
            target.problem = OsWords(errno);
            return target;
        }
        if (!S_ISREG(target.info.st_mode)) {
            target.problem = NotRegular(target.info.st_mode, "a symbolic link to ");
            return target;
        }
    }
    if (!S_ISREG(target.info.st_mode)) {
        target.problem = NotRegular(target.info.st_mode);
    } else if ((target.info.st_mode & 0222) == 0) {
        target.problem = "read-only file";
    } else if (::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0) {
        target.problem = OsWords(errno);
    }
    return target;
}

// Writes the existing file in place: its new size is reserved on the disk first, so a full
// disk refuses the write before a byte of the file changes.
FileWrite WriteInPlace(const Target& target, std::string_view bytes) {
    // O_NONBLOCK: should a FIFO have been put at the path since it was looked at, the open
    // neither waits for a reader nor lets a byte through (the check below refuses it).
    Descriptor fd(::open(target.path.c_str(), O_WRONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!fd) return {false, OsWords(errno)};
    struct stat info {};
    if (::fstat(fd.get(), &info) != 0) return {false, OsWords(errno)};
    if (!S_ISREG(info.st_mode)) return {false, NotRegular(info.st_mode)};
    if (info.st_ino != target.info.st_ino || info.st_dev != target.info.st_dev) {
        return {false, "the file was replaced while it was being written"};
    }
    const auto length = static_cast<off_t>(bytes.size());
    if (length > 0) {
        if (int error = ::posix_fallocate(fd.get(), 0, length); error != 0) {
            return {false, OsWords(error)};
        }
    }
    if (!WriteAll(fd.get(), bytes, 0) || ::ftruncate(fd.get(), length) != 0 ||
        ::fsync(fd.get()) != 0) {
        return {false, OsWords(errno)};
    }
    if (!fd.Close()) return {false, OsWords(errno)};
    return {true, {}};
}

void FlushDirectory(const std::string& directory) {
    Descriptor dir(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir) (void)::fsync(dir.get());
}

// Opens a regular file for reading without opening anything else: the path is first opened
// as a mere location (O_PATH opens no device and no FIFO), looked at, and only a regular file
// is then opened for reading through that location.
FileRead OpenForReading(const std::string& hostPath, Descriptor& fd, struct stat& info) {
    Descriptor location(::open(hostPath.c_str(), O_PATH | O_CLOEXEC));
    if (!location) {
        if (errno == ENOENT) return {FileRead::Status::Missing, {}, {}};
        return {FileRead::Status::Failed, {}, OsWords(errno)};
    }
    if (::fstat(location.get(), &info) != 0) return {FileRead::Status::Failed, {}, OsWords(errno)};
    if (!S_ISREG(info.st_mode)) return {FileRead::Status::Failed, {}, NotRegular(info.st_mode)};
    std::string self = "/proc/self/fd/" + std::to_string(location.get());
    fd.Reset(::open(self.c_str(), O_RDONLY | O_CLOEXEC));
    if (!fd && errno == ENOENT) {
        // No /proc: open the path itself, without waiting should it no longer be a regular
        // file, and make sure it is still the file looked at.
        fd.Reset(::open(hostPath.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
        struct stat now {};
        if (fd && (::fstat(fd.get(), &now) != 0 || now.st_ino != info.st_ino ||
                   now.st_dev != info.st_dev)) {
            return {FileRead::Status::Failed, {}, "the file was replaced while it was being read"};
        }
    }
    if (!fd) return {FileRead::Status::Failed, {}, OsWords(errno)};
    return {FileRead::Status::Read, {}, {}};
}

// The name of a temporary file beside the file `base` starts with ".<base>.lumacfg-", then
// the writer's process id, "-" and a unique suffix: a later writer can tell whose it is.
std::string TemporaryPrefix(const std::string& base) {
    return "." + base + ".lumacfg-";
}

// True when the temporary file (its name after the prefix) was left by a process that no longer
// runs: a writer killed between making the file and renaming it.
bool LeftByEndedWriter(std::string_view afterPrefix) {
    const std::size_t dash = afterPrefix.find('-');
    if (dash == 0 || dash == std::string_view::npos) return false;
    pid_t pid = 0;
    for (char c : afterPrefix.substr(0, dash)) {
        if (c < '0' || c > '9' || pid > 4'000'000) return false;
        pid = pid * 10 + (c - '0');
    }
    return ::kill(pid, 0) != 0 && errno == ESRCH;
}

// Removes the temporary files that ended writers left beside the file; a running writer's
// file is left alone.
void RemoveLeftTemporaries(const std::string& directory, const std::string& base) {
    DIR* listing = ::opendir(directory.c_str());
    if (listing == nullptr) return;
    const std::string prefix = TemporaryPrefix(base);
    while (const dirent* entry = ::readdir(listing)) {
        const std::string_view name = entry->d_name;
        if (name.starts_with(prefix) && LeftByEndedWriter(name.substr(prefix.size()))) {
            ::unlinkat(::dirfd(listing), entry->d_name, 0);
        }
    }
    ::closedir(listing);
}

}  // namespace

FileRead ReadRegularFile(const std::string& hostPath) {
    Descriptor fd;
    struct stat info {};
    FileRead opened = OpenForReading(hostPath, fd, info);
    if (opened.status != FileRead::Status::Read) return opened;
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(info.st_size));
    std::vector<char> chunk(1 << 16);
    for (;;) {
        ssize_t got = ::read(fd.get(), chunk.data(), chunk.size());
        if (got < 0 && errno == EINTR) continue;
        // Part of a file is not the file.
        if (got < 0) return {FileRead::Status::Failed, {}, OsWords(errno)};
        if (got == 0) break;
        bytes.append(chunk.data(), static_cast<std::size_t>(got));
    }
    return {FileRead::Status::Read, std::move(bytes), {}};
}

FileRead ReadTextFile(const std::string& hostPath) {
    FileRead read = ReadRegularFile(hostPath);
    if (read.status != FileRead::Status::Read) return read;
    if (std::optional<std::string> problem = ProfileDocument::Problem(read.bytes)) {
        return {FileRead::Status::Failed, {}, std::move(*problem)};
    }
    return read;
}

bool HostPathExists(const std::string& hostPath) {
    struct stat info {};
    return ::lstat(hostPath.c_str(), &info) == 0;
}

std::optional<std::string> WriteProblem(const std::string& hostPath) {
    return Resolve(hostPath).problem;
}

bool MayWrite(const std::string& hostPath) {
    return !WriteProblem(hostPath);
}

FileWrite ReplaceFile(const std::string& linkOrFile, std::string_view bytes) {
    const Target target = Resolve(linkOrFile);
    if (target.problem) return {false, *target.problem};

    const std::string directory = DirectoryOf(target.path);
    const std::string base = BaseNameOf(target.path);
    RemoveLeftTemporaries(directory, base);
    std::string tempPath =
        directory + "/" + TemporaryPrefix(base) + std::to_string(::getpid()) + "-XXXXXX";
    Descriptor fd(::mkostemp(tempPath.data(), O_CLOEXEC));
    if (!fd) {
        int error = errno;
        // The directory refuses a new file, but the file itself may be written.
        if (target.exists && (error == EACCES || error == EPERM)) {
            return WriteInPlace(target, bytes);
        }
        return {false, OsWords(error)};
    }
    auto discard = [&](int error) {
        ::unlink(tempPath.c_str());
        return FileWrite{false, OsWords(error)};
    };

    if (target.exists) {
        // The owner first: a change of owner clears the set-id bits that the mode restores.
        if (::fchown(fd.get(), target.info.st_uid, target.info.st_gid) != 0) {
            // Another's file that this user may write: a new file would change hands, so the
            // file is written where it is instead.
            int error = errno;
            ::unlink(tempPath.c_str());
            if (error == EPERM) return WriteInPlace(target, bytes);
            return {false, OsWords(error)};
        }
        if (::fchmod(fd.get(), target.info.st_mode & 07777) != 0) return discard(errno);
    } else if (::fchmod(fd.get(), NewFileMode()) != 0) {
        return discard(errno);
    }
    if (!WriteAll(fd.get(), bytes, 0) || ::fsync(fd.get()) != 0) return discard(errno);
    if (!fd.Close()) return discard(errno);
    if (::rename(tempPath.c_str(), target.path.c_str()) != 0) return discard(errno);
    FlushDirectory(directory);
    return {true, {}};
}

}  // namespace lumacfg::platform::posix
