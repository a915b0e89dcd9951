// The main window "Fm_Config": every control by its name, filled from the configuration record,
// and the window's rules: the connection fields and their keys, the sample introduction and
// autosampler lists, the OPAL applications, the prohibited masses, the LC/GC link, the security
// frame, Save, Cancel and Reset to Default.
//
// The model keeps its own copy of the record, the window's record: the lists change it at once
// (a new autosampler resets its racks, an OPAL application sets "_MPM"), Reset to Default puts it
// back to the defaults, and Save stores the controls in it once every check has passed. The
// Setup... and Miscellaneous dialogs opened from the window edit that same record (Record()), so
// whatever closes the window, Accept() hands the whole of it to the record the station is
// written from: the view calls Accept(Config()) and then the closing steps, which write only when
// SAVE_REQ is 1.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/config_record.h"
#include "ui/dialog/dialog_model.h"
#include "ui/main/opal_applications.h"

namespace lumacfg::ui {

// The dialog the autosampler's "Setup..." button opens for the chosen model.
enum class AutosamplerSetup {
    Asx500Trays,  // the ASX500 tray and rack dialog
    Vas,          // the V-AS dialog
    Legacy,       // the legacy autosampler dialog
};

class MainDialog final : public DialogModel {
  public:
    // The window as its load fills it, after start-up and the load of the tray selection: the
    // lists, every control from the record, the enabling rules. Messages of the load (an OPAL
    // method table that cannot be read, a recorded application not found) are shown here.
    explicit MainDialog(const ConfigRecord& record);

    const Controls& State() const override;
    void SetText(std::string_view control, std::string text) override;
    // "Cd_Save", "Cancel", "Cd_Reset", "Ck_Offline", "Op_Wait", "Op_NotUse", "Ck_CtrlLCGC",
    // "Ck_NotRepRem", "Ck_Integ", "Ck_Security", "Ck_AlwaysPrt", "Ck_VLT". Buttons that open
    // another window or program (Setup..., Browse..., Advanced QC..., Toolbar, Miscellaneous,
    // Help, the VLT folder) are the view's: clicking them here changes nothing. A click on a
    // greyed control changes nothing.
    void Click(std::string_view control) override;
    // "Cb_Type", "Cb_Auto", "Cb_MPMApp", "Cb_LCInst" (-1: no entry); a greyed list changes
    // nothing.
    void Choose(std::string_view control, int index) override;
    // The octet boxes "Ed_IP(0)".."Ed_IP(3)"; every other box takes every key.
    KeyAnswer Key(std::string_view control, const KeyPress& key, const BoxCaret& caret) override;
    // Cleans "Ed_IP(i)" and "Ed_Inhibit(i)". Save expects the box that had the focus to have been
    // left first (the view moves the focus to "Cd_Save" before it clicks it).
    void LeaveBox(std::string_view control) override;
    DialogEnd End() const override;
    // The window's enabling rules said as reasons: the connection, remote start, the OPAL and
    // LC/GC controls, the autosampler's Setup... and the security frame.
    std::string WhyUnusable(std::string_view control) const override;

    // Copies the window's record into `record`: after Save, the controls as stored by Save with
    // SAVE_REQ 1; after Cancel, SAVE_REQ 0.
    void Accept(ConfigRecord& record) const;

    // Reset to Default, as Click("Cd_Reset") does.
    void Reset();

    // The window's record: what the dialogs opened from the window read and write back into.
    const ConfigRecord& Record() const { return record_; }
    ConfigRecord& Record() { return record_; }

    // A QC mode chosen by its path (the ".QCC" folder, as the file chooser returns it): taken
    // into "_QCMDPATH$" (the folder with its trailing "\") and "_QCMDFILE$" (the name) when it
    // holds a "RUNTYPE.INI" that can be read; otherwise "Selected QC Mode file is invalid." and
    // nothing changes. True when taken.
    bool SelectQcMode(std::string_view path);

    // The OPAL applications behind the entries of "Cb_MPMApp": the standard ones first, then the
    // user-defined ones.
    const std::vector<OpalStandardApplication>& StandardApplications() const { return standard_; }
    const std::vector<OpalUserApplication>& UserApplications() const { return user_; }

    // The dialog that "Setup..." beside the autosampler opens; `currentTrayValid` is whether
    // "custrack.ini" has a valid current tray.
    AutosamplerSetup AutosamplerDialog(bool currentTrayValid) const;
    // What that dialog reads of the window: the autosampler entry chosen, and whether the OPAL
    // application list is in use (the port is then not offered).
    const std::string& AutosamplerText() const { return ChosenText("Cb_Auto"); }
    bool OpalApplicationsUsable() const { return Control("Cb_MPMApp").enabled; }

    // The type and autosampler codes last applied to the window.
    Int16 SiShown() const { return siShown_; }
    Int16 AlsShown() const { return alsShown_; }
    // True while the window is in its OPAL mode (the autosampler list is the OPAL list).
    bool OpalMode() const { return opalMode_; }

  private:
    ControlState& Control(std::string_view name);
    const ControlState& Control(std::string_view name) const;
    bool Checked(std::string_view name) const { return Control(name).checked; }
    bool Usable(std::string_view name) const;
    const std::string& ChosenText(std::string_view list) const;

    void CreateControls();
    void LoadOpalApplications();
    void FillTypeList();
    void Populate();
    void ApplyConnectionEnabling();
    void ChooseRemoteStart(bool wait);
    void ApplyLcGcLink();
    void ApplySecurityFrame();
    void ChooseType(int index);
    void RebuildAutosamplers(Int16 listType);
    void ChooseAutosampler(int index);
    void ChooseApplication(int index);
    void AnnounceOpalPort(Int16 code);
    void LeaveMassBox(int box);
    void Save();
    void Refuse(int message) const;

    ConfigRecord record_;
    std::vector<OpalStandardApplication> standard_;
    std::vector<OpalUserApplication> user_;
    Controls controls_;
    DialogEnd end_ = DialogEnd::Open;
    Int16 siShown_ = 0;
    Int16 alsShown_ = 0;
    bool opalMode_ = false;
};

}  // namespace lumacfg::ui
