#include "integration/sibling_programs.h"

#include <algorithm>

#include "base/text.h"
#include "integration/vlt_settings.h"
#include "platform/file_system.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

constexpr std::size_t kBinPathCharacters = 255;

std::string WithBackslash(std::string folder) {
    if (!folder.ends_with('\\')) folder += '\\';
    return folder;
}

// The file of that name in the host directory, any case, with or without ".exe".
std::optional<std::string> ProgramIn(std::string hostDirectory, std::string_view name) {
    while (hostDirectory.size() > 1 && hostDirectory.back() == '/') hostDirectory.pop_back();
    std::string bare(name);
    if (EndsWithIgnoringCase(bare, ".exe")) bare.resize(bare.size() - 4);
    for (const std::string& file : platform::Files().ListFiles(hostDirectory)) {
        if (AnsiEqualNoCase(file, name) || AnsiEqualNoCase(file, bare)) {
            return hostDirectory + "/" + file;
        }
    }
    return std::nullopt;
}

}  // namespace

std::string QcProgramFolder() {
    const std::string orbit = platform::JoinPath(platform::ProgramDirectory(), "orbit.ini");
    std::string folder(CutAtNul(
        platform::Profiles().GetString(orbit, "Path", "BinPath", "", kBinPathCharacters + 1).text));
    if (!folder.empty()) return WithBackslash(folder);
    return WithBackslash(GetDataSystemPath()) + "bin\\";
}

std::optional<std::string> FindSiblingProgram(std::string_view folder, std::string_view name) {
    if (!folder.empty()) {
        if (auto found = ProgramIn(platform::HostPath(folder), name)) return found;
    }
    return ProgramIn(platform::HostPath(platform::ProgramDirectory()), name);
}

std::optional<std::string> QcConfigurationCommand(std::string_view qcModePath,
                                                  std::string_view qcModeFile) {
    const auto program = FindSiblingProgram(QcProgramFolder(), kQcConfigurationProgram);
    if (!program) return std::nullopt;
    const std::string settings =
        std::string(qcModePath) + std::string(qcModeFile) + "\\default.qc.xml";
    // The settings file as the data system names it: its programs read such paths.
    return platform::QuotedArgument(*program) + " " + platform::QuotedArgument(settings);
}

std::optional<std::string> ToolbarCommand() {
    const auto program = FindSiblingProgram({}, kToolbarProgram);
    if (!program) return std::nullopt;
    return platform::QuotedArgument(*program);
}

}  // namespace lumacfg
