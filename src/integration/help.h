// The data system's help: which file it is, and how a dialog's Help button reaches the
// compiled or the classic help viewer.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/windows.h"

namespace lumacfg {

struct HelpState {
    std::string HELP_FILE;        // full path of the help file; "" until resolved
    bool HELP_USED = false;       // compiled help has been opened since start-up
    std::intptr_t HH_COOKIE = 0;  // compiled help's answer to its initialisation
};

// The program's one help state.
HelpState& TheHelpState();

// The Help buttons ask for context help at a topic of their dialog.
inline constexpr std::uint32_t kHelpContextCommand = 15;
inline constexpr std::int32_t kHelpTopicConfig = 15611;  // main configuration dialog
inline constexpr std::int32_t kHelpTopicAsx = 15612;     // legacy autosampler dialog
inline constexpr std::int32_t kHelpTopicMisc = 15614;    // miscellaneous options dialog
inline constexpr std::int32_t kHelpTopicVas = 16003;     // V-AS autosampler dialog
inline constexpr std::int32_t kHelpTopicAsx500 = 16716;  // ASX500 tray and rack dialog

// Brackets the main dialog's lifetime: starts compiled help and forgets the help file;
// closes every help window and ends compiled help (and the classic viewer for a ".hlp" file).
void InitHelp();
void CloseHelp();

// Shows help. A non-empty `file` becomes the help file; otherwise the help file is resolved
// at the first request and kept. A ".chm" file goes to compiled help, owned by the desktop,
// with the command translated; any other file to classic help, owned by `owner`, unchanged.
// Nothing happens when the data system is not installed.
void ShowHelp(platform::WindowHandle owner, std::string_view file, std::uint32_t command,
              std::int32_t data);

// The help file named by the data system's "lumagen.ist" (section "WSX,1", "_HELPPATH$" and
// "_HELPFILE$", default name "luma-ms.chm"); nullopt when the data system's directory is unknown.
std::optional<std::string> ResolveHelpFile();

// A classic help command translated into compiled help's equivalent.
std::uint32_t CompiledHelpCommand(std::uint32_t classicCommand);

}  // namespace lumacfg
