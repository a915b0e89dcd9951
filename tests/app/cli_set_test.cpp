// lumacfg-cli set and reset, run as a program on a temporary station: the main window's Save
// driven through its model, refusals that write nothing, and dry runs that print a diff.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>
#include <string>
#include <tuple>
#include <vector>

#include "support/cli_runner.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

namespace fs = std::filesystem;
using support::CliResult;
using support::ReadBytes;
using support::WriteBytes;

const std::string kChannelFile = "Chn1\t9600\tN\t8\t1\r\nCOM:SET 1,9600,N,8,1\r\n";

class CliSetTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        WriteBytes(ProgramDir() / "MPM.TBL",
                   "#STD_BEG\r\nAuto Dilution\tAUTODIL.CHN\tAUTODIL.MPA\r\n#STD_END\r\n");
        WriteBytes(root_ / "1" / "OPAL" / "AUTODIL.CHN", kChannelFile);
        WriteBytes(root_ / "1" / "QCMODE" / "GENERAL.QCC" / "runtype.ini",
                   "[ERRORACTION]\r\nError1=1,Continue\r\n");
    }

    CliResult Run(const std::vector<std::string>& args) { return support::RunCli(args, root_); }

    // Every file of the station, by its path under the root.
    std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const fs::path& folder : {ProgramDir(), root_ / "1"}) {
            for (const auto& entry : fs::recursive_directory_iterator(folder)) {
                if (!entry.is_regular_file()) continue;
                files[fs::relative(entry.path(), root_).string()] = *ReadBytes(entry.path());
            }
        }
        files["registry.reg"] = RegistryFileText();
        return files;
    }

    // The value of NAME as `show` prints it.
    std::string Shown(const std::string& name) { return support::ShownValue(name, root_); }

    static std::size_t Count(const std::string& text, const std::string& part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos;
             at = text.find(part, at + 1)) {
            ++count;
        }
        return count;
    }
};

// The configuration identifier carries the moment of the save: masked for comparisons.
std::string WithoutStamp(const std::string& registry) {
    return std::regex_replace(registry, std::regex("\"ConfigurationID\"=dword:[0-9a-f]+"),
                              "\"ConfigurationID\"=dword:stamp");
}

TEST_F(CliSetTest, ARefusedSetSaysWhyOnceAndWritesNothing) {
    // The arguments, what the standard error says, and whether a station exists beforehand.
    const std::tuple<std::vector<std::string>, std::string, bool> cases[] = {
        {{"set", "GPIB_ADDR=30"},
         "Valid GPIB address is an integral number from 0 to 29.\n",
         false},
        {{"set", "GPIB_ADDR=29.5"},
         "Valid GPIB address is an integral number from 0 to 29.\n",
         true},
        {{"set", "VLT_ENABLED=1"}, "Must specify the folder on VLT server.\n", true},
        {{"set", "SI_TYPE=5"}, "OPAL Application should be selected.\n", true},
        {{"set", "--dry-run", "GPIB_ADDR=-1"},
         "Valid GPIB address is an integral number from 0 to 29.\n",
         false},
        {{"set", "_QCMDFILE$=MISSING.QCC"}, "Selected QC Mode file is invalid.\n", true},
        {{"set", "SI_TYPE=3"},
         "lumacfg-cli: cannot set SI_TYPE=3: not offered on this station (it offers 0 None, 1 "
         "Peristaltic Pump, 5 OPAL, 6 LC/GC/Laser Ablation)\n",
         true},
        {{"set", "ALS_TYPE=4"},
         "lumacfg-cli: cannot set ALS_TYPE=4: not offered on this station (with the sample "
         "introduction chosen it offers 0 None, 1 ASX500, 2 ASX100, 6 KLR-8, 5 V-AS)\n",
         true},
        {{"set", "_LCCHEM=2"},
         "lumacfg-cli: cannot set _LCCHEM=2: \"Control from LC/GC Data System\" is greyed "
         "unless the sample introduction is \"LC/GC/Laser Ablation\"\n",
         true},
        {{"set", "_SECURITY=1", "_ALWAYSPRT=0"},
         "lumacfg-cli: cannot set _ALWAYSPRT=0: \"Always output analysis reports to printer\" "
         "is greyed while \"Security\" is checked\n",
         true},
        {{"set", "LAN_IPADDR=10.0.0.1"},
         "lumacfg-cli: cannot set LAN_IPADDR=10.0.0.1: the IP address box 1 of 4 is not shown "
         "for a GPIB instrument\n",
         true},
    };
    for (const auto& [args, said, existing] : cases) {
        fs::remove(StationProfile());
        fs::remove(ProgramDir() / "runtype.ini");
        if (existing) {
            ASSERT_EQ(Run({"show"}).exit, 0);
        }
        const auto before = Files();
        const CliResult refused = Run(args);
        EXPECT_EQ(refused.exit, 1) << said;
        EXPECT_EQ(refused.err, said);
        EXPECT_EQ(refused.out, "");
        EXPECT_EQ(Files(), before) << said;  // not even the new station of the start-up
    }
}

