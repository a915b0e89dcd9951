// Saving the configuration record into the station profile "lumagen.ist".
#pragma once

#include <string_view>

namespace lumacfg {

// Writes every key of the record in the fixed order and formats; the station profile is
// written once. Also publishes the configuration identifier and the VLT settings.
void SaveConfiguration();

// Name of the device that stands for an autosampler type in the device table ("" for none).
std::string_view AutosamplerDeviceName(int alsType);

}  // namespace lumacfg
