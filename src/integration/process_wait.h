// The wait window's poll of a program this one has started: every 300 ms it asks whether the
// process still runs, and the wait ends at the first answer "no".
#pragma once

#include <chrono>
#include <functional>

#include "platform/processes.h"

namespace lumacfg {

class ProcessWait {
  public:
    static constexpr std::chrono::milliseconds kInterval{300};

    explicit ProcessWait(platform::ProcessId id) : id_(id) {}

    // One timer tick: true to keep waiting, false once the process has ended or cannot be
    // asked about. An ended wait stays ended.
    bool Tick();

  private:
    platform::ProcessId id_;
    bool ended_ = false;
};

using Sleeper = std::function<void(std::chrono::milliseconds)>;

void SleepFor(std::chrono::milliseconds interval);

// Blocks until the process has ended: sleeps one interval before each tick, as the timer
// fires only after its first interval.
void WaitForProcess(platform::ProcessId id, const Sleeper& sleep = SleepFor);

}  // namespace lumacfg
