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
import random
import shutil
import subprocess
import sys
import tempfile
import time
import tty
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

PROJECT = Path(__file__).resolve().parent.parent
AT_ONCE = 8  # runs at the same time

# The program reads at least 64 characters at a time (src/platform/receive_buffer.h), which this
# receiver needs two positions for.
TOO_SHORT = "RMC alone, fewer than 62 characters"

# name, talker, sentences of a burst (one after a / comes in each fifth burst only), form of RMC,
# decimals of the minutes, seconds between bursts
RECEIVERS = [
    ("RMC alone", "GP", "RMC", "variation", 3, 1),
    ("RMC alone, two decimals", "GP", "RMC", "variation", 2, 1),
    ("RMC alone, modern", "GN", "RMC", "mode", 5, 1),
    ("RMC alone, modern, no course", "GN", "RMC", "still", 5, 1),
    ("RMC alone, each five seconds", "GP", "RMC", "fraction", 4, 5),
    (TOO_SHORT, "GP", "RMC", "short", 4, 1),
    ("RMC last", "GP", "GGA GSA / GSV GSV GSV RMC", "fraction", 4, 1),
    ("RMC last, short", "GP", "GGA GSA / GSV GSV GSV RMC", "short", 4, 1),
    ("RMC before VTG", "GP", "GGA GSA / GSV GSV GSV RMC VTG", "fraction", 4, 1),
    ("RMC before VTG, of a phone", "GN", "GGA GSA GSA / GSV GSV RMC VTG", "status", 5, 1),
    ("RMC in the middle", "GP", "GGA GLL GSA RMC VTG ZDA", "variation", 3, 1),
    ("RMC first", "GP", "RMC VTG GGA GSA / GSV GSV GSV GLL", "mode", 5, 1),
    ("RMC first, of many systems", "GN", "RMC VTG GGA GSA GSA GLL", "status", 5, 1),
    ("RMC first, short", "GP", "RMC GGA VTG", "short", 4, 1),
    ("RMC first, each two seconds", "GP", "RMC GGA GSA GSV OWN GLL ZDA OWN", "variation", 3, 2),
    ("RMC and GGA", "GP", "RMC GGA", "fraction", 4, 1),
    ("fix lost six times in nine", "GP", "GGA GSA RMC", "mode", 4, 1),
    ("on a ship, with AIS", "II", "AIS GGA RMC ZDA AIS AIS", "variation", 3, 1),
]
# name, speed of the line, baud, characters of a packet, times as often
LINES = [
    ("4800 baud", 4800, 8, 1),
    ("packets of 64", 4800, 64, 1),
    ("10 a second", 115200, 64, 10),
]


def sentence(body):
    total = 0
    for character in body:
        total ^= ord(character)
    mark = "!" if body.startswith("AI") else "$"
    return f"{mark}{body}*{total:02X}\r\n".encode()


class Receiver:
    """A receiver that moves north-east from a hill in Wales; each fix is another place."""

    def __init__(self, name, talker, order, form, places, seconds):
        self.loses_fix = name.startswith("fix lost")
        self.talker, self.order, self.form = talker, order.split(), form
        self.places, self.seconds = places, seconds
        self.random = random.Random(name)
        self.number = 0
        self.time = 9 * 3600 + 58 * 60
        self.minutes_north, self.minutes_west = 52 * 60 + 30.0, 3 * 60 + 40.0

    def burst(self, step):
        """The sentences of one position as (characters, text on screen); no text without fix."""
        self.number += 1
        self.time += step
        self.minutes_north += 0.011 + self.random.random() / 100
        self.minutes_west -= 0.013
        fix = not (self.loses_fix and self.number % 9 < 6)
        places = self.places
        degrees, minutes = divmod(round(self.minutes_north, places), 60)
        self.north = f"{degrees:02.0f}{minutes:0{3 + places}.{places}f}"
        degrees, minutes = divmod(round(self.minutes_west, places), 60)
        self.west = f"{degrees:03.0f}{minutes:0{3 + places}.{places}f}"
        shown = f"{self.north[:2]} {self.north[2:]}N {self.west[:3]} {self.west[3:]}W"
        sentences = []
        rare = False
        for kind in self.order:
            rare = kind == "/" or (rare and kind == "GSV")
            if kind == "/" or (rare and self.number % 5 != 0):
                continue
            text = shown if kind == "RMC" and fix else None
            sentences.append((sentence(getattr(self, kind.lower())(fix)), text))
        return sentences

    def clock(self):
        minute = f"{self.time // 3600:02.0f}{self.time // 60 % 60:02.0f}"
        fraction = {"variation": 0, "short": 0, "fraction": 3}.get(self.form, 2)
        seconds = round(self.time, 2) % 60
        return f"{minute}{seconds:0{3 + fraction if fraction else 2}.{fraction}f}"

    def position(self, fix):
        return f"{self.north},N,{self.west},W" if fix else ",,,"

    def rmc(self, fix):
        speed, course = self.random.uniform(0, 30), self.random.uniform(0, 360)
        end = {
            "variation": f"{speed:05.1f},{course:05.1f},231126,003.1,W",
            "fraction": f"{speed:.2f},{course:.2f},231126,,",
            "mode": f"{speed:.3f},{course:.2f},231126,,,A",
            "status": f"{speed:.3f},{course:.2f},231126,,,A,V",
            "still": f"{speed / 100:.3f},,231126,,,A",
            "short": f"{speed / 10:.1f},,231126,,",
        }[self.form]
        if not fix:
            end = ",,231126,,,N"
        return f"{self.talker}RMC,{self.clock()},{'A' if fix else 'V'},{self.position(fix)},{end}"

    def gga(self, fix):
        end = "1,08,0.94,545.4,M,46.9,M,," if fix else "0,00,99.99,,,,,,"
        return f"{self.talker}GGA,{self.clock()},{self.position(fix)},{end}"

    def gll(self, fix):
        return f"{self.talker}GLL,{self.position(fix)},{self.clock()},{'A' if fix else 'V'}"

    def gsa(self, fix):
        return f"{self.talker}GSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1" if fix else (
            f"{self.talker}GSA,A,1,,,,,,,,,,,,,99.99,99.99,99.99")

    def gsv(self, _fix):
        satellites = ",".join(
            f"{self.random.randint(1, 32):02},{self.random.randint(5, 85):02},"
            f"{self.random.randint(0, 359):03},{self.random.choice(['', '28', '44'])}"
            for _ in range(4))
        return f"GPGSV,3,1,12,{satellites}"

    def vtg(self, _fix):
        return f"{self.talker}VTG,084.4,T,087.5,M,022.4,N,041.5,K"

    def zda(self, _fix):
        return f"{self.talker}ZDA,{self.clock()},23,11,2026,00,00"

    def ais(self, _fix):
        letters = self.random.choices("0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVW`abcdefghijklmnopqrstuvw",
                                      k=28)
        return f"AIVDM,1,1,,A,{''.join(letters)},0"

    def own(self, _fix):
        return f"PXYZ,{self.random.uniform(3, 20):.1f},M"


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
