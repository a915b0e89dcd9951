#include "ui/autosampler/asx500_dialog.h"

#include <gtest/gtest.h>

#include "resources/string_table.h"
#include "ui/autosampler/autosampler_fixture.h"

namespace lumacfg::ui {
namespace {

const std::vector<std::string> kStandardRacks = {"21", "24", "40", "60", "90"};
const std::string kWidth = LoadResString(167);
const std::string kLength = LoadResString(169);

class Asx500DialogTest : public AutosamplerTest {
  protected:
    void SetUp() override {
        AutosamplerTest::SetUp();
        // Rack "Vials 5x8": 1360 wide, 2100 long. Rack "Wide 10": 1820 wide, 540 long.
        Tray(1000, "Lab 3-rack", 3, 1820, 2400).defRack = {1000, 0, 21};
        Tray(1002, "Nine", 9, 4000, 4000);
        Tray(1003, "Short", 2, 4000, 2099);
        Rack(1000, "Vials 5x8", 5, 8, 160, 140, 260);
        Rack(1001, "Wide 10", 10, 2, 100, 100, 180);
        record_.COM_PORT = 2;
        RackTrays().WorkingTray = Selection(1000, {1000, 1001, 1000});
    }

    static TraySelection Selection(std::int16_t tray, std::vector<std::int16_t> racks) {
        TraySelection selection;
        selection.tray = tray;
        std::copy(racks.begin(), racks.end(), selection.rack.begin());
        return selection;
    }
    static std::vector<std::string> Racks(const Asx500Dialog& dialog) {
        std::vector<std::string> racks;
        for (int i = 0; i < 9; ++i) {
            if (Of(dialog, Element("cmbRacks", i)).enabled)
                racks.push_back(Chosen(dialog, Element("cmbRacks", i)));
        }
        return racks;
    }

