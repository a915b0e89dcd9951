#!/usr/bin/env bash
# Builds the Debian package, validates it, installs it on this machine with apt-get, runs the
# installed programs on a copy of the demo station, removes the package and checks that nothing
# it brought is left. Needs root (or sudo); refuses to touch a lumacfg already installed here.
#   scripts/package-test.sh [BUILD_DIR]      (a configured build tree; build/release by default)
set -uo pipefail
cd "$(dirname "$0")/.."
repo=$(pwd)
build_dir=${1:-build/release}
sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)

passed=0
failed=0
check() {  # check NAME COMMAND...: runs the command, counts and reports it
    local name=$1
    shift
    if "$@"; then
        passed=$((passed + 1))
        echo "ok      $name"
    else
        failed=$((failed + 1))
        echo "FAILED  $name"
    fi
}

if dpkg -s lumacfg >/dev/null 2>&1; then
    echo "package-test: lumacfg is installed on this machine; remove it first" >&2
    exit 1
fi
# The test writes and removes the installed registry store: a site's own is never touched.
if [ -e /etc/plasmasuite/registry.reg ]; then
    echo "package-test: /etc/plasmasuite/registry.reg exists on this machine; move it away first" >&2
    exit 1
fi

scripts/install-packages.sh dpkg-dev desktop-file-utils appstream lintian || exit 1

cmake --build "$build_dir" || exit 1
rm -f "$build_dir"/lumacfg_*.deb
(cd "$build_dir" && cpack -G DEB >/dev/null) || exit 1
deb=$(ls "$repo/$build_dir"/lumacfg_*_amd64.deb)
version=$(dpkg-deb -f "$deb" Version)
echo "package-test: $(basename "$deb")"

work=$(mktemp -d)
cleanup() {
    "${sudo_cmd[@]}" rm -f /etc/plasmasuite/registry.reg
    dpkg -s lumacfg >/dev/null 2>&1 && "${sudo_cmd[@]}" apt-get purge -y -qq lumacfg >/dev/null
    rm -rf "$work"
}
trap cleanup EXIT

# The validators: errors fail, warnings are listed (docs/packaging.md explains those left).
check "desktop-file-validate" desktop-file-validate packaging/lumacfg.desktop
check "appstreamcli validate" appstreamcli validate --no-net --pedantic \
    "$build_dir"/packaging/*.metainfo.xml
check "lintian" lintian --fail-on error --display-info "$deb"

# What the package brings that this machine does not have yet: all of it must go again.
dpkg-deb --fsys-tarfile "$deb" | tar -t | sed 's|^\./|/|; s|/$||' | grep -v '^/*$' |
    while read -r path; do [ -e "$path" ] || echo "$path"; done >"$work/brought"

install_package() {
    DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq "$deb" >/dev/null
}
check "apt-get install ./$(basename "$deb")" install_package
check "the package is installed at $version" \
    test "$(dpkg-query -W -f '${Status} ${Version}' lumacfg)" = "install ok installed $version"
check "lumacfg-cli --version" test "$(/usr/bin/lumacfg-cli --version)" = "lumacfg-cli $version"
check "lumacfg --version" test "$(/usr/bin/lumacfg --version)" = "lumacfg $version"

# The installed programs on a copy of the demo station.
station=$work/station
cp -R examples/demo-station "$station"
export LUMACFG_PROGRAM_DIR=$station/LUMAEXE LUMACFG_REGISTRY=$station/registry.reg
export LUMACFG_AUDIT_LOG=$station/audit.log LUMACFG_LOCK_DIR=$work
shows_station() {
    /usr/bin/lumacfg-cli show >"$work/show.txt" && grep -qx "ROOT_PATH=$station" "$work/show.txt" &&
        test -s "$station/LUMAEXE/lumagen.ist"
}
check "lumacfg-cli show on the demo station" shows_station
shows_window() {
    QT_QPA_PLATFORM=offscreen timeout 60 /usr/bin/lumacfg --screenshot "$work/window.png" &&
        test "$(head -c 8 "$work/window.png" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a
}
check "lumacfg shows its window (offscreen)" shows_window
# Started from the menu: no variable names the station, the registry store in its installed
# place names the data system's folder. The window opens on that station (a picture of the size
# of the main window's above); without a store the window asks for the folder (the first-start
# window) and lumacfg-cli names the missing store and exits 4, making nothing anywhere.
menu_station=$work/menu-station
cp -R examples/demo-station "$menu_station"
sed "s|^\"Path\"=.*|\"Path\"=\"$menu_station\"\r|" examples/demo-station/registry.reg \
    >"$work/registry.reg"
png_size() { od -An -tu1 -j16 -N8 "$1" | tr -s ' '; }
finds_named_station() {
    "${sudo_cmd[@]}" cp "$work/registry.reg" /etc/plasmasuite/registry.reg || return 1
    env -u LUMACFG_PROGRAM_DIR -u LUMACFG_REGISTRY /usr/bin/lumacfg-cli show >"$work/show.txt" &&
        grep -qx "ROOT_PATH=$menu_station" "$work/show.txt" &&
        env -u LUMACFG_PROGRAM_DIR -u LUMACFG_REGISTRY QT_QPA_PLATFORM=offscreen timeout 60 \
            /usr/bin/lumacfg --screenshot "$work/menu.png" &&
        test "$(png_size "$work/menu.png")" = "$(png_size "$work/window.png")"
}
check "the installed programs open the station /etc/plasmasuite/registry.reg names" \
    finds_named_station
asks_without_store() {
    local status=0
    "${sudo_cmd[@]}" rm -f /etc/plasmasuite/registry.reg
    env -u LUMACFG_PROGRAM_DIR -u LUMACFG_REGISTRY /usr/bin/lumacfg-cli show >/dev/null \
        2>"$work/refused.txt" || status=$?
    [ "$status" -eq 4 ] &&
        grep -q "cannot read /etc/plasmasuite/registry.reg: No such file" "$work/refused.txt" &&
        env -u LUMACFG_PROGRAM_DIR -u LUMACFG_REGISTRY QT_QPA_PLATFORM=offscreen timeout 60 \
            /usr/bin/lumacfg --screenshot "$work/first-start.png" &&
        test "$(png_size "$work/first-start.png")" != "$(png_size "$work/window.png")" &&
        ! ls /usr/bin | grep -qix "lumagen.ist" && test ! -e /etc/plasmasuite/registry.reg
}
check "without a registry store: the window asks, lumacfg-cli names it (exit 4)" \
    asks_without_store

remove_package() {
    DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get purge -y -qq lumacfg >/dev/null
}
check "apt-get purge lumacfg" remove_package
check "dpkg knows no lumacfg" bash -c '! dpkg -s lumacfg >/dev/null 2>&1'
left_over() {
    local left
    left=$(while read -r path; do [ -e "$path" ] && echo "$path"; done <"$work/brought")
    [ -z "$left" ] || { echo "left over:"; echo "$left"; return 1; }
}
check "nothing of the package is left ($(wc -l <"$work/brought") paths)" left_over

echo "package: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
