#!/usr/bin/env python3
"""Lays a virtual wire, publishes two streams, has the program record them, and compares what is on
disk with what was sent. Started by ./soak.sh within a network namespace."""

import json
import os
import subprocess
import sys
import tempfile
from pathlib import Path

import recorded

HERE = Path(__file__).resolve().parent
NEAR, FAR = "vornik-near", "vornik-far"
FIRST, SECOND = "MU-A", "MU-LONGER-NAME"
# The channel that carries the number of the frame.
COUNT = 3
STREAMS = [f"id={SECOND},tag=4:7,currents=150:151:152:1,count={COUNT}", f"id={FIRST},count={COUNT}"]
SCREEN = {"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1080,
                       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]}
# The program starts behind the publisher, and stops behind it.
EXTRA_SECONDS = 2
TEXT = "0"
MEMORY_SECONDS = 3
MEMORY_RECORDINGS = 10


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


def record(program, folder, seconds, recordings, ids):
    """The lines that the program prints, by their first word."""
    done = subprocess.run([program, NEAR, TEXT, str(seconds), str(recordings), *ids],
                          env=environment(folder), stdout=subprocess.PIPE, text=True, check=True)
    lines = {}
    for line in done.stdout.splitlines():
        word, _, rest = line.partition(" ")
        lines.setdefault(word, []).append(rest)
    return lines


def number(line):
    return float(line.rsplit(" ", 1)[1])


def counts(path, prefix, sent):
    """What became of the frames that were sent, by the numbers that they carry."""
    first = last = None
    stored = 0
    with open(path.with_name(prefix + path.name), encoding="ascii") as lines:
        for line in lines:
            stored += 1
            first = first or line
            last = line
    begin, end = (recorded.Recording.count_of(line.split(";")[2 + COUNT]) for line in (first, last))
    return (f"{sent} sent, {begin} of them before the recording and {sent - 1 - end} behind its last "
            f"whole ring; {stored} stored, {end - begin + 1 - stored} lost")


def soak(program, folder, seconds):
    with publish(seconds) as publisher:
        told = record(program, folder, seconds + EXTRA_SECONDS, 1, [FIRST, SECOND])
        publisher.terminate() if publisher.poll() is None else None
        sent = publisher.stdout.read()
    if not sent:
        sys.exit("the publisher was held up and had not finished at the stop")
    for name, prefix in ((FIRST, "1_"), (SECOND, "2_")):
        print(f"{name:15}", counts(Path(told["file"][0]), prefix, json.loads(sent)[name]))
    arguments = ["--record", told["file"][0], "--first", FIRST, "--second", SECOND, "--to-the-end",
                 "--duration", str(seconds)]
    for stream in STREAMS:
        arguments += ["--stream", stream]
    result = recorded.check(recorded.arguments_of(arguments))
    print("line by line:  ", result)
    for words in told.get("box", []):
        print("box:           ", words)
    print(f"processor:      {number(told['took'][0]):.1f} % of a core")
    print(f"resident memory: {number(told['begins'][0]) / 1024:.1f} MiB at the beginning, "
          f"{number(told['ends'][0]) / 1024:.1f} MiB at the end, "
          f"{number(told['behind'][0]) / 1024:.1f} MiB behind the stop")
    return result.startswith("right")


def memory(program, folder):
    """What ten recordings of one stream, with their logs and quick views, leave in memory."""
    with publish((MEMORY_SECONDS + 2) * MEMORY_RECORDINGS + EXTRA_SECONDS) as publisher:
        told = record(program, folder, MEMORY_SECONDS, MEMORY_RECORDINGS, [FIRST])
        publisher.terminate()
    behind = [number(line) / 1024 for line in told["behind"]]
    print(f"ten recordings:  {behind[0]:.1f} MiB behind the first, {behind[-1]:.1f} MiB behind the "
          "last")


def main():
    minutes, program = float(sys.argv[1]), os.path.abspath(sys.argv[2])
    if os.environ.get("VORNIK_NAMESPACE") != "own":
        sys.exit(os.environ.get("VORNIK_NAMESPACE", "not started through in_namespace.sh"))
    for command in (f"ip link add {NEAR} type veth peer name {FAR}", f"ip link set {NEAR} up",
                    f"ip link set {FAR} up"):
        subprocess.run(command.split(), check=True)
    with tempfile.TemporaryDirectory() as folder:
        right = soak(program, folder, round(minutes * 60))
        memory(program, folder)
    sys.exit(0 if right else 1)


if __name__ == "__main__":
    main()
