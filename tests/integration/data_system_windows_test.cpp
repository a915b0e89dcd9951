// The running-program check and dialog placement over a desktop held in memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "integration/dialog_placement.h"
#include "integration/print_rect.h"
#include "integration/running_programs.h"
#include "platform/services.h"
#include "support/fake_desktop.h"

namespace lumacfg {
namespace {

using support::FakeDesktop;
using support::FakeWindows;
using ::testing::IsEmpty;
using ::testing::PrintToString;

constexpr WindowHandle kDialog = 7, kOwner = 58;
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();

class DataSystemWindowsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        desktop_.windows[kDialog] = {"Dialog", "Dialog", 0, {}, {10, 10, 410, 310}};
        platform::SetWindows(std::make_unique<FakeWindows>(desktop_));
    }
    void TearDown() override { platform::ResetServices(); }

    WindowHandle Add(std::string cls, std::optional<std::string> caption, WindowHandle parent = 0) {
        WindowHandle handle = 100 + desktop_.windows.size();
        desktop_.windows[handle] = {std::move(cls), std::move(caption), parent};
        return handle;
    }

    FakeDesktop desktop_;
};

TEST_F(DataSystemWindowsTest, EveryProbeIsTriedInOrderUntilOneFindsAWindow) {
    const std::vector<std::string> probes = {"QRN LUMADA Class|*",
                                             "Brenmark-KVD CP Class|*",
                                             "QrdaFrameWndProc|*",
                                             "QRN LUMAGEN Class|*",
                                             "WindowsForms10.Window.8.app.0.215472d|*",
                                             "ThunderRT6Main|Lumaseqed",
                                             "ThunderRT6Main|plotview",
                                             "ThunderRT6Main|RecordEditor",
                                             "LUMAElementInfoClass|*",
                                             "LUMAInterferenceInfoClass|*",
                                             "LUMAAMUInfoClass|*"};
    Add("ViewWndClass", "");
    EXPECT_FALSE(IsDataSystemRunning());
    EXPECT_EQ(desktop_.searches, probes);

    desktop_.searches.clear();
    Add("ThunderRT6Main", "plotview");
    Add("LUMAAMUInfoClass", "Masses");
    EXPECT_TRUE(IsDataSystemRunning());
    EXPECT_EQ(desktop_.searches, std::vector(probes.begin(), probes.begin() + 7));
}

TEST(CenteredRectTest, CentresOnTheReferenceSizeAtTheOrigin) {
    const std::tuple<Rect, Rect, std::optional<Rect>> cases[] = {
        {{0, 0, 400, 300}, {0, 0, 1280, 1024}, Rect{440, 362, 840, 662}},
        // Neither the window's nor the reference's position counts.
        {{-50, 700, 350, 1000}, {100, 30, 1380, 1054}, Rect{440, 362, 840, 662}},
        // Halves go to the even neighbour: 440.5 -> 440, 511.5 -> 512.
        {{0, 0, 400, 300}, {0, 0, 1281, 1323}, Rect{440, 512, 840, 812}},
        {{0, 0, 2000, 1100}, {0, 0, 1280, 1024}, Rect{-360, -38, 1640, 1062}},
        {{0, 0, 400, 300}, {kMin, 0, kMax, 1024}, std::nullopt},
        {{0, kMin, 400, 1}, {0, 0, 1280, 1024}, std::nullopt},
    };
    for (const auto& [window, reference, expected] : cases) {
        EXPECT_EQ(CenteredRect(window, reference), expected)
            << PrintToString(window) << " on " << PrintToString(reference);
    }
}

TEST_F(DataSystemWindowsTest, FindsTheViewOfTheKnownMainWindows) {
    // The owner's class, its children's classes, and which child the lookup gives (-1: the
    // owner itself).
    const std::tuple<std::string, std::vector<std::string>, int> cases[] = {
        {"Brenmark-KVD CP Class", {"Toolbar", "TopViewWndClass"}, 1},
        {"qrn lumada CLASS", {"TopViewWndClass", "ViewWndClass"}, 1},
        {std::string("QRN LUMADA Class\0rest", 21), {"ViewWndClass"}, 0},
        {"Brenmark-KVD CP Class", {"ViewWndClass"}, -1},
        {"TopViewWndClass", {"TopViewWndClass"}, -1},
        {"QRN LUMADA Class ", {"ViewWndClass"}, -1},
    };
    for (const auto& [ownerClass, childClasses, expected] : cases) {
        desktop_.windows.clear();
        WindowHandle owner = Add(ownerClass, std::nullopt);
        std::vector<WindowHandle> children;
        for (const auto& cls : childClasses) children.push_back(Add(cls, std::nullopt, owner));
        EXPECT_EQ(FindDataSystemView(owner), expected < 0 ? owner : children[expected])
            << PrintToString(ownerClass);
    }
}

TEST_F(DataSystemWindowsTest, CentringStopsAtOverflowAndForWindowZero) {
    CenterOnDataSystemView(0, 0);
    desktop_.workArea = {kMin, 0, kMax, 1024};
    CenterOnDataSystemView(kDialog, 0);
    EXPECT_THAT(desktop_.changes, IsEmpty());
}

TEST_F(DataSystemWindowsTest, PlaceSetsZOrderAttachesWhenAskedAndAlwaysCentres) {
    desktop_.windows[kOwner] = {"Brenmark-KVD CP Class", "Panel", 0, {0, 0, 800, 600}, {}};
    const std::tuple<std::int16_t, WindowHandle, std::vector<std::string>> cases[] = {
        {1, 0, {"zorder 7 top", "normal 7 440,362,840,662"}},
        {4, 0, {"zorder 7 topmost", "normal 7 440,362,840,662"}},
        {1, kOwner, {"zorder 7 top", "normal 7 200,150,600,450"}},
        {-1, kOwner, {"zorder 7 top", "parent 7 58", "normal 7 200,150,600,450"}},
        // Owner 1 passes "above 0" but is refused by the attachment; an owner in the upper
        // half is below 0 to the data system. Both are centred on their (empty) client area.
        {4, kNoOwner, {"zorder 7 topmost", "normal 7 -200,-150,200,150"}},
        {4,
         std::numeric_limits<WindowHandle>::max(),
         {"zorder 7 topmost", "normal 7 -200,-150,200,150"}},
    };
    for (const auto& [flags, owner, changes] : cases) {
        desktop_.changes.clear();
        PlaceDialog(flags, kDialog, owner);
        EXPECT_EQ(desktop_.changes, changes) << "flags " << flags << ", owner " << owner;
    }
}

}  // namespace
}  // namespace lumacfg
