// A temporary directory that lasts as long as its owner, and whole files read and written as
// bytes.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>

namespace lumacfg::support {

namespace fs = std::filesystem;

// Replaces the file by exactly these bytes, making its directories first.
inline void WriteBytes(const fs::path& path, const std::string& bytes) {
    if (path.has_parent_path()) fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

// The file's bytes; nothing when it cannot be opened.
inline std::optional<std::string> ReadBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// A new directory "<prefix>-XXXXXX" in the system's temporary directory, removed with all it
// holds when the object goes. A directory that cannot be made throws, which fails the test that
// wanted it; one that cannot be removed fails the test too.
class TempDir {
  public:
    explicit TempDir(const std::string& prefix = "lumacfg-test") {
        std::string pattern = (fs::temp_directory_path() / (prefix + "-XXXXXX")).string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), "mkdtemp " + pattern);
        }
        path_ = pattern;
    }
    ~TempDir() {
        std::error_code error;
        fs::remove_all(path_, error);
        if (error) ADD_FAILURE() << "cannot remove " << path_ << ": " << error.message();
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const fs::path& Path() const { return path_; }

  private:
    fs::path path_;
};

}  // namespace lumacfg::support
