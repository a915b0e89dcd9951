// A desktop held in memory: windows by handle, with every search and change recorded as a
// text line, in order.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/windows.h"

namespace lumacfg::support {

using platform::Rect;
using platform::WindowHandle;

struct FakeWindow {
    std::string className;
    std::optional<std::string> caption;  // top-level windows only
    WindowHandle parent = 0;
    Rect client{}, normal{};
    platform::ProcessId process = 0;  // the program that owns it
};

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
    WindowHandle FindTopLevelOfProcess(platform::ProcessId process) override {
        for (const auto& [handle, w] : d_.windows) {
            if (w.caption && w.process == process) return handle;
        }
        return 0;
    }
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

}  // namespace lumacfg::support
