// The V-AS autosampler dialog "Fm_VAS": port and sample tray, the frame of the three depth boxes
// with their units, the ESC mode, the buttons.
#pragma once

#include "ui/autosampler/qt/autosampler_window.h"
#include "ui/autosampler/vas_dialog.h"

namespace lumacfg::ui {

class VasWindow final : public AutosamplerWindow {
    Q_OBJECT

  public:
    explicit VasWindow(VasDialog& model, QWidget* parent = nullptr);
};

}  // namespace lumacfg::ui
