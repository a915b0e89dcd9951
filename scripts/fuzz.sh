#!/usr/bin/env bash
# Builds the fuzz targets (fuzz/, clang's libFuzzer with AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each for SECONDS (default 60), starting from its seed
# corpus in tests/fuzz/<target>/. A finding stops nothing else: every target runs, a table of
# executions is printed, and the script fails when any target found something. The input that
# broke a target is kept in build/fuzz/findings/.
#   scripts/fuzz.sh [SECONDS]          LUMACFG_FUZZ_JOBS=N runs N targets at a time (default 1)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
jobs=${LUMACFG_FUZZ_JOBS:-1}

scripts/install-packages.sh clang libclang-rt-dev cmake ninja-build

build=build/fuzz
CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DLUMACFG_FUZZ=ON -DLUMACFG_BUILD_TESTS=OFF -DLUMACFG_BUILD_BENCH=OFF >/dev/null
cmake --build "$build"

results=$build/results
rm -rf "$results" && mkdir -p "$results" "$build/findings"

# One target: its corpus grows in build/fuzz/corpus/<target> (seeded from tests/fuzz/<target>);
# its log and its exit status go to build/fuzz/results.
run_target() {
    local target=$1 corpus=$build/corpus/$1
    mkdir -p "$corpus"
    local status=0
    "$build/fuzz/${target}_fuzz" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$PWD/$build/findings/$target-" \
        "$corpus" "tests/fuzz/$target" >"$results/$target.log" 2>&1 || status=$?
    echo "$status" >"$results/$target.status"
}

targets=()
for source in fuzz/*_fuzz.cpp; do
    name=$(basename "$source" .cpp)
    targets+=("${name%_fuzz}")
done
for target in "${targets[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n; done
    echo "fuzzing $target for ${seconds} s"
    run_target "$target" &
done
wait

failed=0
printf '%-20s %12s %10s %8s  %s\n' target executions "per s" corpus result
for target in "${targets[@]}"; do
    log=$results/$target.log
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    size=$(find "$build/corpus/$target" -type f | wc -l)
    if [ "$(cat "$results/$target.status")" = 0 ]; then
        result=passed
    else
        result="FOUND (see $log)"
        failed=1
        grep -m1 -E '^(property broken|==[0-9]+==ERROR|SUMMARY)' "$log" || true
    fi
    printf '%-20s %12s %10s %8s  %s\n' "$target" "${runs:-?}" "${rate:-?}" "$size" "$result"
done
exit $failed
