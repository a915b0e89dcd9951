// Runs a built program (lumacfg-cli, or the window) as a user would, in the environment of the
// test, and collects what it prints and its exit status.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "support/temp_dir.h"

namespace lumacfg::support {

struct CliResult {
    int exit = -1;  // -1 when the program did not end by itself (a crash, or killed after 20 s)
    std::string out, err;
};

// Each argument is quoted for the shell; the standard error goes through a file in `scratch`.
// A program that blocks is a fault of its own: it is ended after `seconds`, never waited for
// forever.
inline CliResult RunProgram(const std::string& program, const std::vector<std::string>& args,
                            const std::filesystem::path& scratch, int seconds = 20) {
    const std::string errFile = (scratch / "cli-stderr.txt").string();
    std::string command = "timeout -s KILL " + std::to_string(seconds) + " " + program;
    for (const std::string& arg : args) {
        command += " '";
        for (char c : arg) command += c == '\'' ? std::string("'\\''") : std::string(1, c);
        command += "'";
    }
    command += " 2>'" + errFile + "'";
    CliResult result;
    FILE* pipe = ::popen(command.c_str(), "r");
    char chunk[4096];
    while (std::size_t got = std::fread(chunk, 1, sizeof chunk, pipe))
        result.out.append(chunk, got);
    const int status = ::pclose(pipe);
    result.exit = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    if (result.exit == 137) result.exit = -1;  // killed by the time limit
    result.err = ReadBytes(errFile).value_or("");
    return result;
}

inline CliResult RunCli(const std::vector<std::string>& args,
                        const std::filesystem::path& scratch) {
    return RunProgram(LUMACFG_CLI_PATH, args, scratch);
}

// The value of `name` as `lumacfg-cli show` prints it for the station the environment names;
// "(missing)" when show prints no such line.
inline std::string ShownValue(const std::string& name, const std::filesystem::path& scratch) {
    const std::string out = "\n" + RunCli({"show"}, scratch).out;
    const std::size_t at = out.find("\n" + name + "=");
    if (at == std::string::npos) return "(missing)";
    const std::size_t start = at + name.size() + 2;
    return out.substr(start, out.find('\n', start) - start);
}

}  // namespace lumacfg::support
