// "lumacfg-cli tray": loads the tray selection as the main window does before it is shown and
// lists it with the custom trays and racks of custrack.ini.
#pragma once

#include <ostream>

namespace lumacfg::cli {

// Runs LoadCurrentTray, copies CurrentTray to WorkingTray and writes the listing of
// docs/cli-tray.md. Returns 0, or 1 when custrack.ini holds a value that should be a number
// and is not one (the listing is written in full either way).
int RunTrayCommand(std::ostream& out);

}  // namespace lumacfg::cli
