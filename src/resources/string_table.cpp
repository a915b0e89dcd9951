#include "resources/string_table.h"

#include <algorithm>
#include <unordered_map>

#include "resources/embedded_resource.h"
#include "resources/resource_text.h"

namespace lumacfg {

namespace {

// Read once, on first use. A faulty line of the compiled-in file is skipped here; the tests
// hold the files to their format.
const std::unordered_map<int, std::string>& StringTable() {
    static const std::unordered_map<int, std::string> table = [] {
        std::unordered_map<int, std::string> texts;
        const auto file = resources::FindEmbeddedResource(resources::kStringTableType,
                                                          resources::kStringTableName);
        if (file) {
            for (auto& entry : resources::ParseResourceText(*file).texts) {
                texts.emplace(entry.number, std::move(entry.text));
            }
        }
        return texts;
    }();
    return table;
}

}  // namespace

std::string LoadResString(int id) {
    const auto& table = StringTable();
    const auto found = table.find(id);
    return found == table.end() ? std::string{} : found->second;
}

std::vector<std::string> LoadCaptionBlock(std::string_view name) {
    const auto file = resources::FindEmbeddedResource(resources::kCaptionBlockType, name);
    if (!file) return {};
    auto entries = resources::ParseResourceText(*file).texts;
    std::ranges::stable_sort(entries, {}, &resources::ResourceText::number);
    std::vector<std::string> texts;
    texts.reserve(entries.size());
    for (auto& entry : entries) texts.push_back(std::move(entry.text));
    return texts;
}

}  // namespace lumacfg