TEST_F(CliSetTest, NamesTheWindowDoesNotEditAreUsageErrors) {
    const std::tuple<std::vector<std::string>, std::string> cases[] = {
        {{"set", "OPT_SC=2"}, "OPT_SC takes 0 or 1, not \"2\""},
        {{"set", "ONEBOTTLE_DEPTH=400"}, "ONEBOTTLE_DEPTH follows SAMPLE_DEPTH"},
        {{"set", "ESC_MODE=yes"}, "ESC_MODE takes 0 or 1, not \"yes\""},
        {{"set", "TRAY_ID=-1"}, "TRAY_ID takes the place in the list"},
        {{"set", "DSS_LOAD=3"}, "DSS_LOAD is not edited in any window of the program"},
        {{"set", "als_type=1"}, "als_type is no field of the configuration"},
        {{"set", "SI_TYPE=pump"}, "SI_TYPE takes a whole number, not \"pump\""},
        {{"set", "_SECURITY=2"}, "_SECURITY takes 0 or 1"},
        {{"set", "LAN_IPADDR=1.2.3.4.5"}, "LAN_IPADDR takes four numbers separated by dots"},
        {{"set", "INHIBIT_MASS=1 2 3 4 5 6 7 8 9 10 11"}, "INHIBIT_MASS takes at most ten masses"},
        {{"set", "GPIB_ADDR=1", "GPIB_ADDR=2"}, "GPIB_ADDR is given twice"},
        {{"set"}, "usage:"},
        {{"reset", "ALS_TYPE=1"}, "usage:"},
    };
    for (const auto& [args, said] : cases) {
        const CliResult result = Run(args);
        EXPECT_EQ(result.exit, 2) << said;
        EXPECT_NE(result.err.find(said), std::string::npos) << result.err;
    }
    EXPECT_FALSE(ReadBytes(StationProfile()));
}

TEST_F(CliSetTest, SetSavesTheControlsAsTheWindowWould) {
    const CliResult set = Run({"set", "GPIB_ADDR=7.5", "ALS_TYPE=6", "INHIBIT_MASS=44 --- 12 0 040",
                               "PRO_SCAN=0", "_SECURITY=0", "KVD_Remote=1"});
    ASSERT_EQ(set.exit, 0) << set.err;
    // INHIBIT_MASS: "040" was cleaned to 40; the masses are sorted with the empty ones first.
    const std::tuple<std::string, std::string> fields[] = {
        {"GPIB_ADDR", "8"},
        {"ALS_TYPE", "6"},
        {"RACK2_ID", "21"},
        {"RACK8_ID", "60"},
        {"PRO_SCAN", "0"},
        {"_SECURITY", "0"},
        {"_ALWAYSPRT", "0"},  // stored as printing on, read back off while security is off
        {"KVD_Remote", "1"},
        {"INHIBIT_MASS", "12 40 44 0 0 0 0 0 0 0 0"},
        {"DEVICE_NAME", "SMARTCARD ASX500" + std::string(18, ' ')},
    };
    for (const auto& [name, value] : fields) EXPECT_EQ(Shown(name), value) << name;
    EXPECT_NE(StationText().find("\r\nLink1=gx40110,8\r\n"), std::string::npos);
    const std::string audit = ReadBytes(root_ / "audit.log").value_or("");
    EXPECT_NE(audit.find("\"field\":\"GPIB_ADDR\",\"old\":\"20\",\"new\":\"8\""),
              std::string::npos);
    EXPECT_NE(audit.find("\"event\":\"security-flag-change\",\"text\":\"_SECURITY 1 -> 0\""),
              std::string::npos);

    // The OPAL system: remote start forced on, the port announced, the parity rewritten.
    const CliResult opal = Run({"set", "SI_TYPE=5", "ALS_TYPE=5", "_MPMFILE$=autodil.mpa"});
    ASSERT_EQ(opal.exit, 0) << opal.err;
    // The KLR-8 chosen before stays on the OPAL list until the V-AS is chosen.
    EXPECT_EQ(opal.err,
              "Please connect KLR-8 to OPAL COM1 Port.\nPlease connect V-AS to OPAL COM1 Port.\n");
    EXPECT_EQ(Shown("_MPM"), "1");
    EXPECT_EQ(Shown("_MPMFILE$"), "AUTODIL.MPA");
    EXPECT_EQ(ReadBytes(root_ / "1" / "OPAL" / "AUTODIL.CHN"),
              "Chn1\t9600\tO\t7\t1\r\nCOM:SET 1,9600,O,7,1\r\n");
    const CliResult notUsed = Run({"set", "KVD_Remote=0"});
    EXPECT_EQ(notUsed.exit, 1);
    EXPECT_EQ(notUsed.err,
              "lumacfg-cli: cannot set KVD_Remote=0: \"Don't Use\" is greyed for the sample "
              "introduction \"OPAL\"\n");
}

