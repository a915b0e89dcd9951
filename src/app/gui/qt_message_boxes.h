// The desktop program's message boxes: every message of the core is shown as a modal Qt
// message box, over the window that is active, with the text, title, icon, buttons and default
// button the core asks for.
#pragma once

#include "platform/message_box.h"

namespace lumacfg::gui {

class QtMessageBoxes final : public platform::MessageBoxService {
  public:
    platform::MessageAnswer Show(const platform::MessageRequest& request) override;
};

}  // namespace lumacfg::gui
