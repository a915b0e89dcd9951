// The main window's widgets bound to the main dialog's model on a new station: a widget of the
// right kind for every control, and the user's typing, clicks and keys reaching the model. The
// model's own rules are tested without a window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "config/config_record.h"
#include "config/start_up.h"
#include "support/temp_station.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/main_dialog.h"
#include "ui/main/qt/main_window.h"

namespace lumacfg::ui {
namespace {

class MainWindowTest : public support::TempStation {
  protected:
    // A new station of the GPIB model, or of the LAN model (registry "HardWare" 2).
    void Start(bool lan = false) {
        if (lan) {
            support::WriteBytes(RegistryPath(),
                                support::RegistryText("\"Path\"=\"C:\\\\PLASMA\"\r\n"
                                                      "\"HardWare\"=dword:00000002\r\n"));
        }
        ASSERT_EQ(StartUp({.commandLineEmpty = false}), StartUpResult::Continue);
        model_ = std::make_unique<MainDialog>(Config());
        messages_.clear();  // the load's own notices (a station without an OPAL system)
        window_ = std::make_unique<MainWindow>(*model_);
        window_->show();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }

    template <class Widget = QWidget>
    Widget* Find(const char* name) const {
        auto* widget = window_->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }

    const ControlState& State(const char* name) const { return model_->State().find(name)->second; }

