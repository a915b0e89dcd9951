// Placement of this program's dialogs: z-order, an optional parent inside the data system's
// view window, and centring.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/windows.h"

namespace lumacfg {

using platform::Rect;
using platform::WindowHandle;

// Bits of the PlaceDialog flags, tested independently.
inline constexpr std::int16_t kPlaceAtTop = 1;   // clear: topmost instead
inline constexpr std::int16_t kPlaceInView = 4;  // with an owner above 0: child of its view

// The owner handle that stands for "no owner" in AttachToDataSystemView (distinct from 0).
inline constexpr WindowHandle kNoOwner = 1;

// The data system's view inside an owner window: for the control panel and data analysis
// main windows, their first child of the view class; for any other owner, or when that child
// is missing, the owner itself.
WindowHandle FindDataSystemView(WindowHandle owner);

// Sets the dialog's z-order, attaches it to the owner's view when the flags ask for it, and
// always centres it.
void PlaceDialog(std::int16_t flags, WindowHandle dialog, WindowHandle owner);

// Centres the window on an area the size of the owner's view (its client rectangle) or, without
// an owner, of the desktop work area. The area is placed at the origin of the window's
// coordinates; the reference's own position is not added.
void CenterOnDataSystemView(WindowHandle window, WindowHandle owner);

// Makes the owner's view the parent of the window. Nothing for window 0 or owner kNoOwner.
void AttachToDataSystemView(WindowHandle window, WindowHandle owner);

// The centring arithmetic: `window` (a normal rectangle) moved so that it is centred on a
// rectangle of the reference's size at the origin, halves rounded to the even neighbour.
// A result or intermediate width outside the 32-bit range is reported as nullopt: the caller
// then leaves the window where it is, as the routine stops at the error before it writes.
std::optional<Rect> CenteredRect(const Rect& window, const Rect& reference);

}  // namespace lumacfg
