#include "racks/rack_fit.h"

namespace lumacfg {
namespace {

std::int32_t Extent(std::int16_t origin, std::int16_t count, std::int16_t pitch) {
    return 2 * std::int32_t{origin} + (std::int32_t{count} - 1) * std::int32_t{pitch};
}

std::size_t Slot(std::int16_t id) {
    return static_cast<std::size_t>(id - kFirstCustomId);
}

}  // namespace

std::int32_t RackWidth(const CustomRackDef& rack) {
    return Extent(rack.vialXOrg, rack.vialXNum, rack.vialXDist);
}

std::int32_t RackLength(const CustomRackDef& rack) {
    return Extent(rack.vialYOrg, rack.vialYNum, rack.vialYDist);
}

RackFit FitOnTray(const RackTrayState& tables, std::int16_t trayId, std::int16_t rackId) {
    if (rackId == kNoId) return RackFit::NoRack;
    if (IsStandardTrayId(trayId))
        return IsStandardRackId(rackId) ? RackFit::Fits : RackFit::WrongKind;
    if (!IsCustomId(rackId) || !IsCustomId(trayId)) return RackFit::WrongKind;
    const CustomRackDef& rack = tables.CustomRacks[Slot(rackId)];
    const CustomTrayDef& tray = tables.CustomTrays[Slot(trayId)];
    if (RackWidth(rack) > tray.rackXDist) return RackFit::TooWide;
    if (RackLength(rack) > tray.rackYDist) return RackFit::TooLong;
    return RackFit::Fits;
}

}  // namespace lumacfg
