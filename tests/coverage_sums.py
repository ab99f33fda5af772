#!/usr/bin/env python3
"""Prints, from what gcovr wrote, the lines and branches of each folder of src/ that tests went through.

    coverage_sums.py FILE [--lines]     with the lines that none went through, each with its text
"""
import json
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent


def share(hit, of):
    return f"{hit:6}/{of:<6} {100 * hit / of if of else 100:6.2f} %"


def main():
    folders = {}
    missed = []
    for file in json.loads(Path(sys.argv[1]).read_text())["files"]:
        sums = folders.setdefault(file["file"].split("/")[1], [0, 0, 0, 0])
        text = (ROOT / file["file"]).read_text().split("\n")
        for line in file["lines"]:
            if line["gcovr/noncode"]:
                continue
            taken = [branch["count"] > 0 for branch in line["branches"]]
            sums[0] += line["count"] > 0
            sums[1] += 1
            sums[2] += sum(taken)
            sums[3] += len(taken)
            if line["count"] == 0:
                missed.append(f"{file['file']}:{line['line_number']}: {text[line['line_number'] - 1].strip()}")
    print(f"{'folder':10} {'lines':>22} {'branches':>22}")
    for name, sums in [*folders.items(), ("in sum", [sum(column) for column in zip(*folders.values())])]:
        print(f"{name:10} {share(*sums[:2])} {share(*sums[2:])}")
    if "--lines" in sys.argv:
        print("\n".join(missed))


main()
