// The station's font: a family the desktop lacks falls back to the desktop's sans-serif at the
// size the string table asks for; a family it has is kept.
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>

#include "ui/dialog/qt/station_font.h"

namespace lumacfg::ui {
namespace {

TEST(StationFontTest, AMissingFamilyIsDrawnWithTheDesktopsSansSerifAtTheSameSize) {
    const QString desktop =
        QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family();
    const double desktopSize = QFontDatabase::systemFont(QFontDatabase::GeneralFont).pointSizeF();
    const struct {
        const char* family;
        const char* size;
        QString drawnWith;
        double points;
    } cases[] = {
        {"MS Sans Serif", "8", desktop, 8},
        {"No Such Family At All", " 10 ", desktop, 10},
        {"DejaVu Sans Mono", "12", "DejaVu Sans Mono", 12},
        {"", "eight", desktop, desktopSize},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.family);
        const QFont font = StationFont(c.family, c.size);
        EXPECT_EQ(QFontInfo(font).family(), c.drawnWith);
        EXPECT_DOUBLE_EQ(font.pointSizeF(), c.points);
    }
}

}  // namespace
}  // namespace lumacfg::ui
