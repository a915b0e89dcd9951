// The logon window "LogOn". OK's name and password go to the system's logon on a thread of
// their own, so the window keeps repainting while the logon answers (a wrong password is
// answered after a delay); meanwhile every control is greyed and the window cannot be closed.
#pragma once

#include <QDialog>

#include "ui/logon/logon_dialog.h"

namespace lumacfg::ui {

class DialogBinder;

class LogonWindow final : public QDialog {
    Q_OBJECT

  public:
    explicit LogonWindow(LogonDialog& model, QWidget* parent = nullptr);

    DialogBinder& Binder() { return *binder_; }
    // Escape and the frame's close button are Cancel, except while the logon answers.
    void reject() override;

  signals:
    // The logon answered an attempt (the window shows the answer).
    void Answered();

  private:
    void AuthenticateWaitingAttempt();

    LogonDialog& model_;
    DialogBinder* binder_ = nullptr;
};

}  // namespace lumacfg::ui
