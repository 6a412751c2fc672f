# SPDX-License-Identifier: MIT
"""The networks of test_network.py: one for each worker, for one test at a time."""
import collections
import contextlib
import functools
import os
import pathlib
import subprocess

import pytest

from lab import HOME, Lab, ip
from runs import Run, start_wine

ADDRESSES = '10.77.0.11', '10.77.0.12', '10.77.0.13'
Heard = collections.namedtuple('Heard', 'ms sender verdict packet frame')


class Controller:
    """What a simulated controller hears and holds."""

    def __init__(self, address, files):
        self.address, self.files = address, files

    def lines(self, name):
        path = pathlib.Path(f'{self.files}.{name}')
        return path.read_text('utf-8').splitlines() if path.exists() else []

    def heard(self):
        fields = (line.split('\t') for line in self.lines('transcript'))
        return [Heard(int(ms), *rest, bytes.fromhex(frame)) for ms, *rest, frame in fields]

    def heard_only(self, frames, lost=0):
        """The very frames, byte for byte; the first of them got lost."""
        wanted = [('lost' if number < lost else 'ok', frame.hex()) for number, frame in enumerate(frames)]
        assert [(heard.verdict, heard.frame.hex()) for heard in self.heard()] == wanted

    def gaps(self, count=None):
        """Milliseconds between the first packets that it heard."""
        times = [heard.ms for heard in self.heard()][:count]
        return [after - before for before, after in zip(times, times[1:])]


class Network:
    """The program and three controllers, as one test has them."""

    def __init__(self, lab, program, folder, environment):
        self.lab, self.program, self.folder, self.started = lab, program, folder, []
        self.environment = {**os.environ, 'HALVEX_HOME': 'home', **environment}

    @contextlib.contextmanager
    def cable_pulled(self):
        ip('-n', self.lab.home, 'link', 'set', 'eth0', 'down')
        try:
            yield
        finally:
            ip('-n', self.lab.home, 'link', 'set', 'eth0', 'up')
            self.lab.allow_broadcast()

    def controller(self, address, *options):
        self.started.append(self.lab.start_controller(address, self.folder / address, *options))
        return Controller(address, self.folder / address)

    def python(self, address, script):
        """A stranger on the network, or beside the program."""
        process = self.lab.start(address, ['python3', '-c', script], stdout=subprocess.PIPE)
        self.started.append(process)
        assert process.stdout.readline(), 'the stranger did not start'

    def start(self, *words):
        pipe = subprocess.PIPE
        process = self.lab.start(HOME, [*self.program, *words], stdin=pipe, stdout=pipe, stderr=pipe,
                                 cwd=self.folder, env=self.environment)
        self.started.append(process)
        return process

    def halvex(self, *words, text=''):
        return Run(self.start(*words), text)

    def presets(self):
        assert self.halvex('new', 'presets.xml').status == 0
        return 'presets.xml'

    def end(self):
        for process in self.started:
            with process:
                process.kill()


@pytest.fixture(scope='session')
def wine_environment(program, lab):
    """A wineserver owns the sockets of its programs, so each network has one, and each wineserver a prefix. Only the
    registry is written to; all else is linked."""
    if program[0] != 'wine':
        yield {}
        return
    prefix = pathlib.Path(os.environ['WINEPREFIX'] + '-' + lab.hub)
    subprocess.run(['rm', '-rf', prefix], check=True)
    subprocess.run(['cp', '-al', os.environ['WINEPREFIX'], prefix], check=True)
    for registry in prefix.glob('*.reg'):
        content = registry.read_bytes()
        registry.unlink()
        registry.write_bytes(content)
    environment = {'WINEPREFIX': str(prefix)}
    start_wine(functools.partial(lab.start, HOME), env={**os.environ, **environment})
    yield environment
    subprocess.run(['rm', '-rf', prefix], check=True)


@pytest.fixture(scope='session')
def lab(apart, worker_id):
    lab = Lab(ADDRESSES, worker_id)
    for address in ADDRESSES:  # a second address of each, for answers from a foreign one
        ip('-n', lab.namespaces[address], 'address', 'add', address + '1/24', 'dev', 'eth0')
    pathlib.Path('/etc/hosts').write_text('127.0.0.1 localhost\n10.77.0.12 reef\n')
    return lab


@pytest.fixture
def network(lab, program, tmp_path, wine_environment):
    network = Network(lab, program, tmp_path, wine_environment)
    yield network
    network.end()
