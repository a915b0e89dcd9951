#include "integration/process_wait.h"

#include <thread>

#include "platform/services.h"

namespace lumacfg {

bool ProcessWait::Tick() {
    if (!ended_ && !platform::Processes().IsRunning(id_)) ended_ = true;
    if (!ended_ && raisePending_) RaiseItsWindow();
    return !ended_;
}

void ProcessWait::RaiseItsWindow() {
    platform::WindowService& windows = platform::Windows();
    if (const platform::WindowHandle window = windows.FindTopLevelOfProcess(id_)) {
        windows.SetZOrder(window, platform::ZOrder::Top);
        raisePending_ = false;
    }
}

void SleepFor(std::chrono::milliseconds interval) {
    std::this_thread::sleep_for(interval);
}

void WaitForProcess(platform::ProcessId id, const Sleeper& sleep) {
    ProcessWait wait(id);
    do {
        sleep(ProcessWait::kInterval);
    } while (wait.Tick());
}

}  // namespace lumacfg
