#include "app/cli/commands.h"

#include <limits>
#include <optional>
#include <string_view>

#include "app/cli/tray_command.h"
#include "config/config_record.h"
#include "config/record_fields.h"
#include "config/start_up.h"
#include "platform/services.h"
#include "racks/custom_racks.h"

namespace lumacfg::cli {
namespace {

constexpr std::string_view kUsage =
    "usage: lumacfg-cli show | save | tray\n"
    "       lumacfg-cli profile get FILE SECTION KEY [DEFAULT]\n"
    "       lumacfg-cli profile set FILE SECTION KEY VALUE\n"
    "       lumacfg-cli profile delete FILE SECTION [KEY]\n";

int Usage(std::ostream& err) {
    err << kUsage;
    return kExitUsage;
}

// profile get|set|delete: one call of the profile engine.
int RunProfile(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.size() < 2) return Usage(err);
    const std::string& verb = args[1];
    const std::size_t count = args.size();
    auto& profiles = platform::Profiles();
    if (verb == "get" && (count == 5 || count == 6)) {
        std::string_view defaultText = count == 6 ? std::string_view(args[5]) : std::string_view{};
        auto read = profiles.GetString(args[2], args[3], args[4], defaultText,
                                       std::numeric_limits<std::size_t>::max());
        out << read.text << '\n';
        return kExitOk;
    }
    bool written = false;
    if (verb == "set" && count == 6) {
        written = profiles.WriteString(args[2], args[3], args[4], args[5]);
    } else if (verb == "delete" && (count == 4 || count == 5)) {
        std::optional<std::string_view> key;
        if (count == 5) key = args[4];
        written = profiles.WriteString(args[2], args[3], key, std::nullopt);
    } else {
        return Usage(err);
    }
    if (!written) err << "lumacfg-cli: cannot write " << args[2] << '\n';
    return kExitOk;
}

// Start-up as the window runs it, with a command line that is never empty (no logon).
bool StartStation() {
    return StartUp(StartUpOptions{.commandLineEmpty = false});
}

int RunShow(std::ostream& out) {
    if (!StartStation()) return kExitStartUpRefused;
    PrintRecord(out, Config());
    return kExitOk;
}

// What the window loads before it is shown, then what closing it writes after a Save.
int RunSave() {
    if (!StartStation()) return kExitStartUpRefused;
    (void)LoadCurrentTray();
    RackTrays().WorkingTray = RackTrays().CurrentTray;
    Config().SAVE_REQ = 1;
    CloseStation();
    return kExitOk;
}

}  // namespace

int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty()) return Usage(err);
    const std::string& command = args[0];
    if (command == "profile") return RunProfile(args, out, err);
    if (args.size() > 1) return Usage(err);
    if (command == "show") return RunShow(out);
    if (command == "save") return RunSave();
    if (command == "tray") return RunTrayCommand(out);
    return Usage(err);
}

}  // namespace lumacfg::cli
