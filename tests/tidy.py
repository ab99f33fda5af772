#!/usr/bin/env python3
"""Runs clang-tidy over the sources of a configured build.

    tidy.py BUILD            checks what changed against the last commit
    tidy.py BUILD --all      checks everything

Most of the time of clang-tidy goes to the headers. So the files that are compiled alike are checked in
batches, each of which is read as one source. Files that keep the same name for themselves come into
different batches; where two do not bear each other all the same, the halves of the batch are checked.
"""
import json
import os
import re
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
BUILD = Path(sys.argv[1]).resolve()
WORK = BUILD / "tidy"
MOST_FILES = 50
# A batch includes sources by its nature.
CHECKS = "-bugprone-suspicious-include"
# The paths through a routine are followed where the program runs; a scene has one, and the sanitizers walk it.
CHECKS_OF_SCENES = CHECKS + ",-clang-analyzer-*"
# What a file declares outside of all classes and routines. What two files take over alike from elsewhere
# is no matter.
OWN_NAMES = [re.compile(pattern, re.M) for pattern in (
    r"^()(?:class|struct|enum|enum class) (\w+)\b(?!::)",
    r"^()(?:inline |static )?const(?:expr|init)? .*?(\w+)(?:\[\w*\])?(?: =|{)",
    r"^()[A-Za-z][\w:<>*&, ]*[ *&](\w+)\(",
    r"^(using (\w+) = .*)",
    r"^(using (?:\w+::)+(\w+);)",
)]


def git(*words):
    run = subprocess.run(["git", "-C", ROOT, *words], check=True, capture_output=True, text=True)
    return {ROOT / line for line in run.stdout.splitlines()}


def flags(command):
    """The flags of a compile command, without what names its file and without a precompiled header."""
    words = shlex.split(command)[1:]
    kept = []
    while words:
        word = words.pop(0)
        if word in ("-o", "-c"):
            words.pop(0)
        elif word == "-Xclang" and words[0] in ("-include-pch", "-emit-pch"):
            del words[:3 if words[0] == "-include-pch" else 1]
        else:
            kept.append(word)
    return tuple(kept)


def compiled():
    """The flags of each source of the repository that the build compiles."""
    entries = json.loads((BUILD / "compile_commands.json").read_text())
    return {Path(entry["file"]): flags(entry["command"]) for entry in entries
            if BUILD not in Path(entry["file"]).parents}


def wanted(sources):
    """What is to be checked, each file with its flags."""
    if "--all" in sys.argv:
        return sources
    changed = git("diff", "--name-only", "HEAD") | git("ls-files", "--others", "--exclude-standard")
    if ROOT / ".clang-tidy" in changed:
        return sources
    found = {}
    for file in changed:
        beside = file.with_suffix(".cpp")
        if beside in sources:
            found[beside] = sources[beside]
        elif file.suffix == ".h" and file.exists():
            nearest = max(sources, key=lambda source: len(os.path.commonpath([source, file])))
            found[file] = sources[nearest]
    return found


class Batch:
    """Files with the same flags, none of which declares a name of another one."""

    def __init__(self, command):
        self.command = command
        self.files = []
        self.names = {}

    def takes(self, command, names):
        return (self.command == command and len(self.files) < MOST_FILES and
                all(name not in self.names or taken and self.names[name] == taken
                    for name, taken in names.items()))


def batches(files):
    made = []
    for file, command in sorted(files.items()):
        text = file.read_text()
        names = {name: taken for pattern in OWN_NAMES for taken, name in pattern.findall(text)}
        batch = next((batch for batch in made if batch.takes(command, names)), None)
        if batch is None:
            batch = Batch(command)
            made.append(batch)
        batch.files.append(file)
        batch.names |= names
    return made


def check(name, command, files):
    """What is found in the files."""
    source = WORK / f"batch_{name}.cpp"
    scenes = all(ROOT / "tests" in file.parents for file in files)
    checks = CHECKS_OF_SCENES if scenes else CHECKS
    source.write_text("".join(f'#include "{file}"\n' for file in files))
    run = subprocess.run(["clang-tidy", "--quiet", f"--checks={checks}", source, "--", *command],
                         cwd=BUILD, capture_output=True, text=True)
    if "[clang-diagnostic-error" in run.stdout and len(files) > 1:
        middle = len(files) // 2
        return check(name + "a", command, files[:middle]) + check(name + "b", command, files[middle:])
    return run.stdout if run.returncode == 0 else run.stdout + run.stderr


def main():
    files = wanted(compiled())
    WORK.mkdir(exist_ok=True)
    made = sorted(batches(files), key=lambda batch: -len(batch.files))
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        found = "".join(pool.map(
            lambda numbered: check(str(numbered[0]), numbered[1].command, numbered[1].files),
            enumerate(made)))
    # A finding in a header comes with each batch that reads it.
    print("".join(dict.fromkeys(re.split(r"(?m)^(?=/\S+:\d+:\d+: (?:error|warning):)", found))), end="")
    print(f"clang-tidy: {len(files)} files in {len(made)} batches, {'findings' if found else 'clean'}")
    return 1 if found else 0


sys.exit(main())
