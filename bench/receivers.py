#!/usr/bin/env python3
"""Share of a receiver's positions that are on screen within a second, and the longest delay.

receivers.py PROGRAM [SECONDS]: PROGRAM is build/bench/input_box, or input_box.exe, which runs under
Wine. Each receiver sends for 60 seconds, or SECONDS, in real time into a pseudo terminal that the
program opens as a serial port. A position counts if the program painted it in the input box no
later than a second after the last character of its sentence was written.
"""
import math
import os
import pty
import shutil
import subprocess
import sys
import tempfile
import time
import tty
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from receiver_streams import RECEIVERS, TOO_SHORT, Receiver

PROJECT = Path(__file__).resolve().parent.parent
AT_ONCE = 8  # runs at the same time

# name, speed of the line, baud, characters of a packet, times as often
LINES = [
    ("4800 baud", 4800, 8, 1),
    ("packets of 64", 4800, 64, 1),
    ("10 a second", 115200, 64, 10),
]


def send(terminal, receiver, line, seconds):
    """Sends in real time; returns (time of the last character, text on screen) of each fix."""
    _name, speed, packet, times = line
    step = receiver.seconds / times
    fixes = []
    start = time.time()
    for number in range(int(seconds / step)):
        sentences = receiver.burst(step)
        stream = b"".join(characters for characters, _ in sentences)
        begin = start + number * step
        written = [0.0] * len(stream)
        for at in range(0, len(stream), packet):
            piece = stream[at:at + packet]
            # A packet arrives when its last character has passed the line.
            time.sleep(max(0.0, begin + (at + len(piece)) * 10 / speed - time.time()))
            os.write(terminal, piece)
            written[at:at + packet] = [time.time()] * len(piece)
        end = 0
        for characters, text in sentences:
            end += len(characters)
            if text:
                fixes.append((written[end - 1], text))
    return fixes


def run(program, port, receiver, line, seconds):
    """Returns the delay in seconds of each fix; infinite for one that was never on screen."""
    terminal, device = pty.openpty()
    tty.setraw(device)
    with tempfile.TemporaryDirectory() as home:
        sites = Path(home, "tarnwick/drive_c/geog")
        sites.mkdir(parents=True)
        shutil.copy(PROJECT / "data/Sites.dat", sites)
        command = [program, f"COM{port}", str(line[1]), str(seconds + 5)]
        environment = dict(os.environ, XDG_DATA_HOME=home, XDG_CONFIG_HOME=home)
        if program.endswith(".exe"):
            link = Path(os.environ["WINEPREFIX"], "dosdevices", f"com{port}")
            link.unlink(missing_ok=True)
            command.insert(0, "wine")
        else:
            link = Path(home, f"ttyUSB{port - 9}")
            environment.setdefault("QT_QPA_PLATFORM", "offscreen")
            command.append(home)
        link.symlink_to(os.ttyname(device))
        with subprocess.Popen(command, env=environment, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL) as process:
            for text in process.stdout:
                if text.endswith("READY\n"):
                    break
            fixes = send(terminal, receiver, line, seconds)
            shown = {}
            for text in process.stdout:
                milliseconds, box = text.rstrip("\n").split(" | ", 1)
                shown.setdefault(box.split(" [")[0], int(milliseconds) / 1000)
        link.unlink(missing_ok=True)
    os.close(device)
    os.close(terminal)
    return [shown.get(text, math.inf) - written for written, text in fixes]


def main():
    program = str(Path(sys.argv[1]).resolve())
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 60
    free = list(range(9, 9 + AT_ONCE))  # ports

    def measure(case):
        port = free.pop()
        try:
            return run(program, port, Receiver(*case[0]), case[1], seconds)
        finally:
            free.append(port)

    cases = [(receiver, line) for receiver in RECEIVERS for line in LINES]
    with ThreadPoolExecutor(AT_ONCE) as pool:
        delays = dict(zip(cases, pool.map(measure, cases)))

    def cell(values):
        good = sum(delay <= 1 for delay in values)
        late = [delay for delay in values if delay < math.inf]
        longest = f", {max(late):.2f} s" if late else ""
        return f"{good} of {len(values)}{longest}"

    print("| Receiver | " + " | ".join(line[0] for line in LINES) + " |")
    print("| --- |" + " --- |" * len(LINES))
    for receiver in RECEIVERS:
        print(f"| {receiver[0]} | " + " | ".join(
            cell(delays[receiver, line]) for line in LINES) + " |")
    def share(receivers):
        totals = [sum((delays[receiver, line] for receiver in receivers), []) for line in LINES]
        return [100 * sum(delay <= 1 for delay in values) / len(values) for values in totals]

    def total(name, shares):
        print(f"| {name} | " + " | ".join(f"{percent:.1f} %" for percent in shares) + " |")

    total("all", share(RECEIVERS))
    others = share([receiver for receiver in RECEIVERS if receiver[0] != TOO_SHORT])
    total("all but the one with fewer than 62 characters", others)
    return 0 if min(others) >= 95 else 1


if __name__ == "__main__":
    sys.exit(main())
