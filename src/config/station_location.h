// Finding the station: which program directory ("...\LUMAEXE") the programs work on.
//
// In this order, the first that names one wins: LUMACFG_PROGRAM_DIR; the data system's
// installation folder, the value "Path" of its key in the registry store, followed by
// "LUMAEXE" and resolved as every station path (letter case ignored). The programs' own
// installation folder is never a station. When neither names one, the window lets the
// administrator choose the data system's folder (RecordDataSystemFolder); the headless front end
// names what is missing.
#pragma once

#include <string>
#include <string_view>

#include "platform/file_failures.h"

namespace lumacfg {

struct StationLookup {
    enum class Outcome {
        Found,       // `directory` is the program directory
        NotNamed,    // nothing names a station: `missing` says what is missing
        Unreadable,  // the registry store cannot be read (reported to Failures())
    };
    Outcome outcome = Outcome::NotNamed;
    std::string directory;
    platform::FileFailure missing;
};

// Looks for the station; reports nothing itself except a registry store that cannot be read.
StationLookup LookUpStation();

// Looks for the station and makes it the program directory; false when none is found, with
// what is missing reported to Failures().
bool LocateStation();

// The administrator's choice of the data system's folder: its "LUMAEXE" is made when it is not
// there yet, and the folder is written as "Path" into the registry store (the store and the
// data system's key are created when missing). False, with the failure reported to Failures(),
// when the folder cannot be read, "LUMAEXE" cannot be made or the store cannot be written.
bool RecordDataSystemFolder(std::string_view folder);

}  // namespace lumacfg
