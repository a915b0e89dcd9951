#include "integration/help.h"

#include <algorithm>

#include "base/text.h"
#include "integration/vlt_settings.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

namespace compiled = platform::compiled_help;
namespace classic = platform::classic_help;

constexpr std::string_view kSettingsSection = "WSX,1";
constexpr std::string_view kAbsent = "ERR";
constexpr std::size_t kSettingBuffer = 256;
constexpr std::string_view kDefaultHelpFile = "luma-ms.chm";

std::string WithTrailingBackslash(std::string directory) {
    if (!directory.ends_with('\\')) directory += '\\';
    return directory;
}

// A help setting of "lumagen.ist"; nullopt when it is absent (read as "ERR").
std::optional<std::string> ReadHelpSetting(const std::string& settingsFile, std::string_view key) {
    std::string value = platform::Profiles()
                            .GetString(settingsFile, kSettingsSection, key, kAbsent, kSettingBuffer)
                            .text;
    value.resize(std::min(value.size(), value.find('\0')));
    if (value == kAbsent) return std::nullopt;
    return value;
}

void CloseAllCompiledHelp() {
    platform::Help().CompiledHelp(0, {}, compiled::kCloseAll, 0);
}

}  // namespace

HelpState& TheHelpState() {
    static HelpState state;
    return state;
}

std::optional<std::string> ResolveHelpFile() {
    std::string root = GetDataSystemPath();
    if (root.empty()) return std::nullopt;
    std::string settingsFile = WithTrailingBackslash(root) + "lumaexe\\lumagen.ist";
    std::string path = ReadHelpSetting(settingsFile, "_HELPPATH$").value_or("");
    std::string name =
        ReadHelpSetting(settingsFile, "_HELPFILE$").value_or(std::string(kDefaultHelpFile));
    // A bare name is found by the platform's search rules.
    return path.empty() ? name : WithTrailingBackslash(path) + name;
}

std::uint32_t CompiledHelpCommand(std::uint32_t classicCommand) {
    switch (classicCommand) {
        case classic::kContext:
            return compiled::kHelpContext;
        case classic::kQuit:
            return compiled::kCloseAll;
        case classic::kIndex:
            return compiled::kDisplayIndex;
        case classic::kFinder:
            return compiled::kDisplayTopic;
        default:
            return classicCommand;
    }
}

void InitHelp() {
    HelpState& state = TheHelpState();
    state.HH_COOKIE = platform::Help().CompiledHelp(0, {}, compiled::kInitialize, 0);
    state.HELP_FILE.clear();
    state.HELP_USED = false;
}

void CloseHelp() {
    HelpState& state = TheHelpState();
    CloseAllCompiledHelp();
    platform::Help().CompiledHelp(0, {}, compiled::kUninitialize, state.HH_COOKIE);
    if (EndsWithIgnoringCase(state.HELP_FILE, ".hlp")) {
        platform::Help().ClassicHelp(0, {}, classic::kQuit, 0);
    }
}

void ShowHelp(platform::WindowHandle owner, std::string_view file, std::uint32_t command,
              std::int32_t data) {
    HelpState& state = TheHelpState();
    if (!file.empty()) {
        state.HELP_FILE = file;
    } else if (state.HELP_FILE.empty()) {
        auto resolved = ResolveHelpFile();
        if (!resolved) return;
        state.HELP_FILE = *resolved;
    }
    auto& viewer = platform::Help();
    if (!EndsWithIgnoringCase(state.HELP_FILE, ".chm")) {
        viewer.ClassicHelp(owner, state.HELP_FILE, command, data);
        return;
    }
    state.HELP_USED = true;
    std::uint32_t translated = CompiledHelpCommand(command);
    if (translated == compiled::kCloseAll) {
        CloseAllCompiledHelp();
        return;
    }
    // Compiled help belongs to the desktop, so it stays open when the dialog closes.
    platform::WindowHandle desktop = platform::Windows().Desktop();
    if (translated == compiled::kHelpContext) {
        CloseAllCompiledHelp();
        viewer.CompiledHelp(desktop, state.HELP_FILE, compiled::kDisplayToc, 1);
    }
    viewer.CompiledHelp(desktop, state.HELP_FILE, translated, data);
}

}  // namespace lumacfg
