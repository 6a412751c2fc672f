# SPDX-License-Identifier: MIT
"""The program on a real system: huge and unreadable files, full disks, interrupts, the keys of a terminal."""
import fcntl
import os
import pathlib
import pty
import re
import resource
import select
import signal
import subprocess
import termios
import time

import pytest

from runs import Run, wait_for

MIB = 1 << 20


@pytest.fixture(autouse=True)
def folder(tmp_path, monkeypatch, halvex):
    """A folder with the presets in it, and no settings."""
    monkeypatch.chdir(tmp_path)
    monkeypatch.setenv('HALVEX_HOME', 'home')
    monkeypatch.delenv('HALVEX_DEVICE', raising=False)
    halvex('new', 'a.xml').ended(0)


@pytest.fixture(scope='session')
def start(program):
    def start_program(*words, **options):
        options = {'stdin': subprocess.DEVNULL, 'stdout': subprocess.PIPE, 'stderr': subprocess.PIPE, **options}
        return subprocess.Popen([*program, *words], **options)
    return start_program


@pytest.fixture(scope='session')
def halvex(start):
    return lambda *words, **options: Run(start(*words, **options))


def content(path):
    return pathlib.Path(path).read_bytes()


def test_a_program_onto_itself(halvex):
    before = content('a.xml')
    halvex('convert', 'a.xml', './a.xml').ended(0)
    assert content('a.xml') == before


@pytest.mark.linux
def test_no_other_format_over_the_input(halvex):
    before = content('a.xml')
    os.symlink('a.xml', 'link.tmf')
    run = halvex('convert', 'a.xml', 'link.tmf')
    run.ended(3)
    run.stderr_has('is the file that is read')
    assert content('a.xml') == before


NO_STEPS = "<modelist><mode name='m'><channel/><channel/><channel/><channel/><channel/></mode><x>"


@pytest.mark.memory
@pytest.mark.parametrize('begin, unit, end', [
    ('<modelist>', '<mode><a/><a/><a/><a/><a/></mode>', '</modelist>'),
    ('<modelist><mode><c>', '<step/>', '</c><c/><c/><c/><c/></mode></modelist>'),
    (NO_STEPS, '<a/>', '</x></modelist>'),
    (NO_STEPS + ' ' * (100 << 10) + 'y', '<b/>', '</x></modelist>'),
    (NO_STEPS, 'a<b/>', '</x></modelist>'),
], ids=['modes', 'steps', 'empty elements', 'children behind many blanks', 'texts'])
def test_memory_for_64_mib(start, begin, unit, end):
    """The peak stays under eight times the size."""
    count = (64 * MIB - len(begin) - len(end)) // len(unit)
    pathlib.Path('big.xml').write_text(begin + unit * count + end)
    process = start('info', 'big.xml', stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    assert os.waitstatus_to_exitcode(status) in (0, 3)
    assert usage.ru_maxrss >> 10 < 512


@pytest.mark.linux
@pytest.mark.parametrize('words, offered', [
    ('dem', 'demo'),
    ('--lang d', 'de'),
    ('--log = x.log chart --m', '--mode'),
    ('upload a.xml --device tc4', 'tc420 tc421 tc421@'),
    ('upload a.xml --device = tc420', 'tc420'),
    ('upload --ver', ''),
    ('info a.', 'a.xml a.tmf'),
    ('chart a.xm', 'a.xml'),
    ('set-time ', ''),
])
def test_bash_completes(halvex, words, offered):
    for name in 'a.tmf', 'a.txt':
        pathlib.Path(name).touch()
    os.mkdir('demo.folder')
    script = '\n'.join([*halvex('completion', 'bash').out, 'compopt() { :; }', 'COMP_WORDS=("$@")',
                        'COMP_CWORD=$(($# - 1))', '_halvex && echo "${COMPREPLY[*]}"'])
    said = subprocess.run(['bash', '-c', script, '_', 'halvex', *words.split(' ')], capture_output=True, text=True)
    assert said.stdout.rstrip('\n') == offered


@pytest.mark.linux
def test_a_file_that_may_not_be_read(program):
    os.chmod('a.xml', 0)
    # Root may read everything unless it has no rights of its own.
    powerless = ['setpriv', '--inh-caps=-all', '--bounding-set=-all'] if os.geteuid() == 0 else []
    run = subprocess.run([*powerless, *program, 'info', 'a.xml'], capture_output=True, text=True)
    assert run.stderr == 'halvex: Error loading program a.xml: Permission denied\n'


@pytest.mark.linux
def test_a_full_disk(apart, halvex):
    steps = "<step hour='1' minute='1' value='1'/>" * 3000
    pathlib.Path('wide.xml').write_text(
        f"<modelist><mode name='m'><c>{steps}</c><c/><c/><c/><c/></mode></modelist>")
    os.mkdir('disk')
    subprocess.run(['mount', '-t', 'tmpfs', '-o', 'size=64k', 'halvex', 'disk'], check=True)
    try:
        halvex('convert', 'a.xml', 'disk/out.xml').ended(0)
        run = halvex('convert', 'wide.xml', 'disk/out.xml', '--force')
        run.ended(3)
        run.stderr_has('halvex: Error saving program disk/out.xml: No space left')
        assert content('disk/out.xml') == content('a.xml')
        assert os.listdir('disk') == ['out.xml']
        os.remove('disk/out.xml')
        subprocess.run('head -c 100000 /dev/zero >disk/rest', shell=True, stderr=subprocess.DEVNULL)
        for ending in 'xml', 'tmf', 'lmf', 'raw':
            run = halvex('convert', 'a.xml', f'disk/out.{ending}', '--mode', '1')
            run.ended(3)
            run.stderr_has('No space left')
    finally:
        subprocess.run(['umount', 'disk'], check=True)


@pytest.mark.linux
@pytest.mark.parametrize('words', [['convert', 'a.xml', 'out.xml'], ['translation', '--export', 'out.xml']])
def test_a_limit_to_the_size_of_files(halvex, words):
    """It is met in the middle of writing."""
    pathlib.Path('out.xml').write_bytes(content('a.xml'))
    before = sorted(os.listdir())
    run = halvex(*words, '--force', preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1024, 1024)))
    run.ended(3)
    run.stderr_has('File too large')
    assert content('out.xml') == content('a.xml')
    assert sorted(os.listdir()) == before


