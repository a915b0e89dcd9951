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

}  // namespace

void RememberStationAsLoaded(const ConfigRecord& record) {
    Loaded() = record;
}

const ConfigRecord& StationAsLoaded() {
    return Loaded();
}

std::vector<platform::AuditEvent> FieldChanges(const ConfigRecord& before,
                                               const ConfigRecord& after) {
    ConfigRecord old = before, now = after;  // the field list points into a record it may change
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
