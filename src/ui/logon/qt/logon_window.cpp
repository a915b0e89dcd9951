#include "ui/logon/qt/logon_window.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QThread>
#include <QVBoxLayout>
#include <memory>

#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/dialog_widgets.h"

namespace lumacfg::ui {
namespace {

QLabel* Label(const char* name, QChar mnemonic, QWidget* buddy, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setBuddy(buddy);
    SetMnemonic(label, mnemonic);
    return label;
}

}  // namespace

LogonWindow::LogonWindow(LogonDialog& model, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName(QStringLiteral("LogOn"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setModal(true);
    auto* user = new QLineEdit(this);
    user->setObjectName(QStringLiteral("Ed_User"));
    auto* password = new QLineEdit(this);
    password->setObjectName(QStringLiteral("Ed_Password"));
    password->setEchoMode(QLineEdit::Password);
    auto* message = new QLabel(this);
    message->setObjectName(QStringLiteral("Lbl_Message"));
    message->setWordWrap(true);
    message->setMinimumWidth(320);
    ShowSystemText(message);  // a refusal carries the system logon's reason
    // OK before Cancel on every desktop, as in every dialog of the data system, so Tab meets
    // them in the order they stand.
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* ok = new QPushButton(this);
    ok->setObjectName(QStringLiteral("Cd_OK"));
    ok->setDefault(true);
    buttons->addWidget(ok);
    auto* cancel = new QPushButton(this);
    cancel->setObjectName(QStringLiteral("Cd_Cancel"));
    buttons->addWidget(cancel);

    auto* form = new QFormLayout;
    form->addRow(Label("Lbl_User", u'U', user, this), user);
    form->addRow(Label("Lbl_Password", u'P', password, this), password);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(message);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
    TabInBuiltOrder(this);
    // The password box has the focus when the name is already there.
    (model_.State().at("Ed_User").text.empty() ? user : password)->setFocus();

    binder_ = new DialogBinder(model_, this);
    connect(binder_, &DialogBinder::Shown, this, &LogonWindow::AuthenticateWaitingAttempt);
    connect(binder_, &DialogBinder::Ended, this,
            [this](DialogEnd end) { done(end == DialogEnd::Accepted ? Accepted : Rejected); });
}

void LogonWindow::reject() {
    if (model_.End() != DialogEnd::Open) {
        QDialog::reject();
    } else {
        binder_->Click(QStringLiteral("Cd_Cancel"));  // greyed while the logon answers
    }
}

void LogonWindow::AuthenticateWaitingAttempt() {
    LogonDialog::Logon attempt = model_.TakeAttempt();
    if (!attempt) return;
    auto answer = std::make_shared<decltype(attempt())>();
    QThread* logon =
        QThread::create([attempt = std::move(attempt), answer] { *answer = attempt(); });
    connect(logon, &QThread::finished, this, [this, logon, answer] {
        logon->deleteLater();
        model_.Answer(*answer);
        binder_->Refresh();
        emit Answered();
        if (model_.End() != DialogEnd::Open) {
            done(model_.End() == DialogEnd::Accepted ? Accepted : Rejected);
        } else {
            findChild<QLineEdit*>(QStringLiteral("Ed_Password"))->setFocus();
        }
    });
    logon->start();
}

}  // namespace lumacfg::ui
