#include "config/start_up.h"

#include <gtest/gtest.h>

#include "config/configuration_id.h"
#include "config/profile.h"
#include "support/fake_desktop.h"
#include "support/temp_station.h"

namespace lumacfg {
namespace {

using support::ReadBytes;
using support::RegistryText;
using support::TempStation;
using support::WriteBytes;

// Answers the logon as told and leaves the group behind, as the logon library does.
class ScriptedLogon final : public platform::LogonService {
  public:
    ScriptedLogon(int answer, std::string group, int* calls)
        : answer_(answer), group_(std::move(group)), calls_(calls) {}
    int Logon(std::uintptr_t, std::string_view programId) override {
        EXPECT_EQ(programId, "LUMACFG");
        ++*calls_;
        ProfileSet("WSX,1", "GroupName", group_);
        return answer_;
    }

  private:
    int answer_;
    std::string group_;
    int* calls_;
};

class StartUpTest : public TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        WriteBytes(Root() + "/1/QCMODE/GENERAL.QCC/runtype.ini", "[Keywords]\r\nKeywords=A\r\n");
    }
    void UseLogon(int answer, const std::string& group) {
        platform::SetLogon(std::make_unique<ScriptedLogon>(answer, group, &logons_));
    }
    void WriteProgramFile(const std::string& name, const std::string& bytes) {
        WriteBytes(ProgramDir() / name, bytes);
    }
    int logons_ = 0;
};

TEST(RootPath, LosesAsManyCharactersAsTheProgramFolderName) {
    EXPECT_EQ(RootPathOf("C:\\ROOT\\LUMAEXE"), "C:\\ROOT");
    EXPECT_EQ(RootPathOf("/opt/suite/programs"), "/opt/suite/");  // not compared, only counted
    EXPECT_EQ(RootPathOf("\\LUMAEXE"), "");
    EXPECT_EQ(RootPathOf("X"), "");
}

TEST_F(StartUpTest, ARunningDataSystemIsAnnouncedAndEndsTheProgram) {
    support::FakeDesktop desktop;
    desktop.windows[7] = {"QRN LUMAGEN Class", ""};
    platform::SetWindows(std::make_unique<support::FakeWindows>(desktop));
    EXPECT_EQ(StartUp({}), StartUpResult::Refused);
    ASSERT_EQ(messages_.size(), 1U);
    EXPECT_EQ(messages_[0].text, "Exit Plasmasuite.");
    EXPECT_EQ(messages_[0].title, "ICP-MS Configuration");
    EXPECT_EQ(messages_[0].icon, platform::MessageIcon::Exclamation);
    EXPECT_FALSE(ReadBytes(StationProfile()));
}

TEST_F(StartUpTest, AddOnFlagsCarryTheLastLengthOver) {
    // The add-on programs present and the flags they give.
    const std::pair<std::vector<std::string>, std::array<Int16, 4>> cases[] = {
        {{"VAPOR.EXE"}, {1, 1, 1, 0}},
        {{"LUMADSS.EXE"}, {0, 0, 1, 0}},
        {{"ABLATE.EXE"}, {0, 1, 1, 0}},
        {{}, {0, 0, 0, 0}},
        {{"vapor.exe", "ABLATE.EXE"}, {1, 1, 1, 0}},
    };
    for (const auto& [present, flags] : cases) {
        for (const char* name : {"VAPOR.EXE", "vapor.exe", "ABLATE.EXE", "LUMADSS.EXE"}) {
            std::filesystem::remove(ProgramDir() / name);
        }
        for (const std::string& name : present) WriteProgramFile(name, "MZ");
        ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
        EXPECT_EQ(Config().ADDON_FLAGS, flags) << present.size();
    }
}

