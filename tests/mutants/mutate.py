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
import hashlib
import json
import os
import random
import re
import shutil
import signal
import subprocess
import sys
import threading
import time
from collections import Counter
from pathlib import Path

from mutations import broken, by_line

ROOT = Path(__file__).resolve().parent.parent.parent
WORK = ROOT / "build" / "mutants"
WORKERS = int(os.environ.get("WORKERS", "2"))
# Only these folders are broken, and only their tests are met; what lives so is for --again with all.
FOLDERS = os.environ.get("FOLDERS", "").split()
# What a broken line takes of the computer has an end.
MOUNTED = 'mount --bind "$1" "$2" && cd "$2" && shift 2 && exec "$@"'
BOUNDS = ["prlimit", f"--fsize={4 << 30}", "--core=0", "--"]
BOUNDS_OF_TESTS = ["prlimit", f"--as={6 << 30}", f"--fsize={4 << 30}", "--core=0", "--"]
# A test program that takes so many times its usual time, and so many seconds more, hangs.
PATIENCE = (5, 30)
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
    """What lived once, each as its one mutation, wherever its line stands by now."""
    found = []
    for name, told in verdicts.items():
        if told["verdict"] != "lived":
            continue
        file = name.split(":")[0]
        found += [(name, file, [way]) for ways in by_line(texts[file]).values() for way in ways
                  if way.kind == told["kind"] and difference(texts[file], way) == told["diff"]][:1]
    return found


class Tree:
    """A copy of the tree with its build, in which one mutant at a time lives.

    All workers see theirs in the same place, by a mount of their own, so that one build serves them all.
    """

    def __init__(self, number):
        self.root = WORK / str(number)
        self.seen = WORK / "1"
        self.build = self.seen / "build" / "mutants"
        self.told = self.root / "build" / "told.txt"
        self.usual = {}
        self.place = [] if number == 1 else ["unshare", "--mount", "sh", "-c", MOUNTED, "sh", self.root, self.seen]
        # A signal that a broken line sends stays in a namespace of its own, where there is the right to one.
        alone = ["unshare", "--pid", "--fork", "--kill-child", "--mount-proc"]
        self.apart = alone if subprocess.run([*alone, "true"], stderr=subprocess.DEVNULL).returncode == 0 else []

    def copy(self):
        """Brings over what has changed, and takes away what is gone."""
        listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-coz", "--exclude-standard"], check=True,
                                capture_output=True, text=True).stdout.split("\0")
        names = {name for name in listed if name and (ROOT / name).is_file()}
        for name in names:
            target = self.root / name
            if not target.is_file() or target.read_bytes() != (ROOT / name).read_bytes():
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(ROOT / name, target)
        for path in list(self.root.rglob("*")):
            name = path.relative_to(self.root).as_posix()
            if path.is_file() and not name.startswith("build/") and name not in names:
                path.unlink()
        (self.root / "build" / "home").mkdir(parents=True, exist_ok=True)

    def run(self, words, seconds, bounds=BOUNDS, **environment):
        """The exit code, or None where the time ran out, with what was said."""
        with self.told.open("wb") as told:
            process = subprocess.Popen([*map(str, [*self.place, "nice", "-n", "10", *bounds, *words])],
                                       cwd=self.root, env={**os.environ, **environment}, stdout=told,
                                       stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, start_new_session=True)
            try:
                code = process.wait(seconds)
            except subprocess.TimeoutExpired:
                code = None
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
                process.wait()
        return code, self.told.read_text(errors="replace")

    def run_tests(self, words, seconds):
        """The same at a home of its own, where nothing of the user's is met."""
        places = dict.fromkeys(("HOME", "TMPDIR", "TEST_TMPDIR"), str(self.seen / "build" / "home"))
        return self.run(words, seconds, BOUNDS_OF_TESTS, LC_ALL="C.UTF-8", **places)

    def compile(self, *targets):
        return self.run(["ninja", "-C", self.build, *targets], 3600, CCACHE_BASEDIR=str(self.seen))

    def program(self, folder, seen=True):
        where = "tests/desktop" if folder == "desktop" else "tests"
        return (self.seen if seen else self.root) / "build" / "mutants" / where / f"test_{folder}"

    def digest(self, folder):
        return hashlib.sha256(self.program(folder, seen=False).read_bytes()).hexdigest()

    def test(self, folder, chosen="*", usual=None):
        program = self.program(folder)
        chosen += "-DecimalComma.*" if "-" not in chosen else ""
        seconds = 600 if usual is None else usual * PATIENCE[0] + PATIENCE[1]
        return self.run_tests([*self.apart, program, "--gtest_fail_fast", f"--gtest_filter={chosen}"], seconds)

    def scenes(self, chosen):
        return self.run_tests(["ctest", "--test-dir", self.build, "-R", chosen, "--stop-on-failure", "-j3"], 900)

    def prepare(self, folders):
        """Builds everything as it is, and sees that all tests pass and how long they take."""
        self.copy()
        code, told = self.run(["cmake", "--preset", "mutants"], 300)
        if code == 0:
            code, told = self.compile(*[f"test_{folder}" for folder in folders])
        if code != 0:
            sys.exit(f"The tree does not build as it is:\n{told[-3000:]}")
        self.programs = {folder: self.digest(folder) for folder in folders}
        for folder in folders:
            begun = time.monotonic()
            code, told = self.test(folder)
            if code not in (0, 77):
                sys.exit(f"The tests of {folder} fail as they are:\n{told[-3000:]}")
            self.usual[folder] = time.monotonic() - begun

    def take_over(self, other):
        """Begins as the other one, which has been built and tested."""
        shutil.rmtree(self.root, ignore_errors=True)
        subprocess.run(["cp", "-a", other.root, self.root], check=True)
        self.programs, self.usual = other.programs, dict(other.usual)


