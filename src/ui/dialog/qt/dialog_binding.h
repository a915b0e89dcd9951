// The one binding between a dialog's model and its widgets. The widgets carry the control
// names as their object names ("Ed_IP(0)", "Ck_Offline", "Gb_Security"); the window itself
// carries the dialog's name ("Fm_Config") and shows that control's text as its title.
//
// ShowState copies the model's control states to the widgets. DialogBinder hands every user
// action to the model and shows the states again after it: an edited text (SetText), a click
// of a button, check box or option button (Click), a chosen list entry (Choose), a key typed
// into a box before the box takes it (Key), a box losing the focus (LeaveBox). When the model
// says the dialog ended, the binder reports it.
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>

#include "ui/dialog/dialog_model.h"

class QAbstractButton;
class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QWidget;

namespace lumacfg::ui {

// Copies every control's state to the widget of that name under `root` (controls without a
// widget are left out), with the widgets' signals blocked: a box's text, a label's, button's,
// check box's or frame's caption, a check box's or option button's check, a list's (drop-down or
// list box) entries and chosen entry, and whether each control is enabled and visible. Captions,
// the window's title, and the entries of lists of captions are shown in the language of the
// installed catalogue (translation.h); boxes' texts, path labels and lists of values as they
// stand. Then names every named widget for screen readers from what it now shows
// (NameForScreenReaders).
void ShowState(const Controls& controls, QWidget* root);

// Gives every named widget under `root` its accessible name (AccessibleNameOf); a view calls it
// itself only after it moved a label's buddy.
void NameForScreenReaders(QWidget* root);

// The name a screen reader says for a widget under `root`, taken from what the window shows,
// without the "&" that marks a mnemonic and without a closing colon: the name the view set
// (SetAccessibleName) if any; else the caption of the label that names it (NameAfterCaption) or
// whose buddy the widget is; else a button's, check box's, option button's or frame's own
// caption; else none (an empty string).
QString AccessibleNameOf(const QWidget* widget, const QWidget* root);

// A name the view gives a control whose caption is absent or shared with another control of
// its kind (an octet box, a "Setup..." button); ShowState uses it instead of the caption.
void SetAccessibleName(QWidget* widget, const QString& name);

// A label that shows a value (a path) beside the label that captions it, not a buddy: its
// accessible name is the caption's, also while it shows nothing (Qt would take its frame's
// title), and its accessible description what it shows.
void NameAfterCaption(QWidget* widget, QLabel* caption);

// The view's presentation of a caption: the letter that ShowState marks as the control's
// mnemonic (its first occurrence in the caption, in either case; a caption without the letter
// has no mnemonic). A label's mnemonic gives the focus to its buddy.
void SetMnemonic(QWidget* widget, QChar letter);

// A control whose caption marks its own mnemonic with "&" (a caption block written that way):
// ShowState shows the caption as it stands.
void KeepCaptionMnemonic(QWidget* widget);

// A list whose entries are captions (the kinds of sample introduction), not values (names of
// files, racks, applications): ShowState shows them in the language shown. A list's entries
// are values unless it is marked so.
void ShowEntriesAsCaptions(QWidget* list);

// A message label whose text carries the system's words (the logon's reason from the system's
// logon), in the locale's encoding (UTF-8) rather than the station's Windows-1252: ShowState
// decodes it so.
void ShowSystemText(QWidget* label);

// A control the dialog holds but never shows (a list that only keeps file names): ShowState
// never makes it visible.
void KeepHidden(QWidget* widget);

// The caption as a button or frame shows it: "&" doubled, "&" before the mnemonic letter.
QString CaptionWithMnemonic(const QString& caption, QChar letter);

class DialogBinder final : public QObject {
    Q_OBJECT

  public:
    // Binds every widget under `root` whose object name is set, as it stands now (build the
    // widgets first), and shows the model's states.
    DialogBinder(DialogModel& model, QWidget* root);

    // The view's own action for a button (a chooser, another window) instead of the model's
    // Click. The focus moves to the button first, as for every click.
    void SetClickAction(const QString& control, std::function<void()> action);

    // A text the view obtained for a control (a chosen folder), handed to the model as the
    // user's edit of that control; the states are then shown again.
    void SetText(const QString& control, const QString& text);

    // Esc (without Ctrl, Alt or Shift) clicks `control`, the dialog's Cancel button, wherever the
    // focus is in the window; closing the window by its frame is left to the window.
    void CancelOnEsc(const QString& control) { escapeButton_ = control; }

    // Clicks a control as the user would (the focus moves to it, a box with the focus is left,
    // then the model or the view's action takes the click).
    void Click(const QString& control);

    // Shows the model's states again.
    void Refresh();

    QWidget* Widget(const QString& control) const { return widgets_.value(control); }

  signals:
    // The model's states were shown again.
    void Shown();
    // The last action ended the dialog (accepted or cancelled).
    void Ended(lumacfg::ui::DialogEnd end);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Bind(QWidget* widget);
    void Clicked(QAbstractButton* button);
    void AfterAction();
    bool KeyPressed(QLineEdit* box, QKeyEvent* key);
    void LeaveBox(QLineEdit* box);
    void MoveFocus(const std::string& control, KeyAnswer::Place place);
    void TakeFocus(QWidget* widget);

    DialogModel& model_;
    QWidget* root_;
    QHash<QString, QWidget*> widgets_;
    QHash<QString, std::function<void()>> actions_;
    QString escapeButton_;              // the button Esc clicks; none when empty
    QPointer<QLineEdit> boxWithFocus_;  // the box that has the focus and was not left yet
    QLineEdit* delivering_ = nullptr;   // the box a key is being handed to after the model
    bool ended_ = false;
};

}  // namespace lumacfg::ui
