// Whole-process figures of the desktop program as an administrator meets them: from starting
// lumacfg to its main window shown (on Qt's offscreen platform, on the demo station after its
// first start), and the peak resident memory of that process. The program is started with
// --quit-after-shown, so each run ends as soon as the window has been shown and painted; the
// time measured is start to exit, an upper bound of start to shown.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <algorithm>

#include "bench_station.h"

namespace {

using lumacfg::bench::ProcessRun;

ProcessRun RunWindow() {
    return lumacfg::bench::RunProgram(LUMACFG_GUI_PATH, {"--quit-after-shown"});
}

void BM_WindowShown(benchmark::State& state) {
    lumacfg::bench::CopyDemoStation("window");
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (!RunWindow().ok) {
        state.SkipWithError("lumacfg could not create the station");
        return;
    }
    double peak = 0;
    for (auto _ : state) {
        const ProcessRun run = RunWindow();
        if (!run.ok) state.SkipWithError("lumacfg failed");
        peak = std::max(peak, run.peakMegabytes);
    }
    state.counters["peak_rss_MB"] = peak;
}

BENCHMARK(BM_WindowShown)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
