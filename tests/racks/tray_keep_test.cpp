// When the tray selection on the disk must outlive a save: a custrack.ini with a value that
// should be a number and is not, and selections that were not loaded from the file.
#include <optional>
#include <string>
#include <vector>

#include "platform/services.h"
#include "racks/custom_racks.h"
#include "racks/custrack_fixture.h"

namespace lumacfg {
namespace {

using support::Ini;
using support::Patched;
using support::Selection;

const TraySelection kFromFile = Selection({1099, 1000, 1001});
const TraySelection kDefault = Selection({0, 21, 60, 60, 60});
const TraySelection kNone = Selection({-1});

// Custom tray 1099 with racks 1000 and 1001 fitted. "[CURRENT]" comes first, so a rewrite,
// which puts it at the end, changes the file's bytes.
struct Station {
    std::string current =
        Ini("[CURRENT];CUSTOMTRAY=1000;TRAY_ID=1099;RACK_X_NUM=2;RACK1_ID=1000;RACK2_ID=1001");
    std::string index =
        Ini("[INDEX];Tray_Num=1;Tray1_ID=1099;Rack_Num=2;Rack1_ID=1000;Rack2_ID=1001");
    std::string definitions = support::Tray(1099) + support::Rack(1000) + support::Rack(1001);

    // The station with one ";"-separated change (see Patched) in one of its sections.
    static Station Changed(std::string_view section, const std::string& change) {
        Station station;
        if (section == "CURRENT") station.current = Patched(station.current, change);
        if (section == "INDEX") station.index = Patched(station.index, change);
        if (section == "TRAY_1099")
            station.definitions =
                support::Tray(1099, change) + support::Rack(1000) + support::Rack(1001);
        if (section == "RACK_1001")
            station.definitions =
                support::Tray(1099) + support::Rack(1000) + support::Rack(1001, change);
        return station;
    }

    std::string Bytes() const { return current + index + definitions; }
    // The file after a save that wrote these lines of "[CURRENT]".
    std::string Saved(const std::string& lines) const {
        return index + definitions + Ini("[CURRENT];" + lines);
    }
};

class TrayKeepTest : public support::CustrackTest {
  protected:
    void SetUp() override {
        CustrackTest::SetUp();
        platform::Failures().Take();
    }

    // Loads as the main window does before it is shown.
    TrayLoadResult LoadForWindow() {
        const TrayLoadResult result = LoadCurrentTray();
        RackTrays().WorkingTray = RackTrays().CurrentTray;
        return result;
    }
};

TEST_F(TrayKeepTest, ValueThatIsNoNumberKeepsTheFileAsItIs) {
    struct Case {
        std::string section;
        std::string key;
        bool loaded;
        TraySelection selection;
        std::string named = "";  // the key as the report names it, when not spelled as above
    };
    std::vector<Case> cases = {
        {"CURRENT", "TRAY_ID", false, kNone},
        {"CURRENT", "RACK_X_NUM", true, kDefault},
        {"CURRENT", "RACK1_ID", true, kDefault, "Rack1_ID"},
        {"CURRENT", "RACK2_ID", true, kDefault, "Rack2_ID"},
        {"INDEX", "Tray_Num", true, kFromFile},
        {"INDEX", "Tray1_ID", true, kFromFile},
        {"INDEX", "Rack_Num", true, kFromFile},
        {"INDEX", "Rack2_ID", true, kFromFile},
    };
    // Tray definitions take no part in the selection. A selected rack whose section holds a
    // bad value may not stand on the tray, so the default selection stands instead.
    for (const char* key : {"RACK_X_NUM", "RACK_X_ORG", "RACK_Y_ORG", "RACK_X_DIST", "RACK_Y_DIST",
                            "DEFRACK1", "DEFRACK3", "BOTTLE_X_NUM", "BOTTLE_X_ORG", "BOTTLE_Y_ORG",
                            "BOTTLE_X_DIST", "BOTTLE_DEPTH"}) {
        cases.push_back({"TRAY_1099", key, true, kFromFile});
    }
    for (const char* key : {"ID", "VIAL_X_NUM", "VIAL_Y_NUM", "VIAL_X_ORG", "VIAL_Y_ORG",
                            "VIAL_X_DIST", "VIAL_Y_DIST", "VIAL_DEPTH"}) {
        cases.push_back({"RACK_1001", key, true, kDefault});
    }
    const char* badTexts[] = {"abc", "12abc", "0x10", "inf", "-", "1 000"};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Case& c = cases[i];
        const std::string text = badTexts[i % std::size(badTexts)];
        SCOPED_TRACE("[" + c.section + "] " + c.key + "=" + text);
        const Station station = Station::Changed(c.section, c.key + "=" + text);
        Write(station.Bytes());

        const TrayLoadResult result = LoadForWindow();
        EXPECT_EQ(result.loaded, c.loaded);
        EXPECT_EQ(RackTrays().CurrentTray, c.selection);
        EXPECT_FALSE(SaveCurrentTray());
        EXPECT_EQ(Read(), station.Bytes());
        const std::vector<platform::FileFailure> failures = platform::Failures().Take();
        ASSERT_EQ(failures.size(), 1u);
        EXPECT_EQ(platform::Describe(failures[0]),
                  "cannot read " + File().string() + ": [" + c.section + "] " +
                      (c.named.empty() ? c.key : c.named) + ": \"" + text + "\" is not a number");
    }
}

TEST_F(TrayKeepTest, OnlyASelectionLoadedOrChosenIsWritten) {
    struct Case {
        std::string name;
        Station station;
        std::optional<TraySelection> chosen;  // WorkingTray as the dialog left it
        std::string meanwhile;                // the file as another tool left it before the save
        std::string saved;                    // lines of "[CURRENT]" written; "" none
        bool result = true;
    };
    const Station faultyRack = Station::Changed("RACK_1001", "VIAL_DEPTH");
    const Case cases[] = {
        {"sound file",
         {},
         {},
         "",
         "CUSTOMTRAY=1000;TRAY_ID=1099;RACK1_ID=1000;RACK2_ID=1001;"
         "RACK_X_NUM=2"},
        {"default instead of a faulty rack", faultyRack, {}, "", ""},
        {"default instead of a faulty rack, another selection chosen", faultyRack,
         Selection({1099, 1000}), "", "CUSTOMTRAY=1000;TRAY_ID=1099;RACK1_ID=1000;RACK_X_NUM=1"},
        {"no current tray when loaded",
         Station::Changed("CURRENT", "TRAY_ID=7"),
         {},
         Ini("[CURRENT];TRAY_ID=0"),
         ""},
        {"tray id no number when saved", {}, {}, Ini("[CURRENT];TRAY_ID=zero"), "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Write(c.station.Bytes());
        EXPECT_FALSE(LoadForWindow().numberError);
        if (c.chosen) RackTrays().WorkingTray = *c.chosen;
        if (!c.meanwhile.empty()) Write(c.meanwhile);
        const std::string before = Read();
        EXPECT_EQ(SaveCurrentTray(), c.result);
        EXPECT_EQ(Read(), c.saved.empty() ? before : c.station.Saved(c.saved));
        EXPECT_EQ(platform::Failures().Take().size(), c.result ? 0u : 1u);
    }
}

}  // namespace
}  // namespace lumacfg
