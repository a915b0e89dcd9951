#include "app/cli/custrack_command.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/cli/commands.h"
#include "app/cli/held_changes.h"
#include "app/cli/unified_diff.h"
#include "base/numbers.h"
#include "platform/services.h"
#include "racks/custrack_entries.h"

namespace lumacfg::cli {
namespace {

using Assignments = std::vector<std::pair<std::string, std::string>>;

// The command line without "--dry-run".
struct CustrackLine {
    std::vector<std::string> words;
    bool dryRun = false;
};

CustrackLine Split(const std::vector<std::string>& args) {
    CustrackLine line;
    for (const std::string& arg : args) {
        if (arg == "--dry-run") {
            line.dryRun = true;
        } else {
            line.words.push_back(arg);
        }
    }
    return line;
}

// KEY=VALUE words from `first` on; nullopt when one is not of that form.
std::optional<Assignments> ParseAssignments(const std::vector<std::string>& words,
                                            std::size_t first) {
    Assignments assignments;
    for (std::size_t i = first; i < words.size(); ++i) {
        const std::size_t equals = words[i].find('=');
        if (equals == std::string::npos || equals == 0) return std::nullopt;
        assignments.emplace_back(words[i].substr(0, equals), words[i].substr(equals + 1));
    }
    return assignments;
}

// What one edit asks for: the verb, the entry it starts from and the values to set.
struct CustrackEdit {
    std::string verb;
    std::string target;  // "tray"/"rack" for new, else the section
    Assignments values;
};

std::optional<CustrackEdit> ParseEdit(const std::vector<std::string>& words) {
    if (words.size() < 2) return std::nullopt;
    CustrackEdit edit{words[0], words[1], {}};
    const bool takesValues = edit.verb == "new" || edit.verb == "copy" || edit.verb == "set";
    if (!takesValues && !(edit.verb == "delete" && words.size() == 2)) return std::nullopt;
    if (edit.verb == "new" && edit.target != "tray" && edit.target != "rack") return std::nullopt;
    auto values = ParseAssignments(words, 2);
    if (!values || (edit.verb == "set" && values->empty())) return std::nullopt;
    edit.values = std::move(*values);
    return edit;
}

int Refuse(const std::string& message, std::ostream& err) {
    err << "lumacfg-cli: " << message << '\n';
    return kExitRefused;
}

// Sets the values as the editor's boxes take them. A box reads a text without a number as 0;
// a script means a number, so such a text is refused here before the box would take it.
int SetValues(CustrackEntries& entries, CustrackEntry& entry, const Assignments& values,
              std::ostream& err) {
    for (const auto& [key, text] : values) {
        if (RangeOfKey(entry.kind, key) && !IsNumber(text))
            return Refuse(key + ": \"" + text + "\" is not a number.", err);
        if (std::string refusal = entries.SetValue(entry, key, text); !refusal.empty())
            return Refuse(refusal, err);
    }
    std::string message;
    if (entries.FirstFaultyEdit(&message) != nullptr) return Refuse(message, err);
    return kExitOk;
}

// Makes the edit on the entries; the section of a new entry goes to `made`.
int Edit(CustrackEntries& entries, const CustrackEdit& edit, std::string& made, std::ostream& err) {
    if (edit.verb == "new") {
        const EditResult result =
            entries.New(edit.target == "tray" ? EntryKind::Tray : EntryKind::Rack);
        if (result.entry == nullptr) return Refuse(result.refusal, err);
        made = result.entry->Section();
        return SetValues(entries, *result.entry, edit.values, err);
    }
    CustrackEntry* entry = entries.Find(edit.target);
    if (entry == nullptr) return Refuse("[INDEX] lists no entry " + edit.target + ".", err);
    if (edit.verb == "delete") {
        const std::string refusal = entries.Delete(*entry);
        return refusal.empty() ? kExitOk : Refuse(refusal, err);
    }
    if (edit.verb == "copy") {
        const EditResult result = entries.Copy(*entry);
        if (result.entry == nullptr) return Refuse(result.refusal, err);
        made = result.entry->Section();
        entry = result.entry;
    }
    return SetValues(entries, *entry, edit.values, err);
}

// A damaged key of "[INDEX]" is listed as an entry is, before the entries of its list:
// "INDEX", its fault, no name.
int List(std::ostream& out, std::ostream& err) {
    const auto entries = CustrackEntries::Read();
    if (entries) {
        for (const EntryKind kind : {EntryKind::Tray, EntryKind::Rack}) {
            for (const IndexFault& damage : entries->IndexFaults(kind))
                out << "INDEX\t" << DescribeFault(damage.fault) << "\t\n";
            for (const CustrackEntry* entry : entries->Listed(kind)) {
                out << entry->Section() << '\t' << entries->Verdict(*entry) << '\t' << entry->Name()
                    << '\n';
            }
        }
    }
    return WithFailures(kExitOk, platform::Failures().Take(), err);
}

// The edit held back until it passed, then written (the audit log's records first), or shown
// as a diff for a dry run. A new entry's section is printed once it is written, or with the
// diff of a dry run; an edit that changes no byte says "unchanged", as apply does.
int RunEdit(const CustrackEdit& edit, bool dryRun, std::ostream& out, std::ostream& err) {
    int exit = kExitOk;
    std::string made;
    std::vector<FilePreview> previews;
    {
        HeldChanges held;
        if (auto entries = CustrackEntries::Read()) {
            exit = Edit(*entries, edit, made, err);
            if (exit == kExitOk) {
                (void)entries->Write();
                previews = held.Preview();
                if (!dryRun && !held.Commit()) exit = kExitFileFailed;
            }
        }
    }
    exit = WithFailures(exit, platform::Failures().Take(), err);
    if (exit != kExitOk) return exit;
    if (!made.empty()) out << made << '\n';
    if (previews.empty()) out << "unchanged\n";
    if (!dryRun) return exit;
    for (const FilePreview& preview : previews) {
        out << UnifiedDiff(preview.path, preview.before, preview.after);
    }
    return exit;
}

}  // namespace

int RunCustrack(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    const CustrackLine line = Split(args);
    if (line.words.size() == 1 && line.words[0] == "list" && !line.dryRun) return List(out, err);
    const auto edit = ParseEdit(line.words);
    if (!edit) return kExitUsage;
    return RunEdit(*edit, line.dryRun, out, err);
}

}  // namespace lumacfg::cli
