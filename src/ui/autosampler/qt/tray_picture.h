// The tray seen from above, as the ASX500 dialog stands: the tray's outline and its rack
// positions from the tray's geometry, each position holding the chosen rack with its vial grid,
// and a position whose rack OK would refuse drawn in red with the reason. It shows the dialog's
// plan (Asx500Dialog::Plan), the verdicts OK itself reads; it decides nothing of its own.
// A standard tray has no geometry in custrack.ini: its positions are drawn side by side, each
// with the number of its rack.
#pragma once

#include <QWidget>

#include "ui/autosampler/asx500_dialog.h"

namespace lumacfg::ui {

class TrayPicture final : public QWidget {
    Q_OBJECT

  public:
    explicit TrayPicture(QWidget* parent = nullptr);

    void Show(TrayPlan plan);
    const TrayPlan& Plan() const { return plan_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    TrayPlan plan_;
};

}  // namespace lumacfg::ui
