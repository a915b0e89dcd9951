#include "app/cli/set_command.h"

#include <algorithm>
#include <array>
#include <functional>
#include <map>
#include <optional>
#include <string_view>

#include "app/cli/autosampler_fields.h"
#include "app/cli/commands.h"
#include "app/cli/held_changes.h"
#include "app/cli/misc_fields.h"
#include "app/cli/unified_diff.h"
#include "base/text.h"
#include "config/config_record.h"
#include "config/record_fields.h"
#include "config/start_up.h"
#include "platform/services.h"
#include "ui/dialog/refusal.h"
#include "ui/main/connection_fields.h"
#include "ui/main/main_dialog.h"
#include "ui/main/sample_introduction.h"

namespace lumacfg::cli {
namespace {

using ui::MainDialog;

// How a field's value is written on the command line.
enum class Form {
    Text,     // a box's text, taken as typed
    Flag,     // 0 or 1
    Boolean,  // -1 or 1 (true) or 0
    Code,     // an integer
    Address,  // at most four numbers separated by dots
    Masses,   // at most eleven entries separated by blanks, the eleventh empty
};

struct MainField {
    std::string_view name;
    Form form;
};

// The fields the main window edits, in the order its controls are set: the connection first
// (going offline greys the address boxes), the type before the autosampler list it rebuilds and
// the OPAL application it offers, the LC/GC link before remote start, security before the
// printing and VLT boxes it greys.
constexpr std::array<MainField, 18> kMainFields = {{
    {"ICPMS_ID", Form::Flag},
    {"GPIB_ADDR", Form::Text},
    {"LAN_IPADDR", Form::Address},
    {"SI_TYPE", Form::Code},
    {"ALS_TYPE", Form::Code},
    {"_MPM", Form::Code},
    {"_MPMFILE$", Form::Text},
    {"_LCCHEM", Form::Code},
    {"KVD_Remote", Form::Flag},
    {"NotRepRemote", Form::Flag},
    {"INHIBIT_MASS", Form::Masses},
    {"PRO_SCAN", Form::Flag},
    {"_QCMDPATH$", Form::Text},
    {"_QCMDFILE$", Form::Text},
    {"_SECURITY", Form::Flag},
    {"_ALWAYSPRT", Form::Boolean},
    {"VLT_ENABLED", Form::Flag},
    {"VLT_FOLDER", Form::Text},
}};

// The text as a whole integer: an optional sign and digits, nothing else.
std::optional<long> WholeNumber(std::string_view text) {
    std::size_t digits = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
    if (digits == text.size() || text.size() > 9) return std::nullopt;
    for (std::size_t i = digits; i < text.size(); ++i) {
        if (text[i] < '0' || text[i] > '9') return std::nullopt;
    }
    return std::stol(std::string(text));
}

std::vector<std::string> Tokens(std::string_view text, char separator) {
    std::vector<std::string> tokens;
    std::size_t start = 0;
    while (start <= text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos) end = text.size();
        tokens.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return tokens;
}

// Why a value is not written as its field's form wants, or nullopt.
std::optional<std::string> FormProblem(const MainField& field, std::string_view value) {
    switch (field.form) {
        case Form::Text:
            return std::nullopt;
        case Form::Flag:
            if (value == "0" || value == "1") return std::nullopt;
            return "takes 0 or 1";
        case Form::Boolean:
            if (value == "0" || value == "1" || value == "-1") return std::nullopt;
            return "takes -1 (or 1) for true and 0 for false";
        case Form::Code:
            if (WholeNumber(value)) return std::nullopt;
            return "takes a whole number";
        case Form::Address:
            if (Tokens(value, '.').size() <= 4) return std::nullopt;
            return "takes four numbers separated by dots";
        case Form::Masses: {
            std::vector<std::string> masses;
            for (std::string& token : Tokens(value, ' ')) {
                if (!token.empty()) masses.push_back(std::move(token));
            }
            if (masses.size() <= 10) return std::nullopt;
            if (masses.size() == 11 && (masses[10] == "0" || masses[10] == "---")) {
                return std::nullopt;
            }
            return "takes at most ten masses (an eleventh entry, as `show` prints it, must be 0)";
        }
    }
    return std::nullopt;
}

// The values given, by field, checked against the forms of the fields; nullopt (with the
// reason on `err`) when a name is no field of the main window or a value has the wrong form.
// Why a name that no window's control edits cannot be set.
std::string_view WhyNoField(std::string_view name, const std::vector<RecordField>& fields) {
    if (name == "ONEBOTTLE_DEPTH") return "follows SAMPLE_DEPTH (the V-AS dialog sets both)";
    if (std::any_of(fields.begin(), fields.end(),
                    [&](const RecordField& f) { return f.name == name; })) {
        return "is not edited in any window of the program";
    }
    return "is no field of the configuration (the names are those `show` prints)";
}

std::optional<std::map<std::string_view, std::string>> ParseAssignments(
    const std::vector<std::string>& assignments, std::ostream& err) {
    ConfigRecord names;
    const std::vector<RecordField> fields = RecordFields(names);
    std::map<std::string_view, std::string> values;
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string::npos || equals == 0) {
            err << "lumacfg-cli: " << assignment << ": expected NAME=VALUE\n";
            return std::nullopt;
        }
        const std::string name = assignment.substr(0, equals);
        const std::string value = assignment.substr(equals + 1);
        std::optional<std::string_view> key;
        std::optional<std::string> problem;
        if (auto misc = MiscellaneousField(name)) {
            key = misc;
            problem = MiscellaneousFormProblem(*misc, value);
        } else if (IsAutosamplerField(name)) {
            key = std::string_view(assignment).substr(0, equals);
            problem = AutosamplerFormProblem(name, value);
        } else {
            auto field = std::find_if(kMainFields.begin(), kMainFields.end(),
                                      [&](const MainField& f) { return f.name == name; });
            if (field == kMainFields.end()) {
                err << "lumacfg-cli: " << name << " " << WhyNoField(name, fields) << '\n';
                return std::nullopt;
            }
            key = field->name;
            problem = FormProblem(*field, value);
        }
        if (problem) {
            err << "lumacfg-cli: " << name << " " << *problem << ", not \"" << value << "\"\n";
            return std::nullopt;
        }
        if (!values.emplace(*key, value).second) {
            err << "lumacfg-cli: " << name << " is given twice\n";
            return std::nullopt;
        }
    }
    return values;
}

