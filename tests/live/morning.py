#!/usr/bin/env python3
"""Records two streams of a virtual wire with the whole program, and does to it what a night may do:
doubled and swapped frames, a folder and an interface that go away and come back, a clock that is
set, a program that is stopped. Then it compares the events file, line by line, with what was done
and with the numbers that the recorded frames carry.

usage: morning.py short|night PROGRAM BUS CLOCK-LIBRARY
"""

import json
import os
import re
import signal
import struct
import subprocess
import sys
import tempfile
import time
from pathlib import Path
from threading import Thread

import morning_table
from morning_table import Act
from soak import FAR, NEAR, TEXT, environment

IDS = ["BAY-01", "BAY-02"]
SKIPPED = 77
HOUR_BACK = -3600
# The clock is set so much later than it is asked for, so that everybody knows before.
AHEAD = 0.1
# A busy program may be behind. These wait, at most so long, for so many rings of each stream on disk
# behind what was done before, so that this is among them.
SETTLED_BEFORE = ["folder away", "interface away"]
SETTLES = 6
SETTLED_BY = 2
# The program's start, and its first ring.
STARTS = 1.5
# From the end of the bus to STOP.
BEHIND_BUS = 2.5

# When something is done, in seconds behind the first ring, and for how long. The program looks at
# its interface where nothing has come for two seconds, and the driver keeps the frames of four.
PLANS = {
    "short": [Act("frames doubled", 0.3, 0.5), Act("frames swapped", 1.3, 0.7),
              Act("folder away", 2, 2), Act("interface away", 6, 4), Act("clock set", 13.5),
              Act("program stopped", 14.5, 6.5), Act("bus ended", 23)],
    "night": [Act("frames doubled", 60, 3), Act("frames swapped", 120, 3),
              Act("folder away", 180, 3), Act("interface away", 260, 5), Act("clock set", 350),
              Act("program stopped", 440, 12), Act("bus ended", 597)],
}


def run(command):
    subprocess.run(command.split(), check=True)


def arrived():
    """Frames that came to the near end of the wire."""
    for line in Path("/proc/self/net/dev").read_text(encoding="ascii").splitlines():
        name, _, counts = line.partition(":")
        if name.strip() == NEAR:
            return int(counts.split()[1])
    return 0


