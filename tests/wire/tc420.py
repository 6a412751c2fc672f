# SPDX-License-Identifier: MIT
"""The frames that a TC420 must get from an upload of the presets, computed from their tables."""
from fractions import Fraction

DAY = 24 * 60


def steps(text):
    """'08:00 0, 10:00 80' as a list of (minute of the day, percent)."""
    pairs = (item.split() for item in text.split(','))
    return [(int(time[:2]) * 60 + int(time[3:]), int(percent)) for time, percent in pairs]


WHITE = steps('08:00 0, 10:00 80, 11:30 80, 12:00 50, 18:00 50, 19:00 90, 20:00 90, 23:30 0')
MOON = steps('09:00 0, 09:30 30, 21:30 30, 22:00 0')
FULL = steps('09:00 100, 22:00 100')
PRESETS = [('Normal', [WHITE] * 4 + [MOON]), ('AlwaysOn', [FULL] * 5)]


def percent_at(channel, minute):
    """Whole percents, cut and not rounded; the curve goes on through midnight."""
    before = max((step for step in channel if step[0] <= minute), default=channel[-1])
    after = min((step for step in channel if step[0] > minute), default=channel[0])
    span = (after[0] - before[0]) % DAY
    share = Fraction((minute - before[0]) % DAY, span)
    return int(before[1] + (after[1] - before[1]) * share)


def samples(channels):
    """(hour, minute, five percents) at each minute at which any channel has a step."""
    minutes = sorted({minute for channel in channels for minute, _ in channel})
    return [(m // 60, m % 60, *(percent_at(channel, m) for channel in channels)) for m in minutes]


def text(name, width):
    return name.encode()[:width].ljust(width, b'\0')


def frame(command, payload=b''):
    summed = bytes([0x55, 0xAA, command, 0, len(payload)]) + payload.ljust(56, b'\0')
    return summed + bytes([sum(summed) % 256, 0x0D, 0x0A])


def mode(bank):
    name, channels = PRESETS[bank]
    table = samples(channels)
    no_jumps = bytes([0])
    return [frame(0x12, bytes([bank, len(table)]) + text(name, 8)),
            *(frame(0x13, bytes(sample) + no_jumps) for sample in table),
            frame(0x01)]


CLOSE = frame(0x02)
UPLOAD = [*mode(0), *mode(1), CLOSE]
