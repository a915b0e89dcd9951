// The desktop program's run on a temporary station: what each way of closing the window
// writes, every file that could not be read or written listed in one message box with a
// non-zero status, and the screenshot option. The user's actions are made once the window is
// shown; read-only file systems are mounted, not simulated (the tests run as root).
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <optional>
#include <string>

#include "app/gui/desktop_program.h"
#include "support/scoped_mount.h"
#include "support/temp_station.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/qt/main_window.h"
#include "ui/start/qt/first_start_window.h"

namespace lumacfg::gui {
namespace {

namespace fs = std::filesystem;

// Started with arguments: no logon.
DesktopOptions Scripted(const fs::path& screenshot = {}) {
    DesktopOptions options;
    options.screenshot = QString::fromStdString(screenshot.string());
    options.commandLineEmpty = false;
    return options;
}

class DesktopProgramTest : public support::TempStation {
  protected:
    void TearDown() override {
        QDir::setCurrent(cwd_);  // the run works in the program directory
        TempStation::TearDown();
    }

    // Runs the program; `act` is what the user does in the shown window.
    int Run(const std::function<void(ui::MainWindow&)>& act) {
        return RunDesktop(Scripted(), [&](ui::MainWindow& window) {
            shownStation_ = StationText();
            messages_.clear();  // the load's own notices
            act(window);
        });
    }

    QString cwd_ = QDir::currentPath();
    std::string shownStation_;  // "lumagen.ist" as start-up left it
};

void Click(ui::MainWindow& window, const char* control) {
    window.Binder().Click(control);
}

// The user changes the last prohibited mass to 238, then closes the window.
void ChangeAMass(ui::MainWindow& window) {
    window.Binder().SetText("Ed_Inhibit(9)", "238");
}

TEST_F(DesktopProgramTest, SaveWritesTheStationCancelAndTheFrameWriteNothing) {
    const struct {
        const char* what;
        std::function<void(ui::MainWindow&)> close;
        bool written;
    } cases[] = {
        {"Save", [](ui::MainWindow& w) { Click(w, "Cd_Save"); }, true},
        {"Cancel", [](ui::MainWindow& w) { Click(w, "Cancel"); }, false},
        {"Esc", [](ui::MainWindow& w) { QTest::keyClick(&w, Qt::Key_Escape); }, false},
        {"the frame", [](ui::MainWindow& w) { w.close(); }, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        fs::remove(StationProfile());
        EXPECT_EQ(Run([&](ui::MainWindow& window) {
                      ChangeAMass(window);
                      c.close(window);
                  }),
                  kExitOk);
        EXPECT_TRUE(messages_.empty());
        const std::string after = StationText();
        EXPECT_EQ(after.find(" 238\r\n") != std::string::npos, c.written);
        if (!c.written) {
            EXPECT_EQ(after, shownStation_);
        }
    }
}

TEST_F(DesktopProgramTest, EveryFileNotWrittenIsListedOnceAndTheRunFails) {
    std::optional<support::ScopedMount> readOnly;
    const int exit = Run([&](ui::MainWindow& window) {
        readOnly.emplace(support::ScopedMount::ReadOnly(ProgramDir()));
        ChangeAMass(window);
        if (readOnly->Ok()) {
            Click(window, "Cd_Save");
        } else {
            window.close();
        }
    });
    if (!readOnly->Ok()) GTEST_SKIP() << "no right to mount";
    EXPECT_EQ(exit, kExitFileFailed);
    ASSERT_EQ(messages_.size(), 1u);
    EXPECT_EQ(messages_[0].title, "Error");
    EXPECT_EQ(messages_[0].icon, platform::MessageIcon::Exclamation);
    EXPECT_EQ(messages_[0].buttons, platform::MessageButtons::Ok);
    EXPECT_NE(messages_[0].text.find("cannot write " + StationProfile().string() +
                                     ": Read-only file system"),
              std::string::npos)
        << messages_[0].text;
}

TEST_F(DesktopProgramTest, AStationThatCannotBeReadEndsTheRunBeforeAnyWindow) {
    fs::create_directories(StationProfile());  // "lumagen.ist" is a directory
    bool shown = false;
    EXPECT_EQ(RunDesktop(Scripted(), [&](ui::MainWindow&) { shown = true; }), kExitFileFailed);
    EXPECT_FALSE(shown);
    ASSERT_EQ(messages_.size(), 1u);
    EXPECT_EQ(messages_[0].title, "Error");
    EXPECT_NE(messages_[0].text.find("cannot read " + StationProfile().string()), std::string::npos)
        << messages_[0].text;
    EXPECT_TRUE(fs::is_directory(StationProfile()));
}

TEST_F(DesktopProgramTest, TheScreenshotIsTheLaidOutWindow) {
    const fs::path picture = root_ / "window.png";
    EXPECT_EQ(RunDesktop(Scripted(picture)), kExitOk);
    const QImage image(QString::fromStdString(picture.string()));
    EXPECT_GT(image.width(), 400);
    EXPECT_GT(image.height(), 300);
    EXPECT_EQ(RunDesktop(Scripted(root_ / "no/such/dir.png")), kExitScreenshotFailed);
}

// No variable names the station and the store's "Path" names no folder: the first-start window
// asks, and the folder chosen is recorded and opened; Cancel ends the run with nothing written.
TEST_F(DesktopProgramTest, WithoutANamedStationTheFirstStartWindowAsks) {
    const struct {
        const char* what;
        bool chosen;
        int exit;
    } cases[] = {{"OK on the root", true, kExitOk}, {"Cancel", false, kExitFileFailed}};
    support::ScopedEnv noVariable("LUMACFG_PROGRAM_DIR", std::nullopt);
    const std::string storeBefore = RegistryFileText();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        support::WriteBytes(RegistryPath(), storeBefore);
        bool asked = false;
        QTimer::singleShot(0, [&] {
            auto* window = qobject_cast<ui::FirstStartWindow*>(QApplication::activeModalWidget());
            if (window == nullptr) return;
            asked = true;
            if (c.chosen) window->Binder().SetText("Ed_Folder", QString::fromStdString(Root()));
            window->Binder().Click(c.chosen ? "Cd_OK" : "Cd_Cancel");
        });
        bool opened = false;
        EXPECT_EQ(RunDesktop(Scripted(),
                             [&](ui::MainWindow& window) {
                                 opened = true;
                                 Click(window, "Cancel");
                             }),
                  c.exit);
        EXPECT_TRUE(asked);
        EXPECT_EQ(opened, c.chosen);
        EXPECT_EQ(RegistryFileText().find("\"Path\"=\"" + Root() + "\"") != std::string::npos,
                  c.chosen);
    }
}

}  // namespace
}  // namespace lumacfg::gui
