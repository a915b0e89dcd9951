// The first-start window bound to its model: Browse... puts the chosen folder in the box, OK
// records it and accepts, Esc is Cancel.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "support/temp_station.h"
#include "ui/start/qt/first_start_window.h"

namespace lumacfg::ui {
namespace {

class FirstStartWindowTest : public support::TempStation {
  protected:
    void SetUp() override {
        TempStation::SetUp();
        window_ = std::make_unique<FirstStartWindow>(model_);
        window_->show();
        window_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    }

    FirstStartDialog model_{{platform::FileOperation::Read, "registry.reg", "missing"}};
    std::unique_ptr<FirstStartWindow> window_;
};

TEST_F(FirstStartWindowTest, BrowseFillsTheFolderAndOkAccepts) {
    QString offered;
    window_->SetFolderChooser([&](QWidget*, const QString& start) {
        offered = start;
        return QString::fromStdString(Root() + "/./");
    });
    QTest::keyClick(window_.get(), Qt::Key_B, Qt::AltModifier);  // a mnemonic clicks animated
    ASSERT_TRUE(QTest::qWaitFor([&] { return !offered.isEmpty(); }, 1000));
    EXPECT_EQ(window_->findChild<QLineEdit*>(QStringLiteral("Ed_Folder"))->text().toStdString(),
              Root());
    QTest::keyClick(window_.get(), Qt::Key_Return);
    EXPECT_EQ(window_->result(), QDialog::Accepted);
    EXPECT_EQ(model_.End(), DialogEnd::Accepted);
    EXPECT_TRUE(messages_.empty());
}

TEST_F(FirstStartWindowTest, EscIsCancel) {
    QTest::keyClick(window_.get(), Qt::Key_Escape);
    EXPECT_EQ(model_.End(), DialogEnd::Cancelled);
    EXPECT_FALSE(window_->isVisible());
}

}  // namespace
}  // namespace lumacfg::ui
