// The window of an editor of custom trays or racks ("dlgCustomTrays", "dlgCustomRacks"): the
// list of entries with New, Copy and Delete under it and the picture below them (a rack's
// editor also says how the rack fits each custom tray); beside them the chosen entry's keys in
// a frame, one row per key with its range, and the loader's verdict under them; OK, Cancel and
// Help below.
#pragma once

#include "ui/autosampler/custom_entries_dialog.h"
#include "ui/autosampler/qt/autosampler_window.h"

namespace lumacfg::ui {

class TrayPicture;

class CustomEntriesWindow final : public AutosamplerWindow {
    Q_OBJECT

  public:
    CustomEntriesWindow(CustomEntriesDialog& model, EntryKind kind, QWidget* parent = nullptr);

  private:
    void AfterAction();

    CustomEntriesDialog& model_;
    TrayPicture* picture_ = nullptr;
};

}  // namespace lumacfg::ui
