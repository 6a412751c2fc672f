# SPDX-License-Identifier: MIT
"""Checks what the guest left behind: python3 check.py RESULTS.tar. Each check is a function named after its case."""
import collections
import datetime
import pathlib
import re
import sys
import tarfile

import frames

sys.path.append(str(pathlib.Path(__file__).parent.parent / 'net'))
import tc421

UPLOAD_LOG = ['Configuring device Orvanta 24', 'Uploading started', 'Uploading mode: Normal',
              'Uploading mode: AlwaysOn', 'Uploading finished', 'Finished configuring device Orvanta 24']


class Failure(Exception):
    pass


class Case:
    """The files of one case's folder."""

    def __init__(self, files):
        self.files = files

    def text(self, name):
        if name not in self.files:
            raise Failure(f'the guest left no {name}')
        return self.files[name].decode('utf-8', 'replace')

    def lines(self, name):
        return self.text(name).splitlines()

    def status(self, run, *expected):
        status = int(self.text(run + '.status'))
        if status == 137:
            raise Failure(f'"{run}" hung and was killed{self.said(run)}')
        if status not in expected:
            wanted = ' or '.join(map(str, expected))
            raise Failure(f'"{run}" ended with status {status} and not {wanted}{self.said(run)}')

    def said(self, run):
        last = [line for line in self.lines(run + '.err') if line.strip()][-3:]
        return '; it complained: ' + ' / '.join(last) if last else ''

    def log(self, run, expected):
        got = self.lines(run + '.out')
        for number, (line, wanted) in enumerate(zip(got, expected), 1):
            if line != wanted:
                raise Failure(f'line {number} of "{run}" is "{line}" and not "{wanted}"')
        if len(got) != len(expected):
            extra = (got[len(expected):] or expected[len(got):])[0]
            raise Failure(f'"{run}" wrote {len(got)} lines and not {len(expected)}; the first odd one is "{extra}"')

    def arrived(self, controller, expected):
        got = self.lines(controller + '.frames')
        for number, (line, frame) in enumerate(zip(got, expected), 1):
            compare(f'frame {number}', line, frame.hex().upper())
        if len(got) != len(expected):
            raise Failure(f'{len(got)} frames arrived at {controller} and not {len(expected)}')

    def seconds(self, run):
        begin, end = self.text(run + '.seconds').split()
        return float(end) - float(begin)


def compare(what, got, wanted):
    if got == wanted:
        return
    if len(got) != len(wanted):
        raise Failure(f'{what} has {len(got) // 2} bytes')
    at = next(i for i in range(0, len(got), 2) if got[i:i + 2] != wanted[i:i + 2])
    raise Failure(f'{what}: byte {at // 2} is {got[at:at + 2]} and not {wanted[at:at + 2]} (in {got})')


def dumps(trace):
    """(name, bytes as hexadecimal) of each dump in a trace, in order."""
    found = []
    for line in trace:
        if begin := re.fullmatch(r'\d+:\d\d:\d\d:\d{3} (hid_write|hid_read):', line):
            found.append([begin[1], ''])
        elif found and (row := re.match(r'([0-9A-F]{4})  ((?:[0-9A-F]{2} {1,2}){1,16})', line)):
            if int(row[1], 16) == len(found[-1][1]) // 2:
                found[-1][1] += row[2].replace(' ', '')
    return found


CHECKS = {}


def check(folder):
    def keep(function):
        CHECKS[function.__name__.replace('_', '-')] = (folder, function)
        return function
    return keep


def whole_upload(case, run='upload', controller='tc420'):
    case.arrived(controller, frames.TC420_UPLOAD)
    case.log(run, UPLOAD_LOG)
    case.status(run, 0)


@check('upload')
def upload(case):
    whole_upload(case)


