#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the demo need.
# Quick when everything is there: apt is only touched for missing packages.
set -euo pipefail

packages=(
    build-essential cmake ninja-build
    qt6-base-dev libqt6sql6-sqlite qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-translations-l10n
    libqpdf-dev libharfbuzz-dev qpdf fonts-noto-cjk poppler-utils xvfb xauth
    libbenchmark-dev clang gcovr
)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done

[ ${#missing[@]} -eq 0 ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
    echo "Missing packages: ${missing[*]}" >&2
    echo "Run as root, or install them with: sudo apt-get install ${missing[*]}" >&2
    exit 1
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
apt-get install -y -qq --no-install-recommends "${missing[@]}"
