#!/usr/bin/env python3
"""Presses Tab in a real bash and a real zsh, and compares what they offer with what vornik-cli has.

    completions.py ROOT PROGRAM SHELL

Ends with 77, which stands for skipped, where the shell is not installed.
"""
import os
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import program_help

ROOT, PROGRAM, SHELL = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve(), sys.argv[3]
TIME = 60
# What lies in the folder where Tab is pressed.
FILES = ["morning.pcap", "noon of today.pcapng", "SV record 21.11.2026 18-04-09.txt", "notes.md"]
CAPTURES, RECORDINGS = set(FILES[:2]), {FILES[2]}
FOLDER = "StoredData"
# What is offered for an argument of this name.
FILES_OF_ARGUMENT = {"ADAPTER": CAPTURES, "FILE": RECORDINGS}
# What is offered behind options whose help names no choice in braces.
LISTS = {"--fail-on": {"loss", "synch", "silence"}, "--frequency": {"50", "60"},
         "--unit": {"A", "mA", "kV", "V", "mV"}, "--every": {"1h", "30m", "10m"}}
FOLDERS = {"--folder", "--output"}

# Tells what the function of the completion leaves for a line, whose last word is the one to complete.
BASH = r"""
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); COMP_LINE="$*"; COMP_POINT=${#COMP_LINE}
_vornik_cli "$1" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\n' "${COMPREPLY[@]}"
"""

# Runs the completion as Tab does, and writes what it hands to the list of matches into a file.
ZSH = r"""
zmodload zsh/zpty
zpty shell zsh -f -i
zpty -w shell "fpath=('$1' \$fpath); autoload -Uz compinit; compinit -u -d '$2/dump'; PS1=; unsetopt ignoreeof"
zpty -w shell "compadd() {
  if [[ \"\${@[1,(i)(-|--)]}\" == *-(O|A|D)\ * ]]; then builtin compadd \"\$@\"; return; fi
  local -a offered; builtin compadd -A offered \"\$@\"
  (( \$#offered )) && print -rl -- \$offered >> '$2/offered'
  builtin compadd \"\$@\"
}
all() { : > '$2/offered'; zle expand-or-complete; : > '$2/done'; zle kill-buffer }
zle -N all; bindkey '^I' all; : > '$2/ready'"
until [[ -e $2/ready ]]; do zpty -rt shell ignored; sleep 0.05; done
zpty -wn shell "$3"$'\t'
until [[ -e $2/done ]]; do zpty -rt shell ignored; sleep 0.05; done
cat "$2/offered"
zpty -d shell
"""


def offered(*words):
    """What the shell offers behind these words, for the last of them."""
    path = f"{PROGRAM.parent}:{os.environ['PATH']}"
    if SHELL == "bash":
        command = ["bash", "--norc", "-c", BASH, "bash",
                   ROOT / "packaging/completions/vornik-cli.bash", "vornik-cli", *words]
    else:
        for told in ["ready", "done"]:
            (room / told).unlink(missing_ok=True)
        command = ["zsh", "-f", "-c", ZSH, "zsh", ROOT / "packaging/completions", room,
                   " ".join(["vornik-cli", *words])]
    run = subprocess.run(command, cwd=place, capture_output=True, text=True, timeout=TIME,
                         env={**os.environ, "PATH": path, "TERM": "dumb"})
    if run.stderr:
        faults.append(f"{words}: {run.stderr}")
    return set(run.stdout.splitlines())


def compare(what, found, wanted):
    if found != wanted:
        faults.append(f"{what}: offers {sorted(found - wanted)} too much and lacks {sorted(wanted - found)}")


def check_values(command, option, value):
    """What stands behind an option: its choices, files where it names one, nothing where it is free."""
    found = offered(command, option, "")
    if isinstance(value, set):
        compare(f"{command} {option}", found, value)
    elif option in FOLDERS:
        compare(f"{command} {option}", {name.rstrip("/") for name in found}, {FOLDER})
    elif option in LISTS:
        compare(f"{command} {option}", found, LISTS[option])
    elif value.startswith(("FLOAT", "INT", "UINT")):
        compare(f"{command} {option}", found, set())


def check_arguments(command):
    usage = next(line for line in program_help.told(PROGRAM, command) if line.startswith("Usage:"))
    for argument, files in FILES_OF_ARGUMENT.items():
        if f" {argument}" not in usage:
            continue
        found = {name.replace("\\", "").rstrip("/") for name in offered(command, "")}
        adapters = {"simulated"} if argument == "ADAPTER" else set()
        if not files | adapters <= found:
            faults.append(f"{command}: lacks {sorted((files | adapters) - found)} for {argument}")
        if found & (set(FILES) - files):
            faults.append(f"{command}: offers {sorted(found & (set(FILES) - files))} for {argument}")


faults = []
if not shutil.which(SHELL):
    print(f"{SHELL} is not installed")
    sys.exit(77)
with tempfile.TemporaryDirectory() as rooms:
    room, place = Path(rooms) / "room", Path(rooms) / "place"
    room.mkdir()
    (place / FOLDER).mkdir(parents=True)
    for name in FILES:
        (place / name).touch()
    commands = program_help.commands(PROGRAM)
    compare("first word", {word for word in offered("") if word[0] != "-"}, set(commands))
    for command in commands:
        options = program_help.options(PROGRAM, command)
        compare(command, {word for word in offered(command, "-") if word.startswith("--")}, set(options))
        for option, value in options.items():
            if value:
                check_values(command, option, value)
        check_arguments(command)
print("\n".join(faults))
print(f"{len(commands)} commands")
sys.exit(1 if faults or not commands else 0)
