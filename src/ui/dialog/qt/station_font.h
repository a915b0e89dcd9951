// The font of every window: the family and point size that the string table names (the
// station's language decides them). The desktop may lack the family; then the desktop's own
// sans-serif stands in for it, at the same point size, so the layout keeps its proportions.
#pragma once

#include <QFont>
#include <QString>

namespace lumacfg::ui {

// The font of `family` at the size `sizeText` (a number of points; a text that is not a
// positive number keeps the desktop's size). A family the desktop does not have is substituted
// by the desktop's sans-serif for the whole program.
QFont StationFont(const QString& family, const QString& sizeText);

}  // namespace lumacfg::ui
