# SPDX-License-Identifier: MIT
"""The program against simulated TC421 controllers, over a network of namespaces."""
import datetime
import re
import signal

import pytest

import tc421
from lab import HOME
from runs import Run, wait_for

ONE, TWO, THREE = '10.77.0.11', '10.77.0.12', '10.77.0.13'
TO_ONE, TO_TWO = ('--device', f'tc421@{ONE}'), ('--device', f'tc421@{TWO},reef')

# Scans.

def found(run):
    return sorted(re.split(r'\s{2,}', line) for line in run.out)


def test_scan_finds_all(network):
    long_name = 'Korallenriff '.ljust(60, 'o')  # the answer has room for no zero byte
    controllers = [network.controller(ONE), network.controller(TWO), network.controller(THREE, '--name', long_name)]
    run = network.halvex('devices', '--scan')
    run.ended(0)
    wanted = [[f'tc421@{ONE}', ONE, 'network'], [f'tc421@{TWO}', 'reef', 'network'],
              [f'tc421@{THREE},{long_name}', long_name, 'network']]
    assert found(run) == wanted
    run.stderr_has('Searching for network devices...', 'Found 3 device(s)', f'Trying to find hostname for {TWO}...',
                   'Found hostname reef', f'Hostname not found, using {long_name}')
    for controller in controllers:
        controller.heard_only([tc421.FIND])


# Answers a question with itself, with another packet's code, with nothing and with a beginning that looks right.
STRANGER = '''
import socket
port = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
port.bind(('', 5000))
print('Listening', flush=True)
while True:
    question, asker = port.recvfrom(100)
    for answer in question, b'\\x55\\xaa\\x18\\0Leuchte'.ljust(64, b'\\0'), b'', b'\\x55\\xaa\\x17\\0Leuchte':
        port.sendto(answer, asker)
'''


def test_scan_with_a_stranger(network):
    network.python(ONE, STRANGER)
    network.controller(THREE)
    run = network.halvex('devices', '--scan')
    run.ended(0)
    assert [row[1] for row in found(run)] == [THREE]


def test_no_network(network):
    with network.cable_pulled():
        scan = network.halvex('devices', '--scan', '--trace')
        upload = network.halvex('upload', network.presets(), *TO_ONE, '--trace')
    scan.ended(1)
    scan.stderr_has('sendto error: ', 'Found 0 device(s)')
    upload.ended(1)
    upload.stderr_has('sendto error: ')
    assert upload.seconds < 5


def test_own_address(network):
    run = network.halvex('clear', '--device', f'tc421@{HOME}', '--yes')
    run.ended(1)
    run.stderr_has("this computer's own address")


# Holds the port that the program needs.
HOLDER = '''
import socket
port = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
port.bind(('', 5000))
print('Listening', flush=True)
port.recv(1)
'''


def test_busy_port(network):
    controller = network.controller(ONE)
    network.python(HOME, HOLDER)
    for words in ('devices', '--scan'), ('upload', network.presets(), *TO_ONE):
        run = network.halvex(*words, '--trace')
        run.ended(6)
        run.stderr_has('bind error: ', '5000')
    controller.heard_only([])


# Uploads.

def upload_log(name):
    return [f'Configuring device {name}', 'Uploading started', 'Uploading mode: Normal',
            'Uploading mode: AlwaysOn', 'Uploading finished', f'Finished configuring device {name}']


def outcomes(run):
    """What the table at the end says of each device."""
    rows = (re.split(r'\s{2,}', line) for line in run.out)
    return {row[0]: row[1] for row in rows if len(row) == 2}


def test_upload_to_two(network):
    one, two = network.controller(ONE), network.controller(TWO, '--identity', 'reef', '--delay', '150')
    run = network.halvex('upload', network.presets(), *TO_ONE, *TO_TWO)
    run.ended(0)
    run.log_has(*upload_log(ONE), *upload_log('reef'))
    assert outcomes(run) == {TO_ONE[1]: 'Done', TO_TWO[1]: 'Done'}
    one.heard_only(tc421.upload(ONE))
    two.heard_only(tc421.upload('reef'))
    for controller in one, two:
        assert controller.lines('state') == tc421.held_modes()
    closest = min(one.gaps(len(tc421.mode(0, ONE))))
    assert closest >= 15


def test_upload_with_two_packets_lost(network):
    controller = network.controller(ONE, '--lose', '2')
    run = network.halvex('upload', network.presets(), *TO_ONE)
    run.ended(0)
    run.log_has(*upload_log(ONE))
    frames = tc421.upload(ONE)
    controller.heard_only(frames[:1] * 2 + frames, lost=2)
    assert controller.lines('state') == tc421.held_modes()


def test_upload_answered_in_another_order(network):
    """An older answer must not hide a lost packet: the second and third are sent once more."""
    controller = network.controller(ONE, '--on', 'ModeStep#1=swap', '--on', 'ModeStep#3=lost')
    network.halvex('upload', network.presets(), *TO_ONE, '--mode', '2').ended(0)
    begin, one, two, end = tc421.only_mode(1, ONE)
    controller.heard_only([begin, one, one, two, two, end])
    assert controller.lines('state') == tc421.held_only(1)


