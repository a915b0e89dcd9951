// The collection lumacfg.station end to end: ansible-playbook runs the module `config` on
// localhost over two copies of the demo station, as an administrator runs it over a fleet.
// Skipped where no ansible-playbook is installed (CI installs Debian's ansible-core).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "base/json.h"
#include "support/cli_runner.h"
#include "support/file_times.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::CliResult;
using support::ScopedEnv;

const fs::path kSource = LUMACFG_SOURCE_DIR;
constexpr int kPlaybookSeconds = 180;
// Ansible refuses to start under a locale whose encoding is not UTF-8 (a bare container's "C").
constexpr const char* kUtf8Locale = "C.UTF-8";

bool Installed(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

// One host's result as the tree callback kept it: the last task's result object (which leaves
// out whether the task failed: the standard output says that).
struct HostResult {
    bool changed = false;
    std::string message;
};

HostResult ResultOf(const fs::path& file) {
    HostResult result;
    const auto parsed = ParseJson(support::ReadBytes(file).value_or(""));
    const auto* object = std::get_if<JsonValue>(&parsed);
    if (object == nullptr) {
        ADD_FAILURE() << "no result in " << file;
        return result;
    }
    for (const auto& [name, value] : object->members) {
        if (name == "changed") result.changed = value.boolean;
        if (name == "message") result.message = value.text;
    }
    return result;
}

// The fields given to a station, as an inventory's host variable.
using Fields = std::map<std::string, std::string>;

std::string JsonObject(const Fields& fields) {
    std::string object;
    for (const auto& [name, value] : fields) {
        object += (object.empty() ? "{" : ", ") + JsonQuoted(name) + ": " + value;
    }
    return object.empty() ? "{}" : object + "}";
}

// How the minimal callback ends a host's task: "SUCCESS", "CHANGED" or "FAILED!".
std::string Status(const CliResult& run, const std::string& station) {
    const std::string line = station + " | ";
    std::size_t at = run.out.starts_with(line) ? 0 : run.out.find("\n" + line);
    if (at == std::string::npos) return "(no result)";
    at = run.out.find(line, at) + line.size();
    return run.out.substr(at, run.out.find(' ', at) - at);
}

class StationConfigTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!Installed("ansible-playbook")) GTEST_SKIP() << "ansible-playbook is not installed";
        for (const char* station : {"a", "b"}) {
            fs::copy(kSource / "examples/demo-station", root_ / station,
                     fs::copy_options::recursive);
            // The first start creates the station, so the runs below edit an existing one.
            ASSERT_EQ(Cli(station, {"show"}).exit, 0);
        }
    }

    fs::path ProgramDir(const std::string& station) const { return root_ / station / "LUMAEXE"; }
    fs::path Registry(const std::string& station) const { return root_ / station / "registry.reg"; }

    CliResult Cli(const std::string& station, std::vector<std::string> args) {
        args.insert(args.begin(),
                    {"LUMACFG_PROGRAM_DIR=" + ProgramDir(station).string(),
                     "LUMACFG_REGISTRY=" + Registry(station).string(), LUMACFG_CLI_PATH});
        return support::RunProgram("env", args, root_);
    }

    support::FileTimes Files(const std::string& station) const {
        return support::FilesWithTimes(root_ / station);
    }

    // The playbook over both stations, each with its fields; the results by host.
    CliResult Playbook(const Fields& a, const Fields& b, const std::vector<std::string>& options) {
        std::string hosts;
        for (const auto& [station, fields] : {std::pair{"a", a}, std::pair{"b", b}}) {
            hosts += std::string(hosts.empty() ? "" : ",\n") + JsonQuoted(station) +
                     ": {\"ansible_connection\": \"local\", "
                     "\"ansible_python_interpreter\": \"auto_silent\", \"program_dir\": " +
                     JsonQuoted(ProgramDir(station).string()) +
                     ", \"registry\": " + JsonQuoted(Registry(station).string()) +
                     ", \"station_fields\": " + JsonObject(fields) + "}";
        }
        support::WriteBytes(Inventory(), "{\"stations\": {\"hosts\": {\n" + hosts + "}}}\n");
        fs::remove_all(Tree());
        std::vector<std::string> args = {"-i", Inventory().string(),
                                         (kSource / "tests/ansible/station_config.yml").string(),
                                         "-e", std::string("lumacfg_cli=") + LUMACFG_CLI_PATH};
        args.insert(args.end(), options.begin(), options.end());
        return support::RunProgram("ansible-playbook", args, root_, kPlaybookSeconds);
    }

    HostResult Result(const std::string& station) const { return ResultOf(Tree() / station); }

    fs::path Inventory() const { return root_ / "inventory.json"; }
    fs::path Tree() const { return root_ / "results"; }

    support::TempDir temp_{"lumacfg-ansible"};
    fs::path root_ = temp_.Path();
    // Ansible keeps its own files in the test's directory and writes each host's last result
    // to a file of its own (the tree callback); the standard output shows the diffs.
    ScopedEnv collections_{"ANSIBLE_COLLECTIONS_PATH", (kSource / "ansible").string()};
    ScopedEnv home_{"ANSIBLE_HOME", (root_ / "ansible-home").string()};
    ScopedEnv localTemp_{"ANSIBLE_LOCAL_TEMP", (root_ / "ansible-tmp").string()};
    ScopedEnv remoteTemp_{"ANSIBLE_REMOTE_TEMP", (root_ / "ansible-tmp").string()};
    ScopedEnv callbacks_{"ANSIBLE_CALLBACKS_ENABLED", "tree"};
    ScopedEnv treeDir_{"ANSIBLE_CALLBACK_TREE_DIR", Tree().string()};
    ScopedEnv stdoutCallback_{"ANSIBLE_STDOUT_CALLBACK", "minimal"};
    ScopedEnv noColour_{"ANSIBLE_NOCOLOR", "1"};
    ScopedEnv locale_{"LC_ALL", kUtf8Locale};
    ScopedEnv config_{"ANSIBLE_CONFIG", (root_ / "none.cfg").string()};
    ScopedEnv lockDir_{"LUMACFG_LOCK_DIR", root_.string()};
    ScopedEnv auditLog_{"LUMACFG_AUDIT_LOG", (root_ / "audit.log").string()};
    ScopedEnv display_{"DISPLAY", std::nullopt};
};

