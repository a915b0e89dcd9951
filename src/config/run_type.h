// Run-type preparation: makes the selected QC mode's "runtype.ini" the active one in the data
// system's program directory and fits its error actions and keywords to the configuration.
#pragma once

#include <string_view>

namespace lumacfg {

// Deletes "_DOQCCHECK" from the station profile, copies the QC mode's "runtype.ini" into the
// program directory named by "_EXEPATH$" (ROOT_PATH + "\LUMAEXE\" when that is empty), then
// adds the error actions the configuration needs and removes the keyword "MethPath" from the
// copy. Failed file operations are ignored; every step runs regardless of the one before.
void PrepareRunType();

// Adds "Error<n>" = "<code>,<actionName>" to section "ERRORACTION" of the run-type file, n being
// the first unused number, unless an entry numbered before it already names that action.
void EnsureErrorAction(std::string_view file, int code, std::string_view actionName);

// Removes the first occurrence of keyword from "Keywords" of section "Keywords". The list's last
// entry is never removed, and at most 30 entries are kept when the list is written back.
void RemoveKeyword(std::string_view file, std::string_view keyword);

}  // namespace lumacfg
