#include "ui/main/qt/main_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/dialog/qt/ansi_text.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/dialog_widgets.h"

namespace lumacfg::ui {
namespace {

constexpr int kOctets = 4;
constexpr int kInhibitBoxes = 10;
constexpr int kInhibitColumns = 5;

QString Indexed(const char* control, int index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(control)).arg(index);
}

QGroupBox* Frame(QWidget* parent, const char* name, QChar mnemonic = {}) {
    return Make<QGroupBox>(parent, name, mnemonic);
}

// The room a check box's indicator takes, so a control that belongs to a check box or an
// option button stands under its caption.
int IndicatorIndent(const QWidget* widget) {
    const QStyle* style = widget->style();
    return style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, widget) +
           style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, widget);
}

}  // namespace

MainWindow::MainWindow(MainDialog& model, QWidget* parent) : QDialog(parent), model_(model) {
    setObjectName(QStringLiteral("Fm_Config"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    // The last frame of each column takes the room left, so both columns end on one line.
    auto* left = new QVBoxLayout;
    left->addWidget(BuildConnection());
    left->addWidget(BuildRemoteStart());
    left->addWidget(BuildIntroduction(), 1);
    auto* right = new QVBoxLayout;
    right->addWidget(BuildInhibit());
    right->addWidget(BuildQcMode());
    right->addWidget(BuildEmProtection());
    right->addWidget(BuildSecurity(), 1);
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(Make<QPushButton>(this, "Cd_Misc", QLatin1Char('M')));
    buttons->addWidget(Make<QPushButton>(this, "Cd_Tlbar", QLatin1Char('C')));
    buttons->addStretch(1);
    buttons->addWidget(Make<QPushButton>(this, "Cd_Save", QLatin1Char('S')));
    buttons->addWidget(Make<QPushButton>(this, "Cd_Reset", QLatin1Char('R')));
    buttons->addWidget(Make<QPushButton>(this, "Cancel"));  // Esc
    buttons->addWidget(Make<QPushButton>(this, "Help"));    // F1

    // The labels that receive what the QC and toolbar programs report back are never shown.
    KeepHidden(Make<QLabel>(this, "Lbl_DDEFile"));
    KeepHidden(Make<QLabel>(this, "Lbl_DDEPath"));

    auto* window = new QVBoxLayout(this);
    window->addLayout(columns);
    window->addSpacing(style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing));
    window->addLayout(buttons);
    // The window keeps the size its controls ask for: a window manager then offers no resize
    // handle (an empty strip along the bottom edge) for a window that has nothing to stretch.
    window->setSizeConstraint(QLayout::SetFixedSize);

    // Enter never saves by accident: no button is the default one.
    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);

    TabInBuiltOrder(this);

    binder_ = new DialogBinder(model_, this);
    binder_->SetClickAction(QStringLiteral("Cd_SelVLTFolder"), [this] { ChooseVltFolder(); });
    // Esc is the Cancel button; closing by the frame is not (the window's close then writes
    // only what another dialog's OK asked for).
    binder_->CancelOnEsc(QStringLiteral("Cancel"));
    connect(binder_, &DialogBinder::Shown, this, &MainWindow::FollowAddressBox);
    connect(binder_, &DialogBinder::Ended, this,
            [this](DialogEnd end) { done(end == DialogEnd::Accepted ? Accepted : Rejected); });
    auto* help = new QShortcut(QKeySequence::HelpContents, this);
    connect(help, &QShortcut::activated, this, [this] { binder_->Click(QStringLiteral("Help")); });
    chooseFolder_ = [](QWidget* parent, const QString& caption, const QString& start) {
        return QFileDialog::getExistingDirectory(parent, caption, start);
    };
    FollowAddressBox();
}