@check('two_reports')
def answers_in_two_reports(case):
    whole_upload(case)
    found = dumps(case.lines('upload.err'))
    written = [data for name, data in found if name == 'hid_write']
    if len(written) != len(frames.TC420_UPLOAD):
        raise Failure(f'the trace shows {len(written)} writes and not {len(frames.TC420_UPLOAD)}')
    for number, (data, frame) in enumerate(zip(written, frames.TC420_UPLOAD), 1):
        compare(f'write {number} of the trace', data, frame.hex().upper())
    # The simulated controller puts the frame's and the report's number into its answers. A second report may be
    # read with the next answer, so the program may have left before those to the last frame come.
    read = [(int(data[12:14], 16), int(data[10:12], 16)) for name, data in found if name == 'hid_read']
    wanted = [(frame, report) for frame in range(1, len(written) + 1) for report in (1, 2)]
    if len(read) < len(wanted) - 2 or read != wanted[:len(read)]:
        raise Failure(f'the trace shows the reads (frame, report) {read}')


@check('unplugged')
def unplugged_in_the_middle(case):
    case.arrived('tc420', frames.TC420_UPLOAD[:6])
    case.log('upload', ['Configuring device Orvanta 24', 'Uploading started', 'Uploading mode: Normal',
                        'Upload error', 'Uploading mode: AlwaysOn', 'Upload error', 'Uploading finished',
                        'Finished configuring device Orvanta 24'])
    case.status('upload', 1)


@check('unplugged')
def plugged_in_again(case):
    whole_upload(case, 'again', 'again')


@check('refused')
def no_permission(case):
    case.arrived('tc420', [])
    case.log('upload', [UPLOAD_LOG[0], 'Connect error', UPLOAD_LOG[-1]])
    case.status('upload', 6)
    case.status('list', 6)
    case.status('doctor', 6)
    for advice in case.text('upload.err'), case.text('doctor.out'):
        if 'halvex udev-rule | sudo tee' not in advice:
            raise Failure(f'no remedy is named in "{advice.strip()}"')
    for run, remedy in (('remote', 'halvex udev-rule --group plugdev'), ('group', 'sudo adduser user plugdev')):
        case.status(run, 6)
        if remedy not in case.text(run + '.err'):
            raise Failure(f'"{run}" names another remedy{case.said(run)}')


@check('devices')
def devices(case):
    if not re.search(r'\btc420\b', case.text('plugged.out')):
        raise Failure(f'the list does not name tc420: "{case.text("plugged.out").strip()}"')
    if 'tc421' in case.text('plugged.out'):
        raise Failure('the list names a tc421 that is not there')
    case.status('plugged', 0)
    case.status('nothing', 4)
    case.arrived('tc420', [])


@check('equals')
def two_of_the_same_model(case):
    case.log('list', 2 * ['tc420  Orvanta 24  USB'])
    case.status('which', 5)
    case.status('first', 0)
    for run in ('list', 'first'):
        if '2 TC420 are plugged in; only the first of them can be reached' not in case.text(run + '.err'):
            raise Failure(f'"{run}" does not tell them apart{case.said(run)}')
    if sorted(len(case.lines(name + '.frames')) for name in ('first', 'second')) != [0, len(frames.TC420_UPLOAD)]:
        raise Failure('the frames did not go to one of them')


@check('interrupted')
def interrupted_upload(case):
    case.arrived('tc420', frames.tc420_mode(0) + frames.TC420_CLOSE)
    case.log('upload', ['Configuring device Orvanta 24', 'Uploading started', 'Uploading mode: Normal',
                        'Uploading finished', 'Orvanta 24: Stopped', 'Cancelled!'])
    case.status('upload', 130)


@check('monitor')
def monitor(case):
    count = collections.Counter(case.lines('monitor.out'))
    for line in ('Orvanta 24 Device connected', 'Orvanta 24 Device disconnected',
                 'Orvanta 24 Wi-Fi Device connected'):
        if count[line] != 1:
            raise Failure(f'"{line}" came {count[line]} times')
    case.status('monitor', 0, 130)
    case.arrived('tc420', [])


WI_FI_LOG = ['Configuring device Orvanta 24 Wi-Fi', 'Uploading started', 'Uploading mode: Normal',
             'Uploading mode: AlwaysOn', 'Uploading finished', 'Finished configuring device Orvanta 24 Wi-Fi']


def over_usb(frame):
    """The checksum stands at the end there; nobody knows an identity."""
    return frame[:61] + bytes([0, 0, frame[61]])


