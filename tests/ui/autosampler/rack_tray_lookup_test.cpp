#include <gtest/gtest.h>

#include "ui/autosampler/custom_racks.h"

namespace lumacfg {
namespace {

TEST(RackTrayLookupTest, NamesIdsAndResets) {
    ResetCustomDefs();
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

    SetDefaultTraySelection(RackTrays().WorkingTray);
    EXPECT_EQ(RackTrays().WorkingTray.rack,
              (std::array<std::int16_t, 9>{21, 60, 60, 60, -1, -1, -1, -1, -1}));
    ResetCustomDefs();
    EXPECT_EQ(RackTrays().WorkingTray, TraySelection{});
    EXPECT_EQ(RackTrays().WorkingTray.tray, -1);
    EXPECT_EQ(RackTrays().CustomRacks[99], CustomRackDef{});
    EXPECT_EQ(RackTrays().CustomTrays[2], CustomTrayDef{});
}

}  // namespace
}  // namespace lumacfg
