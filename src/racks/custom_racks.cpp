#include "racks/custom_racks.h"

#include <algorithm>
#include <span>

#include "base/numbers.h"
#include "base/text.h"
#include "platform/services.h"
#include "racks/custrack_keys.h"

namespace lumacfg {
namespace {

constexpr std::string_view kIndexSection = "INDEX";
constexpr std::string_view kCurrentSection = "CURRENT";
constexpr std::string_view kStandardTrayNames[] = {"Standard 4/5", "Standard 4/10"};
// A 16-character buffer: a longer "ID_STR" comes back cut to 15 characters.
constexpr int kNameBuffer = kMaxNameLength + 1;

std::string NumberedName(std::string_view prefix, long long number, std::string_view suffix) {
    std::string name(prefix);
    name += IntText(number);
    name += suffix;
    return name;
}

// Reads the numbers of one pass over custrack.ini and keeps the first value that is not a
// number, so that it reaches the caller of the pass.
class NumberReader {
  public:
    std::optional<std::int32_t> Read(std::string_view section, std::string_view key,
                                     std::int32_t defaultValue) {
        CustrackInt number = ReadCustrackInt(section, key, defaultValue);
        if (!number.error) return number.value;
        if (!error_) error_ = std::move(number.error);
        return std::nullopt;
    }

    // The value when it is a number within low..high.
    std::optional<std::int32_t> ReadInRange(std::string_view section, std::string_view key,
                                            std::int32_t defaultValue, std::int32_t low,
                                            std::int32_t high) {
        const auto value = Read(section, key, defaultValue);
        if (!value || *value < low || *value > high) return std::nullopt;
        return value;
    }

    const std::optional<CustrackNumberError>& error() const { return error_; }

    void ReportTo(std::optional<CustrackNumberError>* out) const {
        if (out) *out = error_;
    }