// Puts the values into the window's controls as the user would.
class WindowEditor {
  public:
    WindowEditor(MainDialog& window, std::ostream& err) : window_(window), err_(err) {}

    int Apply(const std::map<std::string_view, std::string>& values) {
        auto given = [&](std::string_view name) -> const std::string* {
            auto found = values.find(name);
            return found == values.end() ? nullptr : &found->second;
        };
        for (const MainField& field : kMainFields) {
            const std::string* value = given(field.name);
            if (!value || field.name == "_MPM" || field.name == "_QCMDPATH$") continue;
            int exit = kExitOk;
            if (field.name == "_MPMFILE$") {
                exit = Opal(given("_MPM"), value);
            } else if (field.name == "_QCMDFILE$") {
                exit = QcMode(given("_QCMDPATH$"), value);
            } else {
                exit = One(field.name, *value);
            }
            if (exit != kExitOk) return exit;
        }
        // The OPAL application and the QC mode given by their other field alone.
        if (const std::string* mpm = given("_MPM"); mpm && !given("_MPMFILE$")) {
            if (int exit = Opal(mpm, nullptr); exit != kExitOk) return exit;
        }
        if (const std::string* path = given("_QCMDPATH$"); path && !given("_QCMDFILE$")) {
            if (int exit = QcMode(path, nullptr); exit != kExitOk) return exit;
        }
        // The autosampler's Setup... dialog, once the autosampler is chosen.
        return SetAutosamplerFields(window_, values, err_);
    }

