#!/usr/bin/env bash
# Brings translations/*.ts up to date with the tr() texts of report/, host/ and apps/ (lupdate).
#   scripts/update-translations.sh            update the .ts files in place (the "lupdate" target)
#   scripts/update-translations.sh --check    change nothing; fail when lupdate would change a .ts
#                                             file or an entry is still unfinished (a test)
# LUPDATE names the lupdate program (default: Qt 6's).
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
lupdate=${LUPDATE:-/usr/lib/qt6/bin/lupdate}
check=0
[ "${1:-}" = --check ] && check=1

cd "$root"
status=0
for ts in translations/*.ts; do
    target=$ts
    if [ $check = 1 ]; then
        work=$(mktemp -d)
        trap 'rm -rf "$work"' EXIT
        target=$work/$(basename "$ts")
        cp "$ts" "$target"
    fi
    # No source locations: line numbers would change the files on every edit.
    log=$("$lupdate" -locations none -no-obsolete -source-language zh_CN report host apps -ts "$target" 2>&1)
    # A tr() that lupdate cannot place in its class would never be translated at run time.
    if grep -E '^[^ ].*:[0-9]+: ' <<<"$log"; then
        echo "$ts: lupdate cannot read the texts above" >&2
        status=1
    fi
    [ $check = 1 ] || continue
    if ! diff -u "$ts" "$target" >&2; then
        echo "$ts is not up to date: run 'cmake --build --preset default --target lupdate', then translate" >&2
        status=1
    fi
    unfinished=$(grep -c 'type="unfinished"' "$target" || true)
    if [ "$unfinished" != 0 ]; then
        grep -B2 'type="unfinished"' "$target" | grep '<source>' >&2 || true
        echo "$ts: $unfinished texts without translation" >&2
        status=1
    fi
done
exit $status
