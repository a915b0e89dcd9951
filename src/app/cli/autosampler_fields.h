// The fields of the autosampler dialogs that `lumacfg-cli set` takes, driven through the dialog
// that the main window's "Setup..." button opens for the autosampler chosen: each value goes in
// as the text of its control, is cleaned as leaving that control cleans it, then the dialog's OK
// runs its checks and hands the fields to the window's record.
//
//   COM_PORT=n          the port list of every dialog ("COMn")
//   RACK1_ID..RACK8_ID  the rack lists of the legacy dialog, as their entries read ("24")
//   TRAY_ID=n           the V-AS sample tray, by its place in the list (0 "Single Sample")
//   RINSE_DEPTH, SAMPLE_DEPTH, STD_DEPTH   the V-AS depth boxes, in millimetres as typed
//   ESC_MODE=0|1        the V-AS ESC mode check box
//   TRAY=name           the ASX500 tray type list ("Standard 4/5", a custom tray's name)
//   RACK(1)..RACK(9)    the ASX500 rack lists of tray positions 1..9, by rack name
#pragma once

#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumacfg::ui {
class MainDialog;
}

namespace lumacfg::cli {

bool IsAutosamplerField(std::string_view name);

// Why a value is not written as the field's control takes it, or nullopt.
std::optional<std::string> AutosamplerFormProblem(std::string_view name, std::string_view value);

// Opens the dialog of the window's Setup... button when any autosampler field is among `values`
// (other names are left alone), sets the fields and clicks OK. kExitOk, or kExitRefused with the
// reason on `err` (a check of the dialog shows its own message) and the window's record as it was.
int SetAutosamplerFields(ui::MainDialog& window,
                         const std::map<std::string_view, std::string>& values, std::ostream& err);

// The fields of the dialog that Setup... opens for the autosampler chosen, each as the dialog
// opened on the window's record shows it, in the form `set` takes; none when Setup... is greyed.
// A hidden control and a list that shows no entry give no field.
std::vector<std::pair<std::string, std::string>> AutosamplerValues(ui::MainDialog& window);

}  // namespace lumacfg::cli
