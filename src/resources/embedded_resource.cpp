#include "resources/embedded_resource.h"

#include <algorithm>

namespace lumacfg::resources {

namespace {

bool EqualNoCase(std::string_view a, std::string_view b) {
    auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return std::ranges::equal(a, b, [&](char x, char y) { return upper(x) == upper(y); });
}

}  // namespace

std::optional<std::string_view> FindEmbeddedResource(std::string_view type, std::string_view name) {
    for (const EmbeddedResource& resource : EmbeddedResources()) {
        if (EqualNoCase(resource.type, type) && EqualNoCase(resource.name, name)) {
            return resource.bytes();
        }
    }
    return std::nullopt;
}

}  // namespace lumacfg::resources
