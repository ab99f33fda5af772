#!/usr/bin/env python3
"""Compares the manual page of the window's program with the tabs and settings that it has.

    window_documented.py ROOT PAGE
"""
import re
import sys
from pathlib import Path

import manual_page

ROOT, PAGE = Path(sys.argv[1]), Path(sys.argv[2])


def tabs():
    """The captions of the tabs without the marks of their keys."""
    text = (ROOT / "src/forms/window_controls.cpp").read_text()
    strip = text[text.index("TabStrip1.Tabs"):]
    return [caption.replace("&", "") for caption in re.findall(r'^ +{"([^"]+)",', strip[:strip.index("};")], re.M)]


page = PAGE.read_text()
chapters = manual_page.sections(page, r"^\.SH (.*)$")
described = re.findall(r"^\.TP\n\.B (\w+)$", chapters["VIEWS"], re.M)
faults = list(manual_page.complaints(PAGE))
if not tabs() or described != tabs():
    faults.append(f"VIEWS: {described}, but the tabs are {tabs()}")
if f"Ctrl+1 to Ctrl+{len(tabs())} " not in page:
    faults.append(f"VIEWS: the keys of {len(tabs())} tabs are not told")
print("\n".join(faults))
print(f"{len(described)} views")
sys.exit(1 if faults else 0)
