// The V-AS autosampler dialog "Fm_VAS": the serial port, the sample tray, the probe depths
// (kept in 0.125 mm steps, shown in millimetres) and the ESC mode.
#pragma once

#include <string>
#include <string_view>

#include "config/config_record.h"
#include "ui/autosampler/autosampler_controls.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

// The deepest a probe may go: the rinse port, and the samples and standards.
inline constexpr double kMaxRinseDepthMm = 55.0;
inline constexpr double kMaxSampleDepthMm = 63.75;

// A depth of `steps` 0.125 mm steps in millimetres, formatted "##0.00" (280 gives "35.00").
std::string DepthText(Int16 steps);
// A depth box's text as leaving the box cleans it: its number (0 when it has none) kept within
// 0..`maxMm` and formatted "##0.00". The value keeps its place between the 0.125 mm steps.
std::string CleanDepth(std::string_view text, double maxMm);
// The steps stored for a depth box's text: its number within 0..`maxMm`, times 8, rounded to
// the nearest integer with a tie going to the even one ("0.1875" gives 2).
Int16 DepthSteps(std::string_view text, double maxMm);

class VasDialog final : public DialogModel {
  public:
    // `opalApplicationInUse`: whether the main window's OPAL application list is enabled (the
    // port is then not offered).
    VasDialog(const ConfigRecord& record, bool opalApplicationInUse);

    const Controls& State() const override { return controls_.All(); }
    // The depth boxes "txtRinseDepth", "txtSampleDepth", "txtSTDDepth".
    void SetText(std::string_view control, std::string text) override;
    // "ChkESCMode", "OK", "Cancel", "Help".
    void Click(std::string_view control) override;
    // "Cb_COM", "Cb_TRAY".
    void Choose(std::string_view control, int index) override;
    // Cleans a depth box.
    void LeaveBox(std::string_view control) override;
    DialogEnd End() const override { return end_; }
    std::string WhyUnusable(std::string_view control) const override;

    // After OK: COM_PORT, TRAY_ID, the four depths and ESC_MODE into the record.
    void Accept(ConfigRecord& record) const;

  private:
    void Ok();

    ControlTable controls_;
    DialogEnd end_ = DialogEnd::Open;
    ConfigRecord accepted_;
};

}  // namespace lumacfg::ui
