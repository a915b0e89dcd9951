// What the autosampler dialogs share: their controls by name, the serial port list, lists
// chosen by their texts, the Help button's topic.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

// "Cb_ID(3)" of "Cb_ID" and 3.
std::string Indexed(std::string_view array, int index);

// "COM1".."COM4".
std::vector<std::string> ComPortEntries();
// The port of a port list entry: the number its last character reads as ("COM3" gives 3).
std::int16_t PortOfEntry(std::string_view entry);

// Shows a message of the string table as the autosampler dialogs show their refusals.
void ShowAutosamplerMessage(int text);

// Opens the help at a topic of an autosampler dialog.
void ShowAutosamplerHelp(std::int32_t topic);

// The controls of one dialog by name.
// Why a dialog's serial port list is greyed: the OPAL application chosen drives the autosampler.
inline constexpr std::string_view kPortHeldByOpal =
    "while an OPAL application is chosen in the main window (it drives the autosampler)";

class ControlTable {
  public:
    const Controls& All() const { return controls_; }
    ControlState& operator[](std::string_view name);
    const ControlState& operator[](std::string_view name) const;

    // The chosen entry's text, "" when none is chosen.
    const std::string& ChosenText(std::string_view list) const;
    // Chooses the first entry equal to `text`; true when there is one, else the choice stays.
    bool ChooseText(std::string_view list, std::string_view text);
    // Fills a list and chooses nothing.
    void Fill(std::string_view list, std::vector<std::string> items);
    // A choice the user makes: taken when the list is usable and the entry exists.
    bool UserChoice(std::string_view list, int index);
    // Names a list after its label where messages name it ("the \"COM Port\" list").
    void TitleAfterLabel(std::string_view list, std::string_view label);

  private:
    Controls controls_;
};

}  // namespace lumacfg::ui
