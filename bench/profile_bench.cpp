// Figures of the profile engine: 100 reads, and one save that sets 150 keys, on station
// profiles of 100, 1,000 and 10,000 keys. A save must cost time linear in the file's size and
// write the file once.
#include <benchmark/benchmark.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "config/profile.h"
#include "config/station_batch.h"
#include "platform/services.h"

namespace {

namespace fs = std::filesystem;

// A station directory whose "lumagen.ist" holds `keys` keys spread over ten sections.
std::string MakeStation(int keys) {
    fs::path dir = fs::temp_directory_path() / ("lumacfg-bench-" + std::to_string(keys));
    fs::create_directories(dir);
    std::ofstream out(dir / "lumagen.ist", std::ios::binary | std::ios::trunc);
    for (int section = 0; section < 10; ++section) {
        out << "[SECTION" << section << "]\r\n";
        for (int k = section; k < keys; k += 10) out << "KEY" << k << "=value " << k << "\r\n";
    }
    ::setenv("LUMACFG_PROGRAM_DIR", dir.c_str(), 1);
    return (dir / "lumagen.ist").string();
}

void BM_Read100Keys(benchmark::State& state) {
    const int keys = static_cast<int>(state.range(0));
    MakeStation(keys);
    for (auto _ : state) {
        for (int i = 0; i < 100; ++i) {
            int k = (i * 97) % keys;
            auto value = lumacfg::ReadSingleValue("SECTION" + std::to_string(k % 10),
                                                  "KEY" + std::to_string(k));
            benchmark::DoNotOptimize(value);
        }
    }
}

// One save: 150 keys set (half changed, half new) inside one batch.
void BM_Save150Keys(benchmark::State& state) {
    const int keys = static_cast<int>(state.range(0));
    std::string path = MakeStation(keys);
    int round = 0;
    std::uint64_t writes = 0;
    for (auto _ : state) {
        struct stat before {};
        ::stat(path.c_str(), &before);
        {
            lumacfg::StationBatch batch;
            for (int i = 0; i < 150; ++i) {
                int k = i < 75 ? (i * 13) % keys : keys + i;
                lumacfg::ProfileSet("SECTION" + std::to_string(k % 10), "KEY" + std::to_string(k),
                                    "saved " + std::to_string(round));
            }
        }
        struct stat after {};
        ::stat(path.c_str(), &after);
        if (after.st_ino != before.st_ino) ++writes;  // each atomic replacement is a new file
        ++round;
    }
    state.counters["file_writes_per_save"] =
        benchmark::Counter(static_cast<double>(writes) / static_cast<double>(round));
}

BENCHMARK(BM_Read100Keys)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Save150Keys)->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
