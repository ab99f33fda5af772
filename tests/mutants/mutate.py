#!/usr/bin/env python3
"""Breaks one line of the sources at a time and lists which breaks no test notices.

    mutate.py [SECONDS] [SEED]      goes on with the lines that SEED draws for SECONDS
    mutate.py --again [SEED]        judges anew what lived

Each mutant is built and tested in a copy of the tree, in build/mutants/<worker>; the tree itself is left alone. It
meets the tests of its own folder first, those of its room before the others, and then the tests of the folders above.
A program that is byte for byte what it was needs no test; where all are, the mutant says the same in other words and
does not count, no more than one that does not compile. What hangs is dead. The verdicts are kept in
build/mutants/seed-<SEED>.json, so that another call with the same seed goes on where the last one ended.
"""
import difflib
import json
import os
import random
import re
import sys
import threading
import time
from collections import Counter
from pathlib import Path

from mutations import broken, by_line
from tree import NoCpp, ROOT, Tree, WORK

WORKERS = int(os.environ.get("WORKERS", "2"))
# Only these folders are broken, and only their tests are met; what lives so is for --again with all.
FOLDERS = os.environ.get("FOLDERS", "").split()
OWN_PROGRAM = {"forms": ["config"]}
# What is put together by the programs and so stands below every face.
FACES = ["console", "desktop"]
# Scenes that are no test programs, by the folders whose lines they see: what a shell or a wire shows.
SCENES = {
    "console": r"^(Comtrade|Console|Docs|Completion|Results|Metrics|Units)\.",
    "adapters": r"^live\.(NetworkInterfaceScene|Ring|FirstFramesOfTheWire|BusOnTheWire|TwoStreams)",
    "desktop": r"^ScreenReader\.",
}
SCENES["system"] = SCENES["console"]
# A program that such scenes start, beside the one without a window.
STARTED = {"adapters": ["test_live"], "desktop": ["vornik"]}


def folders_above():
    """The folders whose tests may meet a folder's lines, from the bottom up, by the table of the layers."""
    table = (ROOT / "tests" / "check_layers.cmake").read_text()
    below = {name: folders.split() for name, folders in re.findall(r"^set\(below_([a-z]+) ([a-z ]+)\)", table, re.M)}
    # "system" finds its names in more than one table.
    order = ["base", "platform", "sv", "forms", "config", "capture", "measure", "recorder", "report", "shell",
             "adapters", "system", "console", "desktop"]
    return {name: [above for above in order
                   if name in below.get(above, []) or (name in ("adapters", "system") and above in FACES)]
            for name in order}


ABOVE = folders_above()


def folder_of(file):
    return file.split("/")[1]


def chosen(folder):
    return not FOLDERS or folder in FOLDERS


def sources():
    """The text of each source as it is now; the tree may go on while mutants are judged."""
    return {path.relative_to(ROOT).as_posix(): path.read_text() for path in sorted((ROOT / "src").rglob("*"))
            if path.suffix in (".cpp", ".h")}


def difference(text, mutation):
    return list(difflib.unified_diff(text.split("\n"), broken(text, mutation).split("\n"), lineterm="", n=0))[3:]


def drawn(texts, seed):
    """All lines that can be broken in the order of the seed, each with its mutations in the order of their turn."""
    dice = random.Random(seed)
    lines = [(file, line, ways) for file, text in texts.items() for line, ways in by_line(text).items()]
    dice.shuffle(lines)
    for *_, ways in lines:
        dice.shuffle(ways)
    return [(f"{file}:{line}", file, ways) for file, line, ways in lines if chosen(folder_of(file))]


def lived(texts, verdicts):
    """What lived once, each as its one mutation, in the line that is now the nearest of those that read the same."""
    found = []
    for name, told in verdicts.items():
        if told["verdict"] != "lived":
            continue
        file, line = name.split(":")
        alike = [(abs(place - int(line)), way) for place, ways in by_line(texts.get(file, "")).items() for way in ways
                 if way.kind == told["kind"] and difference(texts[file], way) == told["diff"]]
        found += [(name, file, [way]) for _, way in sorted(alike)[:1]]
    return found


def killer(told):
    """The first test that failed, or the one in which the program ended."""
    failed = re.search(r"\[  FAILED  \] ([^\s,]+)", told) or re.search(r"- (\S+) \((?:Failed|Timeout)", told)
    if failed:
        return failed.group(1)
    begun = re.findall(r"\[ RUN      \] (\S+)", told)
    return f"{begun[-1]} (ended in it)" if begun else "no test (did not start)"


def suites(folder, file):
    """The suites that stand nearest to a source, as a filter: those of its room, or those named as it begins."""
    place = Path(file).relative_to("src")
    room = ROOT / "tests" / place.parent
    first = place.stem.split("_")[0] if place.parent == Path(folder) else ""
    found = set()
    for test in sorted(room.glob(f"{first}*.cpp")) if place.parts[0] == folder else []:
        found |= set(re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+)", test.read_text(), re.M))
    return ":".join(f"{name}.*:*/{name}.*" for name in sorted(found))


