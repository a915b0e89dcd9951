#include "ui/main/main_dialog.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "config/serial_settings.h"
#include "platform/services.h"
#include "resources/string_table.h"
#include "ui/dialog/refusal.h"
#include "ui/main/connection_fields.h"
#include "ui/main/sample_introduction.h"

namespace lumacfg::ui {
namespace {

constexpr int kOctetBoxes = 4;
constexpr int kMassBoxes = 10;
constexpr int kLcInstruments = 4;

// Texts of the string table the window shows or says.
constexpr int kTextGpibFrame = 150;
constexpr int kTextLanFrame = 151;
constexpr int kTextGpibAddress = 117;
constexpr int kTextIpAddress = 152;
constexpr int kTextOpalType = 153;
constexpr int kMessageGpibAddress = 101;
constexpr int kMessageDuplicateMass = 103;
constexpr int kMessageNoOpalApplication = 105;
constexpr int kMessagePumpReset = 106;
constexpr int kMessageInvalidQcMode = 107;
constexpr int kMessageNoStandardApplications = 109;
constexpr int kMessageNoApplicationName = 110;
constexpr int kMessageApplicationNotFound = 111;
constexpr int kMessageInvalidIpAddress = 156;
constexpr int kMessageNoVltFolder = 631;

constexpr std::string_view kAutoDilution = "Auto Dilution";

std::string Indexed(std::string_view array, int index) {
    return std::string(array) + "(" + IntText(index) + ")";
}

// The index of an element of a control array ("Ed_IP(2)" of "Ed_IP" gives 2), or -1.
int ElementIndex(std::string_view control, std::string_view array, int count) {
    for (int i = 0; i < count; ++i) {
        if (control == Indexed(array, i)) return i;
    }
    return -1;
}

void Show(int text, platform::MessageIcon icon) {
    platform::Messages().Show({LoadResString(text), LoadResString(kResWindowCaption), icon,
                               platform::MessageButtons::Ok, 0});
}

// The record operations of the configuration store work on the process-wide record; the
// window's record stands in for it while one of them runs.
class WindowRecordInUse {
  public:
    explicit WindowRecordInUse(ConfigRecord& record) : record_(record) {
        std::swap(Config(), record_);
    }
    ~WindowRecordInUse() { std::swap(Config(), record_); }
    WindowRecordInUse(const WindowRecordInUse&) = delete;
    WindowRecordInUse& operator=(const WindowRecordInUse&) = delete;

