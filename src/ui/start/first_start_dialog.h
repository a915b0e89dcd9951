// The first-start window "Fm_FirstStart": shown by the desktop program when nothing names a
// station (no LUMACFG_PROGRAM_DIR, and the registry store names no data system folder that
// holds "LUMAEXE"). It says what is missing in one sentence and lets the administrator choose
// the data system's folder; OK records the choice ("Path" in the registry store, "LUMAEXE"
// made when missing) and the start-up goes on with that station. A choice that cannot be
// recorded is named with the reason and the window stays open, nothing else changed.
#pragma once

#include <string_view>

#include "platform/file_failures.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

class FirstStartDialog final : public DialogModel {
  public:
    // `missing`: what the station lookup found missing (a store, its "Path", the folder).
    explicit FirstStartDialog(const platform::FileFailure& missing);

    const Controls& State() const override { return controls_; }
    // "Ed_Folder": the folder as typed or chosen with "Cd_Browse" (the view's chooser).
    void SetText(std::string_view control, std::string text) override;
    // "Cd_OK": records the folder; "Cd_Cancel": ends without a station.
    void Click(std::string_view control) override;
    void Choose(std::string_view, int) override {}
    DialogEnd End() const override { return end_; }

  private:
    void Accept();

    Controls controls_;
    DialogEnd end_ = DialogEnd::Open;
};

}  // namespace lumacfg::ui
