// The Miscellaneous dialog's rules: which options may be changed, the cleaning of the flow and
// time boxes, the external pump notice, and what OK, Cancel and a closing by the frame leave in
// the record.
#include "ui/misc/misc_dialog.h"

#include <gtest/gtest.h>

#include <string>

#include "support/temp_station.h"

namespace lumacfg::ui {
namespace {

const MiscSurroundings kPlain{"Peristaltic Pump", "", false};
const MiscSurroundings kDiscreteOpal{"OPAL", "Discrete Sampling", true};

class MiscDialogTest : public support::TempStation {
  protected:
    static const ControlState& Of(const MiscDialog& dialog, const std::string& name) {
        return dialog.State().at(name);
    }
    static std::string Leave(MiscDialog& dialog, const std::string& box, const std::string& text) {
        dialog.SetText(box, text);
        dialog.LeaveBox(box);
        return Of(dialog, box).text;
    }
};

TEST_F(MiscDialogTest, FlowAndTimeBoxesAreCleanedWhenLeft) {
    const struct {
        const char* typed;
        const char* flow;
        const char* time;
    } cases[] = {
        {"3", "2.00", "3"},     {"2", "2.00", "2"},      {"0.1", "0.10", "0"},
        {"0.05", "0.00", "0"},  {"-1", "0.00", "0"},     {"abc", "0.00", "0"},
        {"0.125", "0.13", "0"}, {"1000", "2.00", "999"}, {"999", "2.00", "999"},
        {"-5", "0.00", "0"},    {"0.4", "0.40", "0"},    {"1.5", "1.50", "2"},
        {"12.5", "2.00", "12"}, {"13.5", "2.00", "14"},  {"", "0.00", "0"},
        {" 1.2 ", "1.20", "1"}, {"1.5x", "0.00", "0"},   {"-40000", "0.00", "0"},
    };
    ConfigRecord record;
    record.ALS_TYPE = 1;
    record.OPT_CHG_CG = 1;
    MiscDialog dialog(record, kPlain);
    for (const auto& c : cases) {
        EXPECT_EQ(Leave(dialog, "Txt_CGFlow", c.typed), c.flow) << c.typed;
        EXPECT_EQ(Leave(dialog, "Txt_StabTime", c.typed), c.time) << c.typed;
    }
}

TEST_F(MiscDialogTest, EnablingFollowsTheAutosamplerTheMainWindowAndThePump) {
    const struct {
        Int16 als;
        Int16 carrierGas;
        MiscSurroundings surroundings;
        bool probeMove, flow, pump, externalPump;
    } cases[] = {
        {0, 1, kPlain, false, false, false, false},
        {1, 0, kPlain, true, false, false, false},
        {1, 1, kPlain, true, true, false, false},
        {5, 1, kDiscreteOpal, true, true, true, true},
        {5, 1, {"OPAL", "Auto Dilution", true}, true, true, true, false},
        {5, 1, {"opal", "Discrete Sampling", true}, true, true, true, false},
        {5, 1, {"Peristaltic Pump", "Discrete Sampling", false}, true, true, false, false},
    };
    for (const auto& c : cases) {
        ConfigRecord record;
        record.ALS_TYPE = c.als;
        record.OPT_CHG_CG = c.carrierGas;
        MiscDialog dialog(record, c.surroundings);
        const std::string where = std::to_string(c.als) + " " + c.surroundings.typeText + "/" +
                                  c.surroundings.applicationText;
        for (const char* name : {"Gb_ProbeMove", "Ck_StopPP", "Ck_CG"}) {
            EXPECT_EQ(Of(dialog, name).enabled, c.probeMove) << where << " " << name;
        }
        for (const char* name : {"Txt_CGFlow", "Lbl_CG", "Lbl_FlowRate", "Lbl_StabTime",
                                 "Txt_StabTime", "Lbl_StUnit"}) {
            EXPECT_EQ(Of(dialog, name).enabled, c.flow) << where << " " << name;
        }
        EXPECT_EQ(Of(dialog, "Ck_Pmp2").enabled, c.pump) << where;
        EXPECT_EQ(Of(dialog, "Ck_ExtPump").enabled, c.externalPump) << where;
    }
}

TEST_F(MiscDialogTest, ChangeCarrierGasEnablesTheFlowControls) {
    ConfigRecord record;
    record.ALS_TYPE = 1;
    MiscDialog dialog(record, kPlain);
    dialog.Click("Ck_CG");
    EXPECT_TRUE(Of(dialog, "Txt_CGFlow").enabled);
    EXPECT_TRUE(Of(dialog, "Lbl_StUnit").enabled);
    dialog.Click("Ck_CG");
    EXPECT_FALSE(Of(dialog, "Txt_StabTime").enabled);
}

TEST_F(MiscDialogTest, GreyedControlsShowAndKeepTheStoredValues) {
    ConfigRecord record;
    record.ALS_TYPE = 0;
    record.OPT_STOP_PP = 1;
    record.OPT_CHG_CG = 1;
    record.OPT_CHG_FLW = 0.75F;
    record.OPT_CHG_TIME = 30;
    record.OPT_PMP2 = 1;
    record.ExternalPump = 1;
    MiscDialog dialog(record, kPlain);
    EXPECT_TRUE(Of(dialog, "Ck_StopPP").checked);
    EXPECT_TRUE(Of(dialog, "Ck_Pmp2").checked);
    EXPECT_FALSE(Of(dialog, "Ck_Pmp2").enabled);
    EXPECT_TRUE(Of(dialog, "Ck_ExtPump").checked);
    EXPECT_EQ(Of(dialog, "Txt_CGFlow").text, "0.75");
    EXPECT_EQ(Of(dialog, "Txt_StabTime").text, "30");
    dialog.Click("Ck_StopPP");  // greyed: no change
    dialog.Click("OK");
    ConfigRecord after;
    dialog.Accept(after);
    EXPECT_EQ(after.OPT_STOP_PP, 1);
    EXPECT_EQ(after.OPT_CHG_CG, 1);
    EXPECT_EQ(after.OPT_PMP2, 1);
    EXPECT_EQ(after.ExternalPump, 1);
    EXPECT_FLOAT_EQ(after.OPT_CHG_FLW, 0.75F);
    EXPECT_EQ(after.OPT_CHG_TIME, 30);
    EXPECT_EQ(after.SAVE_REQ, 1);
}

TEST_F(MiscDialogTest, OkStoresEveryOptionAsShown) {
    ConfigRecord record;
    record.ALS_TYPE = 1;
    record.OPT_SC = 1;
    MiscDialog dialog(record, kDiscreteOpal);
    for (const char* control : {"Ck_SC", "Ck_Pmp2", "Op_Smpl(1)", "Ck_Rotate", "Op_Shutdown(1)",
                                "Ck_Ddtm", "Ck_RecLog", "Ck_StopPP", "Ck_CG", "Ck_ExtPump"}) {
        dialog.Click(control);
    }
    dialog.SetText("Txt_CGFlow", "1.25");
    dialog.SetText("Txt_StabTime", "12.5");  // taken as it stands: ties to even
    dialog.Click("OK");
    ConfigRecord after = record;
    dialog.Accept(after);
    const ConfigRecord& r = after;
    EXPECT_EQ((std::vector<int>{r.OPT_SC, r.OPT_PMP2, r.OPT_ORGANIC, r.OPT_IMTPUMP, r.OPT_SHUTDOWN,
                                r.EnableDTCal, r.OPT_AUTOREC, r.OPT_STOP_PP, r.OPT_CHG_CG,
                                r.ExternalPump}),
              (std::vector<int>{0, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
    EXPECT_FLOAT_EQ(r.OPT_CHG_FLW, 1.25F);
    EXPECT_EQ(r.OPT_CHG_TIME, 12);
    EXPECT_EQ(dialog.End(), DialogEnd::Accepted);
}

TEST_F(MiscDialogTest, OkCleansATextThatCannotBeStored) {
    ConfigRecord record;
    record.ALS_TYPE = 1;
    MiscDialog dialog(record, kPlain);
    dialog.SetText("Txt_CGFlow", "fast");
    dialog.SetText("Txt_StabTime", "40000");
    dialog.Click("OK");
    ConfigRecord after;
    dialog.Accept(after);
    EXPECT_FLOAT_EQ(after.OPT_CHG_FLW, 0.0F);
    EXPECT_EQ(after.OPT_CHG_TIME, 999);
}

TEST_F(MiscDialogTest, OkCancelAndTheFrameShareTheSaveRequest) {
    const struct {
        const char* click;
        Int16 saveBefore, saveAfter, scAfter;
    } cases[] = {
        {"OK", 0, 1, 0},
        {"Cancel", 1, 0, 1},  // a save request of an earlier OK is withdrawn
        {"", 1, 1, 1},        // closed by the frame
        {"", 0, 0, 1},
    };
    for (const auto& c : cases) {
        ConfigRecord record;
        record.OPT_SC = 1;
        record.SAVE_REQ = c.saveBefore;
        MiscDialog dialog(record, kPlain);
        dialog.Click("Ck_SC");
        if (*c.click) dialog.Click(c.click);
        dialog.Accept(record);
        EXPECT_EQ(record.SAVE_REQ, c.saveAfter) << c.click;
        EXPECT_EQ(record.OPT_SC, c.scAfter) << c.click;
    }
}

TEST_F(MiscDialogTest, CheckingTheExternalPumpAsksForItsPortEachTime) {
    MiscDialog dialog(ConfigRecord{}, kDiscreteOpal);
    dialog.Click("Ck_ExtPump");
    dialog.Click("Ck_ExtPump");  // cleared: no message
    dialog.Click("Ck_ExtPump");
    ASSERT_EQ(messages_.size(), 2U);
    EXPECT_EQ(messages_[0].text, "Please connect OPAL External Pump to OPAL COM2 Port.");
    EXPECT_EQ(messages_[0].title, "ICP-MS Configuration");
    EXPECT_EQ(messages_[0].icon, platform::MessageIcon::None);
    EXPECT_EQ(messages_[0].buttons, platform::MessageButtons::Ok);
}

TEST_F(MiscDialogTest, LoadingACheckedExternalPumpSaysNothing) {
    ConfigRecord record;
    record.ExternalPump = 1;
    MiscDialog dialog(record, kDiscreteOpal);
    EXPECT_TRUE(Of(dialog, "Ck_ExtPump").checked);
    EXPECT_TRUE(messages_.empty());
}

}  // namespace
}  // namespace lumacfg::ui
