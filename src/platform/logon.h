// Who is at the station: the system's own logon (service "lumacfg") checks a user name and a
// password, and the logged-on user's primary group is left where the group test reads it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace lumacfg::platform {

struct Authentication {
    bool accepted = false;
    std::string user;    // the name the system logged on (it may spell the name its own way)
    std::string reason;  // the system's words when not accepted
};

class Authenticator {
  public:
    virtual ~Authenticator() = default;
    // Asks the system whether the password is the user's and the user may use the program.
    // Blocks (a wrong password is answered after a delay): call it off the event loop. Each call
    // is independent of the others, so one may run on any thread.
    virtual Authentication Authenticate(const std::string& user, const std::string& password) = 0;
};

// The system's logon for the service "lumacfg".
std::unique_ptr<Authenticator> MakeAuthenticator();

// The name of the user who started the program.
std::string DesktopUser();

// The name of the user's primary group; "" when the system knows no such user.
std::string PrimaryGroupOf(std::string_view user);

// Leaves the logged-on user's group as "GroupName" of section "WSX,1" of the station profile.
void LeaveLoggedOnGroup(std::string_view group);

// LUMACFG_LOGON=session: the desktop user is logged on without being asked (for the demo).
bool SessionLogonChosen();

}  // namespace lumacfg::platform
