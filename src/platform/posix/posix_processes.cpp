// Placeholder until the process backend lands.
#include "platform/posix/backends.h"

namespace lumacfg::platform::posix {
namespace {
class NoProcesses final : public ProcessService {
public:
    std::optional<ProcessId> Start(std::string_view) override { return std::nullopt; }
    bool IsRunning(ProcessId) override { return false; }
};
class AlwaysFirst final : public InstanceLock {
public:
    bool Acquire() override { return true; }
};
}  // namespace
std::unique_ptr<ProcessService> MakeProcessService() { return std::make_unique<NoProcesses>(); }
std::unique_ptr<InstanceLock> MakeInstanceLock() { return std::make_unique<AlwaysFirst>(); }
}  // namespace lumacfg::platform::posix
