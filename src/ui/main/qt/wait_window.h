// The wait window "WaitProc": a small modal window that keeps the main window waiting while a
// program it started runs. Its timer polls the model every 300 ms and the window closes itself
// once the program has ended; meanwhile the event loop runs, so every window repaints. The user
// cannot close it: it ends with the program.
#pragma once

#include <QDialog>

#include "ui/main/wait_dialog.h"

class QTimer;

namespace lumacfg::ui {

class WaitWindow final : public QDialog {
    Q_OBJECT

  public:
    explicit WaitWindow(WaitDialog& model, QWidget* parent = nullptr);

    // The program has ended and the window closed.
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void Tick();

    WaitDialog& model_;
    QTimer* timer_ = nullptr;
};

}  // namespace lumacfg::ui
