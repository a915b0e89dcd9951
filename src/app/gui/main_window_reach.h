// The main window's buttons that reach beyond it: "Miscellaneous..." (its dialog), "Browse..."
// (the file selection of a QC mode), "Advanced QC..." and "Configure Toolbar..." (programs
// started beside this one, waited for in the wait window), and "Help" (the window's help topic);
// with the report socket on which those programs report back while the window is open. The main
// window's area cannot see the other dialogs' areas; the program joins them here.
#pragma once

#include <QObject>
#include <optional>

#include "app/gui/report_listener.h"
#include "platform/processes.h"
#include "ui/file/qt/qt_file_chooser.h"
#include "ui/main/sibling_runs.h"

namespace lumacfg::ui {
class MainDialog;
class MainWindow;
}  // namespace lumacfg::ui

namespace lumacfg::gui {

class MainWindowReach final : public QObject {
    Q_OBJECT

  public:
    // Gives the window's buttons their actions and listens for reports while it lives.
    MainWindowReach(ui::MainWindow& window, ui::MainDialog& dialog);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void OpenMiscellaneous();
    void BrowseQcMode();
    // Shows the wait window while the started program runs, then reads its report.
    // Waits in the wait window for the program started; `raiseItsWindow` brings its window to
    // the front once it shows.
    void WaitFor(std::optional<platform::ProcessId> process, bool raiseItsWindow = false);
    void Activated();

    ui::MainWindow& window_;
    ui::MainDialog& dialog_;
    ui::SiblingRuns runs_;
    ui::QtFileChooser chooser_;
    ReportListener listener_;
    bool activating_ = false;
};

}  // namespace lumacfg::gui
