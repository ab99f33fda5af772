#!/usr/bin/env python3
"""Runs the units under a systemd of their own, in a container with nothing of the computer but /usr and with a
virtual wire, on which a bus is played: they must do with the rights that they have, and have no more.

    units_trial.py ROOT PROGRAM

Ends with 77, which stands for skipped, where there is no right to make a container.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import metrics_grammar
import unit_files

ROOT, PROGRAM = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
HERE = Path(__file__).resolve().parent
TIME = 120
NET_RAW = 1 << 13
TRIAL = """[Unit]
Wants=basic.target
After=basic.target
[Service]
Type=oneshot
ExecStart=/bin/sh /trial/units_trial.sh
ExecStopPost=/bin/systemctl exit --force
StandardOutput=file:/found/output
StandardError=file:/found/errors
"""
TARGET = "[Unit]\nWants=trial.service\nAfter=trial.service\n"
# A program that was built to look for its leaks would have itself traced for that.
SANITIZED = "[Service]\nEnvironment=ASAN_OPTIONS=detect_leaks=0\n"
faults = []


def expect(right, words):
    if not right:
        faults.append(words)


def container(*options):
    """A command that starts one; its root is laid anew each time, and goes with it."""
    return ["systemd-nspawn", "--quiet", "--directory=/", "--volatile=yes", "--private-network",
            "--register=no", "--keep-unit", "--kill-signal=SIGRTMIN+4", *options]


def lay_out(folder):
    """The files that the container sees below /trial, its units and its settings."""
    for name in ["units", "settings", "found"]:
        (folder / name).mkdir()
    unit_files.copied(ROOT, folder / "units", "/trial/vornik-cli")
    (folder / "units/trial.service").write_text(TRIAL)
    (folder / "units/trial.target").write_text(TARGET)
    for unit in unit_files.UNITS:
        drop_in = folder / "units" / f"{unit}.d"
        drop_in.mkdir()
        (drop_in / "sanitized.conf").write_text(SANITIZED)
    example = (ROOT / "packaging/systemd/vornik-record.conf.example").read_text()
    (folder / "settings/record-bus.conf").write_text(re.sub("^STATION=.*$", "STATION=FIRST", example, flags=re.M))
    (folder / "settings/record-wrong.conf").write_text("STATION=FIRST\nFORMAT=paper\n")
    for file in [PROGRAM, HERE / "units_trial.sh", ROOT / "tests/live/publisher.py"]:
        shutil.copy(file, folder)


def run(folder):
    # The console is left to the end; where it fails, it tells why.
    done = subprocess.run(
        container(f"--bind-ro={folder}:/trial", f"--bind-ro={folder}/units:/etc/systemd/system",
                  f"--bind-ro={folder}/settings:/etc/vornik", f"--bind={folder}/found:/found",
                  "--boot", "systemd.firstboot=off", "systemd.unit=trial.target"),
        stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=TIME, errors="replace")
    errors = folder / "found/errors"
    said = errors.read_text() if errors.exists() else done.stdout + done.stderr
    expect(not said, f"the script in the container: {said}")


def check_rights(found):
    for name in ["watch", "record"]:
        status = dict(line.split(":", 1) for line in (found / f"{name}.status").read_text().splitlines())
        # In reserve, once the interface is open, and for the program alone.
        for kind, right in {"CapPrm": NET_RAW, "CapEff": 0, "CapBnd": NET_RAW, "CapInh": 0, "CapAmb": 0}.items():
            expect(int(status[kind], 16) == right, f"{name}: {kind} is {status[kind]}")
        expect(status["NoNewPrivs"].strip() == "1", f"{name} may gain rights")
        expect(status["Seccomp"].strip() == "2", f"{name} may make any call")
        expect("0" not in status["Uid"].split(), f"{name} is root")
    # One for each of the two services.
    expect("promiscuity 2" in (found / "link").read_text(), "the wire is not heard in promiscuous mode")


def check_watch(found):
    metrics = metrics_grammar.read(found / "vornik.prom")
    faults.extend(metrics.faults)
    up = metrics.families["vornik_stream_up"].series if "vornik_stream_up" in metrics.families else {}
    seen = {dict(series)["svID"]: value for series, value in up.items()}
    expect(seen == {"FIRST": 1, "SECOND": 1}, f"the watch sees {seen}")


def check_record(found):
    kept = {file.name: file for file in (found / "recordings").iterdir()}
    samples = [file for name, file in kept.items() if name.startswith("SV record") and name.endswith(".txt")]
    logs = [file for name, file in kept.items() if name.startswith("Errorlog")]
    expect(len(samples) == 1, f"the recordings are {sorted(kept)}")
    expect(len(logs) == 1 and logs[0].stat().st_size > 0, "the stop has left no log")
    for file in samples:
        lines = file.read_bytes().splitlines()
        expect(len(lines) >= 4000 and len(lines) % 4000 == 0, f"{file.name} has {len(lines)} lines")


def check_ends(found):
    for name in ["watch@bus", "record@bus"]:
        journal = (found / f"{name}.journal").read_text()
        expect("Deactivated successfully" in journal, f"{name}: {journal}")
    wrong = (found / "record@wrong.journal").read_text()
    expect("status=2/INVALIDARGUMENT" in wrong, f"a wrong word: {wrong}")
    expect("Scheduled restart" not in wrong, "a wrong word is tried again and again")


def may_contain():
    if os.geteuid() != 0 or not shutil.which("systemd-nspawn"):
        return False
    return subprocess.run(container("true"), capture_output=True, timeout=TIME).returncode == 0


if not may_contain():
    print("no right to make a container, or systemd-nspawn is not installed")
    sys.exit(77)
with tempfile.TemporaryDirectory() as name:
    folder = Path(name)
    folder.chmod(0o755)
    lay_out(folder)
    run(folder)
    try:
        for check in [check_rights, check_watch, check_record, check_ends]:
            check(folder / "found")
    except (FileNotFoundError, KeyError) as error:
        faults.append(f"{error!r} is missing")
    if faults:
        faults.extend(journal.read_text() for journal in (folder / "found").glob("*.journal"))
print("\n".join(faults))
sys.exit(1 if faults else 0)
