// A plain text listing of the tray selection and the custom trays and racks as loaded, for
// the headless front end and for people reading a station's set-up.
#pragma once

#include <ostream>

#include "racks/custom_racks.h"

namespace lumacfg {

// Writes the load result, CurrentTray and every defined custom tray and rack (slot order),
// one NAME=VALUE line each; the format is described in docs/cli-tray.md.
void WriteTrayReport(std::ostream& out, const TrayLoadResult& result);

}  // namespace lumacfg
