// The code page of every text a dialog's model holds (Windows-1252, as the station files): the
// views turn the models' bytes into characters and back with these.
#pragma once

#include "base/windows1252.h"

namespace lumacfg::ui {

using lumacfg::CharacterOfWindows1252;
using lumacfg::Windows1252ByteOf;

}  // namespace lumacfg::ui
