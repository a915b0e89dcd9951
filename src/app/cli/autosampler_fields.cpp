#include "app/cli/autosampler_fields.h"

#include <algorithm>
#include <vector>

#include "app/cli/commands.h"
#include "racks/custom_racks.h"
#include "ui/autosampler/asx500_dialog.h"
#include "ui/autosampler/asx_dialog.h"
#include "ui/autosampler/vas_dialog.h"
#include "ui/dialog/refusal.h"
#include "ui/main/main_dialog.h"

namespace lumacfg::cli {
namespace {

using ui::AutosamplerSetup;

enum class Kind {
    Port,      // "COM" and the value, chosen in the port list
    Entry,     // the list entry that reads as the value
    Position,  // the list entry at the value's place
    Box,       // typed into a box, which is then left
    Check,     // a check box, 0 or 1
};

struct Field {
    std::string name;
    Kind kind;
    std::string control;  // "" for the port list, whose name depends on the dialog
    std::vector<AutosamplerSetup> dialogs;  // the dialogs that have the field
};

std::vector<Field> MakeFields() {
    using enum AutosamplerSetup;
    std::vector<Field> fields = {
        {"COM_PORT", Kind::Port, "", {Asx500Trays, Vas, Legacy}},
        {"TRAY", Kind::Entry, "cmbTrayType", {Asx500Trays}},
        {"TRAY_ID", Kind::Position, "Cb_TRAY", {Vas}},
        {"RINSE_DEPTH", Kind::Box, "txtRinseDepth", {Vas}},
        {"SAMPLE_DEPTH", Kind::Box, "txtSampleDepth", {Vas}},
        {"STD_DEPTH", Kind::Box, "txtSTDDepth", {Vas}},
        {"ESC_MODE", Kind::Check, "ChkESCMode", {Vas}},
    };
    for (int i = 1; i <= ui::kAsxRackPositions; ++i) {
        fields.push_back({"RACK" + std::to_string(i) + "_ID",
                          Kind::Entry,
                          "Cb_ID(" + std::to_string(i - 1) + ")",
                          {Legacy}});
    }
    for (int i = 1; i <= static_cast<int>(kTrayPositions); ++i) {
        fields.push_back({"RACK(" + std::to_string(i) + ")",
                          Kind::Entry,
                          "cmbRacks(" + std::to_string(i - 1) + ")",
                          {Asx500Trays}});
    }
    return fields;
}

// In the order they are set: the ASX500 tray before the racks it offers.
const std::vector<Field>& Fields() {
    static const std::vector<Field> fields = MakeFields();
    return fields;
}

const Field* FieldOf(std::string_view name) {
    const auto found = std::find_if(Fields().begin(), Fields().end(),
                                    [&](const Field& f) { return f.name == name; });
    return found == Fields().end() ? nullptr : &*found;
}

std::string_view DialogName(AutosamplerSetup dialog) {
    switch (dialog) {
        case AutosamplerSetup::Asx500Trays:
            return "the ASX500 tray and rack dialog";
        case AutosamplerSetup::Vas:
            return "the V-AS dialog";
        case AutosamplerSetup::Legacy:
            return "the autosampler dialog of the legacy models";
    }
    return {};
}

bool Digits(std::string_view text) {
    return !text.empty() && text.size() <= 4 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Sets the fields given of one dialog, then clicks OK.
class DialogEditor {
  public:
    DialogEditor(ui::DialogModel& dialog, std::string_view port, std::string_view ok,
                 std::ostream& err)
        : dialog_(dialog), port_(port), ok_(ok), err_(err) {}

    int Apply(const std::vector<std::pair<const Field*, std::string>>& given) {
        for (const auto& [field, value] : given) {
            if (int exit = One(*field, value); exit != kExitOk) return exit;
        }
        dialog_.Click(ok_);
        return dialog_.End() == ui::DialogEnd::Accepted ? kExitOk : kExitRefused;
    }

  private:
    const ui::ControlState& Of(const std::string& control) const {
        return dialog_.State().find(control)->second;
    }

    int Refuse(const Field& field, const std::string& value, const std::string& why) {
        err_ << "lumacfg-cli: cannot set " << field.name << "=" << value << ": " << why << '\n';
        return kExitRefused;
    }

    int Choose(const Field& field, const std::string& value, const std::string& list, int index) {
        const ui::ControlState& state = Of(list);
        const bool offered = index >= 0 && index < static_cast<int>(state.items.size());
        if (offered && state.chosen == index) return kExitOk;
        if (!state.enabled || !state.visible) {
            return Refuse(field, value, ui::WhyNotChangeable(dialog_, list));
        }
        if (!offered) {
            std::string entries;
            for (const std::string& item : state.items)
                entries += (entries.empty() ? "" : ", ") + item;
            return Refuse(field, value,
                          ui::NameOf(dialog_.State(), list) + " offers " +
                              (entries.empty() ? "nothing" : entries));
        }
        dialog_.Choose(list, index);
        return kExitOk;
    }

    int ChooseText(const Field& field, const std::string& value, const std::string& list,
                   const std::string& text) {
        const std::vector<std::string>& items = Of(list).items;
        const auto found = std::find(items.begin(), items.end(), text);
        return Choose(field, value, list,
                      found == items.end() ? -1 : static_cast<int>(found - items.begin()));
    }

    int One(const Field& field, const std::string& value) {
        switch (field.kind) {
            case Kind::Port:
                return ChooseText(field, value, port_, "COM" + value);
            case Kind::Entry:
                return ChooseText(field, value, field.control, value);
            case Kind::Position:
                return Choose(field, value, field.control, std::stoi(value));
            case Kind::Box:
                dialog_.SetText(field.control, value);
                dialog_.LeaveBox(field.control);
                return kExitOk;
            case Kind::Check:
                if (Of(field.control).checked != (value == "1")) dialog_.Click(field.control);
                return kExitOk;
        }
        return kExitOk;
    }

    ui::DialogModel& dialog_;
    std::string port_;
    std::string ok_;
    std::ostream& err_;
};

}  // namespace

bool IsAutosamplerField(std::string_view name) {
    return FieldOf(name) != nullptr;
}

std::optional<std::string> AutosamplerFormProblem(std::string_view name, std::string_view value) {
    const Field* field = FieldOf(name);
    if (field == nullptr) return std::nullopt;
    if (field->kind == Kind::Position && !Digits(value))
        return "takes the place in the list (0, 1, ...)";
    if (field->kind == Kind::Check && value != "0" && value != "1") return "takes 0 or 1";
    return std::nullopt;
}

int SetAutosamplerFields(ui::MainDialog& window,
                         const std::map<std::string_view, std::string>& values, std::ostream& err) {
    std::vector<std::pair<const Field*, std::string>> given;
    for (const Field& field : Fields()) {
        if (auto found = values.find(field.name); found != values.end())
            given.emplace_back(&field, found->second);
    }
    if (given.empty()) return kExitOk;
    const auto refuse = [&](const std::string& why) {
        err << "lumacfg-cli: cannot set " << given.front().first->name << "="
            << given.front().second << ": " << why << '\n';
        return kExitRefused;
    };
    if (!window.State().find("Cd_AutoSet")->second.enabled)
        return refuse("no autosampler is chosen, so Setup... is greyed");
    const AutosamplerSetup dialog = window.AutosamplerDialog(IsCurrentTrayIdValid());
    for (const auto& [field, value] : given) {
        if (std::find(field->dialogs.begin(), field->dialogs.end(), dialog) ==
            field->dialogs.end()) {
            err << "lumacfg-cli: cannot set " << field->name << "=" << value << ": Setup... opens "
                << DialogName(dialog) << " for the autosampler chosen, which has no such field\n";
            return kExitRefused;
        }
    }

    ConfigRecord& record = window.Record();
    const bool opalInUse = window.OpalApplicationsUsable();
    switch (dialog) {
        case AutosamplerSetup::Asx500Trays: {
            ui::Asx500Dialog asx500(record);
            const int exit = DialogEditor(asx500, "cmbCOMPort", "btnOK", err).Apply(given);
            asx500.Accept(record, RackTrays().WorkingTray);
            return exit;
        }
        case AutosamplerSetup::Vas: {
            ui::VasDialog vas(record, opalInUse);
            const int exit = DialogEditor(vas, "Cb_COM", "OK", err).Apply(given);
            vas.Accept(record);
            return exit;
        }
        case AutosamplerSetup::Legacy: {
            ui::AsxDialog legacy(record, window.AutosamplerText(), opalInUse);
            const int exit = DialogEditor(legacy, "Cb_COM", "OK", err).Apply(given);
            legacy.Accept(record);
            return exit;
        }
    }
    return kExitOk;
}

namespace {

// The value of one field as the dialog shows it; nullopt for a control the dialog hides (a rack
// position the model lacks) and for a list without a chosen entry.
std::optional<std::string> ShownValue(const Field& field, const ui::Controls& state,
                                      const std::string& port) {
    const ui::ControlState& control = state.at(field.kind == Kind::Port ? port : field.control);
    if (!control.visible) return std::nullopt;
    const bool listed =
        control.chosen >= 0 && control.chosen < static_cast<int>(control.items.size());
    switch (field.kind) {
        case Kind::Port:
            if (!listed || !control.items[control.chosen].starts_with("COM")) return std::nullopt;
            return control.items[control.chosen].substr(3);
        case Kind::Entry:
            if (!listed) return std::nullopt;
            return control.items[control.chosen];
        case Kind::Position:
            if (!listed) return std::nullopt;
            return std::to_string(control.chosen);
        case Kind::Box:
            return control.text;
        case Kind::Check:
            return control.checked ? "1" : "0";
    }
    return std::nullopt;
}

std::vector<std::pair<std::string, std::string>> ShownValues(AutosamplerSetup dialog,
                                                             const ui::Controls& state,
                                                             const std::string& port) {
    std::vector<std::pair<std::string, std::string>> values;
    for (const Field& field : Fields()) {
        if (std::find(field.dialogs.begin(), field.dialogs.end(), dialog) == field.dialogs.end())
            continue;
        if (auto value = ShownValue(field, state, port)) values.emplace_back(field.name, *value);
    }
    return values;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> AutosamplerValues(ui::MainDialog& window) {
    if (!window.State().find("Cd_AutoSet")->second.enabled) return {};
    const AutosamplerSetup dialog = window.AutosamplerDialog(IsCurrentTrayIdValid());
    const ConfigRecord& record = window.Record();
    const bool opalInUse = window.OpalApplicationsUsable();
    switch (dialog) {
        case AutosamplerSetup::Asx500Trays:
            return ShownValues(dialog, ui::Asx500Dialog(record).State(), "cmbCOMPort");
        case AutosamplerSetup::Vas:
            return ShownValues(dialog, ui::VasDialog(record, opalInUse).State(), "Cb_COM");
        case AutosamplerSetup::Legacy:
            return ShownValues(dialog,
                               ui::AsxDialog(record, window.AutosamplerText(), opalInUse).State(),
                               "Cb_COM");
    }
    return {};
}

}  // namespace lumacfg::cli
