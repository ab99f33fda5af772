#!/usr/bin/env python3
"""Writes a capture file of two streams, 4000 frames a second each, for the measure of fast.sh.

fast_file.py FILE SECONDS
"""

import math
import struct
import sys

STREAMS = (("FAST-MU-01", bytes.fromhex("020000000001"), 0x4000),
           ("FAST-MU-02", bytes.fromhex("020000000002"), 0x4001))
PERIOD = 80
RATE = 4000
BEGAN = 1_790_000_000


def field(tag, content):
    length = bytes([len(content)]) if len(content) < 128 else bytes([0x81, len(content)])
    return bytes([tag]) + length + content


def frame(stream, counter, raw):
    name, source, app = stream
    samples = b"".join(struct.pack(">iI", value, 0) for value in raw)
    asdu = field(0x30, field(0x80, name.encode()) + field(0x82, struct.pack(">H", counter)) +
                 field(0x83, struct.pack(">I", 1)) + field(0x85, b"\x02") + field(0x87, samples))
    pdu = field(0x60, field(0x80, b"\x01") + field(0xA2, asdu))
    head = bytes.fromhex("010ccd040001") + source + bytes.fromhex("8100800088ba")
    return head + struct.pack(">HHHH", app, len(pdu) + 8, 0, 0) + pdu


def waves():
    """The raw values of the eight channels over a period: mA, and hundredths of a volt."""
    third = 2 * math.pi / 3
    for i in range(PERIOD):
        angle = 2 * math.pi * i / PERIOD
        currents = [565685 * math.sin(angle - 0.5 - k * third) for k in (0, 1, 2)]
        voltages = [8980256 * math.sin(angle - k * third) for k in (0, 1, 2)]
        yield [round(v) for v in (*currents, sum(currents), *voltages, sum(voltages))]


def second():
    """Micro seconds and bytes of the frames of a second; each channel has noise of its own, so that
    the numbers have as many digits as those of an instrument."""
    period = list(waves())
    for counter in range(RATE):
        for k, stream in enumerate(STREAMS):
            raw = [value + (counter * 7919 + k * 104729 + c * 31) % 2003 - 1001
                   for c, value in enumerate(period[counter % PERIOD])]
            yield counter * 250 + k * 5, frame(stream, counter, raw)


def main(path, seconds):
    frames = list(second())
    with open(path, "wb") as file:
        file.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, 1))
        for i in range(seconds):
            file.write(b"".join(
                struct.pack("<IIII", BEGAN + i, at, len(data), len(data)) + data
                for at, data in frames))


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]))
