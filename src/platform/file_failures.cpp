#include "platform/file_failures.h"

#include <algorithm>
#include <utility>

namespace lumacfg::platform {

std::string Describe(const FileFailure& failure) {
    const char* verb = failure.operation == FileOperation::Read ? "cannot read " : "cannot write ";
    return verb + failure.path + ": " + failure.reason;
}

std::string DescribeAll(const std::vector<FileFailure>& failures) {
    std::string text;
    for (const FileFailure& failure : failures) {
        if (!text.empty()) text += '\n';
        text += Describe(failure);
    }
    return text;
}

void FileFailures::Report(FileOperation operation, std::string_view path, std::string_view reason) {
    FileFailure failure{operation, std::string(path), std::string(reason)};
    if (std::find(failures_.begin(), failures_.end(), failure) == failures_.end()) {
        failures_.push_back(std::move(failure));
    }
}

std::vector<FileFailure> FileFailures::Take() {
    return std::exchange(failures_, {});
}

}  // namespace lumacfg::platform
