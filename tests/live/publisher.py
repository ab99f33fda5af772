#!/usr/bin/env python3
"""Sends streams of sampled values on a network interface in real time.

Each --stream is a list of key=value pairs, separated by commas; lists inside use colons:

  id=NAME           the stream's name
  tag=PRIO:VID      send with a VLAN tag (without: untagged)
  rate=N            frames a second, a divisor of 4000 (without: 4000)
  currents=A:B:C:N  RMS in A            voltages=A:B:C:N  RMS in V
  angles=...        eight angles in degrees, currents then voltages
  dc=...            eight offsets, four in A and four in V
  start=S stop=S    send only from and until so many seconds after the beginning
  pause=S:S         a break in between; more pairs are more breaks
  count=CHANNEL     this channel's raw value is the number of the frame, from 0 on

With --shuffled it is chance whose frame comes first after each pause between two frames, the more
likely the faster the stream; without, the streams keep their order.

At the end it prints how many frames of each stream it sent, as JSON. It stops before that, and
without a word, as soon as nobody is left to read what it prints.
"""

import argparse
import json
import math
import os
import random
import select
import socket
import struct
import sys
import time

RATE = 4000
# A sender that was held up goes on with the next frame instead of making up for lost time by a
# flood that no merging unit sends.
LONGEST_CATCH_UP = 160
PER_PERIOD = 80
# Between two looks at what is due, in seconds.
PAUSE = 0.001
ANGLES = [0.0, -120.0, 120.0, 0.0] * 2
COUNT_MARK = b"\x82\x02"
BYTES_PER_CHANNEL = 8


def numbers(text):
    return [float(part) for part in text.split(":")]


def tlv(tag, content):
    if len(content) > 127:
        raise ValueError("a field does not fit the short form of its length")
    return bytes([tag, len(content)]) + content


class Stream:
    def __init__(self, text, number):
        options = dict(part.split("=", 1) for part in text.split(","))
        self.id = options.pop("id", f"LIVE-{number + 1}")
        tag = options.pop("tag", None)
        self.tag = [int(part) for part in tag.split(":")] if tag else None
        rms = numbers(options.pop("currents", "100:100:100:0")) + numbers(
            options.pop("voltages", "11547:11547:11547:0")
        )
        angles = numbers(options.pop("angles", ":".join(map(str, ANGLES))))
        offsets = numbers(options.pop("dc", ":".join(["0"] * 8)))
        rate = int(options.pop("rate", RATE))
        if RATE % rate:
            raise ValueError(f"{rate} does not divide {RATE}")
        self.every = RATE // rate
        self.start = float(options.pop("start", 0))
        self.stop = float(options.pop("stop", math.inf))
        ends = numbers(options.pop("pause", "inf:inf"))
        self.pauses = list(zip(ends[::2], ends[1::2]))
        count = options.pop("count", None)
        self.count_channel = None if count is None else int(count)
        if options:
            raise ValueError(f"unknown keys of a stream: {', '.join(options)}")
        if not len(rms) == len(angles) == len(offsets) == 8:
            raise ValueError("a stream has eight channels")
        self.number = number
        self.period = [self.samples(place, rms, angles, offsets) for place in range(PER_PERIOD)]
        self.frames = [self.frame(values) for values in self.period]
        self.count_at = self.frames[0].index(COUNT_MARK, self.frames[0].index(self.id.encode())) + 2
        self.data_at = len(self.frames[0]) - 8 * BYTES_PER_CHANNEL
        self.sent = 0

    @staticmethod
    def samples(place, rms, angles, offsets):
        values = []
        for channel in range(8):
            turn = 2 * math.pi * place / PER_PERIOD + math.radians(angles[channel])
            value = math.sqrt(2) * rms[channel] * math.sin(turn) + offsets[channel]
            values.append(round(value * (1000 if channel < 4 else 100)))
        return values

    def frame(self, values):
        data = b""
        for channel, value in enumerate(values):
            data += struct.pack(">iI", value, 0x2000 if channel in (3, 7) else 0)
        asdu = (
            tlv(0x80, self.id.encode())
            + tlv(0x82, b"\0\0")
            + tlv(0x83, struct.pack(">I", 1))
            + tlv(0x85, b"\2")
            + tlv(0x87, data)
        )
        pdu = tlv(0x60, tlv(0x80, b"\1") + tlv(0xA2, tlv(0x30, asdu)))
        head = bytes.fromhex("010ccd0400") + bytes([0x41 + self.number])
        head += bytes.fromhex("0a5055424c") + bytes([0x41 + self.number])
        if self.tag:
            head += struct.pack(">HH", 0x8100, self.tag[0] << 13 | self.tag[1])
        head += struct.pack(">HHHHH", 0x88BA, 0x4000, 8 + len(pdu), 0, 0)
        return bytearray(head + pdu)

    def sends_at(self, seconds):
        paused = any(begin <= seconds < end for begin, end in self.pauses)
        return self.start <= seconds < self.stop and not paused

    def values(self, sample):
        """The eight raw values of a frame."""
        values = list(self.period[sample % PER_PERIOD])
        if self.count_channel is not None:
            values[self.count_channel] = sample
        return values

    def send(self, wire, sample):
        # Slower streams take turns, as senders with clocks of their own do.
        place = sample - self.number % self.every
        if place % self.every or not self.sends_at(sample / RATE):
            return
        frame = self.frames[sample % PER_PERIOD]
        struct.pack_into(">H", frame, self.count_at, place % RATE // self.every)
        if self.count_channel is not None:
            channel = self.data_at + self.count_channel * BYTES_PER_CHANNEL
            struct.pack_into(">i", frame, channel, sample)
        wire.send(frame)
        self.sent += 1


class Reader:
    """Whoever reads what this program prints."""

    def __init__(self):
        self.poll = select.poll()
        # A pipe without a reader is reported though nothing is asked for.
        self.poll.register(sys.stdout, 0)

    def is_gone(self):
        return bool(self.poll.poll(0))


def publish(wire, streams, duration, shuffled, reader):
    """Sends what is due about once a millisecond, so that a frame is never early. Returns whether
    it came to its end."""
    begin = time.monotonic()
    total = round(duration * RATE)
    sample = 0
    while sample < total:
        if reader.is_gone():
            return False
        due = int((time.monotonic() - begin) * RATE) + 1
        if due - sample > LONGEST_CATCH_UP:
            begin += (due - sample - LONGEST_CATCH_UP) / RATE
            due = sample + LONGEST_CATCH_UP
        due = min(total, due)
        for place in range(sample, due):
            for stream in streams:
                stream.send(wire, place)
        sample = due
        time.sleep(PAUSE)
        if shuffled:
            random.shuffle(streams)
            # A pause of one length would fall into step with a slow stream.
            time.sleep(PAUSE * random.random())
    return True


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--interface", required=True)
    parser.add_argument("--duration", type=float, default=1.0, help="seconds")
    parser.add_argument("--shuffled", action="store_true")
    parser.add_argument("--stream", action="append", required=True)
    arguments = parser.parse_args()
    streams = [Stream(text, number) for number, text in enumerate(arguments.stream)]
    with socket.socket(socket.AF_PACKET, socket.SOCK_RAW) as wire:
        wire.bind((arguments.interface, 0))
        if not publish(wire, streams, arguments.duration, arguments.shuffled, Reader()):
            return
    try:
        print(json.dumps({stream.id: stream.sent for stream in streams}), flush=True)
    except BrokenPipeError:
        # The reader went in the last moment. What is left in the buffer must not be tried again
        # when the interpreter ends.
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())


if __name__ == "__main__":
    main()
