// Whole-process figures of the headless front end, as a script that sets up stations sees
// them: from starting lumacfg-cli to its exit. "show" and "save" on a station whose
// "lumagen.ist" carries 100,000 keys of other programs in section "WSX,1"; "set" of one field
// on the demo station.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "bench_station.h"

namespace {

namespace fs = std::filesystem;
using lumacfg::bench::RunProgram;

constexpr int kExtraKeys = 100000;

bool RunCli(const std::vector<std::string>& arguments) {
    return RunProgram(LUMACFG_CLI_PATH, arguments).ok;
}

// A station created by the front end's first start, then given the other programs' keys.
bool MakeLargeStation() {
    const fs::path root = lumacfg::bench::MakeStationRoot("process");
    if (!RunCli({"show"})) return false;
    const fs::path station = root / "LUMAEXE" / "lumagen.ist";
    std::stringstream text;
    text << std::ifstream(station, std::ios::binary).rdbuf();
    std::string bytes = text.str();
    std::string extra;
    for (int k = 0; k < kExtraKeys; ++k)
        extra += "OTHER_PROGRAM_KEY" + std::to_string(k) + "=1\r\n";
    const std::string header = "[WSX,1]\r\n";
    bytes.insert(bytes.find(header) + header.size(), extra);
    std::ofstream(station, std::ios::binary | std::ios::trunc) << bytes;
    return true;
}

void BM_CliOnLargeStation(benchmark::State& state, const char* command) {
    if (!MakeLargeStation()) state.SkipWithError("lumacfg-cli could not create the station");
    for (auto _ : state) {
        if (!RunCli({command})) state.SkipWithError("lumacfg-cli failed");
    }
}

// One field set, in turn to two addresses, so that every run changes and writes the station.
void BM_CliSetOneField(benchmark::State& state) {
    lumacfg::bench::CopyDemoStation("set");
    if (!RunCli({"show"})) state.SkipWithError("lumacfg-cli could not create the station");
    int run = 0;
    for (auto _ : state) {
        const std::string address = "LAN_IPADDR=192.168.1." + std::to_string(100 + run++ % 2);
        if (!RunCli({"set", address})) state.SkipWithError("lumacfg-cli set failed");
    }
}

// What starting and ending any process costs on this machine, for comparison.
void BM_ProcessStartAlone(benchmark::State& state) {
    for (auto _ : state) {
        if (!RunProgram("/bin/true", {}).ok) state.SkipWithError("/bin/true failed");
    }
}

BENCHMARK(BM_ProcessStartAlone)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_CliOnLargeStation, show, "show")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_CliOnLargeStation, save, "save")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_CliSetOneField)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
