// The text of a list's chosen entry as a dialog's controls hold it.
#pragma once

#include <string>
#include <string_view>

#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

// "" when the list is unknown or has no entry chosen.
inline std::string ChosenEntry(const Controls& controls, std::string_view list) {
    auto found = controls.find(list);
    if (found == controls.end()) return {};
    const ControlState& state = found->second;
    if (state.chosen < 0 || state.chosen >= static_cast<int>(state.items.size())) return {};
    return state.items[static_cast<std::size_t>(state.chosen)];
}

}  // namespace lumacfg::ui
