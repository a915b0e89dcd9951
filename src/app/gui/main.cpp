// lumacfg: the desktop program (desktop_program.h says what a run does).
//
//   lumacfg [--screenshot FILE.png [--click CONTROL] [--hold SECONDS]] [--quit-after-shown]
//   lumacfg --help | --version
//
// --screenshot saves a picture of the window once it is laid out, then closes the window as
// its frame would (nothing of the editing is saved); with --click the window's button CONTROL
// is clicked first and the picture is of the modal window it opens (a path such as
// "Cd_AutoSet/btnConfigTray" clicks each further button in the window the one before opened).
// --hold keeps the window pictured open SECONDS seconds first (the accessibility test reads it
// meanwhile). --quit-after-shown closes the window so once it is shown. Either option makes the
// command line non-empty: the start is not interactive and does not log on. Exit status: 0 done;
// 1 the screenshot could not be saved; 2 usage error; 3 start-up refused (another copy, or the
// data system, runs); 4 a file could not be read or written (each one is listed in a message box
// first).
#include <QApplication>
#include <iostream>
#include <memory>

#include "app/gui/desktop_program.h"
#include "app/gui/qt_message_boxes.h"
#include "app/gui/window_logon.h"
#include "platform/logon.h"
#include "platform/services.h"
#include "resources/string_table.h"
#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/station_font.h"
#include "ui/dialog/qt/translation.h"

int main(int argc, char** argv) {
    using namespace lumacfg;
    if (gui::PrintInformation({argv + 1, argv + argc}, std::cout)) return gui::kExitOk;
    QApplication application(argc, argv);
    ui::UseLanguage(QLocale::system());  // the desktop's language (LANGUAGE, LC_MESSAGES, LANG)
    gui::DesktopOptions options;
    if (!gui::ParseOptions(QApplication::arguments().mid(1), options)) {
        std::cerr << gui::kUsage;
        return gui::kExitUsage;
    }
    platform::SetMessages(std::make_unique<gui::QtMessageBoxes>());
    if (!platform::SessionLogonChosen()) platform::SetLogon(std::make_unique<gui::WindowLogon>());
    // Every window and message of the program in the font the string table names.
    QApplication::setFont(ui::StationFont(ui::FromAnsi(LoadResString(kResFontName)),
                                          ui::FromAnsi(LoadResString(kResFontSize))));
    return gui::RunDesktop(options);
}
