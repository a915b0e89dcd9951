#include "app/cli/export_command.h"

#include <algorithm>

#include "app/cli/autosampler_fields.h"
#include "app/cli/commands.h"
#include "app/cli/misc_fields.h"
#include "app/cli/set_command.h"
#include "base/json.h"
#include "base/windows1252.h"
#include "config/config_record.h"
#include "config/record_fields.h"
#include "ui/main/main_dialog.h"

namespace lumacfg::cli {
namespace {

// The main window's fields as the record holds them: `show` prints them as `set` takes them.
void AddMainWindowFields(ConfigRecord& record, StationFields& fields) {
    const std::vector<RecordField> all = RecordFields(record);
    for (std::string_view name : MainWindowFieldNames()) {
        const auto field = std::find_if(all.begin(), all.end(),
                                        [&](const RecordField& f) { return f.name == name; });
        fields.emplace_back(name, FieldText(field->ref));
    }
}

// One field a line, so that documents kept under version control differ by the fields changed.
void WriteDocument(std::ostream& out, const StationFields& fields) {
    out << "{\n  \"format\": " << kFieldsFormat << ",\n  \"fields\": {";
    const char* separator = "\n";
    for (const auto& [name, value] : fields) {
        out << separator << "    " << JsonQuoted(name) << ": "
            << JsonQuoted(Utf8FromWindows1252(value));
        separator = ",\n";
    }
    out << "\n  }\n}\n";
}

}  // namespace

StationFields FieldsShown(ui::MainDialog& window) {
    StationFields fields;
    AddMainWindowFields(window.Record(), fields);
    for (auto& [name, value] : MiscellaneousValues(window)) fields.emplace_back(name, value);
    for (auto& field : AutosamplerValues(window)) fields.push_back(std::move(field));
    return fields;
}

int RunExport(std::ostream& out, std::ostream& err) {
    if (int refused = StartStation(err); refused != kExitOk) return refused;
    LoadTraySelection();
    ui::MainDialog window(Config());
    WriteDocument(out, FieldsShown(window));
    return kExitOk;
}

}  // namespace lumacfg::cli
