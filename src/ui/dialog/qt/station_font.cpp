#include "ui/dialog/qt/station_font.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

namespace lumacfg::ui {

QFont StationFont(const QString& family, const QString& sizeText) {
    const QFont desktop = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const QString name = family.trimmed();
    QFont font = desktop;
    if (!name.isEmpty()) {
        if (!QFontDatabase::hasFamily(name)) {
            // The family the desktop really draws its general font with, not an alias of it.
            QFont::insertSubstitution(name, QFontInfo(desktop).family());
        }
        font.setFamilies(QStringList{name});
    }
    bool isNumber = false;
    const double points = sizeText.trimmed().toDouble(&isNumber);
    if (isNumber && points > 0) font.setPointSizeF(points);
    return font;
}

}  // namespace lumacfg::ui
