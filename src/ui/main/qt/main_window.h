// The main window "Fm_Config": every control of the main dialog, built in code, each widget
// named as its control. The frames stand in two columns (connection, remote start, sample
// introduction on the left; prohibited masses, QC mode, EM protection, security on the right),
// the buttons that open other windows or end the editing in a row below them. The window holds
// no rule: the model decides every text, state and answer, and the binder shows it.
#pragma once

#include <QDialog>
#include <QString>
#include <functional>

#include "ui/main/main_dialog.h"

class QGridLayout;
class QGroupBox;

namespace lumacfg::ui {

class DialogBinder;

class MainWindow final : public QDialog {
    Q_OBJECT

  public:
    // Asks the user for a folder, starting in `start`; an empty text when the user cancels.
    using FolderChooser =
        std::function<QString(QWidget* parent, const QString& caption, const QString& start)>;

    explicit MainWindow(MainDialog& model, QWidget* parent = nullptr);

    // The chooser that "Cd_SelVLTFolder" opens (a folder dialog unless replaced).
    void SetFolderChooser(FolderChooser chooser) { chooseFolder_ = std::move(chooser); }

    DialogBinder& Binder() { return *binder_; }

  private:
    QGroupBox* BuildConnection();
    QGroupBox* BuildRemoteStart();
    QGroupBox* BuildIntroduction();
    QGroupBox* BuildInhibit();
    QGroupBox* BuildQcMode();
    QGroupBox* BuildEmProtection();
    QGroupBox* BuildSecurity();
    void ChooseVltFolder();
    void FollowAddressBox();

    MainDialog& model_;
    DialogBinder* binder_ = nullptr;
    FolderChooser chooseFolder_;
};

}  // namespace lumacfg::ui
