"""A copy of the tree with its build, in which one mutant at a time lives."""
import filecmp
import json
import os
import re
import shlex
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
WORK = ROOT / "build" / "mutants"
# What a broken line takes of the computer has an end.
BOUNDS = ["prlimit", f"--fsize={4 << 30}", "--core=0", "--"]
BOUNDS_OF_TESTS = ["prlimit", f"--as={6 << 30}", f"--fsize={4 << 30}", "--core=0", "--"]
# A test program that takes so many times its usual time, and so many seconds more, hangs.
PATIENCE = (5, 30)
MOUNTED = 'mount --bind "$1" "$2" && cd "$2" && shift 2 && exec "$@"'


class NoCpp(Exception):
    """What was broken does not compile, or does not link."""


class Tree:
    """All workers see theirs in the same place, by a mount of their own, so that one build serves them all."""

    def __init__(self, number):
        self.root = WORK / str(number)
        self.seen = WORK / "1"
        self.build = self.root / "build" / "mutants"
        self.own = self.root / "build" / "own"
        self.told = self.root / "build" / "told.txt"
        self.usual = {}
        self.place = [] if number == 1 else ["unshare", "--mount", "sh", "-c", MOUNTED, "sh", self.root, self.seen]
        # A signal that a broken line sends stays in a namespace of its own, where there is the right to one.
        alone = ["unshare", "--pid", "--fork", "--kill-child", "--mount-proc"]
        self.apart = alone if subprocess.run([*alone, "true"], stderr=subprocess.DEVNULL).returncode == 0 else []

    def as_seen(self, path):
        return self.seen / path.relative_to(self.root)

    def copy(self):
        """Brings over what has changed, and takes away what is gone."""
        listed = subprocess.run(["git", "-C", ROOT, "ls-files", "-coz", "--exclude-standard"], check=True,
                                capture_output=True, text=True).stdout.split("\0")
        names = {name for name in listed if name and (ROOT / name).is_file()}
        for name in names:
            target = self.root / name
            if not target.is_file() or not filecmp.cmp(target, ROOT / name, shallow=False):
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(ROOT / name, target)
        for path in [path for path in self.root.rglob("*") if path.is_file()]:
            name = path.relative_to(self.root).as_posix()
            if not name.startswith("build/") and name not in names:
                path.unlink()

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
        home = self.own / "home"
        home.mkdir(parents=True, exist_ok=True)
        places = dict.fromkeys(("HOME", "TMPDIR", "TEST_TMPDIR"), str(self.as_seen(home)))
        return self.run(words, seconds, BOUNDS_OF_TESTS, LC_ALL="C.UTF-8", **places)

    def made(self, *targets):
        """Whether the targets are there; where one only does not start, that is for its tests to find."""
        code, told = self.run(["ninja", "-C", self.as_seen(self.build), *targets], 3600,
                              CCACHE_BASEDIR=str(self.seen))
        if code != 0 and ("error: " in told or code is None):
            raise NoCpp(told)
        return code == 0

    def program(self, folder):
        return self.build / ("tests/desktop" if folder == "desktop" else "tests") / f"test_{folder}"

    def in_build(self, command):
        """Runs a command of the build, which speaks of its files from there on."""
        code, told = self.run(["sh", "-c", f'cd "{self.as_seen(self.build)}" && {command}'], 600)
        if code != 0:
            raise NoCpp(told)

    def compiled(self, file, text):
        """A library with the object of a source as it is broken, or None where that is the same as before."""
        self.own.mkdir(parents=True, exist_ok=True)
        source, built, library = (self.own / f"mutant.{kind}" for kind in ("cpp", "o", "a"))
        source.write_text(text)
        words = shlex.split(self.compiles[file])
        words = words[next(i for i, word in enumerate(words) if word.endswith("++")):]
        before = self.build / words[words.index("-o") + 1]
        words[words.index("-o") + 1] = self.as_seen(built)
        words[words.index("-c") + 1] = self.as_seen(source)
        library.unlink(missing_ok=True)
        self.in_build(f"{shlex.join(map(str, words))} && ar rc {self.as_seen(library)} {self.as_seen(built)}")
        return None if filecmp.cmp(before, built, shallow=False) else library

    def linked(self, folder, library):
        """A test program that takes the library's object instead of its own, where it takes it at all."""
        program = self.own / f"test_{folder}"
        before = self.program(folder).relative_to(self.build)
        link = self.links[folder].replace(f"-o {before} ", f"-o {self.as_seen(program)} {self.as_seen(library)} ", 1)
        self.in_build(link)
        return program

    def is_new(self, folder, program):
        return not filecmp.cmp(program, self.unbroken / f"test_{folder}", shallow=False)

    def test(self, folder, program, chosen="*"):
        """What the chosen tests of a program come to: the exit code or None, and what they said."""
        chosen += "" if "-" in chosen else "-DecimalComma.*"
        usual = self.usual.get(folder, 300)
        return self.run_tests([*self.apart, self.as_seen(program), "--gtest_fail_fast", f"--gtest_filter={chosen}"],
                              usual * PATIENCE[0] + PATIENCE[1])

    def scenes(self, chosen):
        return self.run_tests(["ctest", "--test-dir", self.as_seen(self.build), "-R", chosen, "--stop-on-failure",
                               "-j3"], 900)

    def prepare(self, folders):
        """Builds everything as it is, and sees that all tests pass and how long they take."""
        self.copy()
        self.told.parent.mkdir(exist_ok=True)
        try:
            code, told = self.run(["cmake", "--preset", "mutants"], 300)
            if code != 0 or not self.made(*[f"test_{folder}" for folder in folders]):
                raise NoCpp(told)
        except NoCpp as why:
            sys.exit(f"The tree does not build as it is:\n{str(why)[-3000:]}")
        commands = json.loads((self.build / "compile_commands.json").read_text())
        self.compiles = {Path(entry["file"]).relative_to(self.seen).as_posix(): entry["command"]
                         for entry in commands if " -o src/" in entry["command"]
                         and self.build not in Path(entry["file"]).parents}
        self.unbroken = self.root / "build" / "unbroken"
        self.unbroken.mkdir(exist_ok=True)
        self.links = {}
        for folder in folders:
            listed = subprocess.run(["ninja", "-C", self.build, "-t", "commands", f"test_{folder}"], check=True,
                                    capture_output=True, text=True).stdout.splitlines()
            self.links[folder] = re.search(r"^: && (.*?) && ", listed[-1]).group(1)
            shutil.copy(self.program(folder), self.unbroken)
            begun = time.monotonic()
            code, told = self.test(folder, self.program(folder))
            if code not in (0, 77):
                sys.exit(f"The tests of {folder} fail as they are:\n{told[-3000:]}")
            self.usual[folder] = time.monotonic() - begun

    def take_over(self, other):
        """Begins as the other one, which has been built and tested."""
        shutil.rmtree(self.root, ignore_errors=True)
        subprocess.run(["cp", "-a", other.root, self.root], check=True)
        self.compiles, self.links, self.usual = other.compiles, other.links, dict(other.usual)
        self.unbroken = other.unbroken
