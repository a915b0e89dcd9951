#include "config/run_type.h"

#include <array>
#include <span>
#include <string>

#include "base/numbers.h"
#include "config/config_record.h"
#include "config/profile.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

constexpr std::string_view kStationSection = "WSX,1";
constexpr std::string_view kRunTypeFile = "runtype.ini";
constexpr std::string_view kErrorSection = "ERRORACTION";
constexpr std::string_view kKeywordSection = "Keywords";
constexpr std::string_view kKeywordKey = "Keywords";
constexpr std::size_t kPathBuffer = 260;
constexpr std::size_t kKeywordSlots = 31;     // slot 30 is never filled by the split
constexpr std::size_t kErrorFieldSlots = 11;  // the code, the action and any further fields

// Where the data system runs from: "_EXEPATH$" used as stored (it is kept with its closing
// backslash), else the standard program directory under the root.
std::string RunTypeDirectory() {
    std::string buffer(kPathBuffer, '\0');
    std::size_t count = ProfileGet(kStationSection, "_EXEPATH$", "", buffer, kPathBuffer);
    if (count >= 1) return buffer.substr(0, count);
    return Config().ROOT_PATH + "\\LUMAEXE\\";
}

std::string QcModeRunTypeFile() {
    const ConfigRecord& record = Config();
    return record.QCMDPATH + record.QCMDFILE + "\\" + std::string(kRunTypeFile);
}

// True when the stored error action names actionName as its second field.
bool NamesAction(std::string_view entry, std::string_view actionName) {
    std::array<std::string, kErrorFieldSlots> fields;
    return SplitList(entry, fields, ",") >= 2 && fields[1] == actionName;
}

std::string JoinList(std::span<const std::string> entries) {
    std::string text;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i > 0) text += ',';
        text += entries[i];
    }
    return text;
}

}  // namespace

void PrepareRunType() {
    ProfileDelete(kStationSection, "_DOQCCHECK");
    const std::string copy = RunTypeDirectory() + std::string(kRunTypeFile);
    platform::Profiles().CopyFile(QcModeRunTypeFile(), copy);
    if (Config().MPMATDIL != 0) EnsureErrorAction(copy, 11, "Dilute-SameSmpl");
    EnsureErrorAction(copy, 13, "Reslope-NextSmpl");
    RemoveKeyword(copy, "MethPath");
}

void EnsureErrorAction(std::string_view file, int code, std::string_view actionName) {
    // The entries are numbered densely from 1: the first number without a value ends the
    // search and receives the new entry.
    for (long long n = 1;; ++n) {
        const std::string key = "Error" + IntText(n);
        std::string entry;
        if (ReadProfileValue(kErrorSection, key, "", entry, file) < 1) {
            const std::string value = IntText(code) + "," + std::string(actionName);
            platform::Profiles().WriteString(file, kErrorSection, key, value);
            return;
        }
        if (NamesAction(entry, actionName)) return;
    }
}

void RemoveKeyword(std::string_view file, std::string_view keyword) {
    std::string value;
    if (ReadProfileValue(kKeywordSection, kKeywordKey, "", value, file) < 1) return;
    std::array<std::string, kKeywordSlots> entries;
    const int count = SplitList(value, entries, ",");
    int found = 0;
    while (found < count && entries[found] != keyword) ++found;
    if (found >= count - 1) return;  // absent, or the last entry, which always stays
    for (int i = found; i < count - 1; ++i) entries[i] = entries[i + 1];
    const std::string joined = JoinList(std::span<const std::string>(entries.data(), count - 1));
    platform::Profiles().WriteString(file, kKeywordSection, kKeywordKey, joined);
}

}  // namespace lumacfg
