// The station's font: a family the desktop lacks is drawn with the desktop's sans-serif at the
// size the string table asks for; a family it has is kept.
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>

#include "ui/dialog/qt/station_font.h"

namespace lumacfg::ui {
namespace {

TEST(StationFontTest, AMissingFamilyFallsBackToTheDesktopsSansSerifAtTheSameSize) {
    const QFont desktop = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    const QFont missing = StationFont("MS Sans Serif", "8");
    EXPECT_EQ(QFontInfo(missing).family(), QFontInfo(desktop).family());
    EXPECT_DOUBLE_EQ(missing.pointSizeF(), 8);
    const QFont present = StationFont("DejaVu Sans Mono", "12");
    EXPECT_EQ(QFontInfo(present).family(), "DejaVu Sans Mono");
    EXPECT_DOUBLE_EQ(present.pointSizeF(), 12);
    EXPECT_DOUBLE_EQ(StationFont("", "eight").pointSizeF(), desktop.pointSizeF());
}

}  // namespace
}  // namespace lumacfg::ui
