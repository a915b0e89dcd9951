#include "config/station_location.h"

#include "integration/vlt_settings.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

constexpr std::string_view kProgramFolder = "LUMAEXE";

StationLookup Found(std::string directory) {
    return {StationLookup::Outcome::Found, std::move(directory), {}};
}

StationLookup NotNamed(std::string path, std::string reason) {
    return {StationLookup::Outcome::NotNamed,
            {},
            {platform::FileOperation::Read, std::move(path), std::move(reason)}};
}

constexpr std::string_view kNotFullPath = "not a full path (one that starts with \"/\")";

std::string ProgramFolderOf(std::string_view dataSystemFolder) {
    return platform::HostPath(platform::JoinPath(dataSystemFolder, kProgramFolder));
}

}  // namespace

StationLookup LookUpStation() {
    if (auto configured = platform::ConfiguredProgramDirectory()) return Found(*configured);
    platform::Registry& registry = platform::TheRegistry();
    const std::string store = registry.Location();
    if (!registry.Readable()) return {StationLookup::Outcome::Unreadable, {}, {}};
    if (!platform::Files().Exists(store)) {
        return NotNamed(store,
                        "No such file or directory (the registry store names the data system's "
                        "folder; LUMACFG_PROGRAM_DIR is not set)");
    }
    const std::string path = GetDataSystemPath();
    if (path.empty()) {
        return NotNamed(store,
                        "it names no data system folder (no \"Path\" under "
                        "HKEY_LOCAL_MACHINE\\" +
                            std::string(kDataSystemKey) + ")");
    }
    if (!platform::IsFullPath(path)) {
        return NotNamed(store,
                        "its data system folder \"" + path + "\" is " + std::string(kNotFullPath));
    }
    const std::string directory = ProgramFolderOf(path);
    if (auto problem = platform::DirectoryProblem(directory)) {
        return NotNamed(directory, *problem +
                                       " (the program directory of the data system folder "
                                       "\"" +
                                       path + "\" that " + store + " names)");
    }
    return Found(directory);
}

bool LocateStation() {
    StationLookup lookup = LookUpStation();
    if (lookup.outcome == StationLookup::Outcome::NotNamed) {
        platform::Failures().Report(lookup.missing.operation, lookup.missing.path,
                                    lookup.missing.reason);
    }
    if (lookup.outcome != StationLookup::Outcome::Found) return false;
    platform::UseProgramDirectory(std::move(lookup.directory));
    return true;
}

// The key first: a store that cannot be written leaves the folder as it was.
bool RecordDataSystemFolder(std::string_view folder) {
    if (!platform::IsFullPath(folder)) {
        platform::Failures().Report(platform::FileOperation::Read, folder, kNotFullPath);
        return false;
    }
    if (auto problem = platform::DirectoryProblem(folder)) {
        platform::Failures().Report(platform::FileOperation::Read, platform::HostPath(folder),
                                    *problem);
        return false;
    }
    auto key = platform::TheRegistry().CreateKey(kDataSystemKey);
    if (!key) return false;
    const std::string programFolder = ProgramFolderOf(folder);
    if (!platform::Files().Exists(programFolder) && !platform::MakeDirectory(programFolder)) {
        return false;
    }
    if (auto problem = platform::DirectoryProblem(programFolder)) {
        platform::Failures().Report(platform::FileOperation::Read, programFolder, *problem);
        return false;
    }
    return key->SetString("Path", folder);
}

}  // namespace lumacfg
