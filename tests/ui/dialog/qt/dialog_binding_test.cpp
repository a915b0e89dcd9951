// The binding of a dialog's model to its widgets, on a small dialog of every kind of control
// and a model that records what reaches it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
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
    }
    KeyAnswer Key(std::string_view control, const KeyPress& key, const BoxCaret& caret) override {
        keys.push_back(key.kind);
        carets.push_back(caret);
        return control == "Ed_A(0)" && key.character == '3' ? answer : KeyAnswer{};
    }
    void LeaveBox(std::string_view control) override {
        calls.push_back("Leave " + std::string(control));
        if (controls[std::string(control)].text == "7") controls[std::string(control)].text = "007";
    }
    DialogEnd End() const override { return end; }
    void Activated(platform::WindowHandle window) override {
        calls.push_back("Activated");
        activatedWindow = window;
    }

    Controls controls;
    std::vector<std::string> calls;
    std::vector<KeyPress::Kind> keys;
    std::vector<BoxCaret> carets;
    KeyAnswer answer;  // to the key "3" in the first box
    platform::WindowHandle activatedWindow = 0;
    DialogEnd end = DialogEnd::Open;
};

class DialogBindingTest : public testing::Test {
  protected:
    DialogBindingTest() {
        root_->setObjectName("Fm_Test");
        auto* column = new QVBoxLayout(root_.get());
        const std::pair<QWidget*, const char*> named[] = {
            {box0_, "Ed_A(0)"}, {box1_, "Ed_A(1)"}, {label_, "Lbl_A"},
            {check_, "Ck_X"},   {option1_, "Op_1"}, {option2_, "Op_2"},
            {list_, "Cb_L"},    {frame_, "Gb_F"},   {go_, "Cd_Go"}};
        for (auto [widget, name] : named) {
            widget->setObjectName(name);
            column->addWidget(widget);
            model_.controls[name];
        }
        label_->setBuddy(box0_);
        SetMnemonic(label_, 'a');
        SetMnemonic(check_, 'x');
        KeepHidden(list_);
        model_.controls["Ck_X"].text = "Extra";
    }

    void ShowActive() {
        root_->show();
        root_->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(root_.get()));
    }

    RecordingModel model_;
    std::unique_ptr<QWidget> root_ = std::make_unique<QWidget>();
    QLineEdit* box0_ = new QLineEdit(root_.get());
    QLineEdit* box1_ = new QLineEdit(root_.get());
    QLabel* label_ = new QLabel(root_.get());
    QCheckBox* check_ = new QCheckBox(root_.get());
    QRadioButton* option1_ = new QRadioButton(root_.get());
    QRadioButton* option2_ = new QRadioButton(root_.get());
    QComboBox* list_ = new QComboBox(root_.get());
    QGroupBox* frame_ = new QGroupBox(root_.get());
    QPushButton* go_ = new QPushButton(root_.get());
};

TEST_F(DialogBindingTest, ShowStateCopiesEveryKindOfControlWithoutReportingItBack) {
    Controls& c = model_.controls;
    c["Fm_Test"].text = "Test window";
    c["Ed_A(0)"].text = "12\x80";
    c["Ed_A(0)"].enabled = false;
    c["Lbl_A"].text = "Address:";
    c["Ck_X"].checked = true;
    c["Op_1"].checked = c["Op_2"].checked = false;  // no option chosen, which Qt resists
    c["Cb_L"].items = {"one", "two"};
    c["Cb_L"].chosen = 1;
    c["Cb_L"].visible = true;  // kept hidden by the view whatever the model says
    c["Gb_F"].text = "R&D";
    c["Cd_Go"].visible = false;
    c["Nothing"].text = "a control without a widget is left out";
    option1_->setChecked(true);
    root_->show();
    QSignalSpy edits(box0_, &QLineEdit::textChanged);

    DialogBinder binder(model_, root_.get());

    EXPECT_EQ(root_->windowTitle(), "Test window");
    EXPECT_EQ(box0_->text(), QString::fromUtf8("12€"));
    EXPECT_FALSE(box0_->isEnabled());
    EXPECT_EQ(label_->text(), "&Address:");
    EXPECT_EQ(check_->text(), "E&xtra");
    EXPECT_TRUE(check_->isChecked());
    EXPECT_FALSE(option1_->isChecked() || option2_->isChecked());
    EXPECT_EQ(list_->itemText(1), "two");
    EXPECT_EQ(list_->currentIndex(), 1);
    EXPECT_FALSE(list_->isVisible());
    EXPECT_EQ(frame_->title(), "R&&D");
    EXPECT_FALSE(go_->isVisible());
    EXPECT_EQ(edits.count(), 0);
    EXPECT_TRUE(model_.calls.empty());
}

