// The Miscellaneous dialog's widgets bound to its model: a widget of its kind for every control,
// the carrier gas box greying the flow controls, a box cleaned when the focus leaves it, and
// Esc as Cancel. The dialog's rules are tested on the model.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "support/temp_station.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/misc/qt/misc_window.h"

namespace lumacfg::ui {
namespace {

class MiscWindowTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        ConfigRecord record;
        record.ALS_TYPE = 1;
        model_ =
            std::make_unique<MiscDialog>(record, MiscSurroundings{"OPAL", "Auto Dilution", true});
        window_ = std::make_unique<MiscWindow>(*model_);
        window_->show();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }
    template <class Widget = QWidget>
    Widget* Find(const char* name) const {
        return window_->findChild<Widget*>(QLatin1String(name));
    }

    std::unique_ptr<MiscDialog> model_;
    std::unique_ptr<MiscWindow> window_;
};

TEST_F(MiscWindowTest, EveryControlHasAWidgetOfItsKind) {
    EXPECT_EQ(window_->windowTitle(), QStringLiteral("Miscellaneous"));
    for (const auto& [name, state] : model_->State()) {
        if (name == "Fm_Misc") continue;
        QWidget* widget = Find(name.c_str());
        ASSERT_NE(widget, nullptr) << name;
        bool ofItsKind = false;
        if (name.starts_with("Ck_")) ofItsKind = qobject_cast<QCheckBox*>(widget) != nullptr;
        if (name.starts_with("Op_")) ofItsKind = qobject_cast<QRadioButton*>(widget) != nullptr;
        if (name.starts_with("Gb_")) ofItsKind = qobject_cast<QGroupBox*>(widget) != nullptr;
        if (name.starts_with("Lbl_")) ofItsKind = qobject_cast<QLabel*>(widget) != nullptr;
        if (name.starts_with("Txt_")) ofItsKind = qobject_cast<QLineEdit*>(widget) != nullptr;
        if (name == "OK" || name == "Cancel" || name == "Help")
            ofItsKind = qobject_cast<QPushButton*>(widget) != nullptr;
        EXPECT_TRUE(ofItsKind) << name;
        EXPECT_EQ(widget->isEnabled(), state.enabled) << name;
    }
}

TEST_F(MiscWindowTest, TheCarrierGasBoxEnablesTheFlowAndABoxIsCleanedWhenLeft) {
    auto* flow = Find<QLineEdit>("Txt_CGFlow");
    EXPECT_FALSE(flow->isEnabled());
    QTest::mouseClick(Find<QCheckBox>("Ck_CG"), Qt::LeftButton);
    ASSERT_TRUE(flow->isEnabled());
    flow->setFocus();
    flow->selectAll();
    QTest::keyClicks(flow, QStringLiteral("0.125"));
    QTest::keyClick(flow, Qt::Key_Tab);
    EXPECT_EQ(flow->text(), QStringLiteral("0.13"));
}

TEST_F(MiscWindowTest, EscIsCancel) {
    QTest::keyClick(window_.get(), Qt::Key_Escape);
    EXPECT_EQ(model_->End(), DialogEnd::Cancelled);
    EXPECT_FALSE(window_->isVisible());
}

}  // namespace
}  // namespace lumacfg::ui
