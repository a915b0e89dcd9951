// Other programs' windows on a POSIX desktop. On X11 (when built with libX11 and a display is
// there) a top-level window is a client window of the root: class is the class part of
// WM_CLASS, caption is _NET_WM_NAME (UTF-8), else WM_NAME, both compared byte for byte.
// Without a display there are no windows: every search finds none and nothing is moved.
#include "platform/posix/backends.h"

#if defined(LUMACFG_HAVE_X11)
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <dlfcn.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <limits>
#include <vector>
#endif

namespace lumacfg::platform::posix {
namespace {

class NoWindows final : public WindowService {
  public:
    WindowHandle FindTopLevel(std::string_view, std::optional<std::string_view>) override {
        return 0;
    }
    std::string ClassName(WindowHandle) override { return {}; }
    WindowHandle FindChild(WindowHandle, std::string_view) override { return 0; }
    void SetZOrder(WindowHandle, ZOrder) override {}
    void SetParent(WindowHandle, WindowHandle) override {}
    Rect ClientRect(WindowHandle) override { return {}; }
    Rect WorkArea() override { return {}; }
    Rect NormalRect(WindowHandle) override { return {}; }
    void SetNormalRect(WindowHandle, const Rect&) override {}
};

#if defined(LUMACFG_HAVE_X11)

// libX11 is loaded when a display is named, not when the program starts: the headless front
// end, run by scripts on stations without a desktop, does not pay for loading it. The table of
// its functions is filled once and never released (trivially destroyed, like the handle).
#define LUMACFG_XLIB_FUNCTIONS(F) \
    F(XAllocSizeHints)            \
    F(XChangeProperty)            \
    F(XCloseDisplay)              \
    F(XFree)                      \
    F(XGetWMNormalHints)          \
    F(XGetWindowAttributes)       \
    F(XGetWindowProperty)         \
    F(XInternAtom)                \
    F(XMoveWindow)                \
    F(XOpenDisplay)               \
    F(XQueryTree)                 \
    F(XRaiseWindow)               \
    F(XReparentWindow)            \
    F(XSendEvent)                 \
    F(XSetErrorHandler)           \
    F(XSetWMNormalHints)          \
    F(XSync)                      \
    F(XTranslateCoordinates)

struct XLib {
#define LUMACFG_XLIB_POINTER(name) decltype(&::name) name = nullptr;
    LUMACFG_XLIB_FUNCTIONS(LUMACFG_XLIB_POINTER)
#undef LUMACFG_XLIB_POINTER
};
constinit XLib g_xlib;
constinit bool g_xlibLoaded = false;

// True when libX11 and every function used here were found.
bool LoadXLib() {
    if (g_xlibLoaded) return true;
    void* library = ::dlopen("libX11.so.6", RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) return false;
    XLib loaded;
    bool complete = true;
#define LUMACFG_XLIB_SYMBOL(name)                                               \
    loaded.name = reinterpret_cast<decltype(&::name)>(::dlsym(library, #name)); \
    complete = complete && loaded.name != nullptr;
    LUMACFG_XLIB_FUNCTIONS(LUMACFG_XLIB_SYMBOL)
#undef LUMACFG_XLIB_SYMBOL
    if (!complete) {
        ::dlclose(library);
        return false;
    }
    g_xlib = loaded;
    g_xlibLoaded = true;
    return true;
}

// Errors on this backend's connections (a window that has gone, a handle that never was) are
// ignored; the requests that need an answer then report failure. Other connections keep the
// handler they had. Each open connection is a link of an intrusive list that the connection
// itself owns, so nothing here has a destructor that could run before or after a connection's.
class X11Windows;
constinit X11Windows* g_openConnections = nullptr;
constinit XErrorHandler g_previousHandler = nullptr;

bool IsOwnDisplay(Display* display);

int IgnoreOwnErrors(Display* display, XErrorEvent* event) {
    if (IsOwnDisplay(display) || g_previousHandler == nullptr) return 0;
    return g_previousHandler(display, event);
}

struct XFreeDeleter {
    void operator()(void* data) const {
        if (data != nullptr) g_xlib.XFree(data);
    }
};

// X coordinates travel as 16-bit numbers.
int ClampCoordinate(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, -32768, 32767));
}

class X11Windows final : public WindowService {
  public:
    static std::unique_ptr<WindowService> Connect() {
        const char* name = std::getenv("DISPLAY");
        if (name == nullptr || *name == '\0' || !LoadXLib()) return nullptr;
        Display* display = g_xlib.XOpenDisplay(nullptr);
        if (display == nullptr) return nullptr;
        return std::unique_ptr<WindowService>(new X11Windows(display));
    }

