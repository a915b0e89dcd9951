// The editors "Custom Trays" and "Custom Racks" without a window: what they show of
// custrack.ini, how a box is checked when it is left, New/Copy/Delete, OK and Cancel, the
// pictures, and the ASX500 dialog after an OK.
#include "ui/autosampler/custom_entries_dialog.h"

#include <gtest/gtest.h>

#include "resources/string_table.h"
#include "support/scoped_env.h"
#include "support/temp_dir.h"
#include "ui/autosampler/asx500_dialog.h"
#include "ui/autosampler/autosampler_fixture.h"

namespace lumacfg::ui {
namespace {

// Tray "Lab" of two positions 1500 across and 1200 deep with the default racks "Short" (fits)
// and "Long" (too long); a third rack faulty (no VIAL_Y_NUM).
const std::string kFile =
    "[INDEX]\r\nTray_Num=1\r\nTray1_ID=1000\r\nRack_Num=3\r\nRack1_ID=1000\r\nRack2_ID=1001\r\n"
    "Rack3_ID=1002\r\n"
    "[TRAY_1000]\r\nID_STR=Lab\r\nRACK_X_NUM=2\r\nRACK_X_ORG=0\r\nRACK_Y_ORG=100\r\n"
    "RACK_X_DIST=1500\r\nRACK_Y_DIST=1200\r\nDEFRACK1=1000\r\nDEFRACK2=1001\r\n"
    "[RACK_1000]\r\nID=1000\r\nID_STR=Short\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=3\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[RACK_1001]\r\nID=1001\r\nID_STR=Long\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=9\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[RACK_1002]\r\nID=1002\r\nID_STR=Odd\r\nVIAL_X_NUM=4\r\n"
    "[CURRENT]\r\nCUSTOMTRAY=1000\r\nTRAY_ID=1000\r\nRACK1_ID=1000\r\nRACK2_ID=1000\r\n"
    "RACK_X_NUM=2\r\n";

class CustomEntriesDialogTest : public AutosamplerTest {
  protected:
    void SetUp() override {
        AutosamplerTest::SetUp();
        support::WriteBytes(File(), kFile);
    }

    std::filesystem::path File() const { return dir_.Path() / "custrack.ini"; }
    std::string Read() const { return support::ReadBytes(File()).value_or(""); }

    static std::unique_ptr<CustomEntriesDialog> Open(EntryKind kind) {
        auto dialog = OpenCustomEntries(kind);
        EXPECT_NE(dialog, nullptr);
        return dialog;
    }
    // Types a text into a box and leaves it.
    static void Enter(CustomEntriesDialog& dialog, const std::string& box,
                      const std::string& text) {
        dialog.SetText(box, text);
        dialog.LeaveBox(box);
    }

