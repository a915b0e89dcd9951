// The OPAL applications the main window offers: the standard applications of the method table
// "MPM.TBL" in the program directory and the user-defined applications, the ".MPU" files of the
// OPAL folder under the data-system root, each named by its "AppName" line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lumacfg::ui {

// One description line of the standard-application block: the name shown, then the two file
// entries of the application (the channel file and the application file, "" when the line
// has only two fields).
struct OpalStandardApplication {
    std::string name;
    std::string channelFile;
    std::string applicationFile;
    bool operator==(const OpalStandardApplication&) const = default;
};

// A user-defined application: its file's name in the OPAL folder and the name it gives itself.
struct OpalUserApplication {
    std::string file;
    std::string name;
    bool operator==(const OpalUserApplication&) const = default;
};

// The standard-application block of a method table's text; nullopt when the text has no line
// "#STD_BEG". Lines with fewer than two TAB-separated fields are skipped.
std::optional<std::vector<OpalStandardApplication>> ParseMethodTable(std::string_view text);

// The "AppName" of an application file's text; nullopt when its block names none.
std::optional<std::string> ParseApplicationName(std::string_view text);

// The method table's path: the program directory followed by "\\MPM.TBL".
std::string MethodTablePath();
// The folder of the OPAL files: ROOT_PATH + "\1\OPAL\".
std::string OpalFolder(std::string_view rootPath);

// The file entry of a standard application that "_MPMFILE$" keeps: the application file, or the
// channel file for an application that has none.
const std::string& RecordedFile(const OpalStandardApplication& application);

// Reads the method table; nullopt when it is missing or has no standard block.
std::optional<std::vector<OpalStandardApplication>> LoadStandardApplications();
// Reads the user-defined applications of the OPAL folder, in file-name order. A file that
// names no application (or cannot be read) is left out and its name returned in `unnamed`.
std::vector<OpalUserApplication> LoadUserApplications(std::string_view rootPath,
                                                      std::vector<std::string>& unnamed);

}  // namespace lumacfg::ui
