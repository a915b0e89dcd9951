// The tray selection of "[CURRENT]": loading, the rack-on-tray rule and the rewrite; the
// lookups between ids and display names.
#include "racks/custom_racks.h"
#include "racks/custrack_fixture.h"

namespace lumacfg {
namespace {

using support::Ini;
using support::Selection;

const TraySelection kDefault = Selection({0, 21, 60, 60, 60});
const TraySelection kNone = Selection({-1});

class TraySelectionTest : public support::CustrackTest {
  protected:
    // Racks 1000 and 1001 are sound, 1002 lacks VIAL_DEPTH, 1003 holds 1000 vials (which only
    // the table load refuses), 1004 has ID=-1.
    static std::string Definitions(std::string rack1001 = "") {
        return Ini("[INDEX];Tray_Num=1;Tray1_ID=1099;Rack_Num=3;Rack1_ID=1000;Rack2_ID=1001;"
                   "Rack3_ID=1003") +
               support::Tray(1099) + support::Rack(1000) + support::Rack(1001, rack1001) +
               support::Rack(1002, "VIAL_DEPTH") +
               support::Rack(1003, "VIAL_X_NUM=20;VIAL_Y_NUM=50") + support::Rack(1004, "ID=-1");
    }
};

TEST_F(TraySelectionTest, RackValidForTray) {
    Write(Definitions());
    const std::tuple<std::int16_t, std::int16_t, bool> cases[] = {
        {0, 21, true},       {1, 90, true},      {0, 22, false},      {1000, 21, false},
        {2, 21, false},      {0, 1000, false},   {1000, 1000, true},  {1099, 1001, true},
        {1000, 1002, false}, {1000, 1003, true}, {1000, 1004, false}, {1000, 1050, false},
        {1100, 1000, false}, {1000, -1, false}};
    for (const auto& [tray, rack, valid] : cases) {
        EXPECT_EQ(IsRackValidForTray(tray, rack), valid) << tray << " / " << rack;
    }
}

TEST_F(TraySelectionTest, LoadCurrentTray) {
    struct Case {
        std::string current;  // lines of "[CURRENT]"
        bool loaded;
        TraySelection expected;
        std::string numberError = "";
        std::string rack1001 = "";
    };
    const Case cases[] = {
        {"", false, kNone},
        {"TRAY_ID=2;Rack1_ID=21", false, kNone},
        {"TRAY_ID=1", true, Selection({1, 21, 60, 60, 60})},
        {"TRAY_ID=1;Rack1_ID=90;Rack2_ID=40;Rack3_ID=24;Rack4_ID=21", true,
         Selection({1, 90, 40, 24, 21})},
        {"TRAY_ID=0;Rack1_ID=24;Rack2_ID=1000;Rack3_ID=90", true, Selection({0, 24, 60, 60, 60})},
        {"TRAY_ID=0;Rack1_ID=24;Rack2_ID=24;Rack3_ID=24;Rack4_ID=24;Rack5_ID=24", true,
         Selection({0, 24, 24, 24, 24})},
        {"TRAY_ID=1000;RACK_X_NUM=3;RACK1_ID=1000;RACK2_ID=1001;RACK3_ID=1001", true,
         Selection({1000, 1000, 1001, 1001})},
        {"TRAY_ID=1000;RACK_X_NUM=2;RACK1_ID=1000;RACK2_ID=1002", true, kDefault},
        {"TRAY_ID=1000;RACK_X_NUM=1;RACK1_ID=21", true, kDefault},
        {"TRAY_ID=1099;RACK_X_NUM=1;RACK1_ID=1003", true, Selection({1099, 1003})},
        {"TRAY_ID=1000;RACK_X_NUM=10;RACK1_ID=1000;RACK2_ID=1000;RACK3_ID=1000;RACK4_ID=1000;"
         "RACK5_ID=1000;RACK6_ID=1000;RACK7_ID=1000;RACK8_ID=1000;RACK9_ID=1000;RACK10_ID=1000",
         true, kDefault},
        {"TRAY_ID=abc", false, kNone, "[CURRENT] TRAY_ID=abc"},
        {"TRAY_ID=0;Rack1_ID=x;Rack2_ID=y", true, kDefault, "[CURRENT] Rack1_ID=x"},
        {"TRAY_ID=1000;RACK_X_NUM=two;RACK1_ID=1000", true, kDefault, "[CURRENT] RACK_X_NUM=two"},
        {"TRAY_ID=1000;RACK_X_NUM=2;RACK1_ID=1000;RACK2_ID=1001", true, kDefault,
         "[RACK_1001] VIAL_DEPTH=deep", "VIAL_DEPTH=deep"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.current);
        Write((c.current.empty() ? "" : Ini("[CURRENT];" + c.current)) + Definitions(c.rack1001));
        const TrayLoadResult result = LoadCurrentTray();
        EXPECT_EQ(result.loaded, c.loaded);
        EXPECT_EQ(result.numberError ? DescribeNumberError(*result.numberError) : "",
                  c.numberError);
        EXPECT_EQ(RackTrays().CurrentTray, c.expected);
        // Tables load only with a valid tray, after the selection: rack 1003 may be selected
        // although the table refuses it.
        EXPECT_EQ(RackTrays().CustomTrays[99].id, c.loaded ? 1099 : -1);
        EXPECT_EQ(RackTrays().CustomRacks[0].id, c.loaded ? 1000 : -1);
        EXPECT_EQ(RackTrays().CustomRacks[3].id, -1);
    }
}

TEST_F(TraySelectionTest, SaveRewritesCurrentSectionAtTheEnd) {
    const std::tuple<TraySelection, std::string, TraySelection> cases[] = {
        {Selection({1002, 1000, 1001}),
         "CUSTOMTRAY=1000;TRAY_ID=1002;RACK1_ID=1000;RACK2_ID=1001;RACK_X_NUM=2",
         Selection({1002, 1000, 1001})},
        {kNone,
         "CUSTOMTRAY=0;TRAY_ID=0;RACK1_ID=21;RACK2_ID=60;RACK3_ID=60;RACK4_ID=60;RACK_X_NUM=4",
         kDefault},
        {Selection({1, 24, -1, 40}), "CUSTOMTRAY=1;TRAY_ID=1;RACK1_ID=24;RACK_X_NUM=1",
         Selection({1, 24, -1, 40})}};
    for (const auto& [working, current, after] : cases) {
        Write(Ini("[INDEX];Rack_Num=0;[CURRENT];CUSTOMTRAY=0;TRAY_ID=0;Rack1_ID=21;[RACK_1];ID=1"));
        RackTrays().WorkingTray = working;
        EXPECT_TRUE(SaveCurrentTray());
        EXPECT_EQ(Read(), Ini("[INDEX];Rack_Num=0;[RACK_1];ID=1;[CURRENT];" + current));
        EXPECT_EQ(RackTrays().WorkingTray, after);
    }
}

TEST_F(TraySelectionTest, SaveNeverCreatesCurrentSection) {
    RackTrays().WorkingTray = kDefault;
    for (const char* file : {"[INDEX];Rack_Num=0", "[CURRENT];TRAY_ID=7", "[CURRENT];TRAY_ID=x"}) {
        Write(Ini(file));
        SaveCurrentTray();
        EXPECT_EQ(Read(), Ini(file));
    }
    std::filesystem::remove(File());
    SaveCurrentTray();
    EXPECT_FALSE(std::filesystem::exists(File()));
}

TEST_F(TraySelectionTest, LookupsBetweenIdsAndNames) {
    auto& racks = RackTrays().CustomRacks;
    racks[0] = {1000, "Deep Rack"}, racks[1] = {1001, "60"}, racks[99] = {1099, "\xC9lan"};
    racks[10] = {1010, "Twin"}, racks[20] = {1020, "Twin"};
    RackTrays().CustomTrays[2] = {1002, "Big Tray"};
    RackTrays().CustomTrays[3] = {1003, "Standard 4/5"};

    const std::pair<std::int16_t, std::string_view> names[] = {
        {-1, ""}, {21, "21"}, {90, "90"}, {22, ""}, {1000, "Deep Rack"}, {1050, ""}, {1100, ""}};
    for (const auto& [id, name] : names) EXPECT_EQ(RackNameFromId(id), name) << id;
    const std::pair<std::string_view, std::int16_t> rackIds[] = {
        {"  ", -1},         {"60", 60},     {"22", -1},        {"dEEP rACK", 1000},
        {" Deep Rack", -1}, {"Twin", 1010}, {"\xE9LAN", 1099}, {"Unknown", -1}};
    for (const auto& [name, id] : rackIds) EXPECT_EQ(RackIdFromName(name), id) << name;
    const std::pair<std::string_view, std::int16_t> trayIds[] = {
        {"", -1},           {"Standard 4/5", 0}, {"standard 4/10", 1}, {"Standard 4/5 ", -1},
        {"big tray", 1002}, {"Small", -1}};
    for (const auto& [name, id] : trayIds) EXPECT_EQ(TrayIdFromName(name), id) << name;
}

}  // namespace
}  // namespace lumacfg