QGroupBox* MainWindow::BuildConnection() {
    QGroupBox* frame = Frame(this, "Gb_BrenmarkIB");
    auto* label = Make<QLabel>(frame, "Lbl_Address", QLatin1Char('d'));
    auto* address = Make<NarrowBox>(frame, "Ed_Address", {}, 3);
    label->setBuddy(address);
    auto* boxes = new QHBoxLayout;
    boxes->setSpacing(2);
    boxes->addWidget(address);
    for (int i = 0; i < kOctets; ++i) {
        if (i > 0) boxes->addWidget(Make<QLabel>(frame, Indexed("Ed_IPDot", i - 1), {}));
        auto* octet = Make<NarrowBox>(frame, Indexed("Ed_IP", i), {}, 3);
        SetAccessibleName(octet, QCoreApplication::translate("lumacfg", "IP address, part %1 of %2")
                                     .arg(i + 1)
                                     .arg(kOctets));
        boxes->addWidget(octet);
    }
    boxes->addStretch(1);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(label, 0, 0);
    grid->addLayout(boxes, 0, 1);
    grid->addWidget(Make<QCheckBox>(frame, "Ck_Offline", QLatin1Char('f')), 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* MainWindow::BuildRemoteStart() {
    QGroupBox* frame = Frame(this, "Gb_Remort");
    auto* column = new QVBoxLayout(frame);
    column->addWidget(Make<QRadioButton>(frame, "Op_NotUse", QLatin1Char('n')));
    column->addWidget(Make<QRadioButton>(frame, "Op_Wait", QLatin1Char('W')));
    // The replicate option belongs to "Wait for Ready Signal": it stands under its caption.
    auto* replicate = new QHBoxLayout;
    replicate->addSpacing(IndicatorIndent(frame));
    replicate->addWidget(Make<QCheckBox>(frame, "Ck_NotRepRem", QLatin1Char('2')));
    column->addLayout(replicate);
    return frame;
}

QGroupBox* MainWindow::BuildIntroduction() {
    QGroupBox* frame = Frame(this, "Gb_Intro");
    auto* grid = new QGridLayout(frame);
    auto addList = [&](int row, const char* labelName, QChar mnemonic, const char* listName) {
        return ListRow(grid, row, frame, QLatin1String(labelName), QLatin1String(listName),
                       mnemonic);
    };
    ShowEntriesAsCaptions(addList(0, "Lbl_Type", QLatin1Char('y'), "Cb_Type"));
    // Both buttons show "Setup...": each is named by what it sets up.
    auto* typeSetup = Make<QPushButton>(frame, "Cd_TypeSet", QLatin1Char('p'));
    SetAccessibleName(typeSetup, QCoreApplication::translate("lumacfg", "Instrument type setup"));
    grid->addWidget(typeSetup, 0, 2);
    ShowEntriesAsCaptions(addList(1, "Lbl_Auto", QLatin1Char('A'), "Cb_Auto"));
    auto* autosamplerSetup = Make<QPushButton>(frame, "Cd_AutoSet", QLatin1Char('u'));
    SetAccessibleName(autosamplerSetup,
                      QCoreApplication::translate("lumacfg", "Autosampler setup"));
    grid->addWidget(autosamplerSetup, 1, 2);
    grid->addWidget(addList(2, "Lbl_MPMApp", QLatin1Char('O'), "Cb_MPMApp"), 2, 1, 1, 2);
    grid->addWidget(Make<QCheckBox>(frame, "Ck_CtrlLCGC", QLatin1Char('G')), 3, 0, 1, 3);
    auto* instrument = new QHBoxLayout;
    instrument->addSpacing(IndicatorIndent(frame));
    auto* instrumentLabel = Make<QLabel>(frame, "Lbl_LCInst", QLatin1Char('I'));
    auto* instrumentList = Make<QComboBox>(frame, "Cb_LCInst");
    instrumentLabel->setBuddy(instrumentList);
    instrument->addWidget(instrumentLabel);
    instrument->addWidget(instrumentList);
    instrument->addStretch(1);
    grid->addLayout(instrument, 4, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    // The application files of the OPAL system are kept in lists nobody sees.
    KeepHidden(Make<QComboBox>(frame, Indexed("Cb_MPMFileStd", 0), {}));
    KeepHidden(Make<QComboBox>(frame, Indexed("Cb_MPMFileStd", 1), {}));
    KeepHidden(Make<QComboBox>(frame, "Cb_MPMFileUsr"));
    return frame;
}

QGroupBox* MainWindow::BuildInhibit() {
    QGroupBox* frame = Frame(this, "Gb_Inhibit", QLatin1Char('h'));
    auto* grid = new QGridLayout(frame);
    for (int i = 0; i < kInhibitBoxes; ++i) {
        auto* box = Make<NarrowBox>(frame, Indexed("Ed_Inhibit", i), {}, 4);
        box->setAlignment(Qt::AlignRight);
        SetAccessibleName(box,
                          QCoreApplication::translate("lumacfg", "Prohibited mass %1").arg(i + 1));
        grid->addWidget(box, i / kInhibitColumns, i % kInhibitColumns);
    }
    grid->setColumnStretch(kInhibitColumns, 1);
    return frame;
}

QGroupBox* MainWindow::BuildQcMode() {
    QGroupBox* frame = Frame(this, "Gb_QCMode");
    auto* grid = new QGridLayout(frame);
    auto* mode = Make<QLabel>(frame, "Lbl_Mode");
    grid->addWidget(mode, 0, 0);
    auto* file = Make<PathLabel>(frame, "Lbl_QCFile");
    NameAfterCaption(file, mode);
    file->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    grid->addWidget(file, 0, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(Make<QPushButton>(frame, "Cd_Browse", QLatin1Char('B')));
    buttons->addWidget(Make<QPushButton>(frame, "Cd_QCCfg", QLatin1Char('Q')));
    grid->addLayout(buttons, 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* MainWindow::BuildEmProtection() {
    QGroupBox* frame = Frame(this, "Gb_EM");
    auto* column = new QVBoxLayout(frame);
    column->addWidget(Make<QCheckBox>(frame, "Ck_Integ", QLatin1Char('l')));
    return frame;
}

QGroupBox* MainWindow::BuildSecurity() {
    QGroupBox* frame = Frame(this, "Gb_Security");
    auto* grid = new QGridLayout(frame);
    grid->addWidget(Make<QCheckBox>(frame, "Ck_Security", QLatin1Char('e')), 0, 0, 1, 3);
    grid->addWidget(Make<QCheckBox>(frame, "Ck_AlwaysPrt", QLatin1Char('t')), 1, 0, 1, 3);
    grid->addWidget(Make<QCheckBox>(frame, "Ck_VLT", QLatin1Char('V')), 2, 0, 1, 3);
    auto* title = Make<QLabel>(frame, "Lb_Title_VLTFolder");
    auto* folder = Make<PathLabel>(frame, "Lb_VLTFolder");
    folder->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    // A browse button as wide as its caption, leaving the room to the folder.
    auto* choose = Make<QToolButton>(frame, "Cd_SelVLTFolder");
    choose->setFocusPolicy(Qt::StrongFocus);
    title->setBuddy(choose);
    NameAfterCaption(folder, title);
    grid->addWidget(title, 3, 0);
    grid->addWidget(folder, 3, 1);
    grid->addWidget(choose, 3, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(4, 1);
    return frame;
}

void MainWindow::ChooseVltFolder() {
    const Controls& controls = model_.State();
    auto textOf = [&](const char* control) {
        const auto found = controls.find(std::string_view(control));
        return found == controls.end() ? QString() : FromAnsi(found->second.text);
    };
    QString caption = textOf("Lb_Title_VLTFolder");
    if (caption.endsWith(QLatin1Char(':'))) caption.chop(1);
    const QString folder = chooseFolder_(this, caption, textOf("Lb_VLTFolder"));
    if (!folder.isEmpty())
        binder_->SetText(QStringLiteral("Lb_VLTFolder"), QDir::toNativeSeparators(folder));
}

void MainWindow::FollowAddressBox() {
    // The address label's mnemonic reaches the box that is shown: the GPIB address, or the
    // first octet of a LAN address.
    auto* label = findChild<QLabel*>(QStringLiteral("Lbl_Address"));
    QWidget* address = binder_ == nullptr ? nullptr : binder_->Widget(QStringLiteral("Ed_Address"));
    if (label == nullptr || address == nullptr) return;
    QWidget* target = address->isHidden() ? binder_->Widget(Indexed("Ed_IP", 0)) : address;
    if (label->buddy() == target) return;
    label->setBuddy(target);
    NameForScreenReaders(this);
}

}  // namespace lumacfg::ui
