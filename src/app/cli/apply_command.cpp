#include "app/cli/apply_command.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <sstream>
#include <variant>

#include "app/cli/commands.h"
#include "app/cli/export_command.h"
#include "app/cli/held_changes.h"
#include "app/cli/set_command.h"
#include "app/cli/unified_diff.h"
#include "base/json.h"
#include "base/windows1252.h"
#include "config/config_record.h"
#include "config/load_configuration.h"
#include "platform/file_failures.h"
#include "platform/services.h"
#include "ui/main/main_dialog.h"

namespace lumacfg::cli {

std::optional<ApplyOptions> ParseApplyOptions(const std::vector<std::string>& args) {
    ApplyOptions options;
    bool named = false;
    for (const std::string& arg : args) {
        if (arg == "--dry-run") {
            options.dryRun = true;
        } else if (arg == "--json") {
            options.json = true;
        } else if (named || (arg.starts_with("--") && arg != "-")) {
            return std::nullopt;
        } else {
            options.file = arg;
            named = true;
        }
    }
    if (!named) return std::nullopt;
    return options;
}

namespace {

// The document's bytes; nullopt when the file cannot be read (reported to Failures()).
std::optional<std::string> ReadDocument(const std::string& file) {
    if (file == "-") {
        return std::string(std::istreambuf_iterator<char>(std::cin), {});
    }
    std::optional<std::string> bytes = platform::Files().ReadFile(file);
    if (!bytes && !platform::Files().Exists(file)) {
        platform::Failures().Report(platform::FileOperation::Read, file,
                                    "No such file or directory");
    }
    return bytes;
}

const JsonValue* Member(const JsonValue& object, std::string_view name) {
    for (const auto& [key, value] : object.members) {
        if (key == name) return &value;
    }
    return nullptr;
}

// The document's fields as `set` takes them ("NAME=VALUE", Windows-1252); nullopt with the
// reason on `err` when it is no such document.
std::optional<std::vector<std::string>> Assignments(std::string_view bytes, const std::string& file,
                                                    std::ostream& err) {
    const std::string where = "lumacfg-cli: " + (file == "-" ? "the standard input" : file);
    const auto parsed = ParseJson(bytes);
    if (const auto* error = std::get_if<JsonError>(&parsed)) {
        err << where << ": line " << error->line << ", column " << error->column << ": "
            << error->what << '\n';
        return std::nullopt;
    }
    const JsonValue& document = std::get<JsonValue>(parsed);
    const std::string shape = " (expected {\"format\": 1, \"fields\": {NAME: \"VALUE\", ...}})";
    if (document.kind != JsonValue::Kind::Object) {
        err << where << ": the document is " << JsonKindName(document.kind) << shape << '\n';
        return std::nullopt;
    }
    std::set<std::string> seen;
    for (const auto& [key, value] : document.members) {
        if (key != "format" && key != "fields") {
            err << where << ": \"" << Utf8ForDisplay(key) << "\" is no member of the document"
                << shape << '\n';
            return std::nullopt;
        }
        if (!seen.insert(key).second) {
            err << where << ": \"" << key << "\" is given twice\n";
            return std::nullopt;
        }
    }
    const JsonValue* format = Member(document, "format");
    if (!format || format->kind != JsonValue::Kind::Number ||
        format->text != std::to_string(kFieldsFormat)) {
        err << where << ": \"format\" must be the number " << kFieldsFormat
            << " (the only format this version reads)\n";
        return std::nullopt;
    }
    const JsonValue* fields = Member(document, "fields");
    if (!fields || fields->kind != JsonValue::Kind::Object) {
        err << where << ": \"fields\" must be an object" << shape << '\n';
        return std::nullopt;
    }
    std::vector<std::string> assignments;
    for (const auto& [name, value] : fields->members) {
        const std::string shown = Utf8ForDisplay(name);
        if (value.kind != JsonValue::Kind::String) {
            err << "lumacfg-cli: " << shown << " takes a string (its value as `set` takes it), not "
                << JsonKindName(value.kind) << '\n';
            return std::nullopt;
        }
        const std::optional<std::string> text = Windows1252FromUtf8(value.text);
        if (!text) {
            err << "lumacfg-cli: " << shown
                << " holds a character that the station's files (Windows-1252) cannot store\n";
            return std::nullopt;
        }
        if (name.empty() || name.find('=') != std::string::npos) {
            err << "lumacfg-cli: \"" << shown << "\" is no field of the configuration\n";
            return std::nullopt;
        }
        assignments.push_back(name + "=" + *text);
    }
    return assignments;
}

// What an apply did: the exit code, whether a field changed, and the files changed (or, for a
// dry run, that would change).
struct Outcome {
    int exit = kExitOk;
    bool changed = false;
    std::vector<FilePreview> files;
};

// The fields as the next start of the program shows them: the record and the tray selection
// read back from the files as the held changes leave them. A Save stores some fields in a
// normal form (the inhibited masses in order, the racks an autosampler lacks empty), so the
// record the window saved can differ from it where the files do not. The fields without a
// profile key are the running program's and stay. (The load completes two option keys when
// they are missing; Save has just written both, so reading back writes nothing.)
StationFields FieldsStored() {
    ConfigRecord& record = Config();
    const ConfigRecord saved = record;
    LoadConfiguration();
    record.ROOT_PATH = saved.ROOT_PATH;
    record.ADDON_FLAGS = saved.ADDON_FLAGS;
    record.AUTOMATE = saved.AUTOMATE;
    record.CAN_EDIT = saved.CAN_EDIT;
    LoadTraySelection();
    ui::MainDialog window(record);
    StationFields fields = FieldsShown(window);
    record = saved;
    return fields;
}

// The previewed files that a commit wrote: none when the audit log refused the changes, else
// all but those the platform could not write.
std::vector<FilePreview> Written(std::vector<FilePreview> files, bool committed) {
    if (!committed) return {};
    const std::vector<platform::FileFailure>& failures = platform::Failures().Pending();
    std::erase_if(files, [&](const FilePreview& file) {
        return std::ranges::any_of(failures, [&](const platform::FileFailure& failure) {
            return failure.operation == platform::FileOperation::Write && failure.path == file.path;
        });
    });
    return files;
}

// Runs the fields through `set`; the changes are written only when a field changes. Every Save
// stamps the configuration identifier anew, so the files alone would always differ: a change
// is a field that the next start shows otherwise.
Outcome Apply(const std::vector<std::string>& assignments, bool dryRun, std::ostream& err) {
    Outcome outcome;
    StationFields before;
    outcome.exit = SetHeld(
        assignments, [&](ui::MainDialog& window) { before = FieldsShown(window); },
        [&](HeldChanges& held) {
            outcome.changed = FieldsStored() != before;
            if (!outcome.changed) return;
            outcome.files = held.Preview();
            if (dryRun) return;
            outcome.files = Written(std::move(outcome.files), held.Commit());
            outcome.changed = !outcome.files.empty();
        },
        err);
    if (outcome.exit != kExitOk && outcome.exit != kExitFileFailed)
        outcome = {outcome.exit, false, {}};
    return outcome;
}

std::string Diff(const std::vector<FilePreview>& files) {
    std::string diff;
    for (const FilePreview& file : files) diff += UnifiedDiff(file.path, file.before, file.after);
    return diff;
}

std::string Summary(const Outcome& outcome, bool dryRun) {
    if (!outcome.changed) return "unchanged";
    return dryRun ? "would change" : "changed";
}

// A message box's text goes into the result object's message, answered with the default
// button as the console answers it.
class MessagesInto final : public platform::MessageBoxService {
  public:
    explicit MessagesInto(std::ostream& report) : report_(report) {}
    platform::MessageAnswer Show(const platform::MessageRequest& request) override {
        report_ << request.text << '\n';
        return platform::DefaultAnswer(request);
    }

