// What every dialog's model shares with its view. The model holds the state of each control by
// the control's name ("Ed_IP(0)", "Ck_Offline", "Cb_Type") and applies the dialog's rules to
// the user's actions; the view copies the states to its widgets after every action and hands
// the user's actions to the model. No rule lives in a view.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "integration/dialog_placement.h"

namespace lumacfg::ui {

// One control as the user sees it. Texts are Windows-1252 bytes, as everywhere in the core.
struct ControlState {
    std::string text;     // a box's text, a label's or a button's caption
    bool enabled = true;  // false: greyed
    bool visible = true;
    bool checked = false;            // a check box, or the chosen option button of a group
    std::vector<std::string> items;  // the entries of a list
    int chosen = -1;                 // the chosen entry of a list, -1 for none
    // How messages name a box or a list, which has no caption of its own ("the GPIB address
    // box"); empty for a control named by its caption.
    std::string title;
    bool operator==(const ControlState&) const = default;
};

// Every control of a dialog by its name.
using Controls = std::map<std::string, ControlState, std::less<>>;

// A key typed into a text box, as the view hands it to the model before the box takes it.
struct KeyPress {
    enum class Kind { Character, Backspace, Left, Right, Up, Down, Home, End };
    Kind kind = Kind::Character;
    char character = 0;  // the Windows-1252 character, for Kind::Character
};

// Where the caret stands in the box and what is selected, in characters.
struct BoxCaret {
    int position = 0;
    int selectionStart = 0;
    int selectionLength = 0;
};

// The model's answer to a key.
struct KeyAnswer {
    enum class Verdict {
        Pass,     // the box handles the key as it always does (enters the character, moves)
        Swallow,  // the key is refused without a sound
        Beep,     // the key is refused with a beep
    };
    enum class Place { Start, End, SelectAll };
    Verdict verdict = Verdict::Pass;
    std::string focus;           // the control that takes the focus after the key; "" for no move
    Place place = Place::Start;  // where the caret goes in the control that takes the focus
    bool operator==(const KeyAnswer&) const = default;
};

// How a dialog stands after an action: still open, or to be closed (accepted or not).
enum class DialogEnd { Open, Accepted, Cancelled };

class DialogModel {
  public:
    virtual ~DialogModel() = default;

    virtual const Controls& State() const = 0;
    // The user changed the text of a box (typing, pasting); the text is taken as it is.
    virtual void SetText(std::string_view control, std::string text) = 0;
    // A button, a check box or an option button was clicked.
    virtual void Click(std::string_view control) = 0;
    // An entry of a list was chosen.
    virtual void Choose(std::string_view control, int index) = 0;
    // A key typed into a box, before the box takes it.
    virtual KeyAnswer Key(std::string_view control, const KeyPress& key, const BoxCaret& caret) {
        (void)control, (void)key, (void)caret;
        return {};
    }
    // A box lost the focus: the model cleans its text.
    virtual void LeaveBox(std::string_view control) { (void)control; }
    // Whether the last action ended the dialog.
    virtual DialogEnd End() const = 0;
    // Why a greyed or hidden control is so, as the end of a sentence ("while \"Security\" is
    // checked", "for a LAN instrument"); empty when the dialog says no more than that it is.
    virtual std::string WhyUnusable(std::string_view control) const {
        (void)control;
        return {};
    }
    // The dialog's window became active (shown, or brought back): placed as every dialog of the
    // data system is each time, at the top of the z-order, centred on the desktop's work area.
    virtual void Activated(platform::WindowHandle window) { PlaceDialog(kPlaceAtTop, window, 0); }
};

}  // namespace lumacfg::ui
