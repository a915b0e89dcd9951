// What the programs started beside the configuration program report back to its main window:
// the QC configuration program the QC mode it has open, the toolbar program that it finished.
// One message per connection over the session's report socket: a line "QCFILE<TAB>folder<TAB>
// file" or "TOOLBAR", Windows-1252, ended by LF.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/report_socket.h"

namespace lumacfg {

struct SiblingReport {
    enum class Kind { QcFile, Toolbar };
    Kind kind = Kind::Toolbar;
    std::string folder;  // QcFile: the folder of the QC mode, as "_QCMDPATH$" keeps it
    std::string file;    // QcFile: the QC mode's name, as "_QCMDFILE$" keeps it
    bool operator==(const SiblingReport&) const = default;
};

// The message of a report, its LF included.
std::string EncodeReport(const SiblingReport& report);

// The report a message holds (its LF, and a CR before it, may be there or not); nullopt for a
// message that is no report.
std::optional<SiblingReport> DecodeReport(std::string_view message);

// Sends the report to the window that listens.
platform::ReportSent SendReport(const SiblingReport& report);

}  // namespace lumacfg
