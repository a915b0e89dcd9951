// The desktop-session stand-ins: local time, message boxes without a window, the logon and
// the security audit library.
#include <grp.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>

#include "platform/logon.h"
#include "platform/posix/atomic_file.h"
#include "platform/posix/backends.h"
#include "platform/services.h"

namespace lumacfg::platform::posix {
namespace {

class LocalClock final : public Clock {
  public:
    LocalTime Now() override {
        std::time_t now = std::time(nullptr);
        std::tm local{};
        localtime_r(&now, &local);
        return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                local.tm_hour,        local.tm_min,     local.tm_sec};
    }
};

// Without a window the message is written to the standard error and answered with the
// default button, as a user pressing Enter would.
class ConsoleMessages final : public MessageBoxService {
  public:
    MessageAnswer Show(const MessageRequest& request) override {
        std::cerr << request.text << '\n';
        return DefaultAnswer(request);
    }
};

std::string PrimaryGroupName() {
    if (const group* g = ::getgrgid(::getgid())) return g->gr_name;
    return {};
}

// The desktop session's user is logged on without being asked, recorded in the audit log as a
// "logon" of the session; the user's primary group is left in the station profile as
// "GroupName", where the group test reads it. A logon that cannot be recorded logs nobody on.
class SessionLogon final : public LogonService {
  public:
    int Logon(std::uintptr_t, std::string_view) override {
        if (!Audit().Append({{"logon", {{"name", DesktopUser()}, {"method", "session"}}}})) {
            for (const FileFailure& failure : Failures().Take()) {
                std::cerr << Identity().program << ": " << Describe(failure) << '\n';
            }
            return 1;
        }
        LeaveLoggedOnGroup(PrimaryGroupName());
        return 0;
    }
};

// Each call of the security library is one event of the audit log, written to the log at once
// (not through Audit(), which a command may be holding back).
class AuditedSecurity final : public SecurityLibrary {
  public:
    bool SetConfigSecurity() override { return log_->Append({{"security-on", {}}}); }
    bool ResetConfigSecurity() override { return log_->Append({{"security-off", {}}}); }
    bool LogSecurityFlagChange(std::string_view text) override {
        return log_->Append({{"security-flag-change", {{"text", std::string(text)}}}});
    }

  private:
    std::unique_ptr<AuditLog> log_ = MakeAuditLog();
};

}  // namespace

std::unique_ptr<Clock> MakeClock() {
    return std::make_unique<LocalClock>();
}
std::unique_ptr<MessageBoxService> MakeMessageBoxService() {
    return std::make_unique<ConsoleMessages>();
}
std::unique_ptr<LogonService> MakeLogonService() {
    return std::make_unique<SessionLogon>();
}
std::unique_ptr<SecurityLibrary> MakeSecurityLibrary() {
    return std::make_unique<AuditedSecurity>();
}

}  // namespace lumacfg::platform::posix
