#include "config/configuration_id.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#include "integration/vlt_settings.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

std::int16_t Wrap16(int value) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
}

std::int16_t Not16(std::int16_t value) {
    return static_cast<std::int16_t>(~value);
}

std::string HexDigits(std::uint32_t value) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%X", value);
    return digits;
}

}  // namespace

std::uint32_t ComposeConfigurationID(std::int16_t mode, const platform::LocalTime& time) {
    const std::int16_t stamp =
        Wrap16(time.year + time.month + time.day + time.hour + time.minute + time.second);
    std::int16_t check = Not16(stamp);
    if (mode == -1 || mode == -2) {
        check = Wrap16(check - 2);
    } else if (mode != 1) {
        check = Wrap16(check - 1);
    }
    // The stamp's hexadecimal digits, then exactly four digits of the check, padded on the
    // left with "F" (never "0") when the check is shorter.
    std::string checkDigits = HexDigits(static_cast<std::uint16_t>(check));
    if (checkDigits.size() < 4) checkDigits.insert(0, 4 - checkDigits.size(), 'F');
    std::string text = HexDigits(static_cast<std::uint16_t>(stamp)) + checkDigits;
    return static_cast<std::uint32_t>(std::strtoull(text.c_str(), nullptr, 16));
}

std::int32_t DecodeConfigurationID(std::uint32_t value) {
    const auto high = static_cast<std::int16_t>(value >> 16);
    const auto low = static_cast<std::int16_t>(value & 0xFFFFU);
    if (high == 0 || high == -1) return 0;
    if (high == Not16(low)) return 1;
    if (high == Not16(Wrap16(low + 2))) return -1;
    return 0;
}

std::int32_t WriteConfigurationID(std::int16_t mode) {
    std::uint32_t value = ComposeConfigurationID(mode, platform::TheClock().Now());
    auto key = platform::TheRegistry().OpenKey(kDataSystemKey, platform::RegistryAccess::SetValue);
    if (!key || !key->SetDword("ConfigurationID", value)) return kConfigurationIdFailed;
    return 1;
}

std::int32_t ReadConfigurationID() {
    auto key = platform::TheRegistry().OpenKey(kDataSystemKey, platform::RegistryAccess::Read);
    if (!key) return kConfigurationIdFailed;
    auto value = key->QueryDword("ConfigurationID");
    if (!value) return kConfigurationIdFailed;
    return DecodeConfigurationID(*value);
}

}  // namespace lumacfg
