#include "racks/custrack_keys.h"

namespace lumacfg {
namespace {

constexpr RackRule kVialCounts[] = {
    {"VIAL_X_NUM", 0, 1, 999, &CustomRackDef::vialXNum},
    {"VIAL_Y_NUM", 0, 1, 999, &CustomRackDef::vialYNum},
};
constexpr RackRule kVialGeometry[] = {
    {"VIAL_X_ORG", 0, 0, 4100, &CustomRackDef::vialXOrg},
    {"VIAL_Y_ORG", 0, 0, 2700, &CustomRackDef::vialYOrg},
    {"VIAL_X_DIST", 0, 0, 4100, &CustomRackDef::vialXDist},
    {"VIAL_Y_DIST", 0, 0, 2700, &CustomRackDef::vialYDist},
    {"VIAL_DEPTH", 0, 0, 160, &CustomRackDef::vialDepth},
};

// The -300 lower bound of RACK_X_ORG is the accepted format; RACK_Y_DIST takes any value of its
// field except the missing-key default.
constexpr TrayRule kRackPositions[] = {
    {"RACK_X_NUM", 0, 1, 9, &CustomTrayDef::rackXNum},
    {"RACK_X_ORG", kMissingGeometry, -300, 4100, &CustomTrayDef::rackXOrg},
    {"RACK_Y_ORG", kMissingGeometry, 0, 2700, &CustomTrayDef::rackYOrg},
    {"RACK_X_DIST", kMissingGeometry, 0, 4100, &CustomTrayDef::rackXDist},
    {"RACK_Y_DIST", kMissingGeometry, -32768, kMissingGeometry - 1, &CustomTrayDef::rackYDist},
};
constexpr TrayRule kBottleRow[] = {
    {"BOTTLE_X_NUM", 0, 0, 10, &CustomTrayDef::bottleXNum},
    {"BOTTLE_X_ORG", 0, 0, 4100, &CustomTrayDef::bottleXOrg},
    {"BOTTLE_Y_ORG", 0, 0, 2700, &CustomTrayDef::bottleYOrg},
    {"BOTTLE_X_DIST", 0, 0, 4100, &CustomTrayDef::bottleXDist},
    {"BOTTLE_DEPTH", 0, 0, 160, &CustomTrayDef::bottleDepth},
};

}  // namespace

std::span<const RackRule> VialCountRules() {
    return kVialCounts;
}
std::span<const RackRule> VialGeometryRules() {
    return kVialGeometry;
}
std::span<const TrayRule> RackPositionRules() {
    return kRackPositions;
}
std::span<const TrayRule> BottleRowRules() {
    return kBottleRow;
}

}  // namespace lumacfg
