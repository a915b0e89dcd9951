#include "ui/main/opal_applications.h"

#include <array>

#include "base/text.h"
#include "config/profile.h"
#include "platform/services.h"

namespace lumacfg::ui {
namespace {

// Fields kept of a TAB-separated line; the rest of the line is dropped.
constexpr std::size_t kFieldSlots = 6;

std::vector<std::string> Fields(std::string_view line) {
    std::array<std::string, kFieldSlots> list;
    const int count = SplitList(line, list, "\t");
    return {list.begin(), list.begin() + count};
}

}  // namespace

std::optional<std::vector<OpalStandardApplication>> ParseMethodTable(std::string_view text) {
    const std::vector<TextLine> lines = SplitLines(text);
    auto line = lines.begin();
    while (line != lines.end() && line->content != "#STD_BEG") ++line;
    if (line == lines.end()) return std::nullopt;
    std::vector<OpalStandardApplication> applications;
    for (++line; line != lines.end() && line->content != "#STD_END"; ++line) {
        std::vector<std::string> fields = Fields(line->content);
        if (fields.size() < 2) continue;
        applications.push_back(
            {fields[0], fields[1], fields.size() > 2 ? fields[2] : std::string{}});
    }
    return applications;
}

std::optional<std::string> ParseApplicationName(std::string_view text) {
    const std::vector<TextLine> lines = SplitLines(text);
    auto line = lines.begin();
    while (line != lines.end() && line->content != "#APP_BEG") ++line;
    if (line == lines.end()) return std::nullopt;
    for (++line; line != lines.end() && line->content != "#APP_END"; ++line) {
        if (line->content.empty()) continue;
        std::vector<std::string> fields = Fields(line->content);
        if (fields.size() >= 2 && fields[0] == "AppName") return fields[1];
    }
    return std::nullopt;
}

std::string MethodTablePath() {
    return platform::ProgramDirectory() + "\\\\MPM.TBL";
}

std::string OpalFolder(std::string_view rootPath) {
    return std::string(rootPath) + "\\1\\OPAL\\";
}

const std::string& RecordedFile(const OpalStandardApplication& application) {
    return application.applicationFile.empty() ? application.channelFile
                                               : application.applicationFile;
}

std::optional<std::vector<OpalStandardApplication>> LoadStandardApplications() {
    std::optional<std::string> text = platform::Files().ReadFile(MethodTablePath());
    if (!text) return std::nullopt;
    return ParseMethodTable(*text);
}

std::vector<OpalUserApplication> LoadUserApplications(std::string_view rootPath,
                                                      std::vector<std::string>& unnamed) {
    const std::string folder = OpalFolder(rootPath);
    std::vector<OpalUserApplication> applications;
    for (const std::string& file : platform::Files().ListFiles(folder)) {
        if (!EndsWithIgnoringCase(file, ".MPU")) continue;
        std::optional<std::string> text = platform::Files().ReadFile(folder + file);
        std::optional<std::string> name = text ? ParseApplicationName(*text) : std::nullopt;
        if (name) {
            applications.push_back({file, *name});
        } else {
            unnamed.push_back(file);
        }
    }
    return applications;
}

}  // namespace lumacfg::ui
