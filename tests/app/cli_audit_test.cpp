// The audit trail as the headless front end leaves and reads it: every save's changed fields
// recorded before the station is written, the chain checked, the records shown as a table,
// and a log that cannot be written stops the save.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/audit_chain.h"
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

    // Each record as its event and the members that follow it, joined by blanks.
    std::vector<std::string> Events() const {
        std::vector<std::string> events;
        for (const JsonMembers& record :
             AuditRecords(ReadBytes(root_ / "audit.log").value_or(""))) {
            std::string text;
            bool from = false;
            for (const auto& [name, value] : record) {
                from = from || name == "event";
                if (from && name != "prev") text += (text.empty() ? "" : " ") + value;
            }
            events.push_back(text);
        }
        return events;
    }
};

// Commands run one after the other on a new station, and the records they leave, in order: only
// what the next start shows changed is recorded, old and new as `show` prints them.
struct Steps {
    const char* what;
    std::vector<std::vector<std::string>> commands;
    std::vector<std::string> events;
};

TEST_F(CliAuditTest, EachCommandRecordsWhatItChanges) {
    const std::string profile = StationProfile().string();
    const std::string masses =
        "INHIBIT_MASS 14 16 17 18 19 32 36 38 40 41 0 23 0 0 0 0 0 0 0 0 0 0";
    const std::string registry = RegistryFileText();
    const Steps cases[] = {
        {"masses stored as the next start reads them",
         {{"set", "INHIBIT_MASS=23"}, {"set", "PRO_SCAN=0"}, {"set", "PRO_SCAN=0"}},
         {"field-changed " + masses, "field-changed PRO_SCAN 1 0"}},
        {"security off, then on (a new station starts with it on)",
         {{"set", "_SECURITY=0"}, {"set", "_SECURITY=1"}},
         {"field-changed _SECURITY 1 0", "security-off", "security-flag-change _SECURITY 1 -> 0",
          "field-changed _SECURITY 0 1", "field-changed _ALWAYSPRT 0 -1", "security-on",
          "security-flag-change _SECURITY 0 -> 1"}},
        {"profile keys set, kept, changed and deleted",
         {{"profile", "set", profile, "Notes", "Who", "A"},
          {"profile", "set", profile, "Notes", "Who", "A"},
          {"profile", "set", profile, "Notes", "Who", "B"},
          {"profile", "delete", profile, "Notes", "Who"},
          {"profile", "delete", profile, "Notes", "Who"}},
         {"profile-changed " + profile + " Notes Who A",
          "profile-changed " + profile + " Notes Who A B",
          "profile-changed " + profile + " Notes Who B"}},
        {"a section deleted, once",
         {{"profile", "set", profile, "Notes", "Who", "0"},
          {"profile", "delete", profile, "Notes"},
          {"profile", "delete", profile, "Notes"}},
         {"profile-changed " + profile + " Notes Who 0", "profile-changed " + profile + " Notes"}},
    };
    for (const Steps& steps : cases) {
        std::filesystem::remove(StationProfile());
        WriteBytes(RegistryPath(), registry);
        ASSERT_EQ(Run({"save"}).exit, 0) << steps.what;  // a new station
        std::filesystem::remove(root_ / "audit.log");
        for (const std::vector<std::string>& command : steps.commands) {
            ASSERT_EQ(Run(command).exit, 0) << steps.what << ": " << command[1];
        }
        EXPECT_EQ(Events(), steps.events) << steps.what;
        EXPECT_EQ(Run({"audit", "verify"}).exit, 0) << steps.what;
    }
}

TEST_F(CliAuditTest, AProfileChangeThatCannotBeRecordedWritesNothing) {
    ASSERT_EQ(Run({"save"}).exit, 0);
    const std::string before = StationText();
    const std::string log = (root_ / "no-such-folder" / "audit.log").string();
    support::ScopedEnv unwritable("LUMACFG_AUDIT_LOG", log);
    const std::string profile = StationProfile().string();
    const std::vector<std::string> commands[] = {
        {"profile", "set", profile, "WSX,1", "GPIB_ADDR", "9"},
        {"profile", "delete", profile, "WSX,1", "KVD_Remote"},
        {"profile", "delete", profile, "WSX,1"},
    };
    for (const std::vector<std::string>& command : commands) {
        const CliResult result = Run(command);
        EXPECT_EQ(result.exit, 4) << command[1];
        EXPECT_NE(result.err.find(log), std::string::npos) << result.err;
        EXPECT_EQ(StationText(), before) << command[1];
    }
}

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

    WriteBytes(root_ / "audit.log", lines[0] + "\n" + lines[1] + "\n");  // the second removed
    const CliResult removed = Run({"audit", "verify"});
    EXPECT_NE(removed.out.find("line 2 breaks the chain"), std::string::npos) << removed.out;
    EXPECT_NE(removed.out.find("; 1 record intact before it\n"), std::string::npos) << removed.out;
    WriteBytes(root_ / "audit.log", lines[0] + "\n");
    EXPECT_EQ(Run({"audit", "verify"}).out, "1 record, chain intact\n");

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
