// The audit log on the disk: what each record names, appends by several programs at once that
// keep the chain whole, a log that cannot be written, and one whose disk fills part-way.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "base/audit_chain.h"
#include "platform/logon.h"
#include "platform/posix/backends.h"
#include "platform/services.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg::platform::posix {
namespace {

using support::ReadBytes;
using support::ScopedEnv;
using support::TempDir;
using support::WriteBytes;

class AuditLogTest : public ::testing::Test {
  protected:
    void TearDown() override { ResetServices(); }

    std::string LogText() const { return ReadBytes(logPath_).value_or(""); }

    TempDir temp_{"lumacfg-audit"};
    std::string logPath_ = (temp_.Path() / "audit.log").string();
    ScopedEnv logEnv_{"LUMACFG_AUDIT_LOG", logPath_};
    ScopedEnv programDirEnv_{"LUMACFG_PROGRAM_DIR", (temp_.Path() / "LUMAEXE").string()};
};

TEST_F(AuditLogTest, EachEventIsOneRecordNamingWhenWhoWhereAndWhat) {
    Identity() = {"lumacfg", "analyst"};
    ASSERT_TRUE(MakeAuditLog()->Append(
        {{"field-changed", {{"field", "GPIB_ADDR"}, {"old", "20"}, {"new", "8"}}}, {"logon", {}}}));
    const std::vector<JsonMembers> records = AuditRecords(LogText());
    ASSERT_EQ(records.size(), 2);
    std::vector<std::string> names;
    for (const auto& member : records[0]) names.push_back(member.first);
    EXPECT_EQ(names, (std::vector<std::string>{"time", "host", "user", "program", "station",
                                               "event", "field", "old", "new", "prev"}));
    EXPECT_TRUE(std::regex_match(*MemberValue(records[0], "time"),
                                 std::regex(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z)")));
    EXPECT_EQ(MemberValue(records[0], "user"), "analyst");
    EXPECT_EQ(MemberValue(records[0], "program"), "lumacfg");
    EXPECT_EQ(MemberValue(records[0], "station"), (temp_.Path() / "LUMAEXE").string());
    EXPECT_EQ(MemberValue(records[1], "event"), "logon");
    EXPECT_EQ(CheckChain(LogText()).records, 2);
    // Whatever the umask, the station's group may append.
    EXPECT_EQ(std::filesystem::status(logPath_).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write |
                  std::filesystem::perms::group_read | std::filesystem::perms::group_write);
}

TEST_F(AuditLogTest, ALastLineCutShortStaysAndTheChainNamesIt) {
    ASSERT_TRUE(MakeAuditLog()->Append({{"logon", {}}}));
    WriteBytes(logPath_, LogText() + "{\"event\":\"log");
    ASSERT_TRUE(MakeAuditLog()->Append({{"logon", {}}}));
    EXPECT_EQ(AuditRecords(LogText()).size(), 2);
    EXPECT_EQ(CheckChain(LogText()).brokenLine, 2);
}

TEST_F(AuditLogTest, ProgramsAppendingAtOnceNeverBreakTheChain) {
    constexpr int kWriters = 4, kAppends = 100, kEventsPerAppend = 3;
    const std::vector<AuditEvent> events(kEventsPerAppend,
                                         {"field-changed", {{"field", "RACK1_ID"}, {"old", "0"}}});
    std::vector<pid_t> writers;
    for (int i = 0; i < kWriters; ++i) {
        const pid_t pid = ::fork();
        ASSERT_GE(pid, 0);
        if (pid == 0) {
            std::unique_ptr<AuditLog> log = MakeAuditLog();
            bool ok = true;
            for (int n = 0; n < kAppends; ++n) ok = log->Append(events) && ok;
            ::_exit(ok ? 0 : 1);
        }
        writers.push_back(pid);
    }
    for (pid_t pid : writers) {
        int status = 0;
        ASSERT_EQ(::waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    const ChainCheck check = CheckChain(LogText());
    EXPECT_EQ(check.brokenLine, 0) << check.reason;
    EXPECT_EQ(check.records, kWriters * kAppends * kEventsPerAppend);
}

// A child process whose files may not grow past `limit` bytes (the write stops part-way, as on
// a full disk) appends one long record: the append fails with the reason reported, and the log
// keeps only what it held before.
TEST_F(AuditLogTest, AnAppendThatFailsPartWayLeavesTheLogAsItWas) {
    ASSERT_TRUE(MakeAuditLog()->Append({{"logon", {}}}));
    const std::string before = LogText();
    const pid_t pid = ::fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlim_t limit = before.size() + 100;
        const rlimit small{limit, limit};
        if (::setrlimit(RLIMIT_FSIZE, &small) != 0) ::_exit(2);
        const bool appended =
            MakeAuditLog()->Append({{"security-flag-change", {{"text", std::string(4000, 'x')}}}});
        const bool reported =
            Failures().Take() ==
            std::vector<FileFailure>{{FileOperation::Write, logPath_, "File too large"}};
        ::_exit(!appended && reported ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    EXPECT_EQ(LogText(), before);
    ASSERT_TRUE(MakeAuditLog()->Append({{"logon", {}}}));
    const ChainCheck check = CheckChain(LogText());
    EXPECT_EQ(check.brokenLine, 0) << check.reason;
    EXPECT_EQ(check.records, 2);
}

// The session's logon (the demo's) is recorded like the system's, naming the user and that it
// was the session's; when the log cannot be written, nobody is logged on and no group is left.
TEST_F(AuditLogTest, TheSessionLogonIsRecorded) {
    const std::filesystem::path programDir = temp_.Path() / "LUMAEXE";
    std::filesystem::create_directories(programDir);
    const std::string unwritable = (temp_.Path() / "missing" / "audit.log").string();
    const std::pair<std::string, int> cases[] = {{logPath_, 0}, {unwritable, 1}};
    for (const auto& [log, answer] : cases) {
        ScopedEnv logEnv("LUMACFG_AUDIT_LOG", log);
        std::filesystem::remove(programDir / "lumagen.ist");
        EXPECT_EQ(MakeLogonService()->Logon(0, "LUMACFG"), answer) << log;
        EXPECT_EQ(std::filesystem::exists(programDir / "lumagen.ist"), answer == 0) << log;
        EXPECT_TRUE(Failures().Take().empty()) << log;  // a failure is told, not left behind
    }
    const std::vector<JsonMembers> records = AuditRecords(LogText());
    ASSERT_EQ(records.size(), 1);
    EXPECT_EQ(MemberValue(records[0], "event"), "logon");
    EXPECT_EQ(MemberValue(records[0], "name"), DesktopUser());
    EXPECT_EQ(MemberValue(records[0], "method"), "session");
}

TEST_F(AuditLogTest, ALogThatCannotBeWrittenIsReportedWithItsPath) {
    const std::string path = (temp_.Path() / "missing" / "audit.log").string();
    ScopedEnv elsewhere("LUMACFG_AUDIT_LOG", path);
    EXPECT_FALSE(MakeAuditLog()->Append({{"logon", {}}}));
    EXPECT_EQ(
        Failures().Take(),
        (std::vector<FileFailure>{{FileOperation::Write, path, "No such file or directory"}}));
    EXPECT_TRUE(MakeAuditLog()->Append({}));  // nothing to record: nothing to fail
}

}  // namespace
}  // namespace lumacfg::platform::posix
