// The main window's autosampler "Setup..." button: it opens, window-modal, the dialog that the
// main window's model names for the autosampler chosen (the ASX500 tray and rack dialog, the
// V-AS dialog or the legacy dialog), built from the window's record; OK hands the dialog's
// fields back to that record (and the ASX500 dialog's selection to the working tray), and the
// main window shows its states again.
#pragma once

namespace lumacfg::ui {
class MainDialog;
class MainWindow;
}  // namespace lumacfg::ui

namespace lumacfg::gui {

// Gives "Cd_AutoSet" of `window` its action.
void ConnectAutosamplerSetup(ui::MainWindow& window, ui::MainDialog& model);

}  // namespace lumacfg::gui
