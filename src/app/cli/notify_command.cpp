#include "app/cli/notify_command.h"

#include <optional>

#include "app/cli/commands.h"
#include "integration/report_back.h"

namespace lumacfg::cli {
namespace {

std::optional<SiblingReport> ReportOf(const std::vector<std::string>& args) {
    if (args.size() == 1 && args[0] == "TOOLBAR") return SiblingReport{};
    if (args.size() == 3 && args[0] == "QCFILE") {
        return SiblingReport{SiblingReport::Kind::QcFile, args[1], args[2]};
    }
    return std::nullopt;
}

}  // namespace

int RunNotify(const std::vector<std::string>& args, std::ostream& err) {
    const std::optional<SiblingReport> report = ReportOf(args);
    // A folder or name holding a TAB or a line break cannot travel in the report's one line.
    for (const std::string& arg : args) {
        if (arg.find_first_of("\t\r\n") != std::string::npos) return kExitUsage;
    }
    if (!report) return kExitUsage;
    const platform::ReportSent sent = SendReport(*report);
    if (sent.delivery == platform::ReportDelivery::Delivered) return kExitOk;
    err << "lumacfg-cli: no configuration window took the report at "
        << platform::ReportSocketPath() << ": " << sent.reason << '\n';
    return kExitNoWindow;
}

}  // namespace lumacfg::cli
