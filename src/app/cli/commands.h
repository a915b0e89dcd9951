#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace lumacfg::cli {

// Exit codes of the headless front end.
inline constexpr int kExitOk = 0;
inline constexpr int kExitRefused = 1;  // a check of Save refused the change
inline constexpr int kExitUsage = 2;
inline constexpr int kExitStartUpRefused = 3;
inline constexpr int kExitFileFailed = 4;  // a file could not be read or written

// Runs one command line (without the program name).
int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace lumacfg::cli
