#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Puts what the Windows build needs and a cross compiler does not bring into build/deps: the source of hidapi,
# from the distribution's source package of the version that Linux builds link, and the header-only libraries,
# apart from the system's own headers.
set -euo pipefail
cd "$(dirname "$0")/../.."

version=0.13.1
checksum=476a2c9a4dc7d1fc97dd223b84338dbea3809a84caea2dcd887d9778725490e3
deps=$PWD/build/deps

mkdir -p "$deps/include"
ln -sfn /usr/include/CLI "$deps/include/CLI"
ln -sfn /usr/include/nlohmann "$deps/include/nlohmann"
ln -sfn /usr/include/stb "$deps/include/stb"
[ -f "$deps/hidapi/windows/hid.c" ] && exit 0

# A list of our own, so that the machine's lists stay as they are.
apt=$deps/apt
mkdir -p "$apt/parts" "$apt/lists/partial" "$apt/cache/archives/partial"
for list in /etc/apt/sources.list /etc/apt/sources.list.d/debian.*; do
  case $list in
    *.sources) [ ! -f "$list" ] || sed 's/^Types:.*/Types: deb-src/' "$list" >"$apt/parts/${list##*/}" ;;
    *) [ ! -f "$list" ] || sed -n 's/^deb /deb-src /p' "$list" >"$apt/parts/${list##*/}.list" ;;
  esac
done
options=(-qq -o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$apt/parts" -o "Dir::State::Lists=$apt/lists"
  -o "Dir::Cache=$apt/cache" -o APT::Sandbox::User=root)
apt-get "${options[@]}" update
(cd "$apt" && apt-get "${options[@]}" source --download-only hidapi >/dev/null)
archive=$(ls "$apt/hidapi_$version".orig.tar.*)
echo "$checksum  $archive" | sha256sum --check --quiet
mkdir -p "$deps/hidapi"
tar -xf "$archive" -C "$deps/hidapi" --strip-components=1
rm -rf "$apt"
