"""Reads the events file of a recording, and its samples as they stand on disk: what the one must
tell is worked out from the numbers that the frames carry, in the plainest way. It shares no code
with the program.
"""

import csv
from dataclasses import dataclass
from datetime import datetime, timezone

from recorded_files import Lines

RATE = 4000
RING = 4000
# The fields of a line of a recording: the counter, and the channel in which the bus counts seconds.
COUNTER, SECONDS = 1, 2 + 3
# A frame that is further back than this is a sender that began anew.
WINDOW = 64
MOST_GAPS = 24
HEADING = ["time", "stream", "line", "event", "count", "figures"]
MISSING, DOUBLED, LATE = "samples missing", "samples doubled", "samples out of order"
NOT_STORED, AGAIN, GONE = "ring not stored", "stored again", "file is gone"
DROPPED = "frames dropped by the system"


@dataclass
class Told:
    """A line of the events file."""

    at: float
    stream: int
    line: int
    event: str
    count: int
    figures: str

    def figure(self, name):
        for part in self.figures.split(", "):
            if part.startswith(name + " "):
                return int(part[len(name) :])
        return None


def number(text):
    return int(text) if text else 0


def read(path):
    with open(path, newline="", encoding="cp1252") as file:
        rows = list(csv.reader(file, delimiter=";"))
    if rows[0] != HEADING:
        raise ValueError(f"heading {rows[0]}")
    return [Told(datetime.fromisoformat(row[0]).replace(tzinfo=timezone.utc).timestamp(),
                 number(row[1]), number(row[2]), row[3], number(row[4]), row[5])
            for row in rows[1:]]


class Ring:
    """What a ring of the file shows of its frames, in the way the file of events tells it."""

    def __init__(self):
        self.gaps = []
        self.doubled = []
        self.late = []

    def lines(self):
        for line, first, lost, left in self.gaps[:MOST_GAPS]:
            yield MISSING, line, left, lost % RATE - (lost - left)
        further = sum(gap[3] for gap in self.gaps[MOST_GAPS:])
        if further:
            yield MISSING, 0, further, None
        for event, found in ((DOUBLED, self.doubled), (LATE, self.late)):
            if found:
                yield event, found[0], len(found), None


class Recorded:
    """The frames of a stream as they stand in its file."""

    def __init__(self, path, lost_rings):
        """`lost_rings` tells how many rings were not stored behind a line."""
        self.expected = []
        self.first = self.highest = None
        self.missing = self.doubled = self.late = self.rows = 0
        self.recent = set()
        # Samples that are missing where rings were not stored, beside those of the rings.
        self.beside_lost = 0
        lines = Lines(path)
        while rows := lines.take(RING):
            ring = Ring()
            for row in rows:
                self.rows += 1
                fields = row.split(";")
                sample = (int(fields[SECONDS]) - 1) * RATE + int(fields[COUNTER])
                self.take(ring, sample, lost_rings.get(self.rows - 1, 0))
            self.expected += ring.lines()
        self.missing += self.beside_lost

    def take(self, ring, sample, lost_rings):
        if self.highest is None:
            self.first, self.highest = sample, sample - 1
        back = self.highest - sample
        if back >= WINDOW:
            raise ValueError(f"line {self.rows} goes {back} samples back")
        if back >= 0:
            if sample in self.recent:
                ring.doubled.append(self.rows)
                self.doubled += 1
            else:
                ring.late.append(self.rows)
                self.late += 1
                self.close(ring, sample)
        elif lost_rings:
            self.beside_lost += -back - 1 - lost_rings * RING
        elif back < -1:
            ring.gaps.append([self.rows, self.highest + 1, -back - 1, -back - 1])
            self.missing += -back - 1
        self.recent.add(sample)
        if back < 0:
            self.highest = sample
            if len(self.recent) > 2 * WINDOW:
                self.recent = {each for each in self.recent if sample - each < WINDOW}

    def close(self, ring, sample):
        self.missing -= 1
        for gap in ring.gaps:
            if gap[1] <= sample < gap[1] + gap[2]:
                gap[3] -= 1
        ring.gaps = [gap for gap in ring.gaps if gap[3] > 0]
