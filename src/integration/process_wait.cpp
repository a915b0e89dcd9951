#include "integration/process_wait.h"

#include <thread>

#include "platform/services.h"

namespace lumacfg {

bool ProcessWait::Tick() {
    if (!ended_ && !platform::Processes().IsRunning(id_)) ended_ = true;
    return !ended_;
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
