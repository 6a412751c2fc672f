#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Puts the libraries that a build for ARCH links into build/deps/ARCH: arm-deps.sh arm64|armhf. They are unpacked,
# not installed; the machine's own packages and lists stay as they are.
set -euo pipefail
cd "$(dirname "$0")/../.."
. scripts/lib/packages.sh

arch=$1
root=$PWD/build/deps/$arch
[ -f "$root/DEBIAN/symbols" ] && exit 0
need_packages mmdebstrap
rm -rf "$root"
mkdir -p build/deps

# Which versions of its libraries a program needs, dpkg-shlibdeps reads in DEBIAN/symbols.
symbols='mkdir "$1/DEBIAN" && for deb in "$1"/var/cache/apt/archives/*.deb; do
  dpkg-deb --info "$deb" symbols 2>/dev/null || true
done >"$1/DEBIAN/symbols"'
if ! env $(apt_proxy) mmdebstrap --mode=chrootless --variant=extract --architectures="$arch" \
  --include=libhidapi-dev,libgtest-dev,libstdc++6,libcli11-dev,nlohmann-json3-dev \
  --extract-hook="$symbols" "$(debian_codename)" "$root" "$(debian_mirror)" >"$root.log" 2>&1; then
  tail -n 20 "$root.log" >&2
  rm -rf "$root"
  exit 1
fi
