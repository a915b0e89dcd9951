#include "app/cli/commands.h"

#include <functional>
#include <limits>
#include <optional>
#include <string_view>

#include "app/cli/apply_command.h"
#include "app/cli/audit_command.h"
#include "app/cli/custrack_command.h"
#include "app/cli/export_command.h"
#include "app/cli/notify_command.h"
#include "app/cli/set_command.h"
#include "app/cli/tray_command.h"
#include "config/config_record.h"
#include "config/record_fields.h"
#include "config/start_up.h"
#include "config/station_batch.h"
#include "platform/services.h"
#include "racks/custom_racks.h"

namespace lumacfg::cli {
namespace {

constexpr std::string_view kUsage =
    "usage: lumacfg-cli show | save | tray\n"
    "       lumacfg-cli set [--dry-run] NAME=VALUE ...\n"
    "       lumacfg-cli reset [--dry-run]\n"
    "       lumacfg-cli export | apply [--dry-run] [--json] FILE|-\n"
    "       lumacfg-cli profile get FILE SECTION KEY [DEFAULT]\n"
    "       lumacfg-cli profile set FILE SECTION KEY VALUE\n"
    "       lumacfg-cli profile delete FILE SECTION [KEY]\n"
    "       lumacfg-cli custrack list\n"
    "       lumacfg-cli custrack [--dry-run] new tray|rack [KEY=VALUE ...]\n"
    "       lumacfg-cli custrack [--dry-run] copy SECTION [KEY=VALUE ...]\n"
    "       lumacfg-cli custrack [--dry-run] set SECTION KEY=VALUE ...\n"
    "       lumacfg-cli custrack [--dry-run] delete SECTION\n"
    "       lumacfg-cli notify QCFILE FOLDER FILE | notify TOOLBAR\n"
    "       lumacfg-cli audit verify [FILE] | audit show [FILE]\n"
    "       lumacfg-cli --help | --version\n";

int Usage(std::ostream& err) {
    err << kUsage;
    return kExitUsage;
}

// Runs a command in one batch, so each file it changes is written once, after all its changes;
// then reports what could not be read or written.
int InOneBatch(const std::function<int()>& command, std::ostream& err) {
    int exit = kExitOk;
    {
        StationBatch batch;
        exit = command();
        batch.End();
    }
    return WithFailures(exit, platform::Failures().Take(), err);
}

constexpr std::size_t kWholeValue = std::numeric_limits<std::size_t>::max();

// A key's value as `profile get` prints it; nullopt when the file, section or key is not there
// (a missing key answers each of two defaults with itself).
std::optional<std::string> StoredValue(std::string_view file, std::string_view section,
                                       std::string_view key) {
    auto& profiles = platform::Profiles();
    platform::ProfileRead read = profiles.GetString(file, section, key, "0", kWholeValue);
    if (read.text == "0" && profiles.GetString(file, section, key, "1", kWholeValue).text == "1") {
        return std::nullopt;
    }
    return std::move(read.text);
}

// A change `profile set|delete` is about to make, recorded in the audit log before the file is
// written: the file, the section, the key (none: the whole section deleted), the value before
// (none: the key was not there) and after (none: the key deleted). A change that changes
// nothing is not recorded. False when the log cannot be written (the failure reported).
bool RecordProfileChange(std::string_view file, std::string_view section,
                         std::optional<std::string_view> key,
                         std::optional<std::string_view> value) {
    JsonMembers details = {{"file", platform::HostPath(file)}, {"section", std::string(section)}};
    if (!key) {
        if (platform::Profiles().SectionCount(file, section) == 0) return true;
    } else {
        const std::optional<std::string> old = StoredValue(file, section, *key);
        if (old == value) return true;
        details.emplace_back("key", std::string(*key));
        if (old) details.emplace_back("old", *old);
        if (value) details.emplace_back("new", std::string(*value));
    }
    return platform::Audit().Append({{"profile-changed", std::move(details)}});
}

// One write of the profile engine, recorded in the audit log first; nothing is written when
// it cannot be recorded.
void ChangeProfile(std::string_view file, std::string_view section,
                   std::optional<std::string_view> key, std::optional<std::string_view> value) {
    if (RecordProfileChange(file, section, key, value)) {
        platform::Profiles().WriteString(file, section, key, value);
    }
}

// profile get|set|delete: one call of the profile engine; a set or delete recorded first.
int RunProfile(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.size() < 2) return Usage(err);
    const std::string& verb = args[1];
    const std::size_t count = args.size();
    if (verb == "get" && (count == 5 || count == 6)) {
        std::string_view defaultText = count == 6 ? std::string_view(args[5]) : std::string_view{};
        auto read =
            platform::Profiles().GetString(args[2], args[3], args[4], defaultText, kWholeValue);
        out << read.text << '\n';
    } else if (verb == "set" && count == 6) {
        ChangeProfile(args[2], args[3], args[4], args[5]);
    } else if (verb == "delete" && (count == 4 || count == 5)) {
        std::optional<std::string_view> key;
        if (count == 5) key = args[4];
        ChangeProfile(args[2], args[3], key, std::nullopt);
    } else {
        return Usage(err);
    }
    return WithFailures(kExitOk, platform::Failures().Take(), err);
}

int RunShow(std::ostream& out, std::ostream& err) {
    if (int refused = StartStation(err); refused != kExitOk) return refused;
    PrintRecord(out, Config());
    return kExitOk;
}

// What the window loads before it is shown, then what closing it writes after a Save.
int RunSave(std::ostream& err) {
    if (int refused = StartStation(err); refused != kExitOk) return refused;
    LoadTraySelection();
    Config().SAVE_REQ = 1;
    for (const platform::FileFailure& failure : CloseStation()) {
        // Kept for the report at the end of the command, with the failures of its writes.
        platform::Failures().Report(failure.operation, failure.path, failure.reason);
    }
    return kExitOk;
}

// set and reset: "--dry-run" may stand anywhere after the command.
int RunEditCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    bool dryRun = false;
    std::vector<std::string> rest;
    for (std::size_t i = 1; i < args.size(); ++i) {
        if (args[i] == "--dry-run") {
            dryRun = true;
        } else {
            rest.push_back(args[i]);
        }
    }
    if (args[0] == "reset") return rest.empty() ? RunReset(dryRun, out, err) : Usage(err);
    return rest.empty() ? Usage(err) : RunSet(rest, dryRun, out, err);
}

}  // namespace

