#include "ui/main/sibling_runs.h"

#include "base/text.h"
#include "integration/sibling_programs.h"
#include "platform/services.h"
#include "resources/string_table.h"

namespace lumacfg::ui {
namespace {

constexpr int kQuestionTakeQcMode = 102;
constexpr int kQuestionQcCaution = 104;
constexpr int kMessageNoQcConfiguration = 108;
constexpr int kMessageNoToolbar = 112;
constexpr std::string_view kToolbarWord = "Toolbar";

bool AskYes(int question, int defaultButton) {
    return platform::Messages().Show({LoadResString(question), LoadResString(kResWindowCaption),
                                      platform::MessageIcon::Question,
                                      platform::MessageButtons::YesNo, defaultButton}) ==
           platform::MessageAnswer::Yes;
}

// A QC mode is valid when its "RUNTYPE.INI" can be read.
bool QcModeValid(const std::string& folder, const std::string& name) {
    return platform::Files().ReadFile(folder + name + "\\RUNTYPE.INI").has_value();
}

}  // namespace

const std::string& SiblingRuns::Label(std::string_view name) const {
    return window_.State().find(name)->second.text;
}

void SiblingRuns::ClearReport() {
    window_.SetText("Lbl_DDEPath", {});
    window_.SetText("Lbl_DDEFile", {});
}

std::optional<platform::ProcessId> SiblingRuns::Start(const std::optional<std::string>& command,
                                                      int failureMessage) {
    std::optional<platform::ProcessId> started;
    if (command) started = platform::Processes().Start(*command);
    if (!started) {
        platform::Messages().Show({LoadResString(failureMessage), LoadResString(kResErrorTitle),
                                   platform::MessageIcon::Exclamation, platform::MessageButtons::Ok,
                                   0});
    }
    return started;
}

std::optional<platform::ProcessId> SiblingRuns::StartQcConfiguration() {
    if (!AskYes(kQuestionQcCaution, 1)) return std::nullopt;
    ClearReport();
    const ConfigRecord& record = window_.Record();
    return Start(QcConfigurationCommand(record.QCMDPATH, record.QCMDFILE),
                 kMessageNoQcConfiguration);
}

std::optional<platform::ProcessId> SiblingRuns::StartToolbar() {
    ClearReport();
    auto started = Start(ToolbarCommand(), kMessageNoToolbar);
    toolbar_ = started.value_or(0);
    return started;
}

void SiblingRuns::Report(const SiblingReport& report) {
    if (report.kind == SiblingReport::Kind::Toolbar) {
        window_.SetText("Lbl_DDEPath", {});
        window_.SetText("Lbl_DDEFile", std::string(kToolbarWord));
    } else {
        window_.SetText("Lbl_DDEPath", report.folder);
        window_.SetText("Lbl_DDEFile", report.file);
    }
}

void SiblingRuns::Activated() {
    if (toolbar_ != 0 && Label("Lbl_DDEFile") == kToolbarWord) {
        window_.SetText("Lbl_DDEFile", {});
        toolbar_ = 0;
    }
    const std::string folder = Label("Lbl_DDEPath");
    const std::string name = Label("Lbl_DDEFile");
    if (folder.empty() || name.empty()) return;
    const ConfigRecord& record = window_.Record();
    const bool differs =
        !AnsiEqualNoCase(folder, record.QCMDPATH) || !AnsiEqualNoCase(name, record.QCMDFILE);
    if (!differs || !QcModeValid(folder, name)) return;
    ClearReport();
    if (AskYes(kQuestionTakeQcMode, 0)) window_.SelectQcMode(folder + name);
}

}  // namespace lumacfg::ui
