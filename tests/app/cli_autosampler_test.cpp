// lumacfg-cli set with the fields of the autosampler dialogs: each driven through the dialog
// that the main window's Setup... opens for the autosampler chosen, its OK's checks refusing
// with the dialog's message and nothing written.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/cli_runner.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::CliResult;

// A custom tray of two positions 1500 across and 1200 deep, a rack that fits it, one too long.
const std::string kTables =
    "[INDEX]\r\nTray_Num=1\r\nTray1_ID=1000\r\nRack_Num=2\r\nRack1_ID=1000\r\nRack2_ID=1001\r\n"
    "[TRAY_1000]\r\nID_STR=Two racks\r\nRACK_X_NUM=2\r\nRACK_X_ORG=0\r\nRACK_Y_ORG=100\r\n"
    "RACK_X_DIST=1500\r\nRACK_Y_DIST=1200\r\nDEFRACK1=1000\r\n"
    "[RACK_1000]\r\nID=1000\r\nID_STR=Short\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=3\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[RACK_1001]\r\nID=1001\r\nID_STR=Long\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=9\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n";
const std::string kCurrent =
    "[CURRENT]\r\nCUSTOMTRAY=0\r\nTRAY_ID=0\r\nRACK1_ID=21\r\nRACK_X_NUM=1\r\n";

class CliAutosamplerTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        support::WriteBytes(Custrack(), kTables + kCurrent);
    }

    std::filesystem::path Custrack() const { return ProgramDir() / "custrack.ini"; }
    CliResult Run(const std::vector<std::string>& args) { return support::RunCli(args, root_); }

    std::string Shown(const std::string& name) { return support::ShownValue(name, root_); }
};

TEST_F(CliAutosamplerTest, TheVasAndTheLegacyFieldsAreStoredAsTheirDialogsOkStoresThem) {
    const struct {
        std::vector<std::string> args;
        std::vector<std::pair<std::string, std::string>> stored;
    } cases[] = {
        {{"ALS_TYPE=5", "SAMPLE_DEPTH=9999", "RINSE_DEPTH=0.1875", "STD_DEPTH=40", "TRAY_ID=2",
          "ESC_MODE=1", "COM_PORT=3"},
         {{"SAMPLE_DEPTH", "510"},
          {"ONEBOTTLE_DEPTH", "510"},
          {"RINSE_DEPTH", "2"},
          {"STD_DEPTH", "320"},
          {"TRAY_ID", "2"},
          {"ESC_MODE", "1"},
          {"COM_PORT", "3"}}},
        {{"ALS_TYPE=2", "RACK1_ID=96", "COM_PORT=2"}, {{"RACK1_ID", "96"}, {"COM_PORT", "2"}}},
        // The KLR-8 stores all eight positions: one not given keeps the model's default rack.
        {{"ALS_TYPE=6", "RACK8_ID=90"}, {{"RACK7_ID", "60"}, {"RACK8_ID", "90"}}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> args = {"set"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const CliResult set = Run(args);
        ASSERT_EQ(set.exit, 0) << set.err;
        for (const auto& [name, value] : c.stored) EXPECT_EQ(Shown(name), value) << name;
    }
}

TEST_F(CliAutosamplerTest, TheAsx500TrayAndRacksReachCustrackByteForByte) {
    const CliResult set =
        Run({"set", "ALS_TYPE=1", "TRAY=Two racks", "RACK(2)=Short", "COM_PORT=4"});
    ASSERT_EQ(set.exit, 0) << set.err;
    EXPECT_EQ(support::ReadBytes(Custrack()),
              kTables +
                  "[CURRENT]\r\nCUSTOMTRAY=1000\r\nTRAY_ID=1000\r\nRACK1_ID=1000\r\n"
                  "RACK2_ID=1000\r\nRACK_X_NUM=2\r\n");
    EXPECT_EQ(Shown("COM_PORT"), "4");
}

TEST_F(CliAutosamplerTest, ARefusedFieldOrCheckExitsOneAndWritesNothing) {
    const struct {
        std::vector<std::string> args;
        std::string said;
    } cases[] = {
        {{"RACK1_ID=24"}, "no autosampler is chosen, so Setup... is greyed"},
        {{"ALS_TYPE=5", "RACK1_ID=24"}, "Setup... opens the V-AS dialog"},
        {{"ALS_TYPE=1", "SAMPLE_DEPTH=3"}, "Setup... opens the ASX500 tray and rack dialog"},
        {{"ALS_TYPE=2", "RACK1_ID=21"}, "the \"Rack ID 1\" list offers 24, 48, 96"},
        {{"ALS_TYPE=2", "RACK5_ID=48"},
         "the \"Rack ID 5\" list is not shown because the \"ASX100 Configuration\" dialog has 4 "
         "rack positions"},
        {{"ALS_TYPE=6", "COM_PORT=5"},
         "the \"COM Port for ALS\" list offers COM1, COM2, COM3, COM4"},
        {{"ALS_TYPE=1", "TRAY=Three racks"},
         "the \"Tray Type\" list offers Standard 4/5, Standard 4/10, "
         "Two racks"},
        {{"ALS_TYPE=1", "TRAY=Two racks", "RACK(2)=Long"},
         "Invalid rack is specified for the current tray type.\nLength of the rack might be "
         "wrong."},
        {{"ALS_TYPE=1", "TRAY=Standard 4/5", "RACK(5)=21"},
         "the \"Rack ID 5\" list is greyed because the tray \"Standard 4/5\" has 4 rack positions"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> args = {"set"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const CliResult set = Run(args);
        EXPECT_EQ(set.exit, 1) << c.said;  // not even the new station of the start-up is written
        EXPECT_NE(set.err.find(c.said), std::string::npos) << set.err;
        EXPECT_FALSE(std::filesystem::exists(StationProfile())) << c.said;
        EXPECT_EQ(support::ReadBytes(Custrack()), kTables + kCurrent);
    }
}

}  // namespace
}  // namespace lumacfg
