# SPDX-License-Identifier: MIT
# shellcheck shell=dash
# What the cases are made of. Each case has a folder of its own in /results and runs in it.

# trouble TEXT: the case has not gone as planned; the checks report it.
trouble() {
  echo "$1" >>trouble.txt
}

# until_true SECONDS COMMAND...: tries ten times a second.
until_true() {
  local left=$(($1 * 10))
  shift
  until "$@" 2>/dev/null; do
    left=$((left - 1))
    [ "$left" -gt 0 ] || return 1
    usleep 100000
  done
}

# await FILE TEXT: waits for a line that begins so.
await() {
  until_true 20 grep -q "^$2" "$1" || trouble "\"$2\" never came in $1"
}

has_frames() { [ "$(wc -l <"$1.frames")" -ge "$2" ]; }

# await_frames CONTROLLER COUNT
await_frames() {
  until_true 20 has_frames "$1" "$2" || trouble "$2 frames never came to $1"
}

# plug CONTROLLER SIM-USB-ARGS...: leaves CONTROLLER.frames, the frames that arrived.
plug() {
  local controller=$1
  shift
  : >"$controller.frames"
  sim-usb --transcript "$controller.frames" "$@" >"$controller.log" 2>&1 &
  echo $! >"$controller.pid"
  await "$controller.log" "Plugged in"
}

node_gone() { [ ! -e "$1" ]; }

# unplug CONTROLLER: also when it has unplugged itself.
unplug() {
  kill "$(cat "$1.pid")" 2>/dev/null
  await "$1.log" "Unplugged"
  until_true 5 node_gone "$(sed -n 's/^Plugged in as //p' "$1.log")" || trouble "$1 is still on the bus"
  rm "$1.pid"
}

# halvex_reading TEXT RUN ARGS...: the same with a line on standard input, printf's escapes in it.
halvex_reading() {
  input=$1
  shift
  halvex "$@"
  input=
}

# halvex RUN ARGS...: as an ordinary user, never longer than 45 s; leaves RUN.out, RUN.err, RUN.status and
# RUN.seconds.
halvex() {
  local run=$1 begin end
  shift
  rm -f /tmp/halvex.pid
  read -r begin _ </proc/uptime
  printf "$input\n" | timeout -s KILL 45 su -s /bin/sh -c 'echo $$ >/tmp/halvex.pid; exec /bin/halvex "$@"' -- user sh "$@" \
    >"$run.out" 2>"$run.err"
  echo $? >"$run.status"
  read -r end _ </proc/uptime
  echo "$begin $end" >"$run.seconds"
}

interrupt_halvex() {
  until_true 5 test -s /tmp/halvex.pid || trouble "halvex never started"
  kill -INT "$(cat /tmp/halvex.pid)"
}

# run_case NAME: runs case_NAME and sends its folder to the second serial port.
run_case() {
  mkdir "/results/$1"
  cd "/results/$1"
  echo "case $1"
  "case_$1"
  for pid in *.pid; do
    [ -e "$pid" ] && unplug "${pid%.pid}"
  done
  cd /results
  tar -c "$1" >/dev/ttyS1
}
