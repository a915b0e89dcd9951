// Figures of the tray selection: the full load of a "custrack.ini" of about 2 MB that defines
// 100 custom trays and 100 custom racks among the sections and keys of other tools, with a
// custom tray of nine racks fitted. The load must read the file once, not once per value.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "racks/custom_racks.h"

namespace {

namespace fs = std::filesystem;

constexpr int kDefinitions = 100;
constexpr int kOtherSections = 520;
constexpr int kOtherKeysPerSection = 150;

// Sections of other tools: `count` of them, each with its own keys.
void WriteOtherSections(std::ofstream& out, int first, int count) {
    for (int section = first; section < first + count; ++section) {
        out << "[TOOL_" << section << "]\r\n";
        for (int key = 0; key < kOtherKeysPerSection; ++key) {
            out << "SETTING_" << key << "=value " << section << "." << key << "\r\n";
        }
    }
}

// A program directory whose custrack.ini lists every definition, fits tray 1050 with racks
// 1000..1008, and holds the definitions between and after the other tools' sections, so
// that every lookup meets them. Returns the file's size.
std::uintmax_t MakeStation() {
    const fs::path dir = fs::temp_directory_path() / "lumacfg-bench-racks";
    fs::remove_all(dir);
    fs::create_directories(dir);
    const fs::path file = dir / "custrack.ini";
    {
        std::ofstream out(file, std::ios::binary);
        WriteOtherSections(out, 0, kOtherSections / 2);
        out << "[INDEX]\r\nTray_Num=" << kDefinitions << "\r\nRack_Num=" << kDefinitions << "\r\n";
        for (int i = 1; i <= kDefinitions; ++i) {
            out << "Tray" << i << "_ID=" << 999 + i << "\r\nRack" << i << "_ID=" << 999 + i
                << "\r\n";
        }
        for (int id = 1000; id < 1000 + kDefinitions; ++id) {
            out << "[TRAY_" << id << "]\r\nID_STR=Tray " << id
                << "\r\nRACK_X_NUM=9\r\nRACK_X_ORG=10\r\nRACK_Y_ORG=20\r\nRACK_X_DIST=300\r\n"
                   "RACK_Y_DIST=0\r\n";
            for (int position = 1; position <= 9; ++position) {
                out << "DEFRACK" << position << "=" << 999 + position << "\r\n";
            }
            out << "BOTTLE_X_NUM=2\r\nBOTTLE_X_ORG=5\r\nBOTTLE_Y_ORG=6\r\nBOTTLE_X_DIST=7\r\n"
                   "BOTTLE_DEPTH=8\r\n";
            out << "[RACK_" << id << "]\r\nID=" << id << "\r\nID_STR=Rack " << id
                << "\r\nVIAL_X_NUM=10\r\nVIAL_Y_NUM=5\r\nVIAL_X_ORG=100\r\nVIAL_Y_ORG=200\r\n"
                   "VIAL_X_DIST=30\r\nVIAL_Y_DIST=40\r\nVIAL_DEPTH=50\r\n";
        }
        WriteOtherSections(out, kOtherSections / 2, kOtherSections / 2);
        out << "[CURRENT]\r\nCUSTOMTRAY=1000\r\nTRAY_ID=1050\r\n";
        for (int position = 1; position <= 9; ++position) {
            out << "RACK" << position << "_ID=" << 999 + position << "\r\n";
        }
        out << "RACK_X_NUM=9\r\n";
    }
    ::setenv("LUMACFG_PROGRAM_DIR", dir.c_str(), 1);
    return fs::file_size(file);
}

void BM_LoadCurrentTray(benchmark::State& state) {
    const std::uintmax_t bytes = MakeStation();
    for (auto _ : state) {
        const lumacfg::TrayLoadResult result = lumacfg::LoadCurrentTray();
        if (!result.loaded || result.numberError ||
            lumacfg::RackTrays().CustomRacks[kDefinitions - 1].id == lumacfg::kNoId) {
            state.SkipWithError("the generated custrack.ini did not load whole");
            break;
        }
        benchmark::DoNotOptimize(lumacfg::RackTrays());
    }
    state.counters["file_bytes"] = static_cast<double>(bytes);
}

BENCHMARK(BM_LoadCurrentTray)->Unit(benchmark::kMillisecond);

}  // namespace
