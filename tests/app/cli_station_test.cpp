// The headless front end run as a program on a temporary station.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>

#include "platform/posix/backends.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

using testing_support::ReadBytes;
using testing_support::ScopedEnv;
using testing_support::TempStation;
using testing_support::WriteBytes;

struct CliResult {
    int exit = -1;
    std::string out, err;
};

class CliStationTest : public TempStation {
  protected:
    CliResult Run(const std::string& args) {
        const std::string errFile = (root_ / "stderr.txt").string();
        const std::string command = std::string(LUMACFG_CLI_PATH) + " " + args + " 2>" + errFile;
        CliResult result;
        FILE* pipe = ::popen(command.c_str(), "r");
        char chunk[4096];
        while (std::size_t got = std::fread(chunk, 1, sizeof chunk, pipe))
            result.out.append(chunk, got);
        int status = ::pclose(pipe);
        result.exit = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        result.err = ReadBytes(errFile).value_or("");
        return result;
    }

    ScopedEnv lockDirEnv_{"LUMACFG_LOCK_DIR", Root()};  // never the lock of a real session
    ScopedEnv displayEnv_{"DISPLAY", std::nullopt};     // no data-system windows to find
};

TEST_F(CliStationTest, ShowCreatesANewStationAndPrintsTheRecord) {
    CliResult shown = Run("show");
    ASSERT_EQ(shown.exit, 0) << shown.err;
    EXPECT_NE(shown.out.find("\nROOT_PATH=" + Root() + "\n"), std::string::npos);
    EXPECT_NE(shown.out.find("\n_QCMDPATH$=" + Root() + "\\1\\QCMODE\\\n"), std::string::npos);
    EXPECT_NE(shown.out.find("\nINHIBIT_MASS=14 16 17 18 19 32 36 38 40 41 0\n"),
              std::string::npos);
    EXPECT_EQ(shown.out.rfind("ICPMS_TYPE=1\n", 0), 0U);
    EXPECT_NE(StationText().find("[WSX]\r\nApplications=ICPMS\r\n"), std::string::npos);
}

TEST_F(CliStationTest, SaveOfALoadedStationChangesNothing) {
    ASSERT_EQ(Run("show").exit, 0);
    const std::string created = StationText();
    CliResult saved = Run("save");
    ASSERT_EQ(saved.exit, 0) << saved.err;
    EXPECT_EQ(StationText(), created);
}

TEST_F(CliStationTest, ARefusedStartUpExitsWith3) {
    auto lock = platform::posix::MakeInstanceLock();
    ASSERT_TRUE(lock->Acquire());
    CliResult refused = Run("show");
    EXPECT_EQ(refused.exit, 3);
    EXPECT_EQ(refused.out, "");
    EXPECT_EQ(refused.err, "");  // a second copy ends silently
    EXPECT_FALSE(ReadBytes(StationProfile()));
}

TEST_F(CliStationTest, UsageErrorsExitWith2) {
    for (const char* args : {"", "bogus", "show extra", "profile", "profile get onlyfile"}) {
        CliResult result = Run(args);
        EXPECT_EQ(result.exit, 2) << args;
        EXPECT_NE(result.err.find("usage:"), std::string::npos) << args;
    }
}

}  // namespace
}  // namespace lumacfg
