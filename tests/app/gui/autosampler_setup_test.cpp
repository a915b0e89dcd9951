// The main window's autosampler "Setup..." button in the desktop program: each autosampler opens
// its dialog over the main window, the dialog's OK reaches the files the closing writes, Cancel
// and Esc change nothing, and the tray picture follows the ASX500 dialog's choices. The dialogs'
// rules are tested on their models.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QTest>
#include <filesystem>
#include <functional>
#include <string>

#include "app/gui/desktop_program.h"
#include "support/temp_station.h"
#include "ui/autosampler/qt/asx500_window.h"
#include "ui/autosampler/qt/tray_picture.h"
#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/qt/main_window.h"

namespace lumacfg::gui {
namespace {

// A tray of two positions 1500 across and 1200 deep, a rack that fits it and one too long.
const std::string kCustrack =
    "[INDEX]\r\nTray_Num=1\r\nTray1_ID=1000\r\nRack_Num=2\r\nRack1_ID=1000\r\nRack2_ID=1001\r\n"
    "[TRAY_1000]\r\nID_STR=Two racks\r\nRACK_X_NUM=2\r\nRACK_X_ORG=0\r\nRACK_Y_ORG=100\r\n"
    "RACK_X_DIST=1500\r\nRACK_Y_DIST=1200\r\nDEFRACK1=1000\r\nDEFRACK2=1000\r\n"
    "[RACK_1000]\r\nID=1000\r\nID_STR=Short\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=3\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[RACK_1001]\r\nID=1001\r\nID_STR=Long\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=9\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[CURRENT]\r\nCUSTOMTRAY=0\r\nTRAY_ID=0\r\nRACK1_ID=21\r\nRACK_X_NUM=1\r\n";

class AutosamplerSetupTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        support::WriteBytes(ProgramDir() / "custrack.ini", kCustrack);
    }
    void TearDown() override {
        QDir::setCurrent(cwd_);
        TempStation::TearDown();
    }

    int Run(const std::function<void(ui::MainWindow&)>& act) {
        DesktopOptions options;
        options.commandLineEmpty = false;
        return RunDesktop(options, [&](ui::MainWindow& window) {
            messages_.clear();
            act(window);
        });
    }

    // The autosampler dialog shown over the window; a closed one may wait for its deletion.
    static ui::AutosamplerWindow* Shown(ui::MainWindow& window) {
        for (auto* dialog : window.findChildren<ui::AutosamplerWindow*>()) {
            if (dialog->isVisible()) return dialog;
        }
        return nullptr;
    }

    // The autosampler chosen in the main window, then its Setup... button: the dialog it opened.
    static ui::AutosamplerWindow* Setup(ui::MainWindow& window, const char* autosampler) {
        auto* list = window.findChild<QComboBox*>(QStringLiteral("Cb_Auto"));
        const int index = list->findText(QLatin1String(autosampler));
        EXPECT_GE(index, 0) << autosampler;
        emit list->activated(index);
        window.Binder().Click(QStringLiteral("Cd_AutoSet"));
        ui::AutosamplerWindow* dialog = Shown(window);
        EXPECT_NE(dialog, nullptr);
        if (dialog != nullptr) {
            EXPECT_TRUE(dialog->isModal());
        }
        return dialog;
    }

    static void Choose(ui::AutosamplerWindow& dialog, const char* list, const char* text) {
        auto* widget = dialog.findChild<QComboBox*>(QLatin1String(list));
        const int index = widget->findText(QLatin1String(text));
        ASSERT_GE(index, 0) << list << " " << text;
        emit widget->activated(index);
    }

    std::string Custrack() const {
        return support::ReadBytes(ProgramDir() / "custrack.ini").value_or("");
    }

    QString cwd_ = QDir::currentPath();
};

