#include "ui/autosampler/qt/autosampler_window.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace lumacfg::ui {

AutosamplerWindow::AutosamplerWindow(DialogModel& model, const char* name, const char* ok,
                                     const char* cancel, QWidget* parent)
    : QDialog(parent), model_(model), ok_(QLatin1String(ok)), cancel_(QLatin1String(cancel)) {
    setObjectName(QLatin1String(name));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

QBoxLayout* AutosamplerWindow::ButtonRow(
    std::initializer_list<std::pair<const char*, QChar>> buttons) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    for (const auto& [name, mnemonic] : buttons) {
        auto* button = Make<QPushButton>(this, QLatin1String(name), mnemonic);
        button->setAutoDefault(false);
        button->setDefault(button->objectName() == ok_);
        row->addWidget(button);
    }
    return row;
}

void AutosamplerWindow::Bind() {
    TabInBuiltOrder(this);
    binder_ = new DialogBinder(model_, this);
    binder_->CancelOnEsc(cancel_);
    connect(binder_, &DialogBinder::Ended, this,
            [this](DialogEnd end) { done(end == DialogEnd::Accepted ? Accepted : Rejected); });
}

void AutosamplerWindow::keyPressEvent(QKeyEvent* event) {
    const bool plain =
        event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier;
    if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        binder_->Click(ok_);
        return;
    }
    QDialog::keyPressEvent(event);
}

}  // namespace lumacfg::ui
