#include "ui/autosampler/autosampler_controls.h"

#include <algorithm>

#include "base/numbers.h"
#include "integration/help.h"
#include "platform/services.h"
#include "resources/string_table.h"
#include "ui/dialog/refusal.h"

namespace lumacfg::ui {

std::string Indexed(std::string_view array, int index) {
    return std::string(array) + "(" + IntText(index) + ")";
}

std::vector<std::string> ComPortEntries() {
    return {"COM1", "COM2", "COM3", "COM4"};
}

std::int16_t PortOfEntry(std::string_view entry) {
    return LenientInt16(entry.empty() ? entry : entry.substr(entry.size() - 1));
}

void ShowAutosamplerMessage(int text) {
    platform::Messages().Show({LoadResString(text), LoadResString(kResWindowCaption),
                               platform::MessageIcon::Critical, platform::MessageButtons::Ok, 0});
}

void ShowAutosamplerHelp(std::int32_t topic) {
    ShowHelp(0, {}, kHelpContextCommand, topic);
}

ControlState& ControlTable::operator[](std::string_view name) {
    auto found = controls_.find(name);
    if (found == controls_.end())
        found = controls_.emplace(std::string(name), ControlState{}).first;
    return found->second;
}

const ControlState& ControlTable::operator[](std::string_view name) const {
    static const ControlState kNone{};
    auto found = controls_.find(name);
    return found == controls_.end() ? kNone : found->second;
}

const std::string& ControlTable::ChosenText(std::string_view list) const {
    static const std::string kNothing;
    const ControlState& control = (*this)[list];
    if (control.chosen < 0 || control.chosen >= static_cast<int>(control.items.size()))
        return kNothing;
    return control.items[static_cast<std::size_t>(control.chosen)];
}

bool ControlTable::ChooseText(std::string_view list, std::string_view text) {
    ControlState& control = (*this)[list];
    const auto found = std::find(control.items.begin(), control.items.end(), text);
    if (found == control.items.end()) return false;
    control.chosen = static_cast<int>(found - control.items.begin());
    return true;
}

void ControlTable::Fill(std::string_view list, std::vector<std::string> items) {
    ControlState& control = (*this)[list];
    control.items = std::move(items);
    control.chosen = -1;
}

void ControlTable::TitleAfterLabel(std::string_view list, std::string_view label) {
    (*this)[list].title = ListTitle((*this)[label]);
}

bool ControlTable::UserChoice(std::string_view list, int index) {
    ControlState& control = (*this)[list];
    if (!control.enabled || !control.visible) return false;
    if (index < 0 || index >= static_cast<int>(control.items.size())) return false;
    control.chosen = index;
    return true;
}

}  // namespace lumacfg::ui
