"""Reads COMTRADE recordings as the tables of IEEE C37.111-1999 and -2013 (IEC 60255-24:2013) have them.

It knows nothing of the program that wrote them, takes nothing that the tables do not allow, and holds each time
stamp against the rate and each value against the limits of its channel."""

import datetime
import math
import re
import struct
from collections import namedtuple

REAL = re.compile(r"[+-]?(\d+(\.\d*)?|\.\d+)([Ee][+-]?\d+)?")
WHOLE = re.compile(r"-?\d+")
DATE = re.compile(r"(\d\d)/(\d\d)/(\d{4}),(\d\d):(\d\d):(\d\d)\.(\d{6})")
OFFSET = re.compile(r"0|[+-]\d{1,2}(h\d\d)?")
SECTION = re.compile(r"--- file type: (CFG|INF|HDR|DAT ASCII|DAT (BINARY|BINARY32|FLOAT32): (\d+)) ---")

Channel = namedtuple("Channel", "name phase circuit unit a b least greatest primary secondary kind")
# Values are None where they are missing; stamps are seconds behind the first sample.
Sample = namedtuple("Sample", "number stamp stored")
# The numbers that a form may hold, its code in the data, and what stands for a missing one.
Form = namedtuple("Form", "since least greatest code missing")
FORMS = {
    "ASCII": Form(1999, -99999, 99998, None, 99999),
    "BINARY": Form(1999, -32767, 32767, "h", -0x8000),
    "BINARY32": Form(2013, -0x7FFFFFFF, 0x7FFFFFFF, "i", -0x80000000),
    "FLOAT32": Form(2013, -3.4028235e38, 3.4028235e38, "f", None),
}


class Refused(Exception):
    pass


def demand(there, what):
    if not there:
        raise Refused(what)


def lines_of(content, encoding):
    text = content.decode(encoding)
    demand(text.endswith("\r\n"), "the last line has no end")
    lines = text[:-2].split("\r\n")
    demand(not any(c < " " or c == "\x7f" for line in lines for c in line), "a control character in a line")
    return lines


def whole(text, most, least=None, greatest=None):
    demand(WHOLE.fullmatch(text) and len(text) <= most, f"{text!r} is no whole number of {most} characters")
    number = int(text)
    demand(least is None or number >= least, f"{text} is below {least}")
    demand(greatest is None or number <= greatest, f"{text} is above {greatest}")
    return number


def real(text, most=32):
    demand(REAL.fullmatch(text) and len(text) <= most, f"{text!r} is no real number of {most} characters")
    return float(text)


def name(text, least, most):
    demand(least <= len(text) <= most, f"{text!r} has not {least} to {most} characters")
    return text


def moment(text):
    digits = DATE.fullmatch(text)
    demand(digits, f"{text!r} is no date and time")
    day, month, year, hour, minute, second, behind = (int(group) for group in digits.groups())
    return datetime.datetime(year, month, day, hour, minute, second, behind)


class Configuration:
    """The lines of a configuration."""

    def __init__(self, content):
        self.year = 2013 if content.split(b"\r\n")[0].endswith(b",2013") else 1999
        self.lines = lines_of(content, "utf-8" if self.year == 2013 else "ascii")
        self.at = 0
        self.station, self.device, year = self.fields(3)
        name(self.station, 0, 64)
        name(self.device, 0, 64)
        demand(year in ("1999", "2013"), f"the edition {year}")
        forms = {line for line in self.lines if line in FORMS}
        demand(len(forms) == 1, f"the forms {forms}")
        self.form_name = forms.pop()
        self.form = FORMS[self.form_name]
        demand(self.year >= self.form.since, f"{self.form_name} in the edition of {year}")
        self.read_channels()
        self.read_times()
        demand(self.at == len(self.lines), "lines behind the last one")

    def line(self):
        demand(self.at < len(self.lines), "lines are missing")
        self.at += 1
        return self.lines[self.at - 1]

    def fields(self, count):
        line = self.line()
        fields = line.split(",")
        demand(len(fields) == count, f"{line!r} has {len(fields)} fields instead of {count}")
        return fields

    def read_channels(self):
        total, analog, digital = self.fields(3)
        demand(re.fullmatch(r"\d{1,6}A", analog) and digital == "0D", f"the channels {analog} and {digital}")
        count = whole(total, 7, 1, 999999)
        demand(int(analog[:-1]) == count, f"{total} channels are not {analog}")
        self.channels = [self.channel(index + 1) for index in range(count)]

    def channel(self, index):
        number, label, phase, circuit, unit, a, b, skew, least, greatest, primary, secondary, kind = self.fields(13)
        demand(number == str(index), f"channel {number} at place {index}")
        name(label, 1, 64 if self.year == 1999 else 128)
        name(phase, 0, 2)
        name(circuit, 0, 64)
        name(unit, 1, 32)
        real(skew)
        demand(kind in ("P", "S"), f"the values are {kind}")
        low, high = self.limit(least), self.limit(greatest)
        demand(low <= high, f"{least} is above {greatest}")
        demand(real(a) != 0 and real(primary) > 0 and real(secondary) > 0, "a factor of 0")
        return Channel(label, phase, circuit, unit, real(a), real(b), low, high, real(primary), real(secondary), kind)

    def limit(self, text):
        if self.form_name == "FLOAT32":
            limit = real(text, 13)
            demand(abs(limit) <= self.form.greatest, f"{text} is no float")
            # The float that it names.
            return struct.unpack("<f", struct.pack("<f", limit))[0]
        return whole(text, 6 if self.year == 1999 else 13, self.form.least, self.form.greatest)

    def read_times(self):
        self.frequency = real(self.line())
        demand(self.line() == "1", "not one rate")
        rate, end = self.fields(2)
        self.rate = real(rate)
        demand(self.rate > 0, f"the rate {rate}")
        self.end = whole(end, 10, 1)
        self.start, self.trigger = moment(self.line()), moment(self.line())
        demand(self.start <= self.trigger, "the trigger lies before the first sample")
        demand(self.line() == self.form_name, "the form stands at another place")
        self.multiplier = real(self.line())
        demand(self.multiplier > 0, "the multiplier of the time")
        self.time_code = None
        if self.year == 1999:
            return
        self.time_code, local = self.fields(2)
        demand(OFFSET.fullmatch(self.time_code), f"the time code {self.time_code}")
        demand(local == "x" or OFFSET.fullmatch(local), f"the local code {local}")
        quality, leap = self.fields(2)
        demand(re.fullmatch(r"[0-9A-F]", quality) and re.fullmatch(r"[0-3]", leap), "the clock's quality")


