#!/usr/bin/env bash
# Draws the main window on fresh copies of the demo station and keeps the pictures in
# docs/screenshots/: "main-window.png" on a GPIB station, "main-window-lan.png" on the LAN
# station the demo ships. Runs the built program under a virtual X server; builds nothing.
#   BUILD_DIR=build/release scripts/screenshots.sh
set -euo pipefail
cd "$(dirname "$0")/.."
repo=$(pwd)
program=$repo/${BUILD_DIR:-build/release}/lumacfg
[ -x "$program" ] || { echo "screenshots: $program is not built" >&2; exit 1; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Draws the window on a copy of the demo station whose registry names hardware model $1.
picture() {
    local model=$1 file=$2 station=$work/station-$1
    cp -R examples/demo-station "$station"
    sed -i "s/\"HardWare\"=dword:[0-9a-f]*/\"HardWare\"=dword:0000000$model/" "$station/registry.reg"
    LUMACFG_PROGRAM_DIR=$station/LUMAEXE LUMACFG_REGISTRY=$station/registry.reg \
        LUMACFG_AUDIT_LOG=$station/audit.log LUMACFG_LOCK_DIR=$station \
        xvfb-run -a -s "-screen 0 1280x1024x24" "$program" --screenshot "$repo/docs/screenshots/$file"
    echo "docs/screenshots/$file"
}

picture 1 main-window.png
picture 2 main-window-lan.png