def killer(told):
    """The first test that failed, or the one in which the program ended."""
    failed = re.search(r"\[  FAILED  \] ([^\s,]+)", told) or re.search(r"- (\S+) \((?:Failed|Timeout)", told)
    if failed:
        return failed.group(1)
    begun = re.findall(r"\[ RUN      \] (\S+)", told)
    return f"{begun[-1]} (ended in it)" if begun else "no test (did not start)"


def suites(folder, file):
    """The suites in the tests of a source's own room, as a filter; empty where it has none."""
    room = Path(file).relative_to("src").parent
    found = set()
    for test in sorted((ROOT / "tests" / room).glob("*.cpp")):
        found |= set(re.findall(r"^(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+)", test.read_text(), re.M))
    return ":".join(f"{name}.*:*/{name}.*" for name in sorted(found)) if room != Path(folder) else ""


class Mutant:
    def __init__(self, tree, file, text, mutation):
        self.tree, self.file = tree, tree.root / file
        self.name, self.folder = file, folder_of(file)
        self.text = text
        self.mutation = mutation
        self.met = 0

    def verdict(self):
        """One of "no C++", "same", "dead" or "lived", with what killed it."""
        self.file.write_text(broken(self.text, self.mutation))
        try:
            return self.judged()
        finally:
            self.file.write_text(self.text)

    def judged(self):
        own = OWN_PROGRAM.get(self.folder, [self.folder])
        for folder in own + [name for name in ABOVE[self.folder] if name in self.tree.programs and name not in own]:
            dead = self.meets(folder)
            if dead:
                return dead
        if self.met and self.folder in SCENES and not FOLDERS:
            if not self.built("vornik-cli", *STARTED.get(self.folder, [])):
                return "dead", "scenes", "no test (did not start)"
            code, told = self.tree.scenes(SCENES[self.folder])
            if code != 0:
                return "dead", "scenes", killer(told)
        return ("lived", "", "") if self.met else ("same", "", "")

    def built(self, *targets):
        """Whether the targets are there; where one only does not start, that is for its tests to find."""
        code, told = self.tree.compile(*targets)
        if code != 0 and ("error: " in told or code is None):
            raise NoCpp
        return code == 0

    def meets(self, folder):
        if not self.built(f"test_{folder}"):
            return "dead", folder, "no test (did not start)"
        if self.tree.digest(folder) == self.tree.programs[folder]:
            return None
        self.met += 1
        room = suites(folder, self.name) if folder == self.folder else ""
        for chosen in [room, "*"] if room else ["*"]:
            code, told = self.tree.test(folder, chosen, self.tree.usual[folder])
            if code is None:
                return "dead", folder, "time"
            if code not in (0, 77):
                return "dead", folder, killer(told)
        return None


class NoCpp(Exception):
    pass


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
    print(f"\n{'folder':10} {'mutants':>8} {'dead':>6} {'by own tests':>13} {'by others':>10} {'by time':>8} {'lived':>6}")
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
    trees = [Tree(number + 1) for number in range(WORKERS)]
    trees[0].prepare(folders)
    for tree in trees[1:]:
        tree.take_over(trees[0])
    run = Run(seed, seconds)
    texts = sources()
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
