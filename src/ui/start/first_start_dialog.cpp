#include "ui/start/first_start_dialog.h"

#include "base/text.h"
#include "config/station_location.h"
#include "platform/services.h"
#include "resources/string_table.h"

namespace lumacfg::ui {
namespace {

constexpr int kTextNoStation = 900;  // "%1": the file that names no station and why
constexpr int kTextFolder = 901;
constexpr int kMessageChooseFolder = 902;
constexpr int kTextBrowse = 136;
constexpr int kTextOk = 3;
constexpr int kTextCancel = 4;

std::string ReasonSentence(const platform::FileFailure& missing) {
    std::string text = LoadResString(kTextNoStation);
    const std::string detail = missing.path + ": " + missing.reason;
    if (std::size_t at = text.find("%1"); at != std::string::npos) text.replace(at, 2, detail);
    return text;
}

void ShowError(const std::string& text) {
    platform::Messages().Show({.text = text,
                               .title = LoadResString(kResErrorTitle),
                               .icon = platform::MessageIcon::Exclamation,
                               .buttons = platform::MessageButtons::Ok});
}

}  // namespace

FirstStartDialog::FirstStartDialog(const platform::FileFailure& missing) {
    controls_["Fm_FirstStart"].text = LoadResString(kResWindowCaption);
    controls_["Lbl_Reason"].text = ReasonSentence(missing);
    controls_["Lbl_Folder"].text = LoadResString(kTextFolder);
    controls_["Ed_Folder"];
    controls_["Cd_Browse"].text = LoadResString(kTextBrowse);
    controls_["Cd_OK"].text = LoadResString(kTextOk);
    controls_["Cd_Cancel"].text = LoadResString(kTextCancel);
}

void FirstStartDialog::SetText(std::string_view control, std::string text) {
    if (control == "Ed_Folder") controls_["Ed_Folder"].text = std::move(text);
}

void FirstStartDialog::Click(std::string_view control) {
    if (control == "Cd_OK") Accept();
    if (control == "Cd_Cancel") end_ = DialogEnd::Cancelled;
}

void FirstStartDialog::Accept() {
    const std::string folder(TrimBlanks(controls_["Ed_Folder"].text));
    if (folder.empty()) {
        ShowError(LoadResString(kMessageChooseFolder));
        return;
    }
    if (RecordDataSystemFolder(folder)) {
        end_ = DialogEnd::Accepted;
        return;
    }
    ShowError(platform::DescribeAll(platform::Failures().Take()));
}

}  // namespace lumacfg::ui