  private:
    ConfigRecord& record_;
};

// Every device entry of that name taken out of the device table.
void RemoveDevice(ConfigRecord& record, std::string_view name) {
    for (int i = 0; i < kDeviceCount; ++i) {
        if (record.DEVICE_USED[i] > 0 && record.DEVICE_NAME[i] == name) {
            record.DEVICE_USED[i] = 0;
            record.DEVICE_LINK[i] = 0;
            record.DEVICE_NAME[i].clear();
        }
    }
}

void AddDeviceTo(ConfigRecord& record, std::string_view name) {
    WindowRecordInUse inUse(record);
    AddDevice(name);
}

}  // namespace

MainDialog::MainDialog(const ConfigRecord& record) : record_(record) {
    CreateControls();
    LoadOpalApplications();
    Populate();
}

const Controls& MainDialog::State() const {
    return controls_;
}

DialogEnd MainDialog::End() const {
    return end_;
}

void MainDialog::Accept(ConfigRecord& record) const {
    record = record_;
}

ControlState& MainDialog::Control(std::string_view name) {
    auto found = controls_.find(name);
    if (found == controls_.end())
        found = controls_.emplace(std::string(name), ControlState{}).first;
    return found->second;
}

const ControlState& MainDialog::Control(std::string_view name) const {
    static const ControlState kNone{};
    auto found = controls_.find(name);
    return found == controls_.end() ? kNone : found->second;
}

bool MainDialog::Usable(std::string_view name) const {
    const ControlState& control = Control(name);
    return control.enabled && control.visible;
}

const std::string& MainDialog::ChosenText(std::string_view list) const {
    static const std::string kNothing;
    const ControlState& control = Control(list);
    if (control.chosen < 0 || control.chosen >= static_cast<int>(control.items.size()))
        return kNothing;
    return control.items[static_cast<std::size_t>(control.chosen)];
}

// ---------------------------------------------------------------------------------------------
// Loading the window

void MainDialog::CreateControls() {
    auto caption = [&](std::string_view name, int text) {
        Control(name).text = LoadResString(text);
    };
    auto hidden = [&](std::string_view name) { Control(name).visible = false; };

    caption("Fm_Config", kResWindowCaption);
    // Connection and remote start.
    caption("Gb_BrenmarkIB", kTextGpibFrame);
    caption("Lbl_Address", kTextGpibAddress);
    Control("Ed_Address").title = "the GPIB address box";
    for (int i = 0; i < kOctetBoxes; ++i) {
        Control(Indexed("Ed_IP", i)).title = "the IP address box " + IntText(i + 1) + " of 4";
    }
    for (int i = 0; i < kOctetBoxes - 1; ++i) Control(Indexed("Ed_IPDot", i)).text = ".";
    caption("Ck_Offline", 116);
    caption("Gb_Remort", 118);
    caption("Op_NotUse", 119);
    caption("Op_Wait", 120);
    caption("Ck_NotRepRem", 162);
    // Sample introduction.
    caption("Gb_Intro", 121);
    caption("Lbl_Type", 122);
    Control("Cb_Type").title = ListTitle(Control("Lbl_Type"));
    caption("Cd_TypeSet", 132);
    caption("Lbl_Auto", 123);
    Control("Cb_Auto").title = ListTitle(Control("Lbl_Auto"));
    caption("Cd_AutoSet", 132);
    caption("Lbl_MPMApp", 155);
    Control("Cb_MPMApp").title = ListTitle(Control("Lbl_MPMApp"));
    hidden(Indexed("Cb_MPMFileStd", 0));
    hidden(Indexed("Cb_MPMFileStd", 1));
    hidden("Cb_MPMFileUsr");
    caption("Ck_CtrlLCGC", 163);
    caption("Lbl_LCInst", 164);
    ControlState& instruments = Control("Cb_LCInst");
    instruments.title = ListTitle(Control("Lbl_LCInst"));
    for (int n = 1; n <= kLcInstruments; ++n) instruments.items.push_back(IntText(n));
    // Prohibited masses, QC mode, EM protection.
    caption("Gb_Inhibit", 124);
    for (int i = 0; i < kMassBoxes; ++i) {
        Control(Indexed("Ed_Inhibit", i)).title = "the prohibited mass box " + IntText(i + 1);
    }
    caption("Gb_QCMode", 133);
    caption("Lbl_Mode", 134);
    Control("Lbl_QCFile");
    caption("Cd_Browse", 136);
    caption("Cd_QCCfg", 137);
    caption("Gb_EM", 127);
    caption("Ck_Integ", 128);
    // Security.
    caption("Gb_Security", 157);
    caption("Ck_Security", 157);
    caption("Ck_VLT", 171);
    caption("Lb_Title_VLTFolder", 172);
    Control("Lb_VLTFolder").title = "the " + Quoted(Control("Lb_Title_VLTFolder").text) + " folder";
    Control("Cd_SelVLTFolder").text = "...";
    caption("Ck_AlwaysPrt", 170);
    // Buttons outside the frames.
    caption("Cd_Misc", 149);
    caption("Cd_Tlbar", 148);
    caption("Cd_Save", 129);
    caption("Cd_Reset", 125);
    caption("Cancel", 4);
    caption("Help", 5);
    // Controls the user never sees.
    hidden("Timer1");
    hidden("CmmDlg1");
    hidden("Lbl_DDEFile");
    hidden("Lbl_DDEPath");
}

void MainDialog::LoadOpalApplications() {
    if (auto standard = LoadStandardApplications()) {
        standard_ = std::move(*standard);
    } else {
        platform::Messages().Show(
            {LoadResString(kMessageNoStandardApplications), LoadResString(kResWindowCaption),
             platform::MessageIcon::Exclamation, platform::MessageButtons::Ok, 0});
    }
    std::vector<std::string> unnamed;
    user_ = LoadUserApplications(record_.ROOT_PATH, unnamed);
    for (const std::string& file : unnamed) {
        platform::Messages().Show(
            {LoadResString(kMessageNoApplicationName) + file, LoadResString(kResWindowCaption),
             platform::MessageIcon::Exclamation, platform::MessageButtons::Ok, 0});
    }
    ControlState& names = Control("Cb_MPMApp");
    ControlState& channelFiles = Control(Indexed("Cb_MPMFileStd", 1));
    ControlState& applicationFiles = Control(Indexed("Cb_MPMFileStd", 0));
    for (const OpalStandardApplication& application : standard_) {
        names.items.push_back(application.name);
        channelFiles.items.push_back(application.channelFile);
        applicationFiles.items.push_back(application.applicationFile);
    }
    ControlState& userFiles = Control("Cb_MPMFileUsr");
    for (const OpalUserApplication& application : user_) {
        names.items.push_back(application.name);
        userFiles.items.push_back(application.file);
    }
}

// "None" and the pump always; ETV, laser ablation and discrete sampling where their programs
// are installed; the OPAL system where it has applications; the LC/GC link always. A type the
// record holds is offered whatever the station has, so that a save never changes it unasked.
void MainDialog::FillTypeList() {
    const bool opalPresent = !standard_.empty() || !user_.empty();
    const bool offered[] = {true,
                            true,
                            record_.ADDON_FLAGS[0] != 0,
                            record_.ADDON_FLAGS[1] != 0,
                            record_.ADDON_FLAGS[2] != 0,
                            opalPresent,
                            true};
    ControlState& types = Control("Cb_Type");
    types.items.clear();
    for (Int16 code = 0; code <= kLcGcType; ++code) {
        if (offered[code] || record_.SI_TYPE == code) types.items.push_back(TypeText(code));
    }
}

// Filling every control from the record, at load and after Reset to Default.
void MainDialog::Populate() {
    const bool lan = record_.ICPMS_TYPE == 2;
    Control("Gb_BrenmarkIB").text = LoadResString(lan ? kTextLanFrame : kTextGpibFrame);
    Control("Lbl_Address").text = LoadResString(lan ? kTextIpAddress : kTextGpibAddress);
    // Connection fields: the address box for a GPIB instrument, the octet boxes for the LAN.
    Control("Ck_Offline").checked = record_.ICPMS_ID != 0;
    Control("Ed_Address").text = IntText(record_.GPIB_ADDR);
    Control("Ed_Address").visible = !lan;
    const std::array<std::string, 4> octets = OctetTexts(record_.LAN_IPADDR);
    for (int i = 0; i < kOctetBoxes; ++i) {
        Control(Indexed("Ed_IP", i)).text = octets[static_cast<std::size_t>(i)];
        Control(Indexed("Ed_IP", i)).visible = lan;
        if (i < kOctetBoxes - 1) Control(Indexed("Ed_IPDot", i)).visible = lan;
    }
    ApplyConnectionEnabling();

    // Sample introduction type and autosampler.
    FillTypeList();
    ControlState& types = Control("Cb_Type");
    const std::string typeText = TypeText(record_.SI_TYPE);
    auto found = std::find(types.items.begin(), types.items.end(), typeText);
    types.chosen = found == types.items.end() ? 0 : static_cast<int>(found - types.items.begin());
    siShown_ = TypeCodeFromText(ChosenText("Cb_Type"));
    opalMode_ = siShown_ == kOpalType;
    ControlState& autosamplers = Control("Cb_Auto");
    autosamplers.items =
        AutosamplerEntries(opalMode_ ? kOpalAutosamplerList : siShown_, record_.ADDON_FLAGS);
    const int index = AutosamplerIndexFromCode(record_.ALS_TYPE, record_.MPM);
    autosamplers.chosen = index < static_cast<int>(autosamplers.items.size()) ? index : 0;
    alsShown_ = record_.ALS_TYPE;
    Control("Cd_AutoSet").enabled = record_.ALS_TYPE >= 1;
    Control("Cd_TypeSet").enabled = false;  // it has no action of its own

    // Remote start. The OPAL system always starts runs by the ready signal.
    ChooseRemoteStart(record_.KVD_Remote != 0 || opalMode_);
    for (std::string_view option : {"Op_Wait", "Op_NotUse"}) Control(option).enabled = !opalMode_;
    ControlState& notRepeated = Control("Ck_NotRepRem");
    notRepeated.checked = record_.NotRepRemote == 1;
    notRepeated.visible = siShown_ == kLcGcType;
    notRepeated.enabled = Checked("Op_Wait") && !opalMode_;

    // Prohibited masses and EM protection.
    for (int i = 0; i < kMassBoxes; ++i) {
        const Int16 mass = record_.INHIBIT_MASS[static_cast<std::size_t>(i)];
        Control(Indexed("Ed_Inhibit", i)).text = mass == 0 ? EmptyMassText() : IntText(mass);
    }
    Control("Ck_Integ").checked = record_.PRO_SCAN == 1;

    // QC mode and OPAL application.
    Control("Lbl_QCFile").text = record_.QCMDFILE;
    Control("Cb_MPMApp").enabled = opalMode_;
    Control("Lbl_MPMApp").enabled = opalMode_;
    int application = -1;
    if (record_.MPM == 1) {
        for (std::size_t i = 0; i < standard_.size(); ++i) {
            if (AnsiEqualNoCase(RecordedFile(standard_[i]), record_.MPMFILE)) {
                application = static_cast<int>(i);
                break;
            }
        }
    } else if (record_.MPM == 2) {
        for (std::size_t i = 0; i < user_.size(); ++i) {
            if (AnsiEqualNoCase(user_[i].file, record_.MPMFILE)) {
                application = static_cast<int>(standard_.size() + i);
                break;
            }
        }
    }
    ChooseApplication(application);
    if (record_.MPM >= 1 && application < 0) {
        Show(kMessageApplicationNotFound, platform::MessageIcon::Exclamation);
    }

    // LC/GC link.
    ControlState& link = Control("Ck_CtrlLCGC");
    link.checked = record_.LCCHEM >= 1;
    Control("Cb_LCInst").chosen = std::clamp<int>(record_.LCCHEM, 1, kLcInstruments) - 1;
    ApplyLcGcLink();

    // Security, printing and VLT.
    Control("Ck_Security").checked = record_.SECURITY == 1;
    Control("Ck_AlwaysPrt").checked = record_.ALWAYSPRT != 0;
    Control("Ck_VLT").checked = record_.VLT_ENABLED == 1;
    Control("Lb_VLTFolder").text = record_.VLT_FOLDER;
    ApplySecurityFrame();
}

// ---------------------------------------------------------------------------------------------
// Enabling rules

void MainDialog::ApplyConnectionEnabling() {
    const bool online = !Checked("Ck_Offline");
    for (int i = 0; i < kOctetBoxes; ++i) Control(Indexed("Ed_IP", i)).enabled = online;
    Control("Ed_Address").enabled = online && record_.ICPMS_TYPE != 2;
}

void MainDialog::ChooseRemoteStart(bool wait) {
    Control("Op_Wait").checked = wait;
    Control("Op_NotUse").checked = !wait;
}

// The LC/GC link is offered for the LC/GC type only; while it is on, remote start is forced on.
void MainDialog::ApplyLcGcLink() {
    ControlState& link = Control("Ck_CtrlLCGC");
    link.enabled = siShown_ == kLcGcType;
    const bool linked = link.enabled && link.checked;
    if (linked) {
        ChooseRemoteStart(true);
        Control("Op_NotUse").enabled = false;
        Control("Ck_NotRepRem").enabled = true;
    } else if (!opalMode_) {
        Control("Op_NotUse").enabled = true;
    }
    Control("Cb_LCInst").enabled = linked;
    Control("Lbl_LCInst").enabled = linked;
}

void MainDialog::ApplySecurityFrame() {
    const bool admin = record_.CAN_EDIT == 1;
    ControlState& security = Control("Ck_Security");
    ControlState& print = Control("Ck_AlwaysPrt");
    ControlState& vlt = Control("Ck_VLT");
    Control("Gb_Security").enabled = admin;
    security.enabled = admin;
    if (!admin) {
        print.enabled = false;
        vlt.enabled = false;
    } else if (security.checked) {
        print.checked = true;  // printing is forced on under security
        print.enabled = false;
        vlt.enabled = true;
    } else {
        vlt.checked = false;  // VLT integration never runs without security
        vlt.enabled = false;
        print.enabled = true;
    }
    const bool folder = vlt.enabled && vlt.checked;
    for (std::string_view name : {"Lb_Title_VLTFolder", "Lb_VLTFolder", "Cd_SelVLTFolder"}) {
        Control(name).enabled = folder;
    }
}

// Each reason follows the rule above that greys or hides the control.
std::string MainDialog::WhyUnusable(std::string_view control) const {
    const bool lan = record_.ICPMS_TYPE == 2;
    const std::string forOpal = "for the sample introduction " + Quoted(TypeText(kOpalType));
    const std::string unlessLcGc =
        "unless the sample introduction is " + Quoted(TypeText(kLcGcType));
    const std::string notAdmin = "because the user logged on may not change the security settings";
    const bool admin = record_.CAN_EDIT == 1;
    if (control == "Ed_Address" || control.starts_with("Ed_IP(")) {
        if (!Control(control).visible)
            return lan ? "for a LAN instrument" : "for a GPIB instrument";
        return WhileChecked(Control("Ck_Offline"));
    }
    if (control == "Cd_AutoSet") return "while no autosampler is chosen";
    if (control == "Op_Wait" || control == "Op_NotUse") {
        return opalMode_ ? forOpal : WhileChecked(Control("Ck_CtrlLCGC"));
    }
    if (control == "Ck_NotRepRem") {
        if (!Control(control).visible) return unlessLcGc;
        return opalMode_ ? forOpal : WhileChosen(Control("Op_NotUse"));
    }
    if (control == "Cb_MPMApp") {
        return "unless the sample introduction is " + Quoted(TypeText(kOpalType));
    }
    if (control == "Ck_CtrlLCGC") return unlessLcGc;
    if (control == "Cb_LCInst") return WhileNotChecked(Control("Ck_CtrlLCGC"));
    if (control == "Gb_Security" || control == "Ck_Security") return notAdmin;
    if (control == "Ck_AlwaysPrt") return admin ? WhileChecked(Control("Ck_Security")) : notAdmin;
    if (control == "Ck_VLT") return admin ? WhileNotChecked(Control("Ck_Security")) : notAdmin;
    if (control == "Lb_VLTFolder" || control == "Cd_SelVLTFolder") {
        return Control("Ck_VLT").enabled ? WhileNotChecked(Control("Ck_VLT"))
                                         : WhyUnusable("Ck_VLT");
    }
    return {};
}

// ---------------------------------------------------------------------------------------------
// The user's actions

void MainDialog::SetText(std::string_view control, std::string text) {
    if (controls_.find(control) == controls_.end()) return;
    Control(control).text = std::move(text);
}

void MainDialog::Click(std::string_view control) {
    if (controls_.find(control) == controls_.end() || !Usable(control)) return;
    if (control == "Cd_Save") {
        Save();
    } else if (control == "Cancel") {
        record_.SAVE_REQ = 0;
        end_ = DialogEnd::Cancelled;
    } else if (control == "Cd_Reset") {
        Reset();
    } else if (control == "Ck_Offline") {
        Control(control).checked = !Checked(control);
        ApplyConnectionEnabling();
    } else if (control == "Op_Wait" || control == "Op_NotUse") {
        ChooseRemoteStart(control == "Op_Wait");
        Control("Ck_NotRepRem").enabled = Checked("Op_Wait");
    } else if (control == "Ck_NotRepRem" || control == "Ck_Integ") {
        Control(control).checked = !Checked(control);
    } else if (control == "Ck_CtrlLCGC") {
        Control(control).checked = !Checked(control);
        ApplyLcGcLink();
    } else if (control == "Ck_Security" || control == "Ck_AlwaysPrt" || control == "Ck_VLT") {
        Control(control).checked = !Checked(control);
        ApplySecurityFrame();
    }
}

void MainDialog::Choose(std::string_view control, int index) {
    if (controls_.find(control) == controls_.end() || !Usable(control)) return;
    ControlState& list = Control(control);
    if (index < -1 || index >= static_cast<int>(list.items.size())) return;
    if (control == "Cb_Type") {
        if (index >= 0) ChooseType(index);
    } else if (control == "Cb_Auto") {
        if (index >= 0) ChooseAutosampler(index);
    } else if (control == "Cb_MPMApp") {
        ChooseApplication(index);
    } else if (control == "Cb_LCInst") {
        list.chosen = index;
    }
}

// The hidden file lists follow the application chosen.
void MainDialog::ChooseApplication(int index) {
    Control("Cb_MPMApp").chosen = index;
    const int standard = static_cast<int>(standard_.size());
    const int standardIndex = index < standard ? index : -1;
    Control(Indexed("Cb_MPMFileStd", 0)).chosen = standardIndex;
    Control(Indexed("Cb_MPMFileStd", 1)).chosen = standardIndex;
    Control("Cb_MPMFileUsr").chosen = index >= standard ? index - standard : -1;
}

void MainDialog::ChooseType(int index) {
    Control("Cb_Type").chosen = index;
    const Int16 code = TypeCodeFromText(ChosenText("Cb_Type"));
    if (code == siShown_) return;
    ControlState& notRepeated = Control("Ck_NotRepRem");
    notRepeated.visible = false;
    notRepeated.checked = false;
    if (code == kOpalType) {
        if (record_.OPT_PMP2 > 0) {
            Show(kMessagePumpReset, platform::MessageIcon::Information);
            record_.OPT_PMP2 = 0;
        }
        opalMode_ = true;
        Control("Cb_MPMApp").enabled = true;
        Control("Lbl_MPMApp").enabled = true;
        RebuildAutosamplers(kOpalAutosamplerList);
        ChooseRemoteStart(true);
        for (std::string_view name : {"Op_Wait", "Op_NotUse", "Ck_NotRepRem"}) {
            Control(name).enabled = false;
        }
    } else {
        opalMode_ = false;
        Control("Cb_MPMApp").enabled = false;
        Control("Lbl_MPMApp").enabled = false;
        RebuildAutosamplers(code);
        Control("Op_Wait").enabled = true;
        Control("Op_NotUse").enabled = true;
        if (code == 2 || code == 3 || code == 4 || code == kLcGcType) ChooseRemoteStart(true);
        if (code == 0 || code == 1) ChooseRemoteStart(false);
        if (code == kLcGcType) {
            notRepeated.visible = true;
            notRepeated.checked = true;
        }
        notRepeated.enabled = Checked("Op_Wait");
    }
    siShown_ = code;
    ApplyLcGcLink();
}

// A new autosampler list keeps the model chosen when it still offers it, else takes its first
// entry; the choice is then applied as if the user had made it.
void MainDialog::RebuildAutosamplers(Int16 listType) {
    ControlState& autosamplers = Control("Cb_Auto");
    const std::string before = ChosenText("Cb_Auto");
    autosamplers.items = AutosamplerEntries(listType, record_.ADDON_FLAGS);
    auto kept = std::find(autosamplers.items.begin(), autosamplers.items.end(), before);
    const int index =
        kept == autosamplers.items.end() ? 0 : static_cast<int>(kept - autosamplers.items.begin());
    ChooseAutosampler(index);
}

void MainDialog::ChooseAutosampler(int index) {
    Control("Cb_Auto").chosen = index;
    const Int16 typeCode =
        opalMode_ ? kOpalAutosamplerList : TypeCodeFromText(ChosenText("Cb_Type"));
    const Int16 code = AutosamplerCodeFromText(typeCode, ChosenText("Cb_Auto"));
    if (code != alsShown_) {
        Control("Cd_AutoSet").enabled = code >= 1;
        WindowRecordInUse inUse(record_);
        SetDefaultRacks(code);
    }
    alsShown_ = code;
    if (std::string(CutAtNul(LoadResString(kTextOpalType))) == ChosenText("Cb_Type")) {
        AnnounceOpalPort(code);
    }
    record_.ALS_TYPE = code;
}

void MainDialog::AnnounceOpalPort(Int16 code) {
    int text = 0;
    switch (code) {
        case 1:
        case 3:
        case 4:
            text = 511;
            break;
        case 5:
            text = 512;
            break;
        case 6:
            text = 513;
            break;
        default:
            return;
    }
    Show(text, platform::MessageIcon::None);
    WindowRecordInUse inUse(record_);
    UpdateOpalChannelFiles(code == 5);
}

// ---------------------------------------------------------------------------------------------
// Keys and leaving boxes

KeyAnswer MainDialog::Key(std::string_view control, const KeyPress& key, const BoxCaret& caret) {
    const int box = ElementIndex(control, "Ed_IP", kOctetBoxes);
    if (box < 0) return {};
    const int length = static_cast<int>(Control(control).text.size());
    const std::string next = box < kOctetBoxes - 1 ? Indexed("Ed_IP", box + 1) : std::string{};
    using Verdict = KeyAnswer::Verdict;
    using Place = KeyAnswer::Place;
    switch (key.kind) {
        case KeyPress::Kind::Backspace:
            return {};
        case KeyPress::Kind::Left:
        case KeyPress::Kind::Up:
            if (box > 0 && caret.position == 0) {
                return {Verdict::Swallow, Indexed("Ed_IP", box - 1), Place::End};
            }
            return {};
        case KeyPress::Kind::Right:
        case KeyPress::Kind::Down:
            if (caret.position == length && !next.empty()) {
                return {Verdict::Swallow, next, Place::Start};
            }
            return {};
        case KeyPress::Kind::Home:
            return {Verdict::Swallow, Indexed("Ed_IP", 0), Place::Start};
        case KeyPress::Kind::End:
            return {Verdict::Swallow, Indexed("Ed_IP", kOctetBoxes - 1), Place::End};
        case KeyPress::Kind::Character:
            break;
    }
    const char c = key.character;
    if (c >= '0' && c <= '9') {
        const int outside = length - caret.selectionLength;
        if (outside == 2 && caret.position == 2) return {Verdict::Pass, next, Place::SelectAll};
        if (outside >= 3) return {Verdict::Beep, {}, Place::Start};
        return {};
    }
    if (c == ' ' || c == '.') {
        if (caret.selectionLength == 0 && length > 0 && caret.position > 0 && !next.empty()) {
            return {Verdict::Swallow, next, Place::SelectAll};
        }
        return {Verdict::Swallow, {}, Place::Start};
    }
    return {Verdict::Swallow, {}, Place::Start};
}

void MainDialog::LeaveBox(std::string_view control) {
    if (int box = ElementIndex(control, "Ed_IP", kOctetBoxes); box >= 0) {
        ControlState& octet = Control(control);
        octet.text = CleanOctet(octet.text);
    } else if (int mass = ElementIndex(control, "Ed_Inhibit", kMassBoxes); mass >= 0) {
        LeaveMassBox(mass);
    }
}

void MainDialog::LeaveMassBox(int box) {
    ControlState& mass = Control(Indexed("Ed_Inhibit", box));
    mass.text = CleanMass(mass.text);
    if (mass.text == EmptyMassText()) return;
    const double value = LenientNumber(mass.text);
    for (int other = 0; other < kMassBoxes; ++other) {
        if (other == box) continue;
        const std::string& text = Control(Indexed("Ed_Inhibit", other)).text;
        if (text == EmptyMassText() || LenientNumber(text) != value) continue;
        Show(kMessageDuplicateMass, platform::MessageIcon::Exclamation);
        mass.text = EmptyMassText();
        return;
    }
}

// ---------------------------------------------------------------------------------------------
// Save, Reset to Default, the QC mode

void MainDialog::Refuse(int message) const {
    platform::Messages().Show({LoadResString(message), LoadResString(kResErrorTitle),
                               platform::MessageIcon::Exclamation, platform::MessageButtons::Ok,
                               0});
}

// Every check in its order; the controls are stored in a copy of the window's record, which
// replaces it only when every check has passed.
void MainDialog::Save() {
    ConfigRecord saved = record_;
    if (Usable("Cb_MPMApp") && Control("Cb_MPMApp").chosen < 0) {
        return Refuse(kMessageNoOpalApplication);
    }
    const bool lan = record_.ICPMS_TYPE == 2;
    std::array<std::string, 4> octets;
    std::array<int, 4> values{};
    for (int i = 0; i < kOctetBoxes; ++i) {
        octets[static_cast<std::size_t>(i)] = Control(Indexed("Ed_IP", i)).text;
        values[static_cast<std::size_t>(i)] = OctetValue(octets[static_cast<std::size_t>(i)]);
    }
    if (lan && Usable(Indexed("Ed_IP", 0)) && !IpAddressAccepted(values)) {
        return Refuse(kMessageInvalidIpAddress);
    }
    if (lan) {
        saved.LAN_IPADDR = octets[0] + "." + octets[1] + "." + octets[2] + "." + octets[3];
    } else if (Usable("Ed_Address")) {
        const double address = LenientNumber(Control("Ed_Address").text);
        if (!(address >= 0 && address <= 29)) return Refuse(kMessageGpibAddress);
        saved.GPIB_ADDR = RoundToInt16(address).value_or(0);
    }

    saved.ICPMS_ID = Checked("Ck_Offline") ? 1 : 0;
    RemoveDevice(saved, "SMARTCARD");
    if (saved.ICPMS_ID == 0) AddDeviceTo(saved, "SMARTCARD");

    saved.KVD_Remote = Checked("Op_Wait") ? 1 : 0;
    saved.NotRepRemote = Checked("Ck_NotRepRem") ? 1 : 0;

    saved.SI_TYPE = TypeCodeFromText(ChosenText("Cb_Type"));
    saved.ALS_TYPE = AutosamplerCodeFromText(opalMode_ ? kOpalAutosamplerList : saved.SI_TYPE,
                                             ChosenText("Cb_Auto"));

    // The autosampler's device entry, once the OPAL application is settled.
    RemoveDevice(saved, kAutosamplerDevice);
    const int application = Usable("Cb_MPMApp") ? Control("Cb_MPMApp").chosen : -1;
    const int standardCount = static_cast<int>(standard_.size());
    saved.MPM = 0;
    saved.MPMFILE.clear();
    saved.MPMATDIL = 0;
    if (application >= 0 && application < standardCount) {
        const OpalStandardApplication& chosen = standard_[static_cast<std::size_t>(application)];
        saved.MPM = 1;
        saved.MPMFILE = RecordedFile(chosen);
        saved.MPMATDIL = chosen.name == kAutoDilution ? -1 : 0;
    } else if (application >= standardCount) {
        saved.MPM = 2;
        saved.MPMFILE = user_[static_cast<std::size_t>(application - standardCount)].file;
    }
    saved.RESET_COM_PORT = saved.ALS_TYPE == 5 && saved.MPM == 0 ? saved.COM_PORT : Int16{0};
    const Int16 als = saved.ALS_TYPE;
    if (saved.MPM >= 1 || als == 1 || als == 2 || als == 4 || als == 5 || als == 6 ||
        saved.SI_TYPE == 2) {
        AddDeviceTo(saved, kAutosamplerDevice);
    }

    std::array<Int16, kMassBoxes> masses{};
    for (int i = 0; i < kMassBoxes; ++i) {
        const double value = LenientNumber(Control(Indexed("Ed_Inhibit", i)).text);
        masses[static_cast<std::size_t>(i)] = RoundToInt16(value).value_or(0);
    }
    std::sort(masses.begin(), masses.end());
    std::copy(masses.begin(), masses.end(), saved.INHIBIT_MASS.begin());

    saved.PRO_SCAN = Checked("Ck_Integ") ? 1 : 0;

    saved.SECURITY = Checked("Ck_Security") ? 1 : 0;
    saved.ALWAYSPRT = Checked("Ck_AlwaysPrt") ? -1 : 0;
    saved.VLT_ENABLED = Checked("Ck_VLT") ? 1 : 0;
    saved.VLT_FOLDER = Control("Lb_VLTFolder").text;
    if (saved.VLT_ENABLED == 1 && saved.VLT_FOLDER.empty()) return Refuse(kMessageNoVltFolder);

    saved.LCCHEM = 0;
    if (saved.SI_TYPE == kLcGcType && Checked("Ck_CtrlLCGC")) {
        saved.LCCHEM = LenientInt16(ChosenText("Cb_LCInst"));
    }
    if (saved.KVD_Remote == 0) saved.LCCHEM = 0;

    saved.SAVE_REQ = 1;
    record_ = std::move(saved);
    end_ = DialogEnd::Accepted;
}

void MainDialog::Reset() {
    const Int16 security = record_.SECURITY;
    const Int16 print = record_.ALWAYSPRT;
    const Int32 vlt = record_.VLT_ENABLED;
    std::string folder = record_.VLT_FOLDER;
    {
        WindowRecordInUse inUse(record_);
        SetDefaults();
    }
    if (record_.CAN_EDIT != 1) {
        record_.SECURITY = security;
        record_.ALWAYSPRT = print;
        record_.VLT_ENABLED = vlt;
        record_.VLT_FOLDER = std::move(folder);
    }
    Populate();
    record_.REG_DIRTY = 1;
}

bool MainDialog::SelectQcMode(std::string_view path) {
    const std::size_t slash = path.find_last_of('\\');
    const std::string folder(slash == std::string_view::npos ? std::string_view{}
                                                             : path.substr(0, slash + 1));
    const std::string name(slash == std::string_view::npos ? path : path.substr(slash + 1));
    if (name.empty() || !platform::Files().ReadFile(folder + name + "\\RUNTYPE.INI")) {
        Refuse(kMessageInvalidQcMode);
        return false;
    }
    record_.QCMDPATH = folder;
    record_.QCMDFILE = name;
    Control("Lbl_QCFile").text = name;
    return true;
}

AutosamplerSetup MainDialog::AutosamplerDialog(bool currentTrayValid) const {
    if (record_.ALS_TYPE == 1 && currentTrayValid) return AutosamplerSetup::Asx500Trays;
    if (record_.ALS_TYPE == 5) return AutosamplerSetup::Vas;
    return AutosamplerSetup::Legacy;
}

}  // namespace lumacfg::ui
