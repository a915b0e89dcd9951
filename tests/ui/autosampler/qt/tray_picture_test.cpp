// The tray picture as a screen reader and the keyboard reach it: its role, what it says of the
// tray and of the position with the focus, and the keys that move between the positions.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "ui/autosampler/qt/tray_picture.h"
#include "ui/dialog/qt/translation.h"

namespace lumacfg::ui {
namespace {

// A position holding rack `id`; a reason makes it a misfit.
TrayPosition Holding(std::int16_t id, const char* name, const char* reason = "") {
    TrayPosition position;
    position.rackId = id;
    position.rackName = name;
    position.reason = reason;
    position.fit = position.reason.empty() ? RackFit::Fits : RackFit::TooWide;
    return position;
}

TrayPlan StandardTray() {
    TrayPlan plan;
    plan.trayId = 1;
    plan.trayName = "ASX 60";
    plan.positions = {Holding(1, "R1"), Holding(2, "R2", "The rack is too wide\nfor position 2."),
                      TrayPosition()};
    return plan;
}

TEST(TrayPictureTest, ItDescribesTheWholeTrayAndNamesThePositionWithTheFocus) {
    TrayPicture picture;
    picture.Show(StandardTray());
    EXPECT_EQ(picture.focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(picture.accessibleDescription(),
              "Tray ASX 60\n"
              "Position 1 of 3: R1\n"
              "Position 2 of 3: R2, does not fit: The rack is too wide for position 2.\n"
              "Position 3 of 3: no rack");

    const struct {
        Qt::Key key;
        std::size_t position;  // counted from 0
        const char* name;
    } keys[] = {
        {Qt::Key_Left, 0, "Tray picture, Position 1 of 3: R1"},  // no position before the first
        {Qt::Key_Right, 1,
         "Tray picture, Position 2 of 3: R2, does not fit: The rack is too wide for position 2."},
        {Qt::Key_Down, 2, "Tray picture, Position 3 of 3: no rack"},
        {Qt::Key_Right, 2, "Tray picture, Position 3 of 3: no rack"},  // none after the last
        {Qt::Key_Up, 1, nullptr},
        {Qt::Key_Home, 0, nullptr},
        {Qt::Key_End, 2, nullptr},
    };
    for (const auto& k : keys) {
        QTest::keyClick(&picture, k.key);
        EXPECT_EQ(picture.CurrentPosition(), k.position) << k.key;
        if (k.name != nullptr) {
            EXPECT_EQ(picture.accessibleName(), k.name) << k.key;
        }
    }

    // A plan with fewer positions keeps the focus on a position that is there.
    TrayPlan shorter = StandardTray();
    shorter.positions.resize(2);
    picture.Show(shorter);
    EXPECT_EQ(picture.CurrentPosition(), 1u);
    picture.Show(TrayPlan{});
    EXPECT_EQ(picture.accessibleName(), "Tray picture");
}

TEST(TrayPictureTest, ItIsAGraphicAndSaysAMisfitsReasonInTheLanguageShown) {
    TrayPicture picture;
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&picture);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::Graphic);

    TrayPlan plan = StandardTray();
    plan.positions[1].reason =
        "Invalid rack is specified for the current tray type.\nWidth of the rack might be wrong.";
    ASSERT_EQ(UseLanguage(QLocale(QLocale::German)), "de");
    picture.Show(plan);
    UseLanguage(QLocale());
    // Over each position its number and its rack; a rack drawn alone has no number.
    std::vector<QString> captions;
    for (const TrayPicture::Caption& caption : picture.Captions()) captions.push_back(caption.text);
    EXPECT_EQ(captions, (std::vector<QString>{"1 R1", "2 R2", "3"}));
    TrayPicture alone;
    alone.Show({.trayId = 1, .trayName = "R1", .positions = {Holding(1, "R1")}});
    ASSERT_EQ(alone.Captions().size(), 1u);
    EXPECT_EQ(alone.Captions().front().text, "R1");
    EXPECT_EQ(picture.accessibleDescription(),
              "Tray ASX 60\n"
              "Position 1 von 3: R1\n"
              "Position 2 von 3: R2, passt nicht: Für den aktuellen Tray-Typ ist ein ungültiges "
              "Rack angegeben. Die Breite des Racks ist möglicherweise falsch.\n"
              "Position 3 von 3: kein Rack");
}

}  // namespace
}  // namespace lumacfg::ui
