// Whole-process figures of the desktop program as an administrator meets them: from starting
// lumacfg to its main window shown (on Qt's offscreen platform, on a station the first start
// created), and the peak resident memory of that process. The program is started with
// --quit-after-shown, so each run ends as soon as the window has been shown and painted; the
// time measured is start to exit, an upper bound of start to shown.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>

extern char** environ;

namespace {

namespace fs = std::filesystem;

struct WindowRun {
    bool ok = false;
    double peakMegabytes = 0;
};

// Starts lumacfg --quit-after-shown and waits for it; its peak resident size from the kernel.
WindowRun RunWindow() {
    char* argv[] = {const_cast<char*>(LUMACFG_GUI_PATH), const_cast<char*>("--quit-after-shown"),
                    nullptr};
    pid_t pid = 0;
    if (posix_spawn(&pid, LUMACFG_GUI_PATH, nullptr, nullptr, argv, environ) != 0) return {};
    int status = 0;
    struct rusage usage {};
    if (wait4(pid, &status, 0, &usage) != pid) return {};
    return {WIFEXITED(status) && WEXITSTATUS(status) == 0,
            static_cast<double>(usage.ru_maxrss) / 1024.0};  // ru_maxrss is in kilobytes
}

// A fresh station of the GPIB model, created by the program's own first start.
bool MakeStation() {
    const fs::path root = fs::temp_directory_path() / "lumacfg-bench-window";
    fs::remove_all(root);
    fs::create_directories(root / "LUMAEXE");
    std::ofstream(root / "registry.reg", std::ios::binary)
        << "Windows Registry Editor Version 5.00\r\n\r\n"
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion]\r\n"
           "\"Path\"=\"C:\\\\PLASMA\"\r\n\"HardWare\"=dword:00000001\r\n";
    ::setenv("LUMACFG_PROGRAM_DIR", (root / "LUMAEXE").c_str(), 1);
    ::setenv("LUMACFG_REGISTRY", (root / "registry.reg").c_str(), 1);
    ::setenv("LUMACFG_AUDIT_LOG", (root / "audit.log").c_str(), 1);
    ::setenv("LUMACFG_LOCK_DIR", root.c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::unsetenv("DISPLAY");
    return RunWindow().ok;
}

void BM_WindowShown(benchmark::State& state) {
    if (!MakeStation()) {
        state.SkipWithError("lumacfg could not create the station");
        return;
    }
    double peak = 0;
    for (auto _ : state) {
        const WindowRun run = RunWindow();
        if (!run.ok) state.SkipWithError("lumacfg failed");
        peak = std::max(peak, run.peakMegabytes);
    }
    state.counters["peak_rss_MB"] = peak;
}

BENCHMARK(BM_WindowShown)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
