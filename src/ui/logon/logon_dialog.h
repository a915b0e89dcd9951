// The logon window "LogOn": asks who is at the station before a station with security on may be
// configured. The user name box starts with the desktop user's name; OK hands the name and the
// password to the system's logon, which answers off the event loop while every control is
// greyed. A wrong password says so and lets the user try again, three tries in all. Each
// answer is an event of the audit log; a logon leaves the user's primary group where the group
// test reads it, and names the user in the audit log's later records.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/logon.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

class LogonDialog final : public DialogModel {
  public:
    static constexpr int kTries = 3;

    // The system's logon of one attempt: blocks until it answers, runs on any thread.
    using Logon = std::function<platform::Authentication()>;

    LogonDialog(std::string desktopUser, platform::Authenticator& authenticator);

    const Controls& State() const override { return controls_; }
    void SetText(std::string_view control, std::string text) override;
    void Click(std::string_view control) override;
    void Choose(std::string_view, int) override {}
    DialogEnd End() const override { return end_; }

    // The logon of the name and password that OK handed over, once: to be run off the event
    // loop, its answer given to Answer. Empty when no attempt waits.
    Logon TakeAttempt();
    void Answer(const platform::Authentication& answer);

    // Why the logon ended without a user (Cancel, the last try failed, the audit log).
    const std::string& Reason() const { return reason_; }

  private:
    void Record(const std::string& event, const std::string& name);
    void Show();

    platform::Authenticator& authenticator_;
    Controls controls_;
    Logon waiting_;
    bool answering_ = false;
    int triesLeft_ = kTries;
    std::string reason_;
    DialogEnd end_ = DialogEnd::Open;
};

}  // namespace lumacfg::ui
