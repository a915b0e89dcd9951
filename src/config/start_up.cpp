#include "config/start_up.h"

#include <array>
#include <optional>

#include "base/numbers.h"
#include "config/config_record.h"
#include "config/configuration_id.h"
#include "config/load_configuration.h"
#include "config/profile.h"
#include "config/run_type.h"
#include "config/save_configuration.h"
#include "config/serial_settings.h"
#include "config/station_audit.h"
#include "config/station_batch.h"
#include "config/station_location.h"
#include "integration/help.h"
#include "integration/running_programs.h"
#include "platform/services.h"
#include "racks/custom_racks.h"
#include "resources/string_table.h"

namespace lumacfg {
namespace {

constexpr std::string_view kSection = "WSX,1";
constexpr std::string_view kAutomationFile = "lumacfg.ini";
constexpr std::size_t kPresenceBuffer = 30;
constexpr std::size_t kGroupBuffer = 100;

std::string ProgramFile(std::string_view name) {
    return platform::JoinPath(platform::ProgramDirectory(), name);
}

void ShowDataSystemRunning() {
    platform::Messages().Show({LoadResString(kResExitDataSystem), LoadResString(kResWindowCaption),
                               platform::MessageIcon::Exclamation, platform::MessageButtons::Ok,
                               0});
}

Int16 ReadAutomationFlag() {
    auto read = platform::Profiles().GetString(ProgramFile(kAutomationFile), "database", "automate",
                                               "", kPresenceBuffer);
    if (read.count < 1) return 0;
    return RoundToInt16(LenientNumber(read.text)).value_or(0);
}

// The length asked of each add-on program is deliberately carried over to the next test: a
// missing program keeps the length of the one tested before it.
void DetectAddOns(ConfigRecord& record) {
    constexpr std::array<std::string_view, 3> kPrograms = {"VAPOR.EXE", "ABLATE.EXE",
                                                           "LUMADSS.EXE"};
    record.ADDON_FLAGS.fill(0);
    std::uint64_t length = 0;
    for (std::size_t i = 0; i < kPrograms.size(); ++i) {
        if (auto asked = platform::Files().FileLength(ProgramFile(kPrograms[i]))) length = *asked;
        if (length > 0) record.ADDON_FLAGS[i] = 1;
    }
}

bool StationExists() {
    std::string buffer(kPresenceBuffer, '\0');
    return ProfileGet("WSX", "Applications", "", buffer, kPresenceBuffer) >= 1;
}

// A new station: the defaults written out as a new profile, then the QC mode's run type made
// the active one.
void CreateStation() {
    SetDefaults();
    WriteInitialProfile();
    SaveConfiguration();
    PrepareRunType();
}

// The station can be read: it is found, its program directory is there, its profile, when there is
// one, can be read as a profile, and so can the registry store. A station that cannot be read is
// never replaced by a new one, nor saved with what could not be read taken as its defaults.
bool StationReadable() {
    if (!LocateStation()) return false;
    const std::string directory = platform::ProgramDirectory();
    if (auto problem = platform::DirectoryProblem(directory)) {
        platform::Failures().Report(platform::FileOperation::Read, platform::HostPath(directory),
                                    *problem);
        return false;
    }
    if (!platform::Profiles().Readable(StationProfilePath())) return false;
    // The security state is read from the registry: a registry that cannot be read would give
    // "off", and the save would store that (always-print cleared) over the station's own.
    return platform::TheRegistry().Readable();
}

// A true flag stored as -1 becomes its magnitude 1, and is published as such.
void NormaliseSecurity(ConfigRecord& record) {
    if (record.SECURITY >= 0) return;
    record.SECURITY = 1;
    ProfileDelete(kSection, "_SECURITY");
    WriteConfigurationID(1);
    record.ALWAYSPRT = -1;
    ProfileSet(kSection, "_ALWAYSPRT", "1");
}

// Whether security is on as the configuration identifier publishes it now; nullopt when the
// identifier cannot be read.
std::optional<bool> PublishedSecurity() {
    const std::int32_t state = ReadConfigurationID();
    if (state == kConfigurationIdFailed) return std::nullopt;
    return state == 1 || state == -1;  // the third state is taken as on at every start
}

// A change of the security state is told to the security library before the configuration
// that carries it is written: security set or reset, then the flag's change. False when it
// could not be recorded.
bool ReportSecurityChange(std::optional<bool> published, const ConfigRecord& record) {
    const bool on = record.SECURITY == 1;
    if (!published || *published == on) return true;
    platform::SecurityLibrary& security = platform::Security();
    if (on)
        return security.SetConfigSecurity() && security.LogSecurityFlagChange("_SECURITY 0 -> 1");
    return security.ResetConfigSecurity() && security.LogSecurityFlagChange("_SECURITY 1 -> 0");
}

// The save's changes recorded in the audit log before any file is written; false (the
// failure reported) when the log cannot be written: then nothing is saved.
bool RecordSave(const ConfigRecord& record) {
    return platform::Audit().Append(FieldChanges(StationAsLoaded(), record)) &&
           ReportSecurityChange(PublishedSecurity(), record);
}

// A text read whole into a NUL-filled buffer of 100 characters, padding included.
std::string PaddedRead(std::string_view file, std::string_view section, std::string_view key,
                       std::size_t& count) {
    auto read = platform::Profiles().GetString(file, section, key, "", kGroupBuffer);
    std::string buffer(kGroupBuffer, '\0');
    std::copy(read.text.begin(), read.text.end(), buffer.begin());
    count = read.count;
    return buffer;
}

}  // namespace

std::string RootPathOf(std::string_view programDirectory) {
    constexpr std::size_t kExeFolderLength = std::string_view("\\LUMAEXE").size();
    if (programDirectory.size() <= kExeFolderLength) return {};
    return std::string(programDirectory.substr(0, programDirectory.size() - kExeFolderLength));
}

std::int16_t UserMayEdit() {
    std::size_t count = 0;
    const std::string group = PaddedRead(StationProfilePath(), kSection, "GroupName", count);
    const std::string allowed =
        PaddedRead(ProgramFile("ACSLVL.IST"), "Lumacfg", "CONTROL\\Security", count);
    std::array<std::string, 11> names;
    int filled = count >= 1 ? SplitList(allowed, names, ",") : 0;
    // One entry more than were filled is compared; neither text is cut at its padding, so only
    // a list naming a single group can match.
    for (int i = 0; i <= filled && i < static_cast<int>(names.size()); ++i) {
        if (names[i] == group) return 1;
    }
    return 0;
}

StartUpResult StartUp(const StartUpOptions& options) {
    if (!platform::Instance().Acquire()) return StartUpResult::Refused;
    if (IsDataSystemRunning()) {
        ShowDataSystemRunning();
        return StartUpResult::Refused;
    }
    if (!StationReadable()) return StartUpResult::Failed;
    StationBatch batch;
    ConfigRecord& record = Config();
    record.AUTOMATE = ReadAutomationFlag();
    record.ROOT_PATH = RootPathOf(platform::ProgramDirectory());
    DetectAddOns(record);
    if (StationExists()) {
        LoadConfiguration();
    } else {
        CreateStation();
    }
    record.CAN_EDIT = 1;
    record.REG_DIRTY = 0;
    bool goOn = true;
    if (record.AUTOMATE < 1 && options.commandLineEmpty && record.SECURITY > 0) {
        if (platform::Logon().Logon(options.mainWindow, "LUMACFG") != 0) goOn = false;
        record.CAN_EDIT = UserMayEdit();
    }
    NormaliseSecurity(record);
    RememberStationAsLoaded(record);
    return goOn ? StartUpResult::Continue : StartUpResult::Refused;
}

bool InSetUpMode() {
    return Config().AUTOMATE >= 1;
}

std::vector<platform::FileFailure> CloseStation() {
    StationBatch batch;
    ConfigRecord& record = Config();
    if (record.SAVE_REQ == 1) {
        if (!RecordSave(record)) return platform::Failures().Take();
        // After Reset to Default the station is registered anew: the rows a new station's
        // profile starts with, then the configuration saved over them.
        if (record.REG_DIRTY == 1) WriteInitialProfile();
        SaveConfiguration();
        if (record.ALS_TYPE == 1) SaveCurrentTray();
        WriteComPortSettings();
    }
    if (InSetUpMode()) {
        platform::Profiles().WriteString(ProgramFile(kAutomationFile), "database", "automate",
                                         std::nullopt);
        PrepareRunType();
    } else if (record.SAVE_REQ == 1) {
        PrepareRunType();
    }
    batch.End();
    CloseHelp();
    return platform::Failures().Take();
}

}  // namespace lumacfg
