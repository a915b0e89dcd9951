// The desktop's message boxes show what the core asks for and answer with the button pressed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "app/gui/qt_message_boxes.h"

namespace lumacfg::gui {
namespace {

using platform::MessageAnswer;
using platform::MessageButtons;
using platform::MessageIcon;

TEST(QtMessageBoxesTest, TheBoxShowsTheRequestAndAnswersWithTheButtonPressed) {
    const struct {
        platform::MessageRequest request;
        QString text;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        QMessageBox::StandardButton defaultButton, press;
        MessageAnswer answer;
    } cases[] = {
        {{"Valid GPIB address.", "Error", MessageIcon::Exclamation, MessageButtons::Ok, 0},
         "Valid GPIB address.",
         QMessageBox::Warning,
         QMessageBox::Ok,
         QMessageBox::Ok,
         QMessageBox::Ok,
         MessageAnswer::Ok},
        {{"Caf\xE9 \x80?", "Error", MessageIcon::Question, MessageButtons::YesNoCancel, 2},
         QString::fromUtf8("Café €?"),
         QMessageBox::Question,
         QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
         QMessageBox::Cancel,
         QMessageBox::No,
         MessageAnswer::No},
        // A default button the box does not have: its first button.
        {{"Go on?", "Error", MessageIcon::None, MessageButtons::OkCancel, 5},
         "Go on?",
         QMessageBox::NoIcon,
         QMessageBox::Ok | QMessageBox::Cancel,
         QMessageBox::Ok,
         QMessageBox::Cancel,
         MessageAnswer::Cancel},
    };
    for (const auto& c : cases) {
        QMessageBox* seen = nullptr;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            seen = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (seen == nullptr) return;
            poll.stop();
            EXPECT_EQ(seen->text(), c.text);
            EXPECT_EQ(seen->windowTitle(), "Error");
            EXPECT_EQ(seen->icon(), c.icon);
            EXPECT_EQ(seen->standardButtons(), c.buttons);
            EXPECT_EQ(seen->defaultButton(), seen->button(c.defaultButton));
            seen->button(c.press)->click();
        });
        poll.start(5);
        EXPECT_EQ(QtMessageBoxes().Show(c.request), c.answer);
        EXPECT_NE(seen, nullptr);
    }
}

}  // namespace
}  // namespace lumacfg::gui
