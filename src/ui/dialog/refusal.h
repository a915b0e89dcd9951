// The one way every dialog's refusals name a control and say why it cannot be changed:
//   "Always output analysis reports to printer" is greyed while "Security" is checked
//   the GPIB address box is not shown for a LAN instrument
// A control is named by its caption, or by its title when it has no caption of its own (a box,
// a list); the reason comes from the dialog's model, which knows its rules.
#pragma once

#include <string>
#include <string_view>

#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

// A caption as a sentence quotes it: without its mnemonic marker or closing colon, in quotes.
std::string Quoted(std::string_view caption);

// How a sentence names the control: its title, else its quoted caption.
std::string NameOf(const Controls& controls, std::string_view control);

// "the \"COM Port\" list", "the \"Flow Rate\" box": the title of a list or a box after its label.
std::string ListTitle(const ControlState& label);
std::string BoxTitle(const ControlState& label);

// Reasons the models give: "while \"Security\" is checked" / "is not checked" / "is chosen".
std::string WhileChecked(const ControlState& box);
std::string WhileNotChecked(const ControlState& box);
std::string WhileChosen(const ControlState& option);

// Why the control cannot be changed, as one sentence without its full stop: its name, "is
// greyed" or "is not shown", and the dialog's reason ("with the values given" when the dialog
// gives none).
std::string WhyNotChangeable(const DialogModel& dialog, std::string_view control);

}  // namespace lumacfg::ui
