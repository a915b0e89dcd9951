#include "ui/main/main_dialog.h"

namespace lumacfg::ui {

MainDialog::MainDialog(const ConfigRecord& record) : record_(record) {}

const Controls& MainDialog::State() const {
    return controls_;
}

void MainDialog::SetText(std::string_view control, std::string text) {
    Control(control).text = std::move(text);
}

void MainDialog::Click(std::string_view control) {
    (void)control;
}

void MainDialog::Choose(std::string_view control, int index) {
    (void)control, (void)index;
}

KeyAnswer MainDialog::Key(std::string_view control, const KeyPress& key, const BoxCaret& caret) {
    (void)control, (void)key, (void)caret;
    return {};
}

void MainDialog::LeaveBox(std::string_view control) {
    (void)control;
}

DialogEnd MainDialog::End() const {
    return end_;
}

void MainDialog::Accept(ConfigRecord& record) const {
    record = record_;
}

void MainDialog::Reset() {}

AutosamplerSetup MainDialog::AutosamplerDialog(bool currentTrayValid) const {
    if (record_.ALS_TYPE == 1 && currentTrayValid) return AutosamplerSetup::Asx500Trays;
    if (record_.ALS_TYPE == 5) return AutosamplerSetup::Vas;
    return AutosamplerSetup::Legacy;
}

ControlState& MainDialog::Control(std::string_view name) {
    auto found = controls_.find(name);
    if (found == controls_.end())
        found = controls_.emplace(std::string(name), ControlState{}).first;
    return found->second;
}

const ControlState& MainDialog::Control(std::string_view name) const {
    static const ControlState kNone{};
    auto found = controls_.find(name);
    return found == controls_.end() ? kNone : found->second;
}

}  // namespace lumacfg::ui
