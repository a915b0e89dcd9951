// Every window by keyboard alone, one row per window: Tab visits the controls in reading order
// (frame after frame, top to bottom, left to right within a row) and Shift+Tab in the reverse
// one, no control that takes the focus is left out, no two shown captions mark one mnemonic,
// and Esc ends a dialog as its Cancel button does.
#include <gtest/gtest.h>
#include <unistd.h>

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "config/start_up.h"
#include "platform/logon.h"
#include "support/keyboard_checks.h"
#include "support/temp_station.h"
#include "ui/autosampler/asx500_dialog.h"
#include "ui/autosampler/asx_dialog.h"
#include "ui/autosampler/custom_entries_dialog.h"
#include "ui/autosampler/qt/asx500_window.h"
#include "ui/autosampler/qt/asx_window.h"
#include "ui/autosampler/qt/custom_entries_window.h"
#include "ui/autosampler/qt/vas_window.h"
#include "ui/autosampler/vas_dialog.h"
#include "ui/dialog/qt/translation.h"
#include "ui/file/qt/qt_file_chooser.h"
#include "ui/logon/logon_dialog.h"
#include "ui/logon/qt/logon_window.h"
#include "ui/main/main_dialog.h"
#include "ui/main/qt/main_window.h"
#include "ui/main/qt/wait_window.h"
#include "ui/main/wait_dialog.h"
#include "ui/misc/misc_dialog.h"
#include "ui/misc/qt/misc_window.h"
#include "ui/start/first_start_dialog.h"
#include "ui/start/qt/first_start_window.h"

