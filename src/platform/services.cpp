#include "platform/services.h"

#include "platform/file_system.h"
#include "platform/posix/backends.h"

namespace lumacfg::platform {
namespace {

// One slot per service: the installed backend, created on first use.
template <typename Service>
struct Slot {
    std::unique_ptr<Service> service;
    std::unique_ptr<Service> (*make)();

    Service& Get() {
        if (!service) service = make();
        return *service;
    }
};

struct AllServices {
    Slot<ProfileService> profiles{nullptr, posix::MakeProfileService};
    Slot<Registry> registry{nullptr, posix::MakeRegistry};
    Slot<FileSystem> files{nullptr, posix::MakeFileSystem};
    Slot<Clock> clock{nullptr, posix::MakeClock};
    Slot<MessageBoxService> messages{nullptr, posix::MakeMessageBoxService};
    Slot<WindowService> windows{nullptr, posix::MakeWindowService};
    Slot<ProcessService> processes{nullptr, posix::MakeProcessService};
    Slot<InstanceLock> instance{nullptr, posix::MakeInstanceLock};
    Slot<LogonService> logon{nullptr, posix::MakeLogonService};
    Slot<SecurityLibrary> security{nullptr, posix::MakeSecurityLibrary};
    Slot<HelpViewer> help{nullptr, posix::MakeHelpViewer};
    Slot<AuditLog> audit{nullptr, posix::MakeAuditLog};
    FileFailures failures;
    AuditIdentity identity;
};

AllServices& All() {
    static AllServices services;
    return services;
}

}  // namespace

ProfileService& Profiles() {
    return All().profiles.Get();
}
Registry& TheRegistry() {
    return All().registry.Get();
}
FileSystem& Files() {
    return All().files.Get();
}
Clock& TheClock() {
    return All().clock.Get();
}
MessageBoxService& Messages() {
    return All().messages.Get();
}
WindowService& Windows() {
    return All().windows.Get();
}
ProcessService& Processes() {
    return All().processes.Get();
}
InstanceLock& Instance() {
    return All().instance.Get();
}
LogonService& Logon() {
    return All().logon.Get();
}
SecurityLibrary& Security() {
    return All().security.Get();
}
HelpViewer& Help() {
    return All().help.Get();
}
AuditLog& Audit() {
    return All().audit.Get();
}
AuditIdentity& Identity() {
    return All().identity;
}
FileFailures& Failures() {
    return All().failures;
}

void SetProfiles(std::unique_ptr<ProfileService> s) {
    All().profiles.service = std::move(s);
}
void SetRegistry(std::unique_ptr<Registry> s) {
    All().registry.service = std::move(s);
}
void SetFiles(std::unique_ptr<FileSystem> s) {
    All().files.service = std::move(s);
}
void SetClock(std::unique_ptr<Clock> s) {
    All().clock.service = std::move(s);
}
void SetMessages(std::unique_ptr<MessageBoxService> s) {
    All().messages.service = std::move(s);
}
void SetWindows(std::unique_ptr<WindowService> s) {
    All().windows.service = std::move(s);
}
void SetProcesses(std::unique_ptr<ProcessService> s) {
    All().processes.service = std::move(s);
}
void SetInstance(std::unique_ptr<InstanceLock> s) {
    All().instance.service = std::move(s);
}
void SetLogon(std::unique_ptr<LogonService> s) {
    All().logon.service = std::move(s);
}
void SetSecurity(std::unique_ptr<SecurityLibrary> s) {
    All().security.service = std::move(s);
}
void SetHelp(std::unique_ptr<HelpViewer> s) {
    All().help.service = std::move(s);
}

void SetAudit(std::unique_ptr<AuditLog> s) {
    All().audit.service = std::move(s);
}

void ResetServices() {
    All() = AllServices{};
    UseProgramDirectory({});
}

}  // namespace lumacfg::platform
