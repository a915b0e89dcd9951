#!/usr/bin/env bash
# Installs what is needed, builds, and starts the program on a copy of the demo station.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh build/release
BUILD_DIR=build/release scripts/run-demo.sh
