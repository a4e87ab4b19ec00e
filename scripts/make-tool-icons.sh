#!/bin/sh
# Redraws report/resources/tool*.png with scripts/toolicons.
set -e
root=$(cd "$(dirname "$0")/.." && pwd)
build=${TMPDIR:-/tmp}/coagulation-toolicons
cmake -S "$root/scripts/toolicons" -B "$build" -G Ninja >/dev/null
cmake --build "$build" >/dev/null
mkdir -p "$root/report/resources"
QT_QPA_PLATFORM=offscreen "$build/toolicons" "$root/report/resources"
