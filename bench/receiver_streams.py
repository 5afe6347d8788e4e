"""Made streams of eighteen receivers, after formats that are in use."""
import random

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
