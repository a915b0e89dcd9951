#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace lumacfg::platform {

using ProcessId = std::uint32_t;

class ProcessService {
  public:
    virtual ~ProcessService() = default;
    // Starts a command line as a detached process; nullopt when it cannot be started.
    virtual std::optional<ProcessId> Start(std::string_view commandLine) = 0;
    // True while the process still runs; false when it has ended or cannot be asked.
    virtual bool IsRunning(ProcessId id) = 0;
};

// One argument of a command line as Start reads it (quoted where the platform needs it).
std::string QuotedArgument(std::string_view argument);

// Held for the life of the process: the single-instance lock.
class InstanceLock {
  public:
    virtual ~InstanceLock() = default;
    // True when this is the only running copy (the lock is then kept until exit).
    virtual bool Acquire() = 0;
};

}  // namespace lumacfg::platform
