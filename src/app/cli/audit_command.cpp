#include "app/cli/audit_command.h"

#include <algorithm>
#include <array>
#include <optional>

#include "app/cli/commands.h"
#include "base/audit_chain.h"
#include "platform/services.h"

namespace lumacfg::cli {
namespace {

std::optional<std::string> ReadLog(const std::string& path) {
    std::optional<std::string> bytes = platform::Files().ReadFile(path);
    if (!bytes && platform::Failures().Pending().empty()) {
        platform::Failures().Report(platform::FileOperation::Read, path,
                                    "No such file or directory");
    }
    return bytes;
}

std::string RecordCount(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " record" : " records");
}

int Verify(const std::string& path, std::string_view log, std::ostream& out) {
    const ChainCheck check = CheckChain(log);
    if (check.brokenLine == 0) {
        out << RecordCount(check.records) << ", chain intact\n";
        return kExitOk;
    }
    out << path << ": line " << check.brokenLine << " breaks the chain (" << check.reason << "); "
        << RecordCount(check.records) << " intact before it\n";
    return kExitRefused;
}

// One row of the table: time, user, what (the field; the file, section and key; or the event),
// and old → new (or the event's text). A value that was not there, or a key or section deleted,
// shows as "(none)".
std::array<std::string, 4> Row(const JsonMembers& record) {
    auto member = [&](std::string_view name) { return MemberValue(record, name).value_or(""); };
    auto value = [&](std::string_view name) {
        return MemberValue(record, name).value_or("(none)");
    };
    const std::string event = member("event");
    if (event == "field-changed") {
        return {member("time"), member("user"), member("field"),
                member("old") + " \u2192 " + member("new")};
    }
    if (event == "profile-changed") {
        const std::string where = member("file") + " [" + member("section") + "]";
        if (!MemberValue(record, "key")) {
            return {member("time"), member("user"), where, "section \u2192 (none)"};
        }
        return {member("time"), member("user"), where + " " + member("key"),
                value("old") + " \u2192 " + value("new")};
    }
    return {member("time"), member("user"), event, member("text")};
}

// Columns as wide as their widest text in characters (the texts are UTF-8).
std::size_t Width(std::string_view text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

void Show(std::string_view log, std::ostream& out) {
    std::vector<std::array<std::string, 4>> rows = {{"TIME", "USER", "FIELD", "OLD \u2192 NEW"}};
    for (const JsonMembers& record : AuditRecords(log)) rows.push_back(Row(record));
    std::array<std::size_t, 3> widths{};
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], Width(row[i]));
    }
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            line += row[i] + std::string(widths[i] - Width(row[i]) + 2, ' ');
        }
        line += row[3];
        line.erase(line.find_last_not_of(' ') + 1);
        out << line << '\n';
    }
}

}  // namespace

int RunAudit(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty() || args.size() > 2 || (args[0] != "verify" && args[0] != "show")) {
        return kExitUsage;
    }
    const std::string path = args.size() == 2 ? args[1] : platform::AuditLogPath();
    const std::optional<std::string> log = ReadLog(path);
    if (!log) return WithFailures(kExitOk, platform::Failures().Take(), err);
    if (args[0] == "verify") return Verify(path, *log, out);
    Show(*log, out);
    return kExitOk;
}

}  // namespace lumacfg::cli
