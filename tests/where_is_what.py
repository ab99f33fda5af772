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
    "IDlook": "stream finder",
    "EndQuestion": "question to end a recording",
    "Revisionhistory": "revision history",
    "DebugWindow": "debug window",
}
CORE = ("config", "capture", "measure", "recorder", "report", "shell")


def read(*folders):
    """The texts of the sources in these folders, by their paths."""
    return {file: file.read_text() for folder in folders
            for ending in ("*.cpp", "*.h") for file in sorted((ROOT / "src" / folder).rglob(ending))}


FORMS = read("forms")


def controls():
    """(name, kind, struct) of every control, in the order of the forms."""
    for file in sorted(FORMS, key=lambda file: (not file.stem.endswith("_controls"), file)):
        struct = None
        for line in FORMS[file].splitlines():
            opened = re.match(r"(?:struct|class) (\w+)(?: :.*)? {", line)
            if opened:
                struct = opened.group(1)
            member = re.match(r"  (?:std::array<)?platform::(\w+)[^;(]* (\w+)(?:{[^}]*})?;", line)
            if not member or "&" in line:
                continue
            if struct not in VIEWS:
                sys.exit(f"{file.name}: no view is told for the controls of {struct}")
            yield member.group(2), member.group(1), struct


def declared(text):
    """(name, struct) of every form and part of a form that a source declares."""
    return {(name, struct) for struct, name in re.findall(r"forms::(\w+)\s*[&*]?\s*(\w+)\s*[;,){(]", text)}


class Users:
    """The sources of some folders, and what the names in each of them stand for."""

    def __init__(self, *folders):
        self.texts = read(*folders)
        everywhere = set()
        for file, text in self.texts.items():
            if file.suffix == ".h":
                everywhere |= {pair for pair in declared(text) if pair[0][0].isupper()}
        self.names = {}
        for file, text in self.texts.items():
            header = self.texts.get(file.with_suffix(".h"), "")
            known = declared(text) | declared(header)
            # What a file declares itself hides a member of that name elsewhere.
            own = {name for name, _ in known}
            self.names[file] = known | {pair for pair in everywhere if pair[0] not in own}

    def of(self, control, struct, *patterns):
        """The stems of the files where a pattern, which captures the object, meets this control."""
        found = set()
        for file, text in self.texts.items():
            meant = {name for name, kind in self.names[file]
                     if kind == struct or (kind == "Main" and struct.endswith("Controls"))}
            for pattern in patterns:
                for owner in re.findall(pattern.replace("NAME", control), text, re.S):
                    if owner in meant:
                        found.add(file.stem)
        return ", ".join(sorted(found)) or "-"


def table():
    core, desktop = Users(*CORE), Users("desktop")
    yield "| control | kind | view | handler | shown by |"
    yield "|---|---|---|---|---|"
    for name, kind, struct in controls():
        handler = core.of(name, struct,
                          rf"\b(\w+)\.NAME(?:\[[^\]]*\])?\.(?:XAxis\.|YAxis\.)?(?:{EVENTS})\s*=[^=]",
                          rf"for \([^)]*: (?:\w+\.)*(\w+)\.NAME\) {{[^}}]*?\.(?:{EVENTS})\s*=[^=]")
        shown = desktop.of(name, struct, r"\b(\w+)\.NAME\b")
        yield f"| `{name}` | {kind} | {VIEWS[struct]} | {handler} | {shown} |"


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
