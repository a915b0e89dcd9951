// What the benchmarks share: stations made under the temporary directory, with the environment
// pointing the programs at them, and whole-process runs of the built programs.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace lumacfg::bench {

// A station root "lumacfg-bench-<name>" with an empty "LUMAEXE" and a registry store of the
// GPIB model; the environment points the programs (and this process) at it.
std::filesystem::path MakeStationRoot(const std::string& name);

// A fresh copy of the demo station that the repository ships; the environment points at it.
std::filesystem::path CopyDemoStation(const std::string& name);

struct ProcessRun {
    bool ok = false;           // the program exited 0
    double peakMegabytes = 0;  // its peak resident size
};

// Runs a built program with its arguments, its output thrown away (its exit status tells
// whether it did its work), and waits for it.
ProcessRun RunProgram(const char* program, const std::vector<std::string>& arguments);

}  // namespace lumacfg::bench
