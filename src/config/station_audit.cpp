#include "config/station_audit.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "config/record_fields.h"

namespace lumacfg {
namespace {

constexpr std::array<std::string_view, 7> kWorkingState = {
    "ROOT_PATH", "ADDON_FLAGS", "AUTOMATE", "CAN_EDIT", "SAVE_REQ", "REG_DIRTY", "RESET_COM_PORT"};

ConfigRecord& Loaded() {
    static ConfigRecord loaded;
    return loaded;
}

// The record as the next start loads it back from what a save writes: the fields whose stored
// form is not the record's own put in that form (the inhibited masses: those above 1, first, in
// the order held; the window keeps them sorted with the empty entries first).
ConfigRecord AsStored(ConfigRecord record) {
    ParseInhibitMasses(InhibitMassesText(record), record);
    return record;
}

}  // namespace

void RememberStationAsLoaded(const ConfigRecord& record) {
    Loaded() = record;
}

const ConfigRecord& StationAsLoaded() {
    return Loaded();
}

std::vector<platform::AuditEvent> FieldChanges(const ConfigRecord& before,
                                               const ConfigRecord& after) {
    // The field lists point into records of their own; the old one is as start-up loaded it.
    ConfigRecord old = before, now = AsStored(after);
    const std::vector<RecordField> oldFields = RecordFields(old);
    const std::vector<RecordField> newFields = RecordFields(now);
    std::vector<platform::AuditEvent> events;
    for (std::size_t i = 0; i < oldFields.size(); ++i) {
        const std::string_view name = oldFields[i].name;
        if (std::find(kWorkingState.begin(), kWorkingState.end(), name) != kWorkingState.end())
            continue;
        std::string oldText = FieldText(oldFields[i].ref), newText = FieldText(newFields[i].ref);
        if (oldText == newText) continue;
        events.push_back({"field-changed",
                          {{"field", std::string(name)},
                           {"old", std::move(oldText)},
                           {"new", std::move(newText)}}});
    }
    return events;
}

}  // namespace lumacfg
