#include "config/profile.h"

#include <algorithm>

#include "base/numbers.h"
#include "platform/services.h"

namespace lumacfg {

std::string StationProfilePath() {
    return platform::JoinPath(platform::ProgramDirectory(), kStationProfile);
}

std::size_t ProfileGet(std::string_view section, std::string_view key, std::string_view defaultText,
                       std::string& buffer, std::size_t size) {
    if (buffer.size() < size) buffer.resize(size, '\0');
    auto read =
        platform::Profiles().GetString(StationProfilePath(), section, key, defaultText, size);
    std::copy(read.text.begin(), read.text.end(), buffer.begin());
    if (read.count < size) buffer[read.count] = '\0';
    return read.count;
}

int ProfileSet(std::string_view section, std::string_view key, std::string_view value) {
    return platform::Profiles().WriteString(StationProfilePath(), section, key, value) ? 1 : 0;
}

int ProfileDelete(std::string_view section, std::string_view key) {
    return platform::Profiles().WriteString(StationProfilePath(), section, key, std::nullopt) ? 1
                                                                                              : 0;
}

std::optional<std::string> ReadSingleValue(std::string_view section, std::string_view key,
                                           std::string_view defaultText) {
    std::string buffer(kSingleValueSize, '\0');
    const std::string untouched = buffer;
    std::size_t count = ProfileGet(section, key, defaultText, buffer, kSingleValueSize);
    if (buffer == untouched || count < 1) return std::nullopt;
    return buffer.substr(0, count);
}

int ReadProfileValue(std::string_view section, std::string_view key, std::string_view defaultText,
                     std::string& value, std::string_view file) {
    constexpr std::size_t kSize = 512;
    auto read = platform::Profiles().GetString(file, section, key, defaultText, kSize);
    value = read.count < 1 ? std::string{} : read.text.substr(0, read.text.find('\0'));
    return AnsiByteLength(value);
}

int SplitList(std::string_view text, std::span<std::string> list, std::string_view delimiter) {
    if (text.empty() || list.empty()) return 0;
    const int upper = static_cast<int>(list.size()) - 1;  // the last slot is never filled
    std::string_view rest = text;
    for (int i = 0; i < upper; ++i) {
        std::size_t found = delimiter.empty() ? std::string_view::npos : rest.find(delimiter);
        if (found == std::string_view::npos) {
            list[i] = std::string(rest);
            return i + 1;
        }
        list[i] = std::string(rest.substr(0, found));
        std::string_view fromDelimiter = rest.substr(found);
        if (fromDelimiter.size() <= delimiter.size()) return i + 1;
        rest = fromDelimiter.substr(delimiter.size());
    }
    return upper;
}

void ParseIntList(std::string_view text, std::span<std::int16_t> values) {
    std::fill(values.begin(), values.end(), 0);
    if (text.find_first_not_of('\0') == std::string_view::npos) return;
    std::size_t position = 0;
    for (auto& value : values) {
        std::size_t comma = text.find(',', position);
        if (comma == std::string_view::npos) comma = text.size();
        if (comma <= position) continue;  // empty field: the position stays, so do the zeros
        value = LenientInt16(text.substr(position, comma - position));
        position = comma + 1;
    }
}

}  // namespace lumacfg
