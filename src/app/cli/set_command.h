// "lumacfg-cli set NAME=VALUE ..." and "lumacfg-cli reset": the main window's Save, driven
// through the same model as the window, then what closing the window writes.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "app/cli/held_changes.h"

namespace lumacfg::ui {
class MainDialog;
}

namespace lumacfg::cli {

// set: start-up and the tray selection as `save` loads them; the main window built from the
// record; each named field put into its control as the user would (in the window's order, each
// box left as leaving it cleans it); Save with every check; then the closing steps. A refused
// check (its message on the standard error) or a value the window does not offer exits 1 and
// writes nothing at all. A name that is no field, or whose control is in another dialog, exits 2.
// With `dryRun` nothing is written either: each file that would change is printed as a unified
// diff on `out`.
int RunSet(const std::vector<std::string>& assignments, bool dryRun, std::ostream& out,
           std::ostream& err);

// reset: Reset to Default in the main window, Save, then the closing steps (a new station's
// registration rows first, then the configuration over them).
int RunReset(bool dryRun, std::ostream& out, std::ostream& err);

// For commands built on `set`: its checks of the names and values (exit 2), then its edit and
// Save, with every change held. `look` sees the window as start-up built it, before any field
// is set; `settle` is called once Save has passed every check and the closing steps are done,
// and decides what becomes of the changes (commit, preview, or nothing: dropped).
int SetHeld(const std::vector<std::string>& assignments,
            const std::function<void(ui::MainDialog&)>& look,
            const std::function<void(HeldChanges&)>& settle, std::ostream& err);

// The main window's fields that `set` takes, in the order it sets them.
std::vector<std::string_view> MainWindowFieldNames();

}  // namespace lumacfg::cli
