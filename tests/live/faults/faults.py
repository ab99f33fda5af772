#!/usr/bin/env python3
"""Does to recordings, of the window's program and of the one without a window at once, what happens to
a computer, and compares what they tell and leave on disk with what was done.

usage: faults.py SCENE PROGRAM CONSOLE BUS CLOCK-LIBRARY DISK-LIBRARY

VORNIK_STOPPED_SECONDS says for how long the scene "stopped" stops them; ten seconds unless told.
"""

import os
import signal
import socket
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent))

import power_cut
import window_faults
from morning_table import UP_TO_END
from morning_told import DROPPED, MISSING, NOT_STORED
from recorders import IDS, Bus, Console, Numbers, Scene, Window, run, wait_for
from soak import FAR, NEAR

SKIPPED = 77
# The bus ends before the recordings do.
BEHIND_BUS = 1.5
HOUR = 3600
STOPPED = float(os.environ.get("VORNIK_STOPPED_SECONDS", "10"))
LONG_FRAME = 8900
# Of the program without a window.
FILE_TROUBLE = 4


class Faults:
    def __init__(self, folder, program, console, bus, clock, disk):
        self.folder, self.program, self.console, self.bus = Path(folder), program, console, bus
        self.clock, self.disk = clock, disk
        self.scene = Scene()
        self.recorders = []
        self.playing = self.other = None

    def begin(self, seconds, forms=("text", "cff"), surroundings=None, keeps_time=False):
        """The window's recording and those without a window, as soon as all of them run. It has
        so many seconds behind that."""
        self.playing = Bus(self.bus, keeps_time)
        consoles = [Console(self.folder / form, self.console, form, surroundings) for form in forms]
        # Its STOP comes by the clock, so it gets what the others may take for their start.
        self.window = Window(self.folder / "window", self.program, seconds + 3, surroundings)
        self.recorders = [self.window, *consoles]
        wait_for("a recording", lambda: all(each.records() for each in self.recorders))
        self.until = time.monotonic() + seconds

    def end(self):
        """The bus ends, and then the recordings; all of them are checked by what was sent."""
        time.sleep(max(0, self.until - BEHIND_BUS - time.monotonic()))
        self.playing.end()
        time.sleep(BEHIND_BUS)
        for each in self.recorders[1:]:
            each.stop()
        for each in self.recorders:
            each.end()
            self.scene.demand(each, "it ended as it should", each.process.returncode == 0,
                              f"exit code {each.process.returncode}")
            if "cff" in each.name:
                self.scene.check_cff(each)
            else:
                self.scene.check_text(each)

    def texts(self):
        return self.recorders[:2]

    def demand_told(self, recorder, *words):
        for each in words:
            self.scene.demand(recorder, f'"{each}" is told', recorder.told(each))

    def demand_events(self, recorder, *events):
        told = [line.event for line in recorder.events()]
        for each in events:
            self.scene.demand(recorder, f'"{each}" stands in the events file', each in told)

    def demand_none(self, recorder, *events):
        told = [f"{line.event} {line.count}" for line in recorder.events() if line.event in events
                and not line.figures.startswith(UP_TO_END)]
        self.scene.demand(recorder, f"none of {events} stands in the events file",
                          not told, "; ".join(told))

    # The scenes.

    def interface(self):
        """Switched off and on, then away to another space of names and back."""
        self.other = subprocess.Popen(["unshare", "--net", "sleep", "3600"])
        self.begin(14, keeps_time=True)
        run(f"ip link set {NEAR} down")
        time.sleep(3.5)
        run(f"ip link set {NEAR} up")
        time.sleep(2)
        run(f"ip link set {NEAR} netns {self.other.pid}")
        time.sleep(3.5)
        run(f"nsenter -t {self.other.pid} -n ip link set {NEAR} netns {os.getpid()}")
        run(f"ip link set {NEAR} up")
        self.end()
        off = "The network interface is switched off. Please switch it on again."
        # One that is back is switched off for a moment, and a look may meet it so.
        self.demand_told(self.window, off, "The network interface is on again.",
                         "The network interface is gone. Please connect it again.")
        # Where nobody may sit, a line that changes is told once a minute.
        self.demand_told(self.recorders[1], off)
        for each in self.texts():
            self.demand_events(each, "interface switched off", "interface gone",
                               "interface is there again", MISSING)
        self.demand_told(self.recorders[2], "were lost; they stand as missing")

    def long_frames(self):
        """Frames of 8900 bytes beside the streams, on an interface that takes them."""
        self.begin(6)
        frame = b"\x01\x0c\xcd\x04\x00\x63" + b"\x02" + b"\0" * 5 + b"\x88\xba" + b"\x40\0"
        with socket.socket(socket.AF_PACKET, socket.SOCK_RAW) as far:
            far.bind((FAR, 0))
            for number in range(400):
                far.send(frame + number.to_bytes(4, "big") + b"\xaa" * LONG_FRAME)
                time.sleep(0.005)
        self.end()
        for each in self.texts():
            self.demand_none(each, MISSING, DROPPED, NOT_STORED)
            self.demand_events(each, "frames too long")

    def clock_set(self):
        """An hour forth, and back again."""
        clock = Numbers(self.folder / "clock")
        self.begin(10, surroundings={"LD_PRELOAD": self.clock, "VORNIK_CLOCK_FILE": str(clock.path)})
        for told, numbers in enumerate(((time.time(), HOUR), (0, 0)), 1):
            clock.set(*numbers)
            wait_for("a step of the clock", lambda told=told: all(
                len(each.steps()) == told for each in self.texts()))
        self.end()
        for each in self.texts():
            steps = [float(figures.split()[1]) for figures in each.steps()]
            self.scene.demand(each, "both steps stand in the events file",
                              [round(step) for step in steps] == [HOUR, -HOUR], str(steps))
            self.demand_none(each, NOT_STORED)

    def stopped(self):
        """The programs stand still for longer than the driver's buffer lasts."""
        self.begin(STOPPED + 6, keeps_time=True)
        for each in self.recorders:
            each.process.send_signal(signal.SIGSTOP)
        time.sleep(STOPPED)
        for each in self.recorders:
            each.process.send_signal(signal.SIGCONT)
        self.end()
        for each in self.texts():
            self.demand_events(each, MISSING, DROPPED)

    def slow_disk(self):
        """A write that takes three seconds, and then three seconds for each way to the disk itself."""
        disk = Numbers(self.folder / "disk")
        self.begin(12, ("text",),
                   {"LD_PRELOAD": self.disk, "VORNIK_DISK_FILE": str(disk.path)})
        disk.set(3, 0)
        time.sleep(1.2)
        disk.set(0, 3)
        self.end()
        for each in self.texts():
            self.demand_none(each, NOT_STORED)

    def unmounted(self):
        """The folder for data is another disk's, which is pulled out."""
        window, console = self.folder / "window/home/StoredData", self.folder / "text/data"
        for place in (window, console):
            place.mkdir(parents=True)
            run(f"mount -t tmpfs tmpfs {place}")
        kept = [os.open(place, os.O_RDONLY) for place in (window, console)]
        self.begin(6, ("text",))
        for place in (window, console):
            run(f"umount -l {place}")
        time.sleep(2.5)
        self.playing.end()
        self.recorders[1].stop()
        for each, place in zip(self.recorders, kept):
            each.end()
            self.demand_told(each, "File not found")
            code = 0 if each is self.window else FILE_TROUBLE
            self.scene.demand(each, "it ended as it should", each.process.returncode == code,
                              f"exit code {each.process.returncode}")
            pulled = [name for name in os.listdir(place) if name.startswith("1_SV record")]
            self.scene.demand(each, "what was stored is on the disk that was pulled out",
                              len(pulled) == 1)

    def power_cut(self):
        power_cut.play(self)

    def display(self):
        self.playing = Bus(self.bus)
        window_faults.display(self)

    def settings(self):
        window_faults.settings(self)

    def twins(self):
        """Two programs of a kind record into one folder, from the same second on."""
        self.playing = Bus(self.bus)
        data = self.folder / "shared"
        data.mkdir()
        forms = ["text", "text", "comtrade", "comtrade", "cff", "cff"]
        # Just behind the turn of a second, so that all of them begin in the same one.
        time.sleep(1.02 - time.time() % 1)
        self.recorders = [Console(self.folder / f"{form}{k}", self.console, form, data=data)
                          for k, form in enumerate(forms)]
        patterns = ["1_*.txt", "2_*.txt", "1_*.dat", "2_*.dat", "1_*.cfg", "2_*.cfg", "1_*.cff",
                    "2_*.cff"]
        wait_for("a file of each", lambda: all(len(list(data.glob(each))) == 2 for each in patterns))
        time.sleep(2)
        for each in self.recorders:
            each.stop()
        self.playing.end()
        for each in self.recorders:
            each.end()
            self.scene.demand(each, "it ended as it should", each.process.returncode == 0)
        for pattern in patterns:
            files = sorted(data.glob(pattern))
            lines = [len(path.read_bytes().splitlines()) for path in files]
            apart = len(files) == 2
            if pattern.endswith((".txt", ".dat")):
                apart = apart and all(count % 4000 == 0 for count in lines)
            self.scene.demand(self.recorders[0], f"there are two files {pattern}", apart, str(lines))

    def clear(self):
        if self.playing is not None:
            self.playing.clear()
        for each in self.recorders:
            each.clear()
        if self.other is not None:
            self.other.kill()


def main():
    name, *programs = sys.argv[1], *map(os.path.abspath, sys.argv[2:])
    if os.environ.get("VORNIK_NAMESPACE") != "own":
        print(os.environ.get("VORNIK_NAMESPACE", "not started through in_namespace.sh"))
        sys.exit(SKIPPED)
    run(f"ip link add {NEAR} mtu 9000 type veth peer name {FAR} mtu 9000")
    for end in (NEAR, FAR):
        run(f"ip link set {end} up")
    with tempfile.TemporaryDirectory() as folder:
        faults = Faults(folder, *programs)
        try:
            getattr(faults, name)()
        finally:
            faults.clear()
    sys.exit(1 if faults.scene.wrong else 0)


if __name__ == "__main__":
    main()
