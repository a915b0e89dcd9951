#include "config/config_record.h"

#include <gtest/gtest.h>

#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::RegistryText;
using support::TempStation;
using support::WriteBytes;

using ConfigRecordTest = TempStation;

TEST_F(ConfigRecordTest, InstrumentModelAndFirstLinkFollowTheRegistry) {
    // The value line under the data system's key (none: no such key), the model and the first
    // link.
    const std::tuple<std::optional<std::string>, Int16, std::string> cases[] = {
        {"\"HardWare\"=dword:00000001\r\n", 1, "gx40110,20"},
        {"\"HardWare\"=dword:00000002\r\n", 2, "lan[192.168.1.128]:brenmarkib,0"},
        {"\"HardWare\"=dword:ffffffff\r\n", 0, "gx40110,20"},
        {"\"HardWare\"=dword:00000007\r\n", 2, "lan[192.168.1.128]:brenmarkib,0"},
        {"\"HardWare\"=\"1\"\r\n", 2, "lan[192.168.1.128]:brenmarkib,0"},
        {"", 2, "lan[192.168.1.128]:brenmarkib,0"},
        {std::nullopt, 2, "lan[192.168.1.128]:brenmarkib,0"},
    };
    for (const auto& [hardWare, model, link1] : cases) {
        SCOPED_TRACE(hardWare.value_or("no key"));
        WriteBytes(RegistryPath(),
                   hardWare ? RegistryText(*hardWare) : "Windows Registry Editor Version 5.00\r\n");
        SetDefaults();
        EXPECT_EQ(Config().ICPMS_TYPE, model);
        EXPECT_EQ(Config().LINK_STRING[0], link1);
        EXPECT_EQ(Config().LINK_STRING[1], "COM1,488");
    }
}

TEST_F(ConfigRecordTest, DefaultsBuildTheRootPathsAndTables) {
    Config().ROOT_PATH = "C:\\ROOT";
    Config().ALS_TYPE = 5;
    SetDefaults();
    const ConfigRecord& r = Config();
    EXPECT_EQ(r.QCMDPATH, "C:\\ROOT\\1\\QCMODE\\");
    EXPECT_EQ(r.ALS_TYPE, 0);
    EXPECT_EQ(r.RACK1_ID, 0);
    EXPECT_EQ((std::array<Int16, 5>{1, 2, 0, 0, 0}), r.LINK_USED);
    EXPECT_EQ(r.DEVICE_USED[0], 1);
    EXPECT_EQ(r.DEVICE_NAME[0], "SMARTCARD");
    EXPECT_EQ(r.SECURITY, 1);
    EXPECT_EQ(r.ALWAYSPRT, -1);
    EXPECT_FLOAT_EQ(r.OPT_CHG_FLW, 0.20F);
}

