// lumacfg-cli export and apply: an exported station applied back changes nothing on a station of
// every autosampler dialog; partial documents change their fields alone; every refusal and every
// document that is no fields document writes nothing.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/json.h"
#include "support/cli_runner.h"
#include "support/file_times.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::CliResult;

using Snapshot = support::FileTimes;

class CliApplyTest : public support::TempStation {
  protected:
    // A copy of the demo station, started once (its first start creates the station).
    void SetUp() override {
        TempStation::SetUp();
        fs::copy(fs::path(LUMACFG_SOURCE_DIR) / "examples/demo-station", root_,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        ASSERT_EQ(Run({"show"}).exit, 0);
    }

    CliResult Run(const std::vector<std::string>& args) { return support::RunCli(args, root_); }

    // Applies a document written to a file beside the station.
    CliResult Apply(const std::string& document, std::vector<std::string> options = {}) {
        support::WriteBytes(Document(), document);
        options.insert(options.begin(), "apply");
        options.push_back(Document().string());
        return Run(options);
    }

    fs::path Document() const { return root_ / "fields.json"; }

    Snapshot Files() const {
        return support::FilesWithTimes(root_, [&](const fs::path& path) {
            return path == Document() || path.filename() == "cli-stderr.txt";
        });
    }

    std::string Shown(const std::string& name) { return support::ShownValue(name, root_); }
};

std::string Fields(const std::string& members) {
    return "{\"format\": 1, \"fields\": {" + members + "}}";
}

TEST_F(CliApplyTest, AnExportAppliedBackChangesNothingOnStationsOfEveryAutosampler) {
    const std::string noCurrentTray = "[INDEX]\r\nTray_Num=0\r\nRack_Num=0\r\n";
    const struct {
        std::vector<std::string> set;  // what makes the station; empty: the demo as it starts
        bool keepsCurrentTray;
        std::vector<std::string> exported;  // fields the export must hold
        std::vector<std::string> absent;    // fields it must not hold
    } cases[] = {
        {{}, true, {"\"ALS_TYPE\": \"0\"", "\"OPT_CHG_FLW\": \"0.20\""}, {"\"COM_PORT\""}},
        {{"ALS_TYPE=1"},
         true,
         {"\"TRAY\": \"Lab 3-rack\"", "\"RACK(3)\": \"15 mL 10x12\""},
         {"\"RACK1_ID\""}},
        {{"ALS_TYPE=1"}, false, {"\"RACK1_ID\": ", "\"COM_PORT\": \"1\""}, {"\"TRAY\""}},
        {{"ALS_TYPE=2", "RACK1_ID=96"}, true, {"\"RACK1_ID\": \"96\""}, {"\"RACK5_ID\""}},
        {{"ALS_TYPE=5", "SAMPLE_DEPTH=40", "ESC_MODE=1"},
         true,
         {"\"SAMPLE_DEPTH\": \"40.00\"", "\"ESC_MODE\": \"1\""},
         {"\"RACK1_ID\""}},
        {{"ALS_TYPE=6", "COM_PORT=2"},
         true,
         {"\"RACK8_ID\": \"60\"", "\"COM_PORT\": \"2\""},
         {"\"TRAY_ID\""}},
        {{"ICPMS_ID=1", "OPT_CHG_CG=1", "OPT_CHG_FLW=0.5", "_SECURITY=0"},
         true,
         {"\"OPT_CHG_FLW\": \"0.50\"", "\"ICPMS_ID\": \"1\""},
         {}},
    };
    for (const auto& c : cases) {
        const std::string name = c.set.empty() ? "the demo" : c.set.front();
        if (!c.keepsCurrentTray) {
            support::WriteBytes(ProgramDir() / "custrack.ini", noCurrentTray);
        }
        if (!c.set.empty()) {
            std::vector<std::string> args = {"set"};
            args.insert(args.end(), c.set.begin(), c.set.end());
            ASSERT_EQ(Run(args).exit, 0) << name;
        }
        const CliResult exported = Run({"export"});
        ASSERT_EQ(exported.exit, 0) << exported.err;
        for (const std::string& field : c.exported) {
            EXPECT_NE(exported.out.find(field), std::string::npos) << name << ": " << field;
        }
        for (const std::string& field : c.absent) {
            EXPECT_EQ(exported.out.find(field), std::string::npos) << name << ": " << field;
        }
        const Snapshot before = Files();
        const CliResult applied = Apply(exported.out);
        EXPECT_EQ(applied.exit, 0) << name << ": " << applied.err;
        EXPECT_EQ(applied.out, "unchanged\n") << name;
        EXPECT_EQ(Files(), before) << name;
        EXPECT_EQ(Apply(exported.out, {"--json"}).out,
                  "{\"changed\": false, \"files\": [], \"diff\": \"\", \"message\": "
                  "\"unchanged\"}\n")
            << name;
    }
}

TEST_F(CliApplyTest, APartialDocumentChangesItsFieldsOnceThenNothing) {
    const struct {
        std::string members;
        std::vector<std::pair<std::string, std::string>> shown;
    } cases[] = {
        {"\"TRAY_ID\": \"2\", \"ALS_TYPE\": \"5\"", {{"ALS_TYPE", "5"}, {"TRAY_ID", "2"}}},
        {"\"OPT_CHG_CG\": \"1\", \"OPT_CHG_FLW\": \"0.5\"", {{"OPT_CHG_FLW", "0.5"}}},
        {"\"ALS_TYPE\": \"1\", \"RACK(2)\": \"50 mL 5x8\", \"COM_PORT\": \"2\"",
         {{"COM_PORT", "2"}}},
        {"\"INHIBIT_MASS\": \"44 12\"", {{"INHIBIT_MASS", "12 44 0 0 0 0 0 0 0 0 0"}}},
    };
    for (const auto& c : cases) {
        const CliResult changed = Apply(Fields(c.members), {"--json"});
        EXPECT_EQ(changed.exit, 0) << c.members << changed.out;
        EXPECT_TRUE(changed.out.starts_with("{\"changed\": true, \"files\": [\"" +
                                            StationProfile().string() + "\""))
            << changed.out;
        EXPECT_NE(changed.out.find("\"message\": \"changed\"}"), std::string::npos);
        for (const auto& [name, value] : c.shown) EXPECT_EQ(Shown(name), value) << c.members;
        const Snapshot written = Files();
        EXPECT_EQ(Apply(Fields(c.members)).out, "unchanged\n") << c.members;
        EXPECT_EQ(Files(), written) << c.members;
    }
    // The custom tray's racks reach "custrack.ini".
    EXPECT_NE(support::ReadBytes(ProgramDir() / "custrack.ini")->find("RACK2_ID=1000"),
              std::string::npos);
}

TEST_F(CliApplyTest, ADryRunShowsTheDiffAndWritesNothing) {
    const Snapshot before = Files();
    const std::string document = Fields("\"OPT_SC\": \"0\"");
    const CliResult text = Apply(document, {"--dry-run"});
    EXPECT_EQ(text.exit, 0) << text.err;
    EXPECT_NE(text.out.find("+++ " + StationProfile().string() + "\n"), std::string::npos);
    EXPECT_NE(text.out.find("\n-OPT_SC=1\r\n+OPT_SC=0\r\n"), std::string::npos) << text.out;
    const CliResult json = Apply(document, {"--json", "--dry-run"});
    EXPECT_NE(json.out.find("\"diff\": \"--- " + StationProfile().string()), std::string::npos);
    EXPECT_NE(json.out.find("\\n-OPT_SC=1\\r\\n+OPT_SC=0\\r\\n"), std::string::npos);
    EXPECT_NE(json.out.find("\"message\": \"would change\"}"), std::string::npos);
    EXPECT_EQ(Files(), before);
}

TEST_F(CliApplyTest, TextsOutsideAsciiTravelAsUtf8AndAreStoredAsWindows1252) {
    const CliResult applied =
        Apply(Fields("\"VLT_ENABLED\": \"1\", \"VLT_FOLDER\": \"C:\\\\Donn\\u00e9es\\\\\""));
    ASSERT_EQ(applied.exit, 0) << applied.err;
    EXPECT_EQ(Shown("VLT_FOLDER"),
              "C:\\Donn\xE9"
              "es\\");
    EXPECT_NE(Run({"export"})
                  .out.find("\"VLT_FOLDER\": \"C:\\\\Donn\xC3\xA9"
                            "es\\\\\""),
              std::string::npos);
}

TEST_F(CliApplyTest, RefusalsAndDocumentsThatAreNoFieldsDocumentWriteNothing) {
    const struct {
        std::string document;
        int exit;
        std::string said;  // a part of the message
    } cases[] = {
        // Refused by a check, as set refuses it.
        {Fields("\"OPT_CHG_FLW\": \"0.5\""), 1, "OPT_CHG_FLW"},
        {Fields("\"ALS_TYPE\": \"4\""), 1, "ALS_TYPE"},
        {Fields("\"VLT_ENABLED\": \"1\""), 1, "Must specify the folder on VLT server."},
        {Fields("\"_QCMDFILE$\": \"MISSING.QCC\""), 1, "QC Mode file is invalid"},
        {Fields("\"COM_PORT\": \"2\""), 1, "COM_PORT"},
        {Fields("\"ALS_TYPE\": \"5\", \"TRAY\": \"Lab 3-rack\""), 1, "TRAY"},
        {Fields("\"OPT_SC\": \"0\", \"ALS_TYPE\": \"9\""), 1, "ALS_TYPE"},
        // Names and values that are no fields.
        {Fields("\"FOO\": \"1\""), 2, "FOO is no field"},
        {Fields("\"ROOT_PATH\": \"x\""), 2, "ROOT_PATH is not edited"},
        {Fields("\"A=B\": \"1\""), 2, "\"A=B\" is no field"},
        {Fields("\"ICPMS_ID\": 1"), 2, "ICPMS_ID takes a string"},
        {Fields("\"OPT_SC\": \"2\""), 2, "OPT_SC takes 0 or 1"},
        {Fields("\"VLT_FOLDER\": \"\\u03a9\""), 2, "VLT_FOLDER holds a character"},
        {Fields("\"OPT_SC\": \"0\", \"OPT_SC\": \"1\""), 2, "OPT_SC is given twice"},
        // Documents of another shape.
        {"[]", 2, "the document is an array"},
        {"{\"format\": 2, \"fields\": {}}", 2, "\"format\" must be the number 1"},
        {"{\"format\": 1, \"fields\": []}", 2, "\"fields\" must be an object"},
        {"{\"format\": 1, \"field\": {}}", 2, "\"field\" is no member of the document"},
        {"{\"format\": 1, \"format\": 1, \"fields\": {}}", 2, "\"format\" is given twice"},
        // Malformed JSON.
        {"{\"format\": 1, \"fields\": {\"OPT_SC\": \"0\",}}", 2, "line 1, column 40"},
        {"{\"format\": 1,\n \"fields\": {\"OPT_SC\": '0'}}", 2, "line 2, column 23"},
        {"", 2, "the document ends early"},
    };
    const Snapshot before = Files();
    for (const auto& c : cases) {
        const CliResult refused = Apply(c.document);
        EXPECT_EQ(refused.exit, c.exit) << c.document;
        EXPECT_NE(refused.err.find(c.said), std::string::npos) << c.document << refused.err;
        EXPECT_EQ(refused.out, "") << c.document;
        const CliResult json = Apply(c.document, {"--json"});
        EXPECT_EQ(json.exit, c.exit) << c.document;
        EXPECT_TRUE(json.out.starts_with(
            "{\"changed\": false, \"files\": [], \"diff\": \"\", \"message\": \""))
            << json.out;
        const std::string quoted = JsonQuoted(c.said);
        EXPECT_NE(json.out.find(quoted.substr(1, quoted.size() - 2)), std::string::npos)
            << json.out;
        EXPECT_EQ(json.err, "");
        EXPECT_EQ(Files(), before) << c.document;
    }
}

TEST_F(CliApplyTest, AChangeTheAuditLogCannotRecordIsReportedAsNoChange) {
    const Snapshot before = Files();
    const std::string log = (root_ / "no-such-folder" / "audit.log").string();
    support::ScopedEnv unwritable("LUMACFG_AUDIT_LOG", log);
    const std::string document = Fields("\"OPT_SC\": \"0\"");
    const CliResult text = Apply(document);
    EXPECT_EQ(text.exit, 4);
    EXPECT_EQ(text.out, "");
    EXPECT_NE(text.err.find(log), std::string::npos) << text.err;
    const CliResult json = Apply(document, {"--json"});
    EXPECT_EQ(json.exit, 4);
    EXPECT_TRUE(json.out.starts_with("{\"changed\": false, \"files\": [], \"diff\": \"\""))
        << json.out;
    EXPECT_NE(json.out.find(log), std::string::npos) << json.out;
    EXPECT_EQ(Files(), before);
}

TEST_F(CliApplyTest, AFileThatCannotBeReadIsNamed) {
    const CliResult missing = Run({"apply", (root_ / "none.json").string()});
    EXPECT_EQ(missing.exit, 4);
    EXPECT_EQ(missing.err, "lumacfg-cli: cannot read " + (root_ / "none.json").string() +
                               ": No such file or directory\n");
    EXPECT_EQ(Run({"apply"}).exit, 2);
    EXPECT_EQ(Run({"apply", "a.json", "b.json"}).exit, 2);
    EXPECT_EQ(Run({"export", "x"}).exit, 2);
}

}  // namespace
}  // namespace lumacfg
