// Whether a rack may stand at a position of a tray: the kind of rack the tray takes, and for a
// custom rack on a custom tray whether its vial grid, with the first vial's offset taken on both
// sides, fits in the pitch of the tray's rack positions. One decision, read by the ASX500
// dialog's OK and by the picture of the tray.
#pragma once

#include <cstdint>

#include "racks/custom_racks.h"

namespace lumacfg {

enum class RackFit {
    Fits,
    NoRack,     // no rack of that name
    WrongKind,  // a custom rack on a standard tray, a standard rack on a custom tray
    TooWide,    // the rack is wider than the distance between two rack positions
    TooLong,    // the rack is longer than the depth of a rack position
};

// The room a rack takes across (width) and deep (length): twice the first vial's offset plus the
// pitches between the vials, in the autosampler's position units. Computed without wrapping: a
// rack beyond the 16-bit range is larger than any tray position.
std::int32_t RackWidth(const CustomRackDef& rack);
std::int32_t RackLength(const CustomRackDef& rack);

// The rack `rackId` at a position of the tray `trayId`, with the custom definitions of `tables`.
RackFit FitOnTray(const RackTrayState& tables, std::int16_t trayId, std::int16_t rackId);

}  // namespace lumacfg
