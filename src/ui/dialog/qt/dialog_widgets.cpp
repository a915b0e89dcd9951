#include "ui/dialog/qt/dialog_widgets.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <algorithm>

namespace lumacfg::ui {

void TabInBuiltOrder(QWidget* window) {
    // findChildren lists the widgets depth first, each after the widget that holds it, in the
    // order they were made.
    QWidget* previous = nullptr;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->objectName().isEmpty() || widget->focusPolicy() == Qt::NoFocus) continue;
        if (previous != nullptr) QWidget::setTabOrder(previous, widget);
        previous = widget;
    }
}

QComboBox* ListRow(QGridLayout* grid, int row, QWidget* parent, const QString& label,
                   const QString& list, QChar mnemonic) {
    auto* caption = Make<QLabel>(parent, label, mnemonic);
    auto* entries = Make<QComboBox>(parent, list);
    entries->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    caption->setBuddy(entries);
    grid->addWidget(caption, row, 0);
    grid->addWidget(entries, row, 1);
    return entries;
}

NarrowBox::NarrowBox(int characters, QWidget* parent)
    : QLineEdit(parent), characters_(characters) {}

QSize NarrowBox::sizeHint() const {
    ensurePolished();
    const QFontMetrics metrics = fontMetrics();
    const QMargins margins = textMargins() + contentsMargins();
    // QLineEdit's own inner margin of 2 pixels on each side, and room for the caret.
    const int width = metrics.horizontalAdvance(QString(characters_, QLatin1Char('0'))) + 4 + 2 +
                      margins.left() + margins.right();
    const int height = std::max(metrics.height(), 14) + 2 + margins.top() + margins.bottom();
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()->sizeFromContents(QStyle::CT_LineEdit, &option, QSize(width, height), this);
}

PathLabel::PathLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize PathLabel::minimumSizeHint() const {
    const QSize hint = QLabel::minimumSizeHint();
    return {fontMetrics().horizontalAdvance(QLatin1Char('M')) * 8, hint.height()};
}

void PathLabel::paintEvent(QPaintEvent* event) {
    (void)event;
    QPainter painter(this);
    drawFrame(&painter);
    const QRect room = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width());
    style()->drawItemText(&painter, room, static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}

bool PathLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (fontMetrics().horizontalAdvance(text()) > contentsRect().width()) {
            QToolTip::showText(help->globalPos(), text(), this);
        } else {
            QToolTip::hideText();
        }
        return true;
    }
    return QLabel::event(event);
}

}  // namespace lumacfg::ui
