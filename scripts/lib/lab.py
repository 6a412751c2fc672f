# SPDX-License-Identifier: MIT
"""Simulated TC421 controllers on a network of namespaces. Only for where `apart` has been: nothing is cleaned up."""
import pathlib
import subprocess

PROGRAMS = pathlib.Path(__file__).resolve().parents[2] / 'build/native/bin'
HOME = '10.77.0.1'


def ip(*words):
    subprocess.run(['ip', *map(str, words)], check=True)


class Lab:
    """A bridge, with a namespace at each of the addresses and one for the program, at HOME."""

    def __init__(self, addresses, name='lab'):
        self.hub, self.home = name, f'{name}-0'
        self.namespaces = {address: f'{name}-{number}' for number, address in enumerate([HOME, *addresses])}
        ip('netns', 'add', self.hub)
        ip('-n', self.hub, 'link', 'add', 'bridge', 'type', 'bridge')
        ip('-n', self.hub, 'link', 'set', 'bridge', 'up')
        for address, namespace in self.namespaces.items():
            ip('netns', 'add', namespace)
            ip('link', 'add', 'eth0', 'netns', namespace, 'type', 'veth', 'peer', 'name', namespace, 'netns', self.hub)
            ip('-n', self.hub, 'link', 'set', namespace, 'master', 'bridge', 'up')
            ip('-n', namespace, 'link', 'set', 'lo', 'up')
            ip('-n', namespace, 'link', 'set', 'eth0', 'up')
            ip('-n', namespace, 'address', 'add', address + '/24', 'dev', 'eth0')
        self.allow_broadcast()

    def allow_broadcast(self):
        ip('-n', self.home, 'route', 'add', '255.255.255.255', 'dev', 'eth0')

    def start(self, address, words, **options):
        """A process at the address; options: those of subprocess.Popen."""
        inside = ['nsenter', f'--net=/run/netns/{self.namespaces[address]}', '--', *words]
        return subprocess.Popen(inside, **options)

    def start_controller(self, address, files, *options):
        """A controller that writes what it holds to FILES.state and what it hears to FILES.transcript. In a session of
        its own, where Ctrl+C does not reach it: the program has something left to say to it then."""
        words = [PROGRAMS / 'sim-tc421', '--state', f'{files}.state', '--transcript', f'{files}.transcript', *options]
        process = self.start(address, words, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, start_new_session=True)
        if not process.stdout.readline():
            raise ChildProcessError(f'the controller at {address} does not start')
        return process
