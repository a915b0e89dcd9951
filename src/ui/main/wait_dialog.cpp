#include "ui/main/wait_dialog.h"

#include "resources/string_table.h"

namespace lumacfg::ui {
namespace {

constexpr int kTextWaiting = 180;

}  // namespace

WaitDialog::WaitDialog(platform::ProcessId process, bool raiseItsWindow)
    : wait_(process, raiseItsWindow) {
    controls_["WaitProc"].text = LoadResString(kResWindowCaption);
    controls_["Lbl_Waiting"].text = LoadResString(kTextWaiting);
    controls_["Timer1"].visible = false;
}

void WaitDialog::Tick() {
    if (end_ == DialogEnd::Open && !wait_.Tick()) end_ = DialogEnd::Accepted;
}

}  // namespace lumacfg::ui
