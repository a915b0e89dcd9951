#include "app/gui/autosampler_setup.h"

#include <functional>
#include <memory>

#include "racks/custom_racks.h"
#include "ui/autosampler/asx500_dialog.h"
#include "ui/autosampler/asx_dialog.h"
#include "ui/autosampler/qt/asx500_window.h"
#include "ui/autosampler/qt/asx_window.h"
#include "ui/autosampler/qt/vas_window.h"
#include "ui/autosampler/vas_dialog.h"
#include "ui/dialog/qt/dialog_binding.h"
#include "ui/main/main_dialog.h"
#include "ui/main/qt/main_window.h"

namespace lumacfg::gui {
namespace {

// Shows `view` of `dialog` window-modal over the main window; `accept` runs after OK.
template <class Model, class View>
void Open(ui::MainWindow& window, std::unique_ptr<Model> dialog,
          std::function<void(const Model&)> accept) {
    auto* view = new View(*dialog, &window);
    view->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(view, &QDialog::finished, &window,
                     [&window, model = std::shared_ptr<Model>(std::move(dialog)),
                      accept = std::move(accept)](int result) {
                         if (result == QDialog::Accepted) accept(*model);
                         window.Binder().Refresh();
                     });
    view->open();
}

void OpenAutosamplerSetup(ui::MainWindow& window, ui::MainDialog& model) {
    ConfigRecord& record = model.Record();
    const bool opalInUse = model.OpalApplicationsUsable();
    switch (model.AutosamplerDialog(IsCurrentTrayIdValid())) {
        case ui::AutosamplerSetup::Asx500Trays:
            return Open<ui::Asx500Dialog, ui::Asx500Window>(
                window, std::make_unique<ui::Asx500Dialog>(record),
                [&record](const ui::Asx500Dialog& d) {
                    d.Accept(record, RackTrays().WorkingTray);
                });
        case ui::AutosamplerSetup::Vas:
            return Open<ui::VasDialog, ui::VasWindow>(
                window, std::make_unique<ui::VasDialog>(record, opalInUse),
                [&record](const ui::VasDialog& d) { d.Accept(record); });
        case ui::AutosamplerSetup::Legacy:
            return Open<ui::AsxDialog, ui::AsxWindow>(
                window, std::make_unique<ui::AsxDialog>(record, model.AutosamplerText(), opalInUse),
                [&record](const ui::AsxDialog& d) { d.Accept(record); });
    }
}

}  // namespace

void ConnectAutosamplerSetup(ui::MainWindow& window, ui::MainDialog& model) {
    window.Binder().SetClickAction(QStringLiteral("Cd_AutoSet"),
                                   [&window, &model] { OpenAutosamplerSetup(window, model); });
}

}  // namespace lumacfg::gui
