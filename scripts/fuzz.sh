#!/usr/bin/env bash
# Runs each template fuzz target for SECONDS (default 60) from the fuzz build.
#   scripts/fuzz.sh [SECONDS] [TARGET...]
# Seeds: the default templates and the test templates in fuzz/corpus; new inputs are kept in
# build/fuzz/corpus/<target>, findings in build/fuzz/findings/. A finding fails the run.
# FUZZ_JOBS=3 runs the targets side by side; FUZZ_NICE sets their niceness (default 10);
# FUZZ_TIMEOUT the seconds after which one input counts as a hang (default 10; wall-clock time,
# so raise it on a machine where the fuzzers only get what others leave).
set -uo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
targets=("$@")
[ ${#targets[@]} -eq 0 ] && targets=(fuzz_templateload fuzz_templateroundtrip fuzz_templaterender)
jobs=${FUZZ_JOBS:-1}
bin=build/fuzz/bin
# The system libraries' own one-time allocations are no leaks of ours (as in the sanitizer suite).
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
mkdir -p build/fuzz/findings

run() {
    local target=$1 corpus=build/fuzz/corpus/$1
    mkdir -p "$corpus"
    # A run of one input over the timeout counts as a hang, over 2 GB as running out of memory.
    nice -n "${FUZZ_NICE:-10}" "$bin/$target" -max_total_time="$seconds" -timeout="${FUZZ_TIMEOUT:-10}" -rss_limit_mb=2048 \
        -dict=fuzz/template.dict -artifact_prefix="build/fuzz/findings/$target-" \
        -print_final_stats=1 "$corpus" fuzz/corpus templates >"build/fuzz/$target.log" 2>&1
    local status=$?
    grep -E '^(#[0-9]+ +DONE|stat::number_of_executed_units|stat::peak_rss_mb)' "build/fuzz/$target.log" |
        sed "s/^/$target: /"
    [ $status -eq 0 ] || { echo "$target: FAILED (exit $status), see build/fuzz/$target.log" >&2; return 1; }
}

failed=0
if [ "$jobs" -gt 1 ]; then
    pids=()
    for t in "${targets[@]}"; do run "$t" & pids+=($!); done
    for p in "${pids[@]}"; do wait "$p" || failed=1; done
else
    for t in "${targets[@]}"; do run "$t" || failed=1; done
fi
exit $failed
