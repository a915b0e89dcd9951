// "lumacfg-cli custrack": the site's custom trays and racks of custrack.ini, listed and edited
// through the same model as the window's editors ("Custom Trays", "Custom Racks").
//
//   custrack list                              one line per listed entry: section, TAB,
//                                              verdict ("ok" or the fault), TAB, "ID_STR"
//   custrack new tray|rack [KEY=VALUE ...]     a new entry as New makes it; prints its section
//   custrack copy SECTION [KEY=VALUE ...]      a copy as Copy makes it; prints its section
//   custrack set SECTION KEY=VALUE ...         changes an entry
//   custrack delete SECTION                    deletes an entry that is not in use
//
// "--dry-run" may stand anywhere after "custrack": the unified diff of custrack.ini is printed
// and nothing written.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace lumacfg::cli {

// `args` are the words after "custrack". Returns 0; 1 with the editor's message on `err` when
// a value, an entry or a deletion is refused (nothing written); 2 for a usage error (nothing
// printed: the caller prints the usage); 4 when custrack.ini cannot be read or written.
int RunCustrack(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace lumacfg::cli
