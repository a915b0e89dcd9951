#include "ui/autosampler/qt/asx_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLayout>
#include <QVBoxLayout>

namespace lumacfg::ui {

AsxWindow::AsxWindow(AsxDialog& model, QWidget* parent)
    : AutosamplerWindow(model, "Fm_ASX", "OK", "Cancel", parent) {
    auto* port = new QGridLayout;
    ListRow(port, 0, this, QStringLiteral("Lbl_COM"), QStringLiteral("Cb_COM"), QLatin1Char('P'));
    port->setColumnStretch(2, 1);

    auto* frame = Make<QGroupBox>(this, QStringLiteral("Gb_Rack"));
    auto* racks = new QGridLayout(frame);
    for (int i = 0; i < kAsxRackPositions; ++i) {
        ListRow(racks, i, frame, QStringLiteral("Lbl_ID(%1)").arg(i),
                QStringLiteral("Cb_ID(%1)").arg(i), QChar(static_cast<char16_t>(u'1' + i)));
    }
    racks->setColumnStretch(2, 1);

    auto* window = new QVBoxLayout(this);
    window->addLayout(port);
    window->addWidget(frame);
    window->addLayout(ButtonRow({{"OK", {}}, {"Cancel", {}}, {"Help", QLatin1Char('H')}}));
    window->setSizeConstraint(QLayout::SetFixedSize);
    Bind();
}

}  // namespace lumacfg::ui
