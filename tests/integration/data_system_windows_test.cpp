// The running-program check and dialog placement over a desktop held in memory.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>

#include "integration/dialog_placement.h"
#include "integration/print_rect.h"
#include "integration/running_programs.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

using ::testing::IsEmpty;

struct FakeWindow {
    std::string className;
    std::optional<std::string> caption;  // top-level windows only
    WindowHandle parent = 0;
    Rect client{}, normal{};
};

// Windows by handle; searches and changes are recorded as text lines, in order.
struct FakeDesktop {
    std::map<WindowHandle, FakeWindow> windows;
    Rect workArea{0, 0, 1280, 1024};
    std::vector<std::string> searches, changes;
};

class FakeWindows final : public platform::WindowService {
  public:
    explicit FakeWindows(FakeDesktop& desktop) : d_(desktop) {}

    WindowHandle FindTopLevel(std::string_view cls,
                              std::optional<std::string_view> caption) override {
        d_.searches.push_back(std::string(cls) + "|" + std::string(caption.value_or("*")));
        for (const auto& [handle, w] : d_.windows) {
            if (w.caption && w.className == cls && (!caption || *w.caption == *caption))
                return handle;
        }
        return 0;
    }
    std::string ClassName(WindowHandle window) override { return Find(window).className; }
    WindowHandle FindChild(WindowHandle parent, std::string_view cls) override {
        for (const auto& [handle, w] : d_.windows) {
            if (w.parent == parent && w.className == cls) return handle;
        }
        return 0;
    }
    void SetZOrder(WindowHandle window, platform::ZOrder order) override {
        Record("zorder", window, order == platform::ZOrder::Top ? "top" : "topmost");
    }
    void SetParent(WindowHandle window, WindowHandle parent) override {
        Record("parent", window, std::to_string(parent));
    }
    Rect ClientRect(WindowHandle window) override { return Find(window).client; }
    Rect WorkArea() override { return d_.workArea; }
    Rect NormalRect(WindowHandle window) override { return Find(window).normal; }
    void SetNormalRect(WindowHandle window, const Rect& r) override {
        Record("normal", window,
               std::to_string(r.left) + "," + std::to_string(r.top) + "," +
                   std::to_string(r.right) + "," + std::to_string(r.bottom));
    }

  private:
    FakeWindow Find(WindowHandle window) const {
        auto found = d_.windows.find(window);
        return found == d_.windows.end() ? FakeWindow{} : found->second;
    }
    void Record(const char* what, WindowHandle window, const std::string& how) {
        d_.changes.push_back(std::string(what) + " " + std::to_string(window) + " " + how);
    }

    FakeDesktop& d_;
};

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

    WindowHandle Add(std::string cls, std::optional<std::string> caption, WindowHandle parent = 0,
                     Rect client = {}) {
        WindowHandle handle = 100 + desktop_.windows.size();
        desktop_.windows[handle] = {std::move(cls), std::move(caption), parent, client, {}};
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
    // The whole caption must match: an editor with a file open is not the sequence editor.
    Add("ThunderRT6Main", "Lumaseqed - file.s");
    Add("ViewWndClass", "");
    EXPECT_FALSE(IsDataSystemRunning());
    EXPECT_EQ(desktop_.searches, probes);

    desktop_.searches.clear();
    Add("ThunderRT6Main", "plotview");
    Add("LUMAAMUInfoClass", "Masses");
    EXPECT_TRUE(IsDataSystemRunning());
    EXPECT_EQ(desktop_.searches, std::vector(probes.begin(), probes.begin() + 7));
}

struct CenterCase {
    Rect window, reference;
    std::optional<Rect> expected;
};

void PrintTo(const CenterCase& c, std::ostream* os) {
    platform::PrintTo(c.window, os);
    *os << " on ";
    platform::PrintTo(c.reference, os);
}

class CenteredRectTest : public ::testing::TestWithParam<CenterCase> {};

