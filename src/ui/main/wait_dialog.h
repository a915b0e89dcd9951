// The wait window "WaitProc": shown modally while a program the main window started runs. Its
// timer asks every 300 ms whether the program still runs; the first "no" closes it, and the
// main window resumes.
#pragma once

#include <chrono>

#include "integration/process_wait.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

class WaitDialog final : public DialogModel {
  public:
    static constexpr std::chrono::milliseconds kInterval = ProcessWait::kInterval;

    // `raiseItsWindow`: the program's window is brought to the front once it shows.
    explicit WaitDialog(platform::ProcessId process, bool raiseItsWindow = false);

    const Controls& State() const override { return controls_; }
    void SetText(std::string_view, std::string) override {}
    void Click(std::string_view) override {}
    void Choose(std::string_view, int) override {}
    DialogEnd End() const override { return end_; }

    // One tick of "Timer1": the window closes once the program has ended.
    void Tick();

  private:
    ProcessWait wait_;
    Controls controls_;
    DialogEnd end_ = DialogEnd::Open;
};

}  // namespace lumacfg::ui