// A profile whose "[WSX]" lacks "Applications" (or no profile at all) makes a new station.
TEST_F(StartUpTest, AProfileWithoutApplicationsIsOverwrittenByANewStation) {
    WriteBytes(StationProfile(), "[WSX]\r\nPath=X\r\n[WSX,1]\r\nALS_TYPE=5\r\nDSS_LOAD=77\r\n");
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    EXPECT_EQ(Config().ALS_TYPE, 0);
    EXPECT_EQ(ReadSingleValue("WSX,1", "DSS_LOAD"), "10");
    EXPECT_EQ(ReadSingleValue("WSX", "Path"), Root());
    EXPECT_EQ(ReadSingleValue("WSX", "Applications"), "ICPMS");
    EXPECT_EQ(ReadBytes(ProgramDir() / "runtype.ini"),
              "[Keywords]\r\nKeywords=A\r\n[ERRORACTION]\r\nError1=13,Reslope-NextSmpl\r\n");
    EXPECT_EQ(ReadConfigurationID(), 1);
}

TEST_F(StartUpTest, LogonOnlyForAnInteractiveStartWithSecurity) {
    UseLogon(0, "Chemist");
    WriteProgramFile("ACSLVL.IST", "[Lumacfg]\r\nCONTROL\\Security=Chemist\r\n");
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    EXPECT_EQ(logons_, 0);
    EXPECT_EQ(Config().CAN_EDIT, 1);

    ASSERT_EQ(StartUp({.commandLineEmpty = true}), StartUpResult::Continue);
    EXPECT_EQ(logons_, 1);
    EXPECT_EQ(Config().CAN_EDIT, 1);

    UseLogon(1, "Nobody");  // refused: the program ends after the remaining steps
    EXPECT_EQ(StartUp({.commandLineEmpty = true}), StartUpResult::Refused);
    EXPECT_EQ(logons_, 2);
    EXPECT_EQ(Config().CAN_EDIT, 0);

    // Set-up mode ("automate" read leniently, 2.5 rounding to 2) never logs on.
    WriteProgramFile("lumacfg.ini", "[Database]\r\nAUTOMATE= 2.5\r\n");
    ASSERT_EQ(StartUp({.commandLineEmpty = true}), StartUpResult::Continue);
    EXPECT_EQ(Config().AUTOMATE, 2);
    EXPECT_EQ(logons_, 2);
}

TEST_F(StartUpTest, GroupTestComparesPaddedTexts) {
    const std::tuple<std::optional<std::string>, std::string, Int16> cases[] = {
        {"Chemist", "Chemist", 1},
        {"Chemist", "chemist", 0},
        {"Admin,Chemist", "Admin", 0},
        {"Admin,Chemist", "Chemist", 0},
        {std::nullopt, "Chemist", 0},  // no ACSLVL.IST
        {"", "", 0},
    };
    for (const auto& [list, group, mayEdit] : cases) {
        std::filesystem::remove(ProgramDir() / "ACSLVL.IST");
        if (list)
            WriteProgramFile("ACSLVL.IST", "[Lumacfg]\r\nCONTROL\\Security=" + *list + "\r\n");
        WriteBytes(StationProfile(), "[WSX,1]\r\nGroupName=" + group + "\r\n");
        EXPECT_EQ(UserMayEdit(), mayEdit) << list.value_or("no file") << " / " << group;
    }
}

TEST_F(StartUpTest, TheThirdSecurityStateBecomesOn) {
    ASSERT_EQ(StartUp({.commandLineEmpty = false}),
              StartUpResult::Continue);  // creates the station
    ASSERT_EQ(WriteConfigurationID(-1), 1);
    ProfileSet("WSX,1", "_SECURITY", "-1");
    ProfileSet("WSX,1", "_ALWAYSPRT", "0");
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    EXPECT_EQ(Config().SECURITY, 1);
    EXPECT_EQ(Config().ALWAYSPRT, -1);
    EXPECT_EQ(ReadConfigurationID(), 1);
    EXPECT_EQ(ReadSingleValue("WSX,1", "_SECURITY"), std::nullopt);
    EXPECT_EQ(ReadSingleValue("WSX,1", "_ALWAYSPRT"), "1");
}

