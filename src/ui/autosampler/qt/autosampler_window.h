// What the windows of the autosampler dialogs share: widgets built in code and named as their
// controls, one binder to the dialog's model, the tab order in which the widgets were built,
// Enter as the OK button and Esc as the Cancel button. The window closes when the model says the
// dialog ended.
#pragma once

#include <QChar>
#include <QDialog>
#include <QString>

#include "ui/dialog/dialog_model.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/dialog/qt/dialog_widgets.h"

class QBoxLayout;
class QGridLayout;
class QLabel;

namespace lumacfg::ui {

class AutosamplerWindow : public QDialog {
    Q_OBJECT

  public:
    DialogBinder& Binder() { return *binder_; }

  protected:
    // `name`: the dialog's name; `ok` and `cancel`: its OK and Cancel buttons.
    AutosamplerWindow(DialogModel& model, const char* name, const char* ok, const char* cancel,
                      QWidget* parent);

    // The row of buttons at the bottom, right-aligned in the order given.
    QBoxLayout* ButtonRow(std::initializer_list<std::pair<const char*, QChar>> buttons);

    // Binds the widgets built so far to the model; called once the derived window has built them.
    void Bind();

    void keyPressEvent(QKeyEvent* event) override;

  private:
    DialogModel& model_;
    QString ok_;
    QString cancel_;
    DialogBinder* binder_ = nullptr;
};

}  // namespace lumacfg::ui