    ~X11Windows() override {
        g_xlib.XCloseDisplay(display_);
        X11Windows** link = &g_openConnections;
        while (*link != this) link = &(*link)->next_;
        *link = next_;
        if (g_openConnections == nullptr) g_xlib.XSetErrorHandler(g_previousHandler);
    }
    X11Windows(const X11Windows&) = delete;
    X11Windows& operator=(const X11Windows&) = delete;

    Display* OwnDisplay() const { return display_; }
    const X11Windows* Next() const { return next_; }

    WindowHandle FindTopLevel(std::string_view className,
                              std::optional<std::string_view> caption) override {
        for (Window window : TopLevelWindows()) {
            if (ClassOf(window) != className) continue;
            if (!caption || CaptionOf(window) == *caption) return window;
        }
        return 0;
    }

    // The window's _NET_WM_PID, which a program sets on its own top-level windows.
    WindowHandle FindTopLevelOfProcess(ProcessId process) override {
        for (Window window : TopLevelWindows()) {
            const std::vector<long> pid = CardinalProperty(window, atoms_.netWmPid);
            if (!pid.empty() && static_cast<unsigned long>(pid[0]) == process) return window;
        }
        return 0;
    }

    std::string ClassName(WindowHandle window) override {
        return window == 0 ? std::string() : ClassOf(window);
    }

    WindowHandle FindChild(WindowHandle parent, std::string_view className) override {
        auto ofClass = [&](Window window) { return ClassOf(window) == className; };
        return FirstDescendant(OrRoot(parent), ofClass).value_or(0);
    }

    void SetZOrder(WindowHandle window, ZOrder order) override {
        if (window == 0) return;
        if (order == ZOrder::Topmost) AddAboveState(window);
        g_xlib.XRaiseWindow(display_, window);
        g_xlib.XSync(display_, False);
    }

    void SetParent(WindowHandle window, WindowHandle parent) override {
        XWindowAttributes attributes;
        if (window == 0 || !g_xlib.XGetWindowAttributes(display_, window, &attributes)) return;
        g_xlib.XReparentWindow(display_, window, OrRoot(parent), attributes.x, attributes.y);
        g_xlib.XSync(display_, False);
    }

    Rect ClientRect(WindowHandle window) override {
        XWindowAttributes attributes;
        if (window == 0 || !g_xlib.XGetWindowAttributes(display_, window, &attributes)) return {};
        return {0, 0, attributes.width, attributes.height};
    }

    Rect WorkArea() override {
        std::vector<long> area = CardinalProperty(root_, atoms_.workArea);
        std::vector<long> desktop = CardinalProperty(root_, atoms_.currentDesktop);
        std::size_t index = desktop.empty() ? 0 : static_cast<std::size_t>(desktop.front());
        if (area.size() >= 4 * (index + 1)) {
            const long* r = &area[4 * index];
            return RectOf(r[0], r[1], r[2], r[3]);
        }
        int screen = DefaultScreen(display_);
        return {0, 0, DisplayWidth(display_, screen), DisplayHeight(display_, screen)};
    }

    // A top-level window's rectangle is in root coordinates; a window made the child of another
    // window has its rectangle in its parent's coordinates.
    Rect NormalRect(WindowHandle window) override {
        XWindowAttributes attributes;
        if (window == 0 || !g_xlib.XGetWindowAttributes(display_, window, &attributes)) return {};
        int x = attributes.x, y = attributes.y;
        if (IsTopLevel(window)) {
            Window unused;
            g_xlib.XTranslateCoordinates(display_, window, root_, 0, 0, &x, &y, &unused);
        }
        return RectOf(x, y, attributes.width, attributes.height);
    }

