// "lumacfg-cli set NAME=VALUE ..." and "lumacfg-cli reset": the main window's Save, driven
// through the same model as the window, then what closing the window writes.
#pragma once

#include <ostream>
#include <string>
#include <vector>

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

}  // namespace lumacfg::cli
