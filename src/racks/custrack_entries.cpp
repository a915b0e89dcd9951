#include "racks/custrack_entries.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "platform/services.h"
#include "racks/custrack_file.h"
#include "racks/custrack_keys.h"

namespace lumacfg {
namespace {

constexpr std::string_view kIndexSection = "INDEX";
constexpr std::string_view kCurrentSection = "CURRENT";
// The buffers the loader reads with: a name of at most 15 characters, a number of at most 11.
constexpr int kNameBuffer = kMaxNameLength + 1;
constexpr int kNumberBuffer = 12;
// A list of "[INDEX]" is read this far at most: it can name no more than 100 distinct ids, and
// a count beyond reason ("Rack_Num=2000000000") is not walked to its end.
constexpr std::int32_t kMostListed = 1000;
constexpr std::string_view kRackIdKey = "ID";
constexpr std::string_view kCopySuffix = " (copy)";

// Values of a new entry, chosen so that the new rack fits a position of the new tray.
constexpr std::pair<std::string_view, int> kNewTray[] = {
    {"RACK_X_NUM", 4},     {"RACK_X_ORG", 100}, {"RACK_Y_ORG", 100}, {"RACK_X_DIST", 1000},
    {"RACK_Y_DIST", 2000}, {"DEFRACK1", 0},     {"DEFRACK2", 0},     {"DEFRACK3", 0},
    {"DEFRACK4", 0},       {"BOTTLE_X_NUM", 0}, {"BOTTLE_X_ORG", 0}, {"BOTTLE_Y_ORG", 0},
    {"BOTTLE_X_DIST", 0},  {"BOTTLE_DEPTH", 0},
};
constexpr std::pair<std::string_view, int> kNewRack[] = {
    {"VIAL_X_NUM", 5},    {"VIAL_Y_NUM", 10},   {"VIAL_X_ORG", 100}, {"VIAL_Y_ORG", 100},
    {"VIAL_X_DIST", 180}, {"VIAL_Y_DIST", 180}, {"VIAL_DEPTH", 100},
};

std::string Numbered(std::string_view prefix, long long number, std::string_view suffix = "") {
    return std::string(prefix) + IntText(number) + std::string(suffix);
}

std::string DefRackKey(int position) {
    return Numbered(kDefRackPrefix, position);
}

std::string_view CountKey(EntryKind kind) {
    return kind == EntryKind::Tray ? "Tray_Num" : "Rack_Num";
}

std::string IdKey(EntryKind kind, long long index) {
    return Numbered(kind == EntryKind::Tray ? "Tray" : "Rack", index, "_ID");
}

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string RangeText(std::int32_t low, std::int32_t high) {
    // RACK_Y_DIST takes any value of its field except the missing-key default.
    if (low == -32768 && high == kMissingGeometry - 1) return "any number but 32767";
    return IntText(low) + ".." + IntText(high);
}

std::string NameRangeText() {
    return "1 to " + IntText(kMaxNameLength) + " characters";
}

std::string Described(const CustrackEntry& entry) {
    return entry.Section() + " " + Quoted(entry.Name());
}

// A key's number as the loader reads it: the default where the file holds none; nullopt when
// the text is not a number.
template <typename Rule>
std::optional<std::int32_t> NumberOf(const CustrackEntry& entry, const Rule& rule) {
    const std::string& text = entry.Text(rule.key);
    return text.empty() ? std::optional<std::int32_t>(rule.defaultValue) : CustrackNumber(text);
}

// Checks the keys of `rules` in order and stores what passes in `def`; the first that does not
// is the fault.
template <typename Def>
std::optional<EntryFault> CheckRules(const CustrackEntry& entry,
                                     std::span<const FieldRule<Def>> rules, Def& def) {
    for (const auto& rule : rules) {
        const auto value = NumberOf(entry, rule);
        if (!value || *value < rule.low || *value > rule.high)
            return EntryFault{std::string(rule.key), entry.Text(rule.key),
                              RangeText(rule.low, rule.high)};
        def.*rule.field = static_cast<std::int16_t>(*value);
    }
    return std::nullopt;
}

std::optional<EntryFault> CheckName(const CustrackEntry& entry) {
    if (!entry.Name().empty()) return std::nullopt;
    return EntryFault{std::string(kNameKey), "", NameRangeText()};
}

// The default racks of positions 1..rackXNum up to the first value outside 0..4100, which ends
// the list without a fault; a value that is not a number is one.
std::optional<EntryFault> CheckDefaultRacks(const CustrackEntry& entry, CustomTrayDef& tray) {
    tray.defRack.fill(0);
    for (int position = 1; position <= tray.rackXNum; ++position) {
        const std::string key = DefRackKey(position);
        const std::string& text = entry.Text(key);
        const auto rack =
            text.empty() ? std::optional<std::int32_t>(kMissingGeometry) : CustrackNumber(text);
        if (!rack) return EntryFault{key, text, "a number"};
        if (*rack < kDefRackLow || *rack > kDefRackHigh) break;
        tray.defRack[static_cast<std::size_t>(position - 1)] = static_cast<std::int16_t>(*rack);
    }
    return std::nullopt;
}

std::optional<EntryFault> CheckTray(const CustrackEntry& entry, CustomTrayDef& tray) {
    if (auto fault = CheckName(entry)) return fault;
    if (auto fault = CheckRules<CustomTrayDef>(entry, RackPositionRules(), tray)) return fault;
    if (auto fault = CheckDefaultRacks(entry, tray)) return fault;
    return CheckRules<CustomTrayDef>(entry, BottleRowRules(), tray);
}

std::string ProductRange() {
    return "VIAL_X_NUM times VIAL_Y_NUM at most " + IntText(kMaxVials);
}

std::optional<EntryFault> CheckRack(const CustrackEntry& entry, CustomRackDef& rack) {
    if (auto fault = CheckName(entry)) return fault;
    if (auto fault = CheckRules<CustomRackDef>(entry, VialCountRules(), rack)) return fault;
    if (rack.vialXNum * rack.vialYNum > kMaxVials)
        return EntryFault{"VIAL_Y_NUM", entry.Text("VIAL_Y_NUM"), ProductRange()};
    return CheckRules<CustomRackDef>(entry, VialGeometryRules(), rack);
}

// The refusal of a number outside the key's range; "" when it lies within.
std::string RangeRefusal(const std::string& key, KeyRange range, std::optional<std::int32_t> value,
                         std::string_view text) {
    if (value && *value >= range.low && *value <= range.high) return {};
    const std::string shown = value ? IntText(*value) : Quoted(TrimBlanks(text));
    return key + ": " + shown + " is outside the accepted range " +
           RangeText(range.low, range.high) + ".";
}

// The refusal of a vial count whose product with the other count exceeds kMaxVials; "" for
// other keys and while the other count is outside 1..kMaxVials (its own fault, and no product).
std::string VialCountRefusal(const CustrackEntry& entry, const std::string& key,
                             std::int32_t value) {
    if (key != "VIAL_X_NUM" && key != "VIAL_Y_NUM") return {};
    const std::string other = key == "VIAL_X_NUM" ? "VIAL_Y_NUM" : "VIAL_X_NUM";
    const auto otherCount = CustrackNumber(entry.Text(other));
    if (!otherCount || *otherCount < 1 || *otherCount > kMaxVials ||
        value * *otherCount <= kMaxVials)
        return {};
    return key + ": " + IntText(value) + " with " + other + " " + IntText(*otherCount) + " makes " +
           IntText(value * *otherCount) + " vials; the accepted range is " + ProductRange() + ".";
}

// Every value that passes its own range, the others 0: what a picture can show of an entry
// that does not load.
template <typename Def>
void ReadWhatPasses(const CustrackEntry& entry, std::span<const FieldRule<Def>> rules, Def& def) {
    for (const auto& rule : rules) {
        const auto value = NumberOf(entry, rule);
        const bool passes = value && *value >= rule.low && *value <= rule.high;
        def.*rule.field = passes ? static_cast<std::int16_t>(*value) : std::int16_t{0};
    }
}

template <typename Def>
const FieldRule<Def>* FindRule(std::span<const FieldRule<Def>> rules, std::string_view key) {
    const auto found = std::find_if(rules.begin(), rules.end(),
                                    [key](const auto& rule) { return rule.key == key; });
    return found == rules.end() ? nullptr : &*found;
}

std::vector<std::string> KeysOf(EntryKind kind) {
    std::vector<std::string> keys{std::string(kNameKey)};
    auto add = [&keys](const auto& rules) {
        for (const auto& rule : rules) keys.emplace_back(rule.key);
    };
    if (kind == EntryKind::Tray) {
        add(RackPositionRules());
        for (int position = 1; position <= static_cast<int>(kTrayPositions); ++position)
            keys.push_back(DefRackKey(position));
        add(BottleRowRules());
    } else {
        add(VialCountRules());
        add(VialGeometryRules());
    }
    return keys;
}

CustrackEntry Blank(EntryKind kind, std::int16_t id) {
    CustrackEntry entry;
    entry.kind = kind;
    entry.id = id;
    for (const std::string& key : EntryKeys(kind)) entry.values.push_back({key, ""});
    return entry;
}

std::string& TextOf(CustrackEntry& entry, std::string_view key) {
    return const_cast<std::string&>(std::as_const(entry).Text(key));
}

bool SameValue(std::string_view key, const std::string& inFile, const std::string& edited) {
    if (key == kNameKey || inFile == edited) return inFile == edited;
    const auto a = CustrackNumber(inFile);
    return a && a == CustrackNumber(edited);
}

// A key's text as the file holds it, read with the loader's buffer.
std::string TextInFile(std::string_view section, std::string_view key) {
    return ReadCustrackString(section, key, "", key == kNameKey ? kNameBuffer : kNumberBuffer).text;
}

// The entry's keys as the loader reads them from the file.
CustrackEntry ReadEntry(EntryKind kind, std::int16_t id, std::int32_t slot) {
    CustrackEntry entry = Blank(kind, id);
    entry.slot = slot;
    const std::string section = entry.Section();
    for (EntryValue& value : entry.values) value.text = TextInFile(section, value.key);
    return entry;
}

std::string CountRangeText() {
    return "a number up to " + IntText(kMostListed);
}

std::string IdRangeText() {
    return IntText(kFirstCustomId) + ".." + IntText(kLastCustomId);
}

std::string NotLoaded(std::string_view before) {
    return "not loaded: " + std::string(before) + " before it fails";
}

// One key of custrack.ini that a write changes: the text the file holds and the text it gets
// (nullopt: the key goes).
struct KeyChange {
    std::string section;
    std::string key;
    std::string old;
    std::optional<std::string> value;
    bool withSection = false;  // goes with its whole section

