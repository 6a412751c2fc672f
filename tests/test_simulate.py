# SPDX-License-Identifier: MIT
"""scripts/simulate: what its controllers get, the statuses it passes on, and that it ends without a trace."""
import os
import pathlib
import signal
import subprocess

import pytest

from runs import Run, wait_for

ROOT = pathlib.Path(__file__).resolve().parent.parent
NORMAL = '  mode 0 Normal, 12 steps'


@pytest.fixture(autouse=True)
def folder(apart, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    monkeypatch.setenv('HALVEX_HOME', 'home')


def start(*words, **options):
    return subprocess.Popen([ROOT / 'scripts/simulate', *words], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, **options)


def simulate(*words, status=0):
    run = Run(start(*words))
    run.ended(status)
    return run


def test_upload_to_the_second_past_a_lost_packet():
    run = simulate('--controllers', '2', '--sim', '--lose 1', 'bash', '-c',
                   'halvex --quiet new reef.xml && halvex --quiet upload reef.xml --device tc421@10.77.0.3 && echo it')
    assert run.out == ['it']
    assert run.err == ['tc421@10.77.0.2 holds nothing', 'tc421@10.77.0.3 holds', NORMAL, '  mode 1 AlwaysO, 2 steps']


def test_search_finds_eight():
    run = simulate('--controllers', '8', 'halvex', '--quiet', 'devices', '--scan')
    assert sorted(line.split()[0] for line in run.out) == [f'tc421@10.77.0.{number}' for number in range(2, 10)]


def test_no_way_out():
    run = simulate('bash', '-c', 'ip -brief link | cut -d" " -f1 | cut -d@ -f1; ip route get 192.0.2.1; '
                                 'getent hosts 192.0.2.1; true')
    assert run.out == ['lo', 'eth0']


def test_examples_of_the_guide(monkeypatch):
    guide = (ROOT / 'docs/user-guide.md').read_text('utf-8').partition('\n## The command line\n')[2]
    lines = [line[4:] for line in guide.splitlines() if line.startswith('    ')]
    assert lines
    monkeypatch.delenv('HALVEX_HOME')
    monkeypatch.setenv('HOME', os.getcwd())
    simulate('bash', '-euo', 'pipefail', '-c', '\n'.join(lines))


@pytest.mark.parametrize('status, words', [
    (7, ['bash', '-c', 'exit 7']),
    (1, ['halvex', 'sync-time', '--device', 'tc421@10.77.0.1']),
    (127, ['./missing']),
    (2, ['--controllers', '9']),
    (2, ['--controllers']),
    (2, ['--sim', '--nonsense', 'true']),
    (2, ['--what']),
])
def test_status(status, words):
    simulate(*words, status=status)


@pytest.mark.parametrize('number, is_for_all, status, words', [
    (signal.SIGINT, True, 130, ['halvex', 'upload', 'reef.xml', '--device', 'tc421@10.77.0.2']),
    (signal.SIGTERM, False, -15, ['bash', '-c', 'echo "Uploading mode: Normal"; sleep 60']),
])
def test_end(number, is_for_all, status, words):
    """Ctrl+C leaves the controller in order; the script's end is the end of all, which holds the pipes until then."""
    simulate('halvex', 'new', 'reef.xml')
    process = start(*words, start_new_session=True)
    wait_for('the first mode', lambda: b'Uploading mode: Normal' in process.stdout.readline(), 20)
    (os.killpg if is_for_all else os.kill)(process.pid, number)
    run = Run(process, most_seconds=20)
    assert run.status == status
    assert NORMAL in run.err or not is_for_all
