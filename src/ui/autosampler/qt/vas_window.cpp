#include "ui/autosampler/qt/vas_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

#include "ui/dialog/qt/dialog_widgets.h"

namespace lumacfg::ui {
namespace {

struct DepthRow {
    const char* label;
    QChar mnemonic;
    const char* box;
};

constexpr int kDepthCharacters = 7;  // "4095.88"

}  // namespace

VasWindow::VasWindow(VasDialog& model, QWidget* parent)
    : AutosamplerWindow(model, "Fm_VAS", "OK", "Cancel", parent) {
    auto* top = new QGridLayout;
    ListRow(top, 0, this, QStringLiteral("Lbl_COM"), QStringLiteral("Cb_COM"), QLatin1Char('p'));
    ShowEntriesAsCaptions(ListRow(top, 1, this, QStringLiteral("Lbl_TRAYID"),
                                  QStringLiteral("Cb_TRAY"), QLatin1Char('a')));
    top->setColumnStretch(2, 1);

    auto* frame = Make<QGroupBox>(this, QStringLiteral("Frame_Depth"));
    auto* depths = new QGridLayout(frame);
    const DepthRow rows[] = {{"Lbl_Rinse", QLatin1Char('R'), "txtRinseDepth"},
                             {"Lbl_Tray", QLatin1Char('T'), "txtSampleDepth"},
                             {"Lbl_STD", QLatin1Char('D'), "txtSTDDepth"}};
    for (int i = 0; i < 3; ++i) {
        auto* label = Make<QLabel>(frame, QLatin1String(rows[i].label), rows[i].mnemonic);
        auto* box = new NarrowBox(kDepthCharacters, frame);
        box->setObjectName(QLatin1String(rows[i].box));
        box->setAlignment(Qt::AlignRight);
        label->setBuddy(box);
        depths->addWidget(label, i, 0);
        depths->addWidget(box, i, 1);
        depths->addWidget(Make<QLabel>(frame, QStringLiteral("Lbl_Unit(%1)").arg(i)), i, 2);
    }
    depths->setColumnStretch(3, 1);

    auto* window = new QVBoxLayout(this);
    window->addLayout(top);
    window->addWidget(frame);
    window->addWidget(Make<QCheckBox>(this, QStringLiteral("ChkESCMode"), QLatin1Char('E')));
    window->addLayout(ButtonRow({{"OK", {}}, {"Cancel", {}}, {"Help", QLatin1Char('H')}}));
    window->setSizeConstraint(QLayout::SetFixedSize);
    Bind();
}

}  // namespace lumacfg::ui
