// "lumacfg-cli apply [--dry-run] [--json] FILE|-": a document as `export` writes it (all of its
// fields, or some) run through `set` as one command. Fields that already hold their value are
// no change; when no field changes, nothing is written and "unchanged" is printed.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace lumacfg::cli {

struct ApplyOptions {
    bool dryRun = false;
    bool json = false;
    std::string file;  // "-": the standard input
};

// The options among the arguments after "apply"; nullopt when they are no apply command line.
std::optional<ApplyOptions> ParseApplyOptions(const std::vector<std::string>& args);

// Exit codes as `set`'s: 1 a check refused a value (nothing is
// written), 2 a usage error or a document that is no JSON, names no field or gives a value that
// is no string (nothing is written), 3 start-up refused, 4 a file could not be read or written.
// With --json, one JSON object on `out` says what happened, whatever the exit code:
//   {"changed": bool, "files": [paths], "diff": "unified diff", "message": "..."}
int RunApply(const ApplyOptions& options, std::ostream& out, std::ostream& err);

}  // namespace lumacfg::cli