    std::unique_ptr<MainDialog> model_;
    std::unique_ptr<MainWindow> window_;
};

// The kind of widget each name's prefix stands for.
bool OfItsKind(const std::string& name, QWidget* widget) {
    const struct {
        const char* prefix;
        bool (*is)(QWidget*);
    } kinds[] = {
        {"Ed_IPDot", [](QWidget* w) { return qobject_cast<QLabel*>(w) != nullptr; }},
        {"Ed_", [](QWidget* w) { return qobject_cast<QLineEdit*>(w) != nullptr; }},
        {"Ck_", [](QWidget* w) { return qobject_cast<QCheckBox*>(w) != nullptr; }},
        {"Op_", [](QWidget* w) { return qobject_cast<QRadioButton*>(w) != nullptr; }},
        {"Cb_", [](QWidget* w) { return qobject_cast<QComboBox*>(w) != nullptr; }},
        {"Gb_", [](QWidget* w) { return qobject_cast<QGroupBox*>(w) != nullptr; }},
        {"Cd_", [](QWidget* w) { return qobject_cast<QAbstractButton*>(w) != nullptr; }},
        {"Lb", [](QWidget* w) { return qobject_cast<QLabel*>(w) != nullptr; }},
    };
    for (const auto& kind : kinds) {
        if (name.starts_with(kind.prefix)) return kind.is(widget);
    }
    return qobject_cast<QPushButton*>(widget) != nullptr;  // "Cancel", "Help"
}

TEST_F(MainWindowTest, EveryControlOfTheModelIsAWidgetOfItsNameAndKind) {
    Start();
    // The timer and the common file dialog are no widgets: the window opens a file dialog
    // when one is needed.
    const std::set<std::string> notWidgets = {"Timer1", "CmmDlg1", "Fm_Config"};
    std::set<std::string> controls;
    for (const auto& [name, state] : model_->State()) {
        controls.insert(name);
        if (notWidgets.contains(name)) continue;
        QWidget* widget = window_->findChild<QWidget*>(QString::fromStdString(name));
        ASSERT_NE(widget, nullptr) << name;
        EXPECT_TRUE(OfItsKind(name, widget))
            << name << " is a " << widget->metaObject()->className();
        EXPECT_EQ(widget->isVisible(), state.visible) << name;
        EXPECT_EQ(widget->isEnabledTo(window_.get()), state.enabled) << name;
    }
    EXPECT_EQ(window_->objectName(), "Fm_Config");
    EXPECT_EQ(window_->windowTitle(), "ICP-MS Configuration");
    for (QWidget* widget : window_->findChildren<QWidget*>()) {
        const std::string name = widget->objectName().toStdString();
        if (!name.empty() && !name.starts_with("qt_")) {
            EXPECT_TRUE(controls.contains(name)) << name;
        }
    }
    EXPECT_FALSE(Find("Cb_MPMFileStd(0)")->isVisible());
    EXPECT_TRUE(Find("Ed_Address")->isVisible());
    EXPECT_FALSE(Find("Ed_IP(0)")->isVisible());
}

TEST_F(MainWindowTest, TypingAnOctetReachesTheModelAndTheFocusMovesOn) {
    Start(/*lan=*/true);
    auto* first = Find<QLineEdit>("Ed_IP(0)");
    auto* second = Find<QLineEdit>("Ed_IP(1)");
    ASSERT_TRUE(first->isVisible());
    first->setFocus();
    first->selectAll();
    QTest::keyClicks(first, "10x");  // a letter is refused
    EXPECT_EQ(State("Ed_IP(0)").text, "10");
    QTest::keyClick(first, '.');  // moves on, enters no dot
    EXPECT_EQ(QApplication::focusWidget(), second);
    EXPECT_EQ(second->selectedText(), "168");
    QTest::keyClicks(second, "999");
    QTest::keyClick(second, Qt::Key_Home);  // the first box, which keeps what was typed
    EXPECT_EQ(QApplication::focusWidget(), first);
    EXPECT_EQ(first->text(), "10");
    EXPECT_EQ(second->text(), "255");  // cleaned when it was left
    EXPECT_EQ(State("Ed_IP(1)").text, "255");
}

TEST_F(MainWindowTest, ARefusedSaveShowsItsMessageAndKeepsTheWindowOpen) {
    Start();
    QSignalSpy finished(window_.get(), &QDialog::finished);
    auto* address = Find<QLineEdit>("Ed_Address");
    address->setFocus();
    address->selectAll();
    QTest::keyClicks(address, "35");
    QTest::mouseClick(Find<QPushButton>("Cd_Save"), Qt::LeftButton);
    ASSERT_EQ(messages_.size(), 1u);
    EXPECT_EQ(messages_[0].text, "Valid GPIB address is an integral number from 0 to 29.");
    EXPECT_EQ(messages_[0].title, "Error");
    EXPECT_EQ(messages_[0].icon, platform::MessageIcon::Exclamation);
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(finished.count(), 0);
    EXPECT_EQ(address->text(), "35");

    address->setFocus();
    address->selectAll();
    QTest::keyClicks(address, "7");
    QTest::keyClick(window_.get(), Qt::Key_S, Qt::AltModifier);  // Save by its mnemonic
    ASSERT_TRUE(finished.wait(1000));
    EXPECT_EQ(finished[0][0].toInt(), QDialog::Accepted);
    ConfigRecord saved;
    model_->Accept(saved);
    EXPECT_EQ(saved.GPIB_ADDR, 7);
    EXPECT_EQ(saved.SAVE_REQ, 1);
}

TEST_F(MainWindowTest, EscapeIsCancelButClosingByTheFrameIsNot) {
    Start();
    QSignalSpy finished(window_.get(), &QDialog::finished);
    window_->close();
    ASSERT_EQ(finished.count(), 1);
    EXPECT_EQ(model_->End(), DialogEnd::Open);  // the record's SAVE_REQ stays as it was

    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(Find<QComboBox>("Cb_Type"), Qt::Key_Escape);
    ASSERT_EQ(finished.count(), 2);
    EXPECT_EQ(finished[1][0].toInt(), QDialog::Rejected);
    EXPECT_EQ(model_->End(), DialogEnd::Cancelled);
    EXPECT_TRUE(messages_.empty());
}

TEST_F(MainWindowTest, ResetRefillsTheWidgetsAndTheVltFolderChosenGoesToItsLabel) {
    Start();
    auto* mass = Find<QLineEdit>("Ed_Inhibit(0)");
    const QString before = mass->text();
    window_->Binder().SetText("Ed_Inhibit(0)", "200");
    window_->Binder().Click("Ck_Offline");
    ASSERT_FALSE(Find("Ed_Address")->isEnabled());
    QTest::mouseClick(Find<QPushButton>("Cd_Reset"), Qt::LeftButton);
    EXPECT_EQ(mass->text(), before);
    EXPECT_TRUE(Find("Ed_Address")->isEnabled());

    window_->SetFolderChooser([](QWidget*, const QString& caption, const QString&) {
        return caption == "VLT Path" ? QStringLiteral("/srv/J\u00FCrgen") : QString();
    });
    if (!Find<QCheckBox>("Ck_Security")->isChecked()) window_->Binder().Click("Ck_Security");
    window_->Binder().Click("Ck_VLT");
    QTest::mouseClick(Find<QAbstractButton>("Cd_SelVLTFolder"), Qt::LeftButton);
    EXPECT_EQ(State("Lb_VLTFolder").text, "/srv/J\xFCrgen");
    EXPECT_EQ(Find<QLabel>("Lb_VLTFolder")->text(), QString::fromUtf8("/srv/Jürgen"));
}

// Tab follows the frames: the left column top to bottom, the right column, then the buttons;
// a greyed control and the unchosen option of a group are passed over.
TEST_F(MainWindowTest, TabFollowsTheFrames) {
    Start(/*lan=*/true);
    QWidget* first = Find("Ed_IP(0)");
    first->setFocus();
    std::vector<std::string> chain;
    for (QWidget* at = first; chain.size() < 40;) {
        chain.push_back(at->objectName().toStdString());
        QTest::keyClick(at, Qt::Key_Tab);
        at = QApplication::focusWidget();
        if (at == first || at == nullptr) break;
    }
    std::vector<std::string> expected = {"Ed_IP(0)",   "Ed_IP(1)",  "Ed_IP(2)", "Ed_IP(3)",
                                         "Ck_Offline", "Op_NotUse", "Cb_Type",  "Cb_Auto"};
    for (int i = 0; i < 10; ++i) expected.push_back("Ed_Inhibit(" + std::to_string(i) + ")");
    for (const char* name : {"Cd_Browse", "Cd_QCCfg", "Ck_Integ", "Ck_Security", "Ck_VLT",
                             "Cd_Misc", "Cd_Tlbar", "Cd_Save", "Cd_Reset", "Cancel", "Help"}) {
        expected.emplace_back(name);
    }
    EXPECT_EQ(chain, expected);
}

}  // namespace
}  // namespace lumacfg::ui
