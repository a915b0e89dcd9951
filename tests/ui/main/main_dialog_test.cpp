#include "ui/main/main_dialog.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>
#include <vector>

#include "ui/main/connection_fields.h"
#include "ui/main/main_dialog_fixture.h"

namespace lumacfg::ui {
namespace {

using platform::MessageIcon;
using support::ReadBytes;

std::string Box(const char* array, int i) {
    return std::string(array) + "(" + std::to_string(i) + ")";
}

TEST_F(MainDialogTest, EveryControlShowsItsCaptionFromTheStringTable) {
    const std::tuple<std::string, int> captions[] = {
        {"Fm_Config", 115},    {"Gb_BrenmarkIB", 150}, {"Lbl_Address", 117},
        {"Ck_Offline", 116},   {"Gb_Remort", 118},     {"Op_NotUse", 119},
        {"Op_Wait", 120},      {"Ck_NotRepRem", 162},  {"Gb_Intro", 121},
        {"Lbl_Type", 122},     {"Cd_TypeSet", 132},    {"Lbl_Auto", 123},
        {"Cd_AutoSet", 132},   {"Lbl_MPMApp", 155},    {"Ck_CtrlLCGC", 163},
        {"Lbl_LCInst", 164},   {"Gb_Inhibit", 124},    {"Gb_QCMode", 133},
        {"Lbl_Mode", 134},     {"Cd_Browse", 136},     {"Cd_QCCfg", 137},
        {"Gb_EM", 127},        {"Ck_Integ", 128},      {"Gb_Security", 157},
        {"Ck_Security", 157},  {"Ck_VLT", 171},        {"Lb_Title_VLTFolder", 172},
        {"Ck_AlwaysPrt", 170}, {"Cd_Misc", 149},       {"Cd_Tlbar", 148},
        {"Cd_Save", 129},      {"Cd_Reset", 125},      {"Cancel", 4},
        {"Help", 5},
    };
    const MainDialog window = Window();
    for (const auto& [name, text] : captions) EXPECT_EQ(Of(window, name).text, LoadResString(text));
    // Boxes and lists hold the record; the arrays are there element by element.
    for (const char* name : {"Ed_Address", "Cb_Type", "Cb_Auto", "Cb_MPMApp", "Cb_MPMFileUsr",
                             "Cb_LCInst", "Lbl_QCFile", "Lb_VLTFolder", "Cd_SelVLTFolder", "Timer1",
                             "CmmDlg1", "Lbl_DDEFile", "Lbl_DDEPath", "Ed_IPDot(2)",
                             "Cb_MPMFileStd(0)", "Cb_MPMFileStd(1)", "Ed_IP(3)", "Ed_Inhibit(9)"}) {
        EXPECT_TRUE(window.State().contains(name)) << name;
    }
    EXPECT_EQ(Of(window, "Ed_Address").text, "20");
    EXPECT_EQ(Of(window, "Lbl_QCFile").text, "GENERAL.QCC");
    EXPECT_EQ(Of(window, "Cb_LCInst").items, (std::vector<std::string>{"1", "2", "3", "4"}));
    EXPECT_EQ(Of(window, "Ed_Inhibit(0)").text, "14");
    EXPECT_EQ(Of(window, "Ed_Inhibit(9)").text, "41");
    EXPECT_TRUE(Of(window, "Ck_Integ").checked);
}

TEST_F(MainDialogTest, TheConnectionFieldsFollowTheModelAndOffline) {
    // Model, stored address, the four boxes, and whether the address box is usable online.
    const std::tuple<Int16, std::string, std::array<std::string, 4>, bool> cases[] = {
        {2, "192.168.1.128", {"192", "168", "1", "128"}, false},
        {2, "10.0", {"10", "0", "0", "0"}, false},
        {1, "", {"", "0", "0", "0"}, true},
    };
    for (const auto& [model, address, boxes, addressUsable] : cases) {
        record_.ICPMS_TYPE = model;
        record_.LAN_IPADDR = address;
        MainDialog window = Window();
        for (int i = 0; i < 4; ++i) EXPECT_EQ(Of(window, Box("Ed_IP", i)).text, boxes[i]);
        EXPECT_EQ(Of(window, "Gb_BrenmarkIB").text, model == 2 ? "LAN" : "GPIB");
        EXPECT_EQ(Of(window, "Lbl_Address").text, model == 2 ? "IP Address:" : "ICP-MS Address:");
        EXPECT_EQ(Of(window, "Ed_IP(0)").visible, model == 2);
        EXPECT_EQ(Of(window, "Ed_Address").enabled, addressUsable);
        window.Click("Ck_Offline");
        EXPECT_FALSE(Of(window, "Ed_Address").enabled);
        EXPECT_FALSE(Of(window, "Ed_IP(2)").enabled);
        window.Click("Ck_Offline");
        EXPECT_EQ(Of(window, "Ed_Address").enabled, addressUsable);
        EXPECT_TRUE(Of(window, "Ed_IP(2)").enabled);
    }
}

TEST_F(MainDialogTest, LeavingABoxCleansIt) {
    const std::tuple<std::string, std::string> octets[] = {
        {"", "0"},    {"999", "255"}, {"-5", "0"},    {"007", "7"},
        {"abc", "0"}, {"12.5", "12"}, {"255", "255"}, {"3x", "3"},
    };
    const std::tuple<std::string, std::string> masses[] = {
        {"1", "---"},     {"261", "---"}, {"2", "2"},   {"260", "260"}, {"040", "40"},
        {"40.4", "40.4"}, {"", "---"},    {"x", "---"}, {"---", "---"}, {" 7 u", "7"},
    };
    MainDialog window = Window();
    for (const auto& [typed, shown] : octets) {
        window.SetText("Ed_IP(1)", typed);
        window.LeaveBox("Ed_IP(1)");
        EXPECT_EQ(Of(window, "Ed_IP(1)").text, shown) << typed;
    }
    for (int i = 0; i < 10; ++i) window.SetText(Box("Ed_Inhibit", i), "---");
    for (const auto& [typed, shown] : masses) {
        window.SetText("Ed_Inhibit(3)", typed);
        window.LeaveBox("Ed_Inhibit(3)");
        EXPECT_EQ(Of(window, "Ed_Inhibit(3)").text, shown) << typed;
    }
    EXPECT_TRUE(messages_.empty());
}

TEST_F(MainDialogTest, ADuplicatedMassIsClearedWithAMessage) {
    MainDialog window = Window();
    for (int i = 0; i < 10; ++i) window.SetText(Box("Ed_Inhibit", i), "---");
    window.SetText("Ed_Inhibit(0)", "40");
    // The values as typed are compared: 40.4 is no duplicate of 40.
    window.SetText("Ed_Inhibit(5)", "40.4");
    window.LeaveBox("Ed_Inhibit(5)");
    EXPECT_EQ(Of(window, "Ed_Inhibit(5)").text, "40.4");
    EXPECT_TRUE(messages_.empty());
    window.SetText("Ed_Inhibit(7)", "040");
    window.LeaveBox("Ed_Inhibit(7)");
    EXPECT_EQ(Of(window, "Ed_Inhibit(7)").text, "---");
    EXPECT_EQ(Of(window, "Ed_Inhibit(0)").text, "40");
    ASSERT_EQ(messages_.size(), 1U);
    EXPECT_EQ(messages_[0].text, "Prohibited mass is duplicated. This setting is invalid.");
    EXPECT_EQ(messages_[0].title, "ICP-MS Configuration");
    EXPECT_EQ(messages_[0].icon, MessageIcon::Exclamation);
}

TEST(MainIpAddressCheckTest, RefusesWhatNoHostCanBe) {
    const std::tuple<std::array<int, 4>, bool> cases[] = {
        {{192, 168, 1, 128}, true},   {{192, 168, 1, 0}, false},     {{192, 168, 1, 255}, false},
        {{10, 0, 0, 0}, false},       {{10, 255, 255, 255}, false},  {{10, 0, 0, 1}, true},
        {{127, 0, 0, 1}, false},      {{127, 0, 0, 0}, false},       {{127, 0, 0, 2}, true},
        {{0, 1, 2, 3}, true},         {{224, 0, 0, 1}, false},       {{255, 255, 255, 254}, false},
        {{0, 0, 0, 0}, false},        {{255, 255, 255, 255}, false}, {{172, 16, 0, 0}, false},
        {{172, 16, 255, 255}, false}, {{172, 16, 0, 255}, true},     {{223, 1, 1, 1}, true},
    };
    for (const auto& [octets, accepted] : cases) {
        EXPECT_EQ(IpAddressAccepted(octets), accepted)
            << octets[0] << "." << octets[1] << "." << octets[2] << "." << octets[3];
    }
}

TEST_F(MainDialogTest, SaveStoresTheGpibAddressOrRefusesIt) {
    const std::tuple<std::string, int> cases[] = {
        {"29", 29},   {"29.4", -1}, {"-1", -1}, {"abc", 0}, {"", 0},
        {"28.5", 28}, {"29.5", -1}, {"3.6", 4}, {" 7x", 7},
    };
    for (const auto& [typed, stored] : cases) {
        MainDialog window = Window();
        window.SetText("Ed_Address", typed);
        window.Click("Cd_Save");
        ConfigRecord saved;
        window.Accept(saved);
        if (stored < 0) {
            EXPECT_EQ(window.End(), DialogEnd::Open) << typed;
            EXPECT_EQ(Shown(), std::vector<std::string>{
                                   "Valid GPIB address is an integral number from 0 to 29."});
            EXPECT_EQ(messages_.at(0).title, "Error");
            EXPECT_EQ(saved.GPIB_ADDR, 20) << typed;
            EXPECT_EQ(saved.SAVE_REQ, 0);
        } else {
            EXPECT_EQ(window.End(), DialogEnd::Accepted) << typed;
            EXPECT_EQ(saved.GPIB_ADDR, stored) << typed;
            EXPECT_EQ(saved.SAVE_REQ, 1);
            EXPECT_TRUE(messages_.empty()) << typed;
        }
    }
    // Offline, the greyed box is not read at all.
    MainDialog window = Window();
    window.Click("Ck_Offline");
    window.SetText("Ed_Address", "99");
    window.Click("Cd_Save");
    EXPECT_EQ(window.End(), DialogEnd::Accepted);
    EXPECT_EQ(window.Record().GPIB_ADDR, 20);
    EXPECT_EQ(window.Record().ICPMS_ID, 1);
    EXPECT_EQ(FindDevice("SMARTCARD"), 1);  // the process-wide record is left alone
}

TEST_F(MainDialogTest, SaveMakesOnlyTheFirstFailingCheck) {
    record_.ICPMS_TYPE = 2;
    record_.SI_TYPE = 5;  // the OPAL system: an application must be chosen
    record_.VLT_ENABLED = 1;
    MainDialog window = Window();
    window.SetText("Ed_IP(3)", "0");
    window.Click("Cd_Save");
    EXPECT_EQ(Shown(), std::vector<std::string>{"OPAL Application should be selected."});
    ChooseText(window, "Cb_MPMApp", "Seawater");
    window.Click("Cd_Save");
    EXPECT_EQ(Shown().back(), "IP Address setting is invalid.");
    window.SetText("Ed_IP(3)", "7");
    window.Click("Cd_Save");
    EXPECT_EQ(Shown().back(), "Must specify the folder on VLT server.");
    EXPECT_EQ(messages_.size(), 3U);
    for (const platform::MessageRequest& m : messages_) {
        EXPECT_EQ(m.title, "Error");
        EXPECT_EQ(m.icon, MessageIcon::Exclamation);
        EXPECT_EQ(m.buttons, platform::MessageButtons::Ok);
    }
    EXPECT_EQ(window.End(), DialogEnd::Open);
    EXPECT_EQ(window.Record().LAN_IPADDR, "192.168.1.128");
    EXPECT_EQ(window.Record().MPM, 0);

    window.SetText("Lb_VLTFolder", "\\\\server\\vlt");
    window.Click("Cd_Save");
    EXPECT_EQ(window.End(), DialogEnd::Accepted);
    const ConfigRecord& saved = window.Record();
    EXPECT_EQ(saved.LAN_IPADDR, "192.168.1.7");
    EXPECT_EQ(saved.MPM, 2);
    EXPECT_EQ(saved.MPMFILE, "SEA.MPU");
    EXPECT_EQ(saved.VLT_FOLDER, "\\\\server\\vlt");
    EXPECT_EQ(saved.KVD_Remote, 1);
}

TEST_F(MainDialogTest, SaveSortsTheMassesAndSettlesTheDevices) {
    MainDialog window = Window();
    for (int i = 0; i < 10; ++i) window.SetText(Box("Ed_Inhibit", i), "---");
    window.SetText("Ed_Inhibit(0)", "44");
    window.SetText("Ed_Inhibit(2)", "12");
    window.SetText("Ed_Inhibit(4)", "40.4");
    window.Click("Ck_Integ");
    ChooseText(window, "Cb_Auto", "ASX500");
    window.Click("Cd_Save");
    const ConfigRecord& saved = window.Record();
    EXPECT_EQ(saved.INHIBIT_MASS,
              (std::array<Int16, kInhibitCount>{0, 0, 0, 0, 0, 0, 0, 12, 40, 44, 0}));
    EXPECT_EQ(saved.PRO_SCAN, 0);
    EXPECT_EQ(saved.ALS_TYPE, 1);
    EXPECT_EQ(saved.DEVICE_USED[1], 2);
    EXPECT_EQ(saved.DEVICE_NAME[1], "ASX500");
    EXPECT_EQ(saved.DEVICE_LINK[1], 2);  // the RS232 link

    // An offline instrument loses its controller; the ASX500 for ETV alone adds no device.
    record_ = saved;
    record_.ADDON_FLAGS = {1, 1, 1, 0};
    MainDialog again = Window();
    again.Click("Ck_Offline");
    ChooseText(again, "Cb_Type", "Laser Ablation");
    again.Click("Cd_Save");
    EXPECT_EQ(again.Record().ALS_TYPE, 0);
    EXPECT_EQ(again.Record().DEVICE_USED, (std::array<Int16, kDeviceCount>{}));
}

TEST_F(MainDialogTest, TheTypeListOffersWhatTheStationHas) {
    const std::tuple<std::array<Int16, 4>, bool, Int16, std::vector<std::string>> cases[] = {
        {{0, 0, 0, 0}, true, 1, {"None", "Peristaltic Pump", "OPAL", "LC/GC/Laser Ablation"}},
        {{1, 1, 1, 0},
         true,
         1,
         {"None", "Peristaltic Pump", "ETV", "Laser Ablation", "DSS", "OPAL",
          "LC/GC/Laser Ablation"}},
        {{0, 0, 0, 0}, false, 1, {"None", "Peristaltic Pump", "LC/GC/Laser Ablation"}},
        // A recorded type is always offered.
        {{0, 0, 0, 0}, false, 4, {"None", "Peristaltic Pump", "DSS", "LC/GC/Laser Ablation"}},
    };
    for (const auto& [addOns, opal, type, entries] : cases) {
        if (!opal) {
            std::filesystem::remove(ProgramDir() / "MPM.TBL");
            std::filesystem::remove(OpalDir() / "SEA.MPU");
        }
        record_.ADDON_FLAGS = addOns;
        record_.SI_TYPE = type;
        const MainDialog window = Window();
        EXPECT_EQ(Of(window, "Cb_Type").items, entries);
        EXPECT_EQ(Chosen(window, "Cb_Type"), entries[type == 4 ? 2 : 1]);
    }
}

TEST_F(MainDialogTest, ChoosingATypeRebuildsTheAutosamplerListAndRemoteStart) {
    record_.ADDON_FLAGS = {1, 1, 1, 0};
    record_.OPT_PMP2 = 1;
    MainDialog window = Window();
    ChooseText(window, "Cb_Auto", "KLR-8");
    ChooseText(window, "Cb_Type", "OPAL");
    EXPECT_EQ(Of(window, "Cb_Auto").items,
              (std::vector<std::string>{"None", "ASX500", "KLR-8", "V-AS"}));
    EXPECT_EQ(Chosen(window, "Cb_Auto"), "KLR-8");
    EXPECT_EQ(Shown(), (std::vector<std::string>{"Sample pump selection is reset.",
                                                 "Please connect KLR-8 to OPAL COM1 Port."}));
    EXPECT_EQ(messages_[0].icon, MessageIcon::Information);
    EXPECT_EQ(messages_[0].title, "ICP-MS Configuration");
    EXPECT_EQ(messages_[1].icon, MessageIcon::None);
    EXPECT_TRUE(Of(window, "Op_Wait").checked);
    EXPECT_FALSE(Of(window, "Op_Wait").enabled);
    EXPECT_FALSE(Of(window, "Op_NotUse").enabled);
    EXPECT_TRUE(Of(window, "Cb_MPMApp").enabled);
    EXPECT_EQ(window.SiShown(), 5);
    EXPECT_TRUE(window.OpalMode());
    ChooseText(window, "Cb_Type", "OPAL");  // the same type again: nothing happens
    EXPECT_EQ(messages_.size(), 2U);

    // Discrete sampling with its program offers only the ASX500 for FI.
    ChooseText(window, "Cb_Type", "DSS");
    EXPECT_EQ(Of(window, "Cb_Auto").items, std::vector<std::string>{"ASX500 for FI"});
    EXPECT_EQ(window.Record().ALS_TYPE, 4);
    EXPECT_EQ(window.AlsShown(), 4);
    EXPECT_TRUE(Of(window, "Op_Wait").enabled);
    EXPECT_FALSE(Of(window, "Cb_MPMApp").enabled);
    ChooseText(window, "Cb_Type", "Peristaltic Pump");
    EXPECT_TRUE(Of(window, "Op_NotUse").checked);
    EXPECT_EQ(Chosen(window, "Cb_Auto"), "None");
    EXPECT_FALSE(Of(window, "Cd_AutoSet").enabled);
    ChooseText(window, "Cb_Type", "LC/GC/Laser Ablation");
    EXPECT_TRUE(Of(window, "Ck_NotRepRem").visible);
    EXPECT_TRUE(Of(window, "Ck_NotRepRem").checked);
    EXPECT_TRUE(Of(window, "Op_Wait").checked);
    EXPECT_TRUE(Of(window, "Ck_CtrlLCGC").enabled);
    window.Click("Op_NotUse");
    EXPECT_FALSE(Of(window, "Ck_NotRepRem").enabled);
}

TEST_F(MainDialogTest, ChoosingAnAutosamplerResetsItsRacks) {
    MainDialog window = Window();
    ChooseText(window, "Cb_Auto", "KLR-8");
    EXPECT_EQ(window.Record().RACK2_ID, 21);
    EXPECT_EQ(window.Record().RACK8_ID, 60);
    EXPECT_TRUE(Of(window, "Cd_AutoSet").enabled);
    window.Record().RACK3_ID = 1000;  // as the autosampler dialog leaves it
    ChooseText(window, "Cb_Auto", "KLR-8");
    EXPECT_EQ(window.Record().RACK3_ID, 1000);
    ChooseText(window, "Cb_Auto", "None");
    for (int position = 1; position <= kRackCount; ++position) {
        EXPECT_EQ(RackId(window.Record(), position), 0);
    }
    EXPECT_FALSE(Of(window, "Cd_AutoSet").enabled);
    EXPECT_TRUE(messages_.empty());  // no notice without the OPAL system
}

TEST_F(MainDialogTest, AnAutosamplerOnTheOpalSystemIsAnnouncedAndItsParitySet) {
    record_.SI_TYPE = 5;
    record_.MPM = 1;
    record_.MPMFILE = "autodil.mpa";
    MainDialog window = Window();
    EXPECT_EQ(Chosen(window, "Cb_MPMApp"), "Auto Dilution");
    EXPECT_EQ(Of(window, "Cb_MPMFileStd(0)").chosen, 0);
    ChooseText(window, "Cb_Auto", "V-AS");
    EXPECT_EQ(ReadBytes(OpalDir() / "AUTODIL.CHN"),
              "Chn1\t9600\tO\t7\t1\r\nCOM:SET 1,9600,O,7,1\r\n");
    ChooseText(window, "Cb_Auto", "ASX500");
    EXPECT_EQ(ReadBytes(OpalDir() / "AUTODIL.CHN"), kChannelFile);
    EXPECT_EQ(Shown(), (std::vector<std::string>{"Please connect V-AS to OPAL COM1 Port.",
                                                 "Please connect ASX500 to OPAL COM1 Port."}));
    window.Click("Cd_Save");
    EXPECT_EQ(window.Record().MPMATDIL, -1);
    EXPECT_EQ(window.Record().MPMFILE, "AUTODIL.MPA");
    EXPECT_EQ(window.Record().ALS_TYPE, 1);
}

TEST_F(MainDialogTest, TheRecordedAutosamplerIsChosenByItsCode) {
    // ALS_TYPE, _MPM, the entry chosen.
    const std::tuple<Int16, Int16, std::string> cases[] = {
        {0, 0, "None"}, {1, 0, "ASX500"}, {2, 0, "ASX100"}, {3, 0, "ASX500"},
        {4, 0, "None"}, {5, 0, "V-AS"},   {6, 0, "KLR-8"},  {5, 1, "KLR-8"},
    };
    for (const auto& [als, mpm, entry] : cases) {
        record_.ALS_TYPE = als;
        record_.MPM = mpm;
        const MainDialog window = Window();
        EXPECT_EQ(Chosen(window, "Cb_Auto"), entry) << als << " " << mpm;
        EXPECT_EQ(window.AlsShown(), als);
    }
}

TEST_F(MainDialogTest, OpalApplicationsThatCannotBeFoundAreSaid) {
    std::filesystem::remove(ProgramDir() / "MPM.TBL");
    support::WriteBytes(OpalDir() / "BAD.MPU", "AppName\tOutside the block\r\n");
    record_.MPM = 2;
    record_.MPMFILE = "GONE.MPU";
    MainDialog window(record_);
    EXPECT_EQ(Shown(),
              (std::vector<std::string>{"Could not get OPAL Standard Application.",
                                        "Could not get OPAL Application Name. - BAD.MPU",
                                        "Could not find previously selected OPAL Application."}));
    EXPECT_EQ(Of(window, "Cb_MPMApp").items, std::vector<std::string>{"Seawater"});
    EXPECT_EQ(Of(window, "Cb_MPMFileUsr").items, std::vector<std::string>{"SEA.MPU"});
}

TEST_F(MainDialogTest, TheLcGcLinkForcesRemoteStart) {
    record_.SI_TYPE = 6;
    MainDialog window = Window();
    EXPECT_FALSE(Of(window, "Cb_LCInst").enabled);
    EXPECT_EQ(Chosen(window, "Cb_LCInst"), "1");
    window.Choose("Cb_LCInst", 3);  // greyed: nothing changes
    EXPECT_EQ(Chosen(window, "Cb_LCInst"), "1");
    window.Click("Op_NotUse");
    window.Click("Ck_CtrlLCGC");
    EXPECT_TRUE(Of(window, "Op_Wait").checked);
    EXPECT_FALSE(Of(window, "Op_NotUse").enabled);
    EXPECT_TRUE(Of(window, "Cb_LCInst").enabled);
    window.Choose("Cb_LCInst", 2);
    window.Click("Ck_CtrlLCGC");
    EXPECT_TRUE(Of(window, "Op_Wait").checked);
    EXPECT_TRUE(Of(window, "Op_NotUse").enabled);
    window.Click("Ck_CtrlLCGC");
    window.Click("Cd_Save");
    EXPECT_EQ(window.Record().LCCHEM, 3);

    // Another type: the box cannot change and Save stores no link.
    record_ = window.Record();
    MainDialog again = Window();
    EXPECT_TRUE(Of(again, "Ck_CtrlLCGC").checked);
    ChooseText(again, "Cb_Type", "Peristaltic Pump");
    EXPECT_FALSE(Of(again, "Ck_CtrlLCGC").enabled);
    again.Click("Ck_CtrlLCGC");
    EXPECT_TRUE(Of(again, "Ck_CtrlLCGC").checked);
    again.Click("Cd_Save");
    EXPECT_EQ(again.Record().LCCHEM, 0);
    EXPECT_EQ(again.Record().KVD_Remote, 0);
}

TEST_F(MainDialogTest, TheSecurityFrameFollowsTheAdministratorRight) {
    struct Case {
        Int16 canEdit;
        std::vector<std::string> clicks;
        bool security, print, vlt, folder;  // checked: Ck_Security, Ck_AlwaysPrt, Ck_VLT
        bool securityUsable, printUsable, vltUsable, folderUsable;
    } cases[] = {
        {1, {}, true, true, false, false, true, false, true, false},
        {1, {"Ck_VLT"}, true, true, true, false, true, false, true, true},
        {1, {"Ck_VLT", "Ck_Security"}, false, true, false, false, true, true, false, false},
        {1, {"Ck_Security", "Ck_AlwaysPrt"}, false, false, false, false, true, true, false, false},
        {0, {"Ck_Security", "Ck_VLT"}, true, true, false, false, false, false, false, false},
    };
    for (const Case& c : cases) {
        record_.CAN_EDIT = c.canEdit;
        MainDialog window = Window();
        for (const std::string& click : c.clicks) window.Click(click);
        EXPECT_EQ(Of(window, "Ck_Security").checked, c.security);
        EXPECT_EQ(Of(window, "Ck_AlwaysPrt").checked, c.print);
        EXPECT_EQ(Of(window, "Ck_VLT").checked, c.vlt);
        EXPECT_EQ(Of(window, "Ck_Security").enabled, c.securityUsable);
        EXPECT_EQ(Of(window, "Ck_AlwaysPrt").enabled, c.printUsable);
        EXPECT_EQ(Of(window, "Ck_VLT").enabled, c.vltUsable);
        EXPECT_EQ(Of(window, "Cd_SelVLTFolder").enabled, c.folderUsable);
        EXPECT_EQ(Of(window, "Lb_VLTFolder").enabled, c.folderUsable);
        window.SetText("Lb_VLTFolder", "V:\\vault");
        window.Click("Cd_Save");
        ASSERT_EQ(window.End(), DialogEnd::Accepted);
        EXPECT_EQ(window.Record().SECURITY, c.security ? 1 : 0);
        EXPECT_EQ(window.Record().ALWAYSPRT, c.print ? -1 : 0);
        EXPECT_EQ(window.Record().VLT_ENABLED, c.vlt ? 1 : 0);
    }
}

TEST_F(MainDialogTest, ResetToDefaultKeepsSecurityUnlessTheUserMayChangeIt) {
    for (Int16 canEdit : {Int16{0}, Int16{1}}) {
        record_.CAN_EDIT = canEdit;
        record_.SECURITY = 1;
        record_.ALWAYSPRT = -1;
        record_.VLT_ENABLED = 1;
        record_.VLT_FOLDER = "V:\\vault";
        record_.ALS_TYPE = 6;
        record_.SI_TYPE = 6;
        record_.LCCHEM = 2;
        record_.KVD_Remote = 1;
        record_.OPT_SHUTDOWN = 1;
        record_.ICPMS_TYPE = 0;  // the registry says 1
        record_.GPIB_ADDR = 7;
        MainDialog window = Window();
        window.Click("Cd_Reset");
        EXPECT_EQ(window.End(), DialogEnd::Open);
        const ConfigRecord& reset = window.Record();
        EXPECT_EQ(reset.REG_DIRTY, 1);
        EXPECT_EQ(reset.ALS_TYPE, 0);
        EXPECT_EQ(reset.OPT_SHUTDOWN, 0);
        EXPECT_EQ(reset.ICPMS_TYPE, 1);
        EXPECT_EQ(reset.CAN_EDIT, canEdit);
        EXPECT_EQ(reset.ROOT_PATH, Root());
        EXPECT_EQ(Of(window, "Ed_Address").text, "20");
        EXPECT_EQ(Chosen(window, "Cb_Type"), "Peristaltic Pump");
        EXPECT_EQ(Chosen(window, "Cb_Auto"), "None");
        EXPECT_FALSE(Of(window, "Ck_CtrlLCGC").checked);
        EXPECT_TRUE(Of(window, "Op_NotUse").checked);
        EXPECT_EQ(Of(window, "Ed_Inhibit(0)").text, "14");
        EXPECT_EQ(Of(window, "Ck_VLT").checked, canEdit == 0);
        EXPECT_EQ(Of(window, "Lb_VLTFolder").text, canEdit == 0 ? "V:\\vault" : "");
        EXPECT_EQ(reset.VLT_ENABLED, canEdit == 0 ? 1 : 0);
        EXPECT_EQ(reset.SECURITY, 1);
        window.Click("Cancel");
        EXPECT_EQ(window.End(), DialogEnd::Cancelled);
        EXPECT_EQ(window.Record().SAVE_REQ, 0);
        EXPECT_TRUE(messages_.empty());
    }
}

TEST_F(MainDialogTest, AQcModeIsTakenOnlyWithItsRunType) {
    support::WriteBytes(root_ / "1" / "QCMODE" / "ENVIRO.QCC" / "RUNTYPE.INI", "[WSX,1]\r\n");
    MainDialog window = Window();
    const std::string folder = Root() + "\\1\\QCMODE\\";
    EXPECT_FALSE(window.SelectQcMode(folder + "EMPTY.QCC"));
    EXPECT_EQ(Shown(), std::vector<std::string>{"Selected QC Mode file is invalid."});
    EXPECT_EQ(window.Record().QCMDFILE, "GENERAL.QCC");
    EXPECT_TRUE(window.SelectQcMode(folder + "enviro.qcc"));
    EXPECT_EQ(window.Record().QCMDPATH, folder);
    EXPECT_EQ(window.Record().QCMDFILE, "enviro.qcc");
    EXPECT_EQ(Of(window, "Lbl_QCFile").text, "enviro.qcc");
}

}  // namespace
}  // namespace lumacfg::ui
