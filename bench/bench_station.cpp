#include "bench_station.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <fstream>

extern char** environ;

namespace lumacfg::bench {

namespace fs = std::filesystem;

namespace {

void PointProgramsAt(const fs::path& root) {
    ::setenv("LUMACFG_PROGRAM_DIR", (root / "LUMAEXE").c_str(), 1);
    ::setenv("LUMACFG_REGISTRY", (root / "registry.reg").c_str(), 1);
    ::setenv("LUMACFG_AUDIT_LOG", (root / "audit.log").c_str(), 1);
    ::setenv("LUMACFG_LOCK_DIR", root.c_str(), 1);
    ::unsetenv("DISPLAY");
}

fs::path FreshRoot(const std::string& name) {
    const fs::path root = fs::temp_directory_path() / ("lumacfg-bench-" + name);
    fs::remove_all(root);
    return root;
}

}  // namespace

fs::path MakeStationRoot(const std::string& name) {
    const fs::path root = FreshRoot(name);
    fs::create_directories(root / "LUMAEXE");
    std::ofstream(root / "registry.reg", std::ios::binary)
        << "Windows Registry Editor Version 5.00\r\n\r\n"
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion]\r\n"
           "\"Path\"=\"C:\\\\PLASMA\"\r\n\"HardWare\"=dword:00000001\r\n";
    PointProgramsAt(root);
    return root;
}

fs::path CopyDemoStation(const std::string& name) {
    const fs::path root = FreshRoot(name);
    fs::copy(LUMACFG_DEMO_STATION, root, fs::copy_options::recursive);
    PointProgramsAt(root);
    return root;
}

ProcessRun RunProgram(const char* program, const std::vector<std::string>& arguments) {
    std::vector<char*> argv{const_cast<char*>(program)};
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    const int started = posix_spawn(&pid, program, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (started != 0) return {};
    int status = 0;
    struct rusage usage {};
    if (wait4(pid, &status, 0, &usage) != pid) return {};
    return {WIFEXITED(status) && WEXITSTATUS(status) == 0,
            static_cast<double>(usage.ru_maxrss) / 1024.0};  // ru_maxrss is in kilobytes
}

}  // namespace lumacfg::bench
