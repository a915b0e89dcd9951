#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "resources/string_table.h"
#include "ui/autosampler/asx_dialog.h"
#include "ui/autosampler/autosampler_fixture.h"
#include "ui/autosampler/vas_dialog.h"

namespace lumacfg::ui {
namespace {

using LegacyDialogTest = AutosamplerTest;
using VasDialogTest = AutosamplerTest;

TEST_F(LegacyDialogTest, TheAutosamplerChosenDecidesTitleRacksAndPositions) {
    struct Case {
        std::string autosampler;
        std::string title;
        std::vector<std::string> racks;
        int positions;
    };
    const Case cases[] = {
        {"ASX500 for ETV", "ASX500 for ETV Configuration", {"24"}, 4},
        {"ASX100", "ASX100 Configuration", {"24", "48", "96"}, 4},
        {"KLR-8", "KLR-8 Configuration", {"21", "24", "40", "60", "90"}, 8},
        {"ASX500", "ASX500 Configuration", {"21", "24", "40", "60", "90"}, 4},
        {"asx100", "ASX500 Configuration", {"21", "24", "40", "60", "90"}, 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.autosampler);
        AsxDialog dialog(ConfigRecord{}, c.autosampler, false);
        EXPECT_EQ(Of(dialog, "Fm_ASX").text, c.title);
        for (int i = 0; i < 8; ++i) {
            EXPECT_EQ(Of(dialog, Element("Cb_ID", i)).items, c.racks);
            EXPECT_EQ(Of(dialog, Element("Cb_ID", i)).visible, i < c.positions);
            EXPECT_EQ(Of(dialog, Element("Lbl_ID", i)).enabled, i < c.positions);
        }
        EXPECT_EQ(Of(dialog, "Lbl_ID(7)").text, "Rack ID 8:");
    }
}

TEST_F(LegacyDialogTest, OkStoresThePortAndEveryRackHiddenOnesIncluded) {
    ConfigRecord record;
    record.COM_PORT = 7;  // no such entry: "COM1"
    record.RACK1_ID = 60;
    record.RACK2_ID = 40;
    record.RACK5_ID = 90;
    record.RACK6_ID = 33;  // not offered: the first entry
    AsxDialog dialog(record, "ASX500", false);
    EXPECT_EQ(Chosen(dialog, "Cb_COM"), "COM1");
    ChooseText(dialog, "Cb_ID(1)", "24");
    dialog.Click("OK");
    dialog.Accept(record);
    EXPECT_EQ(record.COM_PORT, 1);
    EXPECT_EQ(
        (std::vector<Int16>{record.RACK1_ID, record.RACK2_ID, record.RACK3_ID, record.RACK4_ID,
                            record.RACK5_ID, record.RACK6_ID, record.RACK7_ID, record.RACK8_ID}),
        (std::vector<Int16>{60, 24, 21, 21, 90, 21, 21, 21}));
}

TEST_F(LegacyDialogTest, TheEtvVariantStoresItsOnlyRackAndCancelStoresNothing) {
    ConfigRecord record;
    record.RACK1_ID = 60;
    record.COM_PORT = 3;
    AsxDialog cancelled(record, "ASX500 for ETV", true);
    EXPECT_FALSE(Of(cancelled, "Cb_COM").enabled);
    EXPECT_FALSE(Of(cancelled, "Lbl_COM").enabled);
    cancelled.Click("Cancel");
    cancelled.Accept(record);
    EXPECT_EQ(record.RACK1_ID, 60);

    AsxDialog dialog(record, "ASX500 for ETV", false);
    EXPECT_EQ(Chosen(dialog, "Cb_COM"), "COM3");
    dialog.Click("OK");
    dialog.Accept(record);
    EXPECT_EQ(record.RACK1_ID, 24);
    EXPECT_EQ(record.COM_PORT, 3);
}

TEST(DepthTest, StepsAreShownInMillimetresAndTextsStoredInSteps) {
    struct Shown {
        Int16 steps;
        std::string text;
    };
    const Shown shown[] = {{0, "0.00"},    {1, "0.13"},        {280, "35.00"},
                           {510, "63.75"}, {32767, "4095.88"}, {-32768, "-4096.00"}};
    for (const Shown& s : shown) EXPECT_EQ(DepthText(s.steps), s.text) << s.steps;

    struct Typed {
        std::string text;
        std::string cleaned;  // as leaving the box shows it
        Int16 steps;          // as OK stores the text as typed
    };
    const Typed typed[] = {
        {"0", "0.00", 0},          {"0.0625", "0.06", 0},  // half a step: the even neighbour 0
        {"0.1875", "0.19", 2},    // a step and a half: the even neighbour 2
        {"0.3125", "0.31", 2},    // two and a half steps
        {"35.06", "35.06", 280},  // kept between the steps when left
        {"70", "63.75", 510},      {"9999", "63.75", 510},
        {"4096", "63.75", 510},  // 32768 steps: beyond 16 bits, kept within the box's range
        {"-3", "0.00", 0},         {"abc", "0.00", 0},
        {" 12.5mm", "12.50", 100},
    };
    for (const Typed& t : typed) {
        SCOPED_TRACE(t.text);
        EXPECT_EQ(CleanDepth(t.text, kMaxSampleDepthMm), t.cleaned);
        EXPECT_EQ(DepthSteps(t.text, kMaxSampleDepthMm), t.steps);
    }
    EXPECT_EQ(CleanDepth("60", kMaxRinseDepthMm), "55.00");
    EXPECT_EQ(DepthSteps("60", kMaxRinseDepthMm), 440);
}

TEST_F(VasDialogTest, OpensOnTheRecordAndOkStoresEveryField) {
    ConfigRecord record;
    record.COM_PORT = 2;
    record.TRAY_ID = 3;
    record.RINSE_DEPTH = 280;
    record.SAMPLE_DEPTH = 32767;
    record.STD_DEPTH = 1;
    record.ESC_MODE = 0;
    VasDialog dialog(record, false);
    EXPECT_EQ(Of(dialog, "Fm_VAS").text, "V-AS Configuration");
    EXPECT_EQ(Chosen(dialog, "Cb_COM"), "COM2");
    EXPECT_EQ(Chosen(dialog, "Cb_TRAY"), "18 Samples");
    EXPECT_EQ(Of(dialog, "txtRinseDepth").text, "35.00");
    EXPECT_EQ(Of(dialog, "txtSampleDepth").text, "4095.88");
    EXPECT_EQ(Of(dialog, "txtSTDDepth").text, "0.13");

    dialog.SetText("txtSampleDepth", "40");
    dialog.LeaveBox("txtSampleDepth");
    EXPECT_EQ(Of(dialog, "txtSampleDepth").text, "40.00");
    dialog.SetText("txtRinseDepth", "0.1875");  // confirmed without leaving the box
    ChooseText(dialog, "Cb_TRAY", "89 Samples");
    ChooseText(dialog, "Cb_COM", "COM4");
    dialog.Click("ChkESCMode");
    dialog.Click("OK");
    ASSERT_EQ(dialog.End(), DialogEnd::Accepted);
    dialog.Accept(record);
    EXPECT_EQ(record.COM_PORT, 4);
    EXPECT_EQ(record.TRAY_ID, 1);
    EXPECT_EQ(record.RINSE_DEPTH, 2);
    EXPECT_EQ(record.SAMPLE_DEPTH, 320);
    EXPECT_EQ(record.ONEBOTTLE_DEPTH, 320);
    EXPECT_EQ(record.STD_DEPTH, 1);
    EXPECT_EQ(record.ESC_MODE, 1);
    EXPECT_TRUE(messages_.empty());
}

TEST_F(VasDialogTest, ATrayBeyondTheListIsKeptAndCancelStoresNothing) {
    ConfigRecord record;
    record.TRAY_ID = 7;
    record.RINSE_DEPTH = 100;
    VasDialog dialog(record, true);
    EXPECT_EQ(Of(dialog, "Cb_TRAY").chosen, -1);
    EXPECT_FALSE(Of(dialog, "Cb_COM").enabled);
    dialog.SetText("txtRinseDepth", "1");
    dialog.Click("Cancel");
    dialog.Accept(record);
    EXPECT_EQ(record.RINSE_DEPTH, 100);

    VasDialog ok(record, false);
    ok.Click("OK");
    ok.Accept(record);
    EXPECT_EQ(record.TRAY_ID, 7);
    EXPECT_EQ(record.RINSE_DEPTH, 100);
}

}  // namespace
}  // namespace lumacfg::ui
