"""What stood on a wire, read a second time and told in the plainest way: a capture by another
program, frame by frame, with a reader of the structure that shares nothing with the program's."""

import struct
from dataclasses import dataclass, field

# Block types of a pcapng file.
SECTION, INTERFACE, ENHANCED = 0x0A0D0D0A, 1, 6


def frames_of(path):
    """(arrival in ns, bytes) of each frame of a pcapng file."""
    data = path.read_bytes()
    at, nanoseconds_a_unit = 0, 1000
    while at + 12 <= len(data):
        kind, size = struct.unpack_from("<II", data, at)
        if kind == INTERFACE:
            nanoseconds_a_unit = unit_of(data[at + 16:at + size - 4])
        if kind == ENHANCED:
            high, low, captured = struct.unpack_from("<III", data, at + 12)
            yield (high << 32 | low) * nanoseconds_a_unit, data[at + 28:at + 28 + captured]
        at += size


def unit_of(options):
    """The resolution of the time stamps (option if_tsresol); microseconds unless told."""
    at = 0
    while at + 4 <= len(options):
        code, length = struct.unpack_from("<HH", options, at)
        if code == 9:
            return 10 ** (9 - options[at + 4])
        at += 4 + (length + 3) // 4 * 4
    return 1000


def element(data, at):
    """(tag, begin, end) of an element of the basic encoding rules."""
    size = data[at + 1]
    begin = at + 2
    if size & 0x80:
        octets = size & 0x7F
        size = int.from_bytes(data[begin:begin + octets], "big")
        begin += octets
    return data[at], begin, begin + size


def elements(data, begin, end):
    while begin < end:
        tag, inside, end_of_it = element(data, begin)
        yield tag, inside, end_of_it
        begin = end_of_it


@dataclass
class Frame:
    key: tuple
    counters: list
    # Of each ASDU, the values of its channels.
    values: list


def read(data):
    """A frame of sampled values; None for any other."""
    at, tags = 12, []
    while data[at:at + 2] in (b"\x81\x00", b"\x88\xa8"):
        tags.append(struct.unpack_from(">H", data, at + 2)[0])
        at += 4
    if data[at:at + 2] != b"\x88\xba":
        return None
    appid = struct.unpack_from(">H", data, at + 2)[0]
    _, begin, end = element(data, at + 10)
    counters, values, name = [], [], b""
    for tag, inside, behind in elements(data, begin, end):
        if tag != 0xA2:
            continue
        for _, asdu, behind_asdu in elements(data, inside, behind):
            for kind, value, behind_value in elements(data, asdu, behind_asdu):
                if kind == 0x80:
                    name = data[value:behind_value]
                if kind == 0x82:
                    counters.append(struct.unpack_from(">H", data, value)[0])
                if kind == 0x87:
                    count = (behind_value - value) // 8
                    values.append(list(struct.unpack_from(">" + "iI" * count, data, value)[::2]))
    vlan = tags[-1] & 0x0FFF if tags else None
    return Frame((name, data[:6], data[6:12], appid, vlan), counters, values)


@dataclass
class Seen:
    """A stream as it came; times in microseconds."""
    rate: int
    arrivals: list = field(default_factory=list)
    positions: list = field(default_factory=list)
    # By position.
    values: dict = field(default_factory=dict)
    channels: int = 0
    asdus: int = 0

    def take(self, arrived, frame):
        counter = frame.counters[0]
        # The counter goes round once a second. A frame that goes on where the one before ended may
        # come as late as it likes; which second any other is of, the time of arrival tells.
        if self.positions and (counter - self.positions[-1] - self.asdus) % self.rate == 0:
            counter = self.positions[-1] + self.asdus
        elif self.positions:
            expected = self.positions[0] + (arrived - self.arrivals[0]) * self.rate / 1e6
            counter += round((expected - counter) / self.rate) * self.rate
        self.arrivals.append(arrived)
        self.positions.append(counter)
        for place, values in enumerate(frame.values):
            self.values.setdefault(counter + place, values)
        self.channels, self.asdus = len(frame.values[0]), len(frame.counters)

    def told(self):
        """What is to be told of it, under the names of the program."""
        met, highest, doubled, late = set(), None, 0, 0
        for position in self.positions:
            if position in met:
                doubled += 1
            elif highest is not None and position < highest:
                late += 1
            met.add(position)
            highest = position if highest is None else max(highest, position)
        steps = range(min(met), max(met) + 1, self.asdus)
        gaps = [after - before for before, after in zip(self.arrivals, self.arrivals[1:])]
        return {"frames": len(self.positions), "samples": len(self.positions) * self.asdus,
                "samplesLost": (len(steps) - len(met)) * self.asdus,
                "samplesDoubled": doubled * self.asdus, "samplesOutOfOrder": late * self.asdus,
                "noASDU": self.asdus, "channels": self.channels,
                "gaps": sorted(max(gap, 0) for gap in gaps)}


def streams_of(path, rate):
    """The streams of a capture by their key."""
    seen = {}
    for arrived, data in frames_of(path):
        frame = read(data)
        if frame is not None:
            seen.setdefault(frame.key, Seen(rate)).take(arrived // 1000, frame)
    return seen
