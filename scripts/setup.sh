#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, then configures and builds.
#   scripts/setup.sh [BUILD_DIR] [extra CMake options...]
set -euo pipefail
cd "$(dirname "$0")/.."

packages=(cmake ninja-build g++ libgtest-dev libgmock-dev libbenchmark-dev libx11-dev
          qt6-base-dev qt6-qpa-plugins xvfb xauth fonts-dejavu-core)
missing=()
for package in "${packages[@]}"; do
    dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo_cmd=()
    [ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
    "${sudo_cmd[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends \
        "${missing[@]}"
fi

build_dir=${1:-build/release}
shift || true
cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Release "$@"
cmake --build "$build_dir"
