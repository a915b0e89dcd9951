#!/usr/bin/env bash
# Draws the windows on fresh copies of the demo station and keeps the pictures in
# docs/screenshots/: the main window on a GPIB station ("main-window.png") and on the LAN station
# the demo ships ("main-window-lan.png"); the Miscellaneous dialog, the file selection of a QC
# mode and the wait window (while the toolbar stand-in runs), each opened by its button. Runs the
# built programs under a virtual X server; builds nothing.
#   BUILD_DIR=build/release scripts/screenshots.sh
set -euo pipefail
cd "$(dirname "$0")/.."
repo=$(pwd)
build=$repo/${BUILD_DIR:-build/release}
program=$build/lumacfg
[ -x "$program" ] || { echo "screenshots: $program is not built" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Draws on a copy of the demo station whose registry names hardware model $1; the rest of the
# arguments go to the program after the picture's file.
picture() {
    local model=$1 file=$2 station=$work/station-$1-${2%.png}
    shift 2
    cp -R examples/demo-station "$station"
    sed -i "s/\"HardWare\"=dword:[0-9a-f]*/\"HardWare\"=dword:0000000$model/" "$station/registry.reg"
    LUMACFG_PROGRAM_DIR=$station/LUMAEXE LUMACFG_REGISTRY=$station/registry.reg \
        LUMACFG_AUDIT_LOG=$station/audit.log LUMACFG_LOCK_DIR=$station LUMACFG_CLI=$build/lumacfg-cli \
        xvfb-run -a -s "-screen 0 1280x1024x24" "$program" --screenshot "$repo/docs/screenshots/$file" "$@"
    echo "docs/screenshots/$file"
}

picture 1 main-window.png
picture 2 main-window-lan.png
picture 2 miscellaneous.png --click Cd_Misc
picture 2 file-selection.png --click Cd_Browse
picture 2 wait-window.png --click Cd_Tlbar
