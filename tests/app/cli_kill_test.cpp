// A save killed at any moment (SIGKILL: no handler, no clean-up) leaves every station file
// either as it was or as the save makes it, byte for byte, and the next save that runs to its
// end leaves no temporary file behind. The station's files are large, so a save takes long
// enough to be killed in the middle of its writes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <map>
#include <random>
#include <regex>
#include <string>
#include <thread>

#include "support/cli_runner.h"
#include "support/temp_station.h"

extern char** environ;

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::ReadBytes;
using support::WriteBytes;
using Clock = std::chrono::steady_clock;

constexpr int kKills = 200;

// The files a save writes, relative to the root, with their bytes (absent: not there).
using Files = std::map<std::string, std::optional<std::string>>;

class CliKillTest : public support::TempStation {
  protected:
    const std::vector<std::string> kFiles = {"LUMAEXE/lumagen.ist", "registry.reg",
                                             "LUMAEXE/custrack.ini", "LUMAEXE/runtype.ini"};

    Files Take() const {
        Files files;
        for (const std::string& name : kFiles) files[name] = ReadBytes(root_ / name);
        return files;
    }
    void Restore(const Files& files) const {
        for (const auto& [name, bytes] : files) {
            if (bytes) {
                WriteBytes(root_ / name, *bytes);
            } else {
                fs::remove(root_ / name);
            }
        }
    }
    // The temporary files in the station's folders.
    int Temporaries() const {
        int count = 0;
        for (const fs::path& dir : {root_, ProgramDir()}) {
            for (const auto& entry : fs::directory_iterator(dir)) {
                count += entry.path().filename().string().starts_with(".") ? 1 : 0;
            }
        }
        return count;
    }

    // A station of the first start made large, with something for the save to change in each
    // of its files: a key the load completes, the tray selection of an ASX500 in another key
    // order, the configuration identifier and the run types' error action.
    Files LargeStation() {
        EXPECT_EQ(support::RunCli({"show"}, root_).exit, 0);
        std::string station = StationText();
        station.erase(station.find("OPT_CHG_TIME=12\r\n"), 17);
        station.replace(station.find("ALS_TYPE=\r\n"), 11, "ALS_TYPE=1\r\n");
        station += "[OTHER PROGRAM]\r\n";
        for (int i = 0; i < 15000; ++i) station += "Key" + std::to_string(i) + "=value\r\n";
        WriteBytes(StationProfile(), station);
        std::string values;
        for (int i = 0; i < 8000; ++i) values += "\"Value" + std::to_string(i) + "\"=\"x\"\r\n";
        WriteBytes(RegistryPath(), support::RegistryText("\"Path\"=\"C:\\\\PLASMA\"\r\n") +
                                       "\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\r\n" + values);
        WriteBytes(ProgramDir() / "custrack.ini",
                   support::ReadBytes(fs::path(LUMACFG_SOURCE_DIR) /
                                      "examples/demo-station/LUMAEXE/custrack.ini")
                           .value() +
                       "\r\n; the selection as another program wrote it\r\n");
        std::string runTypes = "[ERRORACTION]\r\n[RUN TYPES]\r\n";  // the error action missing
        for (int i = 0; i < 8000; ++i) runTypes += "Type" + std::to_string(i) + "=x\r\n";
        WriteBytes(ProgramDir() / "runtype.ini", runTypes);
        return Take();
    }
};

// The registry store with its configuration identifier's value taken out: the identifier
// carries the moment of the save.
std::optional<std::string> WithoutStamp(const std::optional<std::string>& store) {
    if (!store) return store;
    static const std::regex stamp("\"ConfigurationID\"=dword:[0-9a-f]{8}");
    return std::regex_replace(*store, stamp, "\"ConfigurationID\"=dword:stamp");
}

pid_t StartSave() {
    pid_t child = -1;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    char program[] = LUMACFG_CLI_PATH;
    char command[] = "save";
    char* argv[] = {program, command, nullptr};
    EXPECT_EQ(::posix_spawn(&child, program, &actions, nullptr, argv, environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    return child;
}

TEST_F(CliKillTest, AKilledSaveLeavesEachFileOldOrNew) {
    const Files before = LargeStation();
    const Clock::time_point started = Clock::now();
    ASSERT_EQ(support::RunCli({"save"}, root_).exit, 0);
    const auto saveTime =
        std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - started);
    Files after = Take();
    for (const std::string& name : kFiles) {
        ASSERT_NE(WithoutStamp(before.at(name)), WithoutStamp(after.at(name))) << name;
    }

    std::mt19937 random(20261123);
    std::uniform_int_distribution<long> delay(0, saveTime.count());
    // Kills that left some files written and others not, and kills that left a temporary file:
    // without them the test would prove nothing.
    int partly = 0, withTemporary = 0;
    for (int kill = 0; kill < kKills; ++kill) {
        Restore(before);
        const pid_t child = StartSave();
        std::this_thread::sleep_for(std::chrono::microseconds(delay(random)));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        int written = 0;
        for (const std::string& name : kFiles) {
            const auto now = ReadBytes(root_ / name);
            const bool isNew = WithoutStamp(now) == WithoutStamp(after.at(name));
            ASSERT_TRUE(now == before.at(name) || isNew) << "kill " << kill << ": " << name;
            written += isNew ? 1 : 0;
        }
        partly += written > 0 && written < static_cast<int>(kFiles.size()) ? 1 : 0;
        withTemporary += Temporaries() > 0 ? 1 : 0;
    }
    std::cout << kKills << " kills during a save of " << saveTime.count() << " us: " << partly
              << " between its first and last write, " << withTemporary
              << " with a temporary file left\n";
    EXPECT_GT(partly + withTemporary, 0) << "no kill reached the writes";

    ASSERT_EQ(support::RunCli({"save"}, root_).exit, 0);
    EXPECT_EQ(Temporaries(), 0);
}

}  // namespace
}  // namespace lumacfg
