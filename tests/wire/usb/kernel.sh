# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# Sourced by run. Gets the distribution's kernel for the virtual machine; nothing is installed.

guestModules=(dummy_hcd libcomposite usb_f_hid usbhid hid-generic)

# apt_get ARGS...: apt with lists and caches of its own in the folder apt/, so that it works without root and
# leaves the machine's lists as they are.
private_apt_get() {
  mkdir -p apt/lists/partial apt/cache/archives/partial
  apt-get -q -o Dir::State::Lists="$PWD/apt/lists" -o Dir::Cache="$PWD/apt/cache" \
    -o APT::Sandbox::User="$(id -un)" "$@"
}

# The name of the package that stands behind linux-image-amd64. (The cloud kernel has no dummy_hcd.)
kernel_package() {
  apt-cache "$@" depends linux-image-amd64 2>/dev/null | sed -n 's/.*Depends: \(linux-image-[^ ]*\).*/\1/p' | head -n 1
}

# Leaves the package in the current folder: from the machine's lists, or from fresh ones of our own when those
# are missing or too old.
download_kernel() {
  local name
  name=$(kernel_package)
  if [ -n "$name" ] && apt-get -q -o APT::Sandbox::User="$(id -un)" download "$name"; then return 0; fi
  private_apt_get update || true # another repository of this machine may be out of reach
  name=$(kernel_package -o Dir::State::Lists="$PWD/apt/lists" -o Dir::Cache="$PWD/apt/cache")
  [ -n "$name" ] && private_apt_get download "$name"
}

# QEMU starts an unpacked kernel at once; unpacking a compressed one inside the machine takes many seconds.
unpack_vmlinux() {
  python3 - "$1" "$2" <<'END'
import lzma, sys
packed = open(sys.argv[1], 'rb').read()
start = packed.index(b'\xfd7zXZ\0')
open(sys.argv[2], 'wb').write(lzma.LZMADecompressor().decompress(packed[start:]))
END
}

# collect_modules TREE VERSION OUT: the modules of the guest and what they need, with their order in OUT/order.
collect_modules() {
  local file
  mkdir -p "$3" && depmod -b "$1" "$2" || return 1
  modprobe -d "$1" -S "$2" --show-depends -a "${guestModules[@]}" | sed -n 's/^insmod \([^ ]*\).*/\1/p' |
    awk '!seen[$0]++' | while read -r file; do
    cp "$file" "$3/" && basename "$file" >>"$3/order" || return 1
  done
}

# fetch_kernel FOLDER: FOLDER/vmlinux and FOLDER/modules, kept for later runs.
fetch_kernel() {
  [ -e "$1/modules/order" ] && return 0
  echo "Fetching a kernel for the virtual machine" >&2
  local work version
  work=$(mktemp -d "$1.XXXXXX")
  ( # joined by &&, since "set -e" does not hold on the left of a "||"
    cd "$work" &&
      download_kernel &&
      dpkg-deb -x linux-image-*.deb tree &&
      version=$(basename tree/boot/vmlinuz-* | sed 's/^vmlinuz-//') &&
      mkdir ready &&
      unpack_vmlinux "tree/boot/vmlinuz-$version" ready/vmlinux &&
      collect_modules "$PWD/tree" "$version" ready/modules
  ) >"$work/log" 2>&1 || {
    tail -n 20 "$work/log" >&2
    rm -rf "$work"
    return 1
  }
  rm -rf "$1"
  mv -T "$work/ready" "$1"
  rm -rf "$work"
}