namespace lumacfg::gui {
namespace {

using namespace ui;

// A tray of two positions and one rack, so the editors list an entry of each kind.
const std::string kCustrack =
    "[INDEX]\r\nTray_Num=1\r\nTray1_ID=1000\r\nRack_Num=1\r\nRack1_ID=1000\r\n"
    "[TRAY_1000]\r\nID_STR=Two racks\r\nRACK_X_NUM=2\r\nRACK_X_ORG=0\r\nRACK_Y_ORG=100\r\n"
    "RACK_X_DIST=1500\r\nRACK_Y_DIST=1200\r\nDEFRACK1=1000\r\nDEFRACK2=1000\r\n"
    "[RACK_1000]\r\nID=1000\r\nID_STR=Short\r\nVIAL_X_NUM=4\r\nVIAL_Y_NUM=3\r\nVIAL_X_ORG=100\r\n"
    "VIAL_Y_ORG=100\r\nVIAL_X_DIST=200\r\nVIAL_Y_DIST=200\r\nVIAL_DEPTH=50\r\n"
    "[CURRENT]\r\nCUSTOMTRAY=0\r\nTRAY_ID=0\r\nRACK1_ID=21\r\nRACK_X_NUM=1\r\n";

// Answers no logon: the logon window only has to show.
class NoLogon final : public platform::Authenticator {
  public:
    platform::Authentication Authenticate(const std::string&, const std::string&) override {
        return {};
    }
};

// A window over its model, as the station of the test opens it.
struct Opened {
    std::shared_ptr<DialogModel> model;
    std::unique_ptr<QDialog> window;
};

template <class Model, class Window, class... Args>
Opened Open(std::shared_ptr<Model> model, Args&&... args) {
    auto window = std::make_unique<Window>(*model, std::forward<Args>(args)...);
    return {std::move(model), std::move(window)};
}

Opened MainOnStation() {
    EXPECT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    return Open<MainDialog, MainWindow>(std::make_shared<MainDialog>(Config()));
}

// The LC/GC type linked to its data system, the ASX500 autosampler and VLT integration: the
// remote start, the instrument list, the autosampler's Setup... and the VLT folder take part.
Opened MainWithLcGcLink() {
    Opened opened = MainOnStation();
    auto& window = static_cast<MainWindow&>(*opened.window);
    auto choose = [&](const char* list, const char* entry) {
        auto* entries = window.findChild<QComboBox*>(QLatin1String(list));
        emit entries->activated(entries->findText(QLatin1String(entry)));
    };
    choose("Cb_Type", "LC/GC/Laser Ablation");
    choose("Cb_Auto", "ASX500");
    window.Binder().Click(QStringLiteral("Ck_CtrlLCGC"));
    window.Binder().Click(QStringLiteral("Ck_VLT"));
    return opened;
}

Opened Misc() {
    ConfigRecord record;
    record.ALS_TYPE = 1;
    return Open<MiscDialog, MiscWindow>(
        std::make_shared<MiscDialog>(record, MiscSurroundings{"OPAL", "Auto Dilution", true}));
}

// With the custom tray of two positions chosen, so two rack lists take part.
Opened Asx500() {
    EXPECT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    auto model = std::make_shared<Asx500Dialog>(Config());
    model->TablesChanged();  // the custom trays, as the main window's load reads them
    Opened opened = Open<Asx500Dialog, Asx500Window>(std::move(model));
    auto* trays = opened.window->findChild<QComboBox*>(QStringLiteral("cmbTrayType"));
    emit trays->activated(trays->findText(QStringLiteral("Two racks")));
    return opened;
}

Opened Asx() {
    return Open<AsxDialog, AsxWindow>(std::make_shared<AsxDialog>(ConfigRecord{}, "ASX100", false));
}

Opened Vas() {
    return Open<VasDialog, VasWindow>(std::make_shared<VasDialog>(ConfigRecord{}, false));
}

Opened CustomEntries(EntryKind kind) {
    EXPECT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
    std::shared_ptr<CustomEntriesDialog> model = OpenCustomEntries(kind);
    if (!model) return {};
    return Open<CustomEntriesDialog, CustomEntriesWindow>(std::move(model), kind);
}

Opened FirstStart() {
    return Open<FirstStartDialog, FirstStartWindow>(std::make_shared<FirstStartDialog>(
        platform::FileFailure{platform::FileOperation::Read, "registry.reg", "missing"}));
}

Opened Logon() {
    static NoLogon noLogon;
    return Open<LogonDialog, LogonWindow>(std::make_shared<LogonDialog>("operator", noLogon));
}

// The wait window waits for this test's own process, which runs on.
Opened Wait() {
    return Open<WaitDialog, WaitWindow>(std::make_shared<WaitDialog>(::getpid()));
}

struct WindowRow {
    const char* what;
    const char* registry;  // the station's registry lines; null keeps the GPIB station's
    std::function<Opened()> open;
    std::vector<const char*> tabs;  // the Tab sequence from the first control
    DialogEnd afterEsc;             // how the model stands after Esc
};

std::ostream& operator<<(std::ostream& out, const WindowRow& row) {
    return out << row.what;
}

// The main window's controls after the address: the same on a GPIB and on a LAN station.
#define MAIN_WINDOW_AFTER_ADDRESS                                                               \
    "Ck_Offline", "Op_NotUse", "Cb_Type", "Cb_Auto", "Ed_Inhibit(0)", "Ed_Inhibit(1)",          \
        "Ed_Inhibit(2)", "Ed_Inhibit(3)", "Ed_Inhibit(4)", "Ed_Inhibit(5)", "Ed_Inhibit(6)",    \
        "Ed_Inhibit(7)", "Ed_Inhibit(8)", "Ed_Inhibit(9)", "Cd_Browse", "Cd_QCCfg", "Ck_Integ", \
        "Ck_Security", "Ck_VLT", "Cd_Misc", "Cd_Tlbar", "Cd_Save", "Cd_Reset", "Cancel", "Help"

const WindowRow kWindows[] = {
    {"MainWindowOnGpib",
     nullptr,
     MainOnStation,
     {"Ed_Address", MAIN_WINDOW_AFTER_ADDRESS},
     DialogEnd::Cancelled},
    {"MainWindowOnLan",
     "\"Path\"=\"C:\\\\PLASMA\"\r\n\"HardWare\"=dword:00000002\r\n",
     MainOnStation,
     {"Ed_IP(0)", "Ed_IP(1)", "Ed_IP(2)", "Ed_IP(3)", MAIN_WINDOW_AFTER_ADDRESS},
     DialogEnd::Cancelled},
    {"MainWindowWithLcGcLink",
     nullptr,
     MainWithLcGcLink,
     {"Ed_Address",    "Ck_Offline",    "Op_Wait",       "Ck_NotRepRem",  "Cb_Type",
      "Cb_Auto",       "Cd_AutoSet",    "Ck_CtrlLCGC",   "Cb_LCInst",     "Ed_Inhibit(0)",
      "Ed_Inhibit(1)", "Ed_Inhibit(2)", "Ed_Inhibit(3)", "Ed_Inhibit(4)", "Ed_Inhibit(5)",
      "Ed_Inhibit(6)", "Ed_Inhibit(7)", "Ed_Inhibit(8)", "Ed_Inhibit(9)", "Cd_Browse",
      "Cd_QCCfg",      "Ck_Integ",      "Ck_Security",   "Ck_VLT",        "Cd_SelVLTFolder",
      "Cd_Misc",       "Cd_Tlbar",      "Cd_Save",       "Cd_Reset",      "Cancel",
      "Help"},
     DialogEnd::Cancelled},
    {"Miscellaneous",
     nullptr,
     Misc,
     {"Ck_SC", "Ck_Pmp2", "Op_Smpl(0)", "Ck_Rotate", "Op_Shutdown(0)", "Ck_Ddtm", "Ck_RecLog",
      "Ck_StopPP", "Ck_CG", "OK", "Cancel", "Help"},
     DialogEnd::Cancelled},
    {"Asx500",
     nullptr,
     Asx500,
     {"cmbCOMPort", "cmbTrayType", "btnConfigTray", "cmbRacks(0)", "cmbRacks(1)", "btnConfigRack",
      "TrayPicture", "btnOK", "btnCancel", "btnHelp"},
     DialogEnd::Cancelled},
    {"Asx",
     nullptr,
     Asx,
     {"Cb_COM", "Cb_ID(0)", "Cb_ID(1)", "Cb_ID(2)", "Cb_ID(3)", "OK", "Cancel", "Help"},
     DialogEnd::Cancelled},
    {"Vas",
     nullptr,
     Vas,
     {"Cb_COM", "Cb_TRAY", "txtRinseDepth", "txtSampleDepth", "txtSTDDepth", "ChkESCMode", "OK",
      "Cancel", "Help"},
     DialogEnd::Cancelled},
    {"CustomTrays",
     nullptr,
     [] { return CustomEntries(EntryKind::Tray); },
     {"lstEntries",       "btnNew",          "btnCopy",         "btnDelete",
      "TrayPicture",      "txtID_STR",       "txtRACK_X_NUM",   "txtRACK_X_ORG",
      "txtRACK_Y_ORG",    "txtRACK_X_DIST",  "txtRACK_Y_DIST",  "cmbDEFRACK1",
      "cmbDEFRACK2",      "txtBOTTLE_X_NUM", "txtBOTTLE_X_ORG", "txtBOTTLE_Y_ORG",
      "txtBOTTLE_X_DIST", "txtBOTTLE_DEPTH", "btnOK",           "btnCancel",
      "btnHelp"},
     DialogEnd::Cancelled},
    {"CustomRacks",
     nullptr,
     [] { return CustomEntries(EntryKind::Rack); },
     {"lstEntries", "btnNew", "btnCopy", "btnDelete", "TrayPicture", "txtID_STR", "txtVIAL_X_NUM",
      "txtVIAL_Y_NUM", "txtVIAL_X_ORG", "txtVIAL_Y_ORG", "txtVIAL_X_DIST", "txtVIAL_Y_DIST",
      "txtVIAL_DEPTH", "btnOK", "btnCancel", "btnHelp"},
     DialogEnd::Cancelled},
    {"FirstStart",
     nullptr,
     FirstStart,
     {"Ed_Folder", "Cd_Browse", "Cd_OK", "Cd_Cancel"},
     DialogEnd::Cancelled},
    {"Logon",
     nullptr,
     Logon,
     {"Ed_User", "Ed_Password", "Cd_OK", "Cd_Cancel"},
     DialogEnd::Cancelled},
    // Nothing to reach; Esc leaves it waiting for the program.
    {"Wait", nullptr, Wait, {}, DialogEnd::Open},
};

class KeyboardTest : public support::TempStation, public testing::WithParamInterface<WindowRow> {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        support::WriteBytes(ProgramDir() / "custrack.ini", kCustrack);
        if (GetParam().registry != nullptr) {
            support::WriteBytes(RegistryPath(), support::RegistryText(GetParam().registry));
        }
        opened_ = GetParam().open();
        ASSERT_NE(opened_.window, nullptr);
        opened_.window->show();
        opened_.window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(opened_.window.get()));
    }

