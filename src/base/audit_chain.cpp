#include "base/audit_chain.h"

#include "base/sha256.h"

namespace lumacfg {
namespace {

constexpr std::string_view kPrev = "prev";

std::vector<std::string_view> Lines(std::string_view log) {
    std::vector<std::string_view> lines;
    while (!log.empty()) {
        const std::size_t end = log.find('\n');
        lines.push_back(log.substr(0, end));
        if (end == std::string_view::npos) break;
        log.remove_prefix(end + 1);
    }
    return lines;
}

}  // namespace

std::string ChainedLine(JsonMembers members, std::string_view previousLine) {
    members.emplace_back(kPrev, Sha256Hex(previousLine));
    return JsonObjectLine(members);
}

std::string_view LastLine(std::string_view log) {
    if (!log.empty() && log.back() == '\n') log.remove_suffix(1);
    const std::size_t start = log.rfind('\n');
    return start == std::string_view::npos ? log : log.substr(start + 1);
}

ChainCheck CheckChain(std::string_view log) {
    ChainCheck check;
    std::string_view previous;
    for (std::string_view line : Lines(log)) {
        const std::size_t number = check.records + 1;
        auto members = ParseJsonObjectLine(line);
        if (!members) {
            check.brokenLine = number;
            check.reason = "not a record";
            return check;
        }
        auto prev = MemberValue(*members, kPrev);
        if (!prev) {
            check.brokenLine = number;
            check.reason = "no \"prev\"";
            return check;
        }
        if (*prev != Sha256Hex(previous)) {
            check.brokenLine = number;
            check.reason = number == 1
                               ? "\"prev\" is not that of the start of the log"
                               : "\"prev\" does not match line " + std::to_string(number - 1);
            return check;
        }
        previous = line;
        ++check.records;
    }
    return check;
}

std::vector<JsonMembers> AuditRecords(std::string_view log) {
    std::vector<JsonMembers> records;
    for (std::string_view line : Lines(log)) {
        if (auto members = ParseJsonObjectLine(line)) records.push_back(std::move(*members));
    }
    return records;
}

}  // namespace lumacfg
