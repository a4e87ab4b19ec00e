#!/usr/bin/env bash
# Installs the build into a fresh prefix and uses it from there only: a consumer project outside the
# source tree finds the CMake package, links the report library and prints through the installed
# plug-in; the installed print tool runs from the prefix.
# Usage: install_consumer.sh BUILD_DIR SOURCE_DIR GENERATOR [CXX_FLAGS] [PRINT_TOOL_NAME]
set -euo pipefail
build=$(realpath "$1")
source=$(realpath "$2")
generator=$3
cxxflags=${4:-}
tool_name=${5:-}

work=$(mktemp -d "${TMPDIR:-/tmp}/coagulation-install.XXXXXX")
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null

# Nothing installed may point back into the build tree.
if grep -rIl -- "$build" "$prefix" ; then
    echo "FAIL: installed files name the build tree $build" >&2
    exit 1
fi
while IFS= read -r -d '' binary; do
    if readelf -d "$binary" 2>/dev/null | grep -E 'R(UN)?PATH' | grep -q -- "$build"; then
        echo "FAIL: $binary has a run path into the build tree" >&2
        exit 1
    fi
done < <(find "$prefix/bin" "$prefix/lib" -type f -print0)

plugin_dir=$prefix/lib/coagulation/plugins
[ -n "$(ls -A "$plugin_dir")" ] || { echo "FAIL: empty plug-in folder $plugin_dir" >&2; exit 1; }
for header in core/profile.h kvcore/datastorage.h report/report.h report/reportprinter.h; do
    [ -f "$prefix/include/coagulation/$header" ] || { echo "FAIL: header $header not installed" >&2; exit 1; }
done

launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cp -r "$source/tests/consumer" "$work/consumer-source"
cmake -S "$work/consumer-source" -B "$work/consumer" -G "$generator" "${launcher[@]}" \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF \
    -DCMAKE_CXX_FLAGS="$cxxflags" >/dev/null
package_dir=$(sed -n 's/^CoagulationReport_DIR:PATH=//p' "$work/consumer/CMakeCache.txt")
case "$package_dir" in
    "$prefix"/*) ;;
    *) echo "FAIL: the package was found in '$package_dir', not under $prefix" >&2; exit 1 ;;
esac
cmake --build "$work/consumer" >/dev/null
env -u LD_LIBRARY_PATH "$work/consumer/consumer"

# The installed print tool, run from the prefix with nothing of the build tree around: it finds its
# libraries, the plug-in and the default templates there.
[ -n "$tool_name" ] || exit 0
tool=$prefix/bin/$tool_name
env -u LD_LIBRARY_PATH -u COAGULATION_PLUGIN_PATH "$tool" demo "$work/lab" --patients 1 >/dev/null
env -u LD_LIBRARY_PATH -u COAGULATION_PLUGIN_PATH "$tool" patients 1 -p "$work/lab/profile.ini" -o "$work/one.pdf"
[ -s "$work/one.pdf" ] || { echo "FAIL: the installed print tool wrote no PDF" >&2; exit 1; }
