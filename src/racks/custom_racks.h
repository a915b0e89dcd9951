// The autosampler's trays and racks: the site's custom definitions from custrack.ini, the
// tray selection (which tray is fitted and which rack stands at each of its positions), the
// lookups between ids and display names, and the rule that says whether a rack may stand on
// a tray.
//
// Ids are 16-bit: -1 none; standard trays 0 ("Standard 4/5") and 1 ("Standard 4/10");
// standard racks 21, 24, 40, 60 and 90, named by their number; custom trays and racks
// 1000..1099, kept in table slot id - 1000. Tray ids and rack ids are separate name spaces.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "racks/custrack_file.h"

namespace lumacfg {

inline constexpr std::int16_t kNoId = -1;
inline constexpr std::int16_t kFirstCustomId = 1000;
inline constexpr std::int16_t kLastCustomId = 1099;
inline constexpr std::size_t kCustomSlots = 100;
inline constexpr std::size_t kTrayPositions = 9;
// The standard racks; each one's name is its id ("60").
inline constexpr std::array<std::int16_t, 5> kStandardRackIds = {21, 24, 40, 60, 90};

bool IsStandardTrayId(std::int32_t id);
bool IsStandardRackId(std::int32_t id);
bool IsCustomId(std::int32_t id);

// One custom rack ("[RACK_<id>]"). Positions, pitches and depths are in the autosampler's own
// position units.
struct CustomRackDef {
    std::int16_t id = kNoId;  // -1: empty slot
    std::string name;         // "ID_STR", 1 to 15 characters
    std::int16_t vialXNum = 0;
    std::int16_t vialYNum = 0;
    std::int16_t vialXOrg = 0;
    std::int16_t vialYOrg = 0;
    std::int16_t vialXDist = 0;
    std::int16_t vialYDist = 0;
    std::int16_t vialDepth = 0;

    bool operator==(const CustomRackDef&) const = default;
};

// One custom tray ("[TRAY_<id>]").
struct CustomTrayDef {
    std::int16_t id = kNoId;  // -1: empty slot
    std::string name;         // "ID_STR", 1 to 15 characters
    std::int16_t rackXNum = 0;
    std::int16_t rackXOrg = 0;
    std::int16_t rackYOrg = 0;
    std::int16_t rackXDist = 0;
    std::int16_t rackYDist = 0;
    // defRack[i]: default rack of position i + 1 ("DEFRACK<i+1>"), 0 where not given.
    std::array<std::int16_t, 10> defRack{};
    std::int16_t bottleXNum = 0;
    std::int16_t bottleXOrg = 0;
    std::int16_t bottleYOrg = 0;
    std::int16_t bottleXDist = 0;
    std::int16_t bottleDepth = 0;

    bool operator==(const CustomTrayDef&) const = default;
};

// The fitted tray and the rack at each of its positions. rack[i] stands at position i + 1;
// positions are filled from 1 upwards and the first -1 ends the list.
struct TraySelection {
    std::int16_t tray = kNoId;
    std::array<std::int16_t, kTrayPositions> rack{kNoId, kNoId, kNoId, kNoId, kNoId,
                                                  kNoId, kNoId, kNoId, kNoId};

    bool operator==(const TraySelection&) const = default;
};

// What LoadCurrentTray found.
struct TrayLoadResult {
    bool loaded = false;  // false: no valid current tray; tables empty, selection none
    std::optional<CustrackNumberError> numberError;  // first value that was not a number
    // A custom tray whose racks could not all be loaded: CurrentTray is the default selection
    // instead of the file's.
    bool defaultInstead = false;
};

// The process-wide tables and selections, part of the station's configuration.
struct RackTrayState {
    std::array<CustomTrayDef, kCustomSlots> CustomTrays;
    std::array<CustomRackDef, kCustomSlots> CustomRacks;
    TraySelection CurrentTray;  // as loaded from custrack.ini
    TraySelection WorkingTray;  // as being edited; written back by SaveCurrentTray
    // The last LoadCurrentTray since the tables were emptied: whether the file's selection
    // may be replaced by WorkingTray.
    std::optional<TrayLoadResult> LastLoad;
};
RackTrayState& RackTrays();

// Empties every table slot and sets both selections to none.
void ResetCustomDefs();
// Tray -1, no rack at any position.
void ResetTraySelection(TraySelection& sel);
// Tray 0 with rack 21 at position 1 and rack 60 at positions 2, 3 and 4.
void SetDefaultTraySelection(TraySelection& sel);

// A value of custrack.ini that is not a number makes the check it stands in fail, exactly as a
// value out of range does. The first such value is reported: through the optional out
// parameter of the checks, in the result of the loads.

// True when "[CURRENT]" "TRAY_ID" is 0, 1 or 1000..1099 (a missing file or key gives false).
bool IsCurrentTrayIdValid(std::optional<CustrackNumberError>* numberError = nullptr);

// A standard rack may stand on a standard tray only; a custom rack on a custom tray only, and
// only when its section in the file holds "ID" and every vial key within range.
bool IsRackValidForTray(std::int16_t trayId, std::int16_t rackId,
                        std::optional<CustrackNumberError>* numberError = nullptr);

// Fill the tables from the lists of "[INDEX]". Each list is read up to its first faulty entry;
// that entry's slot is emptied and the entries after it are not loaded.
[[nodiscard]] std::optional<CustrackNumberError> LoadCustomTrays();
[[nodiscard]] std::optional<CustrackNumberError> LoadCustomRacks();

// Empties the tables, then loads CurrentTray and both tables from custrack.ini in one pass
// over the file, and keeps the result in LastLoad.
[[nodiscard]] TrayLoadResult LoadCurrentTray();

// Rewrites "[CURRENT]" from WorkingTray (a WorkingTray without a tray becomes the default
// selection first), in one pass that writes the file once. "[CURRENT]" is left exactly as it
// stands, and nothing written, when:
// - the file has no valid current tray now;
// - the last load found no valid current tray (the working selection comes from nothing);
// - the last load, or the check of the current tray now, met a value that is not a number:
//   the value is reported to platform::Failures() and the result is false;
// - the last load fell back to the default selection and WorkingTray still is that fallback
//   (nobody chose a selection, and the file's waits for its racks to be repaired).
// False when the file could not be written or a value was not a number.
bool SaveCurrentTray();

std::string RackNameFromId(std::int16_t id);
std::int16_t RackIdFromName(std::string_view name);
std::int16_t TrayIdFromName(std::string_view name);

}  // namespace lumacfg
