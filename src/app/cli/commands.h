#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "platform/file_failures.h"

namespace lumacfg::cli {

// Exit codes of the headless front end.
inline constexpr int kExitOk = 0;
inline constexpr int kExitRefused = 1;  // a check of Save refused the change
inline constexpr int kExitUsage = 2;
inline constexpr int kExitStartUpRefused = 3;
inline constexpr int kExitFileFailed = 4;  // a file could not be read or written
inline constexpr int kExitNoWindow = 5;    // notify: no configuration window listens

// Runs one command line (without the program name).
int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// Start-up as the window runs it, with a command line that is never empty (no logon): 0, or the
// exit code of a refused or failed start-up. Where the window ends silently because another copy
// runs, the headless front end says so on `err`: a script is told why it got no station.
int StartStation(std::ostream& err);

// The tray selection as the window loads it before it is shown: the current tray of
// "custrack.ini", copied to the working one.
void LoadTraySelection();

// Names every file that could not be read or written. A command that succeeded otherwise exits
// 4; one that already failed keeps its own exit code.
int WithFailures(int exit, const std::vector<platform::FileFailure>& failures, std::ostream& err);

}  // namespace lumacfg::cli
