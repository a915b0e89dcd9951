// The main window's Miscellaneous button in the desktop program's run: the dialog's OK and
// Cancel decide whether closing the main window by its frame writes the station.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTimer>
#include <string>
#include <vector>

#include "app/gui/desktop_program.h"
#include "support/temp_station.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/qt/main_window.h"
#include "ui/misc/qt/misc_window.h"

namespace lumacfg::gui {
namespace {

class MainWindowReachTest : public support::TempStation {
  protected:
    void TearDown() override {
        QDir::setCurrent(cwd_);
        TempStation::TearDown();
    }
    QString cwd_ = QDir::currentPath();
};

// Opens the Miscellaneous dialog, checks "Record Log every Tuning Report Generation" and ends
// the dialog with `button` ("" closes it by its frame).
void InMiscellaneous(ui::MainWindow& window, const char* button) {
    QTimer::singleShot(0, [button] {
        auto* misc = qobject_cast<ui::MiscWindow*>(QApplication::activeModalWidget());
        ASSERT_NE(misc, nullptr);
        misc->Binder().Click(QStringLiteral("Ck_RecLog"));
        if (*button) {
            misc->Binder().Click(QLatin1String(button));
        } else {
            misc->close();
        }
    });
    window.Binder().Click(QStringLiteral("Cd_Misc"));
}

TEST_F(MainWindowReachTest, ClosingByTheFrameWritesWhatTheMiscellaneousOkAskedFor) {
    const struct {
        std::vector<const char*> buttons;
        bool written;
    } cases[] = {
        {{"OK"}, true},
        {{"OK", "Cancel"}, false},  // Cancel withdraws the save request of the earlier OK
        {{"Cancel"}, false},
        {{""}, false},
        {{"OK", ""}, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.buttons));
        std::filesystem::remove(StationProfile());
        DesktopOptions options;
        options.commandLineEmpty = false;
        EXPECT_EQ(RunDesktop(options,
                             [&](ui::MainWindow& window) {
                                 for (const char* button : c.buttons) {
                                     InMiscellaneous(window, button);
                                 }
                                 window.close();
                             }),
                  kExitOk);
        EXPECT_EQ(StationText().find("OPT_AUTOREC=1\r\n") != std::string::npos, c.written);
    }
}

TEST_F(MainWindowReachTest, TheScreenshotOfAClickIsTheWindowTheButtonOpens) {
    DesktopOptions options;
    EXPECT_FALSE(ParseOptions({QStringLiteral("--click"), QStringLiteral("Cd_Misc")}, options));
    ASSERT_TRUE(
        ParseOptions({QStringLiteral("--screenshot"), QString::fromStdString(Root() + "/misc.png"),
                      QStringLiteral("--click"), QStringLiteral("Cd_Misc")},
                     options));
    EXPECT_EQ(RunDesktop(options), kExitOk);
    const QImage misc(QString::fromStdString(Root() + "/misc.png"));
    EXPECT_GT(misc.width(), 200);
    EXPECT_FALSE(StationText().find("OPT_AUTOREC") == std::string::npos);  // the station exists
}

}  // namespace
}  // namespace lumacfg::gui
