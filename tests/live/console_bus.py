#!/usr/bin/env python3
"""Plays a bus profile on a virtual wire, has the program without a window tell of it (streams, watch
and report side by side, and streams once more from a capture), and compares all of that with what
the bus says that it sent and with a second reading of the wire.

usage: console_bus.py PROFILE PROGRAM BUS
"""

import json
import math
import os
import signal
import socket
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "console"))

import comtrade_reader
import console_wire
from morning import arrived
from soak import FAR, NEAR

SKIPPED = 77
SECONDS = 2.5
# Listeners begin before the bus and are ended behind it; this is for a bus that never ends.
AT_MOST = 60
RATES = {"locked60": 4800}
FREQUENCIES = {"locked60": 60}
GAP_ERROR = 50
# Stations that are recorded too, where the profile has them.
RECORDED = ["BAY-01", "BAY-02"]


def run(command):
    subprocess.run(command.split(), check=True)


def runs(process):
    """Whether it has something to do, and be it only to wait for a processor. One that ended has not."""
    status = Path(f"/proc/{process.pid}/stat").read_text(encoding="ascii")
    return status.rpartition(")")[2].split()[0] not in "SZ"


def rest(listeners):
    """Waits until they have begun, or have read all that came: then they only look now and then."""
    looks, quiet = 25, 0
    while quiet < 2:
        busy = [0] * len(listeners)
        for _ in range(looks):
            time.sleep(0.02)
            busy = [count + runs(listener) for count, listener in zip(busy, listeners)]
        quiet = quiet + 1 if max(busy) <= looks // 4 else 0


class Wire:
    """Who listens to the wire, from before the bus begins until behind its end."""

    def __init__(self, profile, program, folder):
        self.capture = folder / "wire.pcapng"
        self.recorder = subprocess.Popen(
            ["dumpcap", "-q", "-i", NEAR, "-B", "64", "-w", self.capture],
            stderr=subprocess.DEVNULL)
        begin = lambda *words: subprocess.Popen(
            [program, *words, "--seconds", str(AT_MOST)], stdout=subprocess.PIPE, text=True)
        self.streams = begin("streams", NEAR, "--json")
        self.watch = begin("watch", NEAR, "--frequency", str(FREQUENCIES.get(profile, 50)))
        self.report = begin("report", NEAR, "--json")
        self.data = folder / "data"
        self.data.mkdir()
        stations = [word for name in RECORDED for word in ("--station", name)]
        self.record = begin("record", NEAR, "--format", "cff", "--folder", self.data, *stations)
        self.listeners = [self.streams, self.watch, self.report, self.record]
        rest([self.recorder, *self.listeners])

    def end_recorder(self):
        """It may miss the signal until the next frame wakes it, so that it gets frames to wake by."""
        other = b"\xff" * 6 + b"\x02" + b"\0" * 5 + b"\x88\xb5" + b"\0" * 46
        with socket.socket(socket.AF_PACKET, socket.SOCK_RAW) as far:
            far.bind((FAR, 0))
            while self.recorder.poll() is None:
                self.recorder.send_signal(signal.SIGINT)
                time.sleep(0.1)
                far.send(other)

    def heard(self):
        rest(self.listeners)
        for listener in self.listeners:
            listener.send_signal(signal.SIGINT)
        texts = [listener.communicate()[0] for listener in (self.streams, self.watch, self.report)]
        self.record.communicate()
        self.end_recorder()
        return (json.loads(texts[0]), [json.loads(line) for line in texts[1].splitlines()],
                [json.loads(line) for line in texts[2].splitlines()])


def play(profile, bus):
    """What the bus has sent. In the midst it is disturbed, as buses are."""
    command = [bus, "--interface", FAR, "--profile", profile, "--duration", str(SECONDS),
               "--keeps-time", "1"]
    before = arrived()
    with subprocess.Popen(command, stdout=subprocess.PIPE, text=True) as player:
        # Before its first frames a signal would end it.
        while arrived() < before + 100:
            time.sleep(0.01)
        for moment in (signal.SIGUSR1, signal.SIGUSR1, signal.SIGUSR2, signal.SIGUSR2,
                       signal.SIGSTOP, signal.SIGCONT):
            time.sleep(0.1)
            player.send_signal(moment)
        return json.loads(player.stdout.read())


def key_of(stream):
    """As the second reading tells a stream from the others."""
    octets = lambda text: bytes(int(pair, 16) for pair in text.split(":"))
    name = stream["svID"].encode("latin-1")
    for escaped, octet in ((b"\\0", b"\0"), (b"\\n", b"\n")):
        name = name.replace(escaped, octet)
    return (name, octets(stream["destinationAddress"]), octets(stream["sourceAddress"]),
            int(stream["appid"], 16), stream.get("vlanId"))


