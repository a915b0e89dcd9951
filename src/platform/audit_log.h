// The audit log: who changed what at the station, when, one record per event, chained so that
// a record removed, changed or moved shows (base/audit_chain.h). Path: LUMACFG_AUDIT_LOG, else
// "lumacfg-audit.log" in the program directory.
#pragma once

#include <string>
#include <vector>

#include "base/json_line.h"

namespace lumacfg::platform {

// One event: its name ("field-changed", "security-flag-change", "logon" ...) and the members
// that follow it in the record ("field", "old", "new"; "text").
struct AuditEvent {
    std::string event;
    JsonMembers details;
};

class AuditLog {
  public:
    virtual ~AuditLog() = default;
    // Appends one record per event, in order, each with the time (UTC), the host, the user, the
    // program and the station before its event: under an exclusive lock on the log, in one
    // write at its end, synced to the disk before the lock is given up. False when the log
    // cannot be written (the failure is reported to Failures()); then nothing is appended.
    virtual bool Append(const std::vector<AuditEvent>& events) = 0;
};

// Who the records name: the program ("lumacfg", "lumacfg-cli") and the user. Until a logon
// names one, the user is the one who started the program.
struct AuditIdentity {
    std::string program = "lumacfg";
    std::string user;  // empty: the invoking user
};

// The audit log's path as the programs find it.
std::string AuditLogPath();

}  // namespace lumacfg::platform
