// Placeholder until the X11 backend lands: a desktop without other programs' windows.
#include "platform/posix/backends.h"

namespace lumacfg::platform::posix {
namespace {
class NoWindows final : public WindowService {
public:
    WindowHandle FindTopLevel(std::string_view, std::optional<std::string_view>) override { return 0; }
    std::string ClassName(WindowHandle) override { return {}; }
    WindowHandle FindChild(WindowHandle, std::string_view) override { return 0; }
    void SetZOrder(WindowHandle, ZOrder) override {}
    void SetParent(WindowHandle, WindowHandle) override {}
    Rect ClientRect(WindowHandle) override { return {}; }
    Rect WorkArea() override { return {}; }
    Rect NormalRect(WindowHandle) override { return {}; }
    void SetNormalRect(WindowHandle, const Rect&) override {}
};
}  // namespace
std::unique_ptr<WindowService> MakeWindowService() { return std::make_unique<NoWindows>(); }
}  // namespace lumacfg::platform::posix
