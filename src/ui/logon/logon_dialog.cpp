#include "ui/logon/logon_dialog.h"

#include <utility>

#include "platform/services.h"

namespace lumacfg::ui {

LogonDialog::LogonDialog(std::string desktopUser, platform::Authenticator& authenticator)
    : authenticator_(authenticator) {
    controls_["LogOn"].text = "ICP-MS Configuration";
    controls_["Lbl_User"].text = "User name:";
    controls_["Lbl_Password"].text = "Password:";
    controls_["Ed_User"].text = std::move(desktopUser);
    controls_["Ed_Password"];
    controls_["Lbl_Message"];
    controls_["Cd_OK"].text = "OK";
    controls_["Cd_Cancel"].text = "Cancel";
    Show();
}

void LogonDialog::SetText(std::string_view control, std::string text) {
    if (control != "Ed_User" && control != "Ed_Password") return;
    controls_.find(control)->second.text = std::move(text);
    Show();
}

void LogonDialog::Click(std::string_view control) {
    if (answering_ || end_ != DialogEnd::Open) return;
    if (control == "Cd_OK" && controls_["Cd_OK"].enabled) {
        waiting_ = [&authenticator = authenticator_, user = controls_["Ed_User"].text,
                    password = controls_["Ed_Password"].text] {
            return authenticator.Authenticate(user, password);
        };
        answering_ = true;
        controls_["Lbl_Message"].text = "Checking the user name and password...";
    } else if (control == "Cd_Cancel") {
        reason_ = "the logon was cancelled";
        Record("logon-cancelled", controls_["Ed_User"].text);
        end_ = DialogEnd::Cancelled;
    }
    Show();
}

LogonDialog::Logon LogonDialog::TakeAttempt() {
    return std::exchange(waiting_, nullptr);
}

void LogonDialog::Answer(const platform::Authentication& answer) {
    answering_ = false;
    controls_["Ed_Password"].text.clear();
    if (answer.accepted) {
        platform::Identity().user = answer.user;  // the logon's own record names the user
        Record("logon", answer.user);
        if (end_ != DialogEnd::Open) {
            platform::Identity().user.clear();
        } else {
            platform::LeaveLoggedOnGroup(platform::PrimaryGroupOf(answer.user));
            end_ = DialogEnd::Accepted;
        }
    } else {
        Record("logon-failed", controls_["Ed_User"].text);
        if (--triesLeft_ == 0 && end_ == DialogEnd::Open) {
            reason_ = "the logon failed " + std::to_string(kTries) + " times";
            end_ = DialogEnd::Cancelled;
        }
        controls_["Lbl_Message"].text = "The user name or password is wrong (" + answer.reason +
                                        "). Tries left: " + std::to_string(triesLeft_) + ".";
    }
    Show();
}

// A logon that cannot be recorded does not log anyone on: the audit log names every logon.
void LogonDialog::Record(const std::string& event, const std::string& name) {
    if (platform::Audit().Append({{event, {{"name", name}}}})) return;
    reason_.clear();
    for (const platform::FileFailure& failure : platform::Failures().Take()) {
        reason_ += (reason_.empty() ? "" : "; ") + platform::Describe(failure);
    }
    end_ = DialogEnd::Cancelled;
}

void LogonDialog::Show() {
    const bool open = end_ == DialogEnd::Open && !answering_;
    controls_["Ed_User"].enabled = open;
    controls_["Ed_Password"].enabled = open;
    controls_["Cd_OK"].enabled = open && !controls_["Ed_User"].text.empty();
    controls_["Cd_Cancel"].enabled = open;
}

}  // namespace lumacfg::ui
