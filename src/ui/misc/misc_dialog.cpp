#include "ui/misc/misc_dialog.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/numbers.h"
#include "base/text.h"
#include "config/load_configuration.h"
#include "integration/help.h"
#include "platform/services.h"
#include "resources/string_table.h"
#include "ui/dialog/refusal.h"

namespace lumacfg::ui {
namespace {

constexpr int kTextOpalType = 153;
constexpr int kTextDiscreteSampling = 168;
constexpr int kMessageExternalPump = 319;

constexpr double kFlowMaximum = 2.0;
constexpr double kFlowMinimum = 0.1;
constexpr double kTimeMaximum = 999;

// The check boxes and the record's flag each one shows, in the order OK stores them.
struct FlagBox {
    const char* control;
    Int16 ConfigRecord::*field;
};
constexpr FlagBox kFlagBoxes[] = {
    {"Ck_SC", &ConfigRecord::OPT_SC},
    {"Ck_Pmp2", &ConfigRecord::OPT_PMP2},
    {"Op_Smpl(1)", &ConfigRecord::OPT_ORGANIC},
    {"Ck_Rotate", &ConfigRecord::OPT_IMTPUMP},
    {"Op_Shutdown(1)", &ConfigRecord::OPT_SHUTDOWN},
    {"Ck_Ddtm", &ConfigRecord::EnableDTCal},
    {"Ck_RecLog", &ConfigRecord::OPT_AUTOREC},
    {"Ck_StopPP", &ConfigRecord::OPT_STOP_PP},
    {"Ck_CG", &ConfigRecord::OPT_CHG_CG},
    {"Ck_ExtPump", &ConfigRecord::ExternalPump},
};

// The controls that follow "Change Carrier Gas Flow Rate".
constexpr const char* kFlowControls[] = {"Txt_CGFlow",   "Lbl_CG",       "Lbl_FlowRate",
                                         "Lbl_StabTime", "Txt_StabTime", "Lbl_StUnit"};

// The option groups: the other button of each pair.
std::string_view OtherOption(std::string_view option) {
    if (option == "Op_Smpl(0)") return "Op_Smpl(1)";
    if (option == "Op_Smpl(1)") return "Op_Smpl(0)";
    if (option == "Op_Shutdown(0)") return "Op_Shutdown(1)";
    if (option == "Op_Shutdown(1)") return "Op_Shutdown(0)";
    return {};
}

double CleanFlow(std::string_view text) {
    if (!IsNumber(text)) return 0;
    const double flow = LenientNumber(text);
    if (flow > kFlowMaximum) return kFlowMaximum;
    // A flow too small to measure is no flow at all.
    if (flow < kFlowMinimum) return 0;
    return flow;
}

Int16 CleanTime(std::string_view text) {
    if (!IsNumber(text)) return 0;
    const double time = LenientNumber(text);
    if (time > kTimeMaximum) return static_cast<Int16>(kTimeMaximum);
    const Int16 seconds = RoundToInt16(time).value_or(0);  // below the range: as below 1
    return seconds < 1 ? Int16{0} : seconds;
}

}  // namespace

std::string CleanFlowText(std::string_view text) {
    return FormatNumber(CleanFlow(text), NumberFormat::TwoDecimals);
}

std::string CleanTimeText(std::string_view text) {
    return FormatNumber(CleanTime(text), NumberFormat::Integer);
}

MiscSurroundings MiscSurroundingsOf(std::string typeText, std::string applicationText) {
    return {std::move(typeText), std::move(applicationText), ReadPumpKind() >= 1};
}

MiscDialog::MiscDialog(const ConfigRecord& record, MiscSurroundings surroundings)
    : record_(record) {
    auto caption = [&](std::string_view name, int text) {
        Control(name).text = LoadResString(text);
    };
    caption("Fm_Misc", 300);
    caption("OK", 3);
    caption("Cancel", 4);
    caption("Help", 5);
    caption("Gb_Opt", 301);
    caption("Ck_SC", 139);
    caption("Ck_Pmp2", 140);
    caption("Ck_ExtPump", 318);
    caption("Gb_Ignt", 302);
    caption("Lbl_Type", 303);
    caption("Op_Smpl(0)", 304);
    caption("Op_Smpl(1)", 305);
    caption("Gb_Rotate", 306);
    caption("Ck_Rotate", 307);
    caption("Gb_Shutdown", 308);
    caption("Op_Shutdown(0)", 309);
    caption("Op_Shutdown(1)", 310);
    caption("Gb_Ddtm", 145);
    caption("Ck_Ddtm", 146);
    caption("Gb_Mainte", 311);
    caption("Ck_RecLog", 312);
    caption("Gb_ProbeMove", 313);
    caption("Ck_StopPP", 314);
    caption("Ck_CG", 315);
    caption("Lbl_FlowRate", 316);
    Control("Txt_CGFlow").title = BoxTitle(Control("Lbl_FlowRate"));
    Control("Lbl_CG").text = "L/min";
    caption("Lbl_StabTime", 317);
    Control("Txt_StabTime").title = BoxTitle(Control("Lbl_StabTime"));
    Control("Lbl_StUnit").text = "sec";
    Populate(record, surroundings);
}

ControlState& MiscDialog::Control(std::string_view name) {
    auto found = controls_.find(name);
    if (found == controls_.end())
        found = controls_.emplace(std::string(name), ControlState{}).first;
    return found->second;
}

bool MiscDialog::Checked(std::string_view name) const {
    auto found = controls_.find(name);
    return found != controls_.end() && found->second.checked;
}

void MiscDialog::Populate(const ConfigRecord& record, const MiscSurroundings& surroundings) {
    const bool probeMoves = record.ALS_TYPE > 0;
    const bool externalPump =
        surroundings.typeText == CutAtNul(LoadResString(kTextOpalType)) &&
        surroundings.applicationText == CutAtNul(LoadResString(kTextDiscreteSampling));
    // A greyed sample pump box still shows the stored option.
    Control("Ck_Pmp2").enabled = surroundings.pumpPermitted;
    for (const FlagBox& box : kFlagBoxes) Control(box.control).checked = record.*box.field == 1;
    Control("Op_Smpl(0)").checked = !Checked("Op_Smpl(1)");
    Control("Op_Shutdown(0)").checked = !Checked("Op_Shutdown(1)");
    for (const char* name : {"Gb_ProbeMove", "Ck_StopPP", "Ck_CG"}) {
        Control(name).enabled = probeMoves;
    }
    ApplyFlowEnabling(probeMoves && Checked("Ck_CG"));
    Control("Txt_CGFlow").text = FormatNumber(record.OPT_CHG_FLW, NumberFormat::TwoDecimals);
    Control("Txt_StabTime").text = FormatNumber(record.OPT_CHG_TIME, NumberFormat::Integer);
    Control("Ck_ExtPump").enabled = externalPump;
}

std::string MiscDialog::WhyUnusable(std::string_view control) const {
    const ControlState& changeGas = controls_.at("Ck_CG");
    if (control == "Ck_Pmp2") return "because the instrument has no sample pump option";
    if (control == "Ck_ExtPump") {
        return "unless the sample introduction is " +
               Quoted(CutAtNul(LoadResString(kTextOpalType))) + " with the application " +
               Quoted(CutAtNul(LoadResString(kTextDiscreteSampling)));
    }
    const bool followsGas =
        std::find_if(std::begin(kFlowControls), std::end(kFlowControls),
                     [&](const char* name) { return control == name; }) != std::end(kFlowControls);
    if (followsGas && changeGas.enabled) return WhileNotChecked(changeGas);
    if (followsGas || control == "Gb_ProbeMove" || control == "Ck_StopPP" || control == "Ck_CG") {
        return "while no autosampler is chosen";
    }
    return {};
}

void MiscDialog::ApplyFlowEnabling(bool enabled) {
    for (const char* name : kFlowControls) Control(name).enabled = enabled;
}

void MiscDialog::SetText(std::string_view control, std::string text) {
    if (control == "Txt_CGFlow" || control == "Txt_StabTime")
        Control(control).text = std::move(text);
}

void MiscDialog::Click(std::string_view control) {
    auto found = controls_.find(control);
    if (found == controls_.end() || !found->second.enabled || end_ != DialogEnd::Open) return;
    ControlState& clicked = found->second;
    if (control == "OK") {
        Store();
        end_ = DialogEnd::Accepted;
    } else if (control == "Cancel") {
        end_ = DialogEnd::Cancelled;
    } else if (control == "Help") {
        ShowHelp(0, {}, kHelpContextCommand, kHelpTopicMisc);
    } else if (std::string_view other = OtherOption(control); !other.empty()) {
        clicked.checked = true;
        Control(other).checked = false;
    } else if (control.starts_with("Ck_")) {
        clicked.checked = !clicked.checked;
        if (control == "Ck_CG") ApplyFlowEnabling(clicked.checked);
        if (control == "Ck_ExtPump" && clicked.checked) {
            platform::Messages().Show(
                {LoadResString(kMessageExternalPump), LoadResString(kResWindowCaption),
                 platform::MessageIcon::None, platform::MessageButtons::Ok, 0});
        }
    }
}

void MiscDialog::LeaveBox(std::string_view control) {
    if (control == "Txt_CGFlow") {
        Control(control).text = CleanFlowText(Control(control).text);
    } else if (control == "Txt_StabTime") {
        Control(control).text = CleanTimeText(Control(control).text);
    }
}

// Every box and option as it stands, enabled or not; the boxes' texts as they stand, unless a
// text was never cleaned and cannot be taken (not a number, or a time outside the 16-bit range):
// that box is cleaned first.
void MiscDialog::Store() {
    for (const FlagBox& box : kFlagBoxes) record_.*box.field = Checked(box.control) ? 1 : 0;
    std::string& flow = Control("Txt_CGFlow").text;
    if (!IsNumber(flow)) flow = CleanFlowText(flow);
    record_.OPT_CHG_FLW = static_cast<float>(LenientNumber(flow));
    std::string& time = Control("Txt_StabTime").text;
    std::optional<Int16> seconds;
    if (IsNumber(time)) seconds = RoundToInt16(static_cast<float>(LenientNumber(time)));
    if (!seconds) {
        time = CleanTimeText(time);
        seconds = RoundToInt16(LenientNumber(time));
    }
    record_.OPT_CHG_TIME = seconds.value_or(0);
}

void MiscDialog::Accept(ConfigRecord& record) const {
    if (end_ == DialogEnd::Cancelled) record.SAVE_REQ = 0;
    if (end_ != DialogEnd::Accepted) return;
    for (const FlagBox& box : kFlagBoxes) record.*box.field = record_.*box.field;
    record.OPT_CHG_FLW = record_.OPT_CHG_FLW;
    record.OPT_CHG_TIME = record_.OPT_CHG_TIME;
    record.SAVE_REQ = 1;
}

}  // namespace lumacfg::ui
