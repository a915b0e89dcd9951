// lumacfg-cli custrack: the custom trays and racks listed and edited through the editors' model,
// refusals with the editors' messages and nothing written, dry runs as diffs.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/cli_runner.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::CliResult;

// Tray 1000 names rack 1000 as its first default rack; rack 1001 is the fitted tray's rack;
// rack 1002 holds 20 x 50 vials, one more than a rack may hold.
const std::string kFile =
    "; racks of the lab\r\n"
    "[INDEX]\r\nTray_Num=1\r\nTray1_ID=1000\r\nRack_Num=3\r\nRack1_ID=1000\r\nRack2_ID=1001\r\n"
    "Rack3_ID=1002\r\n"
    "[TRAY_1000]\r\nID_STR=Two racks\r\nRACK_X_NUM=2\r\nRACK_X_ORG=0\r\nRACK_Y_ORG=100\r\n"
    "RACK_X_DIST=1500\r\nRACK_Y_DIST=1200\r\nDEFRACK1=1000\r\n"
    "[RACK_1000]\r\nID=1000\r\nID_STR=Short\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=3\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[RACK_1001]\r\nID=1001\r\nID_STR=Long\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=9\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[RACK_1002]\r\nID=1002\r\nID_STR=Micro\r\nVIAL_X_NUM=20\r\nVIAL_Y_NUM=50\r\n"
    "[CURRENT]\r\nCUSTOMTRAY=1000\r\nTRAY_ID=1000\r\nRACK1_ID=1001\r\nRACK_X_NUM=1\r\n";

class CliCustrackTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        support::WriteBytes(Custrack(), kFile);
    }

    std::filesystem::path Custrack() const { return ProgramDir() / "custrack.ini"; }
    std::string File() const { return support::ReadBytes(Custrack()).value_or("(missing)"); }
    CliResult Run(std::vector<std::string> args) {
        args.insert(args.begin(), "custrack");
        return support::RunCli(args, root_);
    }
};

TEST_F(CliCustrackTest, ListsEveryEntryWithTheLoadersVerdict) {
    const CliResult result = Run({"list"});
    EXPECT_EQ(result.exit, 0) << result.err;
    EXPECT_EQ(result.out,
              "TRAY_1000\tok\tTwo racks\n"
              "RACK_1000\tok\tShort\n"
              "RACK_1001\tok\tLong\n"
              "RACK_1002\tVIAL_Y_NUM=\"50\" (accepted: VIAL_X_NUM times VIAL_Y_NUM at most "
              "999)\tMicro\n");
}

TEST_F(CliCustrackTest, EditsAreWrittenAsTheEditorWritesThem) {
    const struct {
        std::vector<std::string> args;
        std::string out;
        std::vector<std::pair<std::string, std::string>> replaced;  // in the file: from, to
    } cases[] = {
        {{"set", "rack_1002", "VIAL_Y_NUM=49", "VIAL_DEPTH=30"},
         "",
         {{"VIAL_Y_NUM=50\r\n",
           "VIAL_Y_NUM=49\r\nVIAL_X_ORG=0\r\nVIAL_Y_ORG=0\r\nVIAL_X_DIST=0\r\nVIAL_Y_DIST=0\r\n"
           "VIAL_DEPTH=30\r\n"}}},
        {{"delete", "RACK_1002"},
         "",
         {{"Rack_Num=3\r\n", "Rack_Num=2\r\n"},
          {"Rack3_ID=1002\r\n", ""},
          {"[RACK_1002]\r\nID=1002\r\nID_STR=Micro\r\nVIAL_X_NUM=20\r\nVIAL_Y_NUM=50\r\n", ""}}},
        {{"set", "RACK_1000", "ID_STR=Short"}, "unchanged\n", {}},
        {{"set", "--dry-run", "RACK_1000", "ID_STR=Short"}, "unchanged\n", {}},
        {{"new", "tray", "ID_STR=Third", "RACK_X_NUM=1", "DEFRACK1=60"},
         "TRAY_1001\n",
         {{"Rack3_ID=1002\r\n", "Rack3_ID=1002\r\nTray2_ID=1001\r\n"},
          {"Tray_Num=1", "Tray_Num=2"},
          {"RACK_X_NUM=1\r\n",
           "RACK_X_NUM=1\r\n[TRAY_1001]\r\nID_STR=Third\r\nRACK_X_NUM=1\r\nRACK_X_ORG=100\r\n"
           "RACK_Y_ORG=100\r\nRACK_X_DIST=1000\r\nRACK_Y_DIST=2000\r\nDEFRACK1=60\r\n"
           "DEFRACK2=0\r\nDEFRACK3=0\r\nDEFRACK4=0\r\nBOTTLE_X_NUM=0\r\nBOTTLE_X_ORG=0\r\n"
           "BOTTLE_Y_ORG=0\r\nBOTTLE_X_DIST=0\r\nBOTTLE_DEPTH=0\r\n"}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.args));
        support::WriteBytes(Custrack(), kFile);
        const CliResult result = Run(c.args);
        EXPECT_EQ(result.exit, 0) << result.err;
        EXPECT_EQ(result.out, c.out);
        std::string expected = kFile;
        for (const auto& [from, to] : c.replaced) {
            const std::size_t at = expected.find(from);
            ASSERT_NE(at, std::string::npos) << from;
            expected.replace(at, from.size(), to);
        }
        EXPECT_EQ(File(), expected);
    }
}