class Comparison:
    def __init__(self):
        self.wrong = []

    def same(self, what, told, expected):
        if told != expected:
            self.wrong.append(f"{what}: {told!r}, but {expected!r}")

    def near(self, what, told, expected, error):
        if abs(told - expected) > error:
            self.wrong.append(f"{what}: {told!r}, but {expected!r}")

    def stream(self, where, told, seen, rate):
        expected = seen.told()
        gaps = expected.pop("gaps")
        if told["restarts"] > 0:
            # On a busy computer a sender that is held up before it has shown its pace looks begun anew.
            expected.pop("samplesLost")
        else:
            self.same(f"{where} rate", told["nominalSamplesPerSecond"], rate)
        for name, value in expected.items():
            self.same(f"{where} {name}", told[name], value)
        of = told["arrivalGapMicroseconds"]
        self.near(f"{where} smallest gap", of["smallest"], gaps[0], GAP_ERROR)
        self.near(f"{where} greatest gap", of["greatest"], gaps[-1], GAP_ERROR)
        self.near(f"{where} mean gap", of["mean"], sum(gaps) / len(gaps), GAP_ERROR)
        # From 8 ms on gaps are told to a hundredth.
        place = max(math.ceil(len(gaps) * 0.999) - 1, 0)
        self.near(f"{where} 99.9 % gap", of["p99_9"], gaps[place],
                  max(GAP_ERROR, gaps[place] / 100))

    def of_all(self, where, told, seen, rate):
        self.same(f"{where}: streams", sorted(map(key_of, told)), sorted(seen, key=lambda key: key))
        for stream in told:
            if key_of(stream) in seen:
                self.stream(f"{where}: {stream['svID']}", stream, seen[key_of(stream)], rate)

    def watched(self, lines, seen):
        """The seconds of a stream together are all of it."""
        sums = {}
        for line in lines:
            of = sums.setdefault(key_of(line), {})
            for name in ("frames", "samples", "samplesLost", "samplesDoubled", "samplesOutOfOrder",
                         "restarts"):
                of[name] = of.get(name, 0) + line[name]
        for key, stream in seen.items():
            of = sums.get(key, {"frames": 0})
            if of.pop("restarts", 0) > 0:
                of.pop("samplesLost")
            for name, value in of.items():
                self.same(f"watch: {key} {name}", value, stream.told()[name])

    def readings(self, lines, numbers):
        """A whole second reads what the bus puts into its samples."""
        for line in lines:
            number = numbers.get(line["svID"])
            if number is None or line["frames"] < 3900 or line["noASDU"] > 1 or not line["channelReadings"]:
                continue
            first = line["channelReadings"][0]
            self.near(f"watch: {line['svID']} RMS", first["rms"], (100 + 10 * number) * 1000, 2500)
            self.near(f"watch: {line['svID']} angle", first["angle"], -90, 1)


def as_text(name):
    return name.decode("latin-1")


def recorded(comparison, data, seen, rate):
    """Each sample of a recording stands where its counter and its time say, as it was on the wire."""
    files = sorted(data.glob("*.cff"))
    expected = [key for name in RECORDED for key in seen if key[0] == name.encode()]
    comparison.same("recorded files", len(files), len(expected))
    for path, key in zip(files, expected):
        recording = comtrade_reader.read_single(path)
        stream = seen[key]
        first = stream.positions[0]
        comparison.same(f"{path.name} rate", recording.head.rate, float(rate))
        comparison.same(f"{path.name} channels", len(recording.head.channels), stream.channels)
        wrong = 0
        for place, sample in enumerate(recording.samples):
            wire = stream.values.get(first + place, [None] * stream.channels)
            wrong += sample.stored != wire
        comparison.same(f"{path.name} samples unlike the wire", wrong, 0)
        comparison.same(f"{path.name} samples", len(recording.samples),
                        max(stream.positions) + stream.asdus - first)


def compare(profile, sent, heard, again, seen, data):
    rate = RATES.get(profile, 4000)
    streams, watch, report = heard
    comparison = Comparison()
    comparison.of_all("streams", streams["streams"], seen, rate)
    comparison.of_all("capture", again["streams"], seen, rate)
    comparison.watched(watch, seen)
    ids = [name for name in sent if name not in ("doubled", "out of order", "left out")]
    comparison.same("what the bus sent", sorted(ids), sorted({as_text(key[0]) for key in seen}))
    for key, stream in seen.items():
        comparison.same(f"frames of {key}", len(stream.positions), sent[as_text(key[0])])
        if stream.asdus == 1:
            # What was left out before the first sample and behind the last one nobody can miss.
            unseen = min(stream.positions) + round(SECONDS * rate) - 1 - max(stream.positions)
            comparison.same(f"lost of {key}",
                            (stream.told()["samplesLost"] + unseen - sent.get("left out", 0)) % rate,
                            0)
    comparison.readings(watch, {name: number for number, name in enumerate(ids)})
    told = {field["value"] for frame in report for field in frame["fields"]
            if field["title"] == "svID"}
    comparison.same("report", sorted(told), sorted({s["svID"] for s in streams["streams"]}))
    if all(stream["restarts"] == 0 for stream in streams["streams"]):
        recorded(comparison, data, seen, rate)
    for each in ("doubled", "out of order", "left out"):
        if sent.get(each, 0) == 0:
            comparison.wrong.append(f"the bus was not disturbed: nothing {each}")
    return comparison.wrong


def main():
    profile, program, bus = sys.argv[1:]
    if os.environ.get("VORNIK_NAMESPACE") != "own":
        print("skipped:", os.environ.get("VORNIK_NAMESPACE", "no network namespace of its own"))
        return SKIPPED
    run(f"ip link add {NEAR} type veth peer name {FAR}")
    run(f"ip link set {NEAR} up")
    run(f"ip link set {FAR} up")
    with tempfile.TemporaryDirectory() as place:
        # Who records the wire may give up the rights of root before it opens its file.
        os.chmod(place, 0o777)
        wire = Wire(profile, program, Path(place))
        sent = play(profile, bus)
        heard = wire.heard()
        again = json.loads(subprocess.run(
            [program, "streams", wire.capture, "--fast", "--json"], stdout=subprocess.PIPE,
            check=True).stdout)
        seen = console_wire.streams_of(wire.capture, RATES.get(profile, 4000))
        wrong = compare(profile, sent, heard, again, seen, wire.data)
    for line in wrong[:40]:
        print(line)
    print(f"{profile}: {len(seen)} streams, {sum(len(s.positions) for s in seen.values())} frames, "
          f"{len(wrong)} differences")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
