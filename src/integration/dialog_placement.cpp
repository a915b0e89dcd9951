#include "integration/dialog_placement.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

struct ViewClass {
    std::string_view owner;
    std::string_view view;
};

constexpr std::array<ViewClass, 2> kViewClasses{{
    {"Brenmark-KVD CP Class", "TopViewWndClass"},
    {"QRN LUMADA Class", "ViewWndClass"},
}};

// A class name as the platform hands it back into a buffer of 128: cut at the first NUL.
constexpr std::size_t kClassBuffer = 128;

std::string FetchedClassName(WindowHandle window) {
    std::string name = platform::Windows().ClassName(window);
    name.resize(std::min({name.size(), name.find('\0'), kClassBuffer - 1}));
    return name;
}

std::optional<std::int32_t> Checked(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> Span(std::int32_t low, std::int32_t high) {
    return Checked(std::int64_t{high} - low);
}

// The new low edge of one axis: round(reference span / 2 - window span / 2).
std::optional<std::int32_t> CenteredStart(std::int32_t referenceSpan, std::int32_t windowSpan) {
    return RoundToInt32(referenceSpan / 2.0 - windowSpan / 2.0);
}

struct Axis {
    std::int32_t start, end;
};

std::optional<Axis> CenterAxis(std::int32_t low, std::int32_t high, std::int32_t referenceLow,
                               std::int32_t referenceHigh) {
    auto size = Span(low, high);
    auto referenceSize = Span(referenceLow, referenceHigh);
    if (!size || !referenceSize) return std::nullopt;
    auto start = CenteredStart(*referenceSize, *size);
    if (!start) return std::nullopt;
    auto end = Checked(std::int64_t{*start} + *size);
    if (!end) return std::nullopt;
    return Axis{*start, *end};
}

}  // namespace

WindowHandle FindDataSystemView(WindowHandle owner) {
    std::string ownerClass = FetchedClassName(owner);
    for (const ViewClass& known : kViewClasses) {
        if (!SameTextIgnoringCase(ownerClass, known.owner)) continue;
        WindowHandle view = platform::Windows().FindChild(owner, known.view);
        return view != 0 ? view : owner;
    }
    return owner;
}

std::optional<Rect> CenteredRect(const Rect& window, const Rect& reference) {
    auto horizontal = CenterAxis(window.left, window.right, reference.left, reference.right);
    auto vertical = CenterAxis(window.top, window.bottom, reference.top, reference.bottom);
    if (!horizontal || !vertical) return std::nullopt;
    return Rect{horizontal->start, vertical->start, horizontal->end, vertical->end};
}

void CenterOnDataSystemView(WindowHandle window, WindowHandle owner) {
    if (window == 0) return;
    auto& windows = platform::Windows();
    Rect reference =
        owner != 0 ? windows.ClientRect(FindDataSystemView(owner)) : windows.WorkArea();
    if (auto centred = CenteredRect(windows.NormalRect(window), reference)) {
        windows.SetNormalRect(window, *centred);
    }
}

void AttachToDataSystemView(WindowHandle window, WindowHandle owner) {
    if (window == 0 || owner == kNoOwner) return;
    platform::Windows().SetParent(window, FindDataSystemView(owner));
}

void PlaceDialog(std::int16_t flags, WindowHandle dialog, WindowHandle owner) {
    bool atTop = (flags & kPlaceAtTop) != 0;
    platform::Windows().SetZOrder(dialog,
                                  atTop ? platform::ZOrder::Top : platform::ZOrder::Topmost);
    // Handles are signed on the data system's side: "above 0" excludes the upper half.
    bool ownerAboveZero = static_cast<std::intptr_t>(owner) > 0;
    if (ownerAboveZero && (flags & kPlaceInView) != 0) AttachToDataSystemView(dialog, owner);
    CenterOnDataSystemView(dialog, owner);
}

}  // namespace lumacfg
