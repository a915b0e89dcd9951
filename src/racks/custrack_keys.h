// The numeric keys of a custom tray section ("[TRAY_<id>]") and of a custom rack section
// ("[RACK_<id>]") of custrack.ini: the order in which they are read, the default of a missing
// key, the accepted range and the field of the definition that stores the value. The loader
// reads the file by these tables and the editor of the entries checks its values by them, so
// every entry the editor writes is one the loader accepts.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "racks/custom_racks.h"

namespace lumacfg {

template <typename Def>
struct FieldRule {
    std::string_view key;
    std::int32_t defaultValue;
    std::int32_t low;
    std::int32_t high;
    std::int16_t Def::*field;
};

using RackRule = FieldRule<CustomRackDef>;
using TrayRule = FieldRule<CustomTrayDef>;

// "ID_STR": 1 to 15 characters; a longer name comes back cut to 15 characters.
inline constexpr std::string_view kNameKey = "ID_STR";
inline constexpr int kMaxNameLength = 15;

// "VIAL_X_NUM" and "VIAL_Y_NUM", then (their product at most kMaxVials) the vial geometry.
std::span<const RackRule> VialCountRules();
std::span<const RackRule> VialGeometryRules();
inline constexpr int kMaxVials = 999;

// The rack-position geometry (mandatory: a missing key reads as 32767, which fails), then
// "DEFRACK1".."DEFRACK<RACK_X_NUM>" (0..4100, the first value outside ends the list without
// error), then the optional bottle row (missing keys give 0, which passes).
std::span<const TrayRule> RackPositionRules();
std::span<const TrayRule> BottleRowRules();
inline constexpr std::string_view kDefRackPrefix = "DEFRACK";
inline constexpr std::int32_t kMissingGeometry = 32767;
inline constexpr std::int32_t kDefRackLow = 0;
inline constexpr std::int32_t kDefRackHigh = 4100;
inline bool IsDefRackKey(std::string_view key) {
    return key.starts_with(kDefRackPrefix);
}

}  // namespace lumacfg
