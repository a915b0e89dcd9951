// The program's string table and caption blocks. Every caption and message that a window
// shows is fetched here by number (or, for a caption block, by resource name), so the one
// layout serves every language. Texts are Windows-1252 bytes, as the files hold them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lumacfg {

// Numbers of the texts that the core itself uses; windows use the numbers directly.
inline constexpr int kResFontName = 1;          // font face of every control
inline constexpr int kResFontSize = 2;          // font size, as text
inline constexpr int kResErrorTitle = 100;      // title of the validation messages
inline constexpr int kResWindowCaption = 115;   // main window caption, title of notices
inline constexpr int kResLanguageTag = 173;     // "Ja" selects the Japanese mode
inline constexpr int kResExitDataSystem = 404;  // start-up refused: the data system runs

// Caption block of the ASX500 tray and rack dialog.
inline constexpr std::string_view kCaptionsAsx500 = "IDRES_CAPTIONS_ASX500";

// The text with this number; the empty text for a number the table does not hold.
std::string LoadResString(int id);

// The texts of a caption block (resource type "CFG_RES"), in block order; the name compares
// without regard to ASCII case. An unknown name gives no texts.
std::vector<std::string> LoadCaptionBlock(std::string_view name);

}  // namespace lumacfg
