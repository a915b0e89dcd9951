// The X11 window service against a real X server (run under xvfb-run); skipped without a
// display. The test draws its own windows on a connection of its own.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <chrono>
#include <thread>
#include <tuple>

#include "integration/dialog_placement.h"
#include "integration/print_rect.h"
#include "integration/running_programs.h"
#include "platform/posix/backends.h"
#include "platform/services.h"

#if __has_include(<X11/Xlib.h>)
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#define LUMACFG_TEST_X11 1
#endif

namespace lumacfg::platform {
namespace {

#if defined(LUMACFG_TEST_X11)

struct Caption {
    std::optional<std::string> wmName, netWmName;
};

// A virtual X server resets when its last client leaves (tests run one per process) and
// refuses connections meanwhile: try again for a while.
Display* OpenDisplay() {
    for (int attempt = 0; attempt < 50; ++attempt) {
        if (Display* display = XOpenDisplay(nullptr)) return display;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return nullptr;
}

class X11WindowsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const char* name = std::getenv("DISPLAY");
        if (name == nullptr || *name == '\0') GTEST_SKIP() << "no X display";
        // The tests look at every top-level window of the display: one test at a time on it,
        // across the processes that run tests in parallel.
        lockFd_ = open("/tmp/lumacfg-x11-tests.lock", O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (lockFd_ >= 0) flock(lockFd_, LOCK_EX);
        display_ = OpenDisplay();
        ASSERT_NE(display_, nullptr) << "the X display " << name << " cannot be opened";
        root_ = DefaultRootWindow(display_);
        ResetServices();
        if (Windows().Desktop() == 0) GTEST_SKIP() << "built without X11";
    }

    void TearDown() override {
        ResetServices();
        if (display_ != nullptr) {
            // Newest first: a window attached to an older one goes before its new parent.
            for (auto it = created_.rbegin(); it != created_.rend(); ++it)
                XDestroyWindow(display_, *it);
            XDeleteProperty(display_, root_, XInternAtom(display_, "_NET_WORKAREA", False));
            XCloseDisplay(display_);
        }
        if (lockFd_ >= 0) close(lockFd_);
    }

    Window Create(const std::string& className, Caption caption = {}, Window parent = 0,
                  int width = 100, int height = 80, const std::string& instance = "instance") {
        Window window =
            XCreateSimpleWindow(display_, parent ? parent : root_, 5, 5, width, height, 0, 0, 0);
        XClassHint hint{const_cast<char*>(instance.c_str()), const_cast<char*>(className.c_str())};
        XSetClassHint(display_, window, &hint);
        if (caption.wmName) XStoreName(display_, window, caption.wmName->c_str());
        if (caption.netWmName) {
            XChangeProperty(display_, window, XInternAtom(display_, "_NET_WM_NAME", False),
                            XInternAtom(display_, "UTF8_STRING", False), 8, PropModeReplace,
                            reinterpret_cast<const unsigned char*>(caption.netWmName->data()),
                            static_cast<int>(caption.netWmName->size()));
        }
        XSync(display_, False);
        if (parent == 0) created_.push_back(window);
        return window;
    }

    Window ParentOf(Window window) {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned count = 0;
        XQueryTree(display_, window, &root, &parent, &children, &count);
        if (children) XFree(children);
        return parent;
    }

    void SetWorkArea(long x, long y, long width, long height) {
        long area[4] = {x, y, width, height};
        XChangeProperty(display_, root_, XInternAtom(display_, "_NET_WORKAREA", False), XA_CARDINAL,
                        32, PropModeReplace, reinterpret_cast<unsigned char*>(area), 4);
        XSync(display_, False);
    }

    int lockFd_ = -1;
    Display* display_ = nullptr;
    Window root_ = 0;
    std::vector<Window> created_;
};

TEST_F(X11WindowsTest, DetectsTheDataSystemsWindowsByClassAndWholeCaption) {
    // Class, WM_NAME and _NET_WM_NAME, instance part of WM_CLASS, and whether the window
    // betrays a running data-system program.
    const std::tuple<std::string, Caption, std::string, bool> cases[] = {
        {"QRN LUMADA Class", {"Data Analysis", std::nullopt}, "instance", true},  // any caption
        {"LUMAAMUInfoClass", {}, "instance", true},  // no caption at all
        {"ThunderRT6Main", {"Lumaseqed", std::nullopt}, "instance", true},
        {"ThunderRT6Main", {"Lumaseqed - file.s", std::nullopt}, "instance", false},
        {"ThunderRT6Main", {"Other", "RecordEditor"}, "instance", true},  // UTF-8 caption first
        {"ThunderRT6Main", {"RecordEditor", "Other"}, "instance", false},
        {"Other", {}, "QRN LUMADA Class", false},  // only the class part of WM_CLASS counts
    };
    for (const auto& [className, caption, instance, running] : cases) {
        ASSERT_FALSE(IsDataSystemRunning()) << "a data-system window is already open";
        Window window = Create(className, caption, 0, 100, 80, instance);
        EXPECT_EQ(IsDataSystemRunning(), running)
            << className << " " << caption.wmName.value_or("-") << " "
            << caption.netWmName.value_or("-");
        XDestroyWindow(display_, window);
        XSync(display_, False);
        created_.pop_back();
    }
}

TEST_F(X11WindowsTest, ClassesCaptionsChildrenAndReparenting) {
    Window panel = Create("Brenmark-KVD CP Class", {"Control Panel", std::nullopt}, 0, 900, 700);
    Window dialog = Create("lumacfg", {}, 0, 200, 100);
    AttachToDataSystemView(dialog, panel);  // no view yet: the owner itself
    EXPECT_EQ(ParentOf(dialog), panel);
    Window frame = Create("Frame", {}, panel);
    Window view = Create("TopViewWndClass", {}, frame, 600, 400);
    auto& windows = Windows();
    EXPECT_EQ(windows.ClassName(panel), "Brenmark-KVD CP Class");
    EXPECT_EQ(windows.FindTopLevel("Brenmark-KVD CP Class", "Control Panel"), panel);
    EXPECT_EQ(windows.FindTopLevel("Brenmark-KVD CP Class", "Control"), 0u);
    EXPECT_EQ(windows.FindChild(panel, "TopViewWndClass"), view);  // a grandchild
    EXPECT_EQ(windows.FindChild(panel, "ViewWndClass"), 0u);
    EXPECT_EQ(windows.ClientRect(view), (Rect{0, 0, 600, 400}));
    EXPECT_EQ(windows.Desktop(), root_);
    PlaceDialog(kPlaceAtTop | kPlaceInView, dialog, panel);
    EXPECT_EQ(ParentOf(dialog), view);
    // A child's rectangle is in its parent's coordinates: centred on the view's size.
    EXPECT_EQ(windows.NormalRect(dialog), (Rect{200, 150, 400, 250}));
}

TEST_F(X11WindowsTest, DialogsAreCentredOnTheWorkAreaOfTheDesktopOrElseTheScreen) {
    int screen = DefaultScreen(display_);
    EXPECT_EQ(Windows().WorkArea(),
              (Rect{0, 0, DisplayWidth(display_, screen), DisplayHeight(display_, screen)}));
    SetWorkArea(0, 24, 1280, 1000);
    Window dialog = Create("lumacfg", {"ICP-MS Configuration", std::nullopt}, 0, 400, 300);
    PlaceDialog(kPlaceAtTop, dialog, 0);
    EXPECT_EQ(Windows().NormalRect(dialog), (Rect{440, 350, 840, 650}));
    XWindowAttributes attributes;
    XGetWindowAttributes(display_, dialog, &attributes);
    EXPECT_EQ(attributes.x, 440);
    EXPECT_EQ(attributes.y, 350);
}

// A program's top-level window is found by the process id it sets (_NET_WM_PID).
TEST_F(X11WindowsTest, AProgramsWindowIsFoundByItsProcess) {
    Create("Plain");  // a window without a process id is never taken
    Window owned = Create("Owned");
    long pid = 424242;
    XChangeProperty(display_, owned, XInternAtom(display_, "_NET_WM_PID", False), XA_CARDINAL, 32,
                    PropModeReplace, reinterpret_cast<unsigned char*>(&pid), 1);
    XSync(display_, False);
    EXPECT_EQ(Windows().FindTopLevelOfProcess(424242), owned);
    EXPECT_EQ(Windows().FindTopLevelOfProcess(424243), 0U);
}

TEST_F(X11WindowsTest, WindowsThatDoNotExistAreHarmless) {
    Window gone = Create("Gone");
    XDestroyWindow(display_, gone);
    XSync(display_, False);
    created_.clear();
    auto& windows = Windows();
    EXPECT_EQ(windows.ClassName(gone), "");
    EXPECT_EQ(windows.FindChild(gone, "Anything"), 0u);
    EXPECT_EQ(windows.NormalRect(gone), Rect{});
    EXPECT_EQ(windows.ClientRect(gone), Rect{});
    windows.SetZOrder(gone, ZOrder::Topmost);
    windows.SetParent(gone, gone);
    windows.SetNormalRect(gone, {0, 0, 10, 10});
    PlaceDialog(kPlaceInView, gone, gone);
    EXPECT_FALSE(IsDataSystemRunning());
}

#endif

}  // namespace
}  // namespace lumacfg::platform
