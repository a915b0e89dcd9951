// Every regular file under a directory with its bytes and its time of last change: two equal
// snapshots mean that nothing was written, not even the same bytes again.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <utility>

#include "support/temp_dir.h"

namespace lumacfg::support {

using FileTimes = std::map<std::string, std::pair<std::string, std::filesystem::file_time_type>>;

// `skip` names files of the test itself (a document, a captured standard error).
template <class Skip>
FileTimes FilesWithTimes(const std::filesystem::path& root, Skip skip) {
    FileTimes files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file() || skip(entry.path())) continue;
        files[entry.path().string()] = {ReadBytes(entry.path()).value_or(""),
                                        entry.last_write_time()};
    }
    return files;
}

inline FileTimes FilesWithTimes(const std::filesystem::path& root) {
    return FilesWithTimes(root, [](const std::filesystem::path&) { return false; });
}

}  // namespace lumacfg::support
