#include "ui/autosampler/qt/custom_entries_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/autosampler/qt/tray_picture.h"

namespace lumacfg::ui {
namespace {

constexpr int kNumberDigits = 7;  // "-32768"
constexpr int kNameCharacters = 16;

QString Name(const std::string& control) {
    return QString::fromStdString(control);
}

// One row per key: its label with the range, and its box or (a default rack) its list.
QGroupBox* EntryFrame(QWidget* parent, EntryKind kind) {
    auto* frame = Make<QGroupBox>(parent, "grpEntry");
    auto* grid = new QGridLayout(frame);
    int row = 0;
    for (const std::string& key : EntryKeys(kind)) {
        const QString label = Name("lbl" + key);
        const QString control = Name(CustomEntriesDialog::ControlOfKey(key));
        if (key.starts_with("DEFRACK")) {
            ListRow(grid, row++, frame, label, control);
            continue;
        }
        auto* box =
            Make<NarrowBox>(frame, control, {}, key == "ID_STR" ? kNameCharacters : kNumberDigits);
        auto* caption = Make<QLabel>(frame, label);
        caption->setBuddy(box);
        grid->addWidget(caption, row, 0);
        grid->addWidget(box, row++, 1, Qt::AlignLeft);
    }
    grid->setColumnStretch(1, 1);
    return frame;
}

QLabel* WrappedLabel(QWidget* parent, const char* name) {
    auto* label = Make<QLabel>(parent, name);
    label->setWordWrap(true);
    return label;
}

}  // namespace

CustomEntriesWindow::CustomEntriesWindow(CustomEntriesDialog& model, EntryKind kind,
                                         QWidget* parent)
    : AutosamplerWindow(model, kind == EntryKind::Tray ? "dlgCustomTrays" : "dlgCustomRacks",
                        "btnOK", "btnCancel", parent),
      model_(model) {
    // The list, its buttons and the picture under them share the left column; the keys take the
    // right one, so the window stays narrow enough for a small screen.
    auto* entries = new QVBoxLayout;
    auto* caption = Make<QLabel>(this, "lblEntries");
    auto* list = Make<QListWidget>(this, "lstEntries");
    caption->setBuddy(list);
    // Its entries are the model's composed verdicts ("name (id): ok"), shown in the language
    // shown by their templates; the names and values in them stay.
    ShowEntriesAsCaptions(list);
    // A long verdict wraps rather than hide behind a scroll bar.
    list->setWordWrap(true);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    entries->addWidget(caption);
    entries->addWidget(list);
    auto* edits = new QHBoxLayout;
    for (const char* button : {"btnNew", "btnCopy", "btnDelete"}) {
        auto* made = Make<QPushButton>(this, button);
        made->setAutoDefault(false);
        edits->addWidget(made);
    }
    entries->addLayout(edits);
    picture_ = new TrayPicture(this);
    picture_->setObjectName(QStringLiteral("TrayPicture"));
    entries->addWidget(picture_, 1);
    if (kind == EntryKind::Rack) entries->addWidget(WrappedLabel(this, "lblFits"));

    auto* entry = new QVBoxLayout;
    entry->addWidget(EntryFrame(this, kind));
    entry->addWidget(WrappedLabel(this, "lblVerdict"));
    entry->addStretch(1);

    auto* columns = new QHBoxLayout;
    columns->addLayout(entries, 1);
    columns->addLayout(entry);
    auto* window = new QVBoxLayout(this);
    window->addLayout(columns, 1);
    window->addLayout(ButtonRow({{"btnOK", {}}, {"btnCancel", {}}, {"btnHelp", {}}}));

    // The model's captions mark their own mnemonics.
    for (QWidget* widget : findChildren<QWidget*>()) KeepCaptionMnemonic(widget);
    Bind();
    connect(&Binder(), &DialogBinder::Shown, this, &CustomEntriesWindow::AfterAction);
    AfterAction();
}

void CustomEntriesWindow::AfterAction() {
    picture_->Show(model_.Plan());
    const QString focus = QString::fromStdString(model_.TakeFocusRequest());
    if (QWidget* widget = Binder().Widget(focus)) widget->setFocus(Qt::OtherFocusReason);
}

}  // namespace lumacfg::ui
