// Saving the configuration record into the station profile "lumagen.ist".
#pragma once

namespace lumacfg {

// Writes every key of the record in the fixed order and formats; the station profile is
// written once. Also publishes the configuration identifier and the VLT settings.
void SaveConfiguration();

}  // namespace lumacfg
