// The main window's reach to the programs it starts beside itself, and what they report back:
// "Advanced QC..." starts the QC configuration program on the current QC mode, "Configure
// Toolbar..." the toolbar program; while one runs, the wait window keeps the main window
// waiting. Their reports land in the window's hidden labels "Lbl_DDEPath" and "Lbl_DDEFile",
// which the window reads when it is activated again: the end of a toolbar run, or a QC mode the
// user may take over.
#pragma once

#include <optional>

#include "integration/report_back.h"
#include "platform/processes.h"
#include "ui/main/main_dialog.h"

namespace lumacfg::ui {

class SiblingRuns {
  public:
    explicit SiblingRuns(MainDialog& window) : window_(window) {}

    // "Advanced QC...": asks whether to go on; then clears the report labels and starts the QC
    // configuration program. The process to wait for, or nullopt (the user said No, or the
    // program could not be started: "Could not execute QC Configuration. ...").
    std::optional<platform::ProcessId> StartQcConfiguration();

    // "Configure Toolbar...": clears the report labels and starts the toolbar program, whose run
    // is then pending. The process to wait for, or nullopt ("Could not execute Toolbar
    // Configuration.").
    std::optional<platform::ProcessId> StartToolbar();

    // A report received: into the hidden labels, the last one replacing the one before.
    void Report(const SiblingReport& report);

    // The window is active again: a pending toolbar run ends at its report; a QC mode reported
    // that differs from the window's and is valid is offered ("Would you like to select the QC
    // Mode file opened in the QC Configuration?"). A report is answered once: its labels are
    // cleared after the question.
    void Activated();

    // The toolbar program's process while its run is pending, else 0.
    platform::ProcessId ToolbarPending() const { return toolbar_; }

  private:
    const std::string& Label(std::string_view name) const;
    void ClearReport();
    std::optional<platform::ProcessId> Start(const std::optional<std::string>& command,
                                             int failureMessage);

    MainDialog& window_;
    platform::ProcessId toolbar_ = 0;
};

}  // namespace lumacfg::ui
