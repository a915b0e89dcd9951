#!/usr/bin/env bash
# Installs what is needed, builds with warnings as errors and runs every test (on CI also the
# Debian package's test); then builds and runs the same tests with AddressSanitizer and
# UndefinedBehaviorSanitizer; last, runs every fuzz target for about a minute on a fixed seed
# (scripts/fuzz.sh --ci: a fixed seed and number of inputs).
set -euo pipefail
cd "$(dirname "$0")/.."

run_tests() {
    # The window-system tests need an X display: a virtual one when none is there.
    if [ -z "${DISPLAY:-}" ] && command -v xvfb-run >/dev/null; then
        xvfb-run -a ctest --test-dir "$1" --output-on-failure -j2
    else
        ctest --test-dir "$1" --output-on-failure -j2
    fi
}

scripts/check-layers.sh

scripts/setup.sh build/release -DLUMACFG_WERROR=ON
run_tests build/release

# The Debian package built, validated, installed, run and removed again. It installs a package
# on this machine, so it runs on CI or when asked for with LUMACFG_PACKAGE_TEST=1.
if [ "${CI:-}" = true ] || [ "${LUMACFG_PACKAGE_TEST:-}" = 1 ]; then
    scripts/package-test.sh build/release
fi

scripts/setup.sh build/sanitize -DLUMACFG_WERROR=ON -DLUMACFG_SANITIZE=ON \
    -DLUMACFG_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug
run_tests build/sanitize

scripts/fuzz.sh --ci
