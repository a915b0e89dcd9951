#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, then configures and builds.
#   scripts/setup.sh [BUILD_DIR] [extra CMake options...]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-packages.sh cmake ninja-build g++ libgtest-dev libgmock-dev libbenchmark-dev \
    libx11-dev qt6-base-dev qt6-qpa-plugins xvfb xauth fonts-dejavu-core ansible-core \
    libpam0g-dev libpam-wrapper fonts-noto-cjk

build_dir=${1:-build/release}
shift || true
cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Release "$@"
cmake --build "$build_dir"