@check('tc421')
def every_operation_of_a_tc421(case):
    when = datetime.datetime(2028, 2, 29, 23, 59, 58)
    case.arrived('tc421', [*map(over_usb, [*tc421.upload(''), tc421.clock(when, ''), tc421.clear_all('')]),
                           tc421.wifi_open('Reef {1}'), tc421.wifi_ssid('Café', 2, 4), tc421.wifi_password('s3crét')])
    case.log('list', ['tc421  Orvanta 24 Wi-Fi  USB'])
    case.log('upload', WI_FI_LOG)
    for run in ('upload', 'clock', 'clear', 'open', 'protected'):
        case.status(run, 0)
    if case.seconds('clear') < 3:
        raise Failure(f'clearing took {case.seconds("clear"):.1f} s, but the controller needs 3 s')


@check('both_models')
def both_models_in_one_call(case):
    on = frames.tc420_mode(1)
    in_bank_0 = frames.tc420(0x12, bytes([0]) + on[0][6:15])
    case.arrived('tc420', 2 * [in_bank_0, *on[1:], *frames.TC420_CLOSE])
    case.arrived('tc421', [*map(over_usb, tc421.only_mode(1, ''))])
    case.log('list', ['tc420  Orvanta 24  USB', 'tc421  Orvanta 24 Wi-Fi  USB'])
    case.status('upload', 0)
    case.status('mute', 1)
    for run, last in (('upload', 'Done'),
                      ('mute', "Failed: modes not taken: 'AlwaysOn': a packet did not get through: no answer")):
        wanted = ['tc420  Done', 'tc421  ' + last]
        if case.lines(run + '.out')[-2:] != wanted:
            raise Failure(f'the table of "{run}" is {case.lines(run + ".out")[-2:]} and not {wanted}')


@check('tc421_demo')
def demos(case):
    begin, end = over_usb(tc421.play_init('Normal', '')), over_usb(tc421.mode_stop(''))
    for run, status in (('whole', 0), ('second', 6), ('beside', 0), ('interrupted', 130), ('gone', 1)):
        case.status(run, status)
    if 'in use by another program' not in case.text('second.err'):
        raise Failure(f'the one that was kept out says "{case.text("second.err").strip()}"')
    played = case.lines('tc421.frames')
    compare('the first frame', played[0], begin.hex().upper())
    compare('the last frame', played[-1], end.hex().upper())
    for line in played[1:-1]:
        if line[4:12] != '06020005' or len(line) != 128:
            raise Failure(f'there is {line} in the demo')
    if not 50 <= len(played) - 2 <= 200:
        raise Failure(f'{len(played) - 2} times values in 10 s')
    compare('the last frame of the interrupted one', case.lines('other.frames')[-1],
            frames.TC420_CLOSE[0].hex().upper())
    if len(case.lines('gone.frames')) != 10 or 'Demo finished' not in case.lines('gone.out'):
        raise Failure('the demo without a controller did not come to its end')


def read_results(path):
    """The guest's folders by name, each a dictionary from file name to bytes."""
    folders = collections.defaultdict(dict)
    try:
        with tarfile.open(path, ignore_zeros=True) as archive:
            for member in archive:
                if member.isfile():
                    folder, name = member.name.split('/')
                    folders[folder][name] = archive.extractfile(member).read()
    except (OSError, tarfile.TarError) as error:
        print(f'The results are incomplete: {error}', file=sys.stderr)
    return folders


def why_failed(folder, function, results):
    if folder not in results:
        return 'the virtual machine did not get there'
    case = Case(results[folder])
    reasons = case.lines('trouble.txt') if 'trouble.txt' in case.files else []
    try:
        function(case)
    except Failure as failure:
        reasons.insert(0, str(failure))
    return '; '.join(reasons)


def main():
    results = read_results(sys.argv[1])
    failed = 0
    for name, (folder, function) in CHECKS.items():
        why = why_failed(folder, function, results)
        failed += bool(why)
        print(f'FAILED {name}: {why}' if why else f'ok {name}')
    print(f'{len(CHECKS) - failed} passed, {failed} failed')
    sys.exit(failed > 0)


if __name__ == '__main__':
    main()
