# SPDX-License-Identifier: MIT
# shellcheck shell=dash
# The cases in the order of their run; check.py knows what each must leave behind.

cases='absent upload two_reports silent nonsense unplugged refused devices interrupted monitor'
program=/home/user/presets.xml

case_absent() {
  halvex new new $program
  halvex upload upload $program --device tc420
}

case_upload() {
  plug tc420
  halvex upload upload $program --device tc420
}

case_two_reports() {
  plug tc420 --reports 2
  halvex upload upload $program --device tc420 --trace
}

case_silent() {
  plug tc420 --silent
  halvex upload upload $program --device tc420
}

case_nonsense() {
  plug tc420 --nonsense
  halvex upload upload $program --device tc420
}

case_unplugged() {
  plug tc420 --unplug-after 6 --once
  halvex upload upload $program --device tc420
  unplug tc420
  plug again
  halvex again upload $program --device tc420
}

case_refused() {
  plug tc420 --refuse-open
  halvex upload upload $program --device tc420
  halvex list devices
}

case_devices() {
  plug tc420
  halvex plugged devices
  unplug tc420
  halvex nothing devices
}

case_interrupted() {
  plug tc420 --delay 50
  (
    await_frames tc420 5
    interrupt_halvex
  ) &
  halvex upload upload $program --device tc420
  wait $!
}

# The TC421 comes between two looks at the bus, so that a line repeated at every look would show.
case_monitor() {
  (
    plug tc420 --udc dummy_udc.0
    await monitor.out 'Orvanta 24 Device connected'
    plug tc421 --model tc421 --udc dummy_udc.1
    await monitor.out 'Orvanta 24 Wi-Fi Device connected'
    unplug tc420
    await monitor.out 'Orvanta 24 Device disconnected'
    interrupt_halvex
  ) &
  halvex monitor monitor
  wait $!
}
