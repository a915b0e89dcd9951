// Whole-process figures of the headless front end, as a script that sets up stations sees
// them: from starting lumacfg-cli to its exit, on a station whose "lumagen.ist" carries
// 100,000 keys of other programs in section "WSX,1".
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

extern char** environ;

namespace {

namespace fs = std::filesystem;

constexpr int kExtraKeys = 100000;

// Runs lumacfg-cli with the argument, its output thrown away; false when it did not exit 0.
bool RunCli(const char* command) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    char* argv[] = {const_cast<char*>(LUMACFG_CLI_PATH), const_cast<char*>(command), nullptr};
    pid_t pid = 0;
    const int started = posix_spawn(&pid, LUMACFG_CLI_PATH, &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    return started == 0 && waitpid(pid, &status, 0) == pid && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

// A station created by the front end's first start, then given the other programs' keys.
void MakeLargeStation() {
    const fs::path root = fs::temp_directory_path() / "lumacfg-bench-process";
    fs::remove_all(root);
    fs::create_directories(root / "LUMAEXE");
    std::ofstream(root / "registry.reg", std::ios::binary)
        << "Windows Registry Editor Version 5.00\r\n\r\n"
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion]\r\n"
           "\"Path\"=\"C:\\\\PLASMA\"\r\n\"HardWare\"=dword:00000001\r\n";
    ::setenv("LUMACFG_PROGRAM_DIR", (root / "LUMAEXE").c_str(), 1);
    ::setenv("LUMACFG_REGISTRY", (root / "registry.reg").c_str(), 1);
    ::setenv("LUMACFG_LOCK_DIR", root.c_str(), 1);
    ::unsetenv("DISPLAY");
    RunCli("show");
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
}

void BM_CliOnLargeStation(benchmark::State& state, const char* command) {
    MakeLargeStation();
    for (auto _ : state) {
        if (!RunCli(command)) state.SkipWithError("lumacfg-cli failed");
    }
}

BENCHMARK_CAPTURE(BM_CliOnLargeStation, show, "show")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(BM_CliOnLargeStation, save, "save")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
