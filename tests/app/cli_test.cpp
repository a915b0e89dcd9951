// The headless front end run as a program on a temporary station.
#include <gtest/gtest.h>

#include <vector>

#include "platform/posix/backends.h"
#include "support/cli_runner.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::CliResult;
using support::ReadBytes;
using support::RunCli;
using support::TempStation;
using support::WriteBytes;

class CliTest : public TempStation {
  protected:
    CliResult Run(const std::vector<std::string>& args) { return RunCli(args, root_); }
};

TEST_F(CliTest, ShowCreatesANewStationAndSaveOfItChangesNothing) {
    CliResult shown = Run({"show"});
    ASSERT_EQ(shown.exit, 0) << shown.err;
    EXPECT_NE(shown.out.find("\nROOT_PATH=" + Root() + "\n"), std::string::npos);
    EXPECT_NE(shown.out.find("\n_QCMDPATH$=" + Root() + "\\1\\QCMODE\\\n"), std::string::npos);
    EXPECT_NE(shown.out.find("\nINHIBIT_MASS=14 16 17 18 19 32 36 38 40 41 0\n"),
              std::string::npos);
    EXPECT_EQ(shown.out.rfind("ICPMS_TYPE=1\n", 0), 0U);
    const std::string created = StationText();
    EXPECT_NE(created.find("[WSX]\r\nApplications=ICPMS\r\n"), std::string::npos);
    CliResult saved = Run({"save"});
    ASSERT_EQ(saved.exit, 0) << saved.err;
    EXPECT_EQ(StationText(), created);
}

TEST_F(CliTest, ARefusedStartUpExitsWith3) {
    auto lock = platform::posix::MakeInstanceLock();
    ASSERT_TRUE(lock->Acquire());
    CliResult refused = Run({"show"});
    EXPECT_EQ(refused.exit, 3);
    EXPECT_EQ(refused.out, "");
    // The window ends silently; a script is told why.
    EXPECT_EQ(refused.err,
              "lumacfg-cli: another copy of lumacfg or lumacfg-cli is running; try again when it "
              "has ended\n");
    EXPECT_FALSE(ReadBytes(StationProfile()));
}

TEST_F(CliTest, UsageErrorsExitWith2) {
    const std::vector<std::string> usages[] = {{},
                                               {"bogus"},
                                               {"show", "extra"},
                                               {"profile", "get", "f"},
                                               {"profile", "set", "f", "S", "K"},
                                               {"profile", "delete", "f"},
                                               {"profile", "move", "f", "S", "K"}};
    for (const auto& args : usages) {
        CliResult result = Run(args);
        EXPECT_EQ(result.exit, 2) << testing::PrintToString(args);
        EXPECT_NE(result.err.find("usage:"), std::string::npos) << testing::PrintToString(args);
    }
}

TEST_F(CliTest, ProfileGetSetAndDeleteThroughTheEngine) {
    const fs::path dir = root_ / "files";
    WriteBytes(dir / "RunType.ini", "[QC]\nMode = \"Fast\" \n\n[Other]\nx=1");
    // The data system's own form of the path: backslashes, another case.
    const std::string file = dir.string() + "\\runtype.INI";
    const std::pair<std::vector<std::string>, std::string> steps[] = {
        {{"profile", "get", file, "qc", "MODE"}, "Fast\n"},
        {{"profile", "get", file, "QC", "Missing", "def  "}, "def\n"},
        {{"profile", "set", file, "QC", "Speed", "high value\r\nignored"}, ""},
        {{"profile", "set", file, "New", "K", "C:\\DATA\\"}, ""},
        {{"profile", "get", file, "QC", "speed"}, "high value\n"},
        {{"profile", "delete", file, "QC", "Mode"}, ""},
        {{"profile", "delete", file, "Other"}, ""},
        {{"profile", "delete", (dir / "none.ini").string(), "QC", "Mode"}, ""},
    };
    for (const auto& [args, out] : steps) {
        CliResult outcome = Run(args);
        EXPECT_EQ(outcome.exit, 0) << args[1] << " " << args.back();
        EXPECT_EQ(outcome.out, out) << args[1] << " " << args.back();
    }
    EXPECT_EQ(ReadBytes(dir / "RunType.ini"), "[QC]\nSpeed=high value\n\n[New]\nK=C:\\DATA\\\n");
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace lumacfg
