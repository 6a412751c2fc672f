# SPDX-License-Identifier: MIT
"""What `scripts/simulate` does where it is apart: simulate.py COUNT OPTIONS [COMMAND...]."""
import os
import pathlib
import signal
import sys

from lab import HOME, PROGRAMS, Lab

FILES = pathlib.Path('/run/controllers')


def report(address):
    """Says of each mode that the controller holds how many steps it has."""
    state = FILES / f'{address}.state'
    held = []
    for line in state.read_text('utf-8').splitlines() if state.exists() else []:
        if not line.startswith('step'):
            held.append([line, 0])
        else:
            held[-1][1] += 1
    print(f'tc421@{address} holds' + ('' if held else ' nothing'), file=sys.stderr)
    for line, steps in held:
        print(f'  {line}' + (f', {steps} steps' if line.startswith('mode') else ''), file=sys.stderr)


def main():
    count, options, command = int(sys.argv[1]), sys.argv[2].split(), sys.argv[3:]
    signal.signal(signal.SIGINT, lambda *_: None)  # which is for the command
    addresses = [f'10.77.0.{number}' for number in range(2, count + 2)]
    lab = Lab(addresses)
    FILES.mkdir()
    try:
        for address in addresses:
            lab.start_controller(address, FILES / address, *options)
    except ChildProcessError as error:
        print(f'simulate: {error}', file=sys.stderr)
        return 2
    if not command:
        print(f'TC421 controllers are simulated at: {" ".join(addresses)}. "halvex devices --scan" finds them; "exit" '
              f'ends them.\nWhat they hold and hear stands in {FILES}/.', flush=True)
        command = ['env', r'PS1=(simulated) \w\$ ', 'bash', '--norc', '-i']
    path = f'{PROGRAMS}:{os.environ["PATH"]}'
    status = lab.start(HOME, command, env={**os.environ, 'PATH': path}).wait()
    for address in addresses:
        report(address)
    return status if status >= 0 else 128 - status


sys.exit(main())
