#!/usr/bin/env bash
# Puts deliberate faults into report/ one at a time and tells which the test suite catches.
#   scripts/faultcheck.sh BUILD_DIR [PATCH_DIR | PATCH...]     (default: scripts/faults)
# The patches go into the source tree BUILD_DIR was configured from.
# For each patch: apply it, rebuild, run CTest until the first failure, revert it (also on
# Ctrl-C or a failed build). Progress goes to stderr, the table to stdout.
set -uo pipefail

[ $# -ge 1 ] || { echo "usage: $0 BUILD_DIR [PATCH_DIR | PATCH...]" >&2; exit 2; }
build=$(realpath "$1")
shift
[ -f "$build/CTestTestfile.cmake" ] || { echo "$build is not a configured build with tests" >&2; exit 2; }
# The faults go into the sources the build was configured from.
root=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$build/CMakeCache.txt")
[ $# -ge 1 ] || set -- "$(dirname "$(realpath "$0")")/faults"
patches=()
for arg in "$@"; do
    if [ -d "$arg" ]; then patches+=("$(realpath "$arg")"/*.patch); else patches+=("$(realpath "$arg")"); fi
done
cd "$root"
git diff --quiet -- report || { echo "report/ has uncommitted changes; commit or stash them first" >&2; exit 2; }

applied=""
revert() {
    [ -n "$applied" ] && git apply -R "$applied" && applied=""
}
trap revert EXIT
trap 'exit 130' INT TERM

log=$(mktemp)
rows=()
caught=0 missed=0 broken=0
for patch in "${patches[@]}"; do
    name=$(basename "$patch" .patch)
    echo "== $name ($(date -u +%H:%M:%S))" >&2
    if ! git apply "$patch"; then
        rows+=("$(printf '%-40s %-13s %s' "$name" "did not apply" "")")
        broken=$((broken + 1))
        continue
    fi
    applied=$patch
    if ! cmake --build "$build" -j2 >"$log" 2>&1; then
        result="did not build" test=""
        broken=$((broken + 1))
    elif rm -f "$build"/Testing/Temporary/{CTestCostData.txt,LastTestsFailed.log} && # declared order
        ctest --test-dir "$build" --stop-on-failure -j2 --timeout 300 --output-on-failure >"$log" 2>&1; then
        result="MISSED" test=""
        missed=$((missed + 1))
    else
        result="caught"
        caught=$((caught + 1))
        # The first test CTest reports as not passed, and the first Qt Test function that failed.
        test=$(grep -E 'Test +#[0-9]+: ' "$log" | grep -v ' Passed ' | head -1 | sed -E 's/.*#[0-9]+: ([^ ]+).*/\1/')
        function=$(grep -m1 -oE '^FAIL! +: [^ (]+(\([^)]*\))?' "$log" | sed -E 's/^FAIL! +: //')
        [ -n "$function" ] && test="$test  ($function)"
    fi
    echo "   $result $test" >&2
    rows+=("$(printf '%-40s %-13s %s' "$name" "$result" "$test")")
    revert
done
rm -f "$log"

printf '%-40s %-13s %s\n' "fault" "result" "first failing test  (first failing function)"
printf '%s\n' "${rows[@]}"
echo "caught $caught, missed $missed, did not build or apply $broken, of ${#patches[@]}" \
    "(at $(git rev-parse --short HEAD))"
