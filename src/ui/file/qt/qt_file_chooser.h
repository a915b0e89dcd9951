// The file chooser of the desktop: a Qt file dialog stands in for the data system's own. A
// folder request (a QC mode is a folder named "*.QCC") chooses a folder.
#pragma once

#include <QPointer>
#include <QWidget>

#include "ui/file/file_selection.h"

namespace lumacfg::ui {

class QtFileChooser final : public FileChooser {
  public:
    explicit QtFileChooser(QWidget* parent) : parent_(parent) {}

    // Shows the dialog modally; 1 and the choice when the user accepts, 0 when they cancel.
    std::int16_t SelectFile(platform::WindowHandle owner, SelectKind kind,
                            FileRequest& request) override;

  private:
    QPointer<QWidget> parent_;
};

}  // namespace lumacfg::ui
