// SHA-256 (FIPS 180-4) of a byte string, for the audit log's chain: each record carries the
// digest of the record before it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace lumacfg {

using Sha256Digest = std::array<std::uint8_t, 32>;

Sha256Digest Sha256(std::string_view bytes);

// The digest as 64 lower-case hexadecimal digits.
std::string Sha256Hex(std::string_view bytes);

}  // namespace lumacfg
