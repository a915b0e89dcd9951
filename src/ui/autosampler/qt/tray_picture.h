// The tray seen from above, as the ASX500 dialog stands: the tray's outline and its rack
// positions from the tray's geometry, each position holding the chosen rack with its vial grid,
// and a position whose rack OK would refuse drawn in red with the reason. It shows the dialog's
// plan (Asx500Dialog::Plan), the verdicts OK itself reads; it decides nothing of its own.
// A standard tray has no geometry in custrack.ini: its positions are drawn side by side, each
// with the number of its rack.
//
// For a screen reader and the keyboard: the picture takes the focus, the arrow keys (and Home,
// End) move between the positions, and the position with the focus is framed, written under
// the tray's name and said: the accessible name is the position's rack and verdict, the
// accessible description the whole tray, position by position, each misfit with its reason.
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
    // The position with the keyboard's focus, counted from 0.
    std::size_t CurrentPosition() const { return current_; }

    // The caption over each position, its width and the width of its position, in pixels, at
    // the picture's present size. The picture asks for a size at which every caption fits; only
    // a smaller one shortens a caption ("…").
    struct Caption {
        QString text;
        int needed;
        int given;
    };
    std::vector<Caption> Captions() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void MoveTo(std::size_t position);
    void Describe();
    QString Reasons() const;
    int ReasonsHeight(int width) const;
    // Where the tray is drawn: under the tray's name and the position with the focus, over the
    // reasons.
    QRectF TrayRoom() const;
    static double Scale(const QRectF& room, const QRectF& tray);

    TrayPlan plan_;
    std::size_t current_ = 0;
};

}  // namespace lumacfg::ui
