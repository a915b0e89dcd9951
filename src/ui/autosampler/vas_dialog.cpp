#include "ui/autosampler/vas_dialog.h"

#include <algorithm>

#include "base/numbers.h"
#include "integration/help.h"
#include "resources/string_table.h"

namespace lumacfg::ui {
namespace {

constexpr double kStepsPerMm = 8.0;
constexpr int kTextFirstTray = 506;
constexpr int kTrays = 4;

struct DepthBox {
    std::string_view name;
    double maxMm;
    Int16 ConfigRecord::*field;
};

constexpr DepthBox kDepthBoxes[] = {
    {"txtRinseDepth", kMaxRinseDepthMm, &ConfigRecord::RINSE_DEPTH},
    {"txtSampleDepth", kMaxSampleDepthMm, &ConfigRecord::SAMPLE_DEPTH},
    {"txtSTDDepth", kMaxSampleDepthMm, &ConfigRecord::STD_DEPTH},
};

const DepthBox* DepthBoxOf(std::string_view name) {
    for (const DepthBox& box : kDepthBoxes) {
        if (box.name == name) return &box;
    }
    return nullptr;
}

double ClampedMm(std::string_view text, double maxMm) {
    return std::clamp(LenientNumber(text), 0.0, maxMm);
}

}  // namespace

std::string DepthText(Int16 steps) {
    return FormatNumber(steps / kStepsPerMm, NumberFormat::TwoDecimalsWide);
}

std::string CleanDepth(std::string_view text, double maxMm) {
    return FormatNumber(ClampedMm(text, maxMm), NumberFormat::TwoDecimalsWide);
}

Int16 DepthSteps(std::string_view text, double maxMm) {
    // Within 0..maxMm the steps are far inside the 16-bit range.
    return RoundToInt16(ClampedMm(text, maxMm) * kStepsPerMm).value_or(0);
}

VasDialog::VasDialog(const ConfigRecord& record, bool opalApplicationInUse) : accepted_(record) {
    controls_["Fm_VAS"].text = LoadResString(500);
    controls_["Lbl_COM"].text = "COM port for V-AS:";
    controls_["Lbl_TRAYID"].text = LoadResString(501);
    controls_["Frame_Depth"].text = LoadResString(502);
    controls_["Lbl_Rinse"].text = LoadResString(503);
    controls_["Lbl_Tray"].text = LoadResString(504);
    controls_["Lbl_STD"].text = LoadResString(505);
    controls_["ChkESCMode"].text = LoadResString(510);
    controls_["OK"].text = LoadResString(3);
    controls_["Cancel"].text = LoadResString(4);
    controls_["Help"].text = LoadResString(5);

    std::vector<std::string> trays;
    for (int i = 0; i < kTrays; ++i) trays.push_back(LoadResString(kTextFirstTray + i));
    controls_.Fill("Cb_TRAY", std::move(trays));
    controls_.Fill("Cb_COM", ComPortEntries());
    controls_.TitleAfterLabel("Cb_COM", "Lbl_COM");
    controls_.TitleAfterLabel("Cb_TRAY", "Lbl_TRAYID");
    controls_["Cb_COM"].chosen = 0;
    controls_.ChooseText("Cb_COM", "COM" + IntText(record.COM_PORT));
    if (record.TRAY_ID >= 0 && record.TRAY_ID < kTrays)
        controls_["Cb_TRAY"].chosen = record.TRAY_ID;
    for (int i = 0; i < 3; ++i) {
        const DepthBox& box = kDepthBoxes[i];
        controls_[box.name].text = DepthText(record.*box.field);
        controls_[Indexed("Lbl_Unit", i)].text = "mm";
    }
    controls_["ChkESCMode"].checked = record.ESC_MODE == 1;
    if (opalApplicationInUse) {
        controls_["Cb_COM"].enabled = false;
        controls_["Lbl_COM"].enabled = false;
    }
}

std::string VasDialog::WhyUnusable(std::string_view control) const {
    return control == "Cb_COM" ? std::string(kPortHeldByOpal) : std::string();
}

void VasDialog::SetText(std::string_view control, std::string text) {
    controls_[control].text = std::move(text);
}

void VasDialog::LeaveBox(std::string_view control) {
    if (const DepthBox* box = DepthBoxOf(control))
        controls_[control].text = CleanDepth(controls_[control].text, box->maxMm);
}

void VasDialog::Choose(std::string_view control, int index) {
    controls_.UserChoice(control, index);
}

void VasDialog::Click(std::string_view control) {
    if (control == "ChkESCMode") {
        controls_["ChkESCMode"].checked = !controls_["ChkESCMode"].checked;
    } else if (control == "OK") {
        Ok();
    } else if (control == "Cancel") {
        end_ = DialogEnd::Cancelled;
    } else if (control == "Help") {
        ShowAutosamplerHelp(kHelpTopicVas);
    }
}

void VasDialog::Ok() {
    accepted_.COM_PORT = PortOfEntry(controls_.ChosenText("Cb_COM"));
    if (controls_["Cb_TRAY"].chosen >= 0)
        accepted_.TRAY_ID = static_cast<Int16>(controls_["Cb_TRAY"].chosen);
    for (const DepthBox& box : kDepthBoxes) {
        accepted_.*box.field = DepthSteps(controls_[box.name].text, box.maxMm);
    }
    accepted_.ONEBOTTLE_DEPTH = accepted_.SAMPLE_DEPTH;
    accepted_.ESC_MODE = controls_["ChkESCMode"].checked ? 1 : 0;
    end_ = DialogEnd::Accepted;
}

void VasDialog::Accept(ConfigRecord& record) const {
    if (end_ != DialogEnd::Accepted) return;
    record.COM_PORT = accepted_.COM_PORT;
    record.TRAY_ID = accepted_.TRAY_ID;
    for (const DepthBox& box : kDepthBoxes) record.*box.field = accepted_.*box.field;
    record.ONEBOTTLE_DEPTH = accepted_.ONEBOTTLE_DEPTH;
    record.ESC_MODE = accepted_.ESC_MODE;
}

}  // namespace lumacfg::ui
