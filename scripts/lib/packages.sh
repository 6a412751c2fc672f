# SPDX-License-Identifier: MIT
# Sourced by the scripts. Installs Debian packages that are missing, once and quietly.

# need_packages NAME...: does nothing when all are installed; else uses apt as root, or through sudo.
need_packages() {
  local missing=() name as_root=()
  for name in "$@"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$name" 2>/dev/null | grep -qx installed || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
      echo "These packages are missing; install them as root: ${missing[*]}" >&2
      return 1
    }
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}" >&2
  local log
  log=$(mktemp)
  if ! {
    "${as_root[@]}" apt-get update &&
      "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
  } >"$log" 2>&1 </dev/null; then
    tail -n 20 "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}

debian_codename() {
  (. /etc/os-release && echo "$VERSION_CODENAME")
}

# The mirror that apt takes this Debian from.
debian_mirror() {
  local mirror
  mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' "Codename: $(debian_codename)" \
    'Component: main' | head -n 1)
  mirror=${mirror%/}
  case $mirror in mirror+file:*) mirror=$(awk 'NR == 1 { print $1 }' "/${mirror#mirror+file:*/}") ;; esac
  [ -n "$mirror" ] || { echo "apt's sources name no mirror of $(debian_codename)" >&2; return 1; }
  echo "$mirror"
}

# What is downloaded comes the way that apt takes: an assignment for env, if it needs one.
apt_proxy() {
  [ -n "${http_proxy:-}" ] || eval "$(apt-config shell http_proxy Acquire::http::Proxy)"
  echo "${http_proxy:+http_proxy=$http_proxy}"
}
