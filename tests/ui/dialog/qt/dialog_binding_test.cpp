// The binding of a dialog's model to its widgets, on a small dialog of every kind of control
// and a model that records what reaches it: states shown under blocked signals, each user
// action handed to the model, the model's answers to keys, boxes left when the focus goes.
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
#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/dialog/qt/dialog_binding.h"

namespace lumacfg::ui {
namespace {

using testing::ElementsAre;

class RecordingModel final : public DialogModel {
  public:
    const Controls& State() const override { return controls; }
    void SetText(std::string_view control, std::string text) override {
        calls.push_back("SetText " + std::string(control) + "=" + text);
        controls[std::string(control)].text = std::move(text);
    }
    void Click(std::string_view control) override {
        calls.push_back("Click " + std::string(control));
        if (control == "Cd_Go") end = DialogEnd::Accepted;
        if (control == "Ck_X") controls["Ck_X"].checked = !controls["Ck_X"].checked;
    }
    void Choose(std::string_view control, int index) override {
        calls.push_back("Choose " + std::string(control) + " " + std::to_string(index));
        controls[std::string(control)].chosen = index;
    }
    KeyAnswer Key(std::string_view control, const KeyPress& key, const BoxCaret& caret) override {
        keys.push_back(key);
        carets.push_back(caret);
        return answer ? answer(control, key) : KeyAnswer{};
    }
    void LeaveBox(std::string_view control) override {
        calls.push_back("Leave " + std::string(control));
        // The model cleans the box: "7" becomes "007".
        ControlState& box = controls[std::string(control)];
        if (box.text == "7") box.text = "007";
    }
    DialogEnd End() const override { return end; }

    Controls controls;
    std::vector<std::string> calls;
    std::vector<KeyPress> keys;
    std::vector<BoxCaret> carets;
    std::function<KeyAnswer(std::string_view, const KeyPress&)> answer;
    DialogEnd end = DialogEnd::Open;
};

class DialogBindingTest : public testing::Test {
  protected:
    void SetUp() override {
        root_ = std::make_unique<QWidget>();
        root_->setObjectName("Fm_Test");
        auto* column = new QVBoxLayout(root_.get());
        auto add = [&](QWidget* widget, const char* name) {
            widget->setObjectName(name);
            column->addWidget(widget);
            return widget;
        };
        box0_ = static_cast<QLineEdit*>(add(new QLineEdit, "Ed_A(0)"));
        box1_ = static_cast<QLineEdit*>(add(new QLineEdit, "Ed_A(1)"));
        auto* label = static_cast<QLabel*>(add(new QLabel, "Lbl_A"));
        label->setBuddy(box0_);
        SetMnemonic(label, 'a');
        add(new QLabel, "Lbl_Plain");
        SetMnemonic(add(new QCheckBox, "Ck_X"), 'x');
        add(new QRadioButton, "Op_1");
        add(new QRadioButton, "Op_2");
        add(new QComboBox, "Cb_L");
        SetMnemonic(add(new QGroupBox, "Gb_F"), 'F');
        add(new QPushButton, "Cd_Go");
        add(new QPushButton, "Cd_Own");
        KeepHidden(add(new QComboBox, "Cb_Hidden"));
        for (const char* name : {"Ed_A(0)", "Ed_A(1)", "Lbl_Plain", "Ck_X", "Op_1", "Op_2", "Cb_L",
                                 "Gb_F", "Cd_Go", "Cd_Own", "Cb_Hidden"}) {
            model_.controls[name];
        }
        model_.controls["Fm_Test"].text = "Test window";
        model_.controls["Lbl_A"].text = "Address:";
        model_.controls["Cb_L"].items = {"one", "two"};
        model_.controls["Cb_L"].chosen = 0;
    }

    template <class Widget>
    Widget* Find(const char* name) {
        return root_->findChild<Widget*>(name);
    }

    // A shown, active window: focus changes reach the boxes as on a desktop.
    void ShowActive() {
        root_->show();
        root_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(root_.get()));
    }

