// Reading custrack.ini: its numbers and texts, and the custom tray and rack tables loaded from
// the lists of "[INDEX]".
#include "racks/custom_racks.h"
#include "racks/custrack_file.h"
#include "racks/custrack_fixture.h"

namespace lumacfg {
namespace {

using support::Ini;
using TrayFileTest = support::CustrackTest;

TEST_F(TrayFileTest, NumbersMustBeWholeDecimalNumbers) {
    const std::pair<std::string, std::optional<std::int32_t>> cases[] = {
        {"N=+7", 7},     {"N='-42'", -42}, {"N=12.5", 12}, {"N=13.5", 14},
        {"N=1e3", 1000}, {"N=", 77},       {"M=1", 77},    {"N=abc", {}},
        {"N=12abc", {}}, {"N=0x10", {}},   {"N=inf", {}},  {"N=2147483648", {}}};
    for (const auto& [line, expected] : cases) {
        Write(support::Ini("[S];" + line));
        const CustrackInt read = ReadCustrackInt("S", "N", 77);
        EXPECT_EQ(read.error ? std::nullopt : std::optional(read.value), expected) << line;
        if (read.error) {
            EXPECT_EQ(DescribeNumberError(*read.error), "[S] " + line);
        }
    }
}

TEST_F(TrayFileTest, TextReadsAndRefusedWrites) {
    Write(support::Ini("[S];K=ABCDEFG"));
    EXPECT_EQ(ReadCustrackString("s", "k", "", 4).text, "ABC");
    EXPECT_EQ(ReadCustrackString("S", "K", "d", 0).text, "");
    EXPECT_EQ(ReadCustrackString("", "K", "d", 16).text, "d");
    EXPECT_FALSE(WriteCustrackString("S", "", "1") || WriteCustrackString("", "K", "1"));
    EXPECT_FALSE(DeleteCustrackSection(""));
    EXPECT_TRUE(DeleteCustrackSection("S"));
    EXPECT_EQ(Read(), "");
}

class CustomRackTrayLoadTest : public support::CustrackTest {
  protected:
    // Lists entries 1003, 1010 and 1099, the `faulty`-th changed ("#" stands for its "[INDEX]"
    // line), loads, and expects the entries before it loaded and the other slots empty. Values
    // written in lower case are not numbers and must be reported.
    template <typename Def>
    void ExpectListEndsAtEveryEntry(const std::string& prefix,
                                    std::string (*section)(int, std::string),
                                    const std::array<Def, kCustomSlots>& slots,
                                    std::optional<CustrackNumberError> (*load)(),
                                    const std::string& change) {
        const int ids[] = {1003, 1010, 1099};
        for (int faulty = 0; faulty < 3; ++faulty) {
            SCOPED_TRACE(change + " in entry " + std::to_string(faulty + 1));
            std::string index = "[INDEX];" + prefix + "_Num=3";
            std::string sections;
            for (int i = 0; i < 3; ++i) {
                index += ";" + prefix + std::to_string(i + 1) + "_ID=" + std::to_string(ids[i]);
                sections += section(ids[i], i == faulty && change[0] != '#' ? change : "");
            }
            const std::string indexChange =
                prefix + std::to_string(faulty + 1) + "_ID" + change.substr(1);
            index = change[0] == '#' ? support::Patched(Ini(index), indexChange) : Ini(index);
            ResetCustomDefs();
            Write(index + sections);
            const bool wordy = std::any_of(change.begin(), change.end(), ::islower);
            EXPECT_EQ(load().has_value(), wordy);
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(slots[ids[i] - 1000].id, i < faulty ? ids[i] : -1);
        }
    }
    void ExpectRackListEnds(const std::string& change) {
        ExpectListEndsAtEveryEntry("Rack", support::Rack, RackTrays().CustomRacks, LoadCustomRacks,
                                   change);
    }
    void ExpectTrayListEnds(const std::string& change) {
        ExpectListEndsAtEveryEntry("Tray", support::Tray, RackTrays().CustomTrays, LoadCustomTrays,
                                   change);
    }
};

TEST_F(CustomRackTrayLoadTest, FaultyEntryEndsItsList) {
    for (const char* change : {"#", "#=-1", "#=999", "#=1100", "#=first", "ID_STR", "ID_STR="}) {
        ExpectRackListEnds(change);
        ExpectTrayListEnds(change);
    }
    for (const char* change :
         {"VIAL_X_NUM", "VIAL_X_NUM=1000", "VIAL_Y_NUM=0", "VIAL_X_NUM=20;VIAL_Y_NUM=50",
          "VIAL_X_ORG=-1", "VIAL_X_ORG=4101", "VIAL_Y_ORG=2701", "VIAL_X_DIST=4101",
          "VIAL_Y_DIST=2701", "VIAL_DEPTH=161", "VIAL_Y_ORG=ten"}) {
        ExpectRackListEnds(change);
    }
    for (const char* change :
         {"RACK_X_NUM", "RACK_X_NUM=10", "RACK_X_ORG", "RACK_X_ORG=-301", "RACK_Y_ORG=2701",
          "RACK_X_DIST", "RACK_X_DIST=4101", "RACK_Y_DIST", "RACK_Y_DIST=32767",
          "RACK_Y_DIST=40000", "DEFRACK2=rack", "BOTTLE_X_NUM=11", "BOTTLE_X_ORG=4101",
          "BOTTLE_Y_ORG=-1", "BOTTLE_X_DIST=4101", "BOTTLE_DEPTH=161", "BOTTLE_DEPTH=deep"}) {
        ExpectTrayListEnds(change);
    }
}

TEST_F(CustomRackTrayLoadTest, AcceptedDefinitions) {
    const std::pair<std::string, CustomRackDef> racks[] = {
        {"", {1000, "Rack 1000", 10, 5, 100, 200, 30, 40, 50}},
        {"VIAL_X_NUM=37;VIAL_Y_NUM=27;VIAL_X_ORG;VIAL_Y_ORG;VIAL_X_DIST;VIAL_Y_DIST;VIAL_DEPTH",
         {1000, "Rack 1000", 37, 27}},
        {"ID;ID_STR=ABCDEFGHIJKLMNOPQRST;VIAL_X_ORG=4100;VIAL_Y_DIST=2700;VIAL_DEPTH=160",
         {1000, "ABCDEFGHIJKLMNO", 10, 5, 4100, 200, 30, 2700, 160}}};
    for (const auto& [change, expected] : racks) {
        Write(Ini("[INDEX];Rack_Num=1;Rack1_ID=1000") + support::Rack(1000, change));
        EXPECT_FALSE(LoadCustomRacks());
        EXPECT_EQ(RackTrays().CustomRacks[0], expected) << change;
    }
    const std::pair<std::string, CustomTrayDef> trays[] = {
        {"", {1000, "Tray 1000", 3, 10, 20, 300, 0, {1000, 1001, 21}, 2, 5, 6, 7, 8}},
        {"RACK_X_ORG=-300;RACK_Y_DIST=-32768;DEFRACK2;DEFRACK3=4101;BOTTLE_X_NUM;BOTTLE_X_ORG;"
         "BOTTLE_Y_ORG;BOTTLE_X_DIST;BOTTLE_DEPTH",
         {1000, "Tray 1000", 3, -300, 20, 300, -32768, {1000}}},
        {"RACK_X_NUM=2;RACK_Y_DIST=32766;DEFRACK1=0;DEFRACK2=4100",
         {1000, "Tray 1000", 2, 10, 20, 300, 32766, {0, 4100}, 2, 5, 6, 7, 8}},
        {"RACK_X_NUM=9;DEFRACK1=-1", {1000, "Tray 1000", 9, 10, 20, 300, 0, {}, 2, 5, 6, 7, 8}}};
    for (const auto& [change, expected] : trays) {
        Write(Ini("[INDEX];Tray_Num=1;Tray1_ID=1000") + support::Tray(1000, change));
        EXPECT_FALSE(LoadCustomTrays());
        EXPECT_EQ(RackTrays().CustomTrays[0], expected) << change;
    }
}

TEST_F(CustomRackTrayLoadTest, CountDecidesHowManyEntriesAreRead) {
    for (const auto& [count, loaded] : {std::pair{"2", 2}, {"5", 3}, {"-1", 0}, {"x", 0}}) {
        ResetCustomDefs();
        Write(Ini("[INDEX];Rack1_ID=1000;Rack2_ID=1001;Rack3_ID=1002;Rack_Num=" +
                  std::string(count)) +
              support::Rack(1000) + support::Rack(1001) + support::Rack(1002));
        EXPECT_EQ(LoadCustomRacks().has_value(), count == std::string("x"));
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(RackTrays().CustomRacks[i].id, i < loaded ? 1000 + i : -1);
    }
}

}  // namespace
}  // namespace lumacfg
