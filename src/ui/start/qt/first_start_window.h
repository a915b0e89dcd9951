// The first-start window "Fm_FirstStart", built in code: the sentence that says what is
// missing, the data system's folder with its Browse... button, OK and Cancel. The model decides
// every text and answer; Browse... opens the desktop's folder chooser.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QString>
#include <functional>

#include "ui/start/first_start_dialog.h"

namespace lumacfg::ui {

class DialogBinder;

class FirstStartWindow final : public QDialog {
    Q_OBJECT

  public:
    explicit FirstStartWindow(FirstStartDialog& model, QWidget* parent = nullptr);

    DialogBinder& Binder() { return *binder_; }

    // The folder chooser (tests answer in its place): the folder chosen, or empty.
    using FolderChooser = std::function<QString(QWidget* parent, const QString& start)>;
    void SetFolderChooser(FolderChooser chooser) { chooseFolder_ = std::move(chooser); }

  public slots:
    // Esc and the window's frame are Cancel.
    void reject() override;

  private:
    void ChooseFolder();
    static void FitSentence(QLabel* sentence, int width);

    DialogBinder* binder_ = nullptr;
    FolderChooser chooseFolder_;
};

}  // namespace lumacfg::ui
