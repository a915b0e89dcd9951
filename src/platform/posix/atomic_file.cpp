#include "platform/posix/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace lumacfg::platform::posix {
namespace {

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

bool WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

mode_t NewFileMode() {
    mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

bool WriteInPlace(const std::string& hostPath, std::string_view bytes) {
    int fd = ::open(hostPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) return false;
    bool ok = WriteAll(fd, bytes) && ::fsync(fd) == 0;
    return ::close(fd) == 0 && ok;
}

}  // namespace

FileRead ReadRegularFile(const std::string& hostPath) {
    int fd = ::open(hostPath.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) {
        if (errno == ENOENT) return {FileRead::Status::Missing, {}, {}};
        return {FileRead::Status::Failed, {}, std::strerror(errno)};
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        ::close(fd);
        return {FileRead::Status::Failed, {}, "not a regular file"};
    }
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(info.st_size));
    std::vector<char> chunk(1 << 16);
    for (;;) {
        ssize_t got = ::read(fd, chunk.data(), chunk.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            std::string reason = std::strerror(errno);
            ::close(fd);
            return {FileRead::Status::Failed, {}, reason};  // part of a file is not the file
        }
        if (got == 0) break;
        bytes.append(chunk.data(), static_cast<std::size_t>(got));
    }
    ::close(fd);
    return {FileRead::Status::Read, std::move(bytes), {}};
}

bool HostPathExists(const std::string& hostPath) {
    struct stat info {};
    return ::lstat(hostPath.c_str(), &info) == 0;
}

bool MayWrite(const std::string& hostPath) {
    struct stat info {};
    if (::stat(hostPath.c_str(), &info) == 0) {
        if (S_ISDIR(info.st_mode)) return false;
        return (info.st_mode & 0222) != 0 && ::access(hostPath.c_str(), W_OK) == 0;
    }
    return ::access(DirectoryOf(hostPath).c_str(), W_OK) == 0;
}

FileWrite ReplaceFile(const std::string& linkOrFile, std::string_view bytes) {
    if (!MayWrite(linkOrFile)) return {false, "permission denied"};
    // Renaming over a symbolic link would replace the link; replace the file it names.
    std::string hostPath = linkOrFile;
    struct stat link {};
    if (::lstat(linkOrFile.c_str(), &link) == 0 && S_ISLNK(link.st_mode)) {
        if (char* target = ::realpath(linkOrFile.c_str(), nullptr)) {
            hostPath = target;
            std::free(target);
        }
    }
    struct stat old {};
    bool existed = ::stat(hostPath.c_str(), &old) == 0;

    std::string tempPath = DirectoryOf(hostPath) + "/." + BaseNameOf(hostPath) + ".XXXXXX";
    int fd = ::mkstemp(tempPath.data());
    if (fd < 0) {
        if (WriteInPlace(hostPath, bytes)) return {true, {}};
        return {false, std::strerror(errno)};
    }

    bool ok = WriteAll(fd, bytes);
    if (existed) {
        ok = ok && ::fchmod(fd, old.st_mode & 07777) == 0;
        (void)::fchown(fd, old.st_uid, old.st_gid);  // only the super-user can; best effort
    } else {
        ok = ok && ::fchmod(fd, NewFileMode()) == 0;
    }
    ok = ok && ::fsync(fd) == 0;
    ok = (::close(fd) == 0) && ok;
    ok = ok && ::rename(tempPath.c_str(), hostPath.c_str()) == 0;
    if (!ok) {
        std::string reason = std::strerror(errno);
        ::unlink(tempPath.c_str());
        return {false, reason};
    }
    int dir = ::open(DirectoryOf(hostPath).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        (void)::fsync(dir);
        ::close(dir);
    }
    return {true, {}};
}

}  // namespace lumacfg::platform::posix