    RecordingModel model_;
    std::unique_ptr<QWidget> root_;
    QLineEdit* box0_ = nullptr;
    QLineEdit* box1_ = nullptr;
};

TEST(CaptionTest, MnemonicMarksTheFirstOccurrenceOfTheLetterInEitherCase) {
    const struct {
        const char* caption;
        QChar letter;
        const char* shown;
    } cases[] = {
        {"Save", 'S', "&Save"},
        {"Setup...", 'u', "Set&up..."},
        {"Don't Use", 'N', "Do&n't Use"},
        {"R&D", 'd', "R&&&D"},  // a caption's own "&" is shown as it is
        {"Save", 'x', "Save"},  // a language whose caption lacks the letter: no mnemonic
        {"A&B", QChar(), "A&&B"},
        {"", 'a', ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CaptionWithMnemonic(QString::fromUtf8(c.caption), c.letter),
                  QString::fromUtf8(c.shown))
            << c.caption;
    }
}

TEST_F(DialogBindingTest, ShowStateCopiesEveryKindOfControlWithoutReportingItBack) {
    Controls& c = model_.controls;
    c["Ed_A(0)"].text = "12\x80";
    c["Ed_A(0)"].enabled = false;
    c["Lbl_Plain"].text = "A&B";
    c["Ck_X"].text = "Extra";
    c["Ck_X"].checked = true;
    c["Op_1"].text = "First";
    c["Cb_L"].items = {"one", "two", "three"};
    c["Cb_L"].chosen = 2;
    c["Gb_F"].text = "Frame";
    c["Cd_Go"].text = "Go";
    c["Cd_Go"].visible = false;
    c["Cb_Hidden"].visible = true;  // kept hidden by the view whatever the model says
    c["Nothing"].text = "a control without a widget is left out";
    root_->show();
    QSignalSpy edits(box0_, &QLineEdit::textChanged);
    QSignalSpy toggles(Find<QCheckBox>("Ck_X"), &QCheckBox::toggled);

    ShowState(model_.controls, root_.get());

    EXPECT_EQ(root_->windowTitle(), "Test window");
    EXPECT_EQ(box0_->text(), QString::fromUtf8("12€"));
    EXPECT_FALSE(box0_->isEnabled());
    EXPECT_EQ(Find<QLabel>("Lbl_A")->text(), "&Address:");
    EXPECT_EQ(Find<QLabel>("Lbl_Plain")->text(), "A&B");  // no buddy: shown as it is
    EXPECT_EQ(Find<QCheckBox>("Ck_X")->text(), "E&xtra");
    EXPECT_TRUE(Find<QCheckBox>("Ck_X")->isChecked());
    EXPECT_EQ(Find<QRadioButton>("Op_1")->text(), "First");
    auto* list = Find<QComboBox>("Cb_L");
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->itemText(2), "three");
    EXPECT_EQ(list->currentIndex(), 2);
    EXPECT_EQ(Find<QGroupBox>("Gb_F")->title(), "&Frame");
    EXPECT_FALSE(Find<QPushButton>("Cd_Go")->isVisible());
    EXPECT_FALSE(Find<QComboBox>("Cb_Hidden")->isVisible());
    EXPECT_EQ(edits.count(), 0);
    EXPECT_EQ(toggles.count(), 0);
    EXPECT_TRUE(model_.calls.empty());
}

TEST_F(DialogBindingTest, OptionButtonsShowWhatTheModelSaysEvenWhenNoneIsChosen) {
    DialogBinder binder(model_, root_.get());
    auto* first = Find<QRadioButton>("Op_1");
    auto* second = Find<QRadioButton>("Op_2");
    for (auto [one, two] : {std::pair{true, false}, {false, true}, {false, false}}) {
        model_.controls["Op_1"].checked = one;
        model_.controls["Op_2"].checked = two;
        binder.Refresh();
        EXPECT_EQ(first->isChecked(), one);
        EXPECT_EQ(second->isChecked(), two);
        EXPECT_TRUE(first->autoExclusive());
    }
}

TEST_F(DialogBindingTest, UserActionsReachTheModelAndTheStatesAreShownAgain) {
    DialogBinder binder(model_, root_.get());
    QSignalSpy ended(&binder, &DialogBinder::Ended);
    ShowActive();

    box0_->setFocus();
    QTest::keyClick(box0_, '4');
    // "é" reaches the model as the byte 0xE9.
    QTest::sendKeyEvent(QTest::Click, box0_, Qt::Key_Eacute, QString::fromUtf8("é"), {});
    QTest::mouseClick(Find<QCheckBox>("Ck_X"), Qt::LeftButton, {}, QPoint(4, 4));
    Find<QComboBox>("Cb_L")->activated(1);
    QTest::mouseClick(Find<QPushButton>("Cd_Go"), Qt::LeftButton);

    EXPECT_THAT(model_.calls,
                ElementsAre("SetText Ed_A(0)=4", "SetText Ed_A(0)=4\xE9", "Leave Ed_A(0)",
                            "Click Ck_X", "Choose Cb_L 1", "Click Cd_Go"));
    EXPECT_TRUE(Find<QCheckBox>("Ck_X")->isChecked());
    ASSERT_EQ(ended.count(), 1);
    EXPECT_EQ(ended[0][0].value<DialogEnd>(), DialogEnd::Accepted);
}