TEST_F(StationConfigTest, CheckModeThenTwoRunsThenARefusalOfOneStation) {
    const Fields fields = {{"OPT_SC", "\"0\""}, {"ALS_TYPE", "5"}, {"TRAY_ID", "\"2\""}};
    const support::FileTimes startedA = Files("a"), startedB = Files("b");

    // Check mode with the diff: both would change, the diff shows the edit, nothing is written.
    const CliResult checked = Playbook(fields, fields, {"--check", "--diff"});
    EXPECT_EQ(checked.exit, 0) << checked.out << checked.err;
    for (const char* station : {"a", "b"}) {
        EXPECT_EQ(Status(checked, station), "CHANGED") << station;
        EXPECT_EQ(Result(station).message, "would change") << station;
    }
    EXPECT_NE(checked.out.find("+++ " + (ProgramDir("b") / "lumagen.ist").string()),
              std::string::npos)
        << checked.out;
    EXPECT_NE(checked.out.find("-OPT_SC=1\r\n+OPT_SC=0\r\n"), std::string::npos);
    EXPECT_EQ(Files("a"), startedA);
    EXPECT_EQ(Files("b"), startedB);

    // The first run changes both stations, the second finds nothing to do and writes nothing.
    const CliResult first = Playbook(fields, fields, {});
    EXPECT_EQ(first.exit, 0) << first.out << first.err;
    for (const char* station : {"a", "b"}) {
        EXPECT_EQ(Status(first, station), "CHANGED") << station;
        EXPECT_NE(Cli(station, {"show"}).out.find("\nTRAY_ID=2\n"), std::string::npos);
    }
    const support::FileTimes changedA = Files("a"), changedB = Files("b");
    EXPECT_NE(changedA, startedA);
    const CliResult second = Playbook(fields, fields, {});
    EXPECT_EQ(second.exit, 0) << second.out << second.err;
    for (const char* station : {"a", "b"}) {
        EXPECT_EQ(Status(second, station), "SUCCESS") << station;
        EXPECT_FALSE(Result(station).changed) << station;
        EXPECT_EQ(Result(station).message, "unchanged") << station;
    }
    EXPECT_EQ(Files("a"), changedA);
    EXPECT_EQ(Files("b"), changedB);

    // A value that Save refuses fails that station's task alone; the other station changes.
    const CliResult refused = Playbook({{"OPT_SC", "\"1\""}}, {{"VLT_ENABLED", "\"1\""}}, {});
    EXPECT_EQ(refused.exit, 2) << refused.out << refused.err;
    EXPECT_EQ(Status(refused, "a"), "CHANGED");
    EXPECT_EQ(Status(refused, "b"), "FAILED!");
    EXPECT_EQ(Result("b").message, "Must specify the folder on VLT server.");
    EXPECT_EQ(Files("b"), changedB);
}

TEST_F(StationConfigTest, AValueThatIsNoTextFailsTheTaskBeforeTheStationIsRead) {
    const CliResult run = Playbook({{"OPT_SC", "true"}}, {{"OPT_SC", "[1]"}}, {});
    EXPECT_EQ(run.exit, 2);
    for (const char* station : {"a", "b"}) EXPECT_EQ(Status(run, station), "FAILED!") << station;
    EXPECT_NE(run.out.find("OPT_SC takes a string"), std::string::npos) << run.out;
}

TEST(StationCollectionTest, AnsibleDocShowsTheModule) {
    if (!Installed("ansible-doc")) GTEST_SKIP() << "ansible-doc is not installed";
    const support::TempDir temp("lumacfg-ansible-doc");
    const ScopedEnv collections("ANSIBLE_COLLECTIONS_PATH", (kSource / "ansible").string());
    const ScopedEnv home("ANSIBLE_HOME", (temp.Path() / "home").string());
    const ScopedEnv locale("LC_ALL", kUtf8Locale);
    const CliResult doc = support::RunProgram("ansible-doc", {"lumacfg.station.config"},
                                              temp.Path(), kPlaybookSeconds);
    EXPECT_EQ(doc.exit, 0) << doc.err;
    for (const std::string said :
         {"> LUMACFG.STATION.CONFIG", "= fields", "- program_dir", "- registry",
          "default: lumacfg-cli", "check_mode:", "support: full", "RETURN VALUES:"}) {
        EXPECT_NE(doc.out.find(said), std::string::npos) << said;
    }
}

}  // namespace
}  // namespace lumacfg
