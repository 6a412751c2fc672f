# SPDX-License-Identifier: MIT
# Sourced by the scripts, in the project's root.
. scripts/lib/packages.sh

native_packages=(g++ cmake ninja-build pkg-config libhidapi-dev libcli11-dev nlohmann-json3-dev)
test_packages=(libgtest-dev python3)
arm_packages=(g++-aarch64-linux-gnu g++-arm-linux-gnueabihf qemu-user-static dpkg-dev)
windows_packages=(g++-mingw-w64-x86-64-posix googletest libstb-dev wine wine64)

# Keeps what a build prints in LOG. Where there is something to build it says so, on a terminal with how far it is:
# keep_log PRESET LOG
keep_log() {
  awk -v preset="$1" -v log_file="$2" -v on_terminal="$([ -t 2 ] && echo 1)" '
    { print >log_file }
    /^\[[0-9]+\/[0-9]+\]/ && (on_terminal || !count++) {
      printf (on_terminal ? "\rBuilding %s %s " : "Building %s\n"), preset, $1 >"/dev/stderr"
      count++
    }
    END { if (on_terminal && count) print "" >"/dev/stderr" }'
}

# build PRESET [TARGET...]: configures and builds; what the tools print is shown only when they fail. With
# HALVEX_WERROR set warnings fail, and go on doing so in that folder.
build() {
  local preset=$1 log=build/$1/build.log
  shift
  mkdir -p "build/$preset"
  if ! {
    cmake --preset "$preset" ${HALVEX_WERROR:+-DHALVEX_WERROR=ON} &&
      cmake --build --preset "$preset" ${1+--target "$@"}
  } 2>&1 | keep_log "$preset" "$log"; then
    grep -E -A 12 'error|FAILED|Error' "$log" | tail -n 60 >&2
    echo "The build of $preset failed; all of it is in $log" >&2
    return 1
  fi
}

# The same for a Debian package of ARCH, with Debian's own options, such as those against overflows, but for what is
# stripped in the end: build_for_debian ARCH PRESET [TARGET...]
build_for_debian() (
  export DEB_HOST_ARCH=$1 DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CFLAGS_MAINT_STRIP=-g DEB_CXXFLAGS_MAINT_STRIP=-g
  shift
  CPPFLAGS=$(dpkg-buildflags --get CPPFLAGS)
  CXXFLAGS="$CPPFLAGS $(dpkg-buildflags --get CXXFLAGS)" CFLAGS="$CPPFLAGS $(dpkg-buildflags --get CFLAGS)" \
    LDFLAGS="$(dpkg-buildflags --get LDFLAGS)" build "$@"
)
