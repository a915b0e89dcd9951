#include "ui/autosampler/qt/asx500_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "ui/autosampler/qt/custom_entries_window.h"
#include "ui/autosampler/qt/tray_picture.h"

namespace lumacfg::ui {

Asx500Window::Asx500Window(Asx500Dialog& model, QWidget* parent)
    : AutosamplerWindow(model, "dlgASX500", "btnOK", "btnCancel", parent), model_(model) {
    auto* top = new QGridLayout;
    ListRow(top, 0, this, QStringLiteral("lblCOMPort"), QStringLiteral("cmbCOMPort"));
    ListRow(top, 1, this, QStringLiteral("lblTrayType"), QStringLiteral("cmbTrayType"));
    top->addWidget(Make<QPushButton>(this, QStringLiteral("btnConfigTray")), 1, 2);
    top->setColumnStretch(1, 1);

    auto* frame = Make<QGroupBox>(this, QStringLiteral("grpRacks"));
    auto* racks = new QGridLayout(frame);
    for (int i = 0; i < static_cast<int>(kTrayPositions); ++i) {
        ListRow(racks, i, frame, QStringLiteral("lblRacks(%1)").arg(i),
                QStringLiteral("cmbRacks(%1)").arg(i));
    }
    racks->setColumnStretch(1, 1);
    auto* configRack = new QHBoxLayout;
    configRack->addStretch(1);
    configRack->addWidget(Make<QPushButton>(this, QStringLiteral("btnConfigRack")));

    auto* controls = new QVBoxLayout;
    controls->addLayout(top);
    controls->addWidget(frame);
    controls->addLayout(configRack);
    controls->addStretch(1);
    picture_ = new TrayPicture(this);
    picture_->setObjectName(QStringLiteral("TrayPicture"));
    auto* columns = new QHBoxLayout;
    columns->addLayout(controls);
    columns->addWidget(picture_, 1);

    auto* window = new QVBoxLayout(this);
    window->addLayout(columns, 1);
    window->addLayout(ButtonRow({{"btnOK", {}}, {"btnCancel", {}}, {"btnHelp", {}}}));
    // Fixed to the size its controls ask for, as every dialog of the data system: a window
    // manager then draws no resize handle (an empty strip) below the buttons.
    window->setSizeConstraint(QLayout::SetFixedSize);

    // The captions of the caption block mark their own mnemonics.
    for (QWidget* widget : findChildren<QWidget*>()) KeepCaptionMnemonic(widget);
    Bind();
    Binder().SetClickAction(QStringLiteral("btnConfigTray"),
                            [this] { Configure(EntryKind::Tray); });
    Binder().SetClickAction(QStringLiteral("btnConfigRack"),
                            [this] { Configure(EntryKind::Rack); });
    connect(&Binder(), &DialogBinder::Shown, this, &Asx500Window::AfterAction);
    AfterAction();
}

void Asx500Window::Configure(EntryKind kind) {
    std::shared_ptr<CustomEntriesDialog> editor = OpenCustomEntries(kind);
    if (!editor) return;
    auto* view = new CustomEntriesWindow(*editor, kind, this);
    view->setAttribute(Qt::WA_DeleteOnClose);
    connect(view, &QDialog::finished, this, [this, editor](int result) {
        if (result == QDialog::Accepted) model_.TablesChanged();
        Binder().Refresh();
    });
    view->open();
}

void Asx500Window::AfterAction() {
    picture_->Show(model_.Plan());
    const QString focus = QString::fromStdString(model_.TakeFocusRequest());
    if (QWidget* widget = Binder().Widget(focus)) widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace lumacfg::ui
