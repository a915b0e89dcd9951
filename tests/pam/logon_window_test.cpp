// The logon window against the system's logon library (PAM, answered by pam_wrapper's
// pam_matrix from a file of names and passwords): what each way through the window ends with,
// what it leaves as the group, and what it records in the audit log. The answer comes off the
// event loop: right after OK the window is greyed and still waiting.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <string>
#include <vector>

#include "base/audit_chain.h"
#include "platform/logon.h"
#include "platform/services.h"
#include "support/temp_station.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/logon/qt/logon_window.h"

namespace lumacfg::ui {
namespace {

using support::ReadBytes;
using support::WriteBytes;

constexpr const char* kCancel = "(Cancel)";

struct Way {
    const char* what;
    std::string user;                    // typed over the desktop user's name; "" keeps it
    std::vector<std::string> passwords;  // typed before each OK; kCancel clicks Cancel
    DialogEnd end;
    std::vector<std::string> events;  // recorded in the audit log, in order
};

class LogonWindowTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        // The desktop user may use the program; "stranger" is known, but not to this service.
        WriteBytes(std::string(::getenv("PAM_WRAPPER_SERVICE_DIR")) + "/passdb",
                   desktopUser_ + ":secret:lumacfg\nstranger:secret:otherservice\n");
    }

    std::vector<std::string> AuditEvents() const {
        std::vector<std::string> events;
        const std::string log = ReadBytes(root_ / "audit.log").value_or("");
        EXPECT_EQ(CheckChain(log).brokenLine, 0);
        for (const JsonMembers& record : AuditRecords(log)) {
            events.push_back(*MemberValue(record, "event") + " " + *MemberValue(record, "name"));
        }
        return events;
    }

    std::string desktopUser_ = platform::DesktopUser();
};

TEST_F(LogonWindowTest, EachWayThroughTheWindowEndsAndIsRecorded) {
    const std::string me = desktopUser_;
    const Way ways[] = {
        {"right password", "", {"secret"}, DialogEnd::Accepted, {"logon " + me}},
        {"wrong, then right",
         "",
         {"guess", "secret"},
         DialogEnd::Accepted,
         {"logon-failed " + me, "logon " + me}},
        {"three wrong",
         "",
         {"a", "b", "c"},
         DialogEnd::Cancelled,
         {"logon-failed " + me, "logon-failed " + me, "logon-failed " + me}},
        {"Cancel first", "", {kCancel}, DialogEnd::Cancelled, {"logon-cancelled " + me}},
        {"wrong, then Cancel",
         "",
         {"a", kCancel},
         DialogEnd::Cancelled,
         {"logon-failed " + me, "logon-cancelled " + me}},
        {"unknown user",
         "nobody-at-all",
         {"secret", kCancel},
         DialogEnd::Cancelled,
         {"logon-failed nobody-at-all", "logon-cancelled nobody-at-all"}},
        {"not allowed this service",
         "stranger",
         {"secret", kCancel},
         DialogEnd::Cancelled,
         {"logon-failed stranger", "logon-cancelled stranger"}},
    };
    for (const Way& way : ways) {
        std::filesystem::remove(root_ / "audit.log");
        std::filesystem::remove(StationProfile());
        platform::Identity().user.clear();
        const std::unique_ptr<platform::Authenticator> authenticator =
            platform::MakeAuthenticator();
        LogonDialog model(desktopUser_, *authenticator);
        LogonWindow window(model);
        window.show();
        QSignalSpy answered(&window, &LogonWindow::Answered);
        if (!way.user.empty()) window.Binder().SetText("Ed_User", QString::fromStdString(way.user));
        for (const std::string& password : way.passwords) {
            if (password == kCancel) {
                window.Binder().Click("Cd_Cancel");
                break;
            }
            window.Binder().SetText("Ed_Password", QString::fromStdString(password));
            window.Binder().Click("Cd_OK");
            // Off the event loop: the answer is not in yet, and nothing can be clicked.
            EXPECT_FALSE(window.Binder().Widget("Cd_OK")->isEnabled()) << way.what;
            EXPECT_FALSE(window.Binder().Widget("Cd_Cancel")->isEnabled()) << way.what;
            ASSERT_TRUE(answered.wait(10000)) << way.what;
        }
        EXPECT_EQ(model.End(), way.end) << way.what;
        EXPECT_EQ(window.isVisible(), way.end == DialogEnd::Open) << way.what;
        EXPECT_EQ(AuditEvents(), way.events) << way.what;
        const bool loggedOn = way.end == DialogEnd::Accepted;
        EXPECT_EQ(
            StationText().find("GroupName=" + platform::PrimaryGroupOf(me)) != std::string::npos,
            loggedOn)
            << way.what;
        EXPECT_EQ(platform::Identity().user, loggedOn ? me : "") << way.what;
        EXPECT_EQ(model.Reason().empty(), loggedOn) << way.what;
    }
}

