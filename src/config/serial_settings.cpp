#include "config/serial_settings.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "base/numbers.h"
#include "base/text.h"
#include "config/config_record.h"
#include "platform/services.h"

namespace lumacfg {
namespace {

constexpr std::string_view kPortsKey = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports";
constexpr std::string_view kPlainSettings = "9600,n,8,1";
constexpr std::string_view kOddSettings = "9600,o,7,1";
constexpr Int16 kDirectOddParityAutosampler = 5;

// Sets the port's value "COM<port>:" of the ports key. 0 on success, -1 on failure.
int SetPortSettings(Int16 port, std::string_view settings) {
    // The key path and the value go to the registry NUL-terminated; the NUL ends the stored
    // text and is counted in the stored length.
    std::string keyPath(kPortsKey);
    keyPath += '\0';
    auto key = platform::TheRegistry().OpenKey(keyPath, platform::RegistryAccess::SetValue);
    if (!key) return -1;
    std::string text(settings);
    text += '\0';
    return key->SetString("COM" + IntText(port) + ":", text) ? 0 : -1;
}

// The settings text a channel-file line is overwritten with; nullopt for a line left alone.
// A line naming both is taken as the channel line.
std::optional<std::string_view> SettingsTextFor(std::string_view line, bool odd) {
    if (ContainsIgnoringCase(line, "chn1")) {
        return odd ? "Chn1\t9600\tO\t7\t1" : "Chn1\t9600\tN\t8\t1";
    }
    if (ContainsIgnoringCase(line, "COM:SET 1")) {
        return odd ? "COM:SET 1,9600,O,7,1" : "COM:SET 1,9600,N,8,1";
    }
    return std::nullopt;
}

// The line overwritten from its start by the settings text; a longer old line keeps its tail.
std::string RewriteLine(std::string_view line, bool odd) {
    auto settings = SettingsTextFor(line, odd);
    if (!settings) return std::string(line);
    std::string rewritten(*settings);
    if (line.size() > rewritten.size()) rewritten += line.substr(rewritten.size());
    return rewritten;
}

// The ending given to a last line that has none: that of the file's first line, CR LF when
// no line of the file is ended.
std::string_view FileLineEnding(std::string_view bytes) {
    std::size_t lf = bytes.find('\n');
    if (lf == std::string_view::npos || (lf > 0 && bytes[lf - 1] == '\r')) return "\r\n";
    return "\n";
}

// Every line rewritten by the channel rules; each line keeps its own ending (CR LF or LF).
std::string RewriteChannelFile(std::string_view bytes, bool odd) {
    std::vector<TextLine> lines = SplitLines(bytes);
    for (TextLine& line : lines) line.content = RewriteLine(line.content, odd);
    if (!lines.empty() && lines.back().ending.empty()) lines.back().ending = FileLineEnding(bytes);
    return JoinLines(lines);
}

// Writes the rewritten file beside it as name + ".tmp", copies that over the file and deletes
// it. A file that cannot be read, or whose ".tmp" cannot be written, is left as it is.
void UpdateChannelFile(const std::string& path, bool odd) {
    platform::FileSystem& files = platform::Files();
    auto bytes = files.ReadFile(path);
    if (!bytes) return;
    const std::string temporary = path + ".tmp";
    if (!files.WriteFile(temporary, RewriteChannelFile(*bytes, odd))) return;
    files.CopyFile(temporary, path);
    files.DeleteFile(temporary);
}

}  // namespace

int WriteComPortSettings() {
    const ConfigRecord& record = Config();
    if (record.RESET_COM_PORT >= 1) SetPortSettings(record.RESET_COM_PORT, kPlainSettings);
    if (record.ALS_TYPE <= 0) return 0;
    const bool oddParity = record.ALS_TYPE == kDirectOddParityAutosampler && record.MPM == 0;
    return SetPortSettings(record.COM_PORT, oddParity ? kOddSettings : kPlainSettings);
}

void UpdateOpalChannelFiles(bool odd) {
    const std::string directory = Config().ROOT_PATH + "\\1\\OPAL\\";
    for (const std::string& name : platform::Files().ListFiles(directory)) {
        UpdateChannelFile(directory + name, odd);
    }
}

}  // namespace lumacfg
