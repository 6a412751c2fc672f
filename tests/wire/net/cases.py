# SPDX-License-Identifier: MIT
"""The cases: python3 cases.py FOLDER PROGRAM..., inside namespaces as `run` makes them."""
import concurrent.futures
import datetime
import os
import pathlib
import queue
import re
import signal
import subprocess
import sys

import tc421
from rig import Failure, Lab, expect, until_true

HOME, ONE, TWO, THREE = '10.77.0.1', '10.77.0.11', '10.77.0.12', '10.77.0.13'
TO_ONE, TO_TWO = ('--device', f'tc421@{ONE}'), ('--device', f'tc421@{TWO},reef')
UNDER_WINE = sys.argv[2:3] == ['wine']
CASES = {}


def case(function, name=None):
    CASES[name or function.__name__.replace('_', '-')] = function
    return function


def natively(function):
    return function if UNDER_WINE else case(function)


# Scans.

def found(run):
    return sorted(re.split(r'\s{2,}', line) for line in run.out)


@case
def scan_finds_all(lab):
    long_name = 'Korallenriff '.ljust(60, 'o')  # the answer has room for no zero byte
    controllers = [lab.controller(1), lab.controller(2), lab.controller(3, '--name', long_name)]
    run = lab.halvex('devices', '--scan')
    run.ended(0)
    wanted = [[f'tc421@{ONE}', ONE, 'network'], [f'tc421@{TWO}', 'reef', 'network'],
              [f'tc421@{THREE},{long_name}', long_name, 'network']]
    expect(found(run) == wanted, f'it lists {run.out}')
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


@case
def scan_with_a_stranger(lab):
    lab.python(ONE, STRANGER)
    lab.controller(3)
    run = lab.halvex('devices', '--scan')
    run.ended(0)
    expect([row[1] for row in found(run)] == [THREE], f'it lists {run.out}')


@case
def no_network(lab):
    with lab.cable_pulled():
        scan = lab.halvex('devices', '--scan', '--trace')
        upload = lab.halvex('upload', lab.presets(), *TO_ONE, '--trace')
    scan.ended(1)
    scan.stderr_has('sendto error: ', 'Found 0 device(s)')
    upload.ended(1)
    upload.stderr_has('sendto error: ')
    expect(upload.seconds < 5, f'nothing can be sent, but it tried for {upload.seconds:.1f} s')


@case
def own_address(lab):
    run = lab.halvex('clear', '--device', f'tc421@{HOME}', '--yes')
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


@case
def busy_port(lab):
    controller = lab.controller(1)
    lab.python(None, HOLDER)
    for words in ('devices', '--scan'), ('upload', lab.presets(), *TO_ONE):
        run = lab.halvex(*words, '--trace')
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


@case
def upload_to_two(lab):
    one, two = lab.controller(1), lab.controller(2, '--identity', 'reef', '--delay', '150')
    run = lab.halvex('upload', lab.presets(), *TO_ONE, *TO_TWO)
    run.ended(0)
    run.log_has(*upload_log(ONE), *upload_log('reef'))
    expect(outcomes(run) == {TO_ONE[1]: 'Done', TO_TWO[1]: 'Done'}, f'the table says {outcomes(run)}')
    one.heard_only(tc421.upload(ONE))
    two.heard_only(tc421.upload('reef'))
    for controller in one, two:
        controller.holds(tc421.held_modes())
    closest = min(one.gaps(len(tc421.mode(0, ONE))))
    expect(closest >= 15, f'two packets of one mode are only {closest} ms apart')


@case
def upload_with_two_packets_lost(lab):
    controller = lab.controller(1, '--lose', '2')
    run = lab.halvex('upload', lab.presets(), *TO_ONE)
    run.ended(0)
    run.log_has(*upload_log(ONE))
    frames = tc421.upload(ONE)
    controller.heard_only(frames[:1] * 2 + frames, lost=2)
    controller.holds(tc421.held_modes())


