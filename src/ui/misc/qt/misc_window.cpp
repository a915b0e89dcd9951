#include "ui/misc/qt/misc_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/dialog_widgets.h"

namespace lumacfg::ui {
namespace {

// A frame whose controls stand one under the other.
QGroupBox* Column(QWidget* parent, const char* name, std::initializer_list<QWidget*> controls) {
    auto* frame = Make<QGroupBox>(parent, name);
    auto* column = new QVBoxLayout(frame);
    for (QWidget* control : controls) {
        control->setParent(frame);
        column->addWidget(control);
    }
    return frame;
}

}  // namespace

MiscWindow::MiscWindow(MiscDialog& model, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("Fm_Misc"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    auto* left = new QVBoxLayout;
    left->addWidget(BuildOptions());
    left->addWidget(BuildIgnition());
    left->addWidget(BuildRotation());
    left->addWidget(BuildShutdown(), 1);
    auto* right = new QVBoxLayout;
    right->addWidget(BuildDeadTime());
    right->addWidget(BuildMaintenance());
    right->addWidget(BuildProbeMove(), 1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* ok = Make<QPushButton>(this, "OK");
    buttons->addWidget(ok);
    buttons->addWidget(Make<QPushButton>(this, "Cancel"));  // Esc
    buttons->addWidget(Make<QPushButton>(this, "Help"));    // F1

    auto* window = new QVBoxLayout(this);
    window->addLayout(columns);
    window->addLayout(buttons);
    window->setSizeConstraint(QLayout::SetFixedSize);

    // Enter is OK, as in every dialog of the data system.
    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
    ok->setDefault(true);

    TabInBuiltOrder(this);

    binder_ = new DialogBinder(model, this);
    // Esc is the Cancel button; closing by the frame leaves the record and the save request.
    binder_->CancelOnEsc(QStringLiteral("Cancel"));
    connect(binder_, &DialogBinder::Ended, this,
            [this](DialogEnd end) { done(end == DialogEnd::Accepted ? Accepted : Rejected); });
    auto* help = new QShortcut(QKeySequence::HelpContents, this);
    connect(help, &QShortcut::activated, this, [this] { binder_->Click(QStringLiteral("Help")); });
}

QGroupBox* MiscWindow::BuildOptions() {
    return Column(this, "Gb_Opt",
                  {Make<QCheckBox>(this, "Ck_SC", QLatin1Char('C')),
                   Make<QCheckBox>(this, "Ck_Pmp2", QLatin1Char('P')),
                   Make<QCheckBox>(this, "Ck_ExtPump", QLatin1Char('x'))});
}

QGroupBox* MiscWindow::BuildIgnition() {
    auto* frame = Make<QGroupBox>(this, "Gb_Ignt");
    auto* grid = new QGridLayout(frame);
    grid->addWidget(Make<QLabel>(frame, "Lbl_Type"), 0, 0);
    grid->addWidget(Make<QRadioButton>(frame, "Op_Smpl(0)", QLatin1Char('A')), 0, 1);
    grid->addWidget(Make<QRadioButton>(frame, "Op_Smpl(1)", QLatin1Char('g')), 1, 1);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* MiscWindow::BuildRotation() {
    return Column(this, "Gb_Rotate", {Make<QCheckBox>(this, "Ck_Rotate", QLatin1Char('E'))});
}

QGroupBox* MiscWindow::BuildShutdown() {
    auto* frame = Column(this, "Gb_Shutdown",
                         {Make<QRadioButton>(this, "Op_Shutdown(0)", QLatin1Char('d')),
                          Make<QRadioButton>(this, "Op_Shutdown(1)", QLatin1Char('L'))});
    static_cast<QVBoxLayout*>(frame->layout())->addStretch(1);
    return frame;
}

QGroupBox* MiscWindow::BuildDeadTime() {
    return Column(this, "Gb_Ddtm", {Make<QCheckBox>(this, "Ck_Ddtm", QLatin1Char('U'))});
}

QGroupBox* MiscWindow::BuildMaintenance() {
    return Column(this, "Gb_Mainte", {Make<QCheckBox>(this, "Ck_RecLog", QLatin1Char('R'))});
}

QGroupBox* MiscWindow::BuildProbeMove() {
    auto* frame = Make<QGroupBox>(this, "Gb_ProbeMove");
    auto* grid = new QGridLayout(frame);
    grid->addWidget(Make<QCheckBox>(frame, "Ck_StopPP", QLatin1Char('S')), 0, 0, 1, 4);
    grid->addWidget(Make<QCheckBox>(frame, "Ck_CG", QLatin1Char('h')), 1, 0, 1, 4);
    auto addBox = [&](int row, const char* label, QChar mnemonic, const char* box,
                      const char* unit) {
        auto* caption = Make<QLabel>(frame, label, mnemonic);
        auto* text = new NarrowBox(5, frame);
        text->setObjectName(QLatin1String(box));
        text->setAlignment(Qt::AlignRight);
        caption->setBuddy(text);
        grid->addWidget(caption, row, 1);
        grid->addWidget(text, row, 2);
        grid->addWidget(Make<QLabel>(frame, unit), row, 3);
    };
    addBox(2, "Lbl_FlowRate", QLatin1Char('F'), "Txt_CGFlow", "Lbl_CG");
    addBox(3, "Lbl_StabTime", QLatin1Char('b'), "Txt_StabTime", "Lbl_StUnit");
    // The flow and time stand under the caption of the check box they belong to.
    grid->setColumnMinimumWidth(0, style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                       style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
    grid->setColumnStretch(4, 1);
    grid->setRowStretch(4, 1);
    return frame;
}

}  // namespace lumacfg::ui
