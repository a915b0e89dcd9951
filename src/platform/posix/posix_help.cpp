// The help viewers on a POSIX desktop: the help file is handed to the desktop's viewer
// (xdg-open), which can show a file but not a topic inside it. Only the commands that show
// something open the file; the others (initialise, close, quit) have nothing to do here.
// Without a desktop session nothing is started.
#include <cstdlib>
#include <string>

#include "platform/file_system.h"
#include "platform/posix/backends.h"
#include "platform/services.h"

namespace lumacfg::platform::posix {
namespace {

bool HasDesktop() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0') return true;
    }
    return false;
}

bool CompiledCommandShows(std::uint32_t command) {
    switch (command) {
        case compiled_help::kDisplayTopic:
        case compiled_help::kDisplayToc:
        case compiled_help::kDisplayIndex:
        case compiled_help::kDisplaySearch:
        case compiled_help::kHelpContext:
            return true;
        default:
            return false;
    }
}

bool ClassicCommandShows(std::uint32_t command) {
    return command != classic_help::kQuit && command != classic_help::kSetContents &&
           command != classic_help::kSetPopupPosition;
}

// The host file of a help file text; a bare name is looked for in the program's directory.
std::string HostHelpFile(std::string_view file) {
    bool bareName = file.find_first_of("\\/") == std::string_view::npos;
    return HostPath(bareName ? JoinPath(ProgramDirectory(), file) : std::string(file));
}

class DesktopHelpViewer final : public HelpViewer {
  public:
    std::intptr_t CompiledHelp(std::uintptr_t, std::string_view file, std::uint32_t command,
                               std::intptr_t) override {
        bool contentsShown = contentsShown_;
        contentsShown_ = false;
        if (!CompiledCommandShows(command)) return 0;
        // The contents followed by the topic of the same file are one request: one viewer.
        if (contentsShown && file == contentsFile_) return 0;
        Open(file);
        if (command == compiled_help::kDisplayToc) {
            contentsShown_ = true;
            contentsFile_ = file;
        }
        return 0;
    }

    bool ClassicHelp(std::uintptr_t, std::string_view file, std::uint32_t command,
                     std::intptr_t) override {
        contentsShown_ = false;
        if (ClassicCommandShows(command)) Open(file);
        return true;
    }

  private:
    static void Open(std::string_view file) {
        if (file.empty() || !HasDesktop()) return;
        Processes().Start("xdg-open " + QuotedArgument(HostHelpFile(file)) + " >/dev/null 2>&1");
    }

    bool contentsShown_ = false;
    std::string contentsFile_;
};

}  // namespace

std::unique_ptr<HelpViewer> MakeHelpViewer() {
    return std::make_unique<DesktopHelpViewer>();
}

}  // namespace lumacfg::platform::posix
