// The site's custom trays and racks as an editor changes them: the entries that "[INDEX]" of
// custrack.ini lists, each with the text of every key the loader reads, and the edits made to
// them (values, new entries, copies, deletions). Values are checked by the loader's own key
// tables, so an entry that passes here is one the loader accepts. Nothing reaches the file
// until Write, which writes it once: the sections of the entries that changed and the lists of
// "[INDEX]", every other byte as it stands. The window's editors and `lumacfg-cli custrack`
// both edit through this model.
#pragma once

#include <cstdint>
#include <limits>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "racks/custom_racks.h"

namespace lumacfg {

enum class EntryKind { Tray, Rack };

// One key of an entry and its text; "" where the file holds none (the loader's default).
struct EntryValue {
    std::string key;
    std::string text;
};

// Where an entry fails to load: the first key the loader refuses, what it holds, and what the
// loader accepts there.
struct EntryFault {
    std::string key;
    std::string text;
    std::string accepted;
};

// "VIAL_X_NUM=\"abc\" (accepted: 1..999)".
std::string DescribeFault(const EntryFault& fault);

// The accepted range of a numeric key, as the loader checks it.
struct KeyRange {
    std::int32_t low;
    std::int32_t high;
};

struct CustrackEntry {
    EntryKind kind = EntryKind::Rack;
    std::int16_t id = kNoId;
    std::vector<EntryValue> values;  // every key of EntryKeys(kind), in that order
    bool touched = false;            // edited (or new): its section is compared and written
    bool added = false;              // not in the file yet
    bool deleted = false;
    // Its place in the list: the "<i>" of "Rack<i>_ID" that names it; kAfterTheList when new.
    std::int32_t slot = kAfterTheList;

    static constexpr std::int32_t kAfterTheList = std::numeric_limits<std::int32_t>::max();

    std::string Section() const;  // "TRAY_1000", "RACK_1003"
    const std::string& Text(std::string_view key) const;
    const std::string& Name() const;
};

// The keys an editor shows for an entry, in the order the loader reads them: "ID_STR", then the
// numbers (a tray's "DEFRACK1".."DEFRACK9" after its rack-position geometry).
const std::vector<std::string>& EntryKeys(EntryKind kind);
// The range the loader accepts for a numeric key; nullopt for "ID_STR" and unknown keys.
std::optional<KeyRange> RangeOfKey(EntryKind kind, std::string_view key);
// What the loader accepts for a key, as the editors show it: "1..999", "any number but 32767",
// "1 to 15 characters", "a rack" (a tray's default racks).
std::string AcceptedText(EntryKind kind, std::string_view key);
// "TRAY_" or "RACK_", and "tray"/"rack" as the messages say it.
std::string_view SectionPrefix(EntryKind kind);
std::string_view KindWord(EntryKind kind);

// The first fault of an entry's values as the loader would meet it; nullopt when it loads.
std::optional<EntryFault> CheckEntry(const CustrackEntry& entry);
// The definitions the values stand for, as the loader reads them; a value that does not load
// reads as 0 (the picture shows what it can).
CustomTrayDef TrayOf(const CustrackEntry& entry);
CustomRackDef RackOf(const CustrackEntry& entry);

// A key of "[INDEX]" that does not name what the loader needs: a count that is not a number
// (or beyond what is read), or an id key within the count that is missing, not a number or
// outside 1000..1099. `slot` is the "<i>" of an id key, 0 for the count.
struct IndexFault {
    EntryKind kind = EntryKind::Rack;
    std::int32_t slot = 0;
    EntryFault fault;
};

// What an edit gave: the entry it made, or the message that refused it.
struct EditResult {
    CustrackEntry* entry = nullptr;
    std::string refusal;  // "" when the edit was made
};

class CustrackEntries {
  public:
    // Reads the lists of "[INDEX]" and the listed entries from custrack.ini; nullopt when the
    // file is there but cannot be read as a profile (reported to platform::Failures()).
    static std::optional<CustrackEntries> Read();

