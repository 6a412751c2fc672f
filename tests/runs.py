# SPDX-License-Identifier: MIT
"""Runs of the program, and what is expected of them."""
import os
import subprocess
import time

import pytest


def skip(reason):
    """What the machine does not allow is skipped; where nothing may be missing, with CI=true, it has failed."""
    (pytest.fail if os.environ.get('CI') == 'true' else pytest.skip)(reason)


def start_wine(start=subprocess.Popen, **options):
    """Wine's services begin with its first program, and would hold its pipes open."""
    nothing = {'stdin': subprocess.DEVNULL, 'stdout': subprocess.DEVNULL, 'stderr': subprocess.DEVNULL}
    start(['wine', 'cmd', '/c', 'exit'], **nothing, **options).wait()


class Run:
    """What a run of a program left: status, out and err as lines, seconds."""

    def __init__(self, process, text='', most_seconds=60):
        begin = time.monotonic()
        try:
            out, err = process.communicate(text.encode(), most_seconds)
        except subprocess.TimeoutExpired:
            process.kill()
            process.communicate()
            pytest.fail(f'it hung for {most_seconds} s and was killed: {process.args}')
        self.seconds = time.monotonic() - begin
        self.status = process.returncode
        self.out, self.err = (data.decode('utf-8', 'replace').replace('\r', '').splitlines() for data in (out, err))

    def said(self):
        return ' / '.join([*self.out[-3:], *self.err[-3:]])

    def ended(self, status):
        assert self.status == status, self.said()

    def log_has(self, *lines):
        """The lines are there in this order, among others."""
        rest = iter(self.out)
        assert all(line in rest for line in lines), self.out

    def stderr_has(self, *texts):
        for text in texts:
            assert any(text in line for line in self.err), f'"{text}" is not on standard error: {self.err[-3:]}'


def wait_for(what, holds, seconds=10):
    end = time.monotonic() + seconds
    while not holds():
        assert time.monotonic() < end, f'{what} never came'
        time.sleep(0.02)
