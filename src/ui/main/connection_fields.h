// The rules of the main window's boxes that hold numbers: the four octet boxes of the LAN
// address, the IP address check of Save, and the prohibited-mass boxes.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace lumacfg::ui {

// The texts of the four octet boxes for a stored address: the pieces between its dots, "0" for
// a box that no piece is left for.
std::array<std::string, 4> OctetTexts(std::string_view address);

// An octet box as leaving it cleans it: empty gives "0"; otherwise the number it holds, held
// within 0..255, in plain decimal.
std::string CleanOctet(std::string_view text);

// The integer an octet box holds.
int OctetValue(std::string_view text);

// Save's check of a LAN address: false for 0.0.0.0, 255.255.255.255, 127.0.0.0, 127.0.0.1, a
// first octet of 224 or more, and a host part of all zeros or all 255 (by the address class).
bool IpAddressAccepted(const std::array<int, 4>& octets);

// The placeholder of an empty prohibited-mass box.
std::string EmptyMassText();

// A mass box as leaving it cleans it (before the duplicate check): a number from 2 to 260 in
// general number form ("040" gives "40", "40.4" stays), anything else the placeholder.
std::string CleanMass(std::string_view text);

}  // namespace lumacfg::ui
