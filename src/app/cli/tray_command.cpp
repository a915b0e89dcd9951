#include "app/cli/tray_command.h"

#include "app/cli/tray_report.h"
#include "racks/custom_racks.h"

namespace lumacfg::cli {

int RunTrayCommand(std::ostream& out) {
    const TrayLoadResult result = LoadCurrentTray();
    RackTrayState& state = RackTrays();
    state.WorkingTray = state.CurrentTray;
    WriteTrayReport(out, result);
    return result.numberError ? 1 : 0;
}

}  // namespace lumacfg::cli
