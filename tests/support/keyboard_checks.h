// What a keyboard user meets in a window: the controls that Tab and Shift+Tab visit in turn, the
// controls that the focus can reach at all, and the mnemonic letters the displayed captions mark
// (read from the texts as shown, so the check holds for any language).
#pragma once

#include <algorithm>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMap>
#include <QRadioButton>
#include <QStringList>
#include <QTest>
#include <QWidget>

namespace lumacfg::support {

// The window's own named widgets (not those of a window opened over it, nor Qt's inner ones).
inline QList<QWidget*> NamedWidgetsOf(const QWidget* window) {
    QList<QWidget*> named;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const QString name = widget->objectName();
        if (widget->window() == window && !name.isEmpty() && !name.startsWith(QLatin1String("qt_")))
            named << widget;
    }
    return named;
}

// An option button not chosen while another of its group is: Tab reaches the chosen one of a
// group, the arrow keys the others.
inline bool ReachedByArrows(const QWidget* widget) {
    const auto* option = qobject_cast<const QRadioButton*>(widget);
    if (option == nullptr || !option->autoExclusive() || option->isChecked()) return false;
    const auto group =
        option->parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
    return std::ranges::any_of(group, [](const QRadioButton* other) {
        return other->autoExclusive() && other->isChecked();
    });
}

// The named controls that Tab may reach now: shown, enabled, taking the focus by Tab, and not
// left to the arrow keys.
inline QStringList FocusableControls(const QWidget* window) {
    QStringList names;
    for (const QWidget* widget : NamedWidgetsOf(window)) {
        if (widget->isVisibleTo(window) && widget->isEnabled() &&
            (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !ReachedByArrows(widget)) {
            names << widget->objectName();
        }
    }
    return names;
}

// The controls the focus visits from `start` (first in the list) as Tab, or Shift+Tab when
// `backward`, is pressed until the focus is back at `start`; at most `limit` presses.
inline QStringList TabCycle(QWidget* start, bool backward, int limit = 100) {
    start->setFocus(Qt::OtherFocusReason);
    QStringList visited{start->objectName()};
    for (int i = 0; i < limit; ++i) {
        QWidget* focus = QApplication::focusWidget();
        if (focus == nullptr) break;
        if (backward) {
            QTest::keyClick(focus, Qt::Key_Backtab, Qt::ShiftModifier);
        } else {
            QTest::keyClick(focus, Qt::Key_Tab);
        }
        focus = QApplication::focusWidget();
        if (focus == start || focus == nullptr) break;
        visited << focus->objectName();
    }
    return visited;
}

// The letter a displayed text marks as its mnemonic ("&&" shows an "&"), case-folded; none when
// the text marks no letter.
inline QChar MarkedLetter(const QString& text) {
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != QLatin1Char('&')) continue;
        if (text[i + 1] != QLatin1Char('&')) return text[i + 1].toCaseFolded();
        ++i;
    }
    return {};
}

// The text a widget shows with its mnemonic marker: a button's or a frame's caption, a label's
// when it has a buddy to give the focus to (without one, a label shows no mnemonic).
inline QString MarkedText(const QWidget* widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) return frame->title();
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->buddy() != nullptr ? label->text() : QString();
    return {};
}

// The mnemonic letters that more than one shown widget of the window marks, each with the names
// of the widgets marking it; empty when every mnemonic is unique.
inline QMap<QChar, QStringList> MnemonicClashes(const QWidget* window) {
    QMap<QChar, QStringList> marking;
    for (const QWidget* widget : NamedWidgetsOf(window)) {
        const QChar letter =
            widget->isVisibleTo(window) ? MarkedLetter(MarkedText(widget)) : QChar();
        if (!letter.isNull()) marking[letter] << widget->objectName();
    }
    for (auto letter = marking.begin(); letter != marking.end();) {
        letter = letter->size() > 1 ? std::next(letter) : marking.erase(letter);
    }
    return marking;
}

}  // namespace lumacfg::support
