// Other programs' windows and the placement of this program's own dialogs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/processes.h"

namespace lumacfg::platform {

using WindowHandle = std::uintptr_t;  // 0 = none

struct Rect {
    std::int32_t left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const Rect&) const = default;
};

enum class ZOrder { Top, Topmost };

class WindowService {
  public:
    virtual ~WindowService() = default;
    // A top-level window of the class whose whole caption equals `caption` (any caption when
    // none is given); 0 when there is none.
    virtual WindowHandle FindTopLevel(std::string_view className,
                                      std::optional<std::string_view> caption) = 0;
    virtual std::string ClassName(WindowHandle window) = 0;
    // A top-level window that the process says is its own; 0 when there is none (yet), or where
    // the platform cannot tell.
    virtual WindowHandle FindTopLevelOfProcess(ProcessId process) {
        (void)process;
        return 0;
    }
    // First child window of `parent` with the class; 0 when none.
    virtual WindowHandle FindChild(WindowHandle parent, std::string_view className) = 0;
    virtual void SetZOrder(WindowHandle window, ZOrder order) = 0;
    virtual void SetParent(WindowHandle window, WindowHandle parent) = 0;
    virtual Rect ClientRect(WindowHandle window) = 0;
    virtual Rect WorkArea() = 0;
    // The desktop window, owner of windows that must outlive the dialog that opened them;
    // 0 where the platform has none.
    virtual WindowHandle Desktop() { return 0; }
    // The window's normal (restored) rectangle. Setting it places the window there; a backend
    // whose windows may be resized by their own program meanwhile (X11) moves the window only.
    virtual Rect NormalRect(WindowHandle window) = 0;
    virtual void SetNormalRect(WindowHandle window, const Rect& rect) = 0;
};

}  // namespace lumacfg::platform
