// The legacy autosampler dialog "Fm_ASX": the port above the frame of rack positions, the
// buttons below. Positions the variant does not use are hidden, and the window shrinks to the
// ones shown.
#pragma once

#include "ui/autosampler/asx_dialog.h"
#include "ui/autosampler/qt/autosampler_window.h"

namespace lumacfg::ui {

class AsxWindow final : public AutosamplerWindow {
    Q_OBJECT

  public:
    explicit AsxWindow(AsxDialog& model, QWidget* parent = nullptr);
};

}  // namespace lumacfg::ui
