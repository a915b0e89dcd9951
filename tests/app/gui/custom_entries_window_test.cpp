// The ASX500 dialog's "Configure Rack..." in the desktop program: the editor opens over the dialog,
// its list box follows the model, a new rack typed in and taken with OK is offered by the
// dialog's rack lists at once, and Esc writes nothing. The editors' rules are tested on the model.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <string>

#include "app/gui/desktop_program.h"
#include "support/temp_station.h"
#include "ui/autosampler/qt/asx500_window.h"
#include "ui/autosampler/qt/custom_entries_window.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/qt/main_window.h"

namespace lumacfg::gui {
namespace {

const std::string kCustrack =
    "[INDEX]\r\nTray_Num=1\r\nTray1_ID=1000\r\nRack_Num=2\r\nRack1_ID=1000\r\nRack2_ID=1001\r\n"
    "[TRAY_1000]\r\nID_STR=Two racks\r\nRACK_X_NUM=2\r\nRACK_X_ORG=0\r\nRACK_Y_ORG=100\r\n"
    "RACK_X_DIST=1500\r\nRACK_Y_DIST=1200\r\nDEFRACK1=1000\r\nDEFRACK2=1000\r\n"
    "[RACK_1000]\r\nID=1000\r\nID_STR=Short\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=3\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[RACK_1001]\r\nID=1001\r\nID_STR=Long\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=9\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[CURRENT]\r\nCUSTOMTRAY=0\r\nTRAY_ID=0\r\nRACK1_ID=21\r\nRACK_X_NUM=1\r\n";

class CustomEntriesWindowTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        support::WriteBytes(Path(), kCustrack);
    }

    std::filesystem::path Path() const { return ProgramDir() / "custrack.ini"; }
    std::string Custrack() const { return support::ReadBytes(Path()).value_or(""); }

    // The ASX500 dialog opened from the main window with the custom tray chosen, then the rack
    // editor from it.
    static ui::Asx500Window* OpenAsx500(ui::MainWindow& window) {
        auto* list = window.findChild<QComboBox*>(QStringLiteral("Cb_Auto"));
        emit list->activated(list->findText(QStringLiteral("ASX500")));
        window.Binder().Click(QStringLiteral("Cd_AutoSet"));
        auto* dialog = window.findChild<ui::Asx500Window*>();
        if (dialog != nullptr) {
            auto* trays = dialog->findChild<QComboBox*>(QStringLiteral("cmbTrayType"));
            emit trays->activated(trays->findText(QStringLiteral("Two racks")));
        }
        return dialog;
    }
    static ui::CustomEntriesWindow* OpenRacks(ui::Asx500Window& dialog) {
        dialog.Binder().Click(QStringLiteral("btnConfigRack"));
        for (auto* editor : dialog.findChildren<ui::CustomEntriesWindow*>()) {
            if (editor->isVisible()) return editor;
        }
        return nullptr;
    }
    static QStringList Offered(ui::Asx500Window& dialog) {
        auto* list = dialog.findChild<QComboBox*>(QStringLiteral("cmbRacks(0)"));
        QStringList items;
        for (int i = 0; i < list->count(); ++i) items << list->itemText(i);
        return items;
    }

    int Run(const std::function<void(ui::MainWindow&)>& act) {
        DesktopOptions options;
        options.commandLineEmpty = false;
        return RunDesktop(options, act);
    }
};

TEST_F(CustomEntriesWindowTest, ANewRackTakenWithOkIsOfferedAtOnce) {
    EXPECT_EQ(Run([&](ui::MainWindow& window) {
                  ui::Asx500Window* dialog = OpenAsx500(window);
                  ASSERT_NE(dialog, nullptr);
                  ui::CustomEntriesWindow* editor = OpenRacks(*dialog);
                  ASSERT_NE(editor, nullptr);
                  EXPECT_TRUE(editor->isModal());
                  EXPECT_EQ(editor->windowTitle(), "Custom Racks");
                  auto* list = editor->findChild<QListWidget*>(QStringLiteral("lstEntries"));
                  ASSERT_EQ(list->count(), 2);
                  list->setCurrentRow(1);
                  EXPECT_EQ(editor->findChild<QGroupBox*>(QStringLiteral("grpEntry"))->title(),
                            "RACK_1001");

                  editor->Binder().Click(QStringLiteral("btnNew"));
                  EXPECT_EQ(list->count(), 3);
                  auto* name = editor->findChild<QLineEdit*>(QStringLiteral("txtID_STR"));
                  EXPECT_EQ(editor->focusWidget(), name);
                  name->selectAll();
                  QTest::keyClicks(name, QStringLiteral("Deep"));
                  editor->Binder().Click(QStringLiteral("btnOK"));
                  EXPECT_FALSE(editor->isVisible());
                  EXPECT_TRUE(Offered(*dialog).contains(QStringLiteral("Deep")));

                  // Esc leaves the file as it is.
                  editor = OpenRacks(*dialog);
                  ASSERT_NE(editor, nullptr);
                  editor->Binder().Click(QStringLiteral("btnNew"));
                  QTest::keyClick(editor, Qt::Key_Escape);
                  EXPECT_FALSE(editor->isVisible());
                  dialog->Binder().Click(QStringLiteral("btnCancel"));
                  window.Binder().Click(QStringLiteral("Cancel"));
              }),
              kExitOk);
    EXPECT_NE(Custrack().find("Rack_Num=3\r\nRack1_ID=1000\r\nRack2_ID=1001\r\nRack3_ID=1002\r\n"),
              std::string::npos)
        << Custrack();
    EXPECT_NE(Custrack().find("[RACK_1002]\r\nID=1002\r\nID_STR=Deep\r\n"), std::string::npos);
    EXPECT_EQ(Custrack().find("RACK_1003"), std::string::npos);
}

}  // namespace
}  // namespace lumacfg::gui
