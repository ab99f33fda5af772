#!/usr/bin/env python3
"""Plays the installation of the package that lends the right to capture, on a played system.

    configured.py POSTINST
"""
import subprocess
import sys
import tempfile
from pathlib import Path

SCRIPT = sys.argv[1]
LAUNCHER = "/usr/libexec/vornik/vornik-capture"
GIVEN = [f"chown root:vornik {LAUNCHER}", f"chmod 0750 {LAUNCHER}"]
RIGHT = [f"setcap cap_net_raw+ep {LAUNCHER}"]
ASKED = [f"dpkg-statoverride --list {LAUNCHER}"]
faults = []


def played(stage, **codes):
    """Exit code, notes, and what the script called, where each command ends with its code."""
    with tempfile.TemporaryDirectory() as folder:
        calls = Path(folder) / "calls"
        for command, code in {"chown": 0, "chmod": 0, "setcap": 0, "dpkg-statoverride": 1, **codes}.items():
            program = Path(folder) / command
            program.write_text(f'#!/bin/sh\necho "{command} $*" >>{calls}\nexit {code}\n')
            program.chmod(0o755)
        run = subprocess.run(["/bin/sh", SCRIPT, stage], env={"PATH": folder}, capture_output=True, text=True)
        return run.returncode, run.stderr, calls.read_text().splitlines() if calls.exists() else []


def scene(name, found, wanted):
    if found != wanted:
        faults.append(f"{name}: {found} instead of {wanted}")


code, notes, calls = played("configure")
scene("the group may start the launcher, and the capability comes last", (code, calls), (0, ASKED + GIVEN + RIGHT))
scene("nothing is told where all went well", notes, "")

code, _, calls = played("configure", **{"dpkg-statoverride": 0})
scene("what the administrator laid down stays", (code, calls), (0, ASKED + RIGHT))

code, notes, calls = played("configure", setcap=1)
scene("a file system without capabilities ends no installation", code, 0)
scene("and who installs is told what that means", "Only root captures" in notes, True)

code, _, calls = played("configure", chown=1)
scene("a launcher that cannot be given to the group gets no capability", (code != 0, RIGHT[0] in calls), (True, False))

scene("a removal that is taken back changes nothing", played("abort-remove"), (0, "", []))

print("\n".join(faults))
sys.exit(1 if faults else 0)
