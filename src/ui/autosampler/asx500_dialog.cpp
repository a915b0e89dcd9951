#include "ui/autosampler/asx500_dialog.h"

#include <utility>

#include "base/numbers.h"
#include "integration/help.h"
#include "resources/string_table.h"
#include "ui/dialog/refusal.h"

namespace lumacfg::ui {
namespace {

constexpr int kPositions = static_cast<int>(kTrayPositions);
constexpr int kStandardPositions = 4;

constexpr int kMessageNoTray = 165;
constexpr int kMessageNoRack = 166;
constexpr int kMessageTooWide = 167;
constexpr int kMessageTooLong = 169;

// Positions of the caption block.
enum Caption {
    kTitle = 1,
    kComPortLabel,
    kTrayTypeLabel,
    kConfigTray,
    kRacksFrame,
    kRackLabelPrefix,
    kConfigRack,
    kOk,
    kCancel,
    kHelp,
};

const char* const kStandardTrayNames[] = {"Standard 4/5", "Standard 4/10"};
const char* const kStandardRackNames[] = {"21", "24", "40", "60", "90"};

std::string RackList(int position) {
    return Indexed("cmbRacks", position);
}

std::string RackLabel(int position) {
    return Indexed("lblRacks", position);
}

int FitMessage(RackFit fit) {
    switch (fit) {
        case RackFit::Fits:
            return 0;
        case RackFit::NoRack:
            return kMessageNoRack;
        case RackFit::WrongKind:
        case RackFit::TooWide:
            return kMessageTooWide;
        case RackFit::TooLong:
            return kMessageTooLong;
    }
    return 0;
}

std::size_t Slot(std::int16_t id) {
    return static_cast<std::size_t>(id - kFirstCustomId);
}

}  // namespace

Asx500Dialog::Asx500Dialog(const ConfigRecord& record) : comPort_(record.COM_PORT) {
    const std::vector<std::string> captions = LoadCaptionBlock(kCaptionsAsx500);
    auto caption = [&](int position) {
        const auto index = static_cast<std::size_t>(position - 1);
        return index < captions.size() ? captions[index] : std::string();
    };
    controls_["dlgASX500"].text = caption(kTitle);
    controls_["lblCOMPort"].text = caption(kComPortLabel);
    controls_["lblTrayType"].text = caption(kTrayTypeLabel);
    controls_["btnConfigTray"].text = caption(kConfigTray);
    controls_["grpRacks"].text = caption(kRacksFrame);
    for (int i = 0; i < kPositions; ++i) {
        controls_[RackLabel(i)].text = caption(kRackLabelPrefix) + "&" + IntText(i + 1) + ":";
    }
    controls_["btnConfigRack"].text = caption(kConfigRack);
    controls_["btnOK"].text = caption(kOk);
    controls_["btnCancel"].text = caption(kCancel);
    controls_["btnHelp"].text = caption(kHelp);

    controls_.Fill("cmbCOMPort", ComPortEntries());
    controls_.TitleAfterLabel("cmbCOMPort", "lblCOMPort");
    for (int i = 0; i < kPositions; ++i) controls_.TitleAfterLabel(RackList(i), RackLabel(i));
    controls_.UserChoice("cmbCOMPort", record.COM_PORT - 1);

    FillTrayList();
    ShowSelection(RackTrays().WorkingTray);
}

void Asx500Dialog::FillTrayList() {
    std::vector<std::string> trays(std::begin(kStandardTrayNames), std::end(kStandardTrayNames));
    for (const CustomTrayDef& tray : RackTrays().CustomTrays) {
        if (tray.id != kNoId && !tray.name.empty()) trays.push_back(tray.name);
    }
    controls_.Fill("cmbTrayType", std::move(trays));
    controls_.TitleAfterLabel("cmbTrayType", "lblTrayType");
}

// Chooses the selection's tray, sets up its positions and presets them to its racks.
void Asx500Dialog::ShowSelection(const TraySelection& selection) {
    const std::string trayName =
        IsStandardTrayId(selection.tray) ? kStandardTrayNames[selection.tray]
        : IsCustomId(selection.tray)     ? RackTrays().CustomTrays[Slot(selection.tray)].name
                                         : std::string();
    if (!trayName.empty()) controls_.ChooseText("cmbTrayType", trayName);
    SetUpPositions(ChosenTray());
    for (int i = 0; i < kPositions; ++i) {
        if (PositionUsable(i))
            PresetPosition(i, selection.rack[static_cast<std::size_t>(i)], false);
    }
}

// A position's list is greyed when the tray chosen has no such position.
std::string Asx500Dialog::WhyUnusable(std::string_view control) const {
    if (!control.starts_with("cmbRacks(")) return {};
    int usable = 0;
    while (usable < kPositions && PositionUsable(usable)) ++usable;
    return "because the tray " + Quoted(controls_.ChosenText("cmbTrayType")) + " has " +
           IntText(usable) + " rack positions";
}

void Asx500Dialog::TablesChanged() {
    TraySelection shown;
    shown.tray = ChosenTray();
    for (int i = 0; i < kPositions && PositionUsable(i); ++i)
        shown.rack[static_cast<std::size_t>(i)] = PositionRack(i);
    RackTrayState& state = RackTrays();
    state.CustomTrays = {};
    state.CustomRacks = {};
    // A value that is not a number stops its list as it stops the loading; the editors show it.
    (void)LoadCustomTrays();
    (void)LoadCustomRacks();
    FillTrayList();
    ShowSelection(shown);
}

std::int16_t Asx500Dialog::ChosenTray() const {
    return TrayIdFromName(controls_.ChosenText("cmbTrayType"));
}

std::int16_t Asx500Dialog::PositionRack(int position) const {
    return RackIdFromName(controls_.ChosenText(RackList(position)));
}

bool Asx500Dialog::PositionUsable(int position) const {
    return controls_[RackList(position)].enabled;
}

// Which positions the tray offers, and the racks each offers.
void Asx500Dialog::SetUpPositions(std::int16_t trayId) {
    int usable = 0;
    std::vector<std::string> racks;
    if (IsStandardTrayId(trayId)) {
        usable = kStandardPositions;
        racks.assign(std::begin(kStandardRackNames), std::end(kStandardRackNames));
    } else if (IsCustomId(trayId)) {
        usable = RackTrays().CustomTrays[Slot(trayId)].rackXNum;
        for (const CustomRackDef& rack : RackTrays().CustomRacks) {
            if (rack.id != kNoId) racks.push_back(rack.name);
        }
    }
    for (int i = 0; i < kPositions; ++i) {
        const bool enabled = i < usable;
        controls_.Fill(RackList(i), enabled ? racks : std::vector<std::string>{});
        controls_[RackList(i)].enabled = enabled;
        controls_[RackLabel(i)].enabled = enabled;
    }
}

// Chooses the rack's name in the position's list; a rack that is not in it leaves nothing
// chosen, or the first entry when `firstWhenNone`.
void Asx500Dialog::PresetPosition(int position, std::int16_t rackId, bool firstWhenNone) {
    const std::string name = RackNameFromId(rackId);
    const std::string list = RackList(position);
    if (name.empty() && firstWhenNone) {
        controls_.UserChoice(list, 0);
    } else {
        controls_.ChooseText(list, name);
    }
}

void Asx500Dialog::ChangeTray() {
    const std::int16_t trayId = ChosenTray();
    SetUpPositions(trayId);
    TraySelection defaults;
    SetDefaultTraySelection(defaults);
    for (int i = 0; i < kPositions; ++i) {
        if (!PositionUsable(i)) continue;
        if (IsStandardTrayId(trayId)) {
            PresetPosition(i, defaults.rack[static_cast<std::size_t>(i)], false);
        } else {
            const CustomTrayDef& tray = RackTrays().CustomTrays[Slot(trayId)];
            PresetPosition(i, tray.defRack[static_cast<std::size_t>(i)], true);
        }
    }
    if (PositionUsable(0)) focusRequest_ = RackList(0);
}

void Asx500Dialog::SetText(std::string_view control, std::string text) {
    controls_[control].text = std::move(text);
}

void Asx500Dialog::Choose(std::string_view control, int index) {
    if (!controls_.UserChoice(control, index)) return;
    if (control == "cmbTrayType") ChangeTray();
}

void Asx500Dialog::Click(std::string_view control) {
    if (control == "btnOK") {
        Ok();
    } else if (control == "btnCancel") {
        end_ = DialogEnd::Cancelled;
    } else if (control == "btnHelp") {
        ShowAutosamplerHelp(kHelpTopicAsx500);
    }
}

TrayPlan PlanTray(const RackTrayState& tables, std::int16_t trayId, std::string trayName,
                  const std::vector<std::int16_t>& racks) {
    TrayPlan plan;
    plan.trayId = trayId;
    plan.trayName = std::move(trayName);
    if (IsCustomId(trayId)) plan.custom = &tables.CustomTrays[Slot(trayId)];
    for (const std::int16_t rack : racks) {
        TrayPosition position;
        position.rackId = rack;
        position.rackName =
            IsCustomId(rack) ? tables.CustomRacks[Slot(rack)].name : RackNameFromId(rack);
        position.fit = FitOnTray(tables, trayId, rack);
        if (const int message = FitMessage(position.fit)) position.reason = LoadResString(message);
        if (IsCustomId(rack)) position.custom = &tables.CustomRacks[Slot(rack)];
        plan.positions.push_back(std::move(position));
    }
    return plan;
}

TrayPlan Asx500Dialog::Plan() const {
    std::vector<std::int16_t> racks;
    for (int i = 0; i < kPositions && PositionUsable(i); ++i) racks.push_back(PositionRack(i));
    TrayPlan plan = PlanTray(RackTrays(), ChosenTray(), controls_.ChosenText("cmbTrayType"), racks);
    // A position shows the text it holds, whether or not a rack has that name.
    for (int i = 0; i < static_cast<int>(plan.positions.size()); ++i)
        plan.positions[static_cast<std::size_t>(i)].rackName = controls_.ChosenText(RackList(i));
    return plan;
}

void Asx500Dialog::Ok() {
    const TrayPlan plan = Plan();
    if (plan.trayId == kNoId) return Refuse(kMessageNoTray, "cmbTrayType");
    for (std::size_t i = 0; i < plan.positions.size(); ++i) {
        const int message = FitMessage(plan.positions[i].fit);
        if (message != 0) return Refuse(message, RackList(static_cast<int>(i)));
    }
    ResetTraySelection(chosen_);
    chosen_.tray = plan.trayId;
    for (std::size_t i = 0; i < plan.positions.size(); ++i) {
        chosen_.rack[i] = plan.positions[i].rackId;
    }
    comPort_ = static_cast<Int16>(controls_["cmbCOMPort"].chosen + 1);
    end_ = DialogEnd::Accepted;
}

void Asx500Dialog::Refuse(int message, std::string focus) {
    ShowAutosamplerMessage(message);
    focusRequest_ = std::move(focus);
}

void Asx500Dialog::Accept(ConfigRecord& record, TraySelection& working) const {
    if (end_ != DialogEnd::Accepted) return;
    record.COM_PORT = comPort_;
    working = chosen_;
}

std::string Asx500Dialog::TakeFocusRequest() {
    return std::exchange(focusRequest_, {});
}

}  // namespace lumacfg::ui
