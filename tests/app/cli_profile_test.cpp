// lumacfg-cli profile get|set|delete, run as a program on files of a temporary directory.
#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/temp_dir.h"

extern char** environ;

namespace {

namespace fs = std::filesystem;
using lumacfg::testing_support::ReadBytes;
using lumacfg::testing_support::TempDir;
using lumacfg::testing_support::WriteBytes;

struct Outcome {
    int exit;
    std::string out;
};

// Runs lumacfg-cli with the arguments (no shell in between) and collects its standard output.
Outcome RunCli(std::vector<std::string> args) {
    args.insert(args.begin(), LUMACFG_CLI_PATH);
    std::vector<char*> argv;
    for (std::string& arg : args) argv.push_back(arg.data());
    argv.push_back(nullptr);
    int pipeFds[2];
    if (::pipe(pipeFds) != 0) return {-1, ""};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeFds[0]);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t pid = 0;
    int spawned = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipeFds[1]);
    Outcome outcome{-1, ""};
    char buffer[4096];
    for (ssize_t got; (got = ::read(pipeFds[0], buffer, sizeof buffer)) > 0;) {
        outcome.out.append(buffer, static_cast<std::size_t>(got));
    }
    ::close(pipeFds[0]);
    int status = 0;
    if (spawned == 0 && ::waitpid(pid, &status, 0) == pid && WIFEXITED(status)) {
        outcome.exit = WEXITSTATUS(status);
    }
    return outcome;
}

TEST(CliProfileTest, GetSetAndDeleteThroughTheEngine) {
    const TempDir temp("lumacfg-cli");
    const fs::path& dir = temp.Path();
    WriteBytes(dir / "RunType.ini", "[QC]\nMode = \"Fast\" \n\n[Other]\nx=1");
    // The data system's own form of the path: backslashes, another case.
    const std::string file = dir.string() + "\\runtype.INI";

    struct Step {
        std::vector<std::string> args;
        int exit;
        std::string out;
    } steps[] = {
        {{"profile", "get", file, "qc", "MODE"}, 0, "Fast\n"},
        {{"profile", "get", file, "QC", "Missing", "def  "}, 0, "def\n"},
        {{"profile", "get", file, "QC", "Missing"}, 0, "\n"},
        {{"profile", "set", file, "QC", "Speed", "high value\r\nignored"}, 0, ""},
        {{"profile", "set", file, "Other", "x", "2"}, 0, ""},
        {{"profile", "set", file, "New", "K", "C:\\DATA\\"}, 0, ""},
        {{"profile", "get", file, "QC", "speed"}, 0, "high value\n"},
        {{"profile", "delete", file, "QC", "Mode"}, 0, ""},
        {{"profile", "delete", file, "Absent"}, 0, ""},
        {{"profile", "delete", (dir / "none.ini").string(), "QC", "Mode"}, 0, ""},
        {{"profile", "get", file}, 2, ""},
        {{"profile", "set", file, "QC", "K"}, 2, ""},
        {{"profile", "delete", file}, 2, ""},
        {{"profile", "move", file, "QC", "K"}, 2, ""},
    };
    for (const Step& step : steps) {
        Outcome outcome = RunCli(step.args);
        EXPECT_EQ(outcome.exit, step.exit) << step.args[1] << " " << step.args.back();
        EXPECT_EQ(outcome.out, step.out) << step.args[1] << " " << step.args.back();
    }
    EXPECT_EQ(ReadBytes(dir / "RunType.ini"),
              "[QC]\nSpeed=high value\n\n[Other]\nx=2\n[New]\nK=C:\\DATA\\\n");
    EXPECT_FALSE(fs::exists(dir / "none.ini"));
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);

    Outcome deleted = RunCli({"profile", "delete", file, "qc"});
    EXPECT_EQ(deleted.exit, 0);
    EXPECT_EQ(ReadBytes(dir / "RunType.ini"), "[Other]\nx=2\n[New]\nK=C:\\DATA\\\n");
}

}  // namespace
