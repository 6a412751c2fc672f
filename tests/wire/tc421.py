# SPDX-License-Identifier: MIT
"""The frames that a TC421 must get over the network, computed from the presets' tables."""
from tc420 import PRESETS, percent_at, samples, text


def frame(command, sub, payload=b'', identity='', length=None):
    summed = bytes([0x55, 0xAA, command, sub, 0, len(payload) if length is None else length]) + payload
    summed = summed.ljust(49, b'\0')
    return summed + text(identity, 12) + bytes([sum(summed) % 256, 0, 0])


def mode(bank, identity):
    name, channels = PRESETS[bank]
    table = samples(channels)
    return [frame(0x01, 0x01, bytes([bank]) + text(name, 7) + bytes([0, len(table)]), identity),
            *(frame(0x01, 0x02, bytes([index, *sample]), identity) for index, sample in enumerate(table)),
            frame(0x04, 0x0A, identity=identity)]


def only_mode(bank, identity):
    """The mode as it goes when it is the only one: into bank 0."""
    name, channels = PRESETS[bank]
    init = frame(0x01, 0x01, bytes([0]) + text(name, 7) + bytes([0, len(samples(channels))]), identity)
    return [init, *mode(bank, identity)[1:]]


def upload(identity):
    return mode(0, identity) + mode(1, identity)


def held_mode(bank, name, channels):
    lines = [f'mode {bank} {name[:7]}']
    for index, (hour, minute, *values) in enumerate(samples(channels)):
        lines.append(f'step {index} {hour:02}:{minute:02} ' + ' '.join(map(str, values)))
    return lines


def held_modes():
    """The lines of the controller's state after the upload."""
    return [line for bank, preset in enumerate(PRESETS) for line in held_mode(bank, *preset)]


def held_only(bank):
    return held_mode(0, *PRESETS[bank])


def clock(when, identity):
    fields = [when.month, when.day, when.hour, when.minute, when.second]
    return frame(0x02, 0x00, when.year.to_bytes(2, 'big') + bytes(fields), identity)


def play_init(name, identity):
    return frame(0x06, 0x01, b'\1' + text(name, 7) + b'\0\0', identity)


def mode_stop(identity):
    return frame(0x03, 0x08, identity=identity)


def clear_all(identity):
    return frame(0x05, 0xFE, identity=identity)


def wifi_ssid(name, security, encryption):
    return frame(0x18, 0x00, b'\1' + text(name, 32) + bytes([security, encryption]), length=len(name.encode()))


def wifi_password(password):
    return frame(0x18, 0x00, b'\2' + password.encode(), length=len(password.encode()))


def wifi_open(name):
    return frame(0x18, 0x00, b'\3' + name.encode(), length=len(name.encode()))


FIND = frame(0x17, 0x00, bytes([0xDD, 0xEE, 0xFF]))


def curve(bank, second):
    """The five percents of a mode at a second of the day, taken at its whole minute."""
    return [percent_at(channel, int(second) // 60) for channel in PRESETS[bank][1]]
