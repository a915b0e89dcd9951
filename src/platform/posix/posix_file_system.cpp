// Files as the data system names them, on the host: paths resolved without regard to case, and
// the file service, which reports what it cannot read or write.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "base/text.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/services.h"

namespace lumacfg::platform {
namespace {

bool PathExists(const std::string& hostPath) {
    struct stat info {};
    return ::lstat(hostPath.c_str(), &info) == 0;
}

// The entry of `directory` named `component` without regard to case (the smallest such name
// when several differ only in case), or nullopt.
std::optional<std::string> FindIgnoringCase(const std::string& directory,
                                            std::string_view component) {
    DIR* dir = ::opendir(directory.empty() ? "." : directory.c_str());
    if (!dir) return std::nullopt;
    std::optional<std::string> found;
    while (const dirent* entry = ::readdir(dir)) {
        std::string_view name = entry->d_name;
        if (SameTextIgnoringCase(name, component) && (!found || name < *found)) {
            found = std::string(name);
        }
    }
    ::closedir(dir);
    return found;
}

}  // namespace

std::string HostPath(std::string_view systemPath) {
    // The components as the system names them, separators made "/" and repeated ones dropped.
    std::string path;
    path.reserve(systemPath.size());
    for (char c : systemPath) {
        if (c == '\\') c = '/';
        if (c == '/' && !path.empty() && path.back() == '/') continue;
        path += c;
    }
    // Where the path is there as spelt (the usual case), one look settles it.
    if (path.empty() || PathExists(path)) return path;

    std::string resolved;
    std::size_t start = 0;
    if (path[0] == '/') {
        resolved = "/";
        start = 1;
    }
    bool parentExists = true;
    while (start < path.size()) {
        std::size_t slash = path.find('/', start);
        std::string component =
            path.substr(start, slash == std::string::npos ? std::string::npos : slash - start);
        if (parentExists && !PathExists(resolved + component)) {
            if (auto match = FindIgnoringCase(resolved.empty() ? "." : resolved, component)) {
                component = *match;
            } else {
                parentExists = false;
            }
        }
        resolved += component;
        if (slash == std::string::npos) break;
        resolved += '/';
        start = slash + 1;
    }
    return resolved;
}

namespace {

std::string& LocatedProgramDirectory() {
    static std::string located;
    return located;
}

}  // namespace

std::optional<std::string> ConfiguredProgramDirectory() {
    const char* configured = std::getenv("LUMACFG_PROGRAM_DIR");
    if (configured == nullptr || *configured == '\0') return std::nullopt;
    return std::string(configured);
}

void UseProgramDirectory(std::string directory) {
    LocatedProgramDirectory() = std::move(directory);
}

std::string ProgramDirectory() {
    std::string directory = ConfiguredProgramDirectory().value_or(LocatedProgramDirectory());
    while (directory.size() > 1 && (directory.back() == '/' || directory.back() == '\\')) {
        directory.pop_back();
    }
    return directory;
}

std::string JoinPath(std::string_view directory, std::string_view name) {
    std::string path(directory);
    if (path.empty() || (path.back() != '\\' && path.back() != '/')) path += '\\';
    path += name;
    return path;
}

namespace posix {
namespace {

class PosixFileSystem final : public FileSystem {
  public:
    std::optional<std::uint64_t> FileLength(std::string_view path) override {
        struct stat info {};
        if (::stat(HostPath(path).c_str(), &info) != 0 || !S_ISREG(info.st_mode)) {
            return std::nullopt;
        }
        return static_cast<std::uint64_t>(info.st_size);
    }

    bool Exists(std::string_view path) override {
        struct stat info {};
        return ::stat(HostPath(path).c_str(), &info) == 0;
    }

    bool CopyFile(std::string_view source, std::string_view target) override {
        std::optional<std::string> bytes = ReadFile(source);
        return bytes && WriteFile(target, *bytes);
    }

    bool DeleteFile(std::string_view path) override {
        return ::unlink(HostPath(path).c_str()) == 0;
    }

    std::vector<std::string> ListFiles(std::string_view directory) override {
        std::vector<std::string> names;
        std::string host = HostPath(directory);
        DIR* dir = ::opendir(host.empty() ? "." : host.c_str());
        if (!dir) return names;
        while (const dirent* entry = ::readdir(dir)) {
            struct stat info {};
            std::string full =
                host + (host.empty() || host.back() == '/' ? "" : "/") + entry->d_name;
            if (::stat(full.c_str(), &info) == 0 && S_ISREG(info.st_mode)) {
                names.emplace_back(entry->d_name);
            }
        }
        ::closedir(dir);
        std::sort(names.begin(), names.end());
        return names;
    }

    // A missing file is the caller's business; one that is there but cannot be read, or
    // cannot be written, is reported.
    std::optional<std::string> ReadFile(std::string_view path) override {
        std::string host = HostPath(path);
        FileRead read = ReadRegularFile(host);
        if (read.status == FileRead::Status::Read) return std::move(read.bytes);
        if (read.status == FileRead::Status::Failed) {
            Failures().Report(FileOperation::Read, host, read.reason);
        }
        return std::nullopt;
    }

    bool WriteFile(std::string_view path, std::string_view bytes) override {
        std::string host = HostPath(path);
        FileWrite written = ReplaceFile(host, bytes);
        if (!written.ok) Failures().Report(FileOperation::Write, host, written.reason);
        return written.ok;
    }
};

}  // namespace

std::unique_ptr<FileSystem> MakeFileSystem() {
    return std::make_unique<PosixFileSystem>();
}

}  // namespace posix
}  // namespace lumacfg::platform
