// Widgets the dialogs share where Qt's own sizes do not fit a control: a box sized for a few
// characters (an octet, a mass), and a label for a path that may be longer than its room.
#pragma once

#include <QLabel>
#include <QLineEdit>

namespace lumacfg::ui {

// A text box as wide as `characters` digits of its font, frame and margins included.
class NarrowBox final : public QLineEdit {
  public:
    explicit NarrowBox(int characters, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  private:
    int characters_;
};

// A label that shows a path in the room it has: a path too long loses characters in its
// middle ("/srv/…/folder"), and the whole path is its tool tip.
class PathLabel final : public QLabel {
  public:
    explicit PathLabel(QWidget* parent = nullptr);
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

}  // namespace lumacfg::ui
