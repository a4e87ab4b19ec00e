#!/usr/bin/env bash
# Line and branch coverage of report/ and host/ after a test run of the coverage build.
#   scripts/coverage.sh [BUILD_DIR [BEFORE.json]]        (default: build/coverage)
# Prints a summary per directory and the totals; writes BUILD_DIR/coverage.txt (per file),
# coverage.json (per line, for comparing runs) and html/index.html. With the coverage.json of an
# earlier run it also lists the lines of report/ that the earlier run covered and this one does not.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$(realpath "${1:-$root/build/coverage}")
cd "$root"
mkdir -p "$build/html"
# Branches to exception handlers are the compiler's, not the code's: they are left out. A few
# branch counts come out negative in gcov's output; gcovr skips those lines instead of stopping.
gcovr --root . --object-directory "$build" --filter 'report/' --filter 'host/' \
    --exclude '.*_autogen/' --exclude '.*qrc_[^/]*$' --exclude-throw-branches --gcov-ignore-parse-errors \
    --json "$build/coverage.json" --txt "$build/coverage.txt" --html-details "$build/html/index.html" \
    "$build" >/dev/null 2>"$build/gcovr.log" || { cat "$build/gcovr.log" >&2; exit 1; }

for dir in report host ''; do
    echo "== ${dir:-total}"
    gcovr --root . --add-tracefile "$build/coverage.json" --filter "${dir:-.*}/" --print-summary \
        --txt /dev/null | grep -E '^(lines|branches):'
done
[ $# -lt 2 ] || scripts/lostcoverage.py "$2" "$build/coverage.json"
echo "Reports: $build/coverage.txt, $build/html/index.html"
