#!/usr/bin/env python3
"""Compares the table of controls in docs/where_is_what.md with the code, so that it stays true.

    where_is_what.py ROOT          fails where the page and the code differ
    where_is_what.py ROOT --print  prints the table that the code calls for
"""
import re
import sys
from pathlib import Path

ROOT = Path(sys.argv[1])
EVENTS = "Click|ValueChanged|Change|Changed|DblClick|MouseDown|ZoomFinished|Elapsed|Resize|QueryUnload"
VIEWS = {
    "WindowControls": "window",
    "TimerControls": "timers",
    "SharedControls": "several views",
    "InformationControls": "Info",
    "ValuesControls": "Values",
    "PhasorControls": "Phasor",
    "WaveformsControls": "Waveforms",
    "RecorderControls": "Recorder",
    "ReportControls": "Report",
    "SetupControls": "Setup",
}


def sources(*folders):
    return [file for folder in folders for file in sorted((ROOT / "src" / folder).rglob("*.cpp"))
            ] + [file for folder in folders for file in sorted((ROOT / "src" / folder).rglob("*.h"))]


def controls():
    """(name, kind, view) of every control, in the order of the forms."""
    for header in sorted((ROOT / "src/forms").glob("*_controls.h")):
        view = None
        for line in header.read_text().splitlines():
            struct = re.match(r"struct (\w+) {", line)
            if struct:
                view = VIEWS[struct.group(1)]
            member = re.match(r"  (?:std::array<)?platform::(\w+)[^;(]* (\w+);", line)
            if member and view:
                yield member.group(2), member.group(1), view


def handler(name, texts):
    """The files whose code takes the control's events."""
    direct = re.compile(rf"\b{name}(?:\[[^\]]*\])?\.(?:XAxis\.|YAxis\.)?(?:{EVENTS})\s*=[^=]")
    each = re.compile(rf"for \([^)]*: [\w.]*\b{name}\) {{[^}}]*?\.(?:{EVENTS})\s*=[^=]", re.S)
    return sorted({file.stem for file, text in texts if direct.search(text) or each.search(text)})


def shown_by(name, texts):
    """The files of the window that show the control."""
    use = re.compile(rf"[\w)]\.{name}\b")
    return sorted({file.stem for file, text in texts if use.search(text)})


def table():
    core = [(file, file.read_text()) for file in sources("config", "capture", "measure", "recorder", "report", "shell")]
    desktop = [(file, file.read_text()) for file in sources("desktop")]
    yield "| control | kind | view | handler | shown by |"
    yield "|---|---|---|---|---|"
    for name, kind, view in controls():
        cells = [f"`{name}`", kind, view]
        cells += [", ".join(found) or "-" for found in (handler(name, core), shown_by(name, desktop))]
        yield "| " + " | ".join(cells) + " |"


wanted = list(table())
if "--print" in sys.argv:
    print("\n".join(wanted))
    sys.exit(0)
page = (ROOT / "docs/where_is_what.md").read_text().splitlines()
missing = [row for row in wanted if row not in page]
stale = [row for row in page if row.count("|") == 6 and row not in wanted]
for row in missing:
    print("missing:", row)
for row in stale:
    print("not so: ", row)
print(f"{len(wanted) - 2} controls")
sys.exit(1 if missing or stale else 0)
