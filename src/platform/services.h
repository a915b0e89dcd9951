// The platform services of the running program. Each one is created on first use with the
// backend of this platform; tests replace any of them with their own.
#pragma once

#include <memory>

#include "platform/audit_log.h"
#include "platform/clock.h"
#include "platform/closed_libraries.h"
#include "platform/file_failures.h"
#include "platform/file_system.h"
#include "platform/message_box.h"
#include "platform/processes.h"
#include "platform/profile_service.h"
#include "platform/registry.h"
#include "platform/windows.h"

namespace lumacfg::platform {

ProfileService& Profiles();
Registry& TheRegistry();
FileSystem& Files();
Clock& TheClock();
MessageBoxService& Messages();
WindowService& Windows();
ProcessService& Processes();
InstanceLock& Instance();
LogonService& Logon();
SecurityLibrary& Security();
HelpViewer& Help();
AuditLog& Audit();
// Who the audit log's records name (the front end sets the program, a logon the user).
AuditIdentity& Identity();
// The file failures reported since the front end last took them.
FileFailures& Failures();

// Replace a service (tests, or the windowed program installing its message boxes).
// Passing nullptr restores the platform's own backend on next use.
void SetProfiles(std::unique_ptr<ProfileService> service);
void SetRegistry(std::unique_ptr<Registry> service);
void SetFiles(std::unique_ptr<FileSystem> service);
void SetClock(std::unique_ptr<Clock> service);
void SetMessages(std::unique_ptr<MessageBoxService> service);
void SetWindows(std::unique_ptr<WindowService> service);
void SetProcesses(std::unique_ptr<ProcessService> service);
void SetInstance(std::unique_ptr<InstanceLock> service);
void SetLogon(std::unique_ptr<LogonService> service);
void SetSecurity(std::unique_ptr<SecurityLibrary> service);
void SetHelp(std::unique_ptr<HelpViewer> service);
void SetAudit(std::unique_ptr<AuditLog> service);

// Restores every service to the platform's own backend, forgets the failures reported, the
// audit identity and the program directory the station lookup chose.
void ResetServices();

}  // namespace lumacfg::platform
