// Resource files compiled into the program: the string table and the caption blocks, each
// found by its resource type and name. The bytes are those of the file as it stands in
// src/resources/ (see resources.cmake).
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace lumacfg::resources {

inline constexpr std::string_view kStringTableType = "STRINGTABLE";
inline constexpr std::string_view kStringTableName = "STRINGS";
inline constexpr std::string_view kCaptionBlockType = "CFG_RES";

struct EmbeddedResource {
    std::string_view type;
    std::string_view name;
    std::string_view (*bytes)();
};

// Every resource compiled in (defined by the generated index).
std::span<const EmbeddedResource> EmbeddedResources();

// The bytes of the resource with this type and name; type and name compare without regard to
// ASCII case, as resource names do on the data system's platform. Unknown: std::nullopt.
std::optional<std::string_view> FindEmbeddedResource(std::string_view type, std::string_view name);

}  // namespace lumacfg::resources