    QWidget* Control(const char* name) const {
        return opened_.window->findChild<QWidget*>(QLatin1String(name));
    }

    Opened opened_;
};

using Names = std::vector<std::string>;

Names Std(const QStringList& names) {
    Names std;
    for (const QString& name : names) std.push_back(name.toStdString());
    return std;
}

TEST_P(KeyboardTest, TabVisitsTheControlsInReadingOrderAndShiftTabInTheReverseOne) {
    const Names tabs(GetParam().tabs.begin(), GetParam().tabs.end());
    if (tabs.empty()) return;
    QWidget* first = Control(tabs.front().c_str());
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(Std(support::TabCycle(first, false)), tabs);
    Names reversed{tabs.front()};
    reversed.insert(reversed.end(), tabs.rbegin(), std::prev(tabs.rend()));
    EXPECT_EQ(Std(support::TabCycle(first, true)), reversed);
}

TEST_P(KeyboardTest, EveryControlTheFocusCanReachHasItsPlaceInTheSequence) {
    Names reachable = Std(support::FocusableControls(opened_.window.get()));
    Names tabs(GetParam().tabs.begin(), GetParam().tabs.end());
    std::ranges::sort(reachable);
    std::ranges::sort(tabs);
    EXPECT_EQ(reachable, tabs);
}

