// The octet boxes of the LAN address, driven key by key as a text box would take the keys.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "ui/main/main_dialog_fixture.h"

namespace lumacfg::ui {
namespace {

// What the view does with the model's answers: a box enters a passed key at its caret
// (replacing the selection), a focus move leaves the old box (which cleans it) and places the
// caret in the new one.
class OctetTyping {
  public:
    explicit OctetTyping(MainDialog& window) : window_(window) {}

    // Keys in a short notation: '<' Left, '>' Right, '^' Home, '$' End, '~' Backspace; any
    // other character is typed.
    void Keys(const std::string& keys) {
        for (char k : keys) {
            KeyPress key;
            switch (k) {
                case '<':
                    key.kind = KeyPress::Kind::Left;
                    break;
                case '>':
                    key.kind = KeyPress::Kind::Right;
                    break;
                case '^':
                    key.kind = KeyPress::Kind::Home;
                    break;
                case '$':
                    key.kind = KeyPress::Kind::End;
                    break;
                case '~':
                    key.kind = KeyPress::Kind::Backspace;
                    break;
                default:
                    key.character = k;
            }
            Press(key);
        }
    }

    // Gives a box the focus with its whole text selected.
    void Focus(const std::string& box) {
        focus_ = box;
        Place(KeyAnswer::Place::SelectAll);
    }

    const std::string& FocusedBox() const { return focus_; }
    int Beeps() const { return beeps_; }

  private:
    std::string Text() const { return window_.State().at(focus_).text; }

    void Press(const KeyPress& key) {
        const KeyAnswer answer = window_.Key(focus_, key, caret_);
        if (answer.verdict == KeyAnswer::Verdict::Beep) ++beeps_;
        if (answer.verdict == KeyAnswer::Verdict::Pass) Enter(key);
        if (!answer.focus.empty()) {
            if (answer.focus != focus_) window_.LeaveBox(focus_);
            focus_ = answer.focus;
            Place(answer.place);
        }
    }

    void Enter(const KeyPress& key) {
        std::string text = Text();
        const int length = static_cast<int>(text.size());
        switch (key.kind) {
            case KeyPress::Kind::Character:
                text.replace(caret_.selectionStart, caret_.selectionLength, 1, key.character);
                caret_ = {caret_.selectionStart + 1, caret_.selectionStart + 1, 0};
                break;
            case KeyPress::Kind::Backspace:
                if (caret_.selectionLength > 0) {
                    text.erase(caret_.selectionStart, caret_.selectionLength);
                    caret_ = {caret_.selectionStart, caret_.selectionStart, 0};
                } else if (caret_.position > 0) {
                    text.erase(caret_.position - 1, 1);
                    caret_ = {caret_.position - 1, caret_.position - 1, 0};
                }
                break;
            case KeyPress::Kind::Left:
            case KeyPress::Kind::Up:
                caret_ = {std::max(caret_.position - 1, 0), std::max(caret_.position - 1, 0), 0};
                break;
            case KeyPress::Kind::Right:
            case KeyPress::Kind::Down:
                caret_ = {std::min(caret_.position + 1, length),
                          std::min(caret_.position + 1, length), 0};
                break;
            default:
                break;
        }
        window_.SetText(focus_, text);
    }

    void Place(KeyAnswer::Place place) {
        const int length = static_cast<int>(Text().size());
        switch (place) {
            case KeyAnswer::Place::SelectAll:
                caret_ = {length, 0, length};
                break;
            case KeyAnswer::Place::Start:
                caret_ = {0, 0, 0};
                break;
            case KeyAnswer::Place::End:
                caret_ = {length, length, 0};
                break;
        }
    }

    MainDialog& window_;
    std::string focus_;
    BoxCaret caret_;
    int beeps_ = 0;
};

TEST_F(MainDialogTest, OctetBoxesTakeKeysAsTheAddressRules) {
    struct Case {
        std::array<std::string, 4> before;
        std::string keys;  // typed with the focus in Ed_IP(0), its text selected
        std::array<std::string, 4> after;
        std::string focus;
        int beeps;
    } cases[] = {
        {{"", "", "", ""}, "192", {"192", "", "", ""}, "Ed_IP(1)", 0},
        {{"", "", "", ""}, "192.168.1.128", {"192", "168", "1", "128"}, "Ed_IP(3)", 0},
        {{"10", "20", "30", "40"}, "192168", {"192", "168", "30", "40"}, "Ed_IP(2)", 0},
        // A fourth digit in a full box with nothing selected.
        {{"", "", "", "255"}, "$7", {"0", "", "", "255"}, "Ed_IP(3)", 1},
        {{"", "", "", ""}, "1234", {"123", "4", "", ""}, "Ed_IP(1)", 0},
        {{"", "", "", ""}, "$1234", {"0", "", "", "123"}, "Ed_IP(3)", 1},
        // A dot or a blank moves on from a box that holds something, and is never entered.
        {{"", "", "", ""}, ".", {"", "", "", ""}, "Ed_IP(0)", 0},
        {{"", "", "", ""}, "10.", {"10", "", "", ""}, "Ed_IP(1)", 0},
        {{"", "", "", ""}, "10 ", {"10", "", "", ""}, "Ed_IP(1)", 0},
        {{"", "", "", ""}, "1<.", {"1", "", "", ""}, "Ed_IP(0)", 0},
        {{"", "", "", ""}, "$9.", {"0", "", "", "9"}, "Ed_IP(3)", 0},
        {{"", "", "", ""}, "1a-x/", {"1", "", "", ""}, "Ed_IP(0)", 0},
        // Arrows move between boxes at the edges of their texts; Home and End go to the ends.
        {{"", "", "", ""}, "1.2<<5", {"15", "2", "", ""}, "Ed_IP(0)", 0},
        {{"", "", "", ""}, "7>3", {"7", "3", "", ""}, "Ed_IP(1)", 0},
        {{"1", "2", "3", "4"}, "$<<<", {"1", "2", "3", "4"}, "Ed_IP(2)", 0},
        {{"1", "2", "3", "4"}, "$^9", {"91", "2", "3", "4"}, "Ed_IP(0)", 0},
        {{"", "", "", ""}, "<^", {"", "", "", ""}, "Ed_IP(0)", 0},
        // Backspace passes; leaving a box cleans it.
        {{"", "", "", ""}, "19~5.", {"15", "", "", ""}, "Ed_IP(1)", 0},
        {{"", "", "", ""}, "099.", {"99", "", "", ""}, "Ed_IP(1)", 0},
        {{"", "", "", ""}, "999.", {"255", "", "", ""}, "Ed_IP(1)", 0},
    };
    record_.ICPMS_TYPE = 2;
    for (const Case& c : cases) {
        MainDialog window = Window();
        for (int i = 0; i < 4; ++i) window.SetText("Ed_IP(" + std::to_string(i) + ")", c.before[i]);
        OctetTyping typing(window);
        typing.Focus("Ed_IP(0)");
        typing.Keys(c.keys);
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(window.State().at("Ed_IP(" + std::to_string(i) + ")").text, c.after[i])
                << c.keys << " box " << i;
        }
        EXPECT_EQ(typing.FocusedBox(), c.focus) << c.keys;
        EXPECT_EQ(typing.Beeps(), c.beeps) << c.keys;
    }
}

}  // namespace
}  // namespace lumacfg::ui