TEST_F(CliCustrackTest, RefusalsAndUsageErrorsWriteNothing) {
    const struct {
        std::vector<std::string> args;
        int exit;
        std::string err;  // for refusals: the whole message
    } cases[] = {
        {{"new", "rack", "VIAL_X_NUM=2000"},
         1,
         "lumacfg-cli: VIAL_X_NUM: 2000 is outside the accepted range 1..999.\n"},
        {{"new", "rack", "VIAL_X_NUM=many"},
         1,
         "lumacfg-cli: VIAL_X_NUM: \"many\" is not a number.\n"},
        {{"copy", "RACK_1000", "ID_STR=long"},
         1,
         "lumacfg-cli: ID_STR: \"long\" is already the name of RACK_1001.\n"},
        {{"set", "RACK_1000", "RACK_X_NUM=2"}, 1, "lumacfg-cli: A rack has no key RACK_X_NUM.\n"},
        {{"set", "RACK_1002", "VIAL_DEPTH=30"},
         1,
         "lumacfg-cli: RACK_1002 \"Micro\" does not load: VIAL_Y_NUM=\"50\" (accepted: "
         "VIAL_X_NUM times VIAL_Y_NUM at most 999).\n"},
        {{"set", "RACK_1050", "VIAL_DEPTH=30"},
         1,
         "lumacfg-cli: [INDEX] lists no entry RACK_1050.\n"},
        {{"delete", "RACK_1000"},
         1,
         "lumacfg-cli: RACK_1000 \"Short\" is in use: [TRAY_1000] DEFRACK1 holds it.\n"},
        {{"delete", "RACK_1001"},
         1,
         "lumacfg-cli: RACK_1001 \"Long\" is in use: [CURRENT] RACK1_ID holds it.\n"},
        {{"delete", "TRAY_1000"},
         1,
         "lumacfg-cli: TRAY_1000 \"Two racks\" is in use: [CURRENT] TRAY_ID holds it.\n"},
        {{}, 2, ""},
        {{"new", "shelf"}, 2, ""},
        {{"set", "RACK_1000"}, 2, ""},
        {{"set", "RACK_1000", "VIAL_DEPTH"}, 2, ""},
        {{"delete"}, 2, ""},
        {{"delete", "RACK_1000", "RACK_1001"}, 2, ""},
        {{"list", "RACK_1000"}, 2, ""},
    };
    for (const auto& c : cases) {
        const CliResult result = Run(c.args);
        EXPECT_EQ(result.exit, c.exit) << result.err;
        EXPECT_EQ(result.out, "");
        if (c.exit == 1) {
            EXPECT_EQ(result.err, c.err);
        } else {
            EXPECT_NE(result.err.find("lumacfg-cli custrack list"), std::string::npos);
        }
        EXPECT_EQ(File(), kFile);
    }
}