class Mutant:
    """One break, in the copy of the tree that it is given."""

    def __init__(self, tree, file, text, mutation):
        self.tree, self.file, self.folder = tree, file, folder_of(file)
        self.text, self.broken = text, broken(text, mutation)
        self.met = 0

    def verdict(self):
        """One of "same", "dead" or "lived", and what killed it. A header has all rebuilt that reads it."""
        if self.file.endswith(".h"):
            return self.in_tree(self.judged)
        self.library = self.tree.compiled(self.file, self.broken)
        return self.judged() if self.library else ("same", "", "")

    def in_tree(self, judge):
        place = self.tree.root / self.file
        place.write_text(self.broken)
        try:
            return judge()
        finally:
            place.write_text(self.text)

    def judged(self):
        own = OWN_PROGRAM.get(self.folder, [self.folder])
        for folder in own + [name for name in ABOVE[self.folder] if name in self.tree.usual and name not in own]:
            dead = self.meets(folder)
            if dead:
                return dead
        if not self.met:
            return "same", "", ""
        dead = self.in_tree(self.scenes) if self.folder in SCENES and not FOLDERS else None
        return dead or ("lived", "", "")

    def meets(self, folder):
        if self.file.endswith(".h"):
            if not self.tree.made(f"test_{folder}"):
                return "dead", folder, "no test (did not start)"
            program = self.tree.program(folder)
        else:
            program = self.tree.linked(folder, self.library)
        if not self.tree.is_new(folder, program):
            return None
        self.met += 1
        near = suites(folder, self.file)
        for suite in [near, "*"] if near else ["*"]:
            code, told = self.tree.test(folder, program, suite)
            if code is None:
                return "dead", folder, "time"
            if code not in (0, 77):
                return "dead", folder, killer(told)
        return None

    def scenes(self):
        if not self.tree.made("vornik-cli", *STARTED.get(self.folder, [])):
            return "dead", "scenes", "no test (did not start)"
        code, told = self.tree.scenes(SCENES[self.folder])
        return None if code == 0 else ("dead", "scenes", "time" if code is None else killer(told))


class Run:
    """The verdicts of a seed, shared by the workers."""

    def __init__(self, seed, seconds):
        self.file = WORK / f"seed-{seed}.json"
        self.verdicts = json.loads(self.file.read_text()) if self.file.exists() else {}
        self.end = time.monotonic() + seconds
        self.lock = threading.Lock()

    def keep(self, name, verdict):
        with self.lock:
            self.verdicts[name] = verdict
            partial = self.file.with_suffix(".part")
            partial.write_text(json.dumps(self.verdicts, indent=1))
            partial.rename(self.file)
            print(f"{sum(told['verdict'] in ('dead', 'lived') for told in self.verdicts.values()):4}  "
                  f"{verdict['verdict']:6}  {name}  {verdict['kind']}  {verdict['by']} {verdict['test']}", flush=True)

    def work(self, tree, texts, lines):
        while time.monotonic() < self.end:
            with self.lock:
                if not lines:
                    return
                name, file, ways = lines.pop(0)
            self.judge(tree, name, file, texts[file], ways)

    def judge(self, tree, name, file, text, ways):
        """Breaks a line in one way after the other until one counts."""
        for mutation in ways:
            begun = time.monotonic()
            try:
                verdict, by, test = Mutant(tree, file, text, mutation).verdict()
            except NoCpp:
                continue
            self.keep(name, {"verdict": verdict, "by": by, "test": test, "kind": mutation.kind,
                             "diff": difference(text, mutation), "seconds": round(time.monotonic() - begun, 1)})
            if verdict != "same":
                return


def summary(verdicts):
    rooms = {}
    for name, told in verdicts.items():
        folder = folder_of(name)
        rooms.setdefault(folder, Counter())[told["verdict"]] += 1
        if told["verdict"] == "dead":
            own = told["by"] in OWN_PROGRAM.get(folder, [folder])
            rooms[folder]["time" if told["test"] == "time" else "own" if own else "above"] += 1
    heads = ("mutants", 8), ("dead", 6), ("by own tests", 13), ("by others", 10), ("by time", 8), ("lived", 6)
    print(f"\n{'folder':10} " + " ".join(f"{head:>{width}}" for head, width in heads))
    rooms["in sum"] = sum(rooms.values(), Counter())
    for folder, counted in rooms.items():
        print(f"{folder:10} {counted['dead'] + counted['lived']:8} {counted['dead']:6} {counted['own']:13} "
              f"{counted['above']:10} {counted['time']:8} {counted['lived']:6}")
    for name, told in sorted(verdicts.items()):
        if told["verdict"] == "lived":
            print("\n" + name + "\n" + "\n".join(told["diff"]))


def main():
    words = [word for word in sys.argv[1:] if word != "--again"]
    again = len(words) < len(sys.argv) - 1
    seconds = 86400 if again else int(words.pop(0)) if words else 3600
    seed = int(words[0]) if words else 1
    WORK.mkdir(parents=True, exist_ok=True)
    folders = [name for name in ABOVE if name not in OWN_PROGRAM and chosen(name)]
    texts = sources()
    trees = [Tree(number + 1) for number in range(WORKERS)]
    trees[0].prepare(folders)
    for tree in trees[1:]:
        tree.take_over(trees[0])
    run = Run(seed, seconds)
    lines = lived(texts, run.verdicts) if again else [line for line in drawn(texts, seed)
                                                      if line[0] not in run.verdicts]
    workers = [threading.Thread(target=run.work, args=(tree, texts, lines)) for tree in trees]
    for worker in workers:
        worker.start()
    for worker in workers:
        worker.join()
    summary(run.verdicts)


if __name__ == "__main__":
    main()
