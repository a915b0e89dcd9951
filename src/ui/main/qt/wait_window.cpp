#include "ui/main/qt/wait_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#include "ui/dialog/qt/dialog_binding.h"

namespace lumacfg::ui {

WaitWindow::WaitWindow(WaitDialog& model, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName(QStringLiteral("WaitProc"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowCloseButtonHint, false);
    setModal(true);
    auto* label = new QLabel(this);
    label->setObjectName(QStringLiteral("Lbl_Waiting"));
    // A busy bar: the window is alive while it waits.
    auto* busy = new QProgressBar(this);
    busy->setRange(0, 0);
    busy->setTextVisible(false);
    busy->setAccessibleName(QCoreApplication::translate("lumacfg", "Waiting"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(busy);
    column->setSizeConstraint(QLayout::SetFixedSize);
    ShowState(model_.State(), this);

    timer_ = new QTimer(this);
    timer_->setObjectName(QStringLiteral("Timer1"));
    timer_->setInterval(WaitDialog::kInterval);
    connect(timer_, &QTimer::timeout, this, &WaitWindow::Tick);
    timer_->start();
}

void WaitWindow::Tick() {
    model_.Tick();
    if (model_.End() == DialogEnd::Open) return;
    timer_->stop();
    done(Accepted);
}

void WaitWindow::reject() {
    if (model_.End() != DialogEnd::Open) QDialog::reject();
}

void WaitWindow::closeEvent(QCloseEvent* event) {
    if (model_.End() == DialogEnd::Open) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

}  // namespace lumacfg::ui
