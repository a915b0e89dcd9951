# Build-time script: writes OUTPUT, a C++ source holding the bytes of the resource file
# INPUT and a function lumacfg::resources::embedded::FUNCTION() that returns them.
# ORIGIN names the resource file in the generated source's header comment.

file(READ "${INPUT}" hex HEX)
string(LENGTH "${hex}" hex_length)
math(EXPR size "${hex_length} / 2")

# Sixteen bytes per line, each byte written as 0xHH.
string(REPEAT "[0-9a-f]" 32 line_pattern)
string(REGEX REPLACE "(${line_pattern})" "\\1\n" hex "${hex}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1, " bytes "${hex}")
string(REGEX REPLACE ", \n" ",\n    " bytes "${bytes}")

file(WRITE "${OUTPUT}" "// Generated at build time from ${ORIGIN}; do not edit.
#include <string_view>

namespace lumacfg::resources::embedded {

namespace {
// The file's bytes, then a NUL that is not part of them (an array is never empty).
const unsigned char kBytes[] = {
    ${bytes}0x00};
}  // namespace

std::string_view ${FUNCTION}() {
    return {reinterpret_cast<const char*>(kBytes), ${size}};
}

}  // namespace lumacfg::resources::embedded
")
