// Widgets the dialogs share: every control made the one way (named as the control, its
// caption's mnemonic marked), a label with its list on one row of a grid, and where Qt's own
// sizes do not fit a control: a box sized for a few characters (an octet, a mass), and a label
// for a path that may be longer than its room.
#pragma once

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <utility>

#include "ui/dialog/qt/dialog_binding.h"

namespace lumacfg::ui {

// A widget named as its control; `mnemonic` is the letter its caption marks (none when null);
// `args` go to the widget's constructor before its parent.
template <class Widget, class... Args>
Widget* Make(QWidget* parent, const QString& name, QChar mnemonic = {}, Args&&... args) {
    auto* widget = new Widget(std::forward<Args>(args)..., parent);
    widget->setObjectName(name);
    if (!mnemonic.isNull()) SetMnemonic(widget, mnemonic);
    return widget;
}

template <class Widget, class... Args>
Widget* Make(QWidget* parent, const char* name, QChar mnemonic = {}, Args&&... args) {
    return Make<Widget>(parent, QLatin1String(name), mnemonic, std::forward<Args>(args)...);
}

// Tab and Shift+Tab visit the window's named controls in the order they were built. Every window
// builds its controls in reading order: frame after frame, top to bottom and left to right within
// a row, the window's buttons last.
void TabInBuiltOrder(QWidget* window);

// A label and its drop-down list (as wide as its entries) on one row of `grid`; the label's
// mnemonic gives the list the focus. Returns the list.
QComboBox* ListRow(QGridLayout* grid, int row, QWidget* parent, const QString& label,
                   const QString& list, QChar mnemonic = {});

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
