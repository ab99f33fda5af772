#!/usr/bin/env python3
"""Lays a virtual wire, publishes two streams, has the program visit its views, record, and visit them
again. Compares what is on disk with what was sent, and what the program holds of the computer at the
end with what it held after the first minute. Started by ./soak.sh within a network namespace."""

import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

import morning_told
import recorded

HERE = Path(__file__).resolve().parent
NEAR, FAR = "vornik-near", "vornik-far"
FIRST, SECOND = "MU-A", "MU-LONGER-NAME"
# The channel that carries the number of the frame.
COUNT = 3
STREAMS = [f"id={SECOND},tag=4:7,currents=150:151:152:1,count={COUNT}", f"id={FIRST},count={COUNT}"]
SCREEN = {"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1080,
                       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
# All views, one behind the other, take a good minute.
VIEW_SECONDS = 10
VIEWS = 7
# What starts, tabs and a slow computer may take beside that.
SPARE_SECONDS = 120
TEXT = "0"
MEMORY_SECONDS = 3
MEMORY_RECORDINGS = 10
FIRST_MINUTE = 60
RING = recorded.RING
# What the allocator may keep more than before without anything growing. A byte lost a frame would be
# nine times as much within an hour, and what a view leaves shows at once.
SPARE_KB = 3072


def environment(folder):
    screen = Path(folder) / "screen.json"
    screen.write_text(json.dumps(SCREEN), encoding="ascii")
    home = Path(folder) / "home"
    home.mkdir(exist_ok=True)
    return {**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": str(home / "config"),
            "XDG_DATA_HOME": str(home / "data"), "LC_ALL": "C.UTF-8",
            "QT_QPA_PLATFORM": f"offscreen:configfile={screen}"}


def publish(seconds):
    command = [sys.executable, HERE / "publisher.py", "--interface", FAR, "--duration", str(seconds)]
    for stream in STREAMS:
        command += ["--stream", stream]
    return subprocess.Popen(command, stdout=subprocess.PIPE, text=True)


def record(program, folder, seconds, recordings, ids, *views):
    """The lines that the program prints, by their first word."""
    done = subprocess.run([program, NEAR, TEXT, str(seconds), str(recordings), *ids, *views],
                          env=environment(folder), stdout=subprocess.PIPE, text=True, check=True)
    lines = {}
    for line in done.stdout.splitlines():
        word, _, rest = line.partition(" ")
        lines.setdefault(word, []).append(rest)
    return lines


def number(line):
    return float(line.rsplit(" ", 1)[1])


def counts(path, prefix):
    """What became of the frames that came, by the numbers that they carry."""
    first = last = None
    stored = 0
    with open(path.with_name(prefix + path.name), encoding="ascii") as lines:
        for line in lines:
            stored += 1
            first = first or line
            last = line
    begin, end = (recorded.Recording.count_of(line.split(";")[2 + COUNT]) for line in (first, last))
    return stored, end - begin + 1 - stored


def rings_told(told, stream):
    """The count that the page had at the end of the longest recording."""
    return max(int(line.split()[2].replace(",", "")) for line in told["page"]
               if line.startswith(f"stream {stream}: "))


class Verdict:
    """One line a demand."""

    def __init__(self):
        self.right = True

    def demand(self, what, holds, words):
        self.right = self.right and holds
        print(f"{'yes' if holds else 'NO':4}{what}: {words}")


def judge_samples(verdict, told, duration):
    record = Path(told["file"][0])
    for name, prefix in ((FIRST, "1_"), (SECOND, "2_")):
        stored, lost = counts(record, prefix)
        told_rings = rings_told(told, prefix[0])
        verdict.demand(f"nothing of {name} lost", lost == 0 and stored == told_rings * RING,
                       f"{stored} stored, {lost} lost, {told_rings} rings told as on disk")
    arguments = ["--later", "--record", str(record), "--first", FIRST, "--second", SECOND, "--duration",
                 str(duration)]
    for stream in STREAMS:
        arguments += ["--stream", stream]
    result = recorded.check(recorded.arguments_of(arguments))
    verdict.demand("each line as it was sent", result.startswith("right"), result)
    # What the system dropped was lost to a busy computer, and is no fault of the recording.
    events = morning_told.read(record.with_name(f"Events {record.stem}.csv"))
    for event in events:
        if event.event in (morning_told.MISSING, morning_told.DROPPED, morning_told.NOT_STORED):
            print(f"    told in the events file: stream {event.stream}, line {event.line}: "
                  f"{event.event}, {event.count}, {event.figures}")


def judge_resources(verdict, told):
    """Like is compared with like: a recording with itself after its first minute, and the views with
    themselves, since who records holds rings and who draws holds pictures."""
    held = {}
    for line in told["resources"]:
        when, *numbers = line.split()
        held.setdefault(when, []).append([int(number) for number in numbers])
    minute = FIRST_MINUTE // VIEW_SECONDS
    # A file that is just written is one handle more for a moment.
    first, last = ([pick(column) for column in zip(*part)]
                   for pick, part in ((max, held["recording"][:minute]),
                                      (min, held["recording"][-minute:])))
    for when, first, last in (("recording", first, last),
                              ("on the views", held["before"][-1], held["behind"][-1])):
        for what, before, behind, spare in zip(("kB resident", "handles", "threads"), first, last,
                                               (SPARE_KB, 0, 0)):
            verdict.demand(f"{what}, {when}", behind <= before + spare,
                           f"{before} after the first minute, {behind} at the end")


def soak(verdict, program, folder, seconds):
    duration = seconds + 2 * VIEWS * VIEW_SECONDS + SPARE_SECONDS
    with publish(duration) as publisher:
        told = record(program, folder, seconds, 1, [FIRST, SECOND], str(VIEW_SECONDS))
        if publisher.poll() is not None:
            sys.exit("the program was held up, and the streams ended before it did")
        publisher.terminate()
    judge_samples(verdict, told, duration)
    judge_resources(verdict, told)
    verdict.demand("no box", "box" not in told, "; ".join(told.get("box", [])) or "none came")
    print(f"    processor: {number(told['took'][0]):.1f} % of a core")
    for waited in told.get("first", []):
        print("    from RUN to the first number: {}, {} ms".format(*waited.split()))


def memory(verdict, program, folder):
    """What ten recordings of one stream, with their logs and quick views, leave in memory."""
    with publish(SPARE_SECONDS + MEMORY_SECONDS * MEMORY_RECORDINGS) as publisher:
        told = record(program, folder, MEMORY_SECONDS, MEMORY_RECORDINGS, [FIRST])
        publisher.terminate()
    behind = [round(number(line)) for line in told["behind"]]
    verdict.demand("kB resident, ten recordings", behind[-1] <= behind[0] + SPARE_KB,
                   f"{behind[0]} behind the first, {behind[-1]} behind the last")


def main():
    minutes, program = float(sys.argv[1]), os.path.abspath(sys.argv[2])
    if os.environ.get("VORNIK_NAMESPACE") != "own":
        sys.exit(os.environ.get("VORNIK_NAMESPACE", "not started through in_namespace.sh"))
    for command in (f"ip link add {NEAR} type veth peer name {FAR}", f"ip link set {NEAR} up",
                    f"ip link set {FAR} up"):
        subprocess.run(command.split(), check=True)
    with tempfile.TemporaryDirectory() as folder:
        verdict = Verdict()
        soak(verdict, program, folder, round(minutes * 60))
        memory(verdict, program, folder)
    sys.exit(0 if verdict.right else 1)


if __name__ == "__main__":
    main()
