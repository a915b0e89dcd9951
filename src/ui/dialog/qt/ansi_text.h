// Text crossing from the core into Qt and back. The core holds text as Windows-1252 bytes, as
// the station files hold them; the widgets hold QString. Bytes 0x80 to 0x9F are not Latin-1:
// most of them are typographic characters (0x80 is the euro sign, 0x93 a left double quote).
#pragma once

#include <QString>
#include <QStringView>
#include <string>
#include <string_view>

namespace lumacfg::ui {

// The characters of Windows-1252 bytes. The five bytes the code page leaves undefined (0x81,
// 0x8D, 0x8F, 0x90, 0x9D) become the control characters of the same number, so every byte
// comes back unchanged from ToAnsi.
QString FromAnsi(std::string_view bytes);

// The Windows-1252 bytes of a text; a character the code page does not hold becomes "?".
std::string ToAnsi(QStringView text);

}  // namespace lumacfg::ui
