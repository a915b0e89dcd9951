// Rectangles in test messages as "{left,top,right,bottom}".
#pragma once

#include <ostream>

#include "platform/windows.h"

namespace lumacfg::platform {

inline void PrintTo(const Rect& r, std::ostream* os) {
    *os << "{" << r.left << "," << r.top << "," << r.right << "," << r.bottom << "}";
}

}  // namespace lumacfg::platform