  private:
    const ui::ControlState& Of(std::string_view control) const {
        return window_.State().find(control)->second;
    }
    bool Usable(std::string_view control) const {
        return Of(control).enabled && Of(control).visible;
    }

    int Refuse(std::string_view name, std::string_view value, const std::string& why) {
        err_ << "lumacfg-cli: cannot set " << name << "=" << value << ": " << why << '\n';
        return kExitRefused;
    }
    int Greyed(std::string_view name, std::string_view value, std::string_view control) {
        return Refuse(name, value, ui::WhyNotChangeable(window_, control));
    }

    int Check(std::string_view name, std::string_view value, std::string_view control, bool want) {
        if (Of(control).checked == want) return kExitOk;
        if (!Usable(control)) return Greyed(name, value, control);
        window_.Click(control);
        return Of(control).checked == want ? kExitOk : Greyed(name, value, control);
    }

    // Types `text` into a box and leaves it; `value` is the field's whole value.
    int Box(std::string_view name, std::string_view value, std::string_view control,
            std::string_view text) {
        if (Of(control).text == text) return kExitOk;
        if (!Usable(control)) return Greyed(name, value, control);
        window_.SetText(control, std::string(text));
        window_.LeaveBox(control);
        return kExitOk;
    }

    // Chooses the entry of a list that `matches`; `what` lists the entries offered.
    int Pick(std::string_view name, std::string_view value, std::string_view list, int index,
             const std::string& offered) {
        if (index < 0) return Refuse(name, value, "not offered on this station (" + offered + ")");
        if (Of(list).chosen == index) return kExitOk;
        if (!Usable(list)) return Greyed(name, value, list);
        window_.Choose(list, index);
        return kExitOk;
    }

    int One(std::string_view name, const std::string& value) {
        const long number = WholeNumber(value).value_or(0);
        if (name == "ICPMS_ID") return Check(name, value, "Ck_Offline", number != 0);
        if (name == "GPIB_ADDR") return Box(name, value, "Ed_Address", value);
        if (name == "LAN_IPADDR") {
            const std::array<std::string, 4> octets = ui::OctetTexts(value);
            for (int i = 0; i < 4; ++i) {
                const std::string box = "Ed_IP(" + std::to_string(i) + ")";
                const std::string& octet = octets[static_cast<std::size_t>(i)];
                if (int exit = Box(name, value, box, octet); exit != kExitOk) return exit;
            }
            return kExitOk;
        }
        if (name == "SI_TYPE") return Type(value, number);
        if (name == "ALS_TYPE") return Autosampler(value, number);
        if (name == "_LCCHEM") return LcGc(value, number);
        if (name == "KVD_Remote") {
            const std::string_view option = number != 0 ? "Op_Wait" : "Op_NotUse";
            if (Of(option).checked) return kExitOk;
            if (!Usable(option)) return Greyed(name, value, option);
            window_.Click(option);
            return kExitOk;
        }
        if (name == "NotRepRemote") return Check(name, value, "Ck_NotRepRem", number == 1);
        if (name == "INHIBIT_MASS") return Masses(value);
        if (name == "PRO_SCAN") return Check(name, value, "Ck_Integ", number == 1);
        if (name == "_SECURITY") return Check(name, value, "Ck_Security", number == 1);
        if (name == "_ALWAYSPRT") return Check(name, value, "Ck_AlwaysPrt", number != 0);
        if (name == "VLT_ENABLED") return Check(name, value, "Ck_VLT", number == 1);
        if (name == "VLT_FOLDER") {
            if (Of("Lb_VLTFolder").text == value) return kExitOk;
            if (!Usable("Lb_VLTFolder")) return Greyed(name, value, "Lb_VLTFolder");
            window_.SetText("Lb_VLTFolder", value);
        }
        return kExitOk;
    }

