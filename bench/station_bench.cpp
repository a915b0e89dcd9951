// Figures of a whole station: the full load and the full save of a default station, and of a
// station whose "lumagen.ist" also carries 10,000 keys of other programs.
#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench_station.h"
#include "config/config_record.h"
#include "config/load_configuration.h"
#include "config/save_configuration.h"

namespace {

namespace fs = std::filesystem;

constexpr int kOtherProgramsKeys = 10000;

// A station whose profile is the default one, plus `otherKeys` keys of other programs spread
// over twenty sections.
void MakeStation(int otherKeys) {
    const fs::path root = lumacfg::bench::MakeStationRoot("station-" + std::to_string(otherKeys));
    {
        std::ofstream out(root / "LUMAEXE" / "lumagen.ist", std::ios::binary);
        for (int section = 0; section < 20; ++section) {
            out << "[OTHER" << section << "]\r\n";
            for (int k = section; k < otherKeys; k += 20)
                out << "KEY" << k << "=value " << k << "\r\n";
        }
    }
    lumacfg::Config() = lumacfg::ConfigRecord{};
    lumacfg::Config().ROOT_PATH = root.string();
    lumacfg::SetDefaults();
    lumacfg::WriteInitialProfile();
    lumacfg::SaveConfiguration();
}

void BM_LoadStation(benchmark::State& state) {
    MakeStation(static_cast<int>(state.range(0)));
    for (auto _ : state) lumacfg::LoadConfiguration();
}

void BM_SaveStation(benchmark::State& state) {
    MakeStation(static_cast<int>(state.range(0)));
    for (auto _ : state) lumacfg::SaveConfiguration();
}

BENCHMARK(BM_LoadStation)->Arg(0)->Arg(kOtherProgramsKeys)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveStation)->Arg(0)->Arg(kOtherProgramsKeys)->Unit(benchmark::kMillisecond);

}  // namespace
