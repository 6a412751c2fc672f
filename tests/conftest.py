# SPDX-License-Identifier: MIT
"""What the tests of pytest share. `tests/run` starts them."""
import os
import pathlib
import shlex
import shutil
import sys

import pytest

from runs import skip, start_wine

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.append(str(ROOT / 'scripts/lib'))


def pytest_addoption(parser):
    parser.addoption('--program', default=str(ROOT / 'build/native/bin/halvex'),
                     help='the program under test, with what runs it: "wine halvex-cli.exe"')
    parser.addoption('--results', help='the archive that tests/wire/usb/run has of its guest')


def words_of(config):
    """Those that run the program under test, in whatever folder."""
    words = shlex.split(config.getoption('--program'))
    return [str(pathlib.Path(word).resolve()) if pathlib.Path(word).exists() else word for word in words]


def pytest_collection_modifyitems(config, items):
    """Leaves out what is not for the program under test."""
    words = words_of(config)
    if not shutil.which(words[-1]) and not words[-1].endswith('.exe'):
        raise pytest.UsageError(f'there is no {words[-1]}; build it first')
    unfit = {'linux'} if words[0] == 'wine' else set()
    if len(words) > 1 or b'__asan_init' in pathlib.Path(words[0]).read_bytes():
        unfit.add('memory')
    items[:] = [item for item in items if not any(item.get_closest_marker(name) for name in unfit)]


@pytest.hookimpl(hookwrapper=True, tryfirst=True)
def pytest_sessionfinish(session):
    """The last line counts, as `scripts/test` wants it."""
    yield
    reporter = session.config.pluginmanager.get_plugin('terminalreporter')
    if reporter and not hasattr(session.config, 'workerinput'):
        passed, failed, errors, skipped = (len(reporter.stats.get(kind, []))
                                           for kind in ('passed', 'failed', 'error', 'skipped'))
        skips = f', {skipped} skipped' if skipped else ''
        reporter.write_line(f'{passed} passed, {failed + errors} failed{skips}')


@pytest.fixture(scope='session')
def apart():
    """Asked for by what mounts something, or is in a network."""
    if reason := os.environ.get('NOT_APART'):
        skip(reason)


@pytest.fixture(scope='session')
def program(pytestconfig):
    words = words_of(pytestconfig)
    if words[0] == 'wine':
        start_wine()
    return words
