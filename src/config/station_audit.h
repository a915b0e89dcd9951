// What a save records in the audit log before it writes the station: each field of the record
// that differs from the station as start-up left it, with its old and new value as `show`
// prints them.
#pragma once

#include <vector>

#include "config/config_record.h"
#include "platform/audit_log.h"

namespace lumacfg {

// Remembers the record as the station holds it (start-up calls this once it is loaded).
void RememberStationAsLoaded(const ConfigRecord& record);
const ConfigRecord& StationAsLoaded();

// One "field-changed" event per stored field whose text, as the next start would load it from
// the files, differs, in the record's order; the working state of the program (ROOT_PATH,
// ADDON_FLAGS, AUTOMATE, CAN_EDIT, SAVE_REQ, REG_DIRTY, RESET_COM_PORT) is not the station's and
// is left out.
std::vector<platform::AuditEvent> FieldChanges(const ConfigRecord& before,
                                               const ConfigRecord& after);

}  // namespace lumacfg
