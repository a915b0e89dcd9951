// The program's file selection form "frmFile": the two entry points that let a dialog pick a
// file to open or to save. The form only holds the request and hands it to the file chooser of
// the data system's libraries, which shows the actual dialog; the chosen path is put into the
// caller's target text and a result code says whether a file was chosen.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/windows.h"

namespace lumacfg::ui {

// What the chooser is given and hands back. Directories cross the chooser in the host's form
// ("/srv/station/1/QCMODE"); the form turns them into the data system's.
struct FileRequest {
    std::string caption;
    std::string pattern;
    std::string fileName;   // the initial name; the chosen one
    std::string directory;  // the initial directory; the chosen one
    std::int32_t options = 0;
};

// The kinds of request: open or save, with mode 1 (a file) or mode 2 (a folder whose name
// matches the pattern, as a QC mode is).
enum class SelectKind : std::int16_t { OpenFile = 1, OpenFolder = 2, SaveFile = 3, SaveFolder = 4 };

// The chooser that shows the dialog: returns 0 when the user cancels, 1 or 2 when a file was
// chosen (any other value is an outcome the form does not know).
class FileChooser {
  public:
    virtual ~FileChooser() = default;
    virtual std::int16_t SelectFile(platform::WindowHandle owner, SelectKind kind,
                                    FileRequest& request) = 0;
};

// The text buffers of the request hold at most this many characters before their NUL.
inline constexpr std::size_t kFileBufferCharacters = 259;

// The file selection's window became active: placed above every other window (topmost),
// centred on the desktop's work area, each time.
void FileSelectionActivated(platform::WindowHandle window);

// Result codes of the entry points.
inline constexpr std::int16_t kFileChosen = 1;
inline constexpr std::int16_t kFileCancelled = 2;
inline constexpr std::int16_t kFileUnknownOutcome = 0;

// "", ".*", "*.", "*.*" and "*" all become "*.*"; any other pattern is kept.
std::string NormalisePattern(std::string_view pattern);

class FileSelection {
  public:
    explicit FileSelection(FileChooser& chooser) : chooser_(chooser) {}

    // Choose a file to open: `target` receives the directory followed by the file name when
    // one is chosen (result 1); 2 when the user cancelled or no dialog was shown; 0 for an
    // outcome the form does not know (the target is then left as it was).
    std::int16_t NbFileSelect(std::string& target, std::int16_t mode, std::string_view fileName,
                              std::string_view directory, std::string_view caption,
                              std::string_view pattern);
    // Choose a file to save; the mode arrives as text and is read as a 16-bit integer.
    std::int16_t NbFileSelect_Save(std::string& target, std::string_view mode,
                                   std::string_view fileName, std::string_view directory,
                                   std::string_view caption, std::string_view pattern);

  private:
    std::int16_t Select(std::string& target, std::int16_t mode, bool save,
                        std::string_view fileName, std::string_view directory,
                        std::string_view caption, std::string_view pattern);
    void RunHost();

    FileChooser& chooser_;
    FileRequest request_;
    std::string initialDirectory_;  // the directory as the caller gave it
    std::int16_t mode_ = 0;
    std::int16_t outcome_ = 0;
    bool save_ = false;
};

}  // namespace lumacfg::ui
