// The POSIX backends of the platform services.
#pragma once

#include <memory>
#include <string>

#include "platform/audit_log.h"
#include "platform/clock.h"
#include "platform/closed_libraries.h"
#include "platform/file_system.h"
#include "platform/message_box.h"
#include "platform/processes.h"
#include "platform/profile_service.h"
#include "platform/registry.h"
#include "platform/windows.h"

namespace lumacfg::platform::posix {

std::unique_ptr<ProfileService> MakeProfileService();
std::unique_ptr<Registry> MakeRegistry();  // the ".reg" store named by LUMACFG_REGISTRY
std::unique_ptr<FileSystem> MakeFileSystem();
std::unique_ptr<Clock> MakeClock();
std::unique_ptr<MessageBoxService> MakeMessageBoxService();  // headless: prints to stderr
std::unique_ptr<WindowService> MakeWindowService();          // X11 when a display is there
std::unique_ptr<ProcessService> MakeProcessService();
std::unique_ptr<InstanceLock> MakeInstanceLock();
std::unique_ptr<LogonService> MakeLogonService();
std::unique_ptr<SecurityLibrary> MakeSecurityLibrary();
std::unique_ptr<HelpViewer> MakeHelpViewer();
std::unique_ptr<AuditLog> MakeAuditLog();  // the chained log at AuditLogPath()

// The directory of the user's session files (the single-instance lock, the report socket):
// LUMACFG_LOCK_DIR, else XDG_RUNTIME_DIR, else "/tmp".
std::string RuntimeDirectory();

}  // namespace lumacfg::platform::posix
