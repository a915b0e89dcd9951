// The fields of the Miscellaneous dialog for "lumacfg-cli set": put into the dialog's controls
// as the user would, then its OK, which hands them to the main window's record.
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

// The field's name as the dialog's table spells it (a view of static text), or nullopt when
// the name is no field of the Miscellaneous dialog.
std::optional<std::string_view> MiscellaneousField(std::string_view name);

// Why a value is not written as the field wants it ("takes 0 or 1"), or nullopt.
std::optional<std::string> MiscellaneousFormProblem(std::string_view field, std::string_view value);

// Opens the dialog on the main window's record as the window stands, sets each Miscellaneous
// field among `values` (the others are left alone) and clicks OK. Nothing is done when no such
// field is given. A control greyed with the values given exits 1, naming it.
int ApplyMiscellaneous(ui::MainDialog& window,
                       const std::map<std::string_view, std::string>& values, std::ostream& err);

// Each Miscellaneous field as the dialog opened on the window's record shows it, in the form
// `set` takes (a flag 0 or 1, a box's text), in the order `set` sets them.
std::vector<std::pair<std::string_view, std::string>> MiscellaneousValues(ui::MainDialog& window);

}  // namespace lumacfg::cli
