// The Miscellaneous dialog "Fm_Misc", built in code, each widget named as its control: the
// hardware options, the ignition mode, the post-analysis rotation and the remote shutdown in the
// left column, the dead time calibration, the maintenance log and the probe move in the right
// one, OK, Cancel and Help below. The model decides every text, state and answer.
#pragma once

#include <QDialog>

#include "ui/misc/misc_dialog.h"

class QGroupBox;

namespace lumacfg::ui {

class DialogBinder;

class MiscWindow final : public QDialog {
    Q_OBJECT

  public:
    explicit MiscWindow(MiscDialog& model, QWidget* parent = nullptr);

    DialogBinder& Binder() { return *binder_; }

  private:
    QGroupBox* BuildOptions();
    QGroupBox* BuildIgnition();
    QGroupBox* BuildRotation();
    QGroupBox* BuildShutdown();
    QGroupBox* BuildDeadTime();
    QGroupBox* BuildMaintenance();
    QGroupBox* BuildProbeMove();

    DialogBinder* binder_ = nullptr;
};

}  // namespace lumacfg::ui
