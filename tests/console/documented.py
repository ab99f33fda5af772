#!/usr/bin/env python3
"""Compares what vornik-cli says of its commands and options with its manual page and the README.

    documented.py ROOT PROGRAM PAGE

Each command and each of its options stands in both, and nothing stands there that the program does not have.
PAGE is the manual page as it was built.
"""
import re
import subprocess
import sys
from pathlib import Path

import manual_page
import program_help

ROOT, PROGRAM, MANUAL = Path(sys.argv[1]), sys.argv[2], Path(sys.argv[3])
OPTION = re.compile(r"--[a-z][\w-]*")
OF_ALL = {"--help", "--version"}
faults = []


def compare(where, found, wanted):
    faults.extend(f"{where}: lacks {name}" for name in sorted(wanted - found))
    faults.extend(f"{where}: {name} is not there in the program" for name in sorted(found - wanted))


def check_manual(text, options):
    # A line may go on behind a backslash.
    text = text.replace("\\-", "-").replace("\\\n", "")
    chapters = manual_page.sections(text, r"^\.SH (.*)$")
    described = manual_page.sections(chapters["COMMANDS"], r'^\.SS "?([\w-]+).*$')
    compare("manual, COMMANDS", set(described), set(options))
    # A command's lines reach to the next command's.
    shown = manual_page.sections(chapters["SYNOPSIS"], r"^\.B vornik-cli(?: ([\w-]+))?$")
    shown.pop(None, None)
    compare("manual, SYNOPSIS", set(shown), set(options))
    for command, wanted in options.items():
        tags = re.findall(r"^\.TP\n(.*)$", described.get(command, ""), re.M)
        compare(f"manual, {command}", set(OPTION.findall("\n".join(tags))), wanted)
        compare(f"manual, synopsis of {command}", set(OPTION.findall(shown.get(command, ""))), wanted)
    # Other programs have options of their own.
    own = "\n".join(line for line in text.splitlines() if not re.match(r"\.B (systemctl|jq)", line))
    compare("manual", set(OPTION.findall(own)), set().union(OF_ALL, *options.values()))


def check_readme(text, options):
    chapter = manual_page.sections(text, r"^## (.*)$").get("Without a window", "")
    rows = manual_page.sections(chapter, r"^\| `([\w-]+)[^`]*` \|")
    compare("README, commands", set(rows), set(options))
    for command, wanted in options.items():
        compare(f"README, {command}", set(OPTION.findall(rows.get(command, "").split("\n")[0])), wanted)
    compare("README", set(OPTION.findall(chapter)) | OF_ALL, set().union(OF_ALL, *options.values()))


def check_version(page):
    told = subprocess.run([PROGRAM, "--version"], check=True, capture_output=True, text=True).stdout.split()[-1]
    if manual_page.version(page) != told:
        faults.append(f"manual: its first line does not tell the version {told}")


wanted = {command: set(program_help.options(PROGRAM, command)) - OF_ALL
          for command in program_help.commands(PROGRAM)}
manual = MANUAL.read_text()
check_manual(manual, wanted)
check_version(manual)
check_readme((ROOT / "README.md").read_text(), wanted)
faults.extend(manual_page.complaints(MANUAL))
print("\n".join(faults))
print(f"{len(wanted)} commands, {sum(map(len, wanted.values()))} options")
sys.exit(1 if faults or not wanted else 0)
