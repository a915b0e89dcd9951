#include "app/gui/desktop_program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <iostream>

#include "app/gui/autosampler_setup.h"
#include "app/gui/first_start.h"
#include "app/gui/main_window_reach.h"
#include "config/config_record.h"
#include "config/start_up.h"
#include "integration/help.h"
#include "platform/services.h"
#include "racks/custom_racks.h"
#include "resources/string_table.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/main_dialog.h"
#include "ui/main/qt/main_window.h"

namespace lumacfg::gui {

bool PrintInformation(const std::vector<std::string>& arguments, std::ostream& out) {
    if (arguments.size() != 1) return false;
    if (arguments[0] == "--help") {
        out << kUsage;
        return true;
    }
    if (arguments[0] == "--version") {
        out << "lumacfg " LUMACFG_VERSION "\n";
        return true;
    }
    return false;
}

bool ParseOptions(const QStringList& arguments, DesktopOptions& options) {
    options.commandLineEmpty = arguments.isEmpty();
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QLatin1String("--screenshot") && i + 1 < arguments.size()) {
            options.screenshot = QFileInfo(arguments[++i]).absoluteFilePath();
        } else if (argument == QLatin1String("--click") && i + 1 < arguments.size()) {
            options.click = arguments[++i];
        } else if (argument == QLatin1String("--hold") && i + 1 < arguments.size()) {
            bool number = false;
            const int seconds = arguments[++i].toInt(&number);
            if (!number || seconds < 0 || seconds > 3600) return false;
            options.holdMs = seconds * 1000;
        } else if (argument == QLatin1String("--quit-after-shown")) {
            options.quitAfterShown = true;
        } else {
            return false;
        }
    }
    return (options.click.isEmpty() && options.holdMs == 0) || !options.screenshot.isEmpty();
}

namespace {

// Clicks the window's button and, once the modal window it opens has been shown for one poll
// (placed and laid out at its final size; a dialog that runs its own loop or one opened over
// the main window), saves a picture of it in `file`, then closes it and the main window. A
// control path "Cd_AutoSet/btnConfigTray" clicks on in each window opened, and pictures the
// last, once it has been open `holdMs`. A click that opens nothing within five seconds saves
// nothing.
void PictureOfClick(ui::MainWindow& window, const QString& control, const QString& file, int holdMs,
                    bool& saved) {
    constexpr int kPollMs = 50;
    constexpr int kPatienceMs = 5000;
    saved = false;
    QStringList further = control.split(u'/');
    const QString first = further.takeFirst();
    auto* poll = new QTimer(&window);
    poll->setInterval(kPollMs);
    QObject::connect(
        poll, &QTimer::timeout, &window,
        [&window, &saved, file, poll, further, holdMs, waited = 0, held = 0, awaiting = false,
         shown = QPointer<QWidget>()]() mutable {
            QWidget* opened = QApplication::activeModalWidget();
            const bool open = opened != nullptr && opened != &window && opened->isVisible();
            if (open && opened != shown) {
                shown = opened;  // taken at the next poll, or clicked on in
                awaiting = !further.isEmpty();
                if (auto* button = awaiting
                                       ? opened->findChild<QAbstractButton*>(further.takeFirst())
                                       : nullptr) {
                    QMetaObject::invokeMethod(button, &QAbstractButton::click,
                                              Qt::QueuedConnection);
                }
                return;
            }
            if ((!open || awaiting) && (waited += kPollMs) < kPatienceMs) return;
            if (open && !awaiting && (held += kPollMs) < holdMs) return;
            poll->stop();
            if (open && !awaiting) saved = opened->grab().save(file, "PNG");
            // A window opened from another is closed with it; one that stays open ends the loop.
            for (QWidget* modal = QApplication::activeModalWidget();
                 modal != nullptr && modal != &window;) {
                modal->close();
                QWidget* next = QApplication::activeModalWidget();
                modal = next != modal ? next : nullptr;
            }
            window.close();
        });
    poll->start();
    window.Binder().Click(first);
}

}  // namespace

void ShowFailures(const std::vector<platform::FileFailure>& failures) {
    platform::Messages().Show({.text = platform::DescribeAll(failures),
                               .title = LoadResString(kResErrorTitle),
                               .icon = platform::MessageIcon::Exclamation,
                               .buttons = platform::MessageButtons::Ok});
}

int RunDesktop(const DesktopOptions& options, const WhenShown& whenShown) {
    if (auto ended = ChooseStationIfNoneNamed(options)) return *ended;
    switch (StartUp(StartUpOptions{.commandLineEmpty = options.commandLineEmpty})) {
        case StartUpResult::Continue:
            break;
        case StartUpResult::Refused:
            return kExitStartUpRefused;
        case StartUpResult::Failed:
            ShowFailures(platform::Failures().Take());
            return kExitFileFailed;
    }
    (void)LoadCurrentTray();  // a value that is not a number is reported among the failures
    RackTrays().WorkingTray = RackTrays().CurrentTray;
    // The program's working directory is the program directory, as for every data-system
    // program (a relative path of the station resolves there).
    QDir::setCurrent(QString::fromStdString(platform::ProgramDirectory()));

    InitHelp();
    ui::MainDialog dialog(Config());
    ui::MainWindow window(dialog);
    MainWindowReach reach(window, dialog);
    ConnectAutosamplerSetup(window, dialog);
    QEventLoop loop;
    QObject::connect(&window, &QDialog::finished, &loop, &QEventLoop::quit);
    window.show();

    bool screenshotSaved = true;
    // Runs once the events of showing the window are handled: the window is laid out.
    QTimer::singleShot(0, &window, [&] {
        if (!options.click.isEmpty()) {
            PictureOfClick(window, options.click, options.screenshot, options.holdMs,
                           screenshotSaved);
            return;  // the main window is closed once the picture is taken
        }
        if (!options.screenshot.isEmpty()) {
            QTimer::singleShot(options.holdMs, &window, [&] {
                screenshotSaved = window.grab().save(options.screenshot, "PNG");
                window.close();
            });
        } else if (options.quitAfterShown) {
            window.repaint();
            window.close();
        } else if (whenShown) {
            whenShown(window);
        }
    });
    if (window.isVisible()) loop.exec();

    // Whatever closed the window, its record is the station's; the closing steps write only
    // when Save (or another dialog's OK) asked for it.
    dialog.Accept(Config());
    const std::vector<platform::FileFailure> failures = CloseStation();
    if (!failures.empty()) {
        ShowFailures(failures);
        return kExitFileFailed;
    }
    if (!screenshotSaved) {
        std::cerr << "lumacfg: cannot save " << options.screenshot.toStdString() << '\n';
        return kExitScreenshotFailed;
    }
    return kExitOk;
}

}  // namespace lumacfg::gui
