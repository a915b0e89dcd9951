// Files that could not be read as their format requires, or could not be written. The file
// services report each one here as it happens; the core hands the list to the front end of the
// command or window that ran, which shows it (nothing fails silently).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumacfg::platform {

enum class FileOperation { Read, Write };

struct FileFailure {
    FileOperation operation;
    std::string path;    // the file as found on the disk
    std::string reason;  // the operating system's words, or what in the file is wrong
    bool operator==(const FileFailure&) const = default;
};

// "cannot read PATH: REASON" or "cannot write PATH: REASON".
std::string Describe(const FileFailure& failure);

// Every failure described, one line each, for a message box.
std::string DescribeAll(const std::vector<FileFailure>& failures);

class FileFailures {
  public:
    // Records a failure; the same failure reported again is kept once.
    void Report(FileOperation operation, std::string_view path, std::string_view reason);
    // The failures reported since the last Take, in the order they happened; the list is then
    // empty again.
    std::vector<FileFailure> Take();
    const std::vector<FileFailure>& Pending() const { return failures_; }

  private:
    std::vector<FileFailure> failures_;
};

}  // namespace lumacfg::platform