// In every shipped language: each catalogue marks its own letters.
TEST_P(KeyboardTest, NoTwoShownCaptionsMarkTheSameMnemonic) {
    for (const char* language : {"en", "de", "ja"}) {
        ui::UseLanguage(QLocale(QLatin1String(language)));
        ShowState(opened_.model->State(), opened_.window.get());
        const QMap<QChar, QStringList> clashes = support::MnemonicClashes(opened_.window.get());
        for (auto clash = clashes.cbegin(); clash != clashes.cend(); ++clash) {
            ADD_FAILURE() << language << " '" << QString(clash.key()).toStdString()
                          << "': " << clash->join(QLatin1String(", ")).toStdString();
        }
    }
    ui::UseLanguage(QLocale(QLocale::English));
}

TEST_P(KeyboardTest, EscEndsTheDialogAsItsCancelButtonDoes) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus != nullptr ? focus : opened_.window.get(), Qt::Key_Escape);
    EXPECT_EQ(opened_.model->End(), GetParam().afterEsc);
    EXPECT_EQ(opened_.window->isVisible(), GetParam().afterEsc == DialogEnd::Open);
    if (GetParam().afterEsc != DialogEnd::Open) {
        EXPECT_EQ(opened_.window->result(), QDialog::Rejected);
    }
}

// The file dialog is Qt's own, with Qt's own keys: Esc cancels it, and the choice is left as it
// was.
using FileDialogKeyboardTest = support::TempStation;

TEST_F(FileDialogKeyboardTest, EscCancelsTheFileDialog) {
    bool pressed = false;
    bool openAfterEsc = false;  // closed by the test instead, so a fault fails and never hangs
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow()) return;
        if (pressed) {
            openAfterEsc = true;
            dialog->reject();
            return;
        }
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : dialog, Qt::Key_Escape);
        pressed = true;
    });
    press.start(200);
    FileRequest request{"Select QC Mode", "*.QCC", "qc.QCC", Root(), 0};
    EXPECT_EQ(QtFileChooser(nullptr).SelectFile({}, SelectKind::OpenFolder, request), 0);
    EXPECT_TRUE(pressed);
    EXPECT_FALSE(openAfterEsc);
    EXPECT_EQ(request.fileName, "qc.QCC");
    EXPECT_EQ(request.directory, Root());
}

INSTANTIATE_TEST_SUITE_P(Windows, KeyboardTest, testing::ValuesIn(kWindows),
                         [](const testing::TestParamInfo<WindowRow>& row) {
                             return std::string(row.param.what);
                         });

}  // namespace
}  // namespace lumacfg::gui
