#include "ui/autosampler/custom_entries_dialog.h"

#include <algorithm>
#include <utility>

#include "base/numbers.h"
#include "integration/help.h"
#include "platform/file_failures.h"
#include "platform/services.h"
#include "racks/custrack_keys.h"
#include "racks/rack_fit.h"
#include "resources/string_table.h"

namespace lumacfg::ui {
namespace {

constexpr std::string_view kList = "lstEntries";
constexpr std::string_view kBoxPrefix = "txt";
constexpr std::string_view kDefRackListPrefix = "cmb";
constexpr std::string_view kNoDefaultRack = "(none)";

std::string DialogName(EntryKind kind) {
    return kind == EntryKind::Tray ? "dlgCustomTrays" : "dlgCustomRacks";
}

std::size_t Slot(std::int16_t id) {
    return static_cast<std::size_t>(id - kFirstCustomId);
}

// The key a control edits: "txtVIAL_X_NUM" and "cmbDEFRACK2" give "VIAL_X_NUM" and "DEFRACK2".
std::string KeyOfControl(EntryKind kind, std::string_view control) {
    for (const std::string& key : EntryKeys(kind)) {
        if (CustomEntriesDialog::ControlOfKey(key) == control) return key;
    }
    return {};
}

std::int16_t Clamped16(std::int32_t value) {
    return static_cast<std::int16_t>(std::clamp<std::int32_t>(value, 1, 32767));
}

// The first custom rack in slot order: the rack the ASX500 dialog puts at a position whose
// default rack is 0.
std::int16_t FirstCustomRack(const RackTrayState& tables) {
    for (const CustomRackDef& rack : tables.CustomRacks) {
        if (rack.id != kNoId) return rack.id;
    }
    return kNoId;
}

std::string FitText(const RackTrayState& tables, const CustomTrayDef& tray,
                    const CustomRackDef& rack) {
    switch (FitOnTray(tables, tray.id, rack.id)) {
        case RackFit::TooWide:
            return "too wide: " + IntText(RackWidth(rack)) + " across, RACK_X_DIST " +
                   IntText(tray.rackXDist);
        case RackFit::TooLong:
            return "too long: " + IntText(RackLength(rack)) + " deep, RACK_Y_DIST " +
                   IntText(tray.rackYDist);
        default:
            return "fits";
    }
}

// The files that could not be read or written, one a line, with the reasons.
std::string FailureLines() {
    std::string lines;
    for (const platform::FileFailure& failure : platform::Failures().Take()) {
        if (!lines.empty()) lines += '\n';
        lines += platform::Describe(failure);
    }
    return lines;
}

void ShowError(const std::string& message) {
    platform::Messages().Show({message, LoadResString(kResErrorTitle),
                               platform::MessageIcon::Exclamation, platform::MessageButtons::Ok,
                               0});
}

}  // namespace

std::string CustomEntriesDialog::ControlOfKey(std::string_view key) {
    return std::string(IsDefRackKey(key) ? kDefRackListPrefix : kBoxPrefix) + std::string(key);
}

CustomEntriesDialog::CustomEntriesDialog(EntryKind kind, CustrackEntries entries)
    : kind_(kind), entries_(std::move(entries)) {
    const bool trays = kind == EntryKind::Tray;
    controls_[DialogName(kind)].text = trays ? "Custom Trays" : "Custom Racks";
    controls_["lblEntries"].text = trays ? "&Trays:" : "&Racks:";
    controls_["btnNew"].text = "&New";
    controls_["btnCopy"].text = "Co&py";
    controls_["btnDelete"].text = "&Delete";
    controls_["btnOK"].text = LoadResString(3);
    controls_["btnCancel"].text = LoadResString(4);
    controls_["btnHelp"].text = LoadResString(5);
    for (const std::string& key : EntryKeys(kind)) {
        controls_["lbl" + key].text = key + " (" + AcceptedText(kind, key) + "):";
    }
    ShowList();
    if (!controls_[kList].items.empty()) controls_[kList].chosen = 0;
    ShowEntry();
}

CustrackEntry* CustomEntriesDialog::Chosen() {
    const auto listed = entries_.Listed(kind_);
    const int chosen = controls_[kList].chosen;
    if (chosen < 0 || chosen >= static_cast<int>(listed.size())) return nullptr;
    return listed[static_cast<std::size_t>(chosen)];
}

const CustrackEntry* CustomEntriesDialog::Chosen() const {
    return const_cast<CustomEntriesDialog*>(this)->Chosen();
}

// Every listed entry with its id and verdict, the choice kept.
void CustomEntriesDialog::ShowList() {
    std::vector<std::string> items;
    for (const CustrackEntry* entry : entries_.Listed(kind_)) {
        items.push_back(entry->Name() + " (" + IntText(entry->id) +
                        "): " + entries_.Verdict(*entry));
    }
    const int chosen = controls_[kList].chosen;
    controls_.Fill(kList, std::move(items));
    if (chosen < static_cast<int>(controls_[kList].items.size())) controls_[kList].chosen = chosen;
}

void CustomEntriesDialog::ChooseEntry(const CustrackEntry* entry) {
    const auto listed = entries_.Listed(kind_);
    const auto found = std::find(listed.begin(), listed.end(), entry);
    controls_[kList].chosen = found == listed.end() ? -1 : static_cast<int>(found - listed.begin());
    ShowEntry();
}

void CustomEntriesDialog::ShowEntry() {
    const CustrackEntry* entry = Chosen();
    tables_ = entries_.Tables();
    controls_["grpEntry"].text = entry != nullptr ? entry->Section() : std::string();
    const std::string verdict = entry != nullptr ? entries_.Verdict(*entry) : std::string();
    controls_["lblVerdict"].text = verdict.empty() || verdict == "ok"
                                       ? verdict.empty() ? "" : "The loader accepts this entry."
                                       : "The loader refuses this entry: " + verdict;
    for (const std::string& key : EntryKeys(kind_)) {
        if (IsDefRackKey(key)) continue;
        ControlState& box = controls_[ControlOfKey(key)];
        box.text = entry != nullptr ? entry->Text(key) : std::string();
        box.enabled = entry != nullptr;
        controls_["lbl" + key].enabled = entry != nullptr;
    }
    controls_["btnCopy"].enabled = entry != nullptr;
    controls_["btnDelete"].enabled = entry != nullptr;
    if (kind_ == EntryKind::Tray) {
        ShowDefaultRacks(entry);
    } else {
        ShowFits(entry);
    }
}

// The default racks of the positions the tray has: none, a standard rack or a custom rack by
// name; a value the file holds that is none of these is shown as it stands.
void CustomEntriesDialog::ShowDefaultRacks(const CustrackEntry* entry) {
    std::vector<std::string> names{std::string(kNoDefaultRack)};
    defaultRackIds_.assign({0});
    for (const std::int16_t rack : kStandardRackIds) {
        names.push_back(IntText(rack));
        defaultRackIds_.push_back(rack);
    }
    for (const CustrackEntry* rack : entries_.Listed(EntryKind::Rack)) {
        names.push_back(rack->Name());
        defaultRackIds_.push_back(rack->id);
    }
    const std::int32_t positions =
        entry != nullptr ? CustrackNumber(entry->Text("RACK_X_NUM")).value_or(0) : 0;
    for (int position = 1; position <= static_cast<int>(kTrayPositions); ++position) {
        const std::string key = std::string(kDefRackPrefix) + IntText(position);
        const std::string list = ControlOfKey(key);
        const std::string text = entry != nullptr ? entry->Text(key) : std::string();
        std::vector<std::string> items = names;
        const auto value = CustrackNumber(text);
        const auto known =
            std::find(defaultRackIds_.begin(), defaultRackIds_.end(), value.value_or(kNoId));
        const bool usable = position <= positions;
        int chosen = static_cast<int>(known - defaultRackIds_.begin());
        // A position the tray does not have shows nothing where the file holds nothing.
        if (known == defaultRackIds_.end() && !usable && text.empty())
            chosen = -1;
        else if (known == defaultRackIds_.end())
            items.push_back(text.empty() ? "(missing)" : text);
        controls_.Fill(list, std::move(items));
        controls_[list].chosen = entry != nullptr ? chosen : -1;
        controls_[list].enabled = usable;
        controls_["lbl" + key].enabled = usable;
    }
}

// How the rack fits the positions of each custom tray, and the rack alone for the picture.
void CustomEntriesDialog::ShowFits(const CustrackEntry* entry) {
    alone_ = RackTrayState{};
    std::string fits;
    if (entry != nullptr) {
        const CustomRackDef& rack = tables_.CustomRacks[Slot(entry->id)];
        CustomTrayDef& tray = alone_.CustomTrays[0];
        tray.id = kFirstCustomId;
        tray.rackXNum = 1;
        tray.rackXDist = Clamped16(RackWidth(rack));
        tray.rackYDist = Clamped16(RackLength(rack));
        alone_.CustomRacks[Slot(entry->id)] = rack;
        for (const CustomTrayDef& custom : tables_.CustomTrays) {
            if (custom.id == kNoId) continue;
            fits += "\n" + custom.name + ": " + FitText(tables_, custom, rack);
        }
    }
    controls_["lblFits"].text =
        fits.empty() ? "No custom tray is defined." : "On the custom trays:" + fits;
}

TrayPlan CustomEntriesDialog::Plan() const {
    const CustrackEntry* entry = Chosen();
    if (entry == nullptr) return {};
    if (kind_ == EntryKind::Rack) {
        TrayPlan plan = PlanTray(alone_, kFirstCustomId, entry->Name(), {entry->id});
        // Drawn alone, the rack stands on a position of its own size.
        plan.positions.front().fit = RackFit::Fits;
        plan.positions.front().reason.clear();
        return plan;
    }
    const CustomTrayDef& tray = tables_.CustomTrays[Slot(entry->id)];
    std::vector<std::int16_t> racks;
    for (int i = 0; i < tray.rackXNum; ++i) {
        const std::int16_t rack = tray.defRack[static_cast<std::size_t>(i)];
        racks.push_back(rack == 0 ? FirstCustomRack(tables_) : rack);
    }
    return PlanTray(tables_, entry->id, entry->Name(), racks);
}

void CustomEntriesDialog::SetText(std::string_view control, std::string text) {
    controls_[control].text = std::move(text);
}

void CustomEntriesDialog::LeaveBox(std::string_view control) {
    CustrackEntry* entry = Chosen();
    const std::string key = KeyOfControl(kind_, control);
    if (entry == nullptr || key.empty()) return;
    // A box left as it was changes nothing: tabbing through a damaged entry leaves it alone.
    if (controls_[control].text == entry->Text(key)) {
        if (refusedBox_ == control) refusedBox_.clear();
        return;
    }
    const std::string refusal = entries_.SetValue(*entry, key, controls_[control].text);
    if (!refusal.empty()) {
        refusedBox_ = std::string(control);
        return Refuse(refusal, std::string(control));
    }
    refusedBox_.clear();
    ShowList();
    ShowEntry();
}

void CustomEntriesDialog::Choose(std::string_view control, int index) {
    if (!refusedBox_.empty()) {
        focusRequest_ = refusedBox_;
        return;
    }
    if (control == kList) {
        if (controls_.UserChoice(control, index)) ShowEntry();
        return;
    }
    CustrackEntry* entry = Chosen();
    const std::string key = KeyOfControl(kind_, control);
    if (entry == nullptr || !IsDefRackKey(key) || index < 0 ||
        index >= static_cast<int>(defaultRackIds_.size()))
        return;
    const std::string refusal =
        entries_.SetValue(*entry, key, IntText(defaultRackIds_[static_cast<std::size_t>(index)]));
    if (!refusal.empty()) return Refuse(refusal, std::string(control));
    ShowList();
    ShowEntry();
}

void CustomEntriesDialog::Click(std::string_view control) {
    if (control == "btnCancel") {
        end_ = DialogEnd::Cancelled;
    } else if (control == "btnHelp") {
        ShowAutosamplerHelp(kHelpTopicAsx500);
    } else if (!refusedBox_.empty()) {
        // The refused value is corrected first.
        focusRequest_ = refusedBox_;
    } else if (control == "btnNew" || control == "btnCopy") {
        NewOrCopy(control == "btnCopy");
    } else if (control == "btnDelete") {
        Delete();
    } else if (control == "btnOK") {
        Ok();
    }
}

void CustomEntriesDialog::NewOrCopy(bool copy) {
    const CustrackEntry* source = Chosen();
    if (copy && source == nullptr) return;
    const EditResult made = copy ? entries_.Copy(*source) : entries_.New(kind_);
    if (made.entry == nullptr) return Refuse(made.refusal, std::string(kList));
    ShowList();
    ChooseEntry(made.entry);
    focusRequest_ = ControlOfKey(kNameKey);
}

void CustomEntriesDialog::Delete() {
    CustrackEntry* entry = Chosen();
    if (entry == nullptr) return;
    const std::string refusal = entries_.Delete(*entry);
    if (!refusal.empty()) return Refuse(refusal, std::string(kList));
    const int chosen = controls_[kList].chosen;
    ShowList();
    const int count = static_cast<int>(controls_[kList].items.size());
    controls_[kList].chosen = std::min(chosen, count - 1);
    ShowEntry();
}

// A value typed into a box of the chosen entry and not left yet is taken as leaving the box
// would take it; false when one is refused.
bool CustomEntriesDialog::TakeTypedValues() {
    const CustrackEntry* entry = Chosen();
    if (entry == nullptr) return true;
    for (const std::string& key : EntryKeys(kind_)) {
        const std::string box = ControlOfKey(key);
        if (IsDefRackKey(key) || controls_[box].text == entry->Text(key)) continue;
        LeaveBox(box);
        if (!refusedBox_.empty()) return false;
    }
    return true;
}

void CustomEntriesDialog::Ok() {
    if (!TakeTypedValues()) return;
    std::string message;
    if (const CustrackEntry* faulty = entries_.FirstFaultyEdit(&message)) {
        if (faulty->kind == kind_) ChooseEntry(faulty);
        return Refuse(message, std::string(kList));
    }
    if (!entries_.Write()) return Refuse(FailureLines(), std::string(kList));
    end_ = DialogEnd::Accepted;
}

void CustomEntriesDialog::Refuse(const std::string& message, std::string focus) {
    ShowError(message);
    focusRequest_ = std::move(focus);
}

std::unique_ptr<CustomEntriesDialog> OpenCustomEntries(EntryKind kind) {
    auto entries = CustrackEntries::Read();
    if (!entries) {
        ShowError(FailureLines());
        return nullptr;
    }
    // A damaged list is named before its entries are shown: some it names may be missing.
    if (const std::string damage = entries->ListRefusal(kind); !damage.empty()) ShowError(damage);
    return std::make_unique<CustomEntriesDialog>(kind, std::move(*entries));
}

std::string CustomEntriesDialog::TakeFocusRequest() {
    return std::exchange(focusRequest_, {});
}

}  // namespace lumacfg::ui
