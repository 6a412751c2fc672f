# SPDX-License-Identifier: MIT
"""Namespaces, controllers in them, and runs of the program."""
import collections
import contextlib
import os
import subprocess
import time

SIM = os.environ['SIM_TC421']
MOST_SECONDS = 60
Heard = collections.namedtuple('Heard', 'ms sender verdict packet frame')


class Failure(Exception):
    pass


def expect(holds, text):
    if not holds:
        raise Failure(text)


def until_true(seconds, holds, text):
    end = time.monotonic() + seconds
    while not holds():
        expect(time.monotonic() < end, text)
        time.sleep(0.02)


def ip(*words):
    subprocess.run(['ip', *map(str, words)], check=True)


def join(namespace, hub, address):
    """A namespace with a network card, plugged into the hub."""
    ip('netns', 'add', namespace)
    ip('link', 'add', 'eth0', 'netns', namespace, 'type', 'veth', 'peer', 'name', namespace, 'netns', hub)
    ip('-n', hub, 'link', 'set', namespace, 'master', 'bridge', 'up')
    ip('-n', namespace, 'link', 'set', 'lo', 'up')
    ip('-n', namespace, 'link', 'set', 'eth0', 'up')
    ip('-n', namespace, 'address', 'add', address + '/24', 'dev', 'eth0')


class Run:
    """What a run of the program left: out and err as lines, status, seconds."""

    def __init__(self, process, text=''):
        begin = time.monotonic()
        try:
            out, err = process.communicate(text.encode(), MOST_SECONDS)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            raise Failure(f'it hung for {MOST_SECONDS} s and was killed: {process.args}') from None
        self.seconds = time.monotonic() - begin
        self.status = process.returncode
        self.out, self.err = (data.decode('utf-8', 'replace').replace('\r', '').splitlines() for data in (out, err))

    def ended(self, status):
        said = ' / '.join([*self.out[-3:], *self.err[-3:]])
        expect(self.status == status, f'the status is {self.status} and not {status}; the last words are "{said}"')

    def log_has(self, *lines):
        """The lines are there in this order, among others."""
        rest = iter(self.out)
        for wanted in lines:
            expect(wanted in rest, f'"{wanted}" is missing or misplaced in "{" / ".join(self.out)}"')

    def stderr_has(self, *texts):
        end = ' / '.join(self.err[-3:])
        for text in texts:
            expect(any(text in line for line in self.err), f'"{text}" is not on standard error; its end is "{end}"')


class Controller:
    def __init__(self, process, address, files):
        self.process, self.address, self.files = process, address, files

    def lines(self, name):
        path = self.files.with_suffix(name)
        return path.read_text('utf-8').splitlines() if path.exists() else []

    def heard(self):
        fields = (line.split('\t') for line in self.lines('.transcript'))
        return [Heard(int(ms), *rest, bytes.fromhex(frame)) for ms, *rest, frame in fields]

    def heard_only(self, frames, lost=0):
        """The very frames, byte for byte; the first of them got lost."""
        heard = self.heard()
        for number, (got, frame) in enumerate(zip(heard, frames), 1):
            packet = f'{self.address}, packet {number} ({got.packet})'
            verdict = 'lost' if number <= lost else 'ok'
            expect(got.verdict == verdict, f'{packet} is {got.verdict}')
            expect(got.frame == frame, f'{packet} is {got.frame.hex()} and not {frame.hex()}')
        packets = ', '.join(item.packet for item in heard)
        expect(len(heard) == len(frames), f'{self.address} heard {len(heard)} packets and not {len(frames)}: {packets}')

    def gaps(self, count=None):
        """Milliseconds between the first packets that it heard."""
        times = [heard.ms for heard in self.heard()][:count]
        return [after - before for before, after in zip(times, times[1:])]

    def holds(self, lines):
        got = self.lines('.state')
        expect(got == lines, f'{self.address} holds {got} and not {lines}')


class Lab:
    """A bridge, the program's namespace and those of three controllers, for one case at a time."""

    def __init__(self, number, program, **environment):
        self.program, self.started, self.folder = program, [], None
        self.environment = {**os.environ, 'HALVEX_HOME': 'home', **environment}
        self.hub, self.home = f'hub{number}', f'program{number}'
        self.namespaces = {f'10.77.0.{10 + n}': f'lab{number}-{n}' for n in (1, 2, 3)}
        ip('netns', 'add', self.hub)
        ip('-n', self.hub, 'link', 'add', 'bridge', 'type', 'bridge')
        ip('-n', self.hub, 'link', 'set', 'bridge', 'up')
        join(self.home, self.hub, '10.77.0.1')
        for address, namespace in self.namespaces.items():
            join(namespace, self.hub, address)
            # A second address of each, for answers from a foreign one.
            ip('-n', namespace, 'address', 'add', address + '1/24', 'dev', 'eth0')
        self.route()

    def route(self):
        ip('-n', self.home, 'route', 'add', '255.255.255.255', 'dev', 'eth0')

    @contextlib.contextmanager
    def cable_pulled(self):
        ip('-n', self.home, 'link', 'set', 'eth0', 'down')
        try:
            yield
        finally:
            ip('-n', self.home, 'link', 'set', 'eth0', 'up')
            self.route()

    def spawn(self, namespace, words, **options):
        process = subprocess.Popen(['nsenter', f'--net=/run/netns/{namespace}', '--', *words], cwd=self.folder,
                                   env=self.environment, **options)
        self.started.append(process)
        return process

    def server(self, namespace, words):
        """Started until the case ends; its first line of output says that it is ready."""
        process = self.spawn(namespace, words, stdout=subprocess.PIPE)
        expect(process.stdout.readline(), f'{words[0]} did not start')
        return process

    def controller(self, number, *options):
        address = f'10.77.0.{10 + number}'
        files = self.folder / address / 'controller'
        files.parent.mkdir()
        words = [SIM, '--transcript', files.with_suffix('.transcript'), '--state', files.with_suffix('.state')]
        return Controller(self.server(self.namespaces[address], [*words, *options]), address, files)

    def python(self, address, script):
        """A stranger on the network, or beside the program when address is None."""
        self.server(self.namespaces.get(address, self.home), ['python3', '-c', script])

    def start(self, *words):
        pipe = subprocess.PIPE
        process = self.spawn(self.home, [*self.program, *words], stdin=pipe, stdout=pipe, stderr=pipe)
        process.command = words[0]
        return process

    def finish(self, process, text=''):
        """text: its standard input."""
        run = Run(process, text)
        for kind, lines in ('out', run.out), ('err', run.err):
            (self.folder / f'{process.command}.{kind}').write_text(''.join(line + '\n' for line in lines), 'utf-8')
        return run

    def halvex(self, *words, text=''):
        return self.finish(self.start(*words), text)

    def presets(self):
        self.halvex('new', 'presets.xml').ended(0)
        return 'presets.xml'

    def end(self):
        """Ends what the case has left running."""
        for process in self.started:
            with process:
                process.kill()
        self.started = []
