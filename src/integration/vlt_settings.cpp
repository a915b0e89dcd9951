#include "integration/vlt_settings.h"

#include "platform/services.h"

namespace lumacfg {
namespace {

constexpr std::size_t kStringBuffer = 255;  // strings are read into 255 bytes, NUL included

std::unique_ptr<platform::RegistryKey> OpenDataSystemKey(platform::RegistryAccess access) {
    return platform::TheRegistry().OpenKey(kDataSystemKey, access);
}

std::string ReadString(std::string_view name) {
    auto key = OpenDataSystemKey(platform::RegistryAccess::Read);
    if (!key) return {};
    std::string text = key->QueryString(name).value_or("");
    text = text.substr(0, text.find('\0'));
    if (text.size() > kStringBuffer - 1) text.resize(kStringBuffer - 1);
    return text;
}

void WriteString(std::string_view name, std::string_view text) {
    if (auto key = OpenDataSystemKey(platform::RegistryAccess::SetValue))
        key->SetString(name, text);
}

}  // namespace

std::string GetDataSystemPath() {
    return ReadString("Path");
}

std::int32_t GetVltEnabled() {
    auto key = OpenDataSystemKey(platform::RegistryAccess::Read);
    if (!key) return 0;
    return static_cast<std::int32_t>(key->QueryDword("EnableVLTIntegration").value_or(0));
}

void SetVltEnabled(std::int32_t value) {
    if (auto key = OpenDataSystemKey(platform::RegistryAccess::SetValue)) {
        key->SetDword("EnableVLTIntegration", static_cast<std::uint32_t>(value));
    }
}

std::string GetVltFolder() {
    return ReadString("VLT_LCD");
}

void SetVltFolder(std::string_view folder) {
    WriteString("VLT_LCD", folder);
}

void SetVltTempFolder() {
    auto key = OpenDataSystemKey(platform::RegistryAccess::Read);
    if (!key) return;
    auto path = key->QueryString("Path");
    key.reset();
    if (!path) return;
    std::size_t colon = path->find(':');
    if (colon == std::string::npos) return;
    WriteString("VLT_TEMP", path->substr(0, colon + 1) + "\\Corvane.ICP-MS.VLT\\");
}

}  // namespace lumacfg
