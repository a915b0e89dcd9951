// The Miscellaneous dialog "Fm_Misc": the instrument's hardware options and the analysis-time
// behaviours, every control by its name, filled from the record, with the dialog's rules: which
// options may be changed, the external pump notice, the cleaning of the flow and time boxes,
// OK and Cancel.
//
// The dialog never writes a file. Accept() hands what OK stored to the record (the main
// window's record), with SAVE_REQ 1; after Cancel only SAVE_REQ, set to 0; after a closing by
// the frame nothing at all. SAVE_REQ is the main window's own save request: the configuration
// is written when the main window closes after this dialog's OK, even by its frame.
#pragma once

#include <string>
#include <string_view>

#include "config/config_record.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

// What the dialog reads of the main window as it stands when the dialog opens.
struct MiscSurroundings {
    std::string typeText;         // the chosen sample introduction type, as "Cb_Type" shows it
    std::string applicationText;  // the chosen OPAL application, as "Cb_MPMApp" shows it
    bool pumpPermitted = false;   // the sample pump option may be chosen ("_PPUMP" 1 or more)
};

// The surroundings of a main window whose lists show these texts; the pump permission is read
// from the station profile.
MiscSurroundings MiscSurroundingsOf(std::string typeText, std::string applicationText);

class MiscDialog final : public DialogModel {
  public:
    MiscDialog(const ConfigRecord& record, MiscSurroundings surroundings);

    const Controls& State() const override { return controls_; }
    void SetText(std::string_view control, std::string text) override;
    // "OK", "Cancel", "Help" (the dialog's help topic), the check boxes and the option buttons
    // ("Op_Smpl(1)"); a greyed control takes no click.
    void Click(std::string_view control) override;
    void Choose(std::string_view, int) override {}
    // Cleans "Txt_CGFlow" and "Txt_StabTime".
    void LeaveBox(std::string_view control) override;
    DialogEnd End() const override { return end_; }
    // The dialog's enabling rules said as reasons: the sample pump, the probe's moves, the
    // carrier gas flow and the external pump.
    std::string WhyUnusable(std::string_view control) const override;

    // After OK: the options into `record` and SAVE_REQ 1. After Cancel: SAVE_REQ 0. While the
    // dialog is open (closed by its frame): nothing.
    void Accept(ConfigRecord& record) const;

  private:
    ControlState& Control(std::string_view name);
    bool Checked(std::string_view name) const;
    void Populate(const ConfigRecord& record, const MiscSurroundings& surroundings);
    void ApplyFlowEnabling(bool enabled);
    void Store();

    Controls controls_;
    ConfigRecord record_;  // the record the dialog opened on; OK stores the options in it
    DialogEnd end_ = DialogEnd::Open;
};

// The two boxes' cleaning: the text a box shows once it is left.
std::string CleanFlowText(std::string_view text);
std::string CleanTimeText(std::string_view text);

}  // namespace lumacfg::ui
