// File systems made for a test and taken away after it: a read-only view of a directory or a
// file, or a small tmpfs that fills up. Mounting needs the right to mount (CI runs as root);
// where it is missing, Ok() is false and the test says why it skips.
#pragma once

#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

namespace lumacfg::support {

class ScopedMount {
  public:
    // The directory or file at `path`, seen read-only at the same path.
    static ScopedMount ReadOnly(const std::filesystem::path& path) {
        ScopedMount mount(path);
        if (::mount(path.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) != 0) {
            return mount.Failed();
        }
        mount.mounted_ = true;
        if (::mount(nullptr, path.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) !=
            0) {
            return mount.Failed();
        }
        return mount;
    }

    // A tmpfs at `directory` (made when missing) with these options ("size=64k",
    // "nr_inodes=8"...).
    static ScopedMount Tmpfs(const std::filesystem::path& directory, const std::string& options) {
        std::filesystem::create_directories(directory);
        ScopedMount mount(directory);
        if (::mount("tmpfs", directory.c_str(), "tmpfs", 0, options.c_str()) != 0) {
            return mount.Failed();
        }
        mount.mounted_ = true;
        return mount;
    }

    ScopedMount(ScopedMount&& other) noexcept
        : path_(std::move(other.path_)), mounted_(other.mounted_), error_(other.error_) {
        other.mounted_ = false;
    }
    ScopedMount& operator=(ScopedMount&&) = delete;
    ~ScopedMount() {
        if (mounted_) ::umount2(path_.c_str(), MNT_DETACH);
    }

    bool Ok() const { return mounted_ && error_.empty(); }
    const std::string& Error() const { return error_; }

  private:
    explicit ScopedMount(std::filesystem::path path) : path_(std::move(path)) {}
    ScopedMount Failed() {
        error_ = "cannot mount at " + path_.string() + ": " + std::strerror(errno);
        return std::move(*this);
    }

    std::filesystem::path path_;
    bool mounted_ = false;
    std::string error_;
};

}  // namespace lumacfg::support