    // The entries of one kind that are listed and not deleted, in the order of the list.
    std::vector<CustrackEntry*> Listed(EntryKind kind);
    std::vector<const CustrackEntry*> Listed(EntryKind kind) const;
    // The listed entry of a section name ("rack_1003" too); nullptr when none.
    CustrackEntry* Find(std::string_view section);

    // The entry's verdict: "ok", its fault, or why the loader does not reach it (a faulty
    // entry or a damaged key of "[INDEX]" before it).
    std::string Verdict(const CustrackEntry& entry) const;

    // The damaged keys of the list of `kind` in "[INDEX]", in list order. An entry a damaged
    // key hides cannot be read, so a list with one is never rewritten: New, Copy and Delete of
    // its kind are refused (and Delete of a rack while the trays' list is damaged).
    std::vector<IndexFault> IndexFaults(EntryKind kind) const;
    // "[INDEX] Rack_Num=\"abc\" (accepted: ...)" for the first damaged key of the list; "" when
    // the list is whole.
    std::string IndexDamage(EntryKind kind) const;
    // Why the list of `kind` is not changed, naming its first damaged key; "" when it is whole.
    std::string ListRefusal(EntryKind kind) const;

    // Sets a key to a text as a box of the editor takes it: a number is read leniently and
    // rounded, then checked against its range (and a vial count against the product of both);
    // a name must be 1 to 15 characters and not another entry's name; a default rack must be
    // none (0), a standard rack or a listed custom rack. Returns the refusal, "" when taken; a
    // taken value is stored as it is cleaned ("12.4" as "12").
    std::string SetValue(CustrackEntry& entry, std::string_view key, std::string_view text);

    // A new entry at the end of its list: the lowest free id of 1000..1099 and values that load.
    EditResult New(EntryKind kind);
    // A new entry with the values of `source` and " (copy)" after its name.
    EditResult Copy(const CustrackEntry& source);
    // Deletes an entry unless it is in use ("[CURRENT]", or a tray's default racks); returns
    // the refusal, "" when deleted.
    std::string Delete(CustrackEntry& entry);

    // The first entry that was edited and does not load, with its message; nullptr when none.
    const CustrackEntry* FirstFaultyEdit(std::string* message) const;

    // Writes custrack.ini once: the deleted sections removed, the changed keys of the edited
    // entries, the lists of "[INDEX]" when entries were added or deleted. Before the file, each
    // changed key is recorded in the audit log as "field-changed" ("RACK_1005 VIAL_X_NUM", old
    // and new text; "" for a key created or removed). False, with nothing written, when the
    // audit log cannot record them; false when the file could not be written (both reported to
    // platform::Failures()).
    bool Write() const;

    // The custom tables as the entries stand now (every listed entry in its slot), for the
    // pictures.
    RackTrayState Tables() const;

  private:
    std::int16_t FreeId(EntryKind kind) const;
    // `base` cut to leave room for " (copy)" (when `copy`) and made unlike every other name.
    std::string UniqueName(EntryKind kind, std::string base, bool copy) const;
    static std::string NoFreeIdMessage(EntryKind kind);
    std::string NameRefusal(const CustrackEntry& entry, std::string_view name) const;
    std::string DefaultRackRefusal(std::string_view key, std::int32_t rack) const;
    std::string InUse(const CustrackEntry& entry) const;
    const IndexFault* FirstIndexFault(EntryKind kind) const;
    void ReadList(EntryKind kind);
    bool ListChanged(EntryKind kind) const;
    // Whether a write removes the section of `entry` (another entry of its id deleted).
    bool SectionRemoved(const CustrackEntry& entry) const;
    CustrackEntry& Append(CustrackEntry entry);

    std::list<CustrackEntry> entries_;     // in list order; addresses stay while entries are added
    std::vector<IndexFault> indexFaults_;  // of both lists, each in list order
    // "[CURRENT]": the fitted tray and the racks at its positions, as the file holds them.
    std::int32_t currentTray_ = kNoId;
    std::vector<std::pair<std::string, std::int32_t>> currentRacks_;  // key, rack id
};

}  // namespace lumacfg
