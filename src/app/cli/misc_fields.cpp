#include "app/cli/misc_fields.h"

#include <algorithm>
#include <array>

#include "app/cli/commands.h"
#include "ui/dialog/chosen_entry.h"
#include "ui/dialog/refusal.h"
#include "ui/main/main_dialog.h"
#include "ui/misc/misc_dialog.h"

namespace lumacfg::cli {
namespace {

// Each field with the control that shows it; a flag's control is checked for 1. The ignition
// mode and the remote shutdown are option pairs: 1 chooses the second button, 0 the first.
struct MiscField {
    std::string_view name;
    std::string_view control;  // a box, a check box, or the option pair without its index
    enum Kind { Flag, Option, Box } kind;
};
constexpr std::array<MiscField, 12> kMiscFields = {{
    {"OPT_SC", "Ck_SC", MiscField::Flag},
    {"OPT_PMP2", "Ck_Pmp2", MiscField::Flag},
    {"ExternalPump", "Ck_ExtPump", MiscField::Flag},
    {"OPT_ORGANIC", "Op_Smpl", MiscField::Option},
    {"OPT_IMTPUMP", "Ck_Rotate", MiscField::Flag},
    {"OPT_SHUTDOWN", "Op_Shutdown", MiscField::Option},
    {"EnableDTCal", "Ck_Ddtm", MiscField::Flag},
    {"OPT_AUTOREC", "Ck_RecLog", MiscField::Flag},
    {"OPT_STOP_PP", "Ck_StopPP", MiscField::Flag},
    {"OPT_CHG_CG", "Ck_CG", MiscField::Flag},  // before the boxes it makes usable
    {"OPT_CHG_FLW", "Txt_CGFlow", MiscField::Box},
    {"OPT_CHG_TIME", "Txt_StabTime", MiscField::Box},
}};

const MiscField* Find(std::string_view name) {
    auto found = std::find_if(kMiscFields.begin(), kMiscFields.end(),
                              [&](const MiscField& field) { return field.name == name; });
    return found == kMiscFields.end() ? nullptr : &*found;
}

class MiscEditor {
  public:
    MiscEditor(ui::MiscDialog& dialog, std::ostream& err) : dialog_(dialog), err_(err) {}

    int Set(const MiscField& field, const std::string& value) {
        switch (field.kind) {
            case MiscField::Flag:
                return Click(field, value, std::string(field.control), value == "1");
            case MiscField::Option:
                return Click(field, value,
                             std::string(field.control) + (value == "1" ? "(1)" : "(0)"), true);
            case MiscField::Box: {
                const std::string box(field.control);
                // A value the box already shows once cleaned needs no edit, greyed or not.
                const std::string cleaned =
                    box == "Txt_CGFlow" ? ui::CleanFlowText(value) : ui::CleanTimeText(value);
                if (Of(box).text == cleaned) return kExitOk;
                if (!Of(box).enabled) return Greyed(field, value, box);
                dialog_.SetText(box, value);
                dialog_.LeaveBox(box);
                return kExitOk;
            }
        }
        return kExitOk;
    }

  private:
    const ui::ControlState& Of(const std::string& control) const {
        return dialog_.State().at(control);
    }

    int Click(const MiscField& field, const std::string& value, const std::string& control,
              bool checked) {
        if (Of(control).checked == checked) return kExitOk;
        if (!Of(control).enabled) return Greyed(field, value, control);
        dialog_.Click(control);
        return kExitOk;
    }

    int Greyed(const MiscField& field, const std::string& value, const std::string& control) {
        err_ << "lumacfg-cli: cannot set " << field.name << "=" << value << ": "
             << ui::WhyNotChangeable(dialog_, control) << '\n';
        return kExitRefused;
    }

    ui::MiscDialog& dialog_;
    std::ostream& err_;
};

}  // namespace

std::optional<std::string_view> MiscellaneousField(std::string_view name) {
    const MiscField* field = Find(name);
    if (field == nullptr) return std::nullopt;
    return field->name;
}

std::optional<std::string> MiscellaneousFormProblem(std::string_view name, std::string_view value) {
    const MiscField* field = Find(name);
    if (field == nullptr || field->kind == MiscField::Box) return std::nullopt;
    if (value == "0" || value == "1") return std::nullopt;
    return "takes 0 or 1";
}

int ApplyMiscellaneous(ui::MainDialog& window,
                       const std::map<std::string_view, std::string>& values, std::ostream& err) {
    if (std::none_of(kMiscFields.begin(), kMiscFields.end(),
                     [&](const MiscField& field) { return values.contains(field.name); })) {
        return kExitOk;
    }
    const ui::Controls& shown = window.State();
    ui::MiscDialog dialog(window.Record(),
                          ui::MiscSurroundingsOf(ui::ChosenEntry(shown, "Cb_Type"),
                                                 ui::ChosenEntry(shown, "Cb_MPMApp")));
    MiscEditor editor(dialog, err);
    for (const MiscField& field : kMiscFields) {
        auto value = values.find(field.name);
        if (value == values.end()) continue;
        if (int exit = editor.Set(field, value->second); exit != kExitOk) return exit;
    }
    dialog.Click("OK");
    dialog.Accept(window.Record());
    return kExitOk;
}

std::vector<std::pair<std::string_view, std::string>> MiscellaneousValues(ui::MainDialog& window) {
    const ui::Controls& shown = window.State();
    const ui::MiscDialog dialog(window.Record(),
                                ui::MiscSurroundingsOf(ui::ChosenEntry(shown, "Cb_Type"),
                                                       ui::ChosenEntry(shown, "Cb_MPMApp")));
    const ui::Controls& state = dialog.State();
    std::vector<std::pair<std::string_view, std::string>> values;
    for (const MiscField& field : kMiscFields) {
        const std::string control(field.control);
        switch (field.kind) {
            case MiscField::Flag:
                values.emplace_back(field.name, state.at(control).checked ? "1" : "0");
                break;
            case MiscField::Option:
                values.emplace_back(field.name, state.at(control + "(1)").checked ? "1" : "0");
                break;
            case MiscField::Box:
                values.emplace_back(field.name, state.at(control).text);
                break;
        }
    }
    return values;
}

}  // namespace lumacfg::cli
