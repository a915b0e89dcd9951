// The codes of the sample introduction types and the autosampler models, and how the entries
// of the main window's two lists map to them. Entries are texts of the string table (and the
// model names), so a list entry is always compared with the text the table holds now.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "config/config_record.h"

namespace lumacfg::ui {

// The type list used while the OPAL system is the sample introduction.
inline constexpr Int16 kOpalAutosamplerList = 100;
inline constexpr Int16 kOpalType = 5;
inline constexpr Int16 kLcGcType = 6;

// The text of a sample introduction type (any code outside 1..6 is "None").
std::string TypeText(Int16 code);
// The code of a type list entry: an exact, case-sensitive comparison; any other text is 0.
Int16 TypeCodeFromText(std::string_view text);

// The autosampler entries offered for a type code (kOpalAutosamplerList for the OPAL list).
std::vector<std::string> AutosamplerEntries(Int16 typeCode,
                                            const std::array<Int16, kAddonCount>& addOns);
// The autosampler code of an entry text, read with the type whose list it is in.
Int16 AutosamplerCodeFromText(Int16 typeCode, std::string_view text);
// The entry chosen for a recorded autosampler when the window is filled.
int AutosamplerIndexFromCode(Int16 alsType, Int16 mpm);

}  // namespace lumacfg::ui
