#include "ui/main/sample_introduction.h"

#include "resources/string_table.h"

namespace lumacfg::ui {
namespace {

constexpr int kNoneText = 113;
constexpr int kEtvAutosamplerText = 400;
constexpr int kFiAutosamplerText = 401;

// The string of each type code 1..6.
constexpr std::array<int, 7> kTypeStrings = {kNoneText, 114, 130, 131, 154, 153, 158};

constexpr std::string_view kAsx500 = "ASX500";
constexpr std::string_view kAsx100 = "ASX100";
constexpr std::string_view kVas = "V-AS";
constexpr std::string_view kKlr8 = "KLR-8";

}  // namespace

std::string TypeText(Int16 code) {
    if (code < 1 || code > 6) return LoadResString(kNoneText);
    return LoadResString(kTypeStrings[static_cast<std::size_t>(code)]);
}

Int16 TypeCodeFromText(std::string_view text) {
    for (Int16 code = 1; code <= 6; ++code) {
        if (text == TypeText(code)) return code;
    }
    return 0;
}

std::vector<std::string> AutosamplerEntries(Int16 typeCode,
                                            const std::array<Int16, kAddonCount>& addOns) {
    const std::string none = LoadResString(kNoneText);
    if (typeCode == 3 && addOns[1] != 0) return {none};
    if (typeCode == 2 && addOns[0] != 0) return {none, LoadResString(kEtvAutosamplerText)};
    if (typeCode == 4 && addOns[2] != 0) return {LoadResString(kFiAutosamplerText)};
    if (typeCode == kOpalAutosamplerList) {
        return {none, std::string(kAsx500), std::string(kKlr8), std::string(kVas)};
    }
    return {none, std::string(kAsx500), std::string(kAsx100), std::string(kKlr8),
            std::string(kVas)};
}

Int16 AutosamplerCodeFromText(Int16 typeCode, std::string_view text) {
    if (typeCode == 2) return text == LoadResString(kEtvAutosamplerText) ? 3 : 0;
    if (typeCode == 4) return 4;
    if (text == kAsx500) return 1;
    if (text == kAsx100) return 2;
    if (text == kVas) return 5;
    if (text == kKlr8) return 6;
    return 0;
}

int AutosamplerIndexFromCode(Int16 alsType, Int16 mpm) {
    switch (alsType) {
        case 1:
        case 3:
            return 1;
        case 2:
            return 2;
        case 5:
            return mpm != 0 ? 3 : 4;
        case 6:
            return mpm != 0 ? 2 : 3;
        default:
            return 0;
    }
}

}  // namespace lumacfg::ui