@case
def upload_answered_in_another_order(lab):
    """An older answer must not hide a lost packet: the second and third are sent once more."""
    controller = lab.controller(1, '--on', 'ModeStep#1=swap', '--on', 'ModeStep#3=lost')
    lab.halvex('upload', lab.presets(), *TO_ONE, '--mode', '2').ended(0)
    begin, one, two, end = tc421.only_mode(1, ONE)
    controller.heard_only([begin, one, one, two, two, end])
    controller.holds(tc421.held_only(1))


@case
def upload_to_a_silent_one_first(lab):
    silent, good = lab.controller(1, '--silent'), lab.controller(2, '--identity', 'reef')
    run = lab.halvex('upload', lab.presets(), *TO_ONE, *TO_TWO)
    run.ended(1)
    run.log_has(f'Configuring device {ONE}', 'Uploading mode: Normal', 'Upload error', 'Uploading mode: AlwaysOn',
                'Upload error', f'Finished configuring device {ONE}', *upload_log('reef'))
    silent.heard_only(tc421.mode(0, ONE)[:1] * 3 + tc421.mode(1, ONE)[:1] * 3)
    good.heard_only(tc421.upload('reef'))
    said = outcomes(run)
    expect(said.get(TO_TWO[1]) == 'Done' and said.get(TO_ONE[1], 'Done') != 'Done', f'the table says {said}')
    expect(run.seconds < 20, f'two waits of 6 s took {run.seconds:.1f} s')


# One packet each: the clock.

CLOCK = datetime.datetime(2031, 2, 3, 4, 5, 6)


def set_time(lab, *more):
    return lab.halvex('set-time', str(CLOCK), *TO_ONE, *more)


@case
def set_time_by_a_long_identity(lab):
    controller = lab.controller(1, '--identity', 'Korallenriff links')
    run = lab.halvex('set-time', str(CLOCK), '--device', f'tc421@{ONE},Korallenriff links')
    run.ended(0)
    controller.heard_only([tc421.clock(CLOCK, 'Korallenriff')])
    controller.holds([f'clock {CLOCK}'])


@case
def sync_time(lab):
    controller = lab.controller(1)
    lab.halvex('sync-time', *TO_ONE).ended(0)
    now = datetime.datetime.now()
    [line] = controller.lines('.state')
    clock = datetime.datetime.fromisoformat(line.removeprefix('clock '))
    expect(abs(now - clock) < datetime.timedelta(seconds=3), f'it set {clock} at {now}')
    controller.heard_only([tc421.clock(clock, ONE)])


def set_time_in_vain(options, *trace):
    def run_case(lab):
        controller = lab.controller(1, *options)
        run = set_time(lab, '--trace')
        run.ended(1)
        run.stderr_has(f'sendto_core {ONE}:5000', *trace)
        controller.heard_only([tc421.clock(CLOCK, ONE)] * 3)
        expect(all(1950 < gap < 2500 for gap in controller.gaps()), f'repeated {controller.gaps()} ms apart')
        expect(run.seconds < 9, f'three waits of 2 s took {run.seconds:.1f} s')
    return run_case


case(set_time_in_vain(['--from', ONE + '1'], f'recvfrom {ONE}1:5000'), 'answers-from-a-foreign-address')
case(set_time_in_vain(['--long'], 'Received invalid packet size'), 'answers-of-65-bytes')


# Demos.

def channels_heard(controller):
    """(ms, five percents) of each packet between the first and the last."""
    sent = [(heard.ms, heard.packet.split()) for heard in controller.heard()[1:-1]]
    kinds = {words[0] for _, words in sent}
    expect(kinds == {'PlaySetChannels'}, f'it heard {kinds}')
    return [(ms, [int(word) for word in words[1:]]) for ms, words in sent]


def begins_and_ends(controller):
    heard = [heard.frame for heard in controller.heard()]
    wanted = [tc421.play_init('Normal', ONE), tc421.mode_stop(ONE)]
    expect([heard[0], heard[-1]] == wanted, f'it begins with {heard[0].hex()} and ends with {heard[-1].hex()}')
    expect(not any(heard.verdict.startswith('wrong') for heard in controller.heard()), 'some packet is wrong')
    controller.holds([])