  private:
    std::ostream& report_;
};

// The result's message: what was said, after the summary when the apply went through.
std::string Message(const Outcome& outcome, bool dryRun, std::string said) {
    while (!said.empty() && said.back() == '\n') said.pop_back();
    if (outcome.exit != kExitOk) return said;
    return said.empty() ? Summary(outcome, dryRun) : Summary(outcome, dryRun) + "\n" + said;
}

void PrintJson(std::ostream& out, const Outcome& outcome, bool dryRun, const std::string& said) {
    const std::string message = Message(outcome, dryRun, said);
    out << "{\"changed\": " << (outcome.changed ? "true" : "false") << ", \"files\": [";
    const char* separator = "";
    for (const FilePreview& file : outcome.files) {
        out << separator << JsonQuoted(Utf8ForDisplay(file.path));
        separator = ", ";
    }
    out << "], \"diff\": " << JsonQuoted(Utf8ForDisplay(Diff(outcome.files)))
        << ", \"message\": " << JsonQuoted(Utf8ForDisplay(message)) << "}\n";
}

void PrintText(std::ostream& out, const Outcome& outcome, bool dryRun) {
    if (outcome.exit != kExitOk && !outcome.changed) return;
    if (!outcome.changed) {
        out << "unchanged\n";
    } else if (dryRun) {
        out << Diff(outcome.files);
    } else {
        for (const FilePreview& file : outcome.files) out << "changed " << file.path << '\n';
    }
}

}  // namespace

int RunApply(const ApplyOptions& options, std::ostream& out, std::ostream& err) {
    // With --json every message goes into the object.
    std::ostringstream messages;
    std::ostream& report = options.json ? messages : err;
    if (options.json) platform::SetMessages(std::make_unique<MessagesInto>(messages));
    Outcome outcome;
    if (const std::optional<std::string> bytes = ReadDocument(options.file); !bytes) {
        outcome.exit = WithFailures(kExitOk, platform::Failures().Take(), report);
    } else if (const auto assignments = Assignments(*bytes, options.file, report); !assignments) {
        outcome.exit = kExitUsage;
    } else {
        outcome = Apply(*assignments, options.dryRun, report);
    }
    if (options.json) {
        platform::SetMessages(nullptr);  // the console's again: `messages` ends here
        PrintJson(out, outcome, options.dryRun, messages.str());
    } else {
        PrintText(out, outcome, options.dryRun);
    }
    return outcome.exit;
}

}  // namespace lumacfg::cli
