// The OPAL applications' readers: the standard-application block of the method table
// "MPM.TBL" and the "AppName" of a user application file. Properties: a block is found exactly
// when a "#STD_BEG" line is there; every field is one field of one line; what was read, written
// back in the same format, reads back the same.
//
// Input: a text read both as a method table and as an application file.
#include <algorithm>
#include <string>

#include "base/text.h"
#include "fuzz_support.h"
#include "ui/main/opal_applications.h"

namespace lumacfg::fuzz {
namespace {

using ui::OpalStandardApplication;

// No TAB and no line feed (the texts' lines end at LF or CR LF; a CR alone is a character).
bool OneField(std::string_view text) {
    return text.find_first_of("\t\n") == std::string_view::npos;
}

bool HasLine(std::string_view text, std::string_view content) {
    const std::vector<TextLine> lines = SplitLines(text);
    return std::any_of(lines.begin(), lines.end(),
                       [&](const TextLine& line) { return line.content == content; });
}

// The block as the method table holds it, each line with its three fields.
std::string MethodTableOf(const std::vector<OpalStandardApplication>& applications) {
    std::string table = "#STD_BEG\r\n";
    for (const OpalStandardApplication& application : applications) {
        table += application.name + "\t" + application.channelFile + "\t" +
                 application.applicationFile + "\r\n";
    }
    return table + "#STD_END\r\n";
}

void RunMethodTable(std::string_view text) {
    const auto applications = ui::ParseMethodTable(text);
    Require(applications.has_value() == HasLine(text, "#STD_BEG"),
            "a block is found exactly when it begins");
    if (!applications) return;
    for (const OpalStandardApplication& application : *applications) {
        Require(OneField(application.name) && OneField(application.channelFile) &&
                    OneField(application.applicationFile),
                "every field is one field of one line");
    }
    Require(ui::ParseMethodTable(MethodTableOf(*applications)) == applications,
            "a block written back reads back the same");
}

void RunApplicationFile(std::string_view text) {
    const auto name = ui::ParseApplicationName(text);
    if (!name) return;
    Require(HasLine(text, "#APP_BEG"), "a name is found inside a block only");
    Require(OneField(*name), "the name is one field of one line");
    Require(
        ui::ParseApplicationName("#APP_BEG\r\nAppName\t" + *name + "\t\r\n#APP_END\r\n") == name,
        "a name written back reads back the same");
}

}  // namespace
}  // namespace lumacfg::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    lumacfg::fuzz::RunMethodTable(text);
    lumacfg::fuzz::RunApplicationFile(text);
    return 0;
}
