// The ASX500 tray and rack dialog "dlgASX500": port and tray type, the frame of nine rack
// positions with the buttons that configure trays and racks, the picture of the tray beside
// them, and the buttons below. The window grows with the picture.
#pragma once

#include "ui/autosampler/asx500_dialog.h"
#include "ui/autosampler/custom_entries_dialog.h"
#include "ui/autosampler/qt/autosampler_window.h"

namespace lumacfg::ui {

class TrayPicture;

class Asx500Window final : public AutosamplerWindow {
    Q_OBJECT

  public:
    explicit Asx500Window(Asx500Dialog& model, QWidget* parent = nullptr);

    TrayPicture& Picture() { return *picture_; }

  private:
    // Opens the editor of custom trays or racks; after its OK the lists and the picture show
    // the tables as written.
    void Configure(EntryKind kind);
    void AfterAction();

    Asx500Dialog& model_;
    TrayPicture* picture_ = nullptr;
};

}  // namespace lumacfg::ui