class Recording:
    def __init__(self, head, data):
        self.head = head
        self.samples = list(self.of_text(data) if head.form_name == "ASCII" else self.of_bytes(data))
        demand(len(self.samples) == head.end, f"{len(self.samples)} samples instead of {head.end}")
        for place, sample in enumerate(self.samples):
            demand(sample.number == place + 1, f"sample {sample.number} at place {place + 1}")
            apart = sample.stamp - place / head.rate
            demand(abs(apart) < 1e-6, f"sample {sample.number} has a time stamp that is {apart} s off")

    def of_text(self, data):
        for line in lines_of(data, "ascii"):
            fields = line.split(",")
            demand(len(fields) == 2 + len(self.head.channels), f"{line!r} has {len(fields)} fields")
            number, stamp = whole(fields[0], 10, 1), whole(fields[1], 10, 0)
            yield self.sample(number, stamp, [whole(field, 6) for field in fields[2:]])

    def of_bytes(self, data):
        record = struct.Struct("<II" + self.head.form.code * len(self.head.channels))
        demand(len(data) == record.size * self.head.end, f"{len(data)} bytes for {self.head.end} samples")
        for number, stamp, *numbers in record.iter_unpack(data):
            yield self.sample(number, stamp, numbers)

    def sample(self, number, stamp, numbers):
        stored = [self.stored(x, channel) for x, channel in zip(numbers, self.head.channels)]
        return Sample(number, stamp * self.head.multiplier * 1e-6, stored)

    def stored(self, number, channel):
        missing = math.isnan(number) if self.head.form.missing is None else number == self.head.form.missing
        if missing:
            return None
        demand(channel.least <= number <= channel.greatest, f"{number} lies outside of channel {channel.name}")
        return number


def read_pair(path):
    """`path` is that of both files without an extension."""
    with open(path + ".cfg", "rb") as configuration, open(path + ".dat", "rb") as data:
        return Recording(Configuration(configuration.read()), data.read())


def read_single(path):
    with open(path, "rb") as file:
        content = file.read()
    sections = []
    while content is not None:
        line, content = content.split(b"\r\n", 1)
        section = SECTION.fullmatch(line.decode("ascii"))
        demand(section, f"{line!r} begins no section")
        kind = section.group(1)
        if kind.startswith("DAT"):
            demand(section.group(3) is None or int(section.group(3)) == len(content), "the length of the data")
            sections.append((kind.split(":")[0], content))
            break
        end = content.index(b"--- file type: ")
        sections.append((kind, content[:end]))
        content = content[end:]
    kinds = [kind for kind, _ in sections]
    demand(kinds[:3] == ["CFG", "INF", "HDR"] and len(kinds) == 4, f"the sections {kinds}")
    head = Configuration(sections[0][1])
    demand(head.year == 2013, "a single file of an edition that has none")
    demand(kinds[3] == "DAT " + head.form_name, f"{kinds[3]} of {head.form_name}")
    return Recording(head, sections[3][1])
