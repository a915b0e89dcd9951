#include "ui/file/qt/qt_file_chooser.h"

#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <memory>
#include <utility>

#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/translation.h"

namespace lumacfg::ui {
namespace {

// Places the file dialog each time it becomes active.
class PlaceWhenActivated final : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) {
            FileSelectionActivated(
                static_cast<platform::WindowHandle>(static_cast<QWidget*>(watched)->winId()));
        }
        return false;
    }
};

// Qt's dialog leaves its two lists without a buddy; with it, a screen reader names each list by
// its label ("Look in:", "Files of type:") instead of by its chosen entry, as in every window.
void NameListsByTheirLabels(QFileDialog& dialog) {
    for (auto [label, list] :
         {std::pair{"lookInLabel", "lookInCombo"}, std::pair{"fileTypeLabel", "fileTypeCombo"}}) {
        auto* caption = dialog.findChild<QLabel*>(QLatin1String(label));
        auto* entries = dialog.findChild<QComboBox*>(QLatin1String(list));
        if (caption != nullptr && entries != nullptr) caption->setBuddy(entries);
    }
}

QFileDialog* MakeFileDialog(QWidget* parent, SelectKind kind, const FileRequest& request) {
    // The title in the language shown; the folder and file are values.
    auto* dialog =
        new QFileDialog(parent, Translated(FromAnsi(request.caption)), FromAnsi(request.directory));
    dialog->setObjectName(QStringLiteral("frmFile"));
    // Qt's own dialog: the same on every desktop, and it can choose a folder by its pattern.
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    const bool save = kind == SelectKind::SaveFile || kind == SelectKind::SaveFolder;
    const bool folder = kind == SelectKind::OpenFolder || kind == SelectKind::SaveFolder;
    dialog->setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    if (folder) {
        dialog->setFileMode(QFileDialog::Directory);
    } else {
        dialog->setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    }
    dialog->setNameFilter(FromAnsi(request.pattern));
    if (!request.fileName.empty()) dialog->selectFile(FromAnsi(request.fileName));
    dialog->installEventFilter(new PlaceWhenActivated(dialog));
    NameListsByTheirLabels(*dialog);
    return dialog;
}

}  // namespace

std::int16_t QtFileChooser::SelectFile(platform::WindowHandle, SelectKind kind,
                                       FileRequest& request) {
    std::unique_ptr<QFileDialog> dialog(MakeFileDialog(parent_, kind, request));
    if (dialog->exec() != QDialog::Accepted || dialog->selectedFiles().isEmpty()) return 0;
    const QFileInfo chosen(dialog->selectedFiles().constFirst());
    request.directory = ToAnsi(chosen.absolutePath());
    request.fileName = ToAnsi(chosen.fileName());
    return 1;
}

}  // namespace lumacfg::ui
