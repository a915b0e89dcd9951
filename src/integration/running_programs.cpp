#include "integration/running_programs.h"

#include <algorithm>
#include <array>

#include "platform/services.h"

namespace lumacfg {
namespace {

constexpr std::string_view kFormsRuntimeClass = "ThunderRT6Main";

constexpr std::array<DataSystemProbe, 11> kProbes{{
    {"QRN LUMADA Class", std::nullopt},                       // data analysis
    {"Brenmark-KVD CP Class", std::nullopt},                  // instrument control panel
    {"QrdaFrameWndProc", std::nullopt},                       // frame program
    {"QRN LUMAGEN Class", std::nullopt},                      // general instrument program
    {"WindowsForms10.Window.8.app.0.215472d", std::nullopt},  // managed-forms programs
    {kFormsRuntimeClass, "Lumaseqed"},                        // sequence editor
    {kFormsRuntimeClass, "plotview"},                         // data viewer
    {kFormsRuntimeClass, "RecordEditor"},                     // database editor
    {"LUMAElementInfoClass", std::nullopt},                   // element information
    {"LUMAInterferenceInfoClass", std::nullopt},              // interference information
    {"LUMAAMUInfoClass", std::nullopt},                       // mass information
}};

}  // namespace

std::span<const DataSystemProbe> DataSystemProbes() {
    return kProbes;
}

bool IsDataSystemRunning() {
    auto& windows = platform::Windows();
    return std::any_of(kProbes.begin(), kProbes.end(), [&](const DataSystemProbe& probe) {
        return windows.FindTopLevel(probe.className, probe.caption) != 0;
    });
}

}  // namespace lumacfg