@pytest.mark.linux
def test_standard_output_that_cannot_be_written(start):
    with open('/dev/full', 'wb') as full:
        process = start('sample', 'a.xml', '--mode', '1', '--table', stdout=full)
        assert process.wait() == 3


@pytest.mark.linux
def test_a_closed_standard_output(program):
    words = ' '.join(f"'{word}'" for word in program)
    subprocess.run(f'{words} upload a.xml --device emulator --log log >&- 2>/dev/null', shell=True)
    assert content('log').count(b'Uploading started') == 1


@pytest.mark.linux
def test_monitor_ends_at_an_interrupt(start):
    process = start('monitor', preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))

    def ends():
        # Again and again: until the program watches for it, an interrupt is lost in the background of a script.
        process.send_signal(signal.SIGINT)
        time.sleep(0.2)
        return process.poll() is not None
    wait_for('its end', ends)
    assert process.returncode == 0


@pytest.mark.linux
def test_an_upload_that_is_interrupted(start):
    process = start('upload', 'a.xml', '--device', 'emulator')
    begun = []
    wait_for('the upload', lambda: begun.append(process.stdout.readline()) or b'Uploading mode' in begun[-1])
    process.send_signal(signal.SIGINT)
    run = Run(process)
    run.ended(130)
    assert run.out[-3:] == ['Uploading finished', 'TC420_Emulator: Stopped', 'Cancelled!']
    assert not any('AlwaysOn' in line for line in run.out)


def test_an_upload_to_nothing(halvex):
    run = halvex('upload', 'a.xml', '--device', 'tc420')
    run.ended(4)
    run.stderr_has('no TC420 is plugged in (')


LINE = re.compile(r'(\d\d):(\d\d):\d\d(?: +\d+){5} %  (playing|paused)')


class Screen:
    """The program on a terminal of its own; `minute` and `state` are what its line of progress shows."""

    def __init__(self, words):
        self.terminal, self.side = pty.openpty()
        self.before = termios.tcgetattr(self.side)
        self.process = subprocess.Popen(
            words, stdin=self.side, stdout=self.side, stderr=self.side, start_new_session=True,
            preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        self.text, self.minute, self.state = '', None, None

    def until(self, what, holds):
        wait_for(what, lambda: self.read() or holds())

    def read(self):
        if select.select([self.terminal], [], [], 0.05)[0]:
            self.text += os.read(self.terminal, 4096).decode()
        if shown := LINE.findall(self.text):
            hour, minute, self.state = shown[-1]
            self.minute = int(hour) * 60 + int(minute)

    def press(self, keys):
        os.write(self.terminal, keys)

    def ends(self, last, status):
        self.until(last, lambda: last in self.text)
        assert self.process.wait() == status
        assert termios.tcgetattr(self.side) == self.before


@pytest.fixture
def terminal(program):
    """Runs the program on a terminal, which a bare chroot may not have."""
    if not os.path.exists('/dev/pts/ptmx'):
        subprocess.run(['mount', '-t', 'devpts', 'devpts', '/dev/pts'], check=True)
    return lambda *words: Screen([*program, *words])


@pytest.mark.linux
def test_the_keys_of_a_demo(terminal):
    demo = terminal('demo', 'a.xml', '--device', 'emulator', '--start', '12:00', '--seconds', '86400')
    demo.until('noon', lambda: demo.minute == 720)
    demo.press(b' ')
    demo.until('a pause', lambda: demo.state == 'paused')
    demo.press(b'\x1b[C')
    demo.until('a quarter past twelve', lambda: demo.minute == 735)
    demo.press(b'\x1b[D\x1b[D')
    demo.until('a quarter to twelve, by two keys at once', lambda: demo.minute == 705)
    demo.press(b'x ')
    demo.until('the end of the pause', lambda: demo.state == 'playing')
    demo.press(b'q')
    demo.ends('Cancelled!', 0)


@pytest.mark.linux
def test_an_interrupted_demo(terminal):
    demo = terminal('demo', 'a.xml', '--device', 'emulator')
    demo.until('playing', lambda: demo.state == 'playing')
    demo.press(b'\x03')
    demo.ends('Cancelled!', 130)


@pytest.mark.linux
@pytest.mark.parametrize('keys, last, status', [
    (b'\x03', 'nothing was sent', 130),
    (b'secret\n', 'did not get through', 1),
])
def test_the_question_for_a_password(apart, terminal, keys, last, status):
    asked = terminal('wifi', '--device', '10.77.0.2', '--ssid', 'x', '--security', 'wpa')
    asked.until('the question', lambda: 'Password: ' in asked.text)
    asked.until('hiding it', lambda: not termios.tcgetattr(asked.side)[3] & termios.ECHO)
    time.sleep(0.3)  # it reads a moment later, and an interrupt before that is passed over
    asked.press(keys)
    asked.ends(last, status)
    assert 'secret' not in asked.text