class Night:
    def __init__(self, folder, bus):
        self.folder = Path(folder)
        self.storage = self.folder / "home" / "StoredData"
        self.clock = self.folder / "clock"
        self.clock.write_bytes(struct.pack("dd", 0, 0))
        self.set_by = 0
        self.bus = subprocess.Popen(
            [bus, "--interface", FAR, "--profile", "locked", "--senders", str(len(IDS)),
             "--duration", "3600", "--keeps-time", "1"], stdout=subprocess.PIPE, text=True)
        # Whoever has a space of names of its own, into which the interface goes.
        self.other = subprocess.Popen(["unshare", "--net", "sleep", "3600"])
        self.program = None
        self.said = []

    def start(self, program, library, seconds):
        surroundings = {**environment(self.folder), "TZ": "UTC", "LD_PRELOAD": library,
                        "VORNIK_CLOCK_FILE": str(self.clock)}
        self.program = subprocess.Popen([program, NEAR, TEXT, str(seconds), "1", *IDS],
                                        env=surroundings, stdout=subprocess.PIPE, text=True)
        self.listener = Thread(target=lambda: self.said.extend(self.program.stdout))
        for line in self.program.stdout:
            if line.startswith("page stream"):
                self.began = time.monotonic()
                # It says so with each ring, and would stand still if nobody listened.
                self.listener.start()
                return
        sys.exit("nothing was recorded")

    def wait_until(self, seconds):
        time.sleep(max(0, self.began + seconds - time.monotonic()))

    def now(self):
        """As the program's clock shows it."""
        return time.time() + self.set_by

    def do(self, act):
        doing = {"frames doubled": lambda: self.disturb(act, signal.SIGUSR1),
                 "frames swapped": lambda: self.disturb(act, signal.SIGUSR2),
                 "folder away": lambda: self.take_folder(act),
                 "interface away": lambda: self.take_interface(act),
                 "clock set": lambda: self.set_clock(act),
                 "program stopped": lambda: self.stop(act),
                 "bus ended": self.end_bus}[act.what]
        self.wait_until(act.at)
        if act.what in SETTLED_BEFORE:
            self.settle()
        if self.program.poll() is not None:
            sys.exit(f"the program ended with {self.program.returncode}")
        act.begun = self.now()
        doing()
        act.ended = self.now()

    def stored(self, stream):
        """How many rings went to the disk: the page counts anew in each file."""
        told = [re.match(rf"page stream {stream}: ([\d,]+) whole ring", line) for line in self.said]
        counts = [count[1] for count in told if count]
        return sum(before != after for before, after in zip([None, *counts], counts))

    def settle(self):
        streams = range(1, len(IDS) + 1)
        due = [self.stored(stream) + SETTLED_BY for stream in streams]
        end = time.monotonic() + SETTLES
        while any(self.stored(stream) < rings for stream, rings in zip(streams, due)):
            if time.monotonic() > end:
                return
            time.sleep(0.02)

    def disturb(self, act, sign):
        self.bus.send_signal(sign)
        time.sleep(act.length)
        self.bus.send_signal(sign)

    def take_folder(self, act):
        away = self.storage.with_name("Away")
        self.storage.rename(away)
        time.sleep(act.length)
        away.rename(self.storage)

    def take_interface(self, act):
        """To another space of names, where the program does not see it, and back."""
        run(f"ip link set {NEAR} netns {self.other.pid}")
        time.sleep(act.length)
        run(f"nsenter -t {self.other.pid} -n ip link set {NEAR} netns {os.getpid()}")
        run(f"ip link set {NEAR} up")

    def set_clock(self, act):
        moment = time.time() + AHEAD
        # The program has the file in its memory, so it must not become shorter for a moment.
        with self.clock.open("r+b") as clock:
            clock.write(struct.pack("dd", moment, HOUR_BACK))
        time.sleep(AHEAD)
        self.set_by = HOUR_BACK
        act.begun = self.now()

    def stop(self, act):
        before = arrived()
        self.program.send_signal(signal.SIGSTOP)
        time.sleep(act.length)
        act.sent = arrived() - before
        self.program.send_signal(signal.SIGCONT)

    def end_bus(self):
        self.bus.send_signal(signal.SIGTERM)
        self.sent = json.loads(self.bus.communicate()[0])

    def end(self):
        """Where the recording is."""
        self.program.wait()
        self.listener.join()
        lines = [line.rstrip() for line in self.said]
        for line in lines:
            if line.startswith("box "):
                print(line)
        files = [line.removeprefix("file ") for line in lines if line.startswith("file ")]
        if self.program.returncode != 0 or not files:
            sys.exit(f"the program ended with {self.program.returncode}")
        return Path(files[0])

    def clear(self):
        for process in (self.program, self.bus, self.other):
            if process is not None and process.poll() is None:
                process.kill()
                process.wait()


def main():
    plan, program, bus, library = sys.argv[1], *map(os.path.abspath, sys.argv[2:5])
    if os.environ.get("VORNIK_NAMESPACE") != "own":
        print(os.environ.get("VORNIK_NAMESPACE", "not started through in_namespace.sh"))
        sys.exit(SKIPPED)
    for command in (f"ip link add {NEAR} type veth peer name {FAR}", f"ip link set {NEAR} up",
                    f"ip link set {FAR} up"):
        run(command)
    acts = PLANS[plan]
    with tempfile.TemporaryDirectory() as folder:
        night = Night(folder, bus)
        try:
            night.start(program, library, acts[-1].at + STARTS + BEHIND_BUS)
            for act in acts:
                night.do(act)
            record = night.end()
        finally:
            night.clear()
        right = morning_table.compare(acts, HOUR_BACK, night.sent, record)
    sys.exit(0 if right else 1)


if __name__ == "__main__":
    main()
