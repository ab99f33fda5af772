#!/usr/bin/env python3
"""Converts text recordings in every way, reads the files with the second reader, and holds each sample against
the numbers that the recording was made of.

    comtrade_conversions.py <vornik-cli>"""

import math
import os
import subprocess
import sys
import tempfile
from collections import namedtuple

from comtrade_reader import Configuration, Refused, read_pair, read_single

# What the wire holds, in mA and tens of mV, by the place of a sample; the first one has place 0.
Made = namedtuple("Made", "path round counts first units")
NAME = "SV record 21.11.2026 18-04-09.txt"
# Edition, options of the program.
WAYS = [("comtrade-1999", []), ("comtrade-1999", ["--binary"])] + [
    (to, form) for to in ("comtrade-2013", "cff") for form in ([], ["--binary"], ["--binary32"], ["--float"])
]
FACTORS = {"A": 1e-3, "mA": 1, "kV": 1e-5, "V": 1e-2, "mV": 10}


def wave(place, round_, current, voltage):
    angles = [2 * math.pi * place * 50 / round_ - k * 2 * math.pi / 3 for k in range(3)]
    currents = [round(current * math.sin(angle)) for angle in angles]
    voltages = [round(voltage * math.sin(angle)) for angle in angles]
    return currents + [sum(currents) + 7] + voltages + [sum(voltages) - 3]


def text_of(count, unit):
    """A count of the wire in a unit, with as many digits as it needs."""
    text = f"{count * FACTORS[unit]:.5f}".rstrip("0").rstrip(".")
    return "0" if text == "-0" else text


def make(folder, name, order, round_, first=0, current=565685, voltage=8980300, units=("A", "kV"), behind=""):
    """A recording of the samples at these places, in this order."""
    path = os.path.join(folder, name)
    counts = {}
    with open(path, "w", newline="", encoding="ascii") as file:
        for line, place in enumerate(order):
            counts[place] = wave(place, round_, current, voltage)
            values = [text_of(count, units[k // 4]) for k, count in enumerate(counts[place])]
            file.write(";".join([str(line), str((first + place) % round_), *values]) + "\r\n")
        file.write(behind)
    return Made(path, round_, counts, first, units)


def without(places, *lost):
    return [place for place in places if not any(begin <= place < end for begin, end in lost)]


def recordings(folder):
    clean = list(range(5000))
    swapped = clean[:]
    swapped[2000], swapped[2001] = swapped[2001], swapped[2000]
    swapped[3000:3005] = swapped[3004:2999:-1]
    swapped.insert(4000, 3999)
    yield make(folder, NAME, clean, 4000, 1871)
    yield make(folder, "1_" + NAME, without(clean, (1, 2), (700, 4600), (4998, 4999)), 4000, 3999)
    yield make(folder, "2_" + NAME, without(clean, (2900, 2930)), 4800, 4790)
    yield make(folder, "1_" + NAME, swapped, 4800)
    yield make(folder, NAME, clean, 4000, current=30, voltage=20, behind="5000;100;1.5")
    yield make(folder, NAME, clean, 4000, current=2147483000, voltage=2147483000, units=("mA", "mV"))
    yield make(folder, NAME, [0], 4000, 17, units=("A", "V"))


def convert(program, made, to, options):
    command = [program, "convert", made.path, "--to", to, "--station", "North", "--force", *options]
    if made.units != ("A", "kV"):
        command += ["--unit", ",".join(made.units)]
    if len(made.counts) < made.round - made.first % made.round:
        command += ["--round", str(made.round)]
    ran = subprocess.run(command, capture_output=True, text=True)
    if ran.returncode != 0:
        sys.exit(f"{command}: {ran.returncode}: {ran.stderr}")
    written = ran.stdout.splitlines()
    return read_single(written[0]) if to == "cff" else read_pair(written[0][: -len(".cfg")])


def tolerance(recording, channel, count, unit):
    """Half a step of the stored numbers, but none where each count of the wire has its own number."""
    if recording.head.form_name == "FLOAT32":
        return abs(count * FACTORS[unit]) * 2**-24
    exact = channel.a == FACTORS[unit]
    return 0 if exact else channel.a / 2


def hold(recording, made):
    head = recording.head
    last = max(made.counts)
    assert head.rate == made.round and head.frequency == (60 if made.round == 4800 else 50)
    assert head.start.isoformat() == "2026-11-21T18:04:09" and head.station == "North"
    assert len(recording.samples) == last + 1
    assert abs(recording.samples[-1].stamp - last / made.round) < 1e-6
    for place, sample in enumerate(recording.samples):
        counts = made.counts.get(place)
        if counts is None:
            assert sample.stored == [None] * 8, f"place {place} was lost"
            continue
        for k, (stored, channel) in enumerate(zip(sample.stored, head.channels)):
            unit = made.units[k // 4]
            assert channel.unit == unit
            assert stored is not None, f"place {place} was not lost"
            apart = abs(channel.a * stored + channel.b - counts[k] * FACTORS[unit])
            allowed = tolerance(recording, channel, counts[k], unit)
            # The last bits of the numbers compared.
            slack = 1e-12 * max(1, abs(counts[k] * FACTORS[unit]))
            assert apart <= allowed + slack, f"place {place}, channel {channel.name}: {apart} above {allowed}"
    if head.form_name != "FLOAT32":
        for k, channel in enumerate(head.channels):
            numbers = [sample.stored[k] for sample in recording.samples if sample.stored[k] is not None]
            assert (channel.least, channel.greatest) == (min(numbers), max(numbers))
            # No finer than the wire, and as fine as the form allows.
            full = max(map(abs, numbers)) == head.form.greatest
            assert full or channel.a == FACTORS[made.units[k // 4]]


def what_the_reader_refuses(path):
    """The reader is worth something: it takes a configuration that was written, and none with a flaw."""
    with open(path, "rb") as file:
        good = file.read()
    Configuration(good)
    flaws = [
        (b",1,1,P\r\n", b",1,1,1,P\r\n"),
        (b"1,Ia,", b"A1,Ia,"),
        (b",1,P\r\n", b",1,primary\r\n"),
        (b",0,0,-", b",0,0,-0.5"),
        (b"21/11/2026,18:04:09.000000", b"21/11/2026,18:04:09.000"),
        (b"21/11/2026,18:04:09.000000", b"31/11/2026,18:04:09.000000"),
        (b"8,8A,0D", b"8,8A"),
        (b"8,8A,0D", b"9,8A,0D"),
        (b"ASCII\r\n", b"ASCII\n"),
        (b"ASCII\r\n", b"BINARY32\r\n"),
        (b"ASCII\r\n250\r\n", b"ASCII\r\n"),
        (b"4000,5000", b"4000,5000.5"),
    ]
    for there, instead in flaws:
        assert there in good, there
        try:
            Configuration(good.replace(there, instead, 1))
        except (Refused, ValueError):
            continue
        raise AssertionError(f"a flaw went through: {instead}")


def main(program):
    count = 0
    with tempfile.TemporaryDirectory() as folder:
        for number, made in enumerate(recordings(folder)):
            for to, options in WAYS:
                try:
                    hold(convert(program, made, to, options), made)
                except (AssertionError, Refused) as wrong:
                    sys.exit(f"recording {number}, {to} {options}: {wrong}")
                count += 1
                if number == 0 and to == "comtrade-1999" and not options:
                    what_the_reader_refuses(made.path[: -len(".txt")] + ".cfg")
    print(f"{count} conversions read back")


if __name__ == "__main__":
    main(sys.argv[1])