TEST_F(StartUpTest, ClosingInSetUpModeRemovesTheAutomationKey) {
    WriteProgramFile("lumacfg.ini", "[database]\r\nautomate=1\r\nserver=db1\r\n");
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    Config().SAVE_REQ = 0;
    EXPECT_EQ(CloseStation(), std::vector<platform::FileFailure>{});
    EXPECT_EQ(ReadBytes(ProgramDir() / "lumacfg.ini"), "[database]\r\nserver=db1\r\n");
}

// Keeps every call of the security library.
class AuditRecorder final : public platform::SecurityLibrary {
  public:
    explicit AuditRecorder(std::vector<std::string>* lines) : lines_(lines) {}
    bool SetConfigSecurity() override { return Keep("SetConfigSecurity"); }
    bool ResetConfigSecurity() override { return Keep("ResetConfigSecurity"); }
    bool LogSecurityFlagChange(std::string_view text) override { return Keep(std::string(text)); }

  private:
    bool Keep(std::string line) {
        lines_->push_back(std::move(line));
        return true;
    }
    std::vector<std::string>* lines_;
};

TEST_F(StartUpTest, ASaveAfterResetToDefaultRegistersTheStationAsANewOne) {
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    Config().SAVE_REQ = 1;
    ASSERT_EQ(CloseStation(), std::vector<platform::FileFailure>{});
    const std::string newStation = StationText();
    const std::string newRegistry = RegistryFileText();

    // Rows of the new profile and fields of the record changed since.
    const std::tuple<const char*, const char*, const char*> changes[] = {
        {"WSX", "Path", "D:\\OTHER"},      {"WSX_32", "RS232", "1,1"},
        {"WSX,1", "start", "yes"},         {"WSX,1", "DEBackground", "1 2 3"},
        {"WSX,1", "_DATAFILE$", "MINE.D"}, {"WSX,1", "_INHIBIT", "7 9"},
        {"WSX,1", "ALS_TYPE", "2"},        {"WSX,1", "SEMIQFACTOR7", ""},
    };
    for (const auto& [section, key, value] : changes) ProfileSet(section, key, value);
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    EXPECT_EQ(Config().REG_DIRTY, 0);
    Config().SAVE_REQ = 1;
    ASSERT_EQ(CloseStation(), std::vector<platform::FileFailure>{});
    EXPECT_EQ(ReadSingleValue("WSX,1", "start"), "yes");  // a save alone keeps the rows
    EXPECT_EQ(ReadSingleValue("WSX,1", "ALS_TYPE"), "2");

    // Reset to Default, then Save.
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    SetDefaults();
    Config().REG_DIRTY = 1;
    Config().SAVE_REQ = 1;
    ASSERT_EQ(CloseStation(), std::vector<platform::FileFailure>{});
    EXPECT_EQ(StationText(), newStation);
    EXPECT_EQ(RegistryFileText(), newRegistry);

    // Reset to Default, then Cancel: nothing is written.
    ProfileSet("WSX,1", "start", "yes");
    const std::string changed = StationText();
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    SetDefaults();
    Config().REG_DIRTY = 1;
    Config().SAVE_REQ = 0;
    ASSERT_EQ(CloseStation(), std::vector<platform::FileFailure>{});
    EXPECT_EQ(StationText(), changed);
}

TEST_F(StartUpTest, AChangedSecurityStateIsAuditedWhenItIsWritten) {
    std::vector<std::string> audit;
    platform::SetSecurity(std::make_unique<AuditRecorder>(&audit));
    ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    // Security, whether the window saved, and the audit lines the closing adds.
    const std::tuple<Int16, Int16, std::vector<std::string>> closes[] = {
        {1, 1, {}},
        {0, 0, {}},
        {0, 1, {"ResetConfigSecurity", "_SECURITY 1 -> 0"}},
        {0, 1, {}},
        {1, 1, {"SetConfigSecurity", "_SECURITY 0 -> 1"}},
    };
    for (const auto& [security, saved, lines] : closes) {
        audit.clear();
        Config().SECURITY = security;
        Config().SAVE_REQ = saved;
        ASSERT_EQ(CloseStation(), std::vector<platform::FileFailure>{});
        EXPECT_EQ(audit, lines) << security << " " << saved;
    }
}

}  // namespace
}  // namespace lumacfg