    // Moves the window to the rectangle's top-left corner; the window keeps the size it has on
    // the server now. Placement only ever centres a window at its own size, and the program
    // that owns the window may be resizing it at this moment: a size read a moment ago must not
    // undo that.
    void SetNormalRect(WindowHandle window, const Rect& rect) override {
        if (window == 0) return;
        const int x = ClampCoordinate(rect.left), y = ClampCoordinate(rect.top);
        if (IsTopLevel(window)) AskForPosition(window, x, y);
        g_xlib.XMoveWindow(display_, window, x, y);
        g_xlib.XSync(display_, False);
    }

    WindowHandle Desktop() override { return root_; }

  private:
    struct Atoms {
        Atom wmState, netWmName, utf8String, workArea, currentDesktop, netWmState, above, netWmPid;
    };

    explicit X11Windows(Display* display)
        : display_(display), root_(DefaultRootWindow(display)), atoms_(InternAtoms(display)) {
        if (g_openConnections == nullptr)
            g_previousHandler = g_xlib.XSetErrorHandler(IgnoreOwnErrors);
        next_ = g_openConnections;
        g_openConnections = this;
    }

    static Atoms InternAtoms(Display* display) {
        auto atom = [display](const char* name) {
            return g_xlib.XInternAtom(display, name, False);
        };
        return {atom("WM_STATE"),
                atom("_NET_WM_NAME"),
                atom("UTF8_STRING"),
                atom("_NET_WORKAREA"),
                atom("_NET_CURRENT_DESKTOP"),
                atom("_NET_WM_STATE"),
                atom("_NET_WM_STATE_ABOVE"),
                atom("_NET_WM_PID")};
    }

    static Rect RectOf(long x, long y, long width, long height) {
        auto clamp32 = [](long v) {
            return static_cast<std::int32_t>(
                std::clamp<long>(v, std::numeric_limits<std::int32_t>::min(),
                                 std::numeric_limits<std::int32_t>::max()));
        };
        return {clamp32(x), clamp32(y), clamp32(x + width), clamp32(y + height)};
    }

    Window OrRoot(WindowHandle window) const { return window == 0 ? root_ : window; }

    struct Property {
        std::unique_ptr<unsigned char, XFreeDeleter> data;
        Atom type = None;  // None: the window has no such property
        int format = 0;
        unsigned long count = 0;
    };

    // A property of the window of the given type (or AnyPropertyType); its type is None when
    // it is missing, of another type, or the window cannot be asked.
    Property GetProperty(Window window, Atom property, Atom type, long length = 0x10000) {
        Property result;
        unsigned char* data = nullptr;
        unsigned long after = 0;
        int status =
            g_xlib.XGetWindowProperty(display_, window, property, 0, length, False, type,
                                      &result.type, &result.format, &result.count, &after, &data);
        result.data.reset(data);
        bool wanted = status == Success && (type == AnyPropertyType || result.type == type);
        if (!wanted) result.type = None;
        return result;
    }

    // The bytes of a property with 8-bit items; nullopt when it is not there.
    std::optional<std::string> ByteProperty(Window window, Atom property, Atom type) {
        Property value = GetProperty(window, property, type);
        if (value.type == None || value.format != 8 || !value.data) return std::nullopt;
        return std::string(reinterpret_cast<const char*>(value.data.get()), value.count);
    }

    // The items of a property with 32-bit items (Xlib hands them over as longs).
    std::vector<long> LongProperty(Window window, Atom property, Atom type) {
        Property value = GetProperty(window, property, type);
        if (value.type == None || value.format != 32 || !value.data) return {};
        const long* items = reinterpret_cast<const long*>(value.data.get());
        return std::vector<long>(items, items + value.count);
    }

    std::vector<long> CardinalProperty(Window window, Atom property) {
        return LongProperty(window, property, XA_CARDINAL);
    }

    bool HasProperty(Window window, Atom property) {
        return GetProperty(window, property, AnyPropertyType, 0).type != None;
    }

    // WM_CLASS holds "instance\0class\0": the class part.
    std::string ClassOf(Window window) {
        std::string hint = ByteProperty(window, XA_WM_CLASS, XA_STRING).value_or("");
        std::size_t instanceEnd = hint.find('\0');
        if (instanceEnd == std::string::npos) return {};
        std::string className = hint.substr(instanceEnd + 1);
        return className.substr(0, className.find('\0'));
    }

    std::string CaptionOf(Window window) {
        if (auto name = ByteProperty(window, atoms_.netWmName, atoms_.utf8String)) return *name;
        return ByteProperty(window, XA_WM_NAME, AnyPropertyType).value_or("");
    }