TEST_F(ConfigRecordTest, DefaultRacksByAutosamplerType) {
    const std::pair<Int16, std::array<Int16, 8>> cases[] = {
        {0, {0, 0, 0, 0, 0, 0, 0, 0}},         {1, {21, 60, 60, 60, 0, 0, 0, 0}},
        {2, {24, 0, 0, 0, 0, 0, 0, 0}},        {3, {24, 24, 0, 0, 0, 0, 0, 0}},
        {4, {21, 60, 60, 60, 0, 0, 0, 0}},     {5, {21, 60, 60, 60, 0, 0, 0, 0}},
        {6, {21, 21, 60, 60, 60, 60, 60, 60}}, {9, {0, 0, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& [type, racks] : cases) {
        for (int p = 1; p <= 8; ++p) RackId(Config(), p) = 99;
        SetDefaultRacks(type);
        for (int p = 1; p <= 8; ++p) EXPECT_EQ(RackId(Config(), p), racks[p - 1]) << type << p;
    }
}

TEST_F(ConfigRecordTest, InhibitedMassesParse) {
    using Masses = std::array<Int16, 11>;
    const std::pair<std::string, Masses> cases[] = {
        {"", Masses{}},      {"14 16 error", Masses{}},
        {"error", Masses{}}, {"1 2 3 4 5 6 7 8 9 10 11 12", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0}},
        {"7  9", {7, 9}},    {" 7 x 12.6 40abc", {7, 0, 13, 40}},
        {"200 ", {200}},
    };
    for (const auto& [text, masses] : cases) {
        ParseInhibitMasses(text, Config());
        EXPECT_EQ(Config().INHIBIT_MASS, masses) << '"' << text << '"';
    }
}

TEST_F(ConfigRecordTest, AddDeviceTakesTheFirstFreeEntryAndTheLinkOfItsKind) {
    SetDefaults();  // model 1: link 1 GPIB, link 2 RS232
    AddDevice("V-AS");
    AddDevice("KLR-8");
    const ConfigRecord& r = Config();
    EXPECT_EQ(r.DEVICE_USED[1], 2);
    EXPECT_EQ(r.DEVICE_NAME[1], "V-AS");
    EXPECT_EQ(r.DEVICE_LINK[1], 2);
    EXPECT_EQ(r.DEVICE_LINK[2], 0);  // no link kind for this model
    EXPECT_EQ(FindDevice("KLR-8"), 3);
    EXPECT_EQ(FindDevice("ASX500"), 0);

    Config().ICPMS_TYPE = 2;  // a SMARTCARD now wants the LAN link, and there is none
    AddDevice("SMARTCARD");
    EXPECT_EQ(r.DEVICE_LINK[3], 0);
    EXPECT_TRUE(messages_.empty());

    // A full table only shows the message.
    for (int i = 4; i < kDeviceCount; ++i) AddDevice("ASX500");
    const auto before = Config().DEVICE_NAME;
    AddDevice("V-AS");
    EXPECT_EQ(Config().DEVICE_NAME, before);
    ASSERT_EQ(messages_.size(), 1U);
    EXPECT_EQ(messages_[0].text, "Could not add device for V-AS");
    EXPECT_EQ(messages_[0].icon, platform::MessageIcon::Exclamation);
}

TEST_F(ConfigRecordTest, InitialProfileRowsInTheirOrder) {
    Config().ROOT_PATH = "C:\\R";
    SetDefaults();
    WriteInitialProfile();
    const std::string expected =
        "[WSX]\r\nApplications=ICPMS\r\nPath=C:\\R\r\nInstruments=1\r\n"
        "[WSX_32]\r\nLinks=1,2\r\nLink1=gx40110,20\r\nLink2=COM1,488\r\nDevices=1\r\n"
        "Device1=1,SMARTCARD\r\nRS232=130,13\r\n"
        "[WSX,1]\r\nINSTNAME=Q40 - Instrument1\r\nstart=no\r\nKVD_Remote=0\r\nDevices=1\r\n"
        "InstType=ICPMS\r\nICPMS_TYPE=0\r\nICPMS_ID=1\r\nALS_TYPE=\r\nALS_ID=\r\nSI_TYPE=0\r\n"
        "DA_TYPE=0\r\nMS_TYPE=\r\nRACK1_ID=21\r\nRACK2_ID=60\r\nRACK3_ID=60\r\nRACK4_ID=60\r\n"
        "RACK5_ID=\r\nRACK6_ID=\r\nRACK7_ID=\r\nRACK8_ID=\r\n"
        "Program=C:\\R\\LUMAEXE\\LUMATOP.EXE\r\n_HELPPATH$=C:\\R\\LUMAEXE\\\r\n"
        "_AUTOPATH$=C:\\R\\LUMAEXE\\\r\n_EXEPATH$=C:\\R\\LUMAEXE\\\r\n_INSTPATH$=C:\\R\\1\\\r\n"
        "_DATAPATH$=C:\\R\\1\\DATA\\\r\n_METHPATH$=C:\\R\\1\\METHODS\\\r\n"
        "_SEQPATH$=C:\\R\\1\\SEQUENCE\\\r\n_TUNEPATH$=C:\\R\\1\\Q40\\\r\n"
        "_LIBPATH$=C:\\R\\DATABASE\\\r\n_HELPFILE$=LUMA-MS.CHM\r\n_DATAFILE$=LUMADEMO.D\r\n"
        "_METHFILE$=DEFAULT.M\r\n_SEQFILE$=DEFAULT.S\r\nDEBackground=0 0 0\r\n"
        "DEChrom0=0 190 200\r\nDEChrom1=0 255 0\r\nDEChrom2=255 255 0\r\nDEChrom3=255 0 190\r\n"
        "DEChrom4=255 255 255\r\nDEChrom5=255 0 0\r\nDEAxes=255 255 255\r\nDETitle=0 255 255\r\n"
        "DERtimes=0 0 255\r\nDEBaselines=255 0 0\r\nDECorrectlines=0 255 0\r\n"
        "DEAnnotation=255 255 255\r\nDEFrame=0 255 0\r\n"
        "_INHIBIT=14 16 17 18 19 32 36 38 40 41\r\nSEMIQFACTOR1=BKG,BKG,0.03\r\n"
        "SEMIQFACTOR2=,ISOTOPE,0.1\r\nSEMIQFACTOR3=OXIDE,16,0.01,72\r\n"
        "SEMIQFACTOR4=HYDRIDE,1,0.01\r\nSEMIQFACTOR5=DCHARGE,DCHARGE,0.01,7\r\n"
        "SEMIQFACTOR6=DIMER,DIMER,0.001,7,24,60,72\r\nSEMIQFACTOR7=ARGIDE,40,0.001,60,72\r\n"
        "PRO_SCAN=0\r\nPRO_DWELL=0.0001\r\n_QCMDPATH$=C:\\R\\1\\QCMODE\\\r\n"
        "_QCMDFILE$=GENERAL.QCC\r\n_RPTPATH$=C:\\R\\1\\RPTTMP\\\r\n"
        "_CHNSEQPATH$=C:\\R\\1\\CHNSEQ\\\r\n_CHNSEQFILE$=DEFAULT.CHS\r\n"
        "_CALPATH$=C:\\R\\1\\CALIB\\\r\n_CALFILE$=DEFAULT.C\r\nDSS_MODE=0\r\nDSS_LOAD=10\r\n"
        "DSS_ACQ=60\r\nDSS_STAB=0\r\nDSS_SYSRNS=0\r\nDSS_NDLRNS=10\r\nDSS_INJECT=60\r\n"
        "DSS_INTRVL=0\r\nDSS_REP=1\r\nDSS_WAIT=8\r\nOPT_SC=1\r\nOPT_PMP2=0\r\n_MPM=0\r\n"
        "_MPMFILE$=\r\nEnableDTCal=0\r\n_INTFPATH$=C:\\R\\1\\INTERFER\\\r\nOPT_AUTOREC=0\r\n";
    EXPECT_EQ(StationText(), expected);
    // The configuration identifier says "security off" at 2008-12-31 23:59:59.
    EXPECT_NE(RegistryFileText().find("\"ConfigurationID\"=dword:0890f76e\r\n"), std::string::npos);
}

}  // namespace
}  // namespace lumacfg
