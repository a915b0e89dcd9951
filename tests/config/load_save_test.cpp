#include <gtest/gtest.h>

#include <sstream>

#include "config/config_record.h"
#include "config/load_configuration.h"
#include "config/profile.h"
#include "config/record_fields.h"
#include "config/save_configuration.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::ReadBytes;
using support::TempStation;
using support::WriteBytes;

class LoadSaveTest : public TempStation {
  protected:
    // A station profile holding these lines in "[WSX,1]" and these in "[WSX_32]".
    void WriteStation(const std::string& wsx1, const std::string& wsx32 = "") {
        WriteBytes(StationProfile(),
                   "[WSX]\r\nApplications=ICPMS\r\n[WSX_32]\r\n" + wsx32 + "[WSX,1]\r\n" + wsx1);
    }
    std::string Value(const std::string& key, const std::string& section = "WSX,1") {
        return ReadSingleValue(section, key).value_or("<none>");
    }
};

TEST_F(LoadSaveTest, LinksAreReadByKind) {
    WriteStation("",
                 "Links=1,2,3\r\nLink1=gx40110,7\r\nLink2=COM3,488\r\n"
                 "Link3=lan[10.0.0.5]:brenmarkib,0\r\n");
    LoadConfiguration();
    const ConfigRecord& r = Config();
    EXPECT_EQ(r.GPIB_ADDR, 7);
    EXPECT_EQ(r.LINK_TYPE[1], "RS232");
    EXPECT_EQ(r.LINK_PARAM[1], "3");
    EXPECT_EQ(r.COM_PORT, 3);
    EXPECT_EQ(r.LINK_TYPE[2], "lan");
    EXPECT_EQ(r.LAN_IPADDR, "10.0.0.5");

    WriteStation("", "Links=1,,2\r\nLink1=COM12,488\r\nLink2=gx40110,9\r\n");
    LoadConfiguration();
    EXPECT_EQ(r.LINK_USED, (std::array<Int16, 5>{1, 0, 0, 0, 0}));
    EXPECT_EQ(r.COM_PORT, 2);  // the last character only
    EXPECT_EQ(r.GPIB_ADDR, 20);
}

TEST_F(LoadSaveTest, DevicesSkipEntriesStartingWithAComma) {
    WriteStation("", "Devices=1,2,3\r\nDevice1=1,SMARTCARD\r\nDevice2=,V-AS\r\nDevice3=2,\r\n");
    LoadConfiguration();
    const ConfigRecord& r = Config();
    EXPECT_EQ(r.DEVICE_NAME[0], "SMARTCARD");
    EXPECT_EQ(r.DEVICE_LINK[1], 0);
    EXPECT_EQ(r.DEVICE_NAME[1], "");
    EXPECT_EQ(r.DEVICE_LINK[2], 2);
    EXPECT_EQ(r.DEVICE_NAME[2], "");
}

