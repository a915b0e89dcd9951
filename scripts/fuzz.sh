#!/usr/bin/env bash
# Builds the fuzz targets (fuzz/, clang's libFuzzer with AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each, starting from its seed corpus in tests/fuzz/<target>/
# (every file there is run first). A finding stops nothing else: every target runs, a table of
# executions is printed, and the script fails when any target found something. The input that
# broke a target is kept in build/fuzz/findings/.
#   scripts/fuzz.sh [SECONDS]   a campaign: each target for SECONDS (default 60) from a random
#                               seed, its corpus growing in build/fuzz/corpus/<target>
#   scripts/fuzz.sh --ci        the check of scripts/test.sh: each target from the seed corpus
#                               alone, with a fixed seed and a fixed number of inputs (about a
#                               minute each here): every run does the same work from the same
#                               first inputs (docs/reliability.md, "In CI")
#   LUMACFG_FUZZ_JOBS=N runs N targets at a time (default 1).
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=${LUMACFG_FUZZ_JOBS:-1}
ci=false
seconds=60
case "${1:-}" in
    --ci) ci=true ;;
    "") ;;
    *) seconds=$1 ;;
esac
build=build/fuzz
corpora=$build/corpus
if $ci; then corpora=$build/ci-corpus; fi

# The inputs each target runs in the --ci check, sized to about a minute on a 2-core machine.
declare -A ci_inputs=(
    [custrack]=40000
    [opal_applications]=600000
    [profile_document]=70000
    [registry]=360000
    [station]=8000
)

scripts/install-packages.sh clang libclang-rt-dev cmake ninja-build libpam0g-dev

CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DLUMACFG_FUZZ=ON -DLUMACFG_BUILD_TESTS=OFF -DLUMACFG_BUILD_BENCH=OFF >/dev/null
cmake --build "$build"

results=$build/results
rm -rf "$results" && mkdir -p "$results" "$build/findings"

# One target: its corpus grows in build/fuzz/corpus/<target> (for --ci in a fresh
# build/fuzz/ci-corpus/<target>) and it reads tests/fuzz/<target>; its log and its exit status
# go to build/fuzz/results.
run_target() {
    local target=$1 corpus=$corpora/$1 limit=(-max_total_time="$seconds")
    if $ci; then
        rm -rf "$corpus"
        limit=(-seed=1 -runs="${ci_inputs[$target]}")
    fi
    mkdir -p "$corpus"
    local status=0
    "$build/fuzz/${target}_fuzz" "${limit[@]}" -timeout=20 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$PWD/$build/findings/$target-" \
        "$corpus" "tests/fuzz/$target" >"$results/$target.log" 2>&1 || status=$?
    echo "$status" >"$results/$target.status"
}

targets=()
for source in fuzz/*_fuzz.cpp; do
    name=$(basename "$source" .cpp)
    targets+=("${name%_fuzz}")
    if $ci && [ -z "${ci_inputs[${name%_fuzz}]:-}" ]; then
        echo "scripts/fuzz.sh: no number of inputs for target ${name%_fuzz} in ci_inputs" >&2
        exit 2
    fi
done
for target in "${targets[@]}"; do
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n; done
    if $ci; then
        echo "fuzzing $target: ${ci_inputs[$target]} inputs from seed 1"
    else
        echo "fuzzing $target for ${seconds} s"
    fi
    run_target "$target" &
done
wait

failed=0
printf '%-20s %12s %10s %8s  %s\n' target executions "per s" corpus result
for target in "${targets[@]}"; do
    log=$results/$target.log
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    size=$(find "$corpora/$target" -type f | wc -l)
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
