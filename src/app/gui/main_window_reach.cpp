#include "app/gui/main_window_reach.h"

#include <QEvent>
#include <QTimer>
#include <iostream>

#include "integration/help.h"
#include "ui/dialog/chosen_entry.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/file/file_selection.h"
#include "ui/main/main_dialog.h"
#include "ui/main/qt/main_window.h"
#include "ui/main/qt/wait_window.h"
#include "ui/main/wait_dialog.h"
#include "ui/misc/misc_dialog.h"
#include "ui/misc/qt/misc_window.h"

namespace lumacfg::gui {
namespace {

constexpr std::int16_t kChooseFolder = 2;  // a QC mode is a folder
constexpr std::string_view kQcModePattern = "*.QCC";

}  // namespace

MainWindowReach::MainWindowReach(ui::MainWindow& window, ui::MainDialog& dialog)
    : window_(window), dialog_(dialog), runs_(dialog), chooser_(&window) {
    ui::DialogBinder& binder = window.Binder();
    binder.SetClickAction(QStringLiteral("Cd_Misc"), [this] { OpenMiscellaneous(); });
    binder.SetClickAction(QStringLiteral("Cd_Browse"), [this] { BrowseQcMode(); });
    binder.SetClickAction(QStringLiteral("Cd_QCCfg"),
                          [this] { WaitFor(runs_.StartQcConfiguration()); });
    binder.SetClickAction(QStringLiteral("Cd_Tlbar"),
                          [this] { WaitFor(runs_.StartToolbar(), /*raiseItsWindow=*/true); });
    binder.SetClickAction(QStringLiteral("Help"),
                          [] { ShowHelp(0, {}, kHelpContextCommand, kHelpTopicConfig); });
    connect(&listener_, &ReportListener::Reported, this,
            [this](const SiblingReport& report) { runs_.Report(report); });
    if (!listener_.Listen()) {
        std::cerr << "lumacfg: programs started from the window cannot report back: "
                  << listener_.Problem().toStdString() << '\n';
    }
    window.installEventFilter(this);
}

void MainWindowReach::OpenMiscellaneous() {
    const ui::Controls& shown = dialog_.State();
    ui::MiscDialog misc(dialog_.Record(),
                        ui::MiscSurroundingsOf(ui::ChosenEntry(shown, "Cb_Type"),
                                               ui::ChosenEntry(shown, "Cb_MPMApp")));
    ui::MiscWindow view(misc, &window_);
    view.exec();
    misc.Accept(dialog_.Record());
}

void MainWindowReach::BrowseQcMode() {
    ui::FileSelection selection(chooser_);
    std::string chosen;
    const ConfigRecord& record = dialog_.Record();
    if (selection.NbFileSelect(chosen, kChooseFolder, record.QCMDFILE, record.QCMDPATH, {},
                               kQcModePattern) != ui::kFileChosen) {
        return;
    }
    dialog_.SelectQcMode(chosen);
    window_.Binder().Refresh();
}

void MainWindowReach::WaitFor(std::optional<platform::ProcessId> process, bool raiseItsWindow) {
    if (process) {
        ui::WaitDialog wait(*process, raiseItsWindow);
        ui::WaitWindow view(wait, &window_);
        view.exec();
    }
    Activated();
}

// The window is active again (after the wait window, or after the user came back to it).
void MainWindowReach::Activated() {
    if (activating_) return;  // a question asked here activates the window again
    activating_ = true;
    runs_.Activated();
    window_.Binder().Refresh();
    activating_ = false;
}

bool MainWindowReach::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &window_ && event->type() == QEvent::WindowActivate) {
        // After the activation is handled: a question may be shown then.
        QTimer::singleShot(0, this, &MainWindowReach::Activated);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace lumacfg::gui
