// The desktop's message boxes: what the core asks for is what the user sees (text, title,
// icon, buttons, default button), and the button pressed is the answer.
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

struct Seen {
    QString text, title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};

// Shows the request and, once the box is up, notes what it shows and presses `press`.
Seen ShowAndPress(const platform::MessageRequest& request, QMessageBox::StandardButton press,
                  MessageAnswer& answer) {
    Seen seen;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        poll.stop();
        seen = {box->text(), box->windowTitle(), box->icon(), box->standardButtons(),
                box->standardButton(box->defaultButton())};
        box->button(press)->click();
    });
    poll.start(5);
    answer = QtMessageBoxes().Show(request);
    return seen;
}

TEST(QtMessageBoxesTest, TheBoxShowsTheRequestAndAnswersWithTheButtonPressed) {
    const struct {
        platform::MessageRequest request;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        QMessageBox::StandardButton defaultButton, press;
        MessageAnswer answer;
    } cases[] = {
        {{"Valid GPIB address is an integral number from 0 to 29.", "Error",
          MessageIcon::Exclamation, MessageButtons::Ok, 0},
         QMessageBox::Warning,
         QMessageBox::Ok,
         QMessageBox::Ok,
         QMessageBox::Ok,
         MessageAnswer::Ok},
        {{"Please connect V-AS to OPAL COM1 Port.", "ICP-MS Configuration", MessageIcon::None,
          MessageButtons::Ok, 0},
         QMessageBox::NoIcon,
         QMessageBox::Ok,
         QMessageBox::Ok,
         QMessageBox::Ok,
         MessageAnswer::Ok},
        {{"Delete?", "t", MessageIcon::Question, MessageButtons::YesNo, 1},
         QMessageBox::Question,
         QMessageBox::Yes | QMessageBox::No,
         QMessageBox::No,
         QMessageBox::Yes,
         MessageAnswer::Yes},
        {{"Go on?", "t", MessageIcon::Information, MessageButtons::OkCancel, 0},
         QMessageBox::Information,
         QMessageBox::Ok | QMessageBox::Cancel,
         QMessageBox::Ok,
         QMessageBox::Cancel,
         MessageAnswer::Cancel},
        {{"Save?", "t", MessageIcon::Critical, MessageButtons::YesNoCancel, 2},
         QMessageBox::Critical,
         QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
         QMessageBox::Cancel,
         QMessageBox::No,
         MessageAnswer::No},
        // A default button the buttons do not have: the first one.
        {{"x", "t", MessageIcon::None, MessageButtons::YesNo, 5},
         QMessageBox::NoIcon,
         QMessageBox::Yes | QMessageBox::No,
         QMessageBox::Yes,
         QMessageBox::No,
         MessageAnswer::No},
        // Windows-1252 text: "Café", the euro sign.
        {{"Caf\xE9 \x80", "\x93t\x94", MessageIcon::None, MessageButtons::Ok, 0},
         QMessageBox::NoIcon,
         QMessageBox::Ok,
         QMessageBox::Ok,
         QMessageBox::Ok,
         MessageAnswer::Ok},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.request.text);
        MessageAnswer answer{};
        const Seen seen = ShowAndPress(c.request, c.press, answer);
        if (c.request.text.starts_with("Caf")) {
            EXPECT_EQ(seen.text, QString::fromUtf8("Café €"));
            EXPECT_EQ(seen.title, QString::fromUtf8("“t”"));
        } else {
            EXPECT_EQ(seen.text, QString::fromStdString(c.request.text));
            EXPECT_EQ(seen.title, QString::fromStdString(c.request.title));
        }
        EXPECT_EQ(seen.icon, c.icon);
        EXPECT_EQ(seen.buttons, c.buttons);
        EXPECT_EQ(seen.defaultButton, c.defaultButton);
        EXPECT_EQ(answer, c.answer);
    }
}

}  // namespace
}  // namespace lumacfg::gui