TEST_F(AutosamplerSetupTest, TheAsx500DialogsOkReachesCustrackWhenTheWindowSaves) {
    EXPECT_EQ(Run([&](ui::MainWindow& window) {
                  ui::AutosamplerWindow* dialog = Setup(window, "ASX500");
                  ASSERT_NE(dialog, nullptr);
                  EXPECT_EQ(dialog->objectName(), "dlgASX500");
                  EXPECT_EQ(dialog->windowTitle(), "ASX500 Configuration");
                  // The caption block marks its own accelerators.
                  EXPECT_EQ(dialog->findChild<QLabel*>(QStringLiteral("lblCOMPort"))->text(),
                            "COM &Port for ALS:");
                  EXPECT_EQ(dialog->findChild<QLabel*>(QStringLiteral("lblRacks(0)"))->text(),
                            "Rack ID &1:");
                  Choose(*dialog, "cmbTrayType", "Two racks");
                  Choose(*dialog, "cmbCOMPort", "COM3");
                  dialog->Binder().Click(QStringLiteral("btnOK"));
                  EXPECT_EQ(Shown(window), nullptr);
                  window.Binder().Click(QStringLiteral("Cd_Save"));
              }),
              kExitOk);
    EXPECT_NE(Custrack().find("[CURRENT]\r\nCUSTOMTRAY=1000\r\nTRAY_ID=1000\r\nRACK1_ID=1000\r\n"
                              "RACK2_ID=1000\r\nRACK_X_NUM=2\r\n"),
              std::string::npos)
        << Custrack();
    EXPECT_NE(StationText().find("=COM3,488\r\n"), std::string::npos);  // the serial link
}

TEST_F(AutosamplerSetupTest, TheTrayPictureShowsOksVerdictBeforeOk) {
    EXPECT_EQ(Run([&](ui::MainWindow& window) {
                  auto* dialog = static_cast<ui::Asx500Window*>(Setup(window, "ASX500"));
                  ASSERT_NE(dialog, nullptr);
                  Choose(*dialog, "cmbTrayType", "Two racks");
                  Choose(*dialog, "cmbRacks(1)", "Long");
                  const ui::TrayPlan& plan = dialog->Picture().Plan();
                  ASSERT_EQ(plan.positions.size(), 2u);
                  EXPECT_EQ(plan.positions[0].fit, RackFit::Fits);
                  EXPECT_EQ(plan.positions[1].fit, RackFit::TooLong);
                  dialog->Binder().Click(QStringLiteral("btnOK"));
                  ASSERT_EQ(messages_.size(), 1u);
                  EXPECT_EQ(messages_[0].text, plan.positions[1].reason);
                  EXPECT_TRUE(dialog->isVisible());
                  EXPECT_EQ(dialog->focusWidget(),
                            dialog->findChild<QWidget*>(QStringLiteral("cmbRacks(1)")));
                  QTest::keyClick(dialog, Qt::Key_Escape);
                  EXPECT_EQ(Shown(window), nullptr);
                  window.Binder().Click(QStringLiteral("Cancel"));
              }),
              kExitOk);
}

TEST_F(AutosamplerSetupTest, TheVasAndTheLegacyDialogsOpenForTheirModels) {
    EXPECT_EQ(Run([&](ui::MainWindow& window) {
                  ui::AutosamplerWindow* legacy = Setup(window, "KLR-8");
                  ASSERT_NE(legacy, nullptr);
                  EXPECT_EQ(legacy->objectName(), "Fm_ASX");
                  EXPECT_EQ(legacy->windowTitle(), "KLR-8 Configuration");
                  EXPECT_TRUE(legacy->findChild<QWidget*>(QStringLiteral("Cb_ID(7)"))->isVisible());
                  legacy->Binder().Click(QStringLiteral("Cancel"));

                  ui::AutosamplerWindow* vas = Setup(window, "V-AS");
                  ASSERT_NE(vas, nullptr);
                  EXPECT_EQ(vas->objectName(), "Fm_VAS");
                  vas->Binder().SetText(QStringLiteral("txtSampleDepth"), QStringLiteral("70"));
                  vas->Binder().Click(QStringLiteral("OK"));
                  window.Binder().Click(QStringLiteral("Cd_Save"));
              }),
              kExitOk);
    EXPECT_NE(StationText().find("SAMPLE_DEPTH=510\r\n"), std::string::npos) << StationText();
}

}  // namespace
}  // namespace lumacfg::gui