TEST_F(DialogBindingTest, EveryControlIsNamedForScreenReadersFromWhatItShowsNow) {
    Controls& c = model_.controls;
    c["Lbl_A"].text = "Address:";
    c["Op_1"].text = "One";
    c["Gb_F"].text = "R&D";
    c["Cd_Go"].text = "Go";
    c["Cb_L"].items = {"one", "two"};
    c["Cb_L"].chosen = 1;
    SetAccessibleName(box1_, "Second part");
    SetAccessibleName(list_, "Entries");
    DialogBinder binder(model_, root_.get());
    const std::pair<QWidget*, const char*> named[] = {
        {box0_, "Address"},      // its label's caption, no mnemonic marker, no colon
        {box1_, "Second part"},  // the view's own name
        {check_, "Extra"},      {option1_, "One"}, {frame_, "R&D"}, {go_, "Go"},
        {option2_, ""},  // nothing shown, nothing said
    };
    for (auto [widget, name] : named) EXPECT_EQ(widget->accessibleName(), name);
    // A list is read by its name, its chosen entry being its value and its text.
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(list_);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->text(QAccessible::Name), "Entries");
    EXPECT_EQ(list->text(QAccessible::Value), "two");
    ASSERT_NE(list->textInterface(), nullptr);
    EXPECT_EQ(list->textInterface()->text(0, list->textInterface()->characterCount()), "two");

    // A caption shown anew (another language) renames what it names.
    c["Lbl_A"].text = "Adresse :";
    c["Ck_X"].text = "Zus\xE4tzlich";
    binder.Refresh();
    EXPECT_EQ(box0_->accessibleName(), QString::fromUtf8("Adresse"));
    EXPECT_EQ(check_->accessibleName(), QString::fromUtf8("Zusätzlich"));
    EXPECT_EQ(box1_->accessibleName(), "Second part");
}

TEST_F(DialogBindingTest, UserActionsReachTheModelABoxIsLeftBeforeAClick) {
    DialogBinder binder(model_, root_.get());
    QSignalSpy ended(&binder, &DialogBinder::Ended);
    ShowActive();
    QCoreApplication::processEvents();  // the placement follows the activation
    box0_->setFocus();
    QTest::keyClick(box0_, '4');
    QTest::sendKeyEvent(QTest::Click, box0_, Qt::Key_Eacute, QString::fromUtf8("é"), {});
    QTest::mouseClick(check_, Qt::LeftButton, {}, QPoint(4, 4));
    list_->activated(1);
    box1_->setFocus();
    QTest::keyClick(box1_, '7');
    binder.Click("Cd_Go");  // as Enter or a mnemonic clicks: the focus still in the box

    EXPECT_THAT(model_.calls, ElementsAre("Activated", "SetText Ed_A(0)=4", "SetText Ed_A(0)=4\xE9",
                                          "Leave Ed_A(0)", "Click Ck_X", "Choose Cb_L 1",
                                          "SetText Ed_A(1)=7", "Leave Ed_A(1)", "Click Cd_Go"));
    EXPECT_EQ(model_.activatedWindow, root_->winId());  // placed as it became active
    EXPECT_EQ(box1_->text(), "007");
    EXPECT_TRUE(check_->isChecked());
    ASSERT_EQ(ended.count(), 1);
    EXPECT_EQ(ended[0][0].value<DialogEnd>(), DialogEnd::Accepted);
}

TEST_F(DialogBindingTest, TheModelAnswersEachKeyBeforeTheBoxTakesIt) {
    using Verdict = KeyAnswer::Verdict;
    using Place = KeyAnswer::Place;
    const struct {
        KeyAnswer answer;
        const char* box0;  // after "12" and the key "3"
        bool moved;        // the focus in the second box afterwards
        const char* selected;
        int caret;
    } cases[] = {
        {{}, "123", false, "", 3},
        {{Verdict::Beep, {}, Place::Start}, "12", false, "", 2},
        {{Verdict::Pass, "Ed_A(1)", Place::SelectAll}, "123", true, "45", 2},
        {{Verdict::Swallow, "Ed_A(1)", Place::End}, "12", true, "", 2},
        {{Verdict::Swallow, "Ed_A(1)", Place::Start}, "12", true, "", 0},
    };
    DialogBinder binder(model_, root_.get());
    ShowActive();
    for (const auto& c : cases) {
        model_.controls["Ed_A(0)"].text = "12";
        model_.controls["Ed_A(1)"].text = "45";
        binder.Refresh();
        box0_->setFocus();
        box0_->setCursorPosition(2);
        model_.answer = c.answer;
        QTest::keyClick(box0_, '3');
        EXPECT_EQ(box0_->text(), c.box0);
        QLineEdit* focused = c.moved ? box1_ : box0_;
        EXPECT_EQ(QApplication::focusWidget(), focused);
        EXPECT_EQ(focused->selectedText(), c.selected);
        EXPECT_EQ(focused->cursorPosition(), c.caret);
    }
    // The caret as the model sees it, and only the keys it has a say in (not Tab, not Ctrl+C).
    model_.keys.clear();
    model_.controls["Ed_A(0)"].text = "255";
    binder.Refresh();
    box0_->setFocus();
    box0_->setSelection(1, 2);
    QTest::keyClick(box0_, Qt::Key_Left);
    QTest::keyClick(box0_, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(box0_, Qt::Key_Tab);
    QTest::keyClick(box1_, Qt::Key_Backspace);
    EXPECT_THAT(model_.keys, ElementsAre(KeyPress::Kind::Left, KeyPress::Kind::Backspace));
    const BoxCaret& caret = model_.carets[model_.carets.size() - 2];
    EXPECT_EQ(caret.position, 3);
    EXPECT_EQ(caret.selectionStart, 1);
    EXPECT_EQ(caret.selectionLength, 2);
}

}  // namespace
}  // namespace lumacfg::ui
