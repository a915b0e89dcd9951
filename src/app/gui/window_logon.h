// The logon of an interactive start with security on: the logon window, before the main
// window. Answers 0 once a user is logged on; otherwise non-zero, with the reason on the
// standard error.
#pragma once

#include "platform/closed_libraries.h"

namespace lumacfg::gui {

class WindowLogon final : public platform::LogonService {
  public:
    int Logon(std::uintptr_t window, std::string_view programId) override;
};

}  // namespace lumacfg::gui