    ConfigRecord record_;
};

TEST_F(Asx500DialogTest, OpensOnThePortTheTrayAndTheRacksOfTheWorkingSelection) {
    Asx500Dialog dialog(record_);
    EXPECT_EQ(Of(dialog, "dlgASX500").text, "ASX500 Configuration");
    EXPECT_EQ(Of(dialog, "lblRacks(0)").text, "Rack ID &1:");
    EXPECT_EQ(Of(dialog, "lblRacks(8)").text, "Rack ID &9:");
    EXPECT_EQ(Of(dialog, "cmbCOMPort").items,
              (std::vector<std::string>{"COM1", "COM2", "COM3", "COM4"}));
    EXPECT_EQ(Chosen(dialog, "cmbCOMPort"), "COM2");
    EXPECT_EQ(
        Of(dialog, "cmbTrayType").items,
        (std::vector<std::string>{"Standard 4/5", "Standard 4/10", "Lab 3-rack", "Nine", "Short"}));
    EXPECT_EQ(Chosen(dialog, "cmbTrayType"), "Lab 3-rack");
    EXPECT_EQ(Racks(dialog), (std::vector<std::string>{"Vials 5x8", "Wide 10", "Vials 5x8"}));
    EXPECT_FALSE(Of(dialog, "lblRacks(3)").enabled);
}

TEST_F(Asx500DialogTest, EachTrayOffersItsPositionsAndItsKindOfRacks) {
    struct Case {
        std::string tray;
        int positions;
        std::vector<std::string> offered;
        std::vector<std::string> preset;  // after the tray is chosen
    };
    const std::vector<std::string> custom = {"Vials 5x8", "Wide 10"};
    const Case cases[] = {
        {"Standard 4/5", 4, kStandardRacks, {"21", "60", "60", "60"}},
        {"Standard 4/10", 4, kStandardRacks, {"21", "60", "60", "60"}},
        // Default racks 1000, none (the first entry), and a standard rack the list lacks.
        {"Lab 3-rack", 3, custom, {"Vials 5x8", "Vials 5x8", ""}},
        {"Nine", 9, custom, std::vector<std::string>(9, "Vials 5x8")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tray);
        Asx500Dialog dialog(record_);
        ChooseText(dialog, "cmbTrayType", c.tray);
        for (int i = 0; i < 9; ++i) {
            const ControlState& list = Of(dialog, Element("cmbRacks", i));
            EXPECT_EQ(list.enabled, i < c.positions) << i;
            EXPECT_EQ(list.items, i < c.positions ? c.offered : std::vector<std::string>{}) << i;
        }
        EXPECT_EQ(Racks(dialog), c.preset);
    }
}

TEST_F(Asx500DialogTest, OkChecksThePositionsInOrderAndStopsAtTheFirstRefusal) {
    struct Case {
        std::string name;
        TraySelection working;
        std::string message;  // "" when OK passes
        std::string focus;
    };
    const Case cases[] = {
        {"a rack as wide as the pitch fits", Selection(1000, {1000, 1001, 1000}), "", ""},
        {"no tray", Selection(-1, {}), LoadResString(165), "cmbTrayType"},
        {"no rack at a position", Selection(1000, {1000, -1, 1000}), LoadResString(166),
         "cmbRacks(1)"},
        {"nine positions", Selection(1002, {1001, 1000, 1001, 1000, 1000, 1000, 1000, 1000, 1000}),
         "", ""},
        {"too long", Selection(1003, {1001, 1000}), kLength, "cmbRacks(1)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        messages_.clear();
        RackTrays().WorkingTray = c.working;
        Asx500Dialog dialog(record_);
        dialog.Click("btnOK");
        EXPECT_EQ(Shown(), c.message.empty() ? std::vector<std::string>{}
                                             : std::vector<std::string>{c.message});
        EXPECT_EQ(dialog.End(), c.message.empty() ? DialogEnd::Accepted : DialogEnd::Open);
        EXPECT_EQ(dialog.TakeFocusRequest(), c.focus);
    }
}

TEST_F(Asx500DialogTest, ARackOnePositionUnitTooWideIsRefusedWithTheWidthMessage) {
    Tray(1000, "Lab 3-rack", 3, 1819, 2400);
    Asx500Dialog dialog(record_);
    const TrayPlan plan = dialog.Plan();
    ASSERT_EQ(plan.positions.size(), 3u);
    EXPECT_EQ(plan.positions[1].fit, RackFit::TooWide);
    EXPECT_EQ(plan.positions[1].reason, kWidth);
    dialog.Click("btnOK");
    EXPECT_EQ(Shown(), std::vector<std::string>{kWidth});
    EXPECT_EQ(messages_.at(0).icon, platform::MessageIcon::Critical);
    EXPECT_EQ(messages_.at(0).title, LoadResString(kResWindowCaption));
}

TEST_F(Asx500DialogTest, ARackOfTheOtherKindIsRefused) {
    // The lists offer only racks of the tray's kind, so this verdict is read from the racks layer.
    EXPECT_EQ(FitOnTray(RackTrays(), 0, 1000), RackFit::WrongKind);
    EXPECT_EQ(FitOnTray(RackTrays(), 1000, 60), RackFit::WrongKind);
    EXPECT_EQ(FitOnTray(RackTrays(), 1, 90), RackFit::Fits);
}

TEST_F(Asx500DialogTest, OkHandsOverTheTrayTheRacksAndThePortCancelNothing) {
    Asx500Dialog dialog(record_);
    ChooseText(dialog, "cmbTrayType", "Standard 4/10");
    ChooseText(dialog, "cmbRacks(2)", "90");
    ChooseText(dialog, "cmbCOMPort", "COM4");
    ConfigRecord record = record_;
    TraySelection working = RackTrays().WorkingTray;

    Asx500Dialog cancelled(record_);
    ChooseText(cancelled, "cmbTrayType", "Nine");
    cancelled.Click("btnCancel");
    EXPECT_EQ(cancelled.End(), DialogEnd::Cancelled);
    cancelled.Accept(record, working);
    EXPECT_EQ(working, RackTrays().WorkingTray);
    EXPECT_EQ(record.COM_PORT, 2);

    dialog.Click("btnOK");
    dialog.Accept(record, working);
    EXPECT_EQ(working, Selection(1, {21, 60, 90, 60}));
    EXPECT_EQ(record.COM_PORT, 4);
}

TEST_F(Asx500DialogTest, WithoutCustomRacksACustomTrayOffersNothingAndOkAsksForARack) {
    for (CustomRackDef& rack : RackTrays().CustomRacks) rack = CustomRackDef{};
    Asx500Dialog dialog(record_);
    EXPECT_TRUE(Of(dialog, "cmbRacks(0)").items.empty());
    dialog.Click("btnOK");
    EXPECT_EQ(Shown(), std::vector<std::string>{LoadResString(166)});
}

TEST_F(Asx500DialogTest, ChangingTheTrayMovesTheFocusToTheFirstPosition) {
    Asx500Dialog dialog(record_);
    EXPECT_EQ(dialog.TakeFocusRequest(), "");
    ChooseText(dialog, "cmbTrayType", "Standard 4/5");
    EXPECT_EQ(dialog.TakeFocusRequest(), "cmbRacks(0)");
    EXPECT_EQ(dialog.TakeFocusRequest(), "");
}

}  // namespace
}  // namespace lumacfg::ui
