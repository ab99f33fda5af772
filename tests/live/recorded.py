#!/usr/bin/env python3
"""Compares a recording with what the publisher sent, line by line and cell by cell.

What must stand in the files is told here a second time, in the plainest way: rings of 4000 frames,
in the order in which the publisher sends. It shares no code with the program.

The first word of what it prints is the result: "right", "wrong" or "cannot".
"""

import argparse
import math
import sys
from decimal import ROUND_HALF_UP, Decimal
from pathlib import Path

from publisher import PER_PERIOD, RATE, Stream
from recorded_files import Cannot, Lines, Wrong, cells_of, demand, first_fields, lines_of

RING = 4000
BLOCK = 400
# Frames between the first ones of two streams: the first frame of a recording, one of the longest,
# only tells how long frames are.
MOST_APART = 2
CURRENTS = 4
HEADINGS = ["Ramp"] + [f"{kind} Sensor {k}" for kind in ("Current", "Voltage") for k in "ABCN"]


def exact(raw, channel):
    return Decimal(raw).scaleb(-3 if channel < CURRENTS else -5)


def plain(number):
    text = format(number.normalize(), "f")
    return "0" if text in ("-0", "0") else text


def three_decimals(number):
    text = str(number.quantize(Decimal("0.001"), ROUND_HALF_UP))
    return text.removeprefix("-") if Decimal(text) == 0 else text


class Ring:
    """A full ring at the moment at which it is written."""

    def __init__(self, slot, cells, others, blocks, number):
        self.slot = slot
        # The numbers of the frames, in this ring and in that of the first stream.
        self.cells = cells
        self.first_slot = others
        self.blocks = blocks
        self.number = number


def rings_of(streams, order, firsts, total):
    """The rings in the order of their writing. `order` tells in which order the streams are sent,
    `firsts` the frame with which each one begins."""
    cells = [[None] * RING for _ in streams]
    at, row, blocks, written = ([0] * len(streams) for _ in range(4))
    seen = [False] * len(streams)
    for sample in range(min(firsts), total):
        for slot in order:
            if sample < firsts[slot] or not streams[slot].sends_at(sample / RATE):
                continue
            if not seen[slot]:
                # The first frame of the second stream has the running block of the first begin
                # anew.
                row[0] = 0
                seen[slot] = True
            cells[slot][at[slot]] = sample
            at[slot] += 1
            row[slot] += 1
            if at[slot] == RING:
                # The block that fills a ring is not counted.
                at[slot] = row[slot] = 0
                yield Ring(slot, list(cells[slot]), list(cells[0]), list(blocks), written[slot])
                written[slot] += 1
            elif row[slot] == BLOCK:
                row[slot] = 0
                blocks[slot] += 1


class Recording:
    def __init__(self, arguments, publisher):
        self.path = Path(arguments.record)
        ids = [arguments.first] + ([arguments.second] if arguments.second else [])
        by_id = {stream.id: stream for stream in publisher}
        self.streams = [by_id[name] for name in ids]
        self.order = sorted(range(len(ids)), key=lambda slot: publisher.index(self.streams[slot]))
        self.total = round(arguments.duration * RATE)
        self.whole = arguments.to_the_end
        # By how much more the second stream counts its lines.
        self.ahead = 0
        self.later = arguments.later
        self.firsts = []
        self.stored = [0] * len(ids)
        self.periods = {}

    def prefix(self, slot):
        return f"{slot + 1}_" if len(self.streams) == 2 else ""

    def name(self, slot, extension=None):
        path = self.path.with_suffix(extension) if extension else self.path
        return path.with_name(self.prefix(slot) + path.name)

    def rings(self):
        if max(self.firsts) - min(self.firsts) > MOST_APART:
            raise Wrong(f"the streams begin at the frames {self.firsts}")
        return rings_of(self.streams, self.order, self.firsts, self.total)

    def texts(self, slot, sample, form=plain):
        stream = self.streams[slot]
        key = (slot, sample % PER_PERIOD, form)
        if key not in self.periods:
            values = stream.values(sample)
            self.periods[key] = [form(exact(raw, k)) for k, raw in enumerate(values)]
        texts = list(self.periods[key])
        texts[stream.count_channel] = form(exact(sample, stream.count_channel))
        return texts

    @staticmethod
    def count_of(text):
        """The frame's number, out of the channel that carries it."""
        return int(Decimal(text).scaleb(3))

    def files(self):
        return [Lines(self.name(slot)) for slot in range(len(self.streams))]

    def compare(self, slot, lines, expected):
        """Whether the file goes on with these lines; False at its end."""
        found = lines.take(len(expected))
        if not found and not self.whole:
            return False
        if found != expected:
            for k, line in enumerate(expected):
                there = found[k] if k < len(found) else None
                demand(there, line, f"{self.name(slot)}:{self.stored[slot] + k + 1}")
        self.stored[slot] += len(expected)
        return True

    def at_their_end(self, files):
        for slot, lines in enumerate(files):
            demand(lines.left(), 0, f"lines behind the last ring of {self.name(slot)}")

    def words(self):
        told = []
        for slot, stream in enumerate(self.streams):
            due = sum(stream.sends_at(k / RATE) for k in range(self.firsts[slot], self.total))
            behind = due - self.stored[slot]
            told.append(f"{stream.id}: {due} sent, {self.stored[slot]} stored and right, "
                        f"{behind} behind the last whole ring")
        return "; ".join(told)


