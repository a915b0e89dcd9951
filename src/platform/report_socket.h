// The local socket of the desktop session through which programs started beside the
// configuration program report back to its open main window. The window listens on it; any
// program sends one message per connection.
#pragma once

#include <string>
#include <string_view>

namespace lumacfg::platform {

// Where the window listens: "lumacfg-<user id>" in the session's runtime directory.
std::string ReportSocketPath();

enum class ReportDelivery {
    Delivered,   // the window took the message (it closed the connection after reading it)
    NoListener,  // no window listens
    Failed,      // a window listens, but the message could not be handed over
};

struct ReportSent {
    ReportDelivery delivery;
    std::string reason;  // the operating system's words, for NoListener and Failed
};

// Sends the bytes over one connection and waits until the window has read them.
ReportSent SendToReportSocket(std::string_view message);

}  // namespace lumacfg::platform
