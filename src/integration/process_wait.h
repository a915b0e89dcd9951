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

    // `raiseItsWindow`: the program's window is brought to the front at the first tick that
    // finds it (a program started as a normal window shows it a moment after it starts).
    explicit ProcessWait(platform::ProcessId id, bool raiseItsWindow = false)
        : id_(id), raisePending_(raiseItsWindow) {}

    // One timer tick: true to keep waiting, false once the process has ended or cannot be
    // asked about. An ended wait stays ended.
    bool Tick();

  private:
    void RaiseItsWindow();

    platform::ProcessId id_;
    bool raisePending_;
    bool ended_ = false;
};

using Sleeper = std::function<void(std::chrono::milliseconds)>;

void SleepFor(std::chrono::milliseconds interval);

// Blocks until the process has ended: sleeps one interval before each tick, as the timer
// fires only after its first interval.
void WaitForProcess(platform::ProcessId id, const Sleeper& sleep = SleepFor);

}  // namespace lumacfg
