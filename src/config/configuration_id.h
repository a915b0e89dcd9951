// The configuration identifier: the security state published to the other programs of the
// data system as the registry value "ConfigurationID" (a clock stamp in the high half, a check
// derived from the stamp and the state in the low half).
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace lumacfg {

inline constexpr std::int32_t kConfigurationIdFailed = -100;

// The 32-bit value written for a mode at a moment: 1 on, -1 and -2 the third state, any
// other mode off.
std::uint32_t ComposeConfigurationID(std::int16_t mode, const platform::LocalTime& time);

// The state a stored value carries: 1, 0 or -1.
std::int32_t DecodeConfigurationID(std::uint32_t value);

// Writes the value for the mode at the clock's local time: 1, or -100 on a registry failure.
std::int32_t WriteConfigurationID(std::int16_t mode);

// The state read back: 1, 0 or -1, or -100 on a registry failure.
std::int32_t ReadConfigurationID();

}  // namespace lumacfg
