#!/usr/bin/env bash
# Starts the configuration program on a fresh copy of the demo station (examples/demo-station)
# and lists the files of the copy that the run created or changed. Builds nothing.
#   BUILD_DIR=build/release scripts/run-demo.sh
# With the desktop program built (BUILD_DIR/lumacfg) and a display, the window opens on the copy.
# Without a display the window is drawn on Qt's offscreen platform and saved as a picture
# (build/demo/main-window.png); then the headless front end prints the record ("show") and the
# tray selection ("tray"). Before the window opens it says what a newcomer needs to know: the
# station open, the stand-in programs, and why the security frame is greyed.
# LUMACFG_DEMO_EDITABLE=1 names the desktop user's primary group in the copy's "ACSLVL.IST", so
# the security frame can be changed.
set -euo pipefail
cd "$(dirname "$0")/.."
repo=$(pwd)

build_dir=${BUILD_DIR:-build/release}
case $build_dir in
    /*) ;;
    *) build_dir=$repo/$build_dir ;;
esac

source_station=$repo/examples/demo-station
demo_dir=$repo/build/demo
station=$demo_dir/demo-station
marker=$demo_dir/.copied

if [ ! -d "$source_station" ]; then
    echo "run-demo: $source_station is missing" >&2
    exit 1
fi

# A fresh copy every time: the first start must find no station profile.
rm -rf "$station"
mkdir -p "$demo_dir"
cp -R "$source_station" "$station"
if [ "${LUMACFG_DEMO_EDITABLE:-0}" = 1 ]; then
    sed -i "s/^CONTROL\\\\Security=.*/CONTROL\\\\Security=$(id -gn)\r/" "$station/LUMAEXE/ACSLVL.IST"
fi
touch "$marker"
# Keep the program's writes in a later time stamp than the copy, even on coarse file systems.
sleep 1

export LUMACFG_PROGRAM_DIR=$station/LUMAEXE
export LUMACFG_REGISTRY=$station/registry.reg
export LUMACFG_AUDIT_LOG=$station/audit.log
# The stand-ins of the QC configuration and toolbar programs report back through the headless
# front end.
export LUMACFG_CLI=$build_dir/lumacfg-cli

# The demo opens without a password: the desktop user is logged on as the session's user.
# Everywhere else a station with security on asks for a name and password (PAM).
export LUMACFG_LOGON=session

echo "Demo station:   $station"
echo "Program dir:    $LUMACFG_PROGRAM_DIR"
echo "Registry store: $LUMACFG_REGISTRY"
echo "Audit log:      $LUMACFG_AUDIT_LOG"
echo "Logon:          the desktop user, no password (LUMACFG_LOGON=session, for the demo only)"
echo

# The three facts a first look needs.
allowed=$(sed -n 's/^CONTROL\\Security=\([^\r]*\).*/\1/p' "$station/LUMAEXE/ACSLVL.IST")
echo "Open: the demo station, a fresh copy of examples/demo-station (a LAN instrument with the"
echo "      peristaltic pump, prohibited masses and the QC mode GENERAL.QCC); each run starts anew."
echo "Stand-ins: \"Advanced QC...\" and \"Configure Toolbar...\" start small scripts of the demo"
echo "      (LUMAEXE/LumaQcConfig.exe, LUMAEXE/BARSET.EXE) in place of the data system's QC and"
echo "      toolbar programs; they wait a moment and report back as those programs do."
if [ "$allowed" = "$(id -gn)" ]; then
    echo "Security: the frame can be changed: your group \"$(id -gn)\" is the one \"ACSLVL.IST\" allows."
else
    echo "Security: the frame is greyed: only the group \"$allowed\" named in LUMAEXE/ACSLVL.IST may"
    echo "      change it, and your group is \"$(id -gn)\". To try it editable:"
    echo "      LUMACFG_DEMO_EDITABLE=1 scripts/demo.sh"
fi
echo

# Runs one program, reports its exit code and goes on whatever it was.
run() {
    local status=0
    local shown
    shown=$(basename "$1")
    [ $# -gt 1 ] && shown+=" ${*:2}"
    echo "\$ $shown"
    "$@" || status=$?
    echo "(exit code $status)"
    echo
}

have_display=0
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    have_display=1
fi

if [ -x "$build_dir/lumacfg" ] && [ "$have_display" = 1 ]; then
    echo "Starting the configuration window on the demo station; close it to continue."
    run "$build_dir/lumacfg"
else
    if [ ! -x "$build_dir/lumacfg-cli" ]; then
        echo "run-demo: $build_dir/lumacfg-cli is not built; build the project first" >&2
        exit 1
    fi
    if [ -x "$build_dir/lumacfg" ]; then
        picture=$demo_dir/main-window.png
        echo "No display: the configuration window cannot open here. It is drawn off screen"
        echo "instead and saved as a picture (the first start creates the station):"
        rm -f "$picture"
        QT_QPA_PLATFORM=offscreen run "$build_dir/lumacfg" --screenshot "$picture"
        if [ -s "$picture" ]; then
            echo "The window as it would open: $picture"
        else
            echo "run-demo: no picture of the window was saved" >&2
        fi
        echo
        echo "The same station through the headless front end:"
    else
        echo "The configuration window is not built yet; using the headless front end."
    fi
    echo
    run "$build_dir/lumacfg-cli" show
    run "$build_dir/lumacfg-cli" tray
fi

echo "Files of the demo station created or changed by the run:"
changed=0
while IFS= read -r file; do
    relative=${file#"$station"/}
    if [ -e "$source_station/$relative" ]; then
        echo "  changed  $relative"
    else
        echo "  new      $relative"
    fi
    changed=1
done < <(find "$station" -type f -newer "$marker" | sort)
[ "$changed" = 1 ] || echo "  (none)"
echo
echo "The copy stays in $station until the next run."
