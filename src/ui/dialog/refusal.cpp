#include "ui/dialog/refusal.h"

namespace lumacfg::ui {

std::string Quoted(std::string_view caption) {
    std::string text;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;  // "&&" is one ampersand
        text += caption[i];
    }
    while (!text.empty() && (text.back() == ':' || text.back() == ' ')) text.pop_back();
    return '"' + text + '"';
}

std::string NameOf(const Controls& controls, std::string_view control) {
    const auto found = controls.find(control);
    if (found == controls.end()) return std::string(control);
    if (!found->second.title.empty()) return found->second.title;
    if (!found->second.text.empty()) return Quoted(found->second.text);
    return std::string(control);
}

std::string ListTitle(const ControlState& label) {
    return "the " + Quoted(label.text) + " list";
}

std::string BoxTitle(const ControlState& label) {
    return "the " + Quoted(label.text) + " box";
}

std::string WhileChecked(const ControlState& box) {
    return "while " + Quoted(box.text) + " is checked";
}

std::string WhileNotChecked(const ControlState& box) {
    return "while " + Quoted(box.text) + " is not checked";
}

std::string WhileChosen(const ControlState& option) {
    return "while " + Quoted(option.text) + " is chosen";
}

std::string WhyNotChangeable(const DialogModel& dialog, std::string_view control) {
    const auto found = dialog.State().find(control);
    const bool shown = found == dialog.State().end() || found->second.visible;
    std::string why = dialog.WhyUnusable(control);
    if (why.empty()) why = "with the values given";
    return NameOf(dialog.State(), control) + (shown ? " is greyed " : " is not shown ") + why;
}

}  // namespace lumacfg::ui
