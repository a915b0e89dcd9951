// The editors of the site's custom trays ("Custom Trays", "dlgCustomTrays") and racks ("Custom
// Racks", "dlgCustomRacks") that the ASX500 dialog's "Configure Tray..." and "Configure
// Rack..." open. Each shows the entries of its kind that "[INDEX]" lists, each with the
// loader's verdict; New, Copy and Delete; one box per key of the chosen entry with its accepted
// range, checked when the box is left; and the picture of the tray with its default racks, or
// of the rack alone. OK writes custrack.ini once; Cancel writes nothing.
//
// Controls: "lstEntries"; "btnNew", "btnCopy", "btnDelete"; the frame "grpEntry" (the chosen
// entry's section); "lblVerdict"; per key a label "lbl<KEY>" and a box "txt<KEY>"
// ("txtVIAL_X_NUM"), a tray's default racks as lists "cmbDEFRACK1".."cmbDEFRACK9"; for racks
// "lblFits" (how the rack fits each custom tray); "btnOK", "btnCancel", "btnHelp".
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "racks/custrack_entries.h"
#include "ui/autosampler/asx500_dialog.h"
#include "ui/autosampler/autosampler_controls.h"
#include "ui/dialog/dialog_model.h"

namespace lumacfg::ui {

class CustomEntriesDialog final : public DialogModel {
  public:
    // `entries` as read from custrack.ini; the dialog edits them and OK writes them.
    CustomEntriesDialog(EntryKind kind, CustrackEntries entries);

    const Controls& State() const override { return controls_.All(); }
    void SetText(std::string_view control, std::string text) override;
    void Click(std::string_view control) override;
    void Choose(std::string_view control, int index) override;
    void LeaveBox(std::string_view control) override;
    DialogEnd End() const override { return end_; }

    // The picture: the chosen tray with its default racks, or the chosen rack alone.
    TrayPlan Plan() const;

    // The control a refusal sent the focus to, once; "" when none.
    std::string TakeFocusRequest();

    // The box name of a key ("txtRACK_X_NUM"), or the list of a default rack ("cmbDEFRACK2").
    static std::string ControlOfKey(std::string_view key);

  private:
    CustrackEntry* Chosen();
    const CustrackEntry* Chosen() const;
    void ShowList();
    void ShowEntry();
    void ShowDefaultRacks(const CustrackEntry* entry);
    void ShowFits(const CustrackEntry* entry);
    void ChooseEntry(const CustrackEntry* entry);
    void Refuse(const std::string& message, std::string focus);
    void NewOrCopy(bool copy);
    void Delete();
    bool TakeTypedValues();
    void Ok();

    EntryKind kind_;
    CustrackEntries entries_;
    ControlTable controls_;
    DialogEnd end_ = DialogEnd::Open;
    std::string focusRequest_;
    std::string refusedBox_;  // a box whose text was refused and not yet corrected
    RackTrayState tables_;    // the entries as they stand, for the pictures and the fits
    RackTrayState alone_;     // the chosen rack on a tray of one position its own size
    std::vector<std::int16_t> defaultRackIds_;  // the rack of each entry of the DEFRACK lists
};

// The editor of `kind` on custrack.ini as it stands; nullptr, after a message that names the
// file and the reason, when the file cannot be read.
std::unique_ptr<CustomEntriesDialog> OpenCustomEntries(EntryKind kind);

}  // namespace lumacfg::ui
