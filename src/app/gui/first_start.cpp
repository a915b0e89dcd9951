#include "app/gui/first_start.h"

#include <QTimer>
#include <iostream>

#include "config/station_location.h"
#include "ui/start/first_start_dialog.h"
#include "ui/start/qt/first_start_window.h"

namespace lumacfg::gui {

std::optional<int> ChooseStationIfNoneNamed(const DesktopOptions& options) {
    const StationLookup lookup = LookUpStation();
    if (lookup.outcome != StationLookup::Outcome::NotNamed) return std::nullopt;

    ui::FirstStartDialog dialog(lookup.missing);
    ui::FirstStartWindow window(dialog);
    bool pictureSaved = true;
    if (!options.screenshot.isEmpty()) {
        QTimer::singleShot(options.holdMs, &window, [&] {
            pictureSaved = window.grab().save(options.screenshot, "PNG");
            window.done(QDialog::Rejected);
        });
        window.exec();
        return pictureSaved ? kExitOk : kExitScreenshotFailed;
    }
    if (window.exec() == QDialog::Accepted) return std::nullopt;
    std::cerr << "lumacfg: " << platform::Describe(lookup.missing) << '\n';
    return kExitFileFailed;
}

}  // namespace lumacfg::gui
