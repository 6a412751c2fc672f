# SPDX-License-Identifier: MIT
"""What the guest of `usb/run` left behind: each case of `usb/guest/cases.sh` has a folder in the archive --results."""
import collections
import datetime
import re
import subprocess

import pytest

import tc420
import tc421

DEVICE = 'Orvanta 24'


def upload_log(device):
    return [f'Configuring device {device}', 'Uploading started', 'Uploading mode: Normal',
            'Uploading mode: AlwaysOn', 'Uploading finished', f'Finished configuring device {device}']


class Case:
    """The files of one case's folder."""

    def __init__(self, folder):
        self.folder = folder
        trouble = folder / 'trouble.txt'
        assert not trouble.exists(), trouble.read_text()

    def text(self, name):
        return (self.folder / name).read_text('utf-8')

    def lines(self, name):
        return self.text(name).splitlines()

    def ended(self, **statuses):
        for run, status in statuses.items():
            assert int(self.text(run + '.status')) == status, self.text(run + '.err')

    def said(self, run):
        return self.lines(run + '.out')

    def arrived(self, controller, frames):
        assert self.lines(controller + '.frames') == [frame.hex().upper() for frame in frames]


@pytest.fixture(scope='session')
def results(pytestconfig, tmp_path_factory):
    folder = tmp_path_factory.mktemp('results')
    # One archive after another; a guest that broke off left less.
    subprocess.run(['tar', '-xif', pytestconfig.getoption('--results'), '-C', folder])
    return folder


@pytest.fixture
def case(request, results):
    """That of the test's name."""
    folder = results / request.node.name.removeprefix('test_')
    assert folder.exists(), 'the virtual machine did not get there'
    return Case(folder)


def expect_upload(case, run='upload', controller='tc420'):
    case.arrived(controller, tc420.UPLOAD)
    assert case.said(run) == upload_log(DEVICE)
    case.ended(**{run: 0})


def test_upload(case):
    expect_upload(case)


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


def test_two_reports(case):
    expect_upload(case)
    found = dumps(case.lines('upload.err'))
    written = [data for name, data in found if name == 'hid_write']
    assert written == [frame.hex().upper() for frame in tc420.UPLOAD]
    # The simulated controller puts the frame's and the report's number into its answers. A second report may be
    # read with the next answer, so the program may have left before those to the last frame come.
    read = [(int(data[12:14], 16), int(data[10:12], 16)) for name, data in found if name == 'hid_read']
    wanted = [(frame, report) for frame in range(1, len(written) + 1) for report in (1, 2)]
    assert len(read) >= len(wanted) - 2 and read == wanted[:len(read)]


def test_unplugged(case):
    case.arrived('tc420', tc420.UPLOAD[:6])
    begin, started, normal, always_on, finished, end = upload_log(DEVICE)
    assert case.said('upload') == [begin, started, normal, 'Upload error', always_on, 'Upload error', finished, end]
    case.ended(upload=1)
    expect_upload(case, 'again', 'again')


def test_refused(case):
    case.arrived('tc420', [])
    assert case.said('upload') == [upload_log(DEVICE)[0], 'Connect error', upload_log(DEVICE)[-1]]
    case.ended(upload=6, list=6, doctor=6, remote=6, group=6)
    for file, remedy in (('upload.err', 'halvex udev-rule | sudo tee'), ('doctor.out', 'halvex udev-rule | sudo tee'),
                         ('remote.err', 'halvex udev-rule --group plugdev'), ('group.err', 'sudo adduser user plugdev')):
        assert remedy in case.text(file)


def test_devices(case):
    assert re.search(r'\btc420\b', case.text('plugged.out')) and 'tc421' not in case.text('plugged.out')
    case.ended(plugged=0, nothing=4)
    case.arrived('tc420', [])


def test_equals(case):
    assert case.said('list') == 2 * [f'tc420  {DEVICE}  USB']
    case.ended(which=5, first=0)
    for run in 'list', 'first':
        assert '2 TC420 are plugged in; only the first of them can be reached' in case.text(run + '.err')
    assert sorted(len(case.lines(name + '.frames')) for name in ('first', 'second')) == [0, len(tc420.UPLOAD)]


def test_interrupted(case):
    case.arrived('tc420', [*tc420.mode(0), tc420.CLOSE])
    begin, started, normal, _, finished, _ = upload_log(DEVICE)
    assert case.said('upload') == [begin, started, normal, finished, f'{DEVICE}: Stopped', 'Cancelled!']
    case.ended(upload=130)


def test_monitor(case):
    count = collections.Counter(case.said('monitor'))
    for line in 'Device connected', 'Device disconnected', 'Wi-Fi Device connected':
        assert count[f'{DEVICE} {line}'] == 1
    assert case.text('monitor.status').strip() in ('0', '130')
    case.arrived('tc420', [])


def over_usb(frame):
    """The checksum stands at the end there; nobody knows an identity."""
    return frame[:61] + bytes([0, 0, frame[61]])


def test_tc421(case):
    """Every operation of one."""
    when = datetime.datetime(2028, 2, 29, 23, 59, 58)
    case.arrived('tc421', [*map(over_usb, [*tc421.upload(''), tc421.clock(when, ''), tc421.clear_all('')]),
                           tc421.wifi_open('Reef {1}'), tc421.wifi_ssid('Café', 2, 4), tc421.wifi_password('s3crét')])
    assert case.said('list') == [f'tc421  {DEVICE} Wi-Fi  USB']
    assert case.said('upload') == upload_log(f'{DEVICE} Wi-Fi')
    case.ended(upload=0, clock=0, clear=0, open=0, protected=0)
    begin, end = case.text('clear.seconds').split()
    assert float(end) - float(begin) >= 3  # what the controller needs to erase


def test_both_models(case):
    """In one call."""
    on = tc420.mode(1)
    in_bank_0 = tc420.frame(0x12, bytes([0]) + on[0][6:15])
    case.arrived('tc420', 2 * [in_bank_0, *on[1:], tc420.CLOSE])
    case.arrived('tc421', map(over_usb, tc421.only_mode(1, '')))
    assert case.said('list') == [f'tc420  {DEVICE}  USB', f'tc421  {DEVICE} Wi-Fi  USB']
    case.ended(upload=0, mute=1)
    for run, last in (('upload', 'Done'),
                      ('mute', "Failed: modes not taken: 'AlwaysOn': a packet did not get through: no answer")):
        assert case.said(run)[-2:] == ['tc420  Done', 'tc421  ' + last]


def test_tc421_demo(case):
    case.ended(whole=0, second=6, beside=0, interrupted=130, gone=1)
    assert 'in use by another program' in case.text('second.err')
    begin, *played, end = case.lines('tc421.frames')
    assert begin == over_usb(tc421.play_init('Normal', '')).hex().upper()
    assert end == over_usb(tc421.mode_stop('')).hex().upper()
    assert all(line[4:12] == '06020005' and len(line) == 128 for line in played)
    assert 50 <= len(played) <= 200  # in 10 s
    assert case.lines('other.frames')[-1] == tc420.CLOSE.hex().upper()
    assert len(case.lines('gone.frames')) == 10 and 'Demo finished' in case.said('gone')
