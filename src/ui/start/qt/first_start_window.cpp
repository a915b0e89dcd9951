#include "ui/start/qt/first_start_window.h"

#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/dialog_widgets.h"

namespace lumacfg::ui {

FirstStartWindow::FirstStartWindow(FirstStartDialog& model, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("Fm_FirstStart"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);

    auto* reason = Make<QLabel>(this, "Lbl_Reason");
    reason->setWordWrap(true);
    reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* label = Make<QLabel>(this, "Lbl_Folder", QLatin1Char('D'));
    auto* folder = Make<QLineEdit>(this, "Ed_Folder");
    folder->setMinimumWidth(folder->fontMetrics().averageCharWidth() * 48);
    label->setBuddy(folder);
    auto* browse = Make<QPushButton>(this, "Cd_Browse", QLatin1Char('B'));
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(folder, 1);
    row->addWidget(browse);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* ok = Make<QPushButton>(this, "Cd_OK");
    buttons->addWidget(ok);
    buttons->addWidget(Make<QPushButton>(this, "Cd_Cancel"));

    auto* window = new QVBoxLayout(this);
    window->addWidget(reason);
    window->addLayout(row);
    window->addLayout(buttons);
    window->setSizeConstraint(QLayout::SetFixedSize);

    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(false);
    ok->setDefault(true);
    TabInBuiltOrder(this);

    binder_ = new DialogBinder(model, this);
    binder_->SetClickAction(QStringLiteral("Cd_Browse"), [this] { ChooseFolder(); });
    connect(binder_, &DialogBinder::Ended, this,
            [this](DialogEnd end) { done(end == DialogEnd::Accepted ? Accepted : Rejected); });
    chooseFolder_ = [](QWidget* parentWindow, const QString& start) {
        return QFileDialog::getExistingDirectory(parentWindow, QString(), start);
    };
    FitSentence(reason, row->sizeHint().width());
    folder->setFocus();
}

// A fixed-size window does not ask a wrapping label for its height at the window's width: the
// sentence gets the folder row's width and the height its lines need there.
void FirstStartWindow::FitSentence(QLabel* sentence, int width) {
    sentence->setFixedWidth(width);
    sentence->setFixedHeight(sentence->heightForWidth(width));
}

void FirstStartWindow::reject() {
    binder_->Click(QStringLiteral("Cd_Cancel"));
}

void FirstStartWindow::ChooseFolder() {
    const auto* folder = findChild<QLineEdit*>(QStringLiteral("Ed_Folder"));
    const QString start = folder->text().isEmpty() ? QDir::homePath() : folder->text();
    const QString chosen = chooseFolder_(this, start);
    if (!chosen.isEmpty()) binder_->SetText(QStringLiteral("Ed_Folder"), QDir::cleanPath(chosen));
}

}  // namespace lumacfg::ui
