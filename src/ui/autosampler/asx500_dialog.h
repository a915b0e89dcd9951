// The ASX500 tray and rack dialog "dlgASX500": the serial port, the tray fitted to the
// autosampler (a standard tray or a custom tray of custrack.ini) and the rack at each of the
// tray's positions. It reads the custom tables and the working selection (RackTrays()) and the
// record's COM_PORT when it opens; OK checks every position and, when all pass, holds the new
// selection and port for Accept. Cancel changes nothing.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "config/config_record.h"
#include "racks/custom_racks.h"
#include "racks/rack_fit.h"
#include "ui/autosampler/autosampler_controls.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

// One usable rack position as the dialog stands now: the rack chosen and OK's verdict on it.
struct TrayPosition {
    std::int16_t rackId = kNoId;
    std::string rackName;
    RackFit fit = RackFit::NoRack;
    std::string reason;  // the message OK shows for this position; "" when the rack fits
    const CustomRackDef* custom = nullptr;  // a custom rack's definition (its vial grid)
};

// The tray chosen and its usable positions, in order.
struct TrayPlan {
    std::int16_t trayId = kNoId;
    std::string trayName;
    const CustomTrayDef* custom = nullptr;  // a custom tray's geometry
    std::vector<TrayPosition> positions;
};

// The plan of the tray `trayId` named `trayName` with the racks `racks` at its positions 1, 2, ...,
// judged with the custom definitions of `tables` (which the plan points into).
TrayPlan PlanTray(const RackTrayState& tables, std::int16_t trayId, std::string trayName,
                  const std::vector<std::int16_t>& racks);

class Asx500Dialog final : public DialogModel {
  public:
    explicit Asx500Dialog(const ConfigRecord& record);

    const Controls& State() const override { return controls_.All(); }
    void SetText(std::string_view control, std::string text) override;
    // "btnOK", "btnCancel", "btnHelp"; the window opens the editors of "btnConfigTray" and
    // "btnConfigRack" itself (CustomEntriesDialog), then calls TablesChanged after their OK.
    void Click(std::string_view control) override;
    // "cmbCOMPort", "cmbTrayType", "cmbRacks(0)".."cmbRacks(8)".
    void Choose(std::string_view control, int index) override;
    DialogEnd End() const override { return end_; }
    std::string WhyUnusable(std::string_view control) const override;

    // After OK: the port and the selection into the record and the working selection.
    void Accept(ConfigRecord& record, TraySelection& working) const;

    // The tray and each usable position's rack with its verdict, as OK would judge them now.
    TrayPlan Plan() const;

    // An editor wrote custrack.ini: the custom tables are loaded from it again and the tray and
    // rack lists filled anew, the tray and each position keeping its choice (by id, so a renamed
    // entry shows its new name) while it is still there.
    void TablesChanged();

    // The control that a refusal sent the focus to, once; "" when none.
    std::string TakeFocusRequest();

  private:
    void FillTrayList();
    void ShowSelection(const TraySelection& selection);
    std::int16_t ChosenTray() const;
    std::int16_t PositionRack(int position) const;
    bool PositionUsable(int position) const;
    void SetUpPositions(std::int16_t trayId);
    void PresetPosition(int position, std::int16_t rackId, bool firstWhenNone);
    void ChangeTray();
    void Ok();
    void Refuse(int message, std::string focus);

    ControlTable controls_;
    DialogEnd end_ = DialogEnd::Open;
    std::string focusRequest_;
    Int16 comPort_ = 1;
    TraySelection chosen_;
};

}  // namespace lumacfg::ui
