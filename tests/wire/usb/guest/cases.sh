# SPDX-License-Identifier: MIT
# shellcheck shell=dash
# The cases in the order of their run; test_usb.py knows what each must leave behind.

cases='upload two_reports unplugged refused devices equals interrupted monitor tc421 both_models tc421_demo'
program=/home/user/presets.xml

# The only one needs no name.
case_upload() {
  halvex new new $program
  plug tc420
  halvex upload upload $program
}

case_two_reports() {
  plug tc420 --reports 2
  halvex upload upload $program --device tc420 --trace
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
  halvex doctor doctor
  export SSH_CONNECTION=1
  halvex remote devices
  unset SSH_CONNECTION
  node=$(sed -n 's/^Plugged in as //p' tc420.log)
  chgrp plugdev "$node"
  chmod 660 "$node"
  halvex group devices
}

case_devices() {
  plug tc420
  halvex plugged devices
  unplug tc420
  halvex nothing devices
}

case_equals() {
  plug first --udc dummy_udc.0
  plug second --udc dummy_udc.1
  halvex list devices
  halvex which upload $program
  halvex first upload $program --device tc420
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

# Every operation of a TC421, one after another.
case_tc421() {
  plug tc421 --model tc421
  halvex list devices
  halvex upload upload $program --device tc421
  halvex clock set-time '2028-02-29 23:59:58' --device tc421
  halvex clear clear --device tc421 --yes
  halvex open wifi --device tc421 --ssid 'Reef {1}' --security open
  halvex_reading 's3cr\303\251t' protected wifi --device tc421 --ssid "$(printf 'Caf\303\251')" --security 2 --encryption 4 --password-stdin
}

# Both in one call. The TC420's silence is no failure, the TC421's is.
case_both_models() {
  plug tc420 --udc dummy_udc.0 --silent
  plug tc421 --model tc421 --udc dummy_udc.1
  halvex list devices
  halvex upload upload $program --mode 2 --device tc420 --device tc421
  unplug tc421
  plug mute --model tc421 --udc dummy_udc.1 --silent
  halvex mute upload $program --mode 2 --device tc420 --device tc421
}

# A demo to its end, one that keeps others out and is interrupted, and one that loses its controller.
case_tc421_demo() {
  plug tc421 --model tc421
  halvex whole demo $program --device tc421 --seconds 10
  plug other --udc dummy_udc.1
  (
    await_frames other 5
    first=$(cat /tmp/halvex.pid)
    halvex second upload $program --device tc420
    halvex beside devices
    kill -INT "$first"
  ) &
  halvex interrupted demo $program --device tc420
  wait $!
  unplug tc421
  plug gone --model tc421 --udc dummy_udc.0 --unplug-after 10 --once
  halvex gone demo $program --device tc421 --seconds 10
}
