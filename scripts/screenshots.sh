#!/usr/bin/env bash
# Draws the windows on fresh copies of the demo station and keeps the pictures in
# docs/screenshots/: the main window on a GPIB station ("main-window.png") and on the LAN station
# the demo ships ("main-window-lan.png"); the Miscellaneous dialog, the file selection of a QC
# mode and the wait window (while the toolbar stand-in runs), each opened by its button; then the
# dialogs of the autosampler's Setup... button, each on a copy whose autosampler was chosen with
# lumacfg-cli first: "asx500.png" (the demo's tray selection), "asx500-misfit.png" (a rack too
# wide for its position; in German too, "asx500-misfit-de.png"), "vas.png", "asx-klr8.png" and "asx-asx100.png"; the editors that
# the ASX500 dialog's Configure Tray... and Configure Rack... open: "custom-trays.png" (a default
# rack too wide for its position) and "custom-racks.png" (a rack too long for one tray); the
# first-start window, where no station is named ("first-start.png"); last the logon window.
# The main window and the ASX500 dialog are drawn in German and in Japanese too
# ("main-window-de.png", "asx500-ja.png", ...), the language chosen by LANGUAGE.
# At twice the scale (QT_SCALE_FACTOR=2, on a screen twice as large): the main window
# ("main-window-scale2.png") and the ASX500 dialog with its misfit ("asx500-scale2.png").
# Runs the built programs under a virtual X server; builds nothing.
#   BUILD_DIR=build/release scripts/screenshots.sh
set -euo pipefail
cd "$(dirname "$0")/.."
repo=$(pwd)
program=$repo/${BUILD_DIR:-build/release}/lumacfg
cli=$repo/${BUILD_DIR:-build/release}/lumacfg-cli
for built in "$program" "$cli"; do
    [ -x "$built" ] || { echo "screenshots: $built is not built" >&2; exit 1; }
done
export LUMACFG_CLI=$cli  # the stand-in programs report back through it

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A fresh copy of the demo station whose registry names hardware model $1; its environment.
station() {
    station=$work/station-$RANDOM$RANDOM
    cp -R examples/demo-station "$station"
    sed -i "s/\"HardWare\"=dword:[0-9a-f]*/\"HardWare\"=dword:0000000$1/" "$station/registry.reg"
    export LUMACFG_PROGRAM_DIR=$station/LUMAEXE LUMACFG_REGISTRY=$station/registry.reg \
        LUMACFG_AUDIT_LOG=$station/audit.log LUMACFG_LOCK_DIR=$station
}

# Draws the window on the station (with further arguments of the program: --click CONTROL), on
# a screen of $screen (1280x1024 unless set).
picture() {
    local file=$1
    shift
    xvfb-run -a -s "-screen 0 ${screen:-1280x1024}x24" "$program" --screenshot "$repo/docs/screenshots/$file" "$@"
    echo "docs/screenshots/$file"
}

# The dialog that Setup... opens on a GPIB station after `lumacfg-cli set` with the arguments.
setup() {
    local file=$1
    shift
    station 1
    "$cli" set "$@" >/dev/null
    picture "$file" --click Cd_AutoSet
}

station 1 && picture main-window.png
station 2 && picture main-window-lan.png
station 2 && QT_SCALE_FACTOR=2 screen=2560x2048 picture main-window-scale2.png
station 2 && picture miscellaneous.png --click Cd_Misc
station 2 && picture file-selection.png --click Cd_Browse
station 2 && picture wait-window.png --click Cd_Tlbar
setup asx500.png ALS_TYPE=1
for language in de ja; do
    station 1 && LANGUAGE=$language picture "main-window-$language.png"
    LANGUAGE=$language setup "asx500-$language.png" ALS_TYPE=1
done
# OK refuses a rack that does not fit, so the misfit is put into the file's selection instead.
station 1
"$cli" set ALS_TYPE=1 >/dev/null
"$cli" profile set "$LUMACFG_PROGRAM_DIR/custrack.ini" CURRENT RACK3_ID 1004
picture asx500-misfit.png --click Cd_AutoSet
LANGUAGE=de picture asx500-misfit-de.png --click Cd_AutoSet
QT_SCALE_FACTOR=2 screen=2560x2048 picture asx500-scale2.png --click Cd_AutoSet
# The editor accepts a default rack that does not fit (the picture marks it), as the file does.
station 1
"$cli" set ALS_TYPE=1 >/dev/null
"$cli" custrack set TRAY_1000 DEFRACK3=1004
picture custom-trays.png --click Cd_AutoSet/btnConfigTray
station 1
"$cli" set ALS_TYPE=1 >/dev/null
picture custom-racks.png --click Cd_AutoSet/btnConfigRack
setup vas.png ALS_TYPE=5 SAMPLE_DEPTH=40
setup asx-klr8.png ALS_TYPE=6
setup asx-asx100.png ALS_TYPE=2
# No variable names a station and the registry store is not there yet (the installed default,
# unless this machine has one).
unset LUMACFG_PROGRAM_DIR LUMACFG_REGISTRY
[ ! -e /etc/plasmasuite/registry.reg ] || export LUMACFG_REGISTRY=$work/no-store/registry.reg
picture first-start.png
# The logon window opens only on an interactive start, so its test draws it (logging on through
# pam_wrapper): as it opens ("logon.png") and after a wrong password ("logon-wrong-password.png").
LUMACFG_SCREENSHOT_DIR=$repo/docs/screenshots "$repo/${BUILD_DIR:-build/release}/lumacfg_pam_tests" \
    --gtest_filter=LogonWindowTest.AWrongPasswordSaysSoAndLetsTheUserTryAgain >/dev/null 2>&1
echo docs/screenshots/logon.png
echo docs/screenshots/logon-wrong-password.png