TEST_F(LoadSaveTest, FallbacksAndClamps) {
    // Lines of "[WSX,1]", a field, and its value as loaded.
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"PRO_SCAN=1\r\n", "PRO_SCAN", "0"},
        {"PRO_SCAN=0\r\n", "PRO_SCAN", "1"},
        {"PRO_SCAN=x\r\n", "PRO_SCAN", "1"},
        {"", "PRO_SCAN", "1"},
        {"_LCCHEM=3\r\nKVD_Remote=0\r\n", "_LCCHEM", "0"},
        {"_LCCHEM=3\r\nKVD_Remote=1\r\n", "_LCCHEM", "3"},
        {"_LCCHEM=7\r\nKVD_Remote=1\r\n", "_LCCHEM", "0"},
        {"", "INHIBIT_MASS", "0 0 0 0 0 0 0 0 0 0 0"},
        {"_INHIBIT=7 9\r\n", "INHIBIT_MASS", "7 9 0 0 0 0 0 0 0 0 0"},
        {"RACK1_ID=24\r\nRACK2_ID=\r\n", "RACK1_ID", "24"},
        {"", "ICPMS_TYPE", "0"},
        {"", "ICPMS_ID", "1"},
        {"ICPMS_ID=5\r\n", "ICPMS_ID", "0"},
        {"", "OPT_SC", "0"},
        {"SAMPLE_DEPTH=12.5\r\n", "SAMPLE_DEPTH", "12"},
        {"SAMPLE_DEPTH=99999\r\n", "SAMPLE_DEPTH", "440"},
        {"DSS_LOAD=12.75\r\n", "DSS_LOAD", "12.75"},
        {"DSS_REP=  4 times\r\n", "DSS_REP", "4"},
        {"OPT_CHG_FLW=0.35\r\n", "OPT_CHG_FLW", "0.35"},
        {"ALS_TYPE=garbage\r\n", "ALS_TYPE", "0"},
        {"_QCMDFILE$=ENVIRO.QCC\r\n", "_QCMDFILE$", "ENVIRO.QCC"},
    };
    for (const auto& [lines, name, value] : cases) {
        SCOPED_TRACE(lines);
        WriteStation(lines);
        LoadConfiguration();
        for (const RecordField& field : RecordFields(Config())) {
            if (field.name == name) {
                EXPECT_EQ(FieldText(field.ref), value);
            }
        }
    }
}

// VLT integration, enabled in the registry throughout, is off whenever security is.
TEST_F(LoadSaveTest, SecurityAlwaysPrintAndVltFromTheIdentifier) {
    // The stored identifier ("" for none), the lines of "[WSX,1]", and the two flags loaded.
    const std::tuple<std::string, std::string, Int16, Int16> cases[] = {
        {"dword:0890f76f", "", 1, -1},  {"dword:0890f76f", "_ALWAYSPRT=0\r\n", 1, 0},
        {"dword:0890f76e", "", 0, 0},   {"dword:0890f76e", "_ALWAYSPRT=1\r\n", 0, 0},
        {"dword:0890f76d", "", -1, 0},  {"dword:0890f76d", "_ALWAYSPRT=1\r\n", -1, -1},
        {"", "_ALWAYSPRT=1\r\n", 0, 0}, {"dword:0890f76f", "_ALWAYSPRT=yes\r\n", 1, -1},
    };
    for (const auto& [identifier, alwaysPrint, security, printing] : cases) {
        SCOPED_TRACE(identifier + " " + alwaysPrint);
        std::string value = identifier.empty() ? "" : "\"ConfigurationID\"=" + identifier + "\r\n";
        WriteBytes(RegistryPath(),
                   support::RegistryText(value + "\"EnableVLTIntegration\"=dword:00000001\r\n"));
        WriteStation(alwaysPrint);
        LoadConfiguration();
        EXPECT_EQ(Config().SECURITY, security);
        EXPECT_EQ(Config().ALWAYSPRT, printing);
        EXPECT_EQ(Config().VLT_ENABLED, security == 0 ? 0 : 1);
    }
}

TEST_F(LoadSaveTest, LoadCompletesOnlyTheTwoMissingOptionKeys) {
    WriteStation("OPT_CHG_FLW=0.5\r\n");
    LoadConfiguration();
    EXPECT_EQ(StationText(),
              "[WSX]\r\nApplications=ICPMS\r\n[WSX_32]\r\n[WSX,1]\r\n"
              "OPT_CHG_FLW=0.5\r\nOPT_CHG_TIME=12\r\n");
}