def test_upload_to_a_silent_one_first(network):
    silent, good = network.controller(ONE, '--silent'), network.controller(TWO, '--identity', 'reef')
    run = network.halvex('upload', network.presets(), *TO_ONE, *TO_TWO)
    run.ended(1)
    run.log_has(f'Configuring device {ONE}', 'Uploading mode: Normal', 'Upload error', 'Uploading mode: AlwaysOn',
                'Upload error', f'Finished configuring device {ONE}', *upload_log('reef'))
    silent.heard_only(tc421.mode(0, ONE)[:1] * 3 + tc421.mode(1, ONE)[:1] * 3)
    good.heard_only(tc421.upload('reef'))
    said = outcomes(run)
    assert said[TO_TWO[1]] == 'Done' and said[TO_ONE[1]] != 'Done'
    assert run.seconds < 20


# One packet each: the clock.

CLOCK = datetime.datetime(2031, 2, 3, 4, 5, 6)


def test_set_time_by_a_long_identity(network):
    controller = network.controller(ONE, '--identity', 'Korallenriff links')
    run = network.halvex('set-time', str(CLOCK), '--device', f'tc421@{ONE},Korallenriff links')
    run.ended(0)
    controller.heard_only([tc421.clock(CLOCK, 'Korallenriff')])
    assert controller.lines('state') == [f'clock {CLOCK}']


def test_sync_time(network):
    controller = network.controller(ONE)
    network.halvex('sync-time', *TO_ONE).ended(0)
    now = datetime.datetime.now()
    [line] = controller.lines('state')
    clock = datetime.datetime.fromisoformat(line.removeprefix('clock '))
    assert abs(now - clock) < datetime.timedelta(seconds=3)
    controller.heard_only([tc421.clock(clock, ONE)])


@pytest.mark.parametrize('options, trace', [
    (['--from', ONE + '1'], f'recvfrom {ONE}1:5000'),
    (['--long'], 'Received invalid packet size'),  # answers of 65 bytes
])
def test_answers_that_are_none(network, options, trace):
    controller = network.controller(ONE, *options)
    run = network.halvex('set-time', str(CLOCK), *TO_ONE, '--trace')
    run.ended(1)
    run.stderr_has(f'sendto_core {ONE}:5000', trace)
    controller.heard_only([tc421.clock(CLOCK, ONE)] * 3)
    assert all(1950 < gap < 2500 for gap in controller.gaps())
    assert run.seconds < 9


# Demos.

def channels_heard(controller):
    """(ms, five percents) of each packet between the first and the last."""
    sent = [(heard.ms, heard.packet.split()) for heard in controller.heard()[1:-1]]
    kinds = {words[0] for _, words in sent}
    assert kinds == {'PlaySetChannels'}
    return [(ms, [int(word) for word in words[1:]]) for ms, words in sent]


def begins_and_ends(controller):
    heard = [heard.frame for heard in controller.heard()]
    wanted = [tc421.play_init('Normal', ONE), tc421.mode_stop(ONE)]
    assert [heard[0], heard[-1]] == wanted
    assert not any(heard.verdict.startswith('wrong') for heard in controller.heard())
    assert controller.lines('state') == []


def test_demo_of_ten_seconds(network):
    controller = network.controller(ONE)
    run = network.halvex('demo', network.presets(), *TO_ONE, '--seconds', '10')
    run.ended(0)
    run.log_has('Demo started', 'Playing whole day in 10 seconds', 'Demo finished')
    begins_and_ends(controller)
    sent = channels_heard(controller)
    begin = sent[0][0]
    assert 9300 < sent[-1][0] - begin < 10700
    gaps = controller.gaps(-1)[1:]
    assert 40 <= min(gaps) and max(gaps) <= 2000
    for ms, values in sent:
        # A packet may be late, on a machine that is busy with something else.
        due = [tc421.curve(0, min(86399, max(0, (ms - begin - late) * 8.64))) for late in range(-50, 1050, 50)]
        for value, around in zip(values, zip(*due)):
            assert min(around) <= value <= max(around)


def test_demo_keeps_others_out(network):
    controller = network.controller(ONE)
    process = network.start('demo', network.presets(), *TO_ONE, '--seconds', '10')
    wait_for('the demo', lambda: len(controller.heard()) > 10)
    run = network.halvex('clear', '--yes', *TO_ONE)
    run.ended(6)
    run.stderr_has('in use by another program')
    Run(process).ended(0)
    begins_and_ends(controller)


@pytest.mark.linux
def test_demo_interrupted(network):
    controller = network.controller(ONE)
    process = network.start('demo', network.presets(), *TO_ONE, '--seconds', '60', '--start', '12:00')
    wait_for('the demo', lambda: len(controller.heard()) > 10)
    process.send_signal(signal.SIGINT)
    Run(process).ended(130)
    begins_and_ends(controller)
    values = channels_heard(controller)[-1][1]
    assert values == tc421.curve(0, 12 * 3600)


# Wi-Fi.

SSID = 'Höhle am Riff'
PASSWORD = 'grün ß 7'.ljust(38, '!')  # 40 bytes


def test_wifi_protected(network):
    controller = network.controller(ONE)
    run = network.halvex('wifi', *TO_ONE, '--ssid', SSID, '--security', '2', '--encryption', '3', '--password-stdin',
                     text=PASSWORD)
    run.ended(0)
    controller.heard_only([tc421.wifi_ssid(SSID, 2, 3), tc421.wifi_password(PASSWORD)])
