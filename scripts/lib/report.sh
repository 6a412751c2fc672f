# SPDX-License-Identifier: MIT
# Sourced by what tests: a line a case, and a last line that counts them.
passed=0
failed=0
skipped=0

report() { # report NAME FAULT: an empty FAULT is success
  if [ -z "$2" ]; then
    passed=$((passed + 1))
    echo "ok      $1"
  else
    failed=$((failed + 1))
    echo "FAILED  $1: $2"
  fi
}

# What this machine does not allow is skipped; where nothing may be missing, with CI=true, it has failed.
skip() { # skip NAME REASON
  if [ "${CI:-}" = true ]; then
    report "$1" "$2"
  else
    skipped=$((skipped + 1))
    echo "skipped $1: $2"
  fi
}

finish() {
  local skips=
  [ "$skipped" -eq 0 ] || skips=", $skipped skipped"
  echo "$passed passed, $failed failed$skips"
  [ "$failed" -eq 0 ]
  exit
}

# What cannot go on is one fault: give_up NAME FAULT
give_up() {
  report "$1" "${2:-impossible}"
  finish
}

# Goes on where the machine lends namespaces; else NAME is skipped: need_apart NAME
need_apart() {
  local reason
  reason=$("$root/scripts/lib/apart" true 2>&1) || {
    skip "$1" "$reason"
    finish
  }
}