TEST_F(LoadSaveTest, SaveWritesEveryKeyInItsFormat) {
    SetDefaults();
    ConfigRecord& r = Config();
    r.LINK_USED = {1, 2, 0, 0, 0};
    r.DSS_LOAD = 10.4;
    r.DSS_ACQ = 2.5;  // halves away from zero
    r.INHIBIT_MASS = {1, 14, 0, 7};
    r.ALS_TYPE = 5;
    r.DEVICE_USED = {1, 2, 3};
    r.DEVICE_LINK = {1, 2, 2};
    r.DEVICE_NAME = {"SMARTCARD", "V-AS", "ASX500"};
    r.TRAY_ID = 2;
    r.MAX_BOTTLE = 7;
    r.OPT_CHG_FLW = 0.125F;
    WriteStation("", "Links=1,2,3\r\nLink3=gx40110,4\r\n");
    SaveConfiguration();
    EXPECT_EQ(Value("Link3", "WSX_32"), "<none>");
    EXPECT_EQ(Value("Links", "WSX_32"), "1,2");
    EXPECT_EQ(Value("DSS_LOAD"), "10");
    EXPECT_EQ(Value("DSS_ACQ"), "3");
    EXPECT_EQ(Value("_INHIBIT"), "14 7");
    EXPECT_EQ(Value("MAX_BOTTLE"), "53");
    EXPECT_EQ(Value("ALS_ID"), "3");  // the one autosampler device, whatever the model
    EXPECT_EQ(Value("OPT_CHG_FLW"), "0.13");
    EXPECT_EQ(Value("INSTNAME"), "CRVQ70 - Instrument1");
    EXPECT_EQ(Value("_TUNEPATH$"), Root() + "\\1\\Q70\\");
    EXPECT_EQ(Value("_SECURITY"), "<none>");

    r.ALS_TYPE = 2;
    r.TRAY_ID = 3;
    SaveConfiguration();
    EXPECT_EQ(Value("RACK1_ID"), "0");
    for (int p = 2; p <= 8; ++p) EXPECT_EQ(Value("RACK" + std::to_string(p) + "_ID"), "<none>");
    EXPECT_EQ(Value("MAX_BOTTLE"), "53");  // tray and depths belong to type 5 only
}

// A list edited by hand puts numbers in other entries than their own ("Links=2": link 2 in entry
// 0): the keys of the numbers listed stay, those of the numbers not listed go, and the second
// save changes nothing more.
TEST_F(LoadSaveTest, HandEditedListsKeepTheKeysTheyList) {
    struct Case {
        std::string wsx32, links, devices, kept, gone;
    };
    const Case cases[] = {
        {"Links=2\r\nLink2=COM1,488\r\nDevices=3\r\nDevice3=2,V-AS\r\n", "2", "3",
         "Link2=COM1,488;Device3=2,V-AS", "Link1;Device1"},
        {"Links=x,1\r\nLink1=gx40110,7\r\nLink2=COM1,488\r\n", "1", "", "Link1=gx40110,7", "Link2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.wsx32);
        WriteStation("", c.wsx32);
        for (int save = 1; save <= 2; ++save) {
            LoadConfiguration();
            SaveConfiguration();
            EXPECT_EQ(Value("Links", "WSX_32"), c.links);
            if (!c.devices.empty()) {
                EXPECT_EQ(Value("Devices", "WSX_32"), c.devices);
            }
            std::istringstream kept(c.kept), gone(c.gone);
            for (std::string pair; std::getline(kept, pair, ';');) {
                const std::size_t equals = pair.find('=');
                EXPECT_EQ(Value(pair.substr(0, equals), "WSX_32"), pair.substr(equals + 1));
            }
            for (std::string key; std::getline(gone, key, ';');) {
                EXPECT_EQ(Value(key, "WSX_32"), "<none>") << key;
            }
        }
    }
}

TEST_F(LoadSaveTest, SaveKeepsTheKeysItDoesNotOwn) {
    std::string others;
    for (int i = 0; i < 300; ++i) others += "X" + std::to_string(i) + "=kept\r\n";
    WriteStation(others, "Mine=1\r\n");
    SetDefaults();
    SaveConfiguration();
    EXPECT_NE(StationText().find(others), std::string::npos);
    EXPECT_NE(StationText().find("[WSX_32]\r\nMine=1\r\n"), std::string::npos);
}

}  // namespace
}  // namespace lumacfg
