#include "app/gui/window_logon.h"

#include <iostream>

#include "platform/logon.h"
#include "ui/logon/logon_dialog.h"
#include "ui/logon/qt/logon_window.h"

namespace lumacfg::gui {

int WindowLogon::Logon(std::uintptr_t, std::string_view) {
    const std::unique_ptr<platform::Authenticator> authenticator = platform::MakeAuthenticator();
    ui::LogonDialog model(platform::DesktopUser(), *authenticator);
    ui::LogonWindow window(model);
    window.exec();
    if (model.End() == ui::DialogEnd::Accepted) return 0;
    std::cerr << "lumacfg: " << model.Reason() << '\n';
    return 1;
}

}  // namespace lumacfg::gui