def check_text(record):
    files = record.files()
    record.firsts = [record.count_of(first_fields(lines.path, ";")[2 + stream.count_channel])
                     for lines, stream in zip(files, record.streams)]
    if record.later:
        record.ahead = int(first_fields(files[-1].path, ";")[0])
        if record.ahead not in (0, BLOCK):
            raise Wrong(f"{files[-1].path} begins with line {record.ahead}")
    for ring in record.rings():
        # The second stream's numbers follow the counted blocks.
        first = ring.number * RING if ring.slot == 0 else ring.blocks[1] * BLOCK - 3600 + record.ahead
        expected = [";".join([str(first + k), str(sample % RATE), *record.texts(ring.slot, sample)])
                    for k, sample in enumerate(ring.cells)]
        record.compare(ring.slot, files[ring.slot], expected)
    record.at_their_end(files)
    if len(files) == 1:
        check_log(record)


def check_log(record):
    """Walks the ramp step by step, with a table of all lost samples."""
    due = [k for k in range(record.firsts[0], record.total)
           if record.streams[0].sends_at(k / RATE)][: record.stored[0]]
    gaps = [0]
    expected = due[0] % RATE
    for line, sample in enumerate(due):
        while expected != sample % RATE:
            expected = (expected + 1) % RATE
            gaps.append(line)
        expected = (expected + 1) % RATE
    lost = len(gaps) - 1
    gaps.append(len(due))
    longest, first, last = len(due), 1, len(due)
    if lost:
        longest = 0
        for before, behind in zip(gaps, gaps[1:]):
            if behind - before > longest:
                longest, first, last = behind - before - 1, before + 1, behind
    percentage = Decimal(len(due) * 100) / (len(due) + lost)
    stream = record.streams[0]
    path = record.path.with_name("Errorlog " + record.path.name)
    if not path.exists():
        raise Wrong(f"there is no {path}")
    log = lines_of(path)
    demand(len(log), 15, "lines of the log")
    frame = stream.frames[0]
    address = [frame[k : k + 6].hex(":").upper() for k in (6, 0)]
    for line, text in (
        (1, f"Error log for file               : {record.path}"),
        (6, f"MAC adress sender                : {address[0]}"),
        (7, f"MAC adress receiver              : {address[1]}"),
        (8, f"Station ID                       : {stream.id}"),
        (9, f"Filter were set to               :  / {stream.id} / "),
        (11, f"Count of received samples        : {len(due)}"),
        (12, f"Count of lost samples            : {lost}"),
        (13, "Percentage of captured samples   : "
             f"{percentage.quantize(Decimal('0.1'), ROUND_HALF_UP)} %"),
        (14, f"Longest continous data           : {longest} samples; start: {first}, end: {last}; "
             f"(acc. ~{longest / 80 / 50:.15g}s)"),
        (15, f"Count of received full waves     : {longest // 80}"),
    ):
        demand(log[line - 1], text, f"line {line} of the log")


def matching(record, check):
    """The files of the second stream do not tell its first frame: looks for the one that fits."""
    first = record.firsts[0]
    trouble, most = None, -1
    for second in sorted(range(first - MOST_APART, first + MOST_APART + 1), key=lambda k: -k):
        record.firsts[1:] = [max(0, second)]
        record.stored = [0] * len(record.streams)
        try:
            return check()
        except Wrong as wrong:
            # What is told is the trouble of the one that fits furthest.
            if sum(record.stored) > most:
                trouble, most = wrong, sum(record.stored)
    raise trouble


def check_comtrade(record):
    channel = record.streams[0].count_channel
    record.firsts = [record.count_of(first_fields(record.name(0), ",")[2 + channel])]
    blocks = 0

    def check():
        nonlocal blocks
        files = record.files()
        for ring in record.rings():
            form = three_decimals if ring.slot == 0 else plain
            expected = []
            # The lines of the second stream show the first one's ring, as it stands.
            for k, sample in enumerate(ring.first_slot):
                number = BLOCK * ring.blocks[0] + k - 3600
                values = ["0"] * 8 if sample is None else record.texts(0, sample, form)
                time = plain(Decimal(number) / 4)
                expected.append(",".join([str(number), time, *values]))
            if record.compare(ring.slot, files[ring.slot], expected):
                blocks = ring.blocks[0]
        record.at_their_end(files)

    if len(record.streams) == 2:
        matching(record, check)
    else:
        check()
    check_configuration(record, blocks)


