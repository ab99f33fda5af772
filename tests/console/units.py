#!/usr/bin/env python3
"""Has systemd-analyze judge the units: no word of complaint, and an exposure below 2 of 10.

    units.py ROOT PROGRAM

Ends with 77, which stands for skipped, where systemd-analyze is not installed.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import program_help
import unit_files

ROOT, PROGRAM = Path(sys.argv[1]).resolve(), sys.argv[2]
# In tenths, as systemd-analyze has it.
MOST_EXPOSED = 19
# From this setting on both units say the same.
FIRST_RIGHT = ("DynamicUser", "yes")
faults = []


def analyze(*words, **environment):
    run = subprocess.run(["systemd-analyze", *words], capture_output=True, text=True, timeout=120,
                         env={**os.environ, **environment})
    return run.returncode, run.stdout + run.stderr


def check_verdicts(units, manuals):
    code, said = analyze("verify", *units, MANPATH=str(manuals))
    if code or said:
        faults.append(f"verify: {said}")
    for unit in units:
        code, said = analyze("security", "--no-pager", "--offline=true", f"--threshold={MOST_EXPOSED}", unit)
        level = re.search(r"Overall exposure level for \S+: ([\d.]+)", said)
        print(f"{unit.name}: exposure {level.group(1) if level else 'unknown'}")
        if code or not level:
            faults.append(said)


def check_rights(units):
    rights = [settings[settings.index(FIRST_RIGHT):] for settings in map(unit_files.settings, units)]
    if rights[0] != rights[1]:
        faults.append(f"the rights differ: {set(rights[0]) ^ set(rights[1])}")


def check_command(unit):
    """The options that a unit starts the program with are there."""
    words = dict(unit_files.settings(unit))["ExecStart"].split()
    if words[1] not in program_help.commands(PROGRAM):
        faults.append(f"{unit.name}: there is no command {words[1]}")
        return
    strange = {word for word in words if word.startswith("--")} - set(program_help.options(PROGRAM, words[1]))
    if strange:
        faults.append(f"{unit.name}: there is no {sorted(strange)}")


if not shutil.which("systemd-analyze"):
    print("systemd-analyze is not installed")
    sys.exit(77)
with tempfile.TemporaryDirectory() as folder:
    manual = Path(folder) / "man/man1/vornik-cli.1"
    manual.parent.mkdir(parents=True)
    shutil.copy(ROOT / "packaging/man/vornik-cli.1.in", manual)
    units = unit_files.copied(ROOT, folder, PROGRAM)
    check_verdicts(units, Path(folder) / "man")
    check_rights(units)
    for unit in units:
        check_command(unit)
print("\n".join(faults))
sys.exit(1 if faults else 0)