// With LUMACFG_SCREENSHOT_DIR set, the window is saved there as FILE (scripts/screenshots.sh).
void SavePicture(QWidget& window, const char* file) {
    const char* directory = ::getenv("LUMACFG_SCREENSHOT_DIR");
    if (directory == nullptr) return;
    QApplication::processEvents();
    EXPECT_TRUE(window.grab().save(QString::fromLocal8Bit(directory) + "/" + file, "PNG"));
}

TEST_F(LogonWindowTest, AWrongPasswordSaysSoAndLetsTheUserTryAgain) {
    const std::unique_ptr<platform::Authenticator> authenticator = platform::MakeAuthenticator();
    LogonDialog model(desktopUser_, *authenticator);
    LogonWindow window(model);
    window.show();
    EXPECT_EQ(window.windowTitle(), "ICP-MS Configuration");
    auto* user = static_cast<QLineEdit*>(window.Binder().Widget("Ed_User"));
    auto* password = static_cast<QLineEdit*>(window.Binder().Widget("Ed_Password"));
    EXPECT_EQ(user->text().toStdString(), desktopUser_);
    EXPECT_EQ(password->echoMode(), QLineEdit::Password);
    EXPECT_EQ(window.focusWidget(), password);
    SavePicture(window, "logon.png");
    QSignalSpy answered(&window, &LogonWindow::Answered);
    window.Binder().SetText("Ed_Password", "guess");
    window.Binder().Click("Cd_OK");
    ASSERT_TRUE(answered.wait(10000));
    const QString message = window.findChild<QWidget*>("Lbl_Message")->property("text").toString();
    EXPECT_TRUE(message.startsWith("The user name or password is wrong")) << message.toStdString();
    EXPECT_TRUE(message.endsWith("Tries left: 2.")) << message.toStdString();
    EXPECT_TRUE(password->text().isEmpty());
    EXPECT_TRUE(window.Binder().Widget("Cd_OK")->isEnabled());
    SavePicture(window, "logon-wrong-password.png");
    window.Binder().SetText("Ed_User", "");
    EXPECT_FALSE(window.Binder().Widget("Cd_OK")->isEnabled());  // no name, nothing to check
}

// Refuses every logon with the system's reason as recorded, in the locale's encoding.
class RecordedRefusal final : public platform::Authenticator {
  public:
    explicit RecordedRefusal(std::string reason) : reason_(std::move(reason)) {}
    platform::Authentication Authenticate(const std::string&, const std::string&) override {
        return {.accepted = false, .user = {}, .reason = reason_};
    }

  private:
    std::string reason_;
};

TEST_F(LogonWindowTest, TheSystemsReasonIsShownInItsOwnCharacters) {
    const struct {
        const char* reason;  // UTF-8, as the system logon writes it
    } cases[] = {{"認証エラー"}, {"Authentifizierungsfehler: Passwort ungültig"}, {"Failure"}};
    for (const auto& c : cases) {
        RecordedRefusal authenticator(c.reason);
        LogonDialog model(desktopUser_, authenticator);
        LogonWindow window(model);
        QSignalSpy answered(&window, &LogonWindow::Answered);
        window.Binder().SetText("Ed_Password", "guess");
        window.Binder().Click("Cd_OK");
        ASSERT_TRUE(answered.wait(10000));
        EXPECT_EQ(window.findChild<QWidget*>("Lbl_Message")->property("text").toString(),
                  QString::fromUtf8("The user name or password is wrong (%1). Tries left: 2.")
                      .arg(QString::fromUtf8(c.reason)));
    }
}

}  // namespace
}  // namespace lumacfg::ui
