#include "app/gui/desktop_program.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QPixmap>
#include <QTimer>
#include <iostream>

#include "app/gui/autosampler_setup.h"
#include "config/config_record.h"
#include "config/start_up.h"
#include "platform/services.h"
#include "racks/custom_racks.h"
#include "resources/string_table.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/main_dialog.h"
#include "ui/main/qt/main_window.h"

namespace lumacfg::gui {

bool ParseOptions(const QStringList& arguments, DesktopOptions& options) {
    options.commandLineEmpty = arguments.isEmpty();
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QLatin1String("--screenshot") && i + 1 < arguments.size()) {
            options.screenshot = QFileInfo(arguments[++i]).absoluteFilePath();
        } else if (argument == QLatin1String("--click") && i + 1 < arguments.size()) {
            options.click = arguments[++i];
        } else if (argument == QLatin1String("--quit-after-shown")) {
            options.quitAfterShown = true;
        } else {
            return false;
        }
    }
    return true;
}

void ShowFailures(const std::vector<platform::FileFailure>& failures) {
    std::string text;
    for (const platform::FileFailure& failure : failures) {
        if (!text.empty()) text += '\n';
        text += platform::Describe(failure);
    }
    platform::Messages().Show({.text = text,
                               .title = LoadResString(kResErrorTitle),
                               .icon = platform::MessageIcon::Exclamation,
                               .buttons = platform::MessageButtons::Ok});
}

namespace {

// The window, or the dialog that clicking `click` in it opened.
QPixmap Picture(ui::MainWindow& window, const QString& click) {
    if (!click.isEmpty()) window.Binder().Click(click);
    for (QDialog* dialog : window.findChildren<QDialog*>()) {
        if (dialog->isVisible()) return dialog->grab();
    }
    return window.grab();
}

}  // namespace

int RunDesktop(const DesktopOptions& options, const WhenShown& whenShown) {
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

    ui::MainDialog dialog(Config());
    ui::MainWindow window(dialog);
    ConnectAutosamplerSetup(window, dialog);
    QEventLoop loop;
    QObject::connect(&window, &QDialog::finished, &loop, &QEventLoop::quit);
    window.show();

    bool screenshotSaved = true;
    // Runs once the events of showing the window are handled: the window is laid out.
    QTimer::singleShot(0, &window, [&] {
        if (!options.screenshot.isEmpty()) {
            screenshotSaved = Picture(window, options.click).save(options.screenshot, "PNG");
        } else if (options.quitAfterShown) {
            window.repaint();
        }
        if (!options.screenshot.isEmpty() || options.quitAfterShown) {
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
