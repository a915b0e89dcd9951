// Loading the configuration record from the station profile "lumagen.ist".
#pragma once

#include <cstdint>

namespace lumacfg {

// Fills the whole record: defaults first, then every key found, with the load's fallbacks.
void LoadConfiguration();

// Parts of the load that the QC mode and OPAL selections run on their own.
void LoadQcMode();
void LoadSampleTiming();
void LoadOpalApplication();

// The value of "_PPUMP" (0 when missing or empty).
std::int16_t ReadPumpKind();

}  // namespace lumacfg
