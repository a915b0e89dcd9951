// "lumacfg-cli export": the station's configuration as one JSON document, every field that
// `set` takes with its value in the form `set` takes it, so that applying the document back
// changes nothing:
//
//   {"format": 1, "fields": {"ICPMS_ID": "0", ..., "COM_PORT": "1", ...}}
#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace lumacfg::ui {
class MainDialog;
}

namespace lumacfg::cli {

// The version of the document that export writes and apply reads.
inline constexpr int kFieldsFormat = 1;

// Every field `set` takes as the window built on the record shows it, in the order `set` sets
// them: the main window's, the Miscellaneous dialog's, then those of the dialog that Setup...
// opens for the autosampler chosen (none when Setup... is greyed). Texts are Windows-1252.
using StationFields = std::vector<std::pair<std::string, std::string>>;
StationFields FieldsShown(ui::MainDialog& window);

// export: start-up as `show` runs it and the tray selection as the window loads it; then the
// document on `out`.
int RunExport(std::ostream& out, std::ostream& err);

}  // namespace lumacfg::cli
