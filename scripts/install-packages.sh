#!/usr/bin/env bash
# Installs those of the named Debian packages that this machine lacks (as root, or through sudo).
#   scripts/install-packages.sh PACKAGE...
set -euo pipefail
missing=()
for package in "$@"; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0
sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
"${sudo_cmd[@]}" apt-get update -qq
DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" >/dev/null
