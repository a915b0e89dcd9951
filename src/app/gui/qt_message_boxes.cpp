#include "app/gui/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <vector>

#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/translation.h"

namespace lumacfg::gui {
namespace {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return QMessageBox::NoIcon;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

// The buttons from left to right, as the default button's index counts them.
std::vector<QMessageBox::StandardButton> ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok:
            return {QMessageBox::Ok};
        case MessageButtons::OkCancel:
            return {QMessageBox::Ok, QMessageBox::Cancel};
        case MessageButtons::YesNo:
            return {QMessageBox::Yes, QMessageBox::No};
        case MessageButtons::YesNoCancel:
            return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    }
    return {QMessageBox::Ok};
}

MessageAnswer AnswerOf(QMessageBox::StandardButton button, MessageButtons buttons) {
    switch (button) {
        case QMessageBox::Ok:
            return MessageAnswer::Ok;
        case QMessageBox::Yes:
            return MessageAnswer::Yes;
        case QMessageBox::No:
            return MessageAnswer::No;
        case QMessageBox::Cancel:
            return MessageAnswer::Cancel;
        default:
            break;
    }
    // Closed without a button (Esc where no button answers it): the box's own way out.
    if (buttons == MessageButtons::Ok) return MessageAnswer::Ok;
    if (buttons == MessageButtons::YesNo) return MessageAnswer::No;
    return MessageAnswer::Cancel;
}

}  // namespace

platform::MessageAnswer QtMessageBoxes::Show(const platform::MessageRequest& request) {
    // The core's English title and text, in the language shown.
    QMessageBox box(IconOf(request.icon), ui::Translated(ui::FromAnsi(request.title)),
                    ui::Translated(ui::FromAnsi(request.text)), QMessageBox::NoButton,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    const std::vector<QMessageBox::StandardButton> buttons = ButtonsOf(request.buttons);
    for (QMessageBox::StandardButton button : buttons) box.addButton(button);
    const std::size_t chosen =
        request.defaultButton >= 0 &&
                static_cast<std::size_t>(request.defaultButton) < buttons.size()
            ? static_cast<std::size_t>(request.defaultButton)
            : 0;
    box.setDefaultButton(buttons[chosen]);
    box.exec();
    return AnswerOf(box.standardButton(box.clickedButton()), request.buttons);
}

}  // namespace lumacfg::gui
