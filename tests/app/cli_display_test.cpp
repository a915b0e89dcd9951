// The headless front end on a desktop: a real X server of its own (Xvfb on a free display),
// with and without another client's window open. Every program of the data system runs on a
// desktop, so the front end must start, write and end cleanly there.
#include <gtest/gtest.h>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "support/cli_runner.h"
#include "support/temp_station.h"

#if __has_include(<X11/Xlib.h>)
#include <X11/Xlib.h>
#define LUMACFG_TEST_X11 1
#endif

namespace lumacfg {
namespace {

// An X server on the first free display; the server itself writes the display's number to the
// pipe once it accepts connections.
class VirtualDisplay {
  public:
    VirtualDisplay() {
        int pipeFds[2];
        if (::pipe(pipeFds) != 0) return;
        pid_ = ::fork();
        if (pid_ == 0) {
            ::close(pipeFds[0]);
            const std::string fd = std::to_string(pipeFds[1]);
            ::execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-nolisten", "tcp", "-screen", "0",
                     "800x600x24", static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::close(pipeFds[1]);
        std::string number;
        char c = 0;
        while (::read(pipeFds[0], &c, 1) == 1 && c != '\n') number += c;
        ::close(pipeFds[0]);
        if (!number.empty()) name_ = ":" + number;
    }
    ~VirtualDisplay() {
        if (pid_ <= 0) return;
        ::kill(pid_, SIGTERM);
        ::waitpid(pid_, nullptr, 0);
    }
    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    const std::string& Name() const { return name_; }  // "" when no server could start

  private:
    pid_t pid_ = -1;
    std::string name_;
};

#if defined(LUMACFG_TEST_X11)
// Another client's top-level window, mapped, for as long as the object lives.
class OtherClientWindow {
  public:
    explicit OtherClientWindow(const std::string& display)
        : display_(XOpenDisplay(display.c_str())) {
        if (display_ == nullptr) return;
        Window window =
            XCreateSimpleWindow(display_, DefaultRootWindow(display_), 10, 10, 200, 100, 0, 0, 0);
        XStoreName(display_, window, "Another program");
        XMapWindow(display_, window);
        XSync(display_, False);
    }
    ~OtherClientWindow() {
        if (display_ != nullptr) XCloseDisplay(display_);
    }
    OtherClientWindow(const OtherClientWindow&) = delete;
    OtherClientWindow& operator=(const OtherClientWindow&) = delete;

    bool Open() const { return display_ != nullptr; }

  private:
    Display* display_;
};
#endif

using CliOnADesktopTest = support::TempStation;

TEST_F(CliOnADesktopTest, ShowAndSaveEndCleanlyWithAndWithoutOtherWindows) {
    VirtualDisplay display;
    ASSERT_FALSE(display.Name().empty()) << "Xvfb could not start (the set-up installs it)";
    support::ScopedEnv displayEnv("DISPLAY", display.Name());
    for (bool otherWindow : {false, true}) {
#if defined(LUMACFG_TEST_X11)
        std::optional<OtherClientWindow> other;
        if (otherWindow) {
            ASSERT_TRUE(other.emplace(display.Name()).Open());
        }
#else
        if (otherWindow) continue;
#endif
        std::filesystem::remove(StationProfile());
        for (const char* command : {"show", "save"}) {
            const support::CliResult result = support::RunCli({command}, root_);
            EXPECT_EQ(result.exit, 0)
                << command << " (another window: " << otherWindow << "): " << result.err;
        }
        EXPECT_NE(StationText().find("Applications=ICPMS"), std::string::npos);
        EXPECT_NE(RegistryFileText().find("\"ConfigurationID\"=dword:"), std::string::npos);
    }
}

}  // namespace
}  // namespace lumacfg
