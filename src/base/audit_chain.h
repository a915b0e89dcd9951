// The chain of the audit log: every record (one JSON object per line) carries as "prev" the
// SHA-256 of the bytes of the line before it (of the empty text for the first line), so a line
// removed, changed or moved breaks the chain at the line after it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/json_line.h"

namespace lumacfg {

// The record's line (without its line end): its members, then "prev" for the line before it.
std::string ChainedLine(JsonMembers members, std::string_view previousLine);

// The last line of a log's bytes, without its line end ("" for an empty log).
std::string_view LastLine(std::string_view log);

struct ChainCheck {
    std::size_t records = 0;     // lines read before the first break (all of them when intact)
    std::size_t brokenLine = 0;  // 1-based; 0 when the chain is intact
    std::string reason;          // why that line breaks the chain
};

ChainCheck CheckChain(std::string_view log);

// The log's lines (without their ends) as records; a line that is not one is left out.
std::vector<JsonMembers> AuditRecords(std::string_view log);

}  // namespace lumacfg