    struct Tree {
        std::optional<Window> parent;          // nullopt when the window cannot be asked
        std::vector<Window> childrenTopFirst;  // stacking order from the top down
    };

    Tree QueryTree(Window window) {
        Window root = None, parent = None;
        Window* children = nullptr;
        unsigned count = 0;
        if (!g_xlib.XQueryTree(display_, window, &root, &parent, &children, &count)) return {};
        std::unique_ptr<Window, XFreeDeleter> owned(children);
        Tree tree{parent, std::vector<Window>(children, children + count)};
        std::reverse(tree.childrenTopFirst.begin(), tree.childrenTopFirst.end());
        return tree;
    }

    std::vector<Window> ChildrenTopFirst(Window window) {
        return QueryTree(window).childrenTopFirst;
    }

    // The first descendant for which `matches` holds: nearer levels first, the top of each
    // level first.
    template <typename Predicate>
    std::optional<Window> FirstDescendant(Window ancestor, Predicate matches) {
        std::deque<Window> pending{ancestor};
        while (!pending.empty()) {
            std::vector<Window> children = ChildrenTopFirst(pending.front());
            pending.pop_front();
            for (Window child : children) {
                if (matches(child)) return child;
                pending.push_back(child);
            }
        }
        return std::nullopt;
    }

    bool IsManaged(Window window) { return HasProperty(window, atoms_.wmState); }

    // The client window of a child of the root: the window a window manager has framed (it
    // carries WM_STATE), or the child itself where nothing frames it.
    Window ClientOf(Window window) {
        if (IsManaged(window)) return window;
        return FirstDescendant(window, [this](Window w) { return IsManaged(w); }).value_or(window);
    }

    std::vector<Window> TopLevelWindows() {
        std::vector<Window> windows = ChildrenTopFirst(root_);
        for (Window& window : windows) window = ClientOf(window);
        return windows;
    }

    bool IsTopLevel(Window window) {
        return QueryTree(window).parent == root_ || IsManaged(window);
    }

    // Asks the window manager to keep the window above the others: the state is both recorded
    // for a window not yet shown and requested for one that is.
    void AddAboveState(Window window) {
        std::vector<long> states = LongProperty(window, atoms_.netWmState, XA_ATOM);
        if (std::find(states.begin(), states.end(), static_cast<long>(atoms_.above)) ==
            states.end()) {
            Atom above = atoms_.above;
            g_xlib.XChangeProperty(display_, window, atoms_.netWmState, XA_ATOM, 32, PropModeAppend,
                                   reinterpret_cast<unsigned char*>(&above), 1);
        }
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = window;
        event.xclient.message_type = atoms_.netWmState;
        event.xclient.format = 32;
        event.xclient.data.l[0] = 1;  // add
        event.xclient.data.l[1] = static_cast<long>(atoms_.above);
        event.xclient.data.l[3] = 1;  // from an application
        g_xlib.XSendEvent(display_, root_, False, SubstructureRedirectMask | SubstructureNotifyMask,
                          &event);
    }

    // A window manager places a new window where it likes unless the program asks for a place.
    // Tells the window manager where the window goes.
    void AskForPosition(Window window, int x, int y) {
        XSizeHints* hints = g_xlib.XAllocSizeHints();
        if (hints == nullptr) return;
        long supplied = 0;
        g_xlib.XGetWMNormalHints(display_, window, hints, &supplied);
        hints->flags |= USPosition;
        hints->x = x;
        hints->y = y;
        g_xlib.XSetWMNormalHints(display_, window, hints);
        g_xlib.XFree(hints);
    }

    Display* display_;
    Window root_;
    Atoms atoms_;
    X11Windows* next_ = nullptr;  // the connection opened before this one
};

bool IsOwnDisplay(Display* display) {
    for (const X11Windows* open = g_openConnections; open != nullptr; open = open->Next()) {
        if (open->OwnDisplay() == display) return true;
    }
    return false;
}

#endif

}  // namespace

std::unique_ptr<WindowService> MakeWindowService() {
#if defined(LUMACFG_HAVE_X11)
    if (auto windows = X11Windows::Connect()) return windows;
#endif
    return std::make_unique<NoWindows>();
}

}  // namespace lumacfg::platform::posix
