#include "integration/report_back.h"

namespace lumacfg {
namespace {

constexpr std::string_view kQcFile = "QCFILE";
constexpr std::string_view kToolbar = "TOOLBAR";

}  // namespace

std::string EncodeReport(const SiblingReport& report) {
    if (report.kind == SiblingReport::Kind::Toolbar) return std::string(kToolbar) + "\n";
    return std::string(kQcFile) + "\t" + report.folder + "\t" + report.file + "\n";
}

std::optional<SiblingReport> DecodeReport(std::string_view message) {
    if (message.ends_with('\n')) message.remove_suffix(1);
    if (message.ends_with('\r')) message.remove_suffix(1);
    if (message == kToolbar) return SiblingReport{};
    const std::size_t first = message.find('\t');
    if (message.substr(0, first) != kQcFile || first == std::string_view::npos) return std::nullopt;
    const std::size_t second = message.find('\t', first + 1);
    if (second == std::string_view::npos ||
        message.find('\t', second + 1) != std::string_view::npos)
        return std::nullopt;
    return SiblingReport{SiblingReport::Kind::QcFile,
                         std::string(message.substr(first + 1, second - first - 1)),
                         std::string(message.substr(second + 1))};
}

platform::ReportSent SendReport(const SiblingReport& report) {
    return platform::SendToReportSocket(EncodeReport(report));
}

}  // namespace lumacfg