    int Type(const std::string& value, long code) {
        const std::vector<std::string>& items = Of("Cb_Type").items;
        std::string offered;
        int index = -1;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const Int16 entry = ui::TypeCodeFromText(items[i]);
            offered += (i > 0 ? ", " : "") + std::to_string(entry) + " " + items[i];
            if (entry == code && index < 0) index = static_cast<int>(i);
        }
        return Pick("SI_TYPE", value, "Cb_Type", index, "it offers " + offered);
    }

    int Autosampler(const std::string& value, long code) {
        const Int16 list = window_.OpalMode() ? ui::kOpalAutosamplerList : window_.SiShown();
        const std::vector<std::string>& items = Of("Cb_Auto").items;
        std::string offered;
        int index = -1;
        for (std::size_t i = 0; i < items.size(); ++i) {
            const Int16 entry = ui::AutosamplerCodeFromText(list, items[i]);
            offered += (i > 0 ? ", " : "") + std::to_string(entry) + " " + items[i];
            if (entry == code && index < 0) index = static_cast<int>(i);
        }
        return Pick("ALS_TYPE", value, "Cb_Auto", index,
                    "with the sample introduction chosen it offers " + offered);
    }

    int LcGc(const std::string& value, long instrument) {
        if (instrument < 0 || instrument > 4) {
            return Refuse("_LCCHEM", value, "the LC/GC instruments are 1 to 4 (0: no link)");
        }
        if (instrument == 0) {
            // Save stores no link for any type but the LC/GC one, whatever the box shows.
            if (!Usable("Ck_CtrlLCGC")) return kExitOk;
            return Check("_LCCHEM", value, "Ck_CtrlLCGC", false);
        }
        if (int exit = Check("_LCCHEM", value, "Ck_CtrlLCGC", true); exit != kExitOk) return exit;
        return Pick("_LCCHEM", value, "Cb_LCInst", static_cast<int>(instrument - 1), "1 to 4");
    }

    int Masses(const std::string& value) {
        std::vector<std::string> masses;
        for (std::string& token : Tokens(value, ' ')) {
            if (!token.empty()) masses.push_back(std::move(token));
        }
        masses.resize(10, ui::EmptyMassText());
        // Every box first, then each one left in turn: the duplicate check compares the new
        // masses with one another.
        for (int i = 0; i < 10; ++i) {
            window_.SetText("Ed_Inhibit(" + std::to_string(i) + ")",
                            masses[static_cast<std::size_t>(i)]);
        }
        for (int i = 0; i < 10; ++i) window_.LeaveBox("Ed_Inhibit(" + std::to_string(i) + ")");
        return kExitOk;
    }

    int Opal(const std::string* mpm, const std::string* file) {
        const std::string shown = file ? "_MPMFILE$=" + *file : "_MPM=" + *mpm;
        const auto& standard = window_.StandardApplications();
        const auto& user = window_.UserApplications();
        int index = -1;
        long kind = 0;
        std::string offered;
        for (std::size_t i = 0; i < standard.size(); ++i) {
            const std::string& recorded = ui::RecordedFile(standard[i]);
            offered += (offered.empty() ? "" : ", ") + recorded;
            if (file && index < 0 && AnsiEqualNoCase(recorded, *file)) {
                index = static_cast<int>(i);
                kind = 1;
            }
        }
        for (std::size_t i = 0; i < user.size(); ++i) {
            offered += (offered.empty() ? "" : ", ") + user[i].file;
            if (file && index < 0 && AnsiEqualNoCase(user[i].file, *file)) {
                index = static_cast<int>(standard.size() + i);
                kind = 2;
            }
        }
        if (file && !file->empty() && index < 0) {
            return Refuse("_MPMFILE$", *file,
                          "no OPAL application has that file (" +
                              (offered.empty() ? std::string("none is installed") : offered) + ")");
        }
        if (mpm && WholeNumber(*mpm).value_or(-1) != kind) {
            return Refuse("_MPM", *mpm,
                          file ? "the application of " + shown + " makes it " + std::to_string(kind)
                               : "name the OPAL application with _MPMFILE$");
        }
        if (Of("Cb_MPMApp").chosen == index) return kExitOk;
        // Without the OPAL system Save stores no application, whatever the list shows.
        if (index < 0 && !Usable("Cb_MPMApp")) return kExitOk;
        if (!Usable("Cb_MPMApp"))
            return Greyed(file ? "_MPMFILE$" : "_MPM", file ? *file : *mpm, "Cb_MPMApp");
        window_.Choose("Cb_MPMApp", index);
        return kExitOk;
    }

    int QcMode(const std::string* path, const std::string* file) {
        std::string folder = path ? *path : window_.Record().QCMDPATH;
        if (!folder.empty() && folder.back() != '\\') folder += '\\';
        const std::string name = file ? *file : window_.Record().QCMDFILE;
        // The window says why it refuses ("Selected QC Mode file is invalid.").
        return window_.SelectQcMode(folder + name) ? kExitOk : kExitRefused;
    }

    MainDialog& window_;
    std::ostream& err_;
};

