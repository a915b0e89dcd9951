// The programs of the data system that the configuration program starts beside itself: the QC
// configuration program and the toolbar program. They are looked for where the data system
// keeps them and, failing that, in the program directory, without regard to the case of their
// names and with or without ".exe".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumacfg {

inline constexpr std::string_view kQcConfigurationProgram = "LumaQcConfig.exe";
inline constexpr std::string_view kToolbarProgram = "BARSET.EXE";

// The folder of the newer data system's programs: "BinPath" of section "Path" of "orbit.ini" in
// the program directory, with a trailing "\"; when that is empty, the data system's installation
// folder followed by "bin\".
std::string QcProgramFolder();

// The host path of the program `name` in `folder` (a data-system path) or, when it is not there,
// in the program directory; nullopt when neither holds it.
std::optional<std::string> FindSiblingProgram(std::string_view folder, std::string_view name);

// The command line that starts the QC configuration program on the QC mode's settings file
// (`qcModePath` & `qcModeFile` & "\default.qc.xml", as the data system names it); nullopt when
// the program is not found.
std::optional<std::string> QcConfigurationCommand(std::string_view qcModePath,
                                                  std::string_view qcModeFile);

// The command line that starts the toolbar program of the program directory; nullopt when it is
// not there.
std::optional<std::string> ToolbarCommand();

}  // namespace lumacfg