int WithFailures(int exit, const std::vector<platform::FileFailure>& failures, std::ostream& err) {
    for (const platform::FileFailure& failure : failures) {
        err << "lumacfg-cli: " << platform::Describe(failure) << '\n';
    }
    return exit == kExitOk && !failures.empty() ? kExitFileFailed : exit;
}

void LoadTraySelection() {
    (void)LoadCurrentTray();
    RackTrays().WorkingTray = RackTrays().CurrentTray;
}

int StartStation(std::ostream& err) {
    if (!platform::Instance().Acquire()) {
        err << "lumacfg-cli: another copy of lumacfg or lumacfg-cli is running; try again when it "
               "has ended\n";
        return kExitStartUpRefused;
    }
    switch (StartUp(StartUpOptions{.commandLineEmpty = false})) {
        case StartUpResult::Continue:
            return kExitOk;
        case StartUpResult::Refused:
            return kExitStartUpRefused;
        case StartUpResult::Failed:
            return kExitFileFailed;
    }
    return kExitFileFailed;
}

int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty()) return Usage(err);
    const std::string& command = args[0];
    if (command == "profile") return RunProfile(args, out, err);
    if (command == "set" || command == "reset") return RunEditCommand(args, out, err);
    if (command == "apply") {
        const auto options = ParseApplyOptions({args.begin() + 1, args.end()});
        return options ? RunApply(*options, out, err) : Usage(err);
    }
    if (command == "custrack") {
        const int exit = RunCustrack({args.begin() + 1, args.end()}, out, err);
        return exit == kExitUsage ? Usage(err) : exit;
    }
    if (command == "notify") {
        const int exit = RunNotify({args.begin() + 1, args.end()}, err);
        return exit == kExitUsage ? Usage(err) : exit;
    }
    if (command == "audit") {
        const int exit = RunAudit({args.begin() + 1, args.end()}, out, err);
        return exit == kExitUsage ? Usage(err) : exit;
    }
    if (args.size() > 1) return Usage(err);
    if (command == "--help") {
        out << kUsage;
        return kExitOk;
    }
    if (command == "--version") {
        out << "lumacfg-cli " LUMACFG_VERSION "\n";
        return kExitOk;
    }
    if (command == "show") return InOneBatch([&] { return RunShow(out, err); }, err);
    if (command == "save") return InOneBatch([&] { return RunSave(err); }, err);
    if (command == "export") return InOneBatch([&] { return RunExport(out, err); }, err);
    if (command == "tray") return InOneBatch([&] { return RunTrayCommand(out); }, err);
    return Usage(err);
}

}  // namespace lumacfg::cli
