// Serial line settings of the autosampler: the operating system's table of serial port
// defaults in the registry, and the channel files of the OPAL sample introduction system.
#pragma once

namespace lumacfg {

// Resets RESET_COM_PORT (when 1 or more) to the plain settings "9600,n,8,1", then, when an
// autosampler is configured, writes COM_PORT's settings: "9600,o,7,1" for ALS_TYPE 5 driven
// directly (MPM 0), "9600,n,8,1" otherwise. 0 on success or when there is nothing to do, -1
// when the ports key cannot be opened or the autosampler port's value cannot be set.
int WriteComPortSettings();

// Rewrites the serial settings lines of every file in ROOT_PATH + "\1\OPAL\" for odd parity
// (7 data bits) or no parity (8 data bits). Other lines keep their bytes.
void UpdateOpalChannelFiles(bool odd);

}  // namespace lumacfg
