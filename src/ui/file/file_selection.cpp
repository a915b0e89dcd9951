#include "ui/file/file_selection.h"

#include "base/numbers.h"
#include "base/path_utils.h"
#include "base/text.h"
#include "integration/dialog_placement.h"
#include "platform/file_system.h"

namespace lumacfg::ui {
namespace {

// A text put into a fixed buffer: cut at its first NUL and at the buffer's size.
std::string InBuffer(std::string_view text) {
    return std::string(CutAtNul(text).substr(0, kFileBufferCharacters));
}

// The chooser's directory in the data system's form: the caller's own text when the user stayed
// there, else the host directory ending in the data system's separator.
std::string WithoutTrailingSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

std::string SystemDirectory(const std::string& chosen, const std::string& initial) {
    if (!initial.empty() &&
        WithoutTrailingSlash(chosen) == WithoutTrailingSlash(platform::HostPath(initial))) {
        return initial;
    }
    if (chosen.empty() || chosen.ends_with('\\')) return chosen;
    return chosen + "\\";
}

}  // namespace

void FileSelectionActivated(platform::WindowHandle window) {
    PlaceDialog(0, window, 0);
}

std::string NormalisePattern(std::string_view pattern) {
    for (std::string_view any : {"", ".*", "*.", "*.*", "*"}) {
        if (pattern == any) return "*.*";
    }
    return std::string(pattern);
}

std::int16_t FileSelection::NbFileSelect(std::string& target, std::int16_t mode,
                                         std::string_view fileName, std::string_view directory,
                                         std::string_view caption, std::string_view pattern) {
    return Select(target, mode, false, fileName, directory, caption.empty() ? "Open File" : caption,
                  pattern);
}

std::int16_t FileSelection::NbFileSelect_Save(std::string& target, std::string_view mode,
                                              std::string_view fileName, std::string_view directory,
                                              std::string_view caption, std::string_view pattern) {
    return Select(target, LenientInt16(mode), true, fileName, directory,
                  caption.empty() ? "Save File" : caption, pattern);
}

std::int16_t FileSelection::Select(std::string& target, std::int16_t mode, bool save,
                                   std::string_view fileName, std::string_view directory,
                                   std::string_view caption, std::string_view pattern) {
    request_ = FileRequest{std::string(caption), NormalisePattern(pattern), InBuffer(fileName),
                           InBuffer(directory), 0};
    initialDirectory_ = request_.directory;
    mode_ = mode;
    save_ = save;
    outcome_ = 0;
    FileForm().defaultPattern = request_.pattern;
    FileForm().matchMode = save ? 2 : 0;
    RunHost();
    if (outcome_ == 1 || outcome_ == 2) {
        target = JoinNulTerminated(request_.directory, request_.fileName);
        return kFileChosen;
    }
    return outcome_ == 0 ? kFileCancelled : kFileUnknownOutcome;
}

// The host form: the kind from the save flag and the mode; a mode other than 1 or 2 shows no
// dialog and ends as a cancel.
void FileSelection::RunHost() {
    if (mode_ != 1 && mode_ != 2) return;
    const auto kind = static_cast<SelectKind>(mode_ + (save_ ? 2 : 0));
    request_.directory = platform::HostPath(request_.directory);
    outcome_ = chooser_.SelectFile(0, kind, request_);
    request_.fileName = InBuffer(request_.fileName);
    request_.directory = InBuffer(SystemDirectory(request_.directory, initialDirectory_));
}

}  // namespace lumacfg::ui
