"""Records a played bus with the window's program and with the program without a window, as a scene
of faults wants it, and reads back what they told and what they left on disk."""

import os
import signal
import struct
import subprocess
import sys
import time
from pathlib import Path
from threading import Thread

sys.path[:0] = [str(Path(__file__).resolve().parent.parent),
                str(Path(__file__).resolve().parent.parent.parent / "console")]

import comtrade_reader
import morning_told
from morning_table import Comparison
from soak import FAR, NEAR, TEXT, environment

IDS = ["BAY-01", "BAY-02"]
PATIENCE = 60
# Of a current, which the wire has in mA.
RAW = 1000


def run(command, **named):
    subprocess.run(command.split(), check=True, **named)


def wait_for(what, holds):
    end = time.monotonic() + PATIENCE
    while not holds():
        if time.monotonic() > end:
            sys.exit(f"{what} has not come")
        time.sleep(0.05)


class Bus:
    """Held up by a busy computer, it goes on with the next sample, or leaves out what it is too late
    for where it keeps the time."""

    def __init__(self, program, keeps_time=False):
        self.process = subprocess.Popen(
            [program, "--interface", FAR, "--profile", "locked", "--senders", str(len(IDS)),
             "--duration", "3600", "--keeps-time", str(int(keeps_time))], stdout=subprocess.PIPE)

    def end(self):
        self.process.send_signal(signal.SIGTERM)
        self.process.communicate()

    def clear(self):
        self.process.kill()


class Numbers:
    """Two numbers in a file that programs have in their memory."""

    def __init__(self, path):
        self.path = path
        path.write_bytes(struct.pack("dd", 0, 0))

    def set(self, *numbers):
        with self.path.open("r+b") as file:
            file.write(struct.pack("dd", *numbers))


class Recorder:
    """A program that records, with the lines that it tells."""

    def __init__(self, name, folder, command, stream, surroundings=None):
        self.name, self.folder = name, Path(folder)
        self.process = subprocess.Popen(
            command, text=True,
            **{"stdout": subprocess.DEVNULL, stream: subprocess.PIPE},
            env={**environment(self.folder), "TZ": "UTC", **(surroundings or {})})
        self.lines = []
        pipe = getattr(self.process, stream)
        self.listener = Thread(target=lambda: self.lines.extend(map(str.rstrip, pipe)))
        self.listener.start()

    def told(self, words):
        return any(words in line for line in self.lines)

    def files(self, pattern):
        return sorted(self.data.glob(pattern))

    def record(self):
        """The path of the recording, without a stream's prefix."""
        first = self.files("1_SV record *")[0]
        return first.with_name(first.name.removeprefix("1_"))

    def events(self):
        return morning_told.read(self.files("Events *.csv")[0])

    def steps(self):
        """Of the clock, in the words of the events file."""
        return [line.figures for line in self.events() if line.event == "clock set"]

    def end(self):
        self.process.wait(PATIENCE)
        self.listener.join()

    def clear(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait()


class Window(Recorder):
    """The program with its window. It has its STOP behind so many seconds."""

    def __init__(self, folder, program, seconds, surroundings=None, form=TEXT, *views):
        folder.mkdir(exist_ok=True)
        self.data = folder / "home" / "StoredData"
        super().__init__("window", folder, [program, NEAR, form, str(seconds), "1", *IDS,
                                            *views], "stdout", surroundings)

    def records(self):
        return all(self.told(f"page stream {stream}: ") for stream in (1, 2))

    def on_disk(self):
        """Rings of each stream that the page tells of."""
        rings = [0, 0]
        for line in self.lines:
            if line.startswith("page stream "):
                words = line.split()
                rings[int(words[2][0]) - 1] = int(words[3])
        return rings


class Console(Recorder):
    def __init__(self, folder, program, form="text", surroundings=None, data=None):
        folder.mkdir(exist_ok=True)
        self.data = data or folder / "data"
        self.data.mkdir(exist_ok=True)
        self.form = form
        stations = [word for name in IDS for word in ("--station", name)]
        super().__init__(f"cli {form}", folder, [program, "record", NEAR, "--folder", self.data,
                                                 "--format", form, *stations], "stderr", surroundings)

    def records(self):
        pattern = "*.cff" if self.form == "cff" else "2_SV record *"
        return len(self.files(pattern)) >= (2 if self.form == "cff" else 1)

    def stop(self):
        self.process.send_signal(signal.SIGINT)


class Measuring(Recorder):
    """Values, block by block, without a window."""

    def __init__(self, folder, program):
        folder.mkdir()
        super().__init__("cli values", folder,
                         [program, "values", NEAR, "--station", IDS[0]], "stderr")

    def stop(self):
        self.process.send_signal(signal.SIGINT)


class LineByLine(Comparison):
    """Without the totals: frames that the bus left out behind the last ring are in them alone."""

    def check_total(self, stream, there, lost):
        [total] = self.of("total", stream)
        self.demand(total.count == there.rows and total.figure("rings not stored") == lost,
                    f"stream {stream}: {there.rows} lines in the file, {lost} rings lost")


class Scene:
    """What is demanded of the recorders, one line each."""

    def __init__(self):
        self.wrong = 0

    def demand(self, recorder, what, holds, words=""):
        self.wrong += not holds
        print(f"{'right' if holds else 'WRONG'}  {recorder.name}: {what}  {words}")
        if not holds:
            print("       told:", *recorder.lines[-12:], sep="\n         ")

    def check_text(self, recorder):
        """Each line and each number of what is missing, by the frames that were stored."""
        comparison = LineByLine([], {}, recorder.record())
        for stream in (1, 2):
            comparison.check_stream(stream)
        # A bus that was held up and leaves samples out looks like a sender that began anew.
        anew = bool(comparison.of("counter began anew"))
        self.demand(recorder, "the events file tells all that is missing",
                    anew or not comparison.wrong, "; ".join(comparison.wrong))

    def check_cff(self, recorder):
        """Each sample stands where its second has it."""
        for path in recorder.files("*.cff"):
            recording = comtrade_reader.read_single(path)
            raw = [sample.stored[morning_told.SECONDS - 2] for sample in recording.samples]
            seconds = [None if number is None else round(number / RAW) for number in raw]
            begin = next(k for k, second in enumerate(seconds[1:], 1)
                         if None not in (second, seconds[k - 1]) and second != seconds[k - 1])
            out = sum(second is not None
                      and second != seconds[begin] + (k - begin) // morning_told.RATE
                      for k, second in enumerate(seconds))
            missing = sum(second is None for second in seconds)
            self.demand(recorder, f"{path.name} is whole", out == 0,
                        f"{len(seconds)} samples, {missing} missing, {out} in a wrong place")