@case
def demo_of_ten_seconds(lab):
    controller = lab.controller(1)
    run = lab.halvex('demo', lab.presets(), *TO_ONE, '--seconds', '10')
    run.ended(0)
    run.log_has('Demo started', 'Playing whole day in 10 seconds', 'Demo finished')
    begins_and_ends(controller)
    sent = channels_heard(controller)
    begin = sent[0][0]
    expect(9300 < sent[-1][0] - begin < 10700, f'the day takes {sent[-1][0] - begin} ms')
    gaps = controller.gaps(-1)[1:]
    expect(40 <= min(gaps) and max(gaps) <= 2000, f'packets are {min(gaps)} to {max(gaps)} ms apart')
    for ms, values in sent:
        # A packet may be late, on a machine that is busy with something else.
        due = [tc421.curve(0, min(86399, max(0, (ms - begin - late) * 8.64))) for late in range(-50, 1050, 50)]
        for value, around in zip(values, zip(*due)):
            expect(min(around) <= value <= max(around), f'{ms - begin} ms after the start it sends {values}')


@case
def demo_keeps_others_out(lab):
    controller = lab.controller(1)
    process = lab.start('demo', lab.presets(), *TO_ONE, '--seconds', '10')
    until_true(10, lambda: len(controller.heard()) > 10, 'the demo never began')
    run = lab.halvex('clear', '--yes', *TO_ONE)
    run.ended(6)
    run.stderr_has('in use by another program')
    lab.finish(process).ended(0)
    begins_and_ends(controller)


@natively
def demo_interrupted(lab):
    controller = lab.controller(1)
    process = lab.start('demo', lab.presets(), *TO_ONE, '--seconds', '60', '--start', '12:00')
    until_true(10, lambda: len(controller.heard()) > 10, 'the demo never began')
    process.send_signal(signal.SIGINT)
    lab.finish(process).ended(130)
    begins_and_ends(controller)
    values = channels_heard(controller)[-1][1]
    expect(values == tc421.curve(0, 12 * 3600), f'soon after noon it sends {values}')


# Wi-Fi.

SSID = 'Höhle am Riff'
PASSWORD = 'grün ß 7'.ljust(38, '!')  # 40 bytes


@case
def wifi_protected(lab):
    controller = lab.controller(1)
    run = lab.halvex('wifi', *TO_ONE, '--ssid', SSID, '--security', '2', '--encryption', '3', '--password-stdin',
                     text=PASSWORD)
    run.ended(0)
    controller.heard_only([tc421.wifi_ssid(SSID, 2, 3), tc421.wifi_password(PASSWORD)])


# Running them.

def run_case(name, labs, folder):
    lab = labs.get()
    lab.folder = folder / name
    lab.folder.mkdir()
    try:
        CASES[name](lab)
        return ''
    except Failure as failure:
        return str(failure)
    except Exception as error:  # a fault of this case, which must not hide the others
        return f'{type(error).__name__}: {error}'
    finally:
        lab.end()
        labs.put(lab)


def make_lab(number, folder, program):
    if not UNDER_WINE:
        return Lab(number, program)
    # A wineserver owns the sockets of its programs, so each network has one, and each wineserver a prefix. Only
    # the registry is written to; all else is linked.
    prefix = folder / f'wine{number}'
    subprocess.run(['cp', '-al', os.environ['WINEPREFIX'], prefix], check=True)
    for registry in prefix.glob('*.reg'):
        content = registry.read_bytes()
        registry.unlink()
        registry.write_bytes(content)
    lab = Lab(number, program, WINEPREFIX=str(prefix))
    lab.spawn(lab.home, ['wineboot'], stderr=subprocess.DEVNULL).wait()
    return lab


def main():
    folder, program = pathlib.Path(sys.argv[1]), sys.argv[2:]
    labs = queue.Queue()
    for number in range(4):
        labs.put(make_lab(number, folder, program))
    names = [name for name in CASES if name.startswith(os.environ.get('ONLY', ''))]
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(labs.qsize()) as threads:
        for name, why in zip(names, threads.map(lambda name: run_case(name, labs, folder), names)):
            failed += bool(why)
            print(f'FAILED {name}: {why}' if why else f'ok {name}', flush=True)
    print(f'{len(names) - failed} passed, {failed} failed')
    return failed > 0


if __name__ == '__main__':
    sys.exit(main())
