#!/usr/bin/env python3
"""Goes with the program for Windows through what its test programs cannot: a whole process, its words, its
standard streams and its keys.

    trial.py <vornik-cli.exe>"""

import os
import pty
import re
import select
import struct
import subprocess
import sys
import tempfile
import time
from pathlib import Path

program = ["wine", os.path.abspath(sys.argv[1])]
FRAMES = 8000
STATION = "VORNIK-SIM-1"


def demand(holds, what):
    if not holds:
        sys.exit(what)


def run(*words, code=0):
    ran = subprocess.run([*program, *words], capture_output=True, text=True, encoding="utf-8")
    demand(ran.returncode == code, f"{words}: {ran.returncode}: {ran.stdout}{ran.stderr}")
    return ran.stdout + ran.stderr


def element(tag, content):
    return bytes([tag, len(content)]) + content


def frame(count):
    asdu = (element(0x80, b"NORTH") + element(0x82, struct.pack(">H", count)) + element(0x83, bytes(4)) +
            element(0x85, b"\2") + element(0x87, bytes(64)))
    pdu = element(0x60, element(0x80, b"\1") + element(0xA2, element(0x30, asdu)))
    head = struct.pack(">HHHH", 0x4000, len(pdu) + 8, 0, 0)
    return bytes.fromhex("010CCD040001 020000000007 88BA") + head + pdu


def write_capture(path, lost):
    with open(path, "wb") as file:
        file.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, 1))
        for place in (place for place in range(FRAMES) if place not in lost):
            seconds, part = divmod(place * 250, 1000000)
            bytes_ = frame(place % 4000)
            file.write(struct.pack("<IIII", 1700000000 + seconds, part, len(bytes_), len(bytes_)) + bytes_)


def reads_a_capture_file_of_any_name(folder):
    path = folder / "Schaltanlage \u00c4 \u5929.pcap"
    write_capture(path, lost={100, 101, 5000})
    row = re.search(r"^1 +(\d+) +\d+ +\d+ +(\d+) ", run("streams", str(path), "--fast"), re.MULTILINE)
    demand(row and row.groups() == (str(FRAMES - 3), "3"), f"a capture file reads {row}")


def pressed_control_c(words, after):
    """What a process at a terminal writes that meets Ctrl+C so many seconds later."""
    child, terminal = pty.fork()
    if child == 0:
        os.execvp(program[0], [*program, *words])
    written = b""
    press = time.monotonic() + after
    end = press + 60
    while time.monotonic() < end:
        readable, _, _ = select.select([terminal], [], [], 0.1)
        if press and time.monotonic() > press:
            os.write(terminal, b"\3")
            press = None
        try:
            written += os.read(terminal, 4096) if readable else b""
        except OSError:
            break
    else:
        os.kill(child, 9)
    return os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), written.decode(errors="replace")


def ends_a_recording_by_a_key(folder):
    folder = folder / "\u00dcbung"
    folder.mkdir()
    code, told = pressed_control_c(["record", "simulated", "--station", STATION, "--folder", str(folder)], 6)
    demand(code == 0 and "The recording ended" in told, f"Ctrl+C: {code}: {told}")
    [record] = folder.glob("SV record *.txt")
    lines = record.read_bytes().split(b"\r\n")
    demand(lines.pop() == b"" and len(lines) >= 4000 and len(lines) % 4000 == 0, f"{len(lines)} lines")
    demand("Count of lost samples            : 0\n" in run("check", str(record)), "samples are lost")
    # The name of what was written comes behind the folder, with the system's own separator or as it was typed.
    written = run("convert", str(record), "--to", "cff").strip()
    demand(written.endswith(record.stem + ".cff") and (folder / (record.stem + ".cff")).exists(), written)


def tells_what_fails(folder):
    demand("There is no adapter eth7" in run("streams", "eth7", code=4), "no word of a missing adapter")
    run("record", "simulated", "--station", STATION, "--folder", str(folder / "none"), code=4)
    run("streams", code=2)


with tempfile.TemporaryDirectory() as scratch:
    for scene in (reads_a_capture_file_of_any_name, ends_a_recording_by_a_key, tells_what_fails):
        scene(Path(scratch))
        print(f"{scene.__name__.replace('_', ' ')}: as it should be")
