// "custrack.ini": the site's trays and racks and the tray selection. Properties: the tables
// hold only well-formed slots; a loaded selection names a tray id and fills its
// positions from the first; every fit is decided; names lead back to their ids; a selection
// saved reads back as saved, and the save changes no section but the selection's; a save
// refused says why and changes nothing.
//
// Input: the file's bytes.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/text.h"
#include "fuzz_support.h"
#include "platform/posix/profile_document.h"
#include "platform/services.h"
#include "racks/custom_racks.h"
#include "racks/rack_fit.h"

namespace lumacfg::fuzz {
namespace {

namespace fs = std::filesystem;

const fs::path& ProgramDir() {
    static const fs::path dir = WorkDirectory("custrack");
    return dir;
}

fs::path CustrackFile() {
    return ProgramDir() / kCustrackFile;
}

std::string FileBytes() {
    std::ifstream in(CustrackFile(), std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

template <typename Def>
void RequireWellFormed(const std::array<Def, kCustomSlots>& slots) {
    for (std::size_t slot = 0; slot < kCustomSlots; ++slot) {
        const Def& def = slots[slot];
        if (def.id == kNoId) continue;
        Require(def.id == kFirstCustomId + static_cast<int>(slot), "a slot holds its own id");
        Require(!def.name.empty() && def.name.size() <= 15, "a name has 1 to 15 characters");
    }
}

// An id found by its name, where no other slot has that name.
template <typename Def, typename Lookup>
void RequireNamesLeadBack(const std::array<Def, kCustomSlots>& slots, Lookup idOf) {
    for (const Def& def : slots) {
        if (def.id == kNoId) continue;
        const auto named = std::count_if(slots.begin(), slots.end(), [&](const Def& other) {
            return other.id != kNoId && AnsiEqualNoCase(other.name, def.name);
        });
        if (named == 1 && TrimSpaces(def.name) == def.name && !IsStandardTrayId(idOf(def.name)) &&
            !IsStandardRackId(idOf(def.name))) {
            Require(idOf(def.name) == def.id, "a name leads back to its id");
        }
    }
}

void RequireSelectionFormed(const RackTrayState& state, const TraySelection& selection) {
    const std::int16_t tray = selection.tray;
    // A custom tray may be named whose definition the tables skipped as faulty.
    Require(IsStandardTrayId(tray) || IsCustomId(tray), "a loaded selection names a tray id");
    const auto firstEmpty = std::find(selection.rack.begin(), selection.rack.end(), kNoId);
    Require(
        std::all_of(firstEmpty, selection.rack.end(), [](std::int16_t r) { return r == kNoId; }),
        "the racks fill the positions from the first");
    for (auto rack = selection.rack.begin(); rack != firstEmpty; ++rack)
        (void)FitOnTray(state, tray, *rack);
}

// Every section other than "[CURRENT]" reads the same in both texts, key by key (sections and
// keys as the profile document reads them).
void RequireOtherSectionsKept(std::string_view before, std::string_view after) {
    platform::posix::ScanProfile(before, [&](const platform::posix::ProfileLine& line) {
        const std::optional<std::string_view> key = line.Key();
        if (!key || AnsiEqualNoCase(line.section, "CURRENT")) return true;
        const auto was = platform::posix::LookUpProfileValue(before, line.section, *key);
        const auto is = platform::posix::LookUpProfileValue(after, line.section, *key);
        Require(was == is, "saving the selection changes no other section",
                "[" + std::string(line.section) + "] " + std::string(*key) + ": " +
                    was.value_or("(none)") + " -> " + is.value_or("(none)"));
        return true;
    });
}

// Saves the selection as the working one and loads the file again: the selection reads back,
// or, when the save was refused (and said why), the file is as it was.
void RequireSavedOrKept(const TraySelection& selection) {
    const std::string before = FileBytes();
    RackTrays().WorkingTray = selection;
    const bool saved = SaveCurrentTray();
    Require(saved == platform::Failures().Take().empty(), "a failed save says why");
    const TrayLoadResult reloaded = LoadCurrentTray();
    if (!saved) {
        Require(FileBytes() == before, "a refused save changes nothing");
        return;
    }
    Require(reloaded.loaded && RackTrays().CurrentTray == selection,
            "a saved selection reads back");
    RequireOtherSectionsKept(before, FileBytes());
}

void Run(std::string_view bytes) {
    std::ofstream(CustrackFile(), std::ios::binary | std::ios::trunc)
        .write(bytes.data(), bytes.size());
    platform::ResetServices();
    const TrayLoadResult loaded = LoadCurrentTray();
    const RackTrayState& state = RackTrays();
    RequireWellFormed(state.CustomTrays);
    RequireWellFormed(state.CustomRacks);
    RequireNamesLeadBack(state.CustomTrays, TrayIdFromName);
    RequireNamesLeadBack(state.CustomRacks, RackIdFromName);
    for (const CustomTrayDef& tray : state.CustomTrays) {
        for (const CustomRackDef& rack : state.CustomRacks)
            (void)FitOnTray(state, tray.id, rack.id);
    }
    // A value that is not a number cuts the tables short: it is reported, and nothing rests on
    // the selection until the file is repaired.
    if (!loaded.loaded || loaded.numberError) return;
    RequireSelectionFormed(state, state.CurrentTray);
    if (loaded.defaultInstead) return;

    RequireSavedOrKept(state.CurrentTray);
    TraySelection standard;
    SetDefaultTraySelection(standard);
    RequireSavedOrKept(standard);
}

}  // namespace
}  // namespace lumacfg::fuzz

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    ::setenv("LUMACFG_PROGRAM_DIR", lumacfg::fuzz::ProgramDir().c_str(), 1);
    std::atexit([] { std::filesystem::remove_all(lumacfg::fuzz::ProgramDir()); });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lumacfg::fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