  private:
    std::optional<CustrackNumberError> error_;
};

// Reads and stores the keys in order; false at the first one outside its range.
// `forcedDefault` replaces the rules' defaults.
template <typename Def>
bool ReadFields(NumberReader& reader, std::string_view section,
                std::span<const FieldRule<Def>> rules, Def& def,
                std::optional<std::int32_t> forcedDefault = std::nullopt) {
    for (const auto& rule : rules) {
        const auto value = reader.ReadInRange(
            section, rule.key, forcedDefault.value_or(rule.defaultValue), rule.low, rule.high);
        if (!value) return false;
        def.*rule.field = static_cast<std::int16_t>(*value);
    }
    return true;
}

bool ReadRackNumbers(NumberReader& reader, std::string_view section, CustomRackDef& rack) {
    return ReadFields<CustomRackDef>(reader, section, VialCountRules(), rack) &&
           rack.vialXNum * rack.vialYNum <= kMaxVials &&
           ReadFields<CustomRackDef>(reader, section, VialGeometryRules(), rack);
}

// Default racks of positions 1..rackXNum, up to the first value outside 0..4100, which ends
// the list without making the tray faulty. False only for a value that is not a number.
bool ReadDefaultRacks(NumberReader& reader, std::string_view section, CustomTrayDef& tray) {
    tray.defRack.fill(0);
    for (int position = 1; position <= tray.rackXNum; ++position) {
        const auto rack =
            reader.Read(section, NumberedName(kDefRackPrefix, position, ""), kMissingGeometry);
        if (!rack) return false;
        if (*rack < kDefRackLow || *rack > kDefRackHigh) return true;
        tray.defRack[position - 1] = static_cast<std::int16_t>(*rack);
    }
    return true;
}

bool ReadTrayNumbers(NumberReader& reader, std::string_view section, CustomTrayDef& tray) {
    return ReadFields<CustomTrayDef>(reader, section, RackPositionRules(), tray) &&
           ReadDefaultRacks(reader, section, tray) &&
           ReadFields<CustomTrayDef>(reader, section, BottleRowRules(), tray);
}

// How one list of "[INDEX]" leads to its definition sections and table.
template <typename Def>
struct DefinitionList {
    std::string_view countKey;       // "Tray_Num"
    std::string_view idKeyPrefix;    // "Tray" of "Tray<i>_ID"
    std::string_view sectionPrefix;  // "TRAY_" of "[TRAY_<id>]"
    std::array<Def, kCustomSlots>& slots;
    bool (*readNumbers)(NumberReader&, std::string_view, Def&);
};

DefinitionList<CustomTrayDef> TrayList() {
    return {"Tray_Num", "Tray", "TRAY_", RackTrays().CustomTrays, ReadTrayNumbers};
}

DefinitionList<CustomRackDef> RackList() {
    return {"Rack_Num", "Rack", "RACK_", RackTrays().CustomRacks, ReadRackNumbers};
}

template <typename Def>
bool ReadDefinition(NumberReader& reader, const DefinitionList<Def>& list,
                    const std::string& section, Def& slot) {
    slot.name = ReadCustrackString(section, "ID_STR", "", kNameBuffer).text;
    return !slot.name.empty() && list.readNumbers(reader, section, slot);
}

// Loads the index-th entry of the list; a faulty entry whose id was accepted leaves its slot
// empty. False when the entry is faulty.
template <typename Def>
bool LoadEntry(NumberReader& reader, const DefinitionList<Def>& list, long long index) {
    const auto id = reader.ReadInRange(kIndexSection, NumberedName(list.idKeyPrefix, index, "_ID"),
                                       kNoId, kFirstCustomId, kLastCustomId);
    if (!id) return false;
    Def& slot = list.slots[static_cast<std::size_t>(*id - kFirstCustomId)];
    slot.id = static_cast<std::int16_t>(*id);
    if (ReadDefinition(reader, list, NumberedName(list.sectionPrefix, *id, ""), slot)) return true;
    slot = Def{};
    return false;
}

template <typename Def>
void LoadList(NumberReader& reader, const DefinitionList<Def>& list) {
    const auto count = reader.Read(kIndexSection, list.countKey, 0);
    if (!count) return;
    for (long long index = 1; index <= *count; ++index) {
        if (!LoadEntry(reader, list, index)) return;
    }
}

std::optional<std::int16_t> ReadValidCurrentTrayId(NumberReader& reader) {
    const auto id = reader.Read(kCurrentSection, "TRAY_ID", kNoId);
    if (!id || !(IsStandardTrayId(*id) || IsCustomId(*id))) return std::nullopt;
    return static_cast<std::int16_t>(*id);
}

// The section of a custom rack as the rack-on-tray test sees it: "ID" present and not -1 and
// every vial key present and within range. The vial-count product is not tested here.
bool CustomRackSectionPasses(NumberReader& reader, std::int32_t rackId) {
    const std::string section = NumberedName("RACK_", rackId, "");
    const auto id = reader.Read(section, "ID", kNoId);
    if (!id || *id == kNoId) return false;
    CustomRackDef scratch;
    return ReadFields<CustomRackDef>(reader, section, VialCountRules(), scratch, kNoId) &&
           ReadFields<CustomRackDef>(reader, section, VialGeometryRules(), scratch, kNoId);
}

bool RackValidForTray(NumberReader& reader, std::int32_t trayId, std::int32_t rackId) {
    if (IsStandardRackId(rackId)) return IsStandardTrayId(trayId);
    if (!IsCustomId(rackId) || !IsCustomId(trayId)) return false;
    return CustomRackSectionPasses(reader, rackId);
}

using RackList9 = std::array<std::int16_t, kTrayPositions>;

// Rack ids of "[CURRENT]" positions 1..count (at most 9), read up to the first rack that may
// not stand on the tray; every position not accepted holds -1.
RackList9 ReadCurrentRacks(NumberReader& reader, std::int16_t tray, std::int32_t count) {
    RackList9 racks;
    racks.fill(kNoId);
    const std::int32_t last = std::min<std::int32_t>(count, kTrayPositions);
    for (std::int32_t position = 1; position <= last; ++position) {
        const auto rack =
            reader.Read(kCurrentSection, NumberedName("Rack", position, "_ID"), kNoId);
        if (!rack || !RackValidForTray(reader, tray, *rack)) break;
        racks[static_cast<std::size_t>(position - 1)] = static_cast<std::int16_t>(*rack);
    }
    return racks;
}

// A standard tray: the default racks, replaced by the valid racks of positions 1..4.
void LoadStandardSelection(NumberReader& reader, std::int16_t tray, TraySelection& sel) {
    SetDefaultTraySelection(sel);
    const RackList9 racks = ReadCurrentRacks(reader, tray, 4);
    sel.tray = tray;
    for (std::size_t i = 0; i < racks.size(); ++i) {
        if (racks[i] != kNoId) sel.rack[i] = racks[i];
    }
}

// A custom tray: all of its RACK_X_NUM racks, or the default selection when any of them is
// missing or invalid. A tray has at most 9 positions, so a larger count is faulty too.
// True when the default selection stands instead of the file's.
bool LoadCustomSelection(NumberReader& reader, std::int16_t tray, TraySelection& sel) {
    const auto count = reader.Read(kCurrentSection, "RACK_X_NUM", 0);
    const RackList9 racks = ReadCurrentRacks(reader, tray, count.value_or(0));
    const auto used = static_cast<std::size_t>(std::max(count.value_or(0), 0));
    const bool complete =
        count && used <= kTrayPositions &&
        std::find(racks.begin(), racks.begin() + used, kNoId) == racks.begin() + used;
    if (!complete) {
        SetDefaultTraySelection(sel);
        return true;
    }
    ResetTraySelection(sel);
    sel.tray = tray;
    std::copy(racks.begin(), racks.begin() + used, sel.rack.begin());
    return false;
}

bool WriteTrayIds(TraySelection& sel) {
    if (sel.tray == kNoId) SetDefaultTraySelection(sel);
    const std::string tray = IntText(sel.tray);
    // CUSTOMTRAY names the standard tray itself, or 1000 for any custom tray.
    const std::string custom = IsStandardTrayId(sel.tray) ? tray : IntText(kFirstCustomId);
    const bool customWritten = WriteCustrackString(kCurrentSection, "CUSTOMTRAY", custom);
    return WriteCustrackString(kCurrentSection, "TRAY_ID", tray) && customWritten;
}

bool WriteRacks(const TraySelection& sel) {
    bool written = true;
    int count = 0;
    for (const std::int16_t rack : sel.rack) {
        if (rack == kNoId) break;
        ++count;
        written = WriteCustrackString(kCurrentSection, NumberedName("RACK", count, "_ID"),
                                      IntText(rack)) &&
                  written;
    }
    return WriteCustrackString(kCurrentSection, "RACK_X_NUM", IntText(count)) && written;
}

// The id of the first slot whose name equals the text without regard to case.
template <typename Def>
std::int16_t IdOfNamedSlot(const std::array<Def, kCustomSlots>& slots, std::string_view name) {
    const auto found = std::find_if(slots.begin(), slots.end(), [name](const Def& def) {
        return AnsiEqualNoCase(def.name, name);
    });
    return found == slots.end() ? kNoId : found->id;
}

std::size_t SlotOf(std::int16_t id) {
    return static_cast<std::size_t>(id - kFirstCustomId);
}

}  // namespace

bool IsStandardTrayId(std::int32_t id) {
    return id == 0 || id == 1;
}

bool IsStandardRackId(std::int32_t id) {
    return std::find(kStandardRackIds.begin(), kStandardRackIds.end(), id) !=
           kStandardRackIds.end();
}

bool IsCustomId(std::int32_t id) {
    return id >= kFirstCustomId && id <= kLastCustomId;
}

RackTrayState& RackTrays() {
    static RackTrayState state;
    return state;
}

void ResetCustomDefs() {
    RackTrays() = RackTrayState{};
}

void ResetTraySelection(TraySelection& sel) {
    sel = TraySelection{};
}

void SetDefaultTraySelection(TraySelection& sel) {
    ResetTraySelection(sel);
    sel.tray = 0;
    sel.rack[0] = 21;
    sel.rack[1] = sel.rack[2] = sel.rack[3] = 60;
}

bool IsCurrentTrayIdValid(std::optional<CustrackNumberError>* numberError) {
    CustrackPass pass;
    NumberReader reader;
    const bool valid = ReadValidCurrentTrayId(reader).has_value();
    reader.ReportTo(numberError);
    return valid;
}

bool IsRackValidForTray(std::int16_t trayId, std::int16_t rackId,
                        std::optional<CustrackNumberError>* numberError) {
    CustrackPass pass;
    NumberReader reader;
    const bool valid = RackValidForTray(reader, trayId, rackId);
    reader.ReportTo(numberError);
    return valid;
}

std::optional<CustrackNumberError> LoadCustomTrays() {
    CustrackPass pass;
    NumberReader reader;
    LoadList(reader, TrayList());
    return reader.error();
}

std::optional<CustrackNumberError> LoadCustomRacks() {
    CustrackPass pass;
    NumberReader reader;
    LoadList(reader, RackList());
    return reader.error();
}

TrayLoadResult LoadCurrentTray() {
    ResetCustomDefs();
    CustrackPass pass;
    NumberReader reader;
    TrayLoadResult result;
    if (const auto tray = ReadValidCurrentTrayId(reader)) {
        TraySelection& current = RackTrays().CurrentTray;
        if (IsStandardTrayId(*tray)) {
            LoadStandardSelection(reader, *tray, current);
        } else {
            result.defaultInstead = LoadCustomSelection(reader, *tray, current);
        }
        // The rack-on-tray tests above read the rack sections from the file; the tables are
        // loaded only now.
        LoadList(reader, TrayList());
        LoadList(reader, RackList());
        result.loaded = true;
    }
    result.numberError = reader.error();
    RackTrays().LastLoad = result;
    return result;
}

bool SaveCurrentTray() {
    RackTrayState& state = RackTrays();
    // A selection made from a load that met a value that is not a number may rest on a table
    // cut short or on a fallback: the file's selection is kept until the file is repaired.
    if (state.LastLoad && state.LastLoad->numberError) {
        ReportNumberError(*state.LastLoad->numberError);
        return false;
    }
    if (state.LastLoad && !state.LastLoad->loaded) return true;
    if (state.LastLoad && state.LastLoad->defaultInstead &&
        state.WorkingTray == state.CurrentTray) {
        return true;
    }
    // The section is rewritten whole and the file written once.
    CustrackPass pass;
    std::optional<CustrackNumberError> numberError;
    if (!IsCurrentTrayIdValid(&numberError)) {
        if (!numberError) return true;
        ReportNumberError(*numberError);
        return false;
    }
    // The section is deleted and written anew. With a second "[CURRENT]" after it, that one
    // would take the keys written, its own mixed with the selection's: the file is kept as it
    // stands until the site repairs it.
    if (const std::size_t count = CustrackSectionCount(kCurrentSection); count > 1) {
        ReportRepeatedSection(kCurrentSection, count);
        return false;
    }
    const bool deleted = DeleteCustrackSection(kCurrentSection);
    const bool idsWritten = WriteTrayIds(state.WorkingTray);
    const bool racksWritten = WriteRacks(state.WorkingTray);
    const bool fileWritten = pass.End();
    return deleted && idsWritten && racksWritten && fileWritten;
}

std::string RackNameFromId(std::int16_t id) {
    if (IsStandardRackId(id)) return IntText(id);
    if (IsCustomId(id)) return RackTrays().CustomRacks[SlotOf(id)].name;
    return {};
}

std::int16_t RackIdFromName(std::string_view name) {
    if (TrimSpaces(name).empty()) return kNoId;
    for (const std::int16_t rack : kStandardRackIds) {
        if (name == IntText(rack)) return rack;
    }
    return IdOfNamedSlot(RackTrays().CustomRacks, name);
}

std::int16_t TrayIdFromName(std::string_view name) {
    if (TrimSpaces(name).empty()) return kNoId;
    for (std::int16_t tray = 0; tray < 2; ++tray) {
        if (AnsiEqualNoCase(name, kStandardTrayNames[tray])) return tray;
    }
    return IdOfNamedSlot(RackTrays().CustomTrays, name);
}

}  // namespace lumacfg
