#include "ui/main/connection_fields.h"

#include <algorithm>
#include <cstdio>

#include "base/numbers.h"
#include "resources/string_table.h"

namespace lumacfg::ui {
namespace {

constexpr int kEmptyMassText = 126;
constexpr double kLowestMass = 2;
constexpr double kHighestMass = 260;

// The number in the form the data system shows a number it was given: at most 15 significant
// digits, no trailing zeros.
std::string GeneralNumberText(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", value);
    return text;
}

}  // namespace

std::array<std::string, 4> OctetTexts(std::string_view address) {
    std::array<std::string, 4> octets = {"0", "0", "0", "0"};
    std::size_t position = 0;
    for (std::string& octet : octets) {
        if (position > address.size()) break;
        std::size_t dot = address.find('.', position);
        if (dot == std::string_view::npos) dot = address.size();
        octet = std::string(address.substr(position, dot - position));
        position = dot + 1;
    }
    return octets;
}

int OctetValue(std::string_view text) {
    const double value = std::clamp(LenientNumber(text), -32768.0, 32767.0);
    return RoundToInt16(value).value_or(0);
}

std::string CleanOctet(std::string_view text) {
    if (text.empty()) return "0";
    return IntText(std::clamp(OctetValue(text), 0, 255));
}

bool IpAddressAccepted(const std::array<int, 4>& octets) {
    auto all = [&](int from, int value) {
        return std::all_of(octets.begin() + from, octets.end(), [&](int o) { return o == value; });
    };
    if (all(0, 0) || all(0, 255)) return false;
    if (octets[0] == 127 && octets[1] == 0 && octets[2] == 0 && (octets[3] == 0 || octets[3] == 1))
        return false;
    int network = 0;  // octets of the network part, by the leading one-bits of the first octet
    if (octets[0] < 128) {
        network = 1;
    } else if (octets[0] < 192) {
        network = 2;
    } else if (octets[0] < 224) {
        network = 3;
    } else {
        return false;
    }
    return !all(network, 0) && !all(network, 255);
}

std::string EmptyMassText() {
    return LoadResString(kEmptyMassText);
}

std::string CleanMass(std::string_view text) {
    const double value = LenientNumber(text);
    if (value < kLowestMass || value > kHighestMass) return EmptyMassText();
    return GeneralNumberText(value);
}

}  // namespace lumacfg::ui
