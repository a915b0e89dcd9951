// Station files never depend on the language of the windows: the same edits and Save, made in
// the main window shown in English, German and Japanese, write the same bytes.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QDir>
#include <QTest>
#include <filesystem>
#include <map>
#include <string>

#include "app/gui/desktop_program.h"
#include "support/temp_station.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/translation.h"
#include "ui/main/qt/main_window.h"

namespace lumacfg::gui {
namespace {

namespace fs = std::filesystem;

class StationLanguageTest : public support::TempStation {
  protected:
    void TearDown() override {
        ui::UseLanguage(QLocale());  // the test program's language
        QDir::setCurrent(cwd_);      // the run works in the program directory
        TempStation::TearDown();
    }

    // Every file of the station (program directory and registry) by its path in the station.
    std::map<std::string, std::string> StationFiles() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(ProgramDir())) {
            if (!entry.is_regular_file()) continue;
            files[fs::relative(entry.path(), root_).string()] =
                support::ReadBytes(entry.path()).value_or("");
        }
        files["registry.reg"] = RegistryFileText();
        return files;
    }

    QString cwd_ = QDir::currentPath();
};

TEST_F(StationLanguageTest, TheSameSaveWritesTheSameBytesInEveryLanguage) {
    const std::string registry = RegistryFileText();
    const struct {
        const char* language;
        const char* saveCaption;  // the window was shown in the language
    } cases[] = {{"en", "&Save"}, {"de", "S&peichern"}, {"ja", "保存(&S)"}};
    std::map<std::string, std::string> english;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.language);
        fs::remove_all(ProgramDir());
        fs::create_directories(ProgramDir());
        support::WriteBytes(RegistryPath(), registry);
        ASSERT_EQ(ui::UseLanguage(QLocale(QString::fromLatin1(c.language))), c.language);
        DesktopOptions options;
        options.commandLineEmpty = false;
        QString saveShown;
        EXPECT_EQ(
            RunDesktop(options,
                       [&](ui::MainWindow& window) {
                           ui::DialogBinder& binder = window.Binder();
                           binder.SetText("Ed_Inhibit(9)", "238");
                           binder.Click("Ck_Offline");
                           binder.Click("Op_Wait");
                           saveShown =
                               qobject_cast<QAbstractButton*>(binder.Widget("Cd_Save"))->text();
                           binder.Click("Cd_Save");
                       }),
            kExitOk);
        EXPECT_EQ(saveShown, QString::fromUtf8(c.saveCaption));
        const std::map<std::string, std::string> written = StationFiles();
        ASSERT_TRUE(written.contains("LUMAEXE/lumagen.ist"));
        if (english.empty()) {
            english = written;
        } else {
            EXPECT_EQ(written, english);
        }
    }
}

}  // namespace
}  // namespace lumacfg::gui
