// The first start of an installed program: before start-up, when nothing names a station (no
// LUMACFG_PROGRAM_DIR, and the registry store names no data system folder), the first-start
// window lets the administrator choose the data system's folder.
#pragma once

#include <optional>

#include "app/gui/desktop_program.h"

namespace lumacfg::gui {

// nullopt: start-up goes on (a station is named now, or start-up reports why it cannot be
// read). Otherwise the run ends with the status returned: the administrator cancelled (what is
// missing goes to the standard error, status 4), or only a picture of the window was asked for
// (status 0, or 1 when it could not be saved).
std::optional<int> ChooseStationIfNoneNamed(const DesktopOptions& options);

}  // namespace lumacfg::gui