TEST_F(CliSetTest, ADryRunPrintsWhatWouldChangeAndWritesNothing) {
    // A new station: every file it would create.
    const CliResult created = Run({"set", "--dry-run", "GPIB_ADDR=7"});
    ASSERT_EQ(created.exit, 0) << created.err;
    EXPECT_EQ(
        created.out.rfind("--- /dev/null\n+++ " + StationProfile().string() + "\n@@ -0,0 +1,", 0),
        0U)
        << created.out;
    EXPECT_NE(created.out.find("\n+Link1=gx40110,7\r\n"), std::string::npos);
    EXPECT_FALSE(ReadBytes(StationProfile()));

    ASSERT_EQ(Run({"show"}).exit, 0);
    const auto before = Files();
    const CliResult changed = Run({"set", "GPIB_ADDR=7", "PRO_SCAN=0", "--dry-run"});
    ASSERT_EQ(changed.exit, 0) << changed.err;
    EXPECT_EQ(Files(), before);
    // Two hunks of the station profile, three lines of context each.
    const std::string profile = StationProfile().string();
    const std::string expected = "--- " + profile + "\n+++ " + profile +
                                 "\n"
                                 "@@ -4,7 +4,7 @@\n"
                                 " Instruments=1\r\n"
                                 " [WSX_32]\r\n"
                                 " Links=1,2\r\n"
                                 "-Link1=gx40110,20\r\n"
                                 "+Link1=gx40110,7\r\n"
                                 " Link2=COM1,488\r\n"
                                 " Devices=1\r\n"
                                 " Device1=1,SMARTCARD\r\n"
                                 "@@ -66,7 +66,7 @@\n"
                                 " SEMIQFACTOR5=DCHARGE,DCHARGE,0.01,7\r\n"
                                 " SEMIQFACTOR6=DIMER,DIMER,0.001,7,24,60,72\r\n"
                                 " SEMIQFACTOR7=ARGIDE,40,0.001,60,72\r\n"
                                 "-PRO_SCAN=0\r\n"
                                 "+PRO_SCAN=1\r\n"
                                 " PRO_DWELL=0.0001\r\n"
                                 " _QCMDPATH$=" +
                                 Root() +
                                 "\\1\\QCMODE\\\r\n"
                                 " _QCMDFILE$=GENERAL.QCC\r\n";
    EXPECT_EQ(changed.out.substr(0, expected.size()), expected);

    // Doing it gives the files the diff announced.
    ASSERT_EQ(Run({"set", "GPIB_ADDR=7", "PRO_SCAN=0"}).exit, 0);
    std::string announced = before.at("LUMAEXE/lumagen.ist");
    announced.replace(announced.find("Link1=gx40110,20"), 16, "Link1=gx40110,7");
    announced.replace(announced.find("PRO_SCAN=0"), 10, "PRO_SCAN=1");
    EXPECT_EQ(StationText(), announced);
    // Nothing left to change: the dry run prints only the identifier's new moment, if any.
    const CliResult again = Run({"set", "--dry-run", "GPIB_ADDR=7"});
    EXPECT_EQ(again.out.find(profile), std::string::npos) << again.out;
}

TEST_F(CliSetTest, ResetRegistersTheStationAsANewOneWouldBe) {
    ASSERT_EQ(Run({"save"}).exit, 0);  // a new station, saved as the window would
    const std::string newProfile = StationText();
    const std::string newRunType = *ReadBytes(ProgramDir() / "runtype.ini");
    const std::string newRegistry = WithoutStamp(RegistryFileText());

    ASSERT_EQ(Run({"set", "ALS_TYPE=6", "GPIB_ADDR=3", "INHIBIT_MASS=7"}).exit, 0);
    const std::string lumagen = StationProfile().string();
    for (const auto& [section, key, value] :
         {std::tuple{"WSX,1", "start", "yes"}, std::tuple{"WSX,1", "DEBackground", "1 2 3"},
          std::tuple{"WSX_32", "RS232", "1,1"}}) {
        ASSERT_EQ(Run({"profile", "set", lumagen, section, key, value}).exit, 0);
    }
    const auto before = Files();
    const CliResult dry = Run({"reset", "--dry-run"});
    ASSERT_EQ(dry.exit, 0) << dry.err;
    EXPECT_NE(dry.out.find("\n-start=yes\r\n+start=no\r\n"), std::string::npos) << dry.out;
    EXPECT_EQ(Files(), before);

    const CliResult reset = Run({"reset"});
    ASSERT_EQ(reset.exit, 0) << reset.err;
    EXPECT_EQ(StationText(), newProfile);
    EXPECT_EQ(ReadBytes(ProgramDir() / "runtype.ini"), newRunType);
    EXPECT_EQ(WithoutStamp(RegistryFileText()), newRegistry);
}

}  // namespace
}  // namespace lumacfg
