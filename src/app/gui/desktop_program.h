// The desktop program's run, from start-up to the closing steps, inside the QApplication that
// main made: start the station (refusing to run beside the data system or a second copy of
// itself), load the tray selection, show the main window and, when it closes, hand its record
// to the station and write what the closing asks for. Every file that could not be read or
// written is listed in one message box, and the run then ends with a non-zero status.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/file_failures.h"

namespace lumacfg::ui {
class MainWindow;
}

namespace lumacfg::gui {

inline constexpr int kExitOk = 0;
inline constexpr int kExitScreenshotFailed = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitStartUpRefused = 3;  // another copy runs, or the data system runs
inline constexpr int kExitFileFailed = 4;      // a file could not be read or written

inline constexpr const char* kUsage =
    "usage: lumacfg [--screenshot FILE.png [--click CONTROL] [--hold SECONDS]]\n"
    "               [--quit-after-shown]\n"
    "       lumacfg --help | --version\n";

struct DesktopOptions {
    // A picture of the window is saved here once it is laid out (empty: none); the window is
    // then closed as by its frame.
    QString screenshot;
    // With a screenshot: the button of the main window clicked first; the picture is then of
    // the modal window it opens ("Cd_Misc", "Cd_Browse", "Cd_Tlbar", "Cd_AutoSet").
    QString click;
    // With a screenshot: how long the window (or the one the click opened) stays open before
    // its picture is taken, in milliseconds (a screen reader's test reads it meanwhile).
    int holdMs = 0;
    // The window is closed, as by its frame, once it is shown and painted.
    bool quitAfterShown = false;
    // Only a start with an empty command line is interactive (it logs on).
    bool commandLineEmpty = true;
};

// "--help" or "--version" as the only argument: prints the usage or the version on `out` and
// returns true. Asked before any window exists, so it needs no display.
bool PrintInformation(const std::vector<std::string>& arguments, std::ostream& out);

// The program's own arguments (Qt has taken its own out); false for a usage error.
bool ParseOptions(const QStringList& arguments, DesktopOptions& options);

// What happens once the window is shown and its events handled (tests act as the user here).
using WhenShown = std::function<void(ui::MainWindow& window)>;

// The whole run; returns the exit status.
int RunDesktop(const DesktopOptions& options, const WhenShown& whenShown = {});

// One message box (title "Error", exclamation icon) naming every file and the reason.
void ShowFailures(const std::vector<platform::FileFailure>& failures);

}  // namespace lumacfg::gui