    support::TempDir dir_{"lumacfg-custom-entries"};
    support::ScopedEnv programDir_{"LUMACFG_PROGRAM_DIR", dir_.Path().string()};
};

TEST_F(CustomEntriesDialogTest, ShowsTheListedEntriesWithVerdictsAndTheChosenOnesKeys) {
    auto racks = Open(EntryKind::Rack);
    EXPECT_EQ(Of(*racks, "dlgCustomRacks").text, "Custom Racks");
    EXPECT_EQ(Of(*racks, "lstEntries").items,
              (std::vector<std::string>{"Short (1000): ok", "Long (1001): ok",
                                        "Odd (1002): VIAL_Y_NUM missing (accepted: 1..999)"}));
    EXPECT_EQ(Of(*racks, "lblVIAL_X_NUM").text, "VIAL_X_NUM (1..999):");
    EXPECT_EQ(Of(*racks, "txtVIAL_X_DIST").text, "200");
    EXPECT_EQ(Of(*racks, "lblFits").text, "On the custom trays:\nLab: fits");
    racks->Choose("lstEntries", 1);
    EXPECT_EQ(Of(*racks, "grpEntry").text, "RACK_1001");
    EXPECT_EQ(Of(*racks, "lblFits").text,
              "On the custom trays:\nLab: too long: 1800 deep, RACK_Y_DIST 1200");
    racks->Choose("lstEntries", 2);
    EXPECT_EQ(Of(*racks, "lblVerdict").text,
              "The loader refuses this entry: VIAL_Y_NUM missing (accepted: 1..999)");

    auto trays = Open(EntryKind::Tray);
    EXPECT_EQ(Of(*trays, "lblRACK_Y_DIST").text, "RACK_Y_DIST (any number but 32767):");
    EXPECT_EQ(Chosen(*trays, "cmbDEFRACK2"), "Long");
    EXPECT_TRUE(Of(*trays, "cmbDEFRACK2").enabled);
    EXPECT_FALSE(Of(*trays, "cmbDEFRACK3").enabled);
    EXPECT_EQ(
        Of(*trays, "cmbDEFRACK1").items,
        (std::vector<std::string>{"(none)", "21", "24", "40", "60", "90", "Short", "Long", "Odd"}));
}

TEST_F(CustomEntriesDialogTest, ABoxIsCheckedWhenItIsLeftAndARefusedValueHoldsTheFocus) {
    auto racks = Open(EntryKind::Rack);
    Enter(*racks, "txtVIAL_X_NUM", "1000");
    EXPECT_EQ(Shown(),
              (std::vector<std::string>{"VIAL_X_NUM: 1000 is outside the accepted range 1..999."}));
    EXPECT_EQ(messages_[0].title, "Error");
    EXPECT_EQ(racks->TakeFocusRequest(), "txtVIAL_X_NUM");
    EXPECT_EQ(Of(*racks, "txtVIAL_X_NUM").text, "1000");
    // Until it is corrected, the other entries, New and OK wait.
    racks->Choose("lstEntries", 1);
    racks->Click("btnOK");
    EXPECT_EQ(Of(*racks, "lstEntries").chosen, 0);
    EXPECT_EQ(racks->TakeFocusRequest(), "txtVIAL_X_NUM");
    EXPECT_EQ(racks->End(), DialogEnd::Open);

    Enter(*racks, "txtVIAL_X_NUM", "6.5");
    EXPECT_EQ(Of(*racks, "txtVIAL_X_NUM").text, "6");
    EXPECT_EQ(Shown().size(), 1u);
    // The picture follows the value taken.
    EXPECT_EQ(racks->Plan().positions.at(0).custom->vialXNum, 6);
    // Leaving a box of a faulty entry as it was says nothing.
    racks->Choose("lstEntries", 2);
    racks->LeaveBox("txtVIAL_Y_NUM");
    EXPECT_EQ(Shown().size(), 1u);
    // OK checks a value typed but not yet left as leaving would.
    racks->SetText("txtVIAL_Y_NUM", "500");
    racks->Click("btnOK");
    EXPECT_EQ(Shown().back(),
              "VIAL_Y_NUM: 500 with VIAL_X_NUM 4 makes 2000 vials; the accepted range is "
              "VIAL_X_NUM times VIAL_Y_NUM at most 999.");
    EXPECT_EQ(racks->TakeFocusRequest(), "txtVIAL_Y_NUM");
    EXPECT_EQ(racks->End(), DialogEnd::Open);
    racks->Click("btnCancel");
    EXPECT_EQ(racks->End(), DialogEnd::Cancelled);
    EXPECT_EQ(Read(), kFile);
}

TEST_F(CustomEntriesDialogTest, NewCopyAndDeleteAndOkWritesOnce) {
    auto racks = Open(EntryKind::Rack);
    racks->Click("btnNew");
    // Listed after the faulty "Odd", the new rack is not reached by the loader yet.
    EXPECT_EQ(Chosen(*racks, "lstEntries"),
              "Rack 1003 (1003): not loaded: RACK_1002 before it fails");
    EXPECT_EQ(racks->TakeFocusRequest(), "txtID_STR");
    Enter(*racks, "txtID_STR", "Deep");
    racks->Choose("lstEntries", 0);
    racks->Click("btnDelete");
    EXPECT_EQ(
        Shown(),
        (std::vector<std::string>{"RACK_1000 \"Short\" is in use: [CURRENT] RACK1_ID holds it."}));
    racks->Choose("lstEntries", 2);  // "Odd", faulty: repaired, then copied
    Enter(*racks, "txtVIAL_Y_NUM", "2");
    racks->Click("btnCopy");
    EXPECT_EQ(Chosen(*racks, "lstEntries"), "Odd (copy) (1004): ok");
    racks->Click("btnOK");
    EXPECT_EQ(racks->End(), DialogEnd::Accepted);
    const std::string file = Read();
    EXPECT_NE(file.find("Rack_Num=5\r\nRack1_ID=1000\r\nRack2_ID=1001\r\nRack3_ID=1002\r\n"
                        "Rack4_ID=1003\r\nRack5_ID=1004\r\n"),
              std::string::npos)
        << file;
    EXPECT_NE(file.find("[RACK_1002]\r\nID=1002\r\nID_STR=Odd\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=2\r\n"
                        "VIAL_X_ORG=0\r\n"),
              std::string::npos)
        << file;
    EXPECT_NE(file.find("[RACK_1003]\r\nID=1003\r\nID_STR=Deep\r\n"), std::string::npos);
    EXPECT_NE(file.find("[RACK_1004]\r\nID=1004\r\nID_STR=Odd (copy)\r\n"), std::string::npos);
}

TEST_F(CustomEntriesDialogTest, ADamagedListIsNamedOnOpeningAndNotRewritten) {
    std::string file = kFile;
    file.replace(file.find("Rack2_ID=1001"), 13, "Rack2_ID=x2");
    support::WriteBytes(File(), file);
    const std::string message =
        "The rack list of custrack.ini is damaged: [INDEX] Rack2_ID=\"x2\" (accepted: "
        "1000..1099). Entries it names may be missing; New, Copy and Delete of racks are refused "
        "until it is repaired in the file.";
    auto racks = Open(EntryKind::Rack);
    EXPECT_EQ(Shown(), (std::vector<std::string>{message}));
    EXPECT_EQ(Of(*racks, "lstEntries").items,
              (std::vector<std::string>{"Short (1000): ok",
                                        "Odd (1002): VIAL_Y_NUM missing (accepted: 1..999)"}));
    for (const char* button : {"btnNew", "btnCopy", "btnDelete"}) {
        racks->Click(button);
        EXPECT_EQ(Shown(), (std::vector<std::string>{message, message})) << button;
        EXPECT_EQ(racks->TakeFocusRequest(), "lstEntries");
        messages_.pop_back();
    }
    racks->Click("btnOK");
    EXPECT_EQ(racks->End(), DialogEnd::Accepted);
    EXPECT_EQ(Read(), file);
}

TEST_F(CustomEntriesDialogTest, OkRefusesAnEditedEntryThatDoesNotLoad) {
    support::WriteBytes(File(), kFile + "[TRAY_1001]\r\nID_STR=Broken\r\nRACK_X_NUM=2\r\n");
    std::string file = Read();
    file.replace(file.find("Tray_Num=1"), 10, "Tray_Num=2\r\nTray2_ID=1001");
    support::WriteBytes(File(), file);
    auto trays = Open(EntryKind::Tray);
    trays->Choose("lstEntries", 1);
    Enter(*trays, "txtRACK_X_NUM", "3");
    trays->Choose("lstEntries", 0);
    trays->Click("btnOK");
    EXPECT_EQ(Shown(), (std::vector<std::string>{"TRAY_1001 \"Broken\" does not load: RACK_X_ORG "
                                                 "missing (accepted: -300..4100)."}));
    EXPECT_EQ(Of(*trays, "lstEntries").chosen, 1);
    EXPECT_EQ(trays->End(), DialogEnd::Open);
    EXPECT_EQ(Read(), file);
}

TEST_F(CustomEntriesDialogTest, TheTrayPictureJudgesTheDefaultRacksAsTheAsx500DialogDoes) {
    auto trays = Open(EntryKind::Tray);
    TrayPlan plan = trays->Plan();
    ASSERT_EQ(plan.positions.size(), 2u);
    EXPECT_EQ(plan.trayName, "Lab");
    EXPECT_EQ(plan.positions[0].fit, RackFit::Fits);
    EXPECT_EQ(plan.positions[1].fit, RackFit::TooLong);
    // A position without a default rack gets the first custom rack; a standard one is refused.
    ChooseText(*trays, "cmbDEFRACK2", "(none)");
    Enter(*trays, "txtRACK_X_NUM", "3");
    ChooseText(*trays, "cmbDEFRACK3", "60");
    plan = trays->Plan();
    ASSERT_EQ(plan.positions.size(), 3u);
    EXPECT_EQ(plan.positions[1].rackName, "Short");
    EXPECT_EQ(plan.positions[2].fit, RackFit::WrongKind);
    EXPECT_EQ(plan.positions[2].reason, LoadResString(167));
}

TEST_F(CustomEntriesDialogTest, AfterOkTheAsx500DialogOffersWhatWasWritten) {
    (void)LoadCurrentTray();
    RackTrays().WorkingTray = RackTrays().CurrentTray;
    ConfigRecord record;
    Asx500Dialog asx500(record);
    EXPECT_EQ(Chosen(asx500, "cmbRacks(0)"), "Short");

    auto racks = Open(EntryKind::Rack);
    Enter(*racks, "txtID_STR", "Short 4x3");
    racks->Choose("lstEntries", 2);
    Enter(*racks, "txtVIAL_Y_NUM", "2");  // the faulty rack stopped the list
    racks->Click("btnNew");
    racks->Click("btnOK");
    ASSERT_EQ(racks->End(), DialogEnd::Accepted);
    asx500.TablesChanged();
    EXPECT_EQ(Chosen(asx500, "cmbRacks(0)"), "Short 4x3");
    EXPECT_EQ(Of(asx500, "cmbRacks(1)").items,
              (std::vector<std::string>{"Short 4x3", "Long", "Odd", "Rack 1003"}));
}

}  // namespace
}  // namespace lumacfg::ui
