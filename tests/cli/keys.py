#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs the program on a terminal and presses keys: keys.py demo PROGRAM... FILE, or, where no network is,
keys.py password PROGRAM... Prints what went wrong; exits with 1 then."""
import fcntl
import os
import pty
import re
import select
import sys
import termios
import time

LINE = re.compile(r'(\d\d):(\d\d):\d\d(?: +\d+){5} %  (playing|paused)')


class Screen:
    """The program on a terminal of its own; `minute` and `state` are what its line of progress shows."""

    def __init__(self, program, *arguments):
        self.terminal, side = pty.openpty()
        self.before = termios.tcgetattr(side)
        self.side = side
        self.pid = os.fork()
        if self.pid == 0:
            take_terminal(side)
            os.execvp(program[0], [*program, *arguments])
        self.text, self.minute, self.state = '', None, None

    def until(self, holds, what):
        end = time.monotonic() + 10
        while not holds():
            if time.monotonic() > end:
                sys.exit(f'it never came to {what}: {self.text[-200:]!r}')
            if select.select([self.terminal], [], [], 0.05)[0]:
                self.text += os.read(self.terminal, 4096).decode()
            shown = LINE.findall(self.text)
            if shown:
                hour, minute, self.state = shown[-1]
                self.minute = int(hour) * 60 + int(minute)

    def press(self, keys):
        os.write(self.terminal, keys)

    def status(self, last):
        self.until(lambda: last in self.text, f'"{last}"')
        return os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])

    def is_terminal_as_before(self):
        return termios.tcgetattr(self.side) == self.before


def take_terminal(side):
    os.setsid()
    fcntl.ioctl(side, termios.TIOCSCTTY, 0)
    for number in (0, 1, 2):
        os.dup2(side, number)


def expect(holds, what):
    if not holds:
        sys.exit(what)


def play_demo(*words):
    *program, file = words
    demo = Screen(program, 'demo', file, '--device', 'emulator', '--start', '12:00', '--seconds', '86400')
    demo.until(lambda: demo.minute == 720, 'noon')
    demo.press(b' ')
    demo.until(lambda: demo.state == 'paused', 'a pause')
    demo.press(b'\x1b[C')
    demo.until(lambda: demo.minute == 735, 'a quarter past twelve')
    demo.press(b'\x1b[D\x1b[D')
    demo.until(lambda: demo.minute == 705, 'a quarter to twelve, by two keys at once')
    demo.press(b'x ')
    demo.until(lambda: demo.state == 'playing', 'the end of the pause')
    demo.press(b'q')
    expect(demo.status('Cancelled!') == 0, 'q did not end it well')
    expect(demo.is_terminal_as_before(), 'q left the terminal changed')

    demo = Screen(program, 'demo', file, '--device', 'emulator')
    demo.until(lambda: demo.state == 'playing', 'playing')
    demo.press(b'\x03')
    expect(demo.status('Cancelled!') == 130, 'Ctrl+C did not end it in order')
    expect(demo.is_terminal_as_before(), 'Ctrl+C left the terminal changed')


def ask_password(*program):
    wifi = ('wifi', '--device', '10.77.0.2', '--ssid', 'x', '--security', 'wpa')
    for keys, last, status in ((b'\x03', 'nothing was sent', 130), (b'secret\n', 'did not get through', 1)):
        asked = Screen(program, *wifi)
        asked.until(lambda: 'Password: ' in asked.text, 'the question')
        asked.until(lambda: not termios.tcgetattr(asked.side)[3] & termios.ECHO, 'hiding what is typed')
        time.sleep(0.3)  # it reads a moment later, and an interrupt before that is passed over
        asked.press(keys)
        expect(asked.status(last) == status, f'{keys} at the question did not end with {status}')
        expect('secret' not in asked.text, 'the password shows')
        expect(asked.is_terminal_as_before(), f'{keys} at the question left the terminal changed')


{'demo': play_demo, 'password': ask_password}[sys.argv[1]](*sys.argv[2:])