def check_configuration(record, blocks):
    moment = record.path.stem[-19:].replace("-", ":")
    date, time = moment.split(" ")
    stamp = f"{date.replace('.', '/')},{time}.000000"
    station = record.streams[0].id
    for slot in range(len(record.streams)):
        lines = lines_of(record.name(slot, ".cfg"))
        expected = [f"{station},Vornik 2.3.5,1999", "8,8A,0D"]
        for k, heading in enumerate(HEADINGS[1:]):
            kind, unit, most = (("Current", "A,1", 500000), ("Voltage", "kV,1000", 1000))[k // 4]
            expected.append(f"{'A' if slot else ''}{k + 1},{station}:{heading},Ar,{kind}"
                            f"{'123N'[k % 4]},{unit},0,0,0,0,{most},1,1,P")
        expected += ["50", "1"]
        demand(lines[:12], expected, f"{record.name(slot, '.cfg')}")
    end = lines_of(record.path.with_suffix(".cfg"))
    samples, counted = end[-5].split(",")
    demand(samples, "4000", "samples a second in the configuration")
    # Blocks are counted on behind the last ring, up to the stop.
    if not blocks * BLOCK <= int(counted) <= (blocks + 10) * BLOCK:
        raise Wrong(f"the configuration ends at sample {counted}, and {blocks} blocks were counted")
    demand(end[-4:], [stamp, stamp, "ASCII", "1000"], "end of the configuration")


def check_sheet(record):
    sheets = [cells_of(record.name(slot)) for slot in range(len(record.streams))]
    for slot, stream in enumerate(record.streams):
        column = 1 + stream.count_channel
        counts = [value for (row, k), value in sheets[slot].items() if k == column and row > 0]
        if not counts:
            raise Wrong(f"{record.name(slot)} holds no sample")
        record.firsts.append(round(min(counts) * 1000))
    expected = [{(0, k): heading for k, heading in enumerate(HEADINGS)} for _ in sheets]
    # Both sheets take their rows from the first stream's count.
    next_row = 0
    for ring in record.rings():
        if ring.slot == 0 and ring.number == 0:
            next_row = 2
        cells = {}
        for k, sample in enumerate(ring.cells):
            values = [sample % RATE, *(float(exact(raw, channel)) for channel, raw in
                                       enumerate(record.streams[ring.slot].values(sample)))]
            cells.update({((next_row + k - 1) % 65536, column): value
                          for column, value in enumerate(values)})
        there = [sheets[ring.slot].get(place) for place in cells]
        if any(there) or record.whole:
            expected[ring.slot].update(cells)
            record.stored[ring.slot] += RING
        if ring.slot == 0:
            next_row += RING
    for slot, cells in enumerate(expected):
        for place, value in cells.items():
            found = sheets[slot].get(place)
            close = isinstance(value, float) and isinstance(found, float)
            if not (math.isclose(found, value, abs_tol=1e-9) if close else found == value):
                raise Wrong(f"{record.name(slot)}, cell {place}: {found!r} instead of {value!r}")
        demand(len(sheets[slot]), len(cells), f"cells of {record.name(slot)}")


CHECKS = {".txt": check_text, ".dat": check_comtrade, ".xls": check_sheet}


def arguments_of(line=None):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--record", required=True, help="path without a stream's prefix")
    parser.add_argument("--first", required=True, help="ID of the first stream")
    parser.add_argument("--second", help="ID of the second stream")
    parser.add_argument("--to-the-end", action="store_true",
                        help="everything was sent before the stop")
    parser.add_argument("--later", action="store_true",
                        help="not the first recording of its program: a block of the second stream "
                        "that was begun in the one before is counted, too")
    parser.add_argument("--duration", type=float, required=True)
    parser.add_argument("--stream", action="append", required=True)
    return parser.parse_args(line)


def check(arguments):
    """The result in words, whose first one is "right", "wrong" or "cannot"."""
    publisher = [Stream(text, number) for number, text in enumerate(arguments.stream)]
    record = Recording(arguments, publisher)
    try:
        CHECKS[record.path.suffix](record)
    except Wrong as wrong:
        return f"wrong: {wrong}"
    except FileNotFoundError as missing:
        return f"wrong: {missing}"
    except Cannot as cannot:
        return f"cannot: {cannot}"
    return f"right: {record.words()}"


if __name__ == "__main__":
    print(check(arguments_of()))
    sys.exit(0)
