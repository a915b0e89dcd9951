// Stand-ins for the data system's closed libraries: the logon, the security audit library
// and the help viewers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lumacfg::platform {

class LogonService {
  public:
    virtual ~LogonService() = default;
    // Logs the user on for a program; 0 when the user is logged on, non-zero otherwise.
    // Leaves the user's group as "GroupName" of section "WSX,1" of the station profile.
    virtual int Logon(std::uintptr_t window, std::string_view programId) = 0;
};

// Each call is one record of the audit log; false when it could not be recorded (the failure
// is reported to Failures()).
class SecurityLibrary {
  public:
    virtual ~SecurityLibrary() = default;
    virtual bool SetConfigSecurity() = 0;
    virtual bool ResetConfigSecurity() = 0;
    virtual bool LogSecurityFlagChange(std::string_view text) = 0;
};

// Command numbers of the two help viewers.
namespace compiled_help {
inline constexpr std::uint32_t kDisplayTopic = 0;
inline constexpr std::uint32_t kDisplayToc = 1;
inline constexpr std::uint32_t kDisplayIndex = 2;
inline constexpr std::uint32_t kDisplaySearch = 3;
inline constexpr std::uint32_t kHelpContext = 15;
inline constexpr std::uint32_t kCloseAll = 18;
inline constexpr std::uint32_t kInitialize = 28;
inline constexpr std::uint32_t kUninitialize = 29;
}  // namespace compiled_help
namespace classic_help {
inline constexpr std::uint32_t kContext = 1;
inline constexpr std::uint32_t kQuit = 2;
inline constexpr std::uint32_t kIndex = 3;
inline constexpr std::uint32_t kSetContents = 5;
inline constexpr std::uint32_t kFinder = 11;
inline constexpr std::uint32_t kSetPopupPosition = 13;
}  // namespace classic_help

class HelpViewer {
  public:
    virtual ~HelpViewer() = default;
    // Compiled help (".chm"): returns the viewer's answer (the cookie for initialisation).
    virtual std::intptr_t CompiledHelp(std::uintptr_t window, std::string_view file,
                                       std::uint32_t command, std::intptr_t data) = 0;
    // Classic help (".hlp").
    virtual bool ClassicHelp(std::uintptr_t window, std::string_view file, std::uint32_t command,
                             std::intptr_t data) = 0;
};

}  // namespace lumacfg::platform