    platform::AuditEvent Event() const {
        return {"field-changed",
                {{"field", section + " " + key}, {"old", old}, {"new", value.value_or("")}}};
    }
};

using KeyChanges = std::vector<KeyChange>;

// The keys of an entry the file holds, as deleting its section takes them.
void AddRemovedKeys(const CustrackEntry& entry, KeyChanges& changes) {
    const std::string section = entry.Section();
    std::vector<std::string> keys;
    if (entry.kind == EntryKind::Rack) keys.emplace_back(kRackIdKey);
    keys.insert(keys.end(), EntryKeys(entry.kind).begin(), EntryKeys(entry.kind).end());
    for (const std::string& key : keys) {
        std::string old = TextInFile(section, key);
        if (!old.empty()) changes.push_back({section, key, std::move(old), std::nullopt, true});
    }
}

// The keys whose text the file does not read as the entry's; a rack also gets its "ID", which
// the test of a rack on a tray asks for. A section removed by the same write (an entry
// deleted, its id taken anew) holds nothing.
void AddEditedKeys(const CustrackEntry& entry, bool sectionRemoved, KeyChanges& changes) {
    const std::string section = entry.Section();
    const auto inFile = [&](std::string_view key) {
        return sectionRemoved ? std::string() : TextInFile(section, key);
    };
    if (entry.kind == EntryKind::Rack) {
        std::string old = inFile(kRackIdKey);
        if (CustrackNumber(old) != entry.id)
            changes.push_back(
                {section, std::string(kRackIdKey), std::move(old), IntText(entry.id)});
    }
    for (const EntryValue& value : entry.values) {
        // The test of a rack on a tray reads every vial key with the default -1: a rack's
        // missing key is written with the value the loader gives it.
        const std::string text =
            value.text.empty() && entry.kind == EntryKind::Rack ? "0" : value.text;
        if (text.empty()) continue;
        std::string old = inFile(value.key);
        if (!SameValue(value.key, old, text)) changes.push_back({section, value.key, old, text});
    }
}

std::int32_t ListCount(EntryKind kind) {
    const CustrackInt count = ReadCustrackInt(kIndexSection, CountKey(kind), 0);
    return count.error ? 0 : std::clamp(count.value, 0, kMostListed);
}

void AddIndexKey(const std::string& key, std::optional<std::int32_t> value, KeyChanges& changes) {
    std::string old = TextInFile(kIndexSection, key);
    if (value && CustrackNumber(old) == *value) return;
    changes.push_back({std::string(kIndexSection), key, std::move(old),
                       value ? std::optional<std::string>(IntText(*value)) : std::nullopt});
}

// The list stays dense: a new entry at its end, a deleted one closing its gap; the keys beyond
// the new count go.
void AddListKeys(EntryKind kind, const std::vector<const CustrackEntry*>& listed,
                 KeyChanges& changes) {
    const auto count = static_cast<std::int32_t>(listed.size());
    const std::int32_t before = ListCount(kind);
    AddIndexKey(std::string(CountKey(kind)), count, changes);
    for (std::int32_t index = 1; index <= count; ++index)
        AddIndexKey(IdKey(kind, index), listed[static_cast<std::size_t>(index - 1)]->id, changes);
    for (std::int32_t index = count + 1; index <= before; ++index)
        AddIndexKey(IdKey(kind, index), std::nullopt, changes);
}

bool Recorded(const KeyChanges& changes) {
    std::vector<platform::AuditEvent> events;
    for (const KeyChange& change : changes) events.push_back(change.Event());
    return events.empty() || platform::Audit().Append(events);
}

bool Made(const KeyChange& change) {
    if (change.withSection) return true;
    return change.value ? WriteCustrackString(change.section, change.key, *change.value)
                        : DeleteCustrackKey(change.section, change.key);
}

}  // namespace

std::string DescribeFault(const EntryFault& fault) {
    const std::string held = fault.text.empty() ? " missing" : "=" + Quoted(fault.text);
    return fault.key + held + " (accepted: " + fault.accepted + ")";
}

std::string CustrackEntry::Section() const {
    return Numbered(SectionPrefix(kind), id);
}

const std::string& CustrackEntry::Text(std::string_view key) const {
    static const std::string kNone;
    const auto found = std::find_if(values.begin(), values.end(), [key](const EntryValue& v) {
        return AnsiEqualNoCase(v.key, key);
    });
    return found == values.end() ? kNone : found->text;
}

const std::string& CustrackEntry::Name() const {
    return Text(kNameKey);
}

const std::vector<std::string>& EntryKeys(EntryKind kind) {
    static const std::vector<std::string> tray = KeysOf(EntryKind::Tray);
    static const std::vector<std::string> rack = KeysOf(EntryKind::Rack);
    return kind == EntryKind::Tray ? tray : rack;
}

std::optional<KeyRange> RangeOfKey(EntryKind kind, std::string_view key) {
    const auto range = [](const auto* rule) -> std::optional<KeyRange> {
        if (rule == nullptr) return std::nullopt;
        return KeyRange{rule->low, rule->high};
    };
    if (kind == EntryKind::Rack) {
        if (const auto* rule = FindRule(VialCountRules(), key)) return range(rule);
        return range(FindRule(VialGeometryRules(), key));
    }
    const auto& keys = EntryKeys(kind);
    if (IsDefRackKey(key) && std::find(keys.begin(), keys.end(), key) != keys.end())
        return KeyRange{kDefRackLow, kDefRackHigh};
    if (const auto* rule = FindRule(RackPositionRules(), key)) return range(rule);
    return range(FindRule(BottleRowRules(), key));
}

std::string AcceptedText(EntryKind kind, std::string_view key) {
    if (key == kNameKey) return NameRangeText();
    if (IsDefRackKey(key)) return "a rack";
    const auto range = RangeOfKey(kind, key);
    return range ? RangeText(range->low, range->high) : std::string();
}

std::string_view SectionPrefix(EntryKind kind) {
    return kind == EntryKind::Tray ? "TRAY_" : "RACK_";
}

std::string_view KindWord(EntryKind kind) {
    return kind == EntryKind::Tray ? "tray" : "rack";
}

std::optional<EntryFault> CheckEntry(const CustrackEntry& entry) {
    if (entry.kind == EntryKind::Tray) {
        CustomTrayDef tray;
        return CheckTray(entry, tray);
    }
    CustomRackDef rack;
    return CheckRack(entry, rack);
}

CustomTrayDef TrayOf(const CustrackEntry& entry) {
    CustomTrayDef tray;
    tray.id = entry.id;
    tray.name = entry.Name();
    ReadWhatPasses<CustomTrayDef>(entry, RackPositionRules(), tray);
    CustomTrayDef scratch = tray;
    if (!CheckDefaultRacks(entry, scratch)) tray.defRack = scratch.defRack;
    ReadWhatPasses<CustomTrayDef>(entry, BottleRowRules(), tray);
    return tray;
}

CustomRackDef RackOf(const CustrackEntry& entry) {
    CustomRackDef rack;
    rack.id = entry.id;
    rack.name = entry.Name();
    ReadWhatPasses<CustomRackDef>(entry, VialCountRules(), rack);
    ReadWhatPasses<CustomRackDef>(entry, VialGeometryRules(), rack);
    return rack;
}

std::optional<CustrackEntries> CustrackEntries::Read() {
    if (!platform::Profiles().Readable(CustrackPath())) return std::nullopt;
    CustrackPass pass;
    CustrackEntries entries;
    for (const EntryKind kind : {EntryKind::Tray, EntryKind::Rack}) entries.ReadList(kind);
    const CustrackInt tray = ReadCustrackInt(kCurrentSection, "TRAY_ID", kNoId);
    if (!tray.error) entries.currentTray_ = tray.value;
    for (int position = 1; position <= static_cast<int>(kTrayPositions); ++position) {
        const std::string key = Numbered("RACK", position, "_ID");
        const CustrackInt rack = ReadCustrackInt(kCurrentSection, key, kNoId);
        if (!rack.error && rack.value != kNoId) entries.currentRacks_.emplace_back(key, rack.value);
    }
    return entries;
}

// The entries one list of "[INDEX]" names, and every key of it that is damaged. An entry after
// a damaged id key is read too: the loader does not reach it, but it is the site's.
void CustrackEntries::ReadList(EntryKind kind) {
    const std::string countKey(CountKey(kind));
    const CustrackInt count = ReadCustrackInt(kIndexSection, countKey, 0);
    const auto countFault = [&](std::int32_t slot) {
        indexFaults_.push_back(
            {kind, slot, {countKey, TextInFile(kIndexSection, countKey), CountRangeText()}});
    };
    if (count.error) return countFault(0);
    const std::int32_t listed = ListCount(kind);
    for (std::int32_t index = 1; index <= listed; ++index) {
        const std::string idKey = IdKey(kind, index);
        const CustrackInt id = ReadCustrackInt(kIndexSection, idKey, kNoId);
        if (id.error || !IsCustomId(id.value)) {
            indexFaults_.push_back(
                {kind, index, {idKey, TextInFile(kIndexSection, idKey), IdRangeText()}});
            continue;
        }
        const auto shortId = static_cast<std::int16_t>(id.value);
        if (Find(Numbered(SectionPrefix(kind), shortId)) != nullptr) continue;
        entries_.push_back(ReadEntry(kind, shortId, index));
    }
    // The id keys beyond those read are not looked at.
    if (count.value > kMostListed) countFault(kMostListed + 1);
}

std::vector<CustrackEntry*> CustrackEntries::Listed(EntryKind kind) {
    std::vector<CustrackEntry*> listed;
    for (CustrackEntry& entry : entries_) {
        if (entry.kind == kind && !entry.deleted) listed.push_back(&entry);
    }
    return listed;
}

std::vector<const CustrackEntry*> CustrackEntries::Listed(EntryKind kind) const {
    std::vector<const CustrackEntry*> listed;
    for (const CustrackEntry& entry : entries_) {
        if (entry.kind == kind && !entry.deleted) listed.push_back(&entry);
    }
    return listed;
}

CustrackEntry* CustrackEntries::Find(std::string_view section) {
    for (CustrackEntry& entry : entries_) {
        if (!entry.deleted && AnsiEqualNoCase(entry.Section(), section)) return &entry;
    }
    return nullptr;
}

std::string CustrackEntries::Verdict(const CustrackEntry& entry) const {
    if (const auto fault = CheckEntry(entry)) return DescribeFault(*fault);
    const IndexFault* damage = FirstIndexFault(entry.kind);
    for (const CustrackEntry* before : Listed(entry.kind)) {
        if (damage != nullptr && damage->slot < before->slot)
            return NotLoaded("[INDEX] " + damage->fault.key);
        if (before == &entry) break;
        if (CheckEntry(*before)) return NotLoaded(before->Section());
    }
    return "ok";
}

std::vector<IndexFault> CustrackEntries::IndexFaults(EntryKind kind) const {
    std::vector<IndexFault> faults;
    std::copy_if(indexFaults_.begin(), indexFaults_.end(), std::back_inserter(faults),
                 [kind](const IndexFault& fault) { return fault.kind == kind; });
    return faults;
}

const IndexFault* CustrackEntries::FirstIndexFault(EntryKind kind) const {
    const auto found = std::find_if(indexFaults_.begin(), indexFaults_.end(),
                                    [kind](const IndexFault& fault) { return fault.kind == kind; });
    return found == indexFaults_.end() ? nullptr : &*found;
}

std::string CustrackEntries::IndexDamage(EntryKind kind) const {
    const IndexFault* damage = FirstIndexFault(kind);
    return damage == nullptr ? std::string() : "[INDEX] " + DescribeFault(damage->fault);
}

// The refusal of a change to a list with a damaged key: rewritten from what could be read, the
// list would lose the entries that key hides.
std::string CustrackEntries::ListRefusal(EntryKind kind) const {
    const std::string damage = IndexDamage(kind);
    if (damage.empty()) return {};
    return "The " + std::string(KindWord(kind)) + " list of custrack.ini is damaged: " + damage +
           ". Entries it names may be missing; New, Copy and Delete of " +
           std::string(KindWord(kind)) + "s are refused until it is repaired in the file.";
}

std::string CustrackEntries::SetValue(CustrackEntry& entry, std::string_view key,
                                      std::string_view text) {
    const auto& keys = EntryKeys(entry.kind);
    const auto known = std::find_if(
        keys.begin(), keys.end(), [key](const std::string& k) { return AnsiEqualNoCase(k, key); });
    if (known == keys.end())
        return "A " + std::string(KindWord(entry.kind)) + " has no key " + std::string(key) + ".";
    if (*known == kNameKey) {
        const std::string name(TrimSpaces(text));
        if (std::string refusal = NameRefusal(entry, name); !refusal.empty()) return refusal;
        TextOf(entry, kNameKey) = name;
        entry.touched = true;
        return {};
    }
    const auto value = RoundToInt32(LenientNumber(text));
    std::string refusal = IsDefRackKey(*known)
                              ? DefaultRackRefusal(*known, value.value_or(kNoId))
                              : RangeRefusal(*known, *RangeOfKey(entry.kind, *known), value, text);
    if (refusal.empty()) refusal = VialCountRefusal(entry, *known, *value);
    if (!refusal.empty()) return refusal;
    TextOf(entry, *known) = IntText(*value);
    entry.touched = true;
    return {};
}

std::string CustrackEntries::NameRefusal(const CustrackEntry& entry, std::string_view name) const {
    const std::string shown = Quoted(name);
    if (name.empty() || name.size() > static_cast<std::size_t>(kMaxNameLength))
        return std::string(kNameKey) + ": " + shown + " is outside the accepted range " +
               NameRangeText() + ".";
    // The dialogs find racks and trays by name, the standard ones first.
    const bool standard =
        entry.kind == EntryKind::Rack
            ? std::any_of(kStandardRackIds.begin(), kStandardRackIds.end(),
                          [name](std::int16_t rack) { return name == IntText(rack); })
            : IsStandardTrayId(TrayIdFromName(name));
    if (standard)
        return std::string(kNameKey) + ": " + shown + " is the name of a standard " +
               std::string(KindWord(entry.kind)) + ".";
    for (const CustrackEntry* other : Listed(entry.kind)) {
        if (other != &entry && AnsiEqualNoCase(other->Name(), name))
            return std::string(kNameKey) + ": " + shown + " is already the name of " +
                   other->Section() + ".";
    }
    return {};
}

std::string CustrackEntries::DefaultRackRefusal(std::string_view key, std::int32_t rack) const {
    if (rack == 0 || IsStandardRackId(rack)) return {};
    for (const CustrackEntry* listed : Listed(EntryKind::Rack)) {
        if (listed->id == rack) return {};
    }
    std::string accepted = "0 (none)";
    for (const std::int16_t standard : kStandardRackIds) accepted += ", " + IntText(standard);
    return std::string(key) + ": " + IntText(rack) + " is not a rack; accepted are " + accepted +
           " and the custom racks.";
}

std::int16_t CustrackEntries::FreeId(EntryKind kind) const {
    for (std::int16_t id = kFirstCustomId; id <= kLastCustomId; ++id) {
        const std::string section = Numbered(SectionPrefix(kind), id);
        bool taken = false;
        bool deletedHere = false;
        for (const CustrackEntry& entry : entries_) {
            if (entry.kind != kind || entry.id != id) continue;
            taken = taken || !entry.deleted;
            deletedHere = deletedHere || (entry.deleted && !entry.added);
        }
        // A section the list does not name is someone's: its keys would mix with the new ones.
        if (!taken && (deletedHere || CustrackSectionCount(section) == 0)) return id;
    }
    return kNoId;
}

std::string CustrackEntries::UniqueName(EntryKind kind, std::string base, bool copy) const {
    for (int n = 1;; ++n) {
        const std::string tail =
            !copy ? (n == 1 ? "" : " " + IntText(n))
                  : (n == 1 ? std::string(kCopySuffix) : " (copy " + IntText(n) + ")");
        const std::size_t room = static_cast<std::size_t>(kMaxNameLength) - tail.size();
        const std::string name = std::string(TrimSpaces(base.substr(0, room))) + tail;
        const auto listed = Listed(kind);
        if (std::none_of(listed.begin(), listed.end(), [&](const CustrackEntry* entry) {
                return AnsiEqualNoCase(entry->Name(), name);
            }))
            return name;
    }
}

CustrackEntry& CustrackEntries::Append(CustrackEntry entry) {
    entry.added = true;
    entry.touched = true;
    entries_.push_back(std::move(entry));
    return entries_.back();
}

EditResult CustrackEntries::New(EntryKind kind) {
    if (std::string refusal = ListRefusal(kind); !refusal.empty()) return {nullptr, refusal};
    const std::int16_t id = FreeId(kind);
    if (id == kNoId) return {nullptr, NoFreeIdMessage(kind)};
    CustrackEntry entry = Blank(kind, id);
    const std::string word = kind == EntryKind::Tray ? "Tray " : "Rack ";
    TextOf(entry, kNameKey) = UniqueName(kind, word + IntText(id), false);
    using NewValues = std::span<const std::pair<std::string_view, int>>;
    for (const auto& [key, value] :
         kind == EntryKind::Tray ? NewValues(kNewTray) : NewValues(kNewRack))
        TextOf(entry, key) = IntText(value);
    return {&Append(std::move(entry)), {}};
}

EditResult CustrackEntries::Copy(const CustrackEntry& source) {
    if (std::string refusal = ListRefusal(source.kind); !refusal.empty()) return {nullptr, refusal};
    const std::int16_t id = FreeId(source.kind);
    if (id == kNoId) return {nullptr, NoFreeIdMessage(source.kind)};
    CustrackEntry entry = Blank(source.kind, id);
    entry.values = source.values;
    TextOf(entry, kNameKey) = UniqueName(source.kind, source.Name(), true);
    return {&Append(std::move(entry)), {}};
}

std::string CustrackEntries::NoFreeIdMessage(EntryKind kind) {
    return "No id is free: custom " + std::string(KindWord(kind)) + "s take the ids " +
           IntText(kFirstCustomId) + " to " + IntText(kLastCustomId) + ".";
}

std::string CustrackEntries::InUse(const CustrackEntry& entry) const {
    const std::string intro = Described(entry) + " is in use: ";
    if (entry.kind == EntryKind::Tray) {
        if (currentTray_ == entry.id) return intro + "[CURRENT] TRAY_ID holds it.";
        return {};
    }
    for (const auto& [key, rack] : currentRacks_) {
        if (rack == entry.id) return intro + "[CURRENT] " + key + " holds it.";
    }
    // A tray the damaged list hides may name the rack as a default rack.
    if (const std::string damage = IndexDamage(EntryKind::Tray); !damage.empty())
        return Described(entry) + " may be in use by a tray the damaged list hides: " + damage +
               ".";
    for (const CustrackEntry* tray : Listed(EntryKind::Tray)) {
        const auto positions = CustrackNumber(tray->Text("RACK_X_NUM")).value_or(0);
        for (int position = 1; position <= std::min<std::int32_t>(positions, kTrayPositions);
             ++position) {
            if (CustrackNumber(tray->Text(DefRackKey(position))) == entry.id)
                return intro + "[" + tray->Section() + "] " + DefRackKey(position) + " holds it.";
        }
    }
    return {};
}

std::string CustrackEntries::Delete(CustrackEntry& entry) {
    if (std::string refusal = ListRefusal(entry.kind); !refusal.empty()) return refusal;
    if (std::string refusal = InUse(entry); !refusal.empty()) return refusal;
    entry.deleted = true;
    return {};
}

const CustrackEntry* CustrackEntries::FirstFaultyEdit(std::string* message) const {
    for (const CustrackEntry& entry : entries_) {
        if (entry.deleted || !entry.touched) continue;
        if (const auto fault = CheckEntry(entry)) {
            if (message != nullptr)
                *message = Described(entry) + " does not load: " + DescribeFault(*fault) + ".";
            return &entry;
        }
    }
    return nullptr;
}

bool CustrackEntries::ListChanged(EntryKind kind) const {
    return std::any_of(entries_.begin(), entries_.end(), [kind](const CustrackEntry& entry) {
        return entry.kind == kind && entry.added != entry.deleted;
    });
}

bool CustrackEntries::SectionRemoved(const CustrackEntry& entry) const {
    return std::any_of(entries_.begin(), entries_.end(), [&entry](const CustrackEntry& other) {
        return other.deleted && !other.added && other.kind == entry.kind && other.id == entry.id;
    });
}

bool CustrackEntries::Write() const {
    CustrackPass pass;
    KeyChanges changes;
    for (const CustrackEntry& entry : entries_) {
        if (entry.deleted && !entry.added) AddRemovedKeys(entry, changes);
    }
    for (const CustrackEntry& entry : entries_) {
        if (!entry.deleted && entry.touched) AddEditedKeys(entry, SectionRemoved(entry), changes);
    }
    for (const EntryKind kind : {EntryKind::Tray, EntryKind::Rack}) {
        if (ListChanged(kind)) AddListKeys(kind, Listed(kind), changes);
    }
    // The audit log first: a change it cannot record is not made (the pass ends unchanged).
    if (!Recorded(changes)) return false;
    bool written = true;
    for (const CustrackEntry& entry : entries_) {
        if (entry.deleted && !entry.added)
            written = DeleteCustrackSection(entry.Section()) && written;
    }
    for (const KeyChange& change : changes) written = Made(change) && written;
    return pass.End() && written;
}

RackTrayState CustrackEntries::Tables() const {
    RackTrayState tables;
    for (const EntryKind kind : {EntryKind::Tray, EntryKind::Rack}) {
        for (const CustrackEntry* entry : Listed(kind)) {
            const auto slot = static_cast<std::size_t>(entry->id - kFirstCustomId);
            if (kind == EntryKind::Tray) {
                tables.CustomTrays[slot] = TrayOf(*entry);
            } else {
                tables.CustomRacks[slot] = RackOf(*entry);
            }
        }
    }
    return tables;
}

}  // namespace lumacfg