// Start-up and the window as `set` and `reset` drive it; the changes held until Save has passed
// every check and the closing steps are done, then handed to `settle` (which writes them, or
// shows them for a dry run).
int RunInWindow(const std::function<int(MainDialog&)>& edit,
                const std::function<void(HeldChanges&)>& settle, std::ostream& err) {
    int exit = kExitOk;
    {
        HeldChanges held;
        exit = StartStation(err);
        if (exit == kExitOk) {
            LoadTraySelection();
            MainDialog window(Config());
            exit = edit(window);
            if (exit == kExitOk) {
                window.Click("Cd_Save");
                if (window.End() != ui::DialogEnd::Accepted) exit = kExitRefused;
            }
            if (exit == kExitOk) {
                window.Accept(Config());
                for (const platform::FileFailure& failure : CloseStation()) {
                    platform::Failures().Report(failure.operation, failure.path, failure.reason);
                }
                settle(held);
            }
        }
    }
    return WithFailures(exit, platform::Failures().Take(), err);
}

// The changes written, or for a dry run each file that would change as a unified diff.
int RunWithDryRun(const std::function<int(MainDialog&)>& edit, bool dryRun, std::ostream& out,
                  std::ostream& err) {
    std::vector<FilePreview> previews;
    const int exit = RunInWindow(
        edit,
        [&](HeldChanges& held) {
            if (dryRun) {
                previews = held.Preview();
            } else {
                held.Commit();
            }
        },
        err);
    for (const FilePreview& preview : previews) {
        out << UnifiedDiff(preview.path, preview.before, preview.after);
    }
    return exit;
}

// The fields given put into the window's controls, the Miscellaneous dialog's through it.
int EditFields(MainDialog& window, const std::map<std::string_view, std::string>& values,
               std::ostream& err) {
    const int exit = WindowEditor(window, err).Apply(values);
    return exit == kExitOk ? ApplyMiscellaneous(window, values, err) : exit;
}

}  // namespace

int RunSet(const std::vector<std::string>& assignments, bool dryRun, std::ostream& out,
           std::ostream& err) {
    auto values = ParseAssignments(assignments, err);
    if (!values) return kExitUsage;
    return RunWithDryRun([&](MainDialog& window) { return EditFields(window, *values, err); },
                         dryRun, out, err);
}

int RunReset(bool dryRun, std::ostream& out, std::ostream& err) {
    return RunWithDryRun(
        [](MainDialog& window) {
            window.Click("Cd_Reset");
            return kExitOk;
        },
        dryRun, out, err);
}

int SetHeld(const std::vector<std::string>& assignments,
            const std::function<void(MainDialog&)>& look,
            const std::function<void(HeldChanges&)>& settle, std::ostream& err) {
    auto values = ParseAssignments(assignments, err);
    if (!values) return kExitUsage;
    return RunInWindow(
        [&](MainDialog& window) {
            look(window);
            return EditFields(window, *values, err);
        },
        settle, err);
}

std::vector<std::string_view> MainWindowFieldNames() {
    std::vector<std::string_view> names;
    for (const MainField& field : kMainFields) names.push_back(field.name);
    return names;
}

}  // namespace lumacfg::cli