TEST_F(CliCustrackTest, ADryRunPrintsTheDiffAndWritesNothing) {
    const CliResult result = Run({"set", "--dry-run", "RACK_1000", "VIAL_DEPTH=60"});
    EXPECT_EQ(result.exit, 0) << result.err;
    EXPECT_NE(result.out.find("\n-VIAL_DEPTH=50\r\n+VIAL_DEPTH=60\r\n"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("custrack.ini"), std::string::npos);
    EXPECT_EQ(File(), kFile);

    const CliResult made = Run({"--dry-run", "new", "rack"});
    EXPECT_EQ(made.exit, 0) << made.err;
    EXPECT_EQ(made.out.rfind("RACK_1003\n", 0), 0u) << made.out;
    EXPECT_NE(made.out.find("+Rack4_ID=1003\r\n"), std::string::npos) << made.out;
    EXPECT_EQ(File(), kFile);
}

TEST_F(CliCustrackTest, ADamagedListIsNamedAndNoChangeRewritesIt) {
    const std::string idRange = "(accepted: 1000..1099)";
    const struct {
        std::string from, to;  // in the file
        std::string listed;    // the racks' lines of the list
        std::string damage;
    } cases[] = {
        {"Rack_Num=3", "Rack_Num=abc",
         "INDEX\tRack_Num=\"abc\" (accepted: a number up to 1000)\t\n",
         "[INDEX] Rack_Num=\"abc\" (accepted: a number up to 1000)"},
        {"Rack2_ID=1001", "Rack2_ID=x2",
         "INDEX\tRack2_ID=\"x2\" " + idRange +
             "\t\nRACK_1000\tok\tShort\nRACK_1002\tVIAL_Y_NUM=\"50\" (accepted: VIAL_X_NUM "
             "times VIAL_Y_NUM at most 999)\tMicro\n",
         "[INDEX] Rack2_ID=\"x2\" " + idRange},
        {"Rack3_ID=1002", "Rack3_ID=5",
         "INDEX\tRack3_ID=\"5\" " + idRange + "\t\nRACK_1000\tok\tShort\nRACK_1001\tok\tLong\n",
         "[INDEX] Rack3_ID=\"5\" " + idRange},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.to);
        std::string file = kFile;
        file.replace(file.find(c.from), c.from.size(), c.to);
        support::WriteBytes(Custrack(), file);
        const CliResult list = Run({"list"});
        EXPECT_EQ(list.exit, 0) << list.err;
        EXPECT_EQ(list.out, "TRAY_1000\tok\tTwo racks\n" + c.listed);
        const std::string refusal =
            "lumacfg-cli: The rack list of custrack.ini is damaged: " + c.damage +
            ". Entries it names may be missing; New, Copy and Delete of "
            "racks are refused until it is repaired in the file.\n";
        for (const std::vector<std::string>& args :
             {std::vector<std::string>{"--dry-run", "new", "rack"},
              {"copy", "RACK_1000"},
              {"delete", "RACK_1000"}}) {
            if (args[1] == "RACK_1000" && c.listed.find("RACK_1000") == std::string::npos) continue;
            const CliResult edit = Run(args);
            EXPECT_EQ(edit.exit, 1) << args[0];
            EXPECT_EQ(edit.out, "");
            EXPECT_EQ(edit.err, refusal);
        }
        EXPECT_EQ(File(), file);
    }
}

TEST_F(CliCustrackTest, EveryChangeIsAuditedAndAnUnrecordedOneIsNotWritten) {
    const CliResult made = Run({"new", "rack", "VIAL_X_NUM=6"});
    EXPECT_EQ(made.exit, 0) << made.err;
    const std::string log = support::ReadBytes(root_ / "audit.log").value_or("");
    for (const std::string field : {"INDEX Rack_Num\",\"old\":\"3\",\"new\":\"4",
                                    "RACK_1003 VIAL_X_NUM\",\"old\":\"\",\"new\":\"6",
                                    "INDEX Rack4_ID\",\"old\":\"\",\"new\":\"1003"})
        EXPECT_NE(log.find("\"field\":\"" + field + "\""), std::string::npos) << log;

    // The section of a new entry is printed only once it is written.
    const std::string before = File();
    const std::string unwritable = (root_ / "no-such-folder" / "audit.log").string();
    support::ScopedEnv audit("LUMACFG_AUDIT_LOG", unwritable);
    for (const std::vector<std::string>& args : {std::vector<std::string>{"new", "rack"},
                                                 {"copy", "RACK_1000"},
                                                 {"delete", "RACK_1002"}}) {
        const CliResult result = Run(args);
        EXPECT_EQ(result.exit, 4) << args[0];
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find(unwritable), std::string::npos) << result.err;
        EXPECT_EQ(File(), before);
    }
}

TEST_F(CliCustrackTest, AFileThatCannotBeReadExitsFour) {
    std::filesystem::remove(Custrack());
    std::filesystem::create_directory(Custrack());
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"list"}, {"new", "rack"}}) {
        const CliResult result = Run(args);
        EXPECT_EQ(result.exit, 4);
        EXPECT_NE(result.err.find("custrack.ini"), std::string::npos) << result.err;
    }
}

}  // namespace
}  // namespace lumacfg
