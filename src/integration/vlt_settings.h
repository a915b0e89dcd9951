// The data system's machine-wide values in the registry: its installation directory and
// the VLT content-management integration.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lumacfg {

inline constexpr std::string_view kDataSystemKey =
    "SOFTWARE\\Corvane Instruments\\Plasmasuite\\CurrentVersion";

std::string GetDataSystemPath();  // "Path", or ""
std::int32_t GetVltEnabled();     // "EnableVLTIntegration", or 0
void SetVltEnabled(std::int32_t value);
std::string GetVltFolder();  // "VLT_LCD", or ""
void SetVltFolder(std::string_view folder);
void SetVltTempFolder();  // "VLT_TEMP" from the drive of "Path"

}  // namespace lumacfg
