// Whether a program of the data system is running: the configuration must not be changed
// while one of them has a window open.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace lumacfg {

// A top-level window that betrays a running data-system program: its class and, where the
// class is shared with programs outside the data system, its whole caption.
struct DataSystemProbe {
    std::string_view className;
    std::optional<std::string_view> caption;  // nullopt: any caption
};

// The probes in the order they are tried.
std::span<const DataSystemProbe> DataSystemProbes();

// True at the first probe that finds a top-level window, false when none does.
bool IsDataSystemRunning();

}  // namespace lumacfg
