// The QC mode and toolbar buttons of the main window, with the demo station's stand-ins: the
// report socket heard by lumacfg-cli notify, the whole QC and toolbar round trips (the wait
// window shown while the stand-in runs, its report received, the window updated), and a QC mode
// browsed for in the file selection.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QProcess>
#include <QSignalSpy>
#include <QTimer>
#include <deque>
#include <filesystem>
#include <string>

#include "app/gui/desktop_program.h"
#include "app/gui/report_listener.h"
#include "support/message_answers.h"
#include "support/scoped_env.h"
#include "support/temp_station.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/qt/main_window.h"
#include "ui/main/qt/wait_window.h"

namespace lumacfg::gui {
namespace {

namespace fs = std::filesystem;
using platform::MessageAnswer;

// lumacfg-cli notify run without blocking the event loop the listener needs.
int Notify(const QStringList& arguments) {
    QProcess cli;
    cli.start(QStringLiteral(LUMACFG_CLI_PATH), QStringList{QStringLiteral("notify")} + arguments);
    cli.waitForStarted();
    while (cli.state() != QProcess::NotRunning)
        QApplication::processEvents(QEventLoop::AllEvents, 20);
    return cli.exitStatus() == QProcess::NormalExit ? cli.exitCode() : -1;
}

class SiblingRoundTripTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        platform::SetMessages(std::make_unique<support::AnsweringMessages>(&messages_, &answers_));
        for (const char* mode : {"GENERAL.QCC", "ENVIRO.QCC"}) {
            support::WriteBytes(root_ / "1" / "QCMODE" / mode / "runtype.ini", "[Keywords]\r\n");
        }
        const fs::path demo = fs::path(LUMACFG_SOURCE_DIR) / "examples/demo-station/LUMAEXE";
        for (const char* program : {"LumaQcConfig.exe", "BARSET.EXE"}) {
            fs::copy_file(demo / program, ProgramDir() / program);
        }
    }
    void TearDown() override {
        QDir::setCurrent(cwd_);
        TempStation::TearDown();
    }

    // The window's run; `act` is what the user does once it is shown.
    void Run(const std::function<void(ui::MainWindow&)>& act) {
        DesktopOptions options;
        options.commandLineEmpty = false;
        EXPECT_EQ(RunDesktop(options,
                             [&](ui::MainWindow& window) {
                                 messages_.clear();
                                 act(window);
                                 window.close();
                             }),
                  kExitOk);
    }

    // Clicks the button and notes whether the wait window was shown while its program ran.
    bool ClickAndSeeTheWaitWindow(ui::MainWindow& window, const char* button) {
        bool waited = false;
        QTimer::singleShot(100, [&] {
            waited = qobject_cast<ui::WaitWindow*>(QApplication::activeModalWidget()) != nullptr;
        });
        window.Binder().Click(QLatin1String(button));
        return waited;
    }

    std::deque<MessageAnswer> answers_;
    QString cwd_ = QDir::currentPath();
    support::ScopedEnv cli_{"LUMACFG_CLI", LUMACFG_CLI_PATH};
    support::ScopedEnv quick_{"LUMACFG_STANDIN_SECONDS", "0.5"};
};

TEST_F(SiblingRoundTripTest, NotifyIsHeardByTheListeningWindowAndExits5WithoutOne) {
    EXPECT_EQ(Notify({QStringLiteral("TOOLBAR")}), 5);
    ReportListener listener;
    ASSERT_TRUE(listener.Listen()) << listener.Problem().toStdString();
    QSignalSpy reported(&listener, &ReportListener::Reported);
    EXPECT_EQ(Notify({QStringLiteral("QCFILE"), QStringLiteral("C:\\QC\\"),
                      QStringLiteral("ENVIRO.QCC")}),
              0);
    EXPECT_EQ(Notify({QStringLiteral("TOOLBAR")}), 0);
    ASSERT_EQ(reported.size(), 2);
    EXPECT_EQ(reported[0][0].value<SiblingReport>(),
              (SiblingReport{SiblingReport::Kind::QcFile, "C:\\QC\\", "ENVIRO.QCC"}));
    EXPECT_EQ(reported[1][0].value<SiblingReport>(), SiblingReport{});
    EXPECT_EQ(Notify({QStringLiteral("QCFILE"), QStringLiteral("only-a-folder")}), 2);
}

TEST_F(SiblingRoundTripTest, TheQcProgramsReportedModeIsTakenAfterTheWait) {
    Run([&](ui::MainWindow& window) {
        auto* label = window.findChild<QLabel*>(QStringLiteral("Lbl_QCFile"));
        ASSERT_EQ(label->text(), QStringLiteral("GENERAL.QCC"));
        answers_ = {MessageAnswer::Yes, MessageAnswer::Yes};  // go on; take the reported mode
        EXPECT_TRUE(ClickAndSeeTheWaitWindow(window, "Cd_QCCfg"));
        ASSERT_EQ(messages_.size(), 2U);
        EXPECT_EQ(messages_[1].text,
                  "Would you like to select the QC Mode file opened in the QC Configuration?");
        EXPECT_EQ(label->text(), QStringLiteral("ENVIRO.QCC"));
    });
}

TEST_F(SiblingRoundTripTest, TheToolbarRunEndsWithItsReportAndAMissingProgramIsSaid) {
    Run([&](ui::MainWindow& window) {
        EXPECT_TRUE(ClickAndSeeTheWaitWindow(window, "Cd_Tlbar"));
        EXPECT_TRUE(messages_.empty());
        fs::remove(ProgramDir() / "BARSET.EXE");
        window.Binder().Click(QStringLiteral("Cd_Tlbar"));
        ASSERT_EQ(messages_.size(), 1U);
        EXPECT_EQ(messages_[0].text, "Could not execute Toolbar Configuration.");
        EXPECT_TRUE(window.isEnabled());
    });
}

// Browses for a QC mode: the file selection shows the QC mode folder with the current mode
// chosen; the user picks the folder `mode`.
void BrowseTo(ui::MainWindow& window, const fs::path& mode, QString* preselected) {
    QTimer::singleShot(0, [=] {
        auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(chooser, nullptr);
        *preselected = chooser->selectedFiles().value(0);
        chooser->selectFile(QString::fromStdString(mode.string()));
        static_cast<QDialog*>(chooser)->accept();  // the Choose button
    });
    window.Binder().Click(QStringLiteral("Cd_Browse"));
}

TEST_F(SiblingRoundTripTest, BrowsingTakesAQcModeFolderThatHoldsARunType) {
    fs::create_directories(root_ / "1" / "QCMODE" / "EMPTY.QCC");
    Run([&](ui::MainWindow& window) {
        auto* label = window.findChild<QLabel*>(QStringLiteral("Lbl_QCFile"));
        QString preselected;
        BrowseTo(window, root_ / "1" / "QCMODE" / "EMPTY.QCC", &preselected);
        EXPECT_TRUE(preselected.endsWith(QStringLiteral("/1/QCMODE/GENERAL.QCC")))
            << preselected.toStdString();
        ASSERT_EQ(messages_.size(), 1U);
        EXPECT_EQ(messages_[0].text, "Selected QC Mode file is invalid.");
        EXPECT_EQ(label->text(), QStringLiteral("GENERAL.QCC"));
        BrowseTo(window, root_ / "1" / "QCMODE" / "ENVIRO.QCC", &preselected);
        EXPECT_EQ(label->text(), QStringLiteral("ENVIRO.QCC"));
        EXPECT_EQ(messages_.size(), 1U);
    });
}

}  // namespace
}  // namespace lumacfg::gui
