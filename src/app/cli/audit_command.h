// "lumacfg-cli audit verify [FILE]" and "lumacfg-cli audit show [FILE]": the audit log's chain
// checked, and its records as a table. FILE defaults to the log the programs write.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace lumacfg::cli {

// `args` without "audit". verify: 0 when the chain is intact, 1 when a line breaks it; 4 when
// the log cannot be read; 2 for a usage error.
int RunAudit(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace lumacfg::cli
