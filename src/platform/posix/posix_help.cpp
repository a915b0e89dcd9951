// Placeholder until the help viewer backend lands.
#include "platform/posix/backends.h"

namespace lumacfg::platform::posix {
namespace {
class NoHelp final : public HelpViewer {
public:
    std::intptr_t CompiledHelp(std::uintptr_t, std::string_view, std::uint32_t, std::intptr_t) override { return 0; }
    bool ClassicHelp(std::uintptr_t, std::string_view, std::uint32_t, std::intptr_t) override { return false; }
};
}  // namespace
std::unique_ptr<HelpViewer> MakeHelpViewer() { return std::make_unique<NoHelp>(); }
}  // namespace lumacfg::platform::posix
