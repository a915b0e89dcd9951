// The audit trail as the headless front end leaves and reads it: every save's changed fields
// recorded before the station is written, the chain checked, the records shown as a table,
// and a log that cannot be written stops the save.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/cli_runner.h"
#include "support/scoped_env.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::CliResult;
using support::ReadBytes;
using support::WriteBytes;

class CliAuditTest : public support::TempStation {
  protected:
    CliResult Run(const std::vector<std::string>& args) { return support::RunCli(args, root_); }

    std::vector<std::string> LogLines() const {
        std::vector<std::string> lines;
        const std::string log = ReadBytes(root_ / "audit.log").value_or("");
        for (std::size_t at = 0; at < log.size();) {
            const std::size_t end = log.find('\n', at);
            lines.push_back(log.substr(at, end - at));
            at = end + 1;
        }
        return lines;
    }
};

TEST_F(CliAuditTest, SavesAreRecordedVerifiedAndShown) {
    ASSERT_EQ(Run({"set", "GPIB_ADDR=8", "PRO_SCAN=0"}).exit, 0);
    ASSERT_EQ(Run({"set", "GPIB_ADDR=9"}).exit, 0);
    ASSERT_EQ(Run({"save"}).exit, 0);  // nothing changed: nothing recorded
    EXPECT_EQ(LogLines().size(), 3);

    const CliResult verify = Run({"audit", "verify"});
    EXPECT_EQ(verify.exit, 0);
    EXPECT_EQ(verify.out, "3 records, chain intact\n");

    const CliResult show = Run({"audit", "show", (root_ / "audit.log").string()});
    EXPECT_EQ(show.exit, 0);
    EXPECT_EQ(show.out.substr(0, show.out.find('\n')),
              "TIME                      USER  FIELD      OLD \u2192 NEW");
    EXPECT_NE(show.out.find("GPIB_ADDR  20 \u2192 8\n"), std::string::npos) << show.out;
    EXPECT_NE(show.out.find("GPIB_ADDR  8 \u2192 9\n"), std::string::npos) << show.out;
    EXPECT_NE(show.out.find("PRO_SCAN   1 \u2192 0\n"), std::string::npos) << show.out;
}

TEST_F(CliAuditTest, VerifyNamesTheFirstLineThatBreaksTheChain) {
    ASSERT_EQ(Run({"set", "GPIB_ADDR=8", "PRO_SCAN=0", "KVD_Remote=1"}).exit, 0);
    std::vector<std::string> lines = LogLines();
    ASSERT_EQ(lines.size(), 3);
    std::swap(lines[1], lines[2]);
    WriteBytes(root_ / "audit.log", lines[0] + "\n" + lines[1] + "\n" + lines[2] + "\n");
    const CliResult verify = Run({"audit", "verify"});
    EXPECT_EQ(verify.exit, 1);
    EXPECT_NE(verify.out.find("line 2 breaks the chain"), std::string::npos) << verify.out;

    const CliResult missing = Run({"audit", "verify", (root_ / "nothing.log").string()});
    EXPECT_EQ(missing.exit, 4);
    EXPECT_NE(missing.err.find("nothing.log"), std::string::npos) << missing.err;
    EXPECT_EQ(Run({"audit", "check"}).exit, 2);
}

TEST_F(CliAuditTest, ALogThatCannotBeWrittenStopsTheSave) {
    ASSERT_EQ(Run({"show"}).exit, 0);
    const std::string before = StationText();
    const std::string log = (root_ / "no-such-folder" / "audit.log").string();
    support::ScopedEnv unwritable("LUMACFG_AUDIT_LOG", log);
    const CliResult set = Run({"set", "GPIB_ADDR=8"});
    EXPECT_EQ(set.exit, 4);
    EXPECT_NE(set.err.find(log), std::string::npos) << set.err;
    EXPECT_EQ(StationText(), before);
}

}  // namespace
}  // namespace lumacfg
