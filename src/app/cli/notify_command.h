// "lumacfg-cli notify QCFILE FOLDER FILE" and "lumacfg-cli notify TOOLBAR": a sibling program's
// report sent to the open main window.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace lumacfg::cli {

// `args` without "notify". 0 when the window took the report; 5 when no window listens; 2 for
// a usage error.
int RunNotify(const std::vector<std::string>& args, std::ostream& err);

}  // namespace lumacfg::cli