TEST_F(DialogBindingTest, AClickLeavesTheBoxBeingEditedFirstEvenWithoutMouse) {
    DialogBinder binder(model_, root_.get());
    ShowActive();
    box0_->setFocus();
    QTest::keyClick(box0_, '7');
    binder.Click("Cd_Go");  // as Enter or a mnemonic clicks it: the focus was still in the box
    EXPECT_THAT(model_.calls, ElementsAre("SetText Ed_A(0)=7", "Leave Ed_A(0)", "Click Cd_Go"));
    EXPECT_EQ(box0_->text(), "007");
    EXPECT_EQ(QApplication::focusWidget(), Find<QPushButton>("Cd_Go"));
}

TEST_F(DialogBindingTest, TheViewsOwnActionTakesTheClickAndHandsItsTextToTheModel) {
    DialogBinder binder(model_, root_.get());
    binder.SetClickAction("Cd_Own", [&] { binder.SetText("Lbl_Plain", "/srv/vlt"); });
    binder.Click("Cd_Own");
    EXPECT_THAT(model_.calls, ElementsAre("SetText Lbl_Plain=/srv/vlt"));
    EXPECT_EQ(Find<QLabel>("Lbl_Plain")->text(), "/srv/vlt");
}

TEST_F(DialogBindingTest, KeysAreAnsweredByTheModelBeforeTheBoxTakesThem) {
    using Verdict = KeyAnswer::Verdict;
    using Place = KeyAnswer::Place;
    const struct {
        const char* what;
        KeyAnswer answer;
        const char* box0;          // the first box's text after "12" then the key "3"
        int focus;                 // the box with the focus afterwards
        const char* box1Selected;  // the second box's selection afterwards
        int box1Caret;
    } cases[] = {
        {"entered", {}, "123", 0, "", -1},
        {"refused", {Verdict::Swallow, {}, Place::Start}, "12", 0, "", -1},
        {"refused with a beep", {Verdict::Beep, {}, Place::Start}, "12", 0, "", -1},
        {"entered, then the next box selected",
         {Verdict::Pass, "Ed_A(1)", Place::SelectAll},
         "123",
         1,
         "45",
         2},
        {"refused, the next box at its end",
         {Verdict::Swallow, "Ed_A(1)", Place::End},
         "12",
         1,
         "",
         2},
        {"refused, the next box at its start",
         {Verdict::Swallow, "Ed_A(1)", Place::Start},
         "12",
         1,
         "",
         0},
    };
    DialogBinder binder(model_, root_.get());
    ShowActive();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        model_.controls["Ed_A(0)"].text = "12";
        model_.controls["Ed_A(1)"].text = "45";
        binder.Refresh();
        box0_->setFocus();
        box0_->setCursorPosition(2);
        model_.answer = [&](std::string_view control, const KeyPress& key) {
            return control == "Ed_A(0)" && key.character == '3' ? c.answer : KeyAnswer{};
        };
        QTest::keyClick(box0_, '3');
        EXPECT_EQ(box0_->text(), c.box0);
        EXPECT_EQ(QApplication::focusWidget(), c.focus == 0 ? box0_ : box1_);
        if (c.box1Caret >= 0) {
            EXPECT_EQ(box1_->selectedText(), c.box1Selected);
            EXPECT_EQ(box1_->cursorPosition(), c.box1Caret);
        }
    }
}

TEST_F(DialogBindingTest, TheModelSeesTheCaretAndOnlyTheKeysItHasASayIn) {
    DialogBinder binder(model_, root_.get());
    ShowActive();
    model_.controls["Ed_A(0)"].text = "255";
    binder.Refresh();
    box0_->setFocus();
    box0_->setSelection(1, 2);  // "55" selected, the caret after it
    QTest::keyClick(box0_, Qt::Key_Left);
    QTest::keyClick(box0_, Qt::Key_Tab);  // moves on; the model is not asked
    QTest::keyClick(box1_, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(box1_, Qt::Key_Backspace);
    QTest::keyClick(box1_, Qt::Key_End);

    ASSERT_EQ(model_.keys.size(), 3u);
    EXPECT_EQ(model_.keys[0].kind, KeyPress::Kind::Left);
    EXPECT_EQ(model_.carets[0].position, 3);
    EXPECT_EQ(model_.carets[0].selectionStart, 1);
    EXPECT_EQ(model_.carets[0].selectionLength, 2);
    EXPECT_EQ(model_.keys[1].kind, KeyPress::Kind::Backspace);
    EXPECT_EQ(model_.keys[2].kind, KeyPress::Kind::End);
    // Tab left the first box.
    EXPECT_THAT(model_.calls, testing::Contains("Leave Ed_A(0)"));
}

}  // namespace
}  // namespace lumacfg::ui
