"""What becomes of the program where its results cannot be written."""
import subprocess
import sys
import tempfile
import time
from pathlib import Path

program = sys.argv[1]
STATION = "VORNIK-SIM-1"


def demand(holds, what):
    if not holds:
        sys.exit(what)


def ends_on_a_full_disk():
    with open("/dev/full", "w") as full:
        ended = subprocess.run([program, "streams", "simulated", "--seconds", "1"], stdout=full,
                               stderr=subprocess.PIPE, text=True)
    demand(ended.returncode == 4, f"exit code {ended.returncode} on a full disk")
    demand(ended.stderr == "vornik-cli: the results could not be written.\n", ended.stderr)


def ends_behind_a_reader_that_went(*words):
    begun = time.monotonic()
    running = subprocess.Popen([program, *words, "--seconds", "60"], stdout=subprocess.PIPE,
                               stderr=subprocess.PIPE, text=True)
    running.stdout.close()
    told = running.stderr.read()
    code = running.wait()
    demand(code == 4, f"{words}: exit code {code}")
    demand(told == "vornik-cli: the results could not be written.\n", told)
    demand(time.monotonic() - begun < 20, f"{words}: it went on")


def records_on_behind_one():
    with tempfile.TemporaryDirectory() as folder:
        running = subprocess.Popen([program, "record", "simulated", "--station", STATION, "--folder", folder,
                                    "--seconds", "5.5", "--every", "2s"],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        running.stdout.close()
        running.stderr.read()
        code = running.wait()
        recorded = [each for each in Path(folder).iterdir() if each.name.startswith("SV record")]
        demand(len(recorded) >= 2, f"{len(recorded)} files: it did not go on")
        demand(code == 4, f"exit code {code} behind a recording")


ends_on_a_full_disk()
ends_behind_a_reader_that_went("watch", "simulated")
ends_behind_a_reader_that_went("report", "simulated")
ends_behind_a_reader_that_went("values", "simulated", "--station", STATION)
records_on_behind_one()
