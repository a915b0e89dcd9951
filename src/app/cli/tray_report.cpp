#include "app/cli/tray_report.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace lumacfg {
namespace {

template <typename Def>
struct ListedField {
    std::string_view key;
    std::int16_t Def::*field;
};

// The numeric fields in the order of their custrack.ini keys.
constexpr ListedField<CustomTrayDef> kTrayFields[] = {
    {"RACK_X_NUM", &CustomTrayDef::rackXNum},       {"RACK_X_ORG", &CustomTrayDef::rackXOrg},
    {"RACK_Y_ORG", &CustomTrayDef::rackYOrg},       {"RACK_X_DIST", &CustomTrayDef::rackXDist},
    {"RACK_Y_DIST", &CustomTrayDef::rackYDist},     {"BOTTLE_X_NUM", &CustomTrayDef::bottleXNum},
    {"BOTTLE_X_ORG", &CustomTrayDef::bottleXOrg},   {"BOTTLE_Y_ORG", &CustomTrayDef::bottleYOrg},
    {"BOTTLE_X_DIST", &CustomTrayDef::bottleXDist}, {"BOTTLE_DEPTH", &CustomTrayDef::bottleDepth},
};
constexpr ListedField<CustomRackDef> kRackFields[] = {
    {"VIAL_X_NUM", &CustomRackDef::vialXNum},   {"VIAL_Y_NUM", &CustomRackDef::vialYNum},
    {"VIAL_X_ORG", &CustomRackDef::vialXOrg},   {"VIAL_Y_ORG", &CustomRackDef::vialYOrg},
    {"VIAL_X_DIST", &CustomRackDef::vialXDist}, {"VIAL_Y_DIST", &CustomRackDef::vialYDist},
    {"VIAL_DEPTH", &CustomRackDef::vialDepth},
};

template <typename Range>
void WriteIdList(std::ostream& out, const Range& ids) {
    const char* separator = "";
    for (const std::int16_t id : ids) {
        out << separator << id;
        separator = " ";
    }
    out << '\n';
}

// "<PREFIX><id>.<KEY>=<value>" for every listed field of the definition.
template <typename Def>
void WriteFields(std::ostream& out, std::string_view prefix, const Def& def,
                 std::span<const ListedField<Def>> fields) {
    for (const auto& field : fields) {
        out << prefix << def.id << '.' << field.key << '=' << def.*field.field << '\n';
    }
}

void WriteTray(std::ostream& out, const CustomTrayDef& tray) {
    out << "TRAY_" << tray.id << ".ID_STR=" << tray.name << '\n';
    const std::span<const ListedField<CustomTrayDef>> fields(kTrayFields);
    WriteFields(out, "TRAY_", tray, fields.first(5));
    out << "TRAY_" << tray.id << ".DEFRACK=";
    WriteIdList(out, tray.defRack);
    WriteFields(out, "TRAY_", tray, fields.subspan(5));
}

void WriteRack(std::ostream& out, const CustomRackDef& rack) {
    out << "RACK_" << rack.id << ".ID_STR=" << rack.name << '\n';
    WriteFields<CustomRackDef>(out, "RACK_", rack, kRackFields);
}

template <typename Def>
void WriteDefinitions(std::ostream& out, std::string_view countName,
                      const std::array<Def, kCustomSlots>& slots,
                      void (*writeOne)(std::ostream&, const Def&)) {
    out << countName << '='
        << std::count_if(slots.begin(), slots.end(), [](const Def& d) { return d.id != kNoId; })
        << '\n';
    for (const Def& def : slots) {
        if (def.id != kNoId) writeOne(out, def);
    }
}

}  // namespace

void WriteTrayReport(std::ostream& out, const TrayLoadResult& result) {
    const RackTrayState& state = RackTrays();
    out << "LOAD=" << (result.loaded ? "LOADED" : "NO_CURRENT_TRAY") << '\n';
    out << "NUMBER_ERROR=" << (result.numberError ? DescribeNumberError(*result.numberError) : "")
        << '\n';
    out << "TRAY_ID=" << state.CurrentTray.tray << '\n';
    out << "RACK_IDS=";
    WriteIdList(out, state.CurrentTray.rack);
    WriteDefinitions(out, "CUSTOM_TRAYS", state.CustomTrays, WriteTray);
    WriteDefinitions(out, "CUSTOM_RACKS", state.CustomRacks, WriteRack);
}

}  // namespace lumacfg