TEST_P(CenteredRectTest, CentresOnTheReferenceSizeAtTheOrigin) {
    EXPECT_EQ(CenteredRect(GetParam().window, GetParam().reference), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CenteredRectTest,
    ::testing::Values(
        CenterCase{{0, 0, 400, 300}, {0, 0, 1280, 1024}, Rect{440, 362, 840, 662}},
        // Neither the window's nor the reference's position counts.
        CenterCase{{-50, 700, 350, 1000}, {100, 30, 1380, 1054}, Rect{440, 362, 840, 662}},
        // Halves go to the even neighbour: 440.5 -> 440, 511.5 -> 512, 439.5 -> 440.
        CenterCase{{0, 0, 400, 300}, {0, 0, 1281, 1323}, Rect{440, 512, 840, 812}},
        CenterCase{{0, 0, 401, 301}, {0, 0, 1280, 1024}, Rect{440, 362, 841, 663}},
        CenterCase{{0, 0, 2000, 1100}, {0, 0, 1280, 1024}, Rect{-360, -38, 1640, 1062}},
        CenterCase{{0, 0, 400, 300}, {kMin, 0, kMax, 1024}, std::nullopt},
        CenterCase{{0, kMin, 400, 1}, {0, 0, 1280, 1024}, std::nullopt},
        CenterCase{{0, 0, kMin, 300}, {0, 0, kMax, 1024}, std::nullopt}));

// An owner's view: the owner's class, its children's classes, and which child the lookup
// gives (-1: the owner itself).
struct ViewCase {
    std::string ownerClass;
    std::vector<std::string> children;
    int expected;
};

void PrintTo(const ViewCase& c, std::ostream* os) {
    *os << "owner class '";
    for (char ch : c.ownerClass) *os << (ch == '\0' ? std::string("<NUL>") : std::string(1, ch));
    *os << "', " << c.children.size() << " children";
}

class DataSystemViewTest : public DataSystemWindowsTest,
                           public ::testing::WithParamInterface<ViewCase> {};

TEST_P(DataSystemViewTest, FindsTheViewOfTheKnownMainWindows) {
    WindowHandle owner = Add(GetParam().ownerClass, std::nullopt);
    std::vector<WindowHandle> children;
    for (const auto& cls : GetParam().children) children.push_back(Add(cls, std::nullopt, owner));
    EXPECT_EQ(FindDataSystemView(owner),
              GetParam().expected < 0 ? owner : children[GetParam().expected]);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, DataSystemViewTest,
    ::testing::Values(ViewCase{"Brenmark-KVD CP Class", {"Toolbar", "TopViewWndClass"}, 1},
                      ViewCase{"qrn lumada CLASS", {"TopViewWndClass", "ViewWndClass"}, 1},
                      ViewCase{std::string("QRN LUMADA Class\0rest", 21), {"ViewWndClass"}, 0},
                      ViewCase{"Brenmark-KVD CP Class", {"ViewWndClass"}, -1},
                      ViewCase{"TopViewWndClass", {"TopViewWndClass"}, -1},
                      ViewCase{"QRN LUMADA Class ", {"ViewWndClass"}, -1}));

TEST_F(DataSystemWindowsTest, CentringStopsAtOverflowAndForWindowZero) {
    CenterOnDataSystemView(0, 0);
    desktop_.workArea = {kMin, 0, kMax, 1024};
    CenterOnDataSystemView(kDialog, 0);
    EXPECT_THAT(desktop_.changes, IsEmpty());
}

struct PlaceCase {
    std::int16_t flags;
    WindowHandle owner;
    std::vector<std::string> changes;
};

void PrintTo(const PlaceCase& c, std::ostream* os) {
    *os << "flags " << c.flags << ", owner " << c.owner;
}

class PlaceDialogTest : public DataSystemWindowsTest,
                        public ::testing::WithParamInterface<PlaceCase> {};

TEST_P(PlaceDialogTest, SetsZOrderAttachesWhenAskedAndAlwaysCentres) {
    desktop_.windows[kOwner] = {"Brenmark-KVD CP Class", "Panel", 0, {0, 0, 800, 600}, {}};
    PlaceDialog(GetParam().flags, kDialog, GetParam().owner);
    EXPECT_EQ(desktop_.changes, GetParam().changes);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PlaceDialogTest,
    ::testing::Values(
        PlaceCase{1, 0, {"zorder 7 top", "normal 7 440,362,840,662"}},
        PlaceCase{4, 0, {"zorder 7 topmost", "normal 7 440,362,840,662"}},
        PlaceCase{1, kOwner, {"zorder 7 top", "normal 7 200,150,600,450"}},
        PlaceCase{-1, kOwner, {"zorder 7 top", "parent 7 58", "normal 7 200,150,600,450"}},
        // Owner 1 passes "above 0" but is refused by the attachment; an owner in the upper
        // half is below 0 to the data system. Both are centred on their (empty) client area.
        PlaceCase{4, kNoOwner, {"zorder 7 topmost", "normal 7 -200,-150,200,150"}},
        PlaceCase{4,
                  std::numeric_limits<WindowHandle>::max(),
                  {"zorder 7 topmost", "normal 7 -200,-150,200,150"}}));

}  // namespace
}  // namespace lumacfg
