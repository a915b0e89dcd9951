// The legacy autosampler dialog "Fm_ASX": the serial port and the rack type of each rack
// position, kept in the record's COM_PORT and RACK1_ID..RACK8_ID. Its variant (title, rack
// choices, four or eight positions) follows the autosampler chosen in the main window.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "config/config_record.h"
#include "ui/autosampler/autosampler_controls.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

inline constexpr int kAsxRackPositions = 8;

class AsxDialog final : public DialogModel {
  public:
    // `autosampler`: the text of the main window's autosampler list; `opalApplicationInUse`:
    // whether the main window's OPAL application list is enabled (the port is then not offered).
    AsxDialog(const ConfigRecord& record, std::string_view autosampler, bool opalApplicationInUse);

    const Controls& State() const override { return controls_.All(); }
    void SetText(std::string_view control, std::string text) override;
    // "OK", "Cancel", "Help".
    void Click(std::string_view control) override;
    // "Cb_COM", "Cb_ID(0)".."Cb_ID(7)".
    void Choose(std::string_view control, int index) override;
    DialogEnd End() const override { return end_; }
    std::string WhyUnusable(std::string_view control) const override;

    // After OK: COM_PORT and RACK1_ID..RACK8_ID into the record.
    void Accept(ConfigRecord& record) const;

  private:
    void Ok();

    ControlTable controls_;
    DialogEnd end_ = DialogEnd::Open;
    Int16 comPort_ = 0;
    std::array<Int16, kAsxRackPositions> racks_{};
};

}  // namespace lumacfg::ui
